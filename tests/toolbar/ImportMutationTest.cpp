// Exported dashboards and copied widgets with one byte changed, and cut off at every length: whatever is read, nothing
// fails, and nothing takes more than a second or 256 MiB. The usual run takes a fixed part of them; with ZOR_ALL set in
// the environment it takes all: ten thousand changes of each and every length.

#include <sys/resource.h>
#include <time.h>

#include <cstdlib>
#include <random>

#include "host/foundation/Log.h"
#include "host/foundation/SafeFile.h"
#include "tests/support/Sanitizers.h"
#include "tests/toolbar/ToolbarSupport.h"

namespace zor {
namespace {

using test::box;

constexpr std::array<std::string_view, 11> kinds{
    "textField", "dateTimeField",  "box",        "imageView",  "led", "mapView", "webView",
    "plotView",  "levelIndicator", "roundGauge", "linearGauge"};
constexpr rlim_t mostMemory = rlim_t{256} << 20;
constexpr double mostSeconds = 1;
constexpr std::size_t allChanges = 10000, someChanges = 60, someLengths = 60;
constexpr std::size_t exportCount = 20;

bool takesAll() {
    return std::getenv("ZOR_ALL") != nullptr;
}

/// Of this thread's own work, so that a busy machine does not count.
double secondsWorked() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

/// While it lives, the process gets no more than so much memory beyond what it has: an allocation beyond fails.
class MemoryLimit {
public:
    MemoryLimit() {
        std::ifstream statm("/proc/self/statm");
        rlim_t pages = 0;
        statm >> pages;
        getrlimit(RLIMIT_AS, &before_);
        // Sanitizers reserve address space without measure.
        if (test::isSanitized || pages == 0) return;
        const rlimit limit{pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + mostMemory, before_.rlim_max};
        setrlimit(RLIMIT_AS, &limit);
    }
    ~MemoryLimit() { setrlimit(RLIMIT_AS, &before_); }

private:
    rlimit before_{};
};

class ImportMutation : public test::ToolbarTest {
protected:
    void SetUp() override {
        setLogSink({});
        agent->setSiteWindowController(controller);
        for (const auto& each : knownProperties()) agent->addProperty(each.key, each.displayName, each.quantity);
        property("outdoorTemperature")->setValue(12, 1);
        makeDashboards();
    }

    std::shared_ptr<ZORDashboardPlugIn> dashboardOf(WidgetList widgets, Size size) {
        return ZORDashboardPlugIn::initWithAgent(agent, controller, std::move(widgets), size);
    }
    std::shared_ptr<ZORWidgetHostView> widget(std::string_view kind, const Rect& frame) {
        auto made = ZORWidgetHostView::widgetOfKind(kind, frame, agent);
        made->setTitle("Größe " + std::string(kind));
        const auto client = std::dynamic_pointer_cast<PropertyClient>(made->targetView());
        if (client) client->setProperty(property("outdoorTemperature"));
        return made;
    }
    /// One of each kind of instrument, all of them together, none, the built-in ones, and odd settings.
    void makeDashboards() {
        for (const auto kind : kinds) dashboards.push_back(dashboardOf({widget(kind, {10, 20, 60, 40})}, {100, 80}));
        WidgetList all;
        for (const auto kind : kinds) all.push_back(widget(kind, {20.0 * static_cast<double>(all.size()), 5, 50, 50}));
        dashboards.push_back(dashboardOf(std::move(all), {300, 80}));
        dashboards.push_back(dashboardOf({}, {50, 50}));
        dashboards.push_back(dashboardOf({}, {0, 0}));
        dashboards.push_back(toolbar->currentWeatherPlugIn());
        dashboards.push_back(toolbar->quadPlotsPlugIn());
        dashboards.push_back(toolbar->cleanSlatePlugIn());
        const auto picture = widget("imageView", {0, 0, 30, 30});
        picture->targetView()->setValueForKey(
            "image", Image::withData(std::make_shared<const Bytes>(FakeToolkit::imageData({30, 30})), {30, 30}));
        dashboards.push_back(dashboardOf({picture}, {30, 30}));
        dashboards.push_back(dashboardOf({test::label({0, 0, 1e300, 1}, std::string(300, 'x'))}, {40, 40}));
        dashboards.push_back(dashboardOf({box({-5, -5, 0.1, 1e-9}), box({1, 1, 1, 1}), box({1, 1, 1, 1})}, {9, 9}));
        dashboards.back()->setTitle("\u2603 title \U0001F4A7");
    }

    Bytes exportOf(ZORDashboardPlugIn& dashboard) {
        toolkit.saveAnswers.push_back({PanelResponse::ok, file});
        dashboard.exportDashboard({});
        return readFile(file).valueOr({});
    }
    Bytes copyOf(ZORDashboardPlugIn& dashboard) {
        dashboard.unselectAllObjects();
        for (const auto& each : test::widgetsOn(dashboard.editView())) dashboard.selectObject(each);
        dashboard.copySelection({});
        return toolkit.pasteboard.dataForType(widgetPasteType);
    }

    void import(const Bytes& data) {
        std::ofstream(file, std::ios::binary)
            .write(reinterpret_cast<const char*>(data.data()), static_cast<std::streamsize>(data.size()));
        toolkit.openAnswers.push_back({PanelResponse::ok, file});
        toolkit.alertAnswers.push_back(alertFirstButtonReturn);
        toolbar->importDashboard({});
        toolkit.alertAnswers.clear();
        toolkit.sheets.clear();
        ASSERT_EQ(controller->plugIns().size(), 1u);
        const auto dashboard = std::static_pointer_cast<ZORDashboardPlugIn>(controller->plugIns().front());
        dashboard->pngImageWithScale(1);
        controller->removePlugInAtIndex(0);
    }
    void paste(const Bytes& data) {
        toolkit.pasteboard.setDataForType(data, widgetPasteType);
        const auto dashboard = dashboardOf({}, {100, 100});
        dashboard->view();
        dashboard->editDashboard({});
        dashboard->paste({});
        dashboard->pngImageWithScale(1);
    }

    /// Reads changed and shortened data; every case in the same time and memory.
    template <typename Read>
    void readMutationsOf(const Bytes& data, unsigned seed, Read read) {
        ASSERT_FALSE(data.empty());
        std::mt19937 random(seed);
        const auto below = [&](std::size_t limit) { return random() % limit; };
        const MemoryLimit limit;
        const auto one = [&](const Bytes& mutated, const std::string& what) {
            const double start = secondsWorked();
            read(mutated);
            const double seconds = secondsWorked() - start;
            slowest = std::max(slowest, seconds);
            ++cases;
            if (!test::isSanitized) {
                EXPECT_LE(seconds, mostSeconds) << what;
            }
        };
        for (std::size_t count = takesAll() ? allChanges : someChanges; count > 0; --count) {
            Bytes changed = data;
            const std::size_t place = below(data.size());
            changed[place] ^= static_cast<std::uint8_t>(1 + below(255));
            one(changed, "byte " + std::to_string(place) + " of export " + std::to_string(seed));
        }
        const std::size_t step = takesAll() ? 1 : std::max<std::size_t>(1, data.size() / someLengths);
        for (std::size_t length = 0; length < data.size(); length += step) {
            one(Bytes(data.begin(), data.begin() + static_cast<std::ptrdiff_t>(length)),
                "length " + std::to_string(length) + " of export " + std::to_string(seed));
        }
    }

    void report() {
        RecordProperty("cases", std::to_string(cases));
        RecordProperty("slowestMilliseconds", std::to_string(1000 * slowest));
        if (takesAll()) std::printf("%zu cases, the slowest %.1f ms\n", cases, 1000 * slowest);
    }

    test::TemporaryFolder folder;
    std::string file = folder / "Panel.zordashboard";
    std::vector<std::shared_ptr<ZORDashboardPlugIn>> dashboards;
    std::size_t cases = 0;
    double slowest = 0;
};

TEST_F(ImportMutation, FilesAreReadWithoutHarm) {
    ASSERT_EQ(dashboards.size(), exportCount);
    unsigned seed = 0;
    for (const auto& dashboard : dashboards) {
        const Bytes data = exportOf(*dashboard);
        ASSERT_NO_FATAL_FAILURE(import(data));
        readMutationsOf(data, seed++, [this](const Bytes& mutated) { import(mutated); });
    }
    report();
}

TEST_F(ImportMutation, PasteboardDataIsReadWithoutHarm) {
    unsigned seed = 0;
    for (const auto& dashboard : dashboards) {
        if (!dashboard->editView()) continue;
        const Bytes data = copyOf(*dashboard);
        readMutationsOf(data, seed++, [this](const Bytes& mutated) { paste(mutated); });
    }
    report();
}

}  // namespace
}  // namespace zor

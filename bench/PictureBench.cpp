// Pictures of four plots with a day of samples each: `picture_bench RUNS` prints the medians as JSON, `picture_bench 1
// FILE` also writes the PNG. Every run has other values; copying the canvas, drawing and encoding all count.

#include <QGuiApplication>
#include <cmath>
#include <cstdlib>
#include <fstream>

#include "bench/Measure.h"
#include "host/instruments/InstrumentClasses.h"
#include "host/station/PropertyKeys.h"
#include "qt/QtToolkit.h"
#include "toolbar/ZORDashboardToolbarPlugIn.h"

using namespace zor;

namespace {

constexpr int samplesPerPlot = 1440;
/// The end of a day, so that the plots' day is full.
constexpr Seconds theTime = 1'767'225'599;

Seconds stoppedClock() { return theTime; }

struct Curve {
    const char* key;
    double level;
    double swing;
};
constexpr Curve curves[] = {{"outdoorTemperature", 12, 9}, {"outdoorHumidity", 65, 25}, {"windSpeed", 6, 5},
                            {"outdoorDewPoint", 6, 5}};

double valueAt(const Curve& curve, int sample, int run) {
    const double day = 2 * M_PI * sample / samplesPerPlot;
    return curve.level + curve.swing * (0.7 * std::sin(day + run) + 0.2 * std::sin(17 * day) + 0.1 * std::sin(211 * day));
}

void giveDay(Agent& agent, int run) {
    Reading last;
    for (int sample = 0; sample < samplesPerPlot; ++sample) {
        Reading reading{theTime - 60.0 * (samplesPerPlot - 1 - sample), {}};
        for (const auto& curve : curves) reading.measurements.push_back({curve.key, valueAt(curve, sample, run)});
        agent.history()->append(reading);
        last = std::move(reading);
    }
    agent.takeReading(std::move(last));
}

}  // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("TZ", "UTC", 1);
    QGuiApplication application(argc, argv);
    Toolkit::install(std::make_unique<QtToolkit>());
    registerInstrumentClasses();
    setClock(stoppedClock);
    const int runs = argc > 1 ? std::atoi(argv[1]) : 25;

    const auto agent = Agent::withName("Bench");
    for (const auto& curve : curves) {
        const auto naming = namingOfProperty(curve.key);
        agent->addProperty(curve.key, naming.displayName, naming.quantity);
    }
    const auto controller = std::make_shared<SiteWindowController>();
    const auto dashboard = ZORDashboardToolbarPlugIn::initWithAgent(agent, controller)->quadPlotsPlugIn();
    int run = 0;
    Bytes bytes;
    const auto task = [&](const char* operation, std::vector<Value> arguments) {
        return bench::Task{[&, operation, arguments] { bytes = dashboard->perform(operation, arguments).asData(); },
                           [&] { giveDay(*agent, ++run); }};
    };
    const double png = bench::medianMilliseconds(runs, task("pngImageWithScale:", {Value(1.0)}));
    const std::size_t pngBytes = bytes.size();
    if (argc > 2) {
        std::ofstream(argv[2], std::ios::binary).write(reinterpret_cast<const char*>(bytes.data()),
                                                       static_cast<std::streamsize>(bytes.size()));
    }
    const double pdf = bench::medianMilliseconds(runs, task("pdfRepresentation", {}));
    std::printf("{\"png\": %.3f, \"pngBytes\": %zu, \"pdf\": %.3f, \"pdfBytes\": %zu}\n", png, pngBytes, pdf,
                bytes.size());
}

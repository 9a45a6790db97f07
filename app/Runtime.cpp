#include "app/Runtime.h"

#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QApplication>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QPixmapCache>
#include <QSocketNotifier>
#include <cstdlib>

#include "app/CommandLine.h"
#include "app/DataFolder.h"
#include "app/MinuteTimer.h"
#include "host/foundation/MainQueue.h"
#include "host/foundation/WritingNotes.h"
#include "host/instruments/InstrumentClasses.h"
#include "qt/MainQueueRunner.h"
#include "qt/QtToolkit.h"

namespace zor {

namespace {

int argumentCount = 1;
char programName[] = "station";
char* argumentValues[] = {programName, nullptr};

/// Quits the event loop on the signals that ask a program to end.
class SignalWatch {
public:
    SignalWatch() {
        if (socketpair(AF_UNIX, SOCK_STREAM, 0, ends_) != 0) return;
        notifier_ = std::make_unique<QSocketNotifier>(ends_[1], QSocketNotifier::Read);
        QObject::connect(notifier_.get(), &QSocketNotifier::activated, [] { QCoreApplication::quit(); });
        struct sigaction action = {};
        action.sa_handler = [](int) {
            const char byte = 1;
            [[maybe_unused]] const auto written = write(ends_[0], &byte, 1);
        };
        sigaction(SIGINT, &action, nullptr);
        sigaction(SIGTERM, &action, nullptr);
    }

private:
    static inline int ends_[2] = {-1, -1};
    std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace

Runtime::Runtime() = default;

Runtime::~Runtime() {
    MainQueue::shared().cancel();
    queueRunner_.reset();
    Toolkit::install({});
}

void Runtime::begin(std::unique_ptr<QCoreApplication> application, std::unique_ptr<Toolkit> toolkit) {
    application_ = std::move(application);
    QCoreApplication::setOrganizationName("station");
    QCoreApplication::setApplicationName("station");
    Toolkit::install(std::move(toolkit));
    queueRunner_ = std::make_unique<MainQueueRunner>();
    registerInstrumentClasses();
    plugIns_ = PlugInLibrary::load(PlugInLibrary::standardFolders());
    for (const auto& problem : plugIns_.problems()) fail(problem);
    if (plugIns_.bundles().empty()) fail("no plug-in was found; there are no dashboards");
}

int Runtime::runEventLoop() {
    MinuteTimer minutes;
    SignalWatch endings;
    const int status = application_->exec();
    // Whoever waits for the main thread now would wait for ever.
    MainQueue::shared().cancel();
    return status;
}

HeadlessRuntime::HeadlessRuntime()
    : HeadlessRuntime([]() -> std::unique_ptr<Toolkit> { return std::make_unique<QtToolkit>(); }) {}

HeadlessRuntime::HeadlessRuntime(std::unique_ptr<Toolkit> (*makeToolkit)()) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    auto application = std::make_unique<QGuiApplication>(argumentCount, argumentValues);
    begin(std::move(application), makeToolkit());
}

DesktopRuntime::DesktopRuntime() {
    auto application = std::make_unique<QApplication>(argumentCount, argumentValues);
    // In KiB: the widgets' arrows and icons, which need far less than is usual.
    QPixmapCache::setCacheLimit(2048);
    begin(std::move(application), std::make_unique<QtToolkit>());
    // A person saves here and there; scripts touch nothing but the files that they name.
    if (const auto folder = dataFolder()) keepWritingNotesIn(*folder / "unfinished");
}

bool hasDisplay() {
    const char* platform = std::getenv("QT_QPA_PLATFORM");
    const char* display = std::getenv("DISPLAY");
    const char* wayland = std::getenv("WAYLAND_DISPLAY");
    return (platform && *platform) || (display && *display) || (wayland && *wayland);
}

}  // namespace zor

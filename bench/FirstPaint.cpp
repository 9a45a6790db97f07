// Linked into a program with windows: at the first painting of a window it prints how long the process has lived and how
// much memory is its own, as JSON, and ends it. BENCH_STARTED is the monotonic clock, in nanoseconds, at the start.

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

namespace {

/// Proportional set size in KiB.
long proportionalSetSize() {
    std::ifstream file("/proc/self/smaps_rollup");
    std::string word;
    long size = 0;
    while (file >> word) {
        if (word == "Pss:") {
            file >> size;
            break;
        }
    }
    return size;
}

class FirstPaint : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        const auto* widget = qobject_cast<QWidget*>(object);
        if (event->type() == QEvent::Paint && widget && widget->window()->isVisible()) {
            // Once everything that was due has been painted.
            QTimer::singleShot(0, this, report);
        }
        return false;
    }

private:
    static void report() {
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        const char* started = std::getenv("BENCH_STARTED");
        const double nanoseconds = static_cast<double>(std::chrono::nanoseconds(now).count()) - std::atof(started);
        std::printf("{\"milliseconds\": %.2f, \"kibibytes\": %ld}\n", nanoseconds / 1e6, proportionalSetSize());
        std::fflush(stdout);
        std::_Exit(0);
    }
};

void watch() {
    if (std::getenv("BENCH_STARTED")) qApp->installEventFilter(new FirstPaint(qApp));
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(watch)

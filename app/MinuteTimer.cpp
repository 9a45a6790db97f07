#include "app/MinuteTimer.h"

#include <cmath>
#include <cstdint>

#include "host/foundation/NotificationCenter.h"

namespace zor {

namespace {

/// A timer that comes a moment early would find the old minute and come again.
constexpr std::chrono::milliseconds pastTheMinute{5};

}  // namespace

MinuteTimer::MinuteTimer() {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, [this] {
        NotificationCenter::defaultCenter().post(kAppTimerOneMinuteNotification);
        arm();
    });
    arm();
}

std::chrono::milliseconds MinuteTimer::waitFrom(Seconds time) {
    const double rest = 60 - std::fmod(time, 60.0);
    return std::chrono::milliseconds(static_cast<std::int64_t>(rest * 1000)) + pastTheMinute;
}

void MinuteTimer::arm() {
    timer_.start(waitFrom(now()));
}

}  // namespace zor

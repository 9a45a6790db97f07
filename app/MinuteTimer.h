#pragma once

#include <QTimer>
#include <chrono>

#include "host/station/Reading.h"

namespace zor {

/// Posts the minute notification at every full minute of the clock, as long as it lives and the event loop runs.
class MinuteTimer {
public:
    MinuteTimer();
    MinuteTimer(const MinuteTimer&) = delete;
    MinuteTimer& operator=(const MinuteTimer&) = delete;

    /// How long to wait for the full minute after `time`: never nothing, at most a little more than a minute.
    static std::chrono::milliseconds waitFrom(Seconds time);

private:
    void arm();

    QTimer timer_;
};

}  // namespace zor

#pragma once

#include "host/station/Reading.h"

namespace zor {

/// The time of a station that someone else records. While what is recorded is old, it is the newest recorded moment, so
/// that "today" is the last recorded day. Once a recording was of the present, the station is live and its time is the
/// computer's, also where recordings then fail to come: their age must show.
class RecordedClock {
public:
    void record(Seconds moment);
    /// The computer's time where nothing was recorded.
    Seconds now() const;

private:
    Seconds newest_ = 0;
    bool isLive_ = false;
};

}  // namespace zor

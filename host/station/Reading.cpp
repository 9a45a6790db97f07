#include "host/station/Reading.h"

#include <atomic>
#include <chrono>

namespace zor {

namespace {

Seconds wallClock() {
    return std::chrono::duration<Seconds>(std::chrono::system_clock::now().time_since_epoch()).count();
}

/// Drivers and the history's worker ask for the time from their own threads.
std::atomic<Seconds (*)()> theClock = wallClock;

}  // namespace

Seconds now() {
    return theClock.load()();
}

void setClock(Seconds (*clock)()) {
    theClock = clock ? clock : wallClock;
}

}  // namespace zor

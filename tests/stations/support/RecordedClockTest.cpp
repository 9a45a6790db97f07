#include "stations/support/RecordedClock.h"

#include <gtest/gtest.h>

#include "tests/stations/TimeZone.h"

namespace zor {
namespace {

const test::CentralEurope zone;

constexpr Seconds kHour = 3600;
constexpr Seconds kNoon = 1751364000;  // 2025-07-01 12:00 Central European summer time
Seconds computersTime = 0;

class RecordedClockTest : public testing::Test {
protected:
    RecordedClockTest() {
        computersTime = kNoon;
        setClock([] { return computersTime; });
    }
    ~RecordedClockTest() override { setClock(nullptr); }
    RecordedClock clock;
};

TEST_F(RecordedClockTest, IsTheComputersWhereNothingWasRecorded) {
    EXPECT_EQ(clock.now(), kNoon);
}

TEST_F(RecordedClockTest, StandsAtTheNewestMomentOfAnOldRecording) {
    clock.record(kNoon - 30 * 24 * kHour);
    EXPECT_EQ(clock.now(), kNoon - 30 * 24 * kHour);
    clock.record(kNoon - 20 * 24 * kHour);
    clock.record(kNoon - 25 * 24 * kHour);
    computersTime += kHour;
    EXPECT_EQ(clock.now(), kNoon - 20 * 24 * kHour);
}

TEST_F(RecordedClockTest, WhatEndsAtMidnightBelongsToTheDayBefore) {
    clock.record(kNoon - 12 * kHour);
    EXPECT_EQ(clock.now(), kNoon - 12 * kHour - 1);
}

TEST_F(RecordedClockTest, IsTheComputersOnceARecordingWasOfThePresent) {
    clock.record(kNoon - kHour);
    EXPECT_EQ(clock.now(), kNoon);
    // The recorder has stopped since; that shows.
    computersTime += 48 * kHour;
    EXPECT_EQ(clock.now(), computersTime);
}

TEST_F(RecordedClockTest, AnOldRecordingThatGrowsUpToThePresentBecomesLive) {
    clock.record(kNoon - kHour - 1);
    EXPECT_EQ(clock.now(), kNoon - kHour - 1);
    clock.record(kNoon - 300);
    EXPECT_EQ(clock.now(), kNoon);
}

TEST_F(RecordedClockTest, FollowsARecorderWhoseClockIsAhead) {
    clock.record(kNoon + 5 * kHour);
    EXPECT_EQ(clock.now(), kNoon + 5 * kHour);
}

}  // namespace
}  // namespace zor

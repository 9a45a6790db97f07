#include "stations/weewx/WeewxStation.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <fstream>

#include "tests/stations/MainLoop.h"
#include "tests/stations/TimeZone.h"
#include "tests/stations/weewx/ArchiveFixture.h"
#include "tests/support/TemporaryFolder.h"

namespace zor {
namespace {

const test::CentralEurope zone;

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr long long kNoon = 1751364000;  // 2025-07-01 12:00 Central European summer time

DriverResult opened(const std::filesystem::path& file) {
    return WeewxStation::create({{"file", file.string()}, {"pollSeconds", 0.01}});
}

std::shared_ptr<StationDriver> station(const std::filesystem::path& file) {
    auto made = opened(file);
    EXPECT_TRUE(made) << made.error().message;
    return *made;
}

std::string faultOf(const std::filesystem::path& file) {
    const auto made = opened(file);
    EXPECT_FALSE(made);
    return made ? "" : made.error().message;
}

const Measurement* measurement(const Reading& reading, std::string_view key) {
    const auto found = std::ranges::find(reading.measurements, key, &Measurement::key);
    return found == reading.measurements.end() ? nullptr : &*found;
}

std::optional<double> valueOf(const Reading& reading, std::string_view key) {
    const auto* found = measurement(reading, key);
    return found ? found->value : std::nullopt;
}

std::vector<std::string> keysOf(const Reading& reading) {
    std::vector<std::string> keys;
    for (const auto& entry : reading.measurements) keys.push_back(entry.key);
    return keys;
}

std::vector<std::string> filesIn(const std::filesystem::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) names.push_back(entry.path().filename());
    std::ranges::sort(names);
    return names;
}

constexpr const char* kUnitColumns =
    "outTemp, dewpoint, barometer, pressure, windSpeed, windDir, rain, rainRate, "
    "lightning_distance, outHumidity, radiation, UV, soilTemp1, soilMoist1, leafWet1";

TEST(WeewxStation, ItsTimeIsThatOfTheNewestRow) {
    const test::TemporaryFolder folder;
    test::ArchiveWriter writer(folder.path() / "a.sdb", "outTemp");
    writer.add(kNoon, 17, "20");
    const auto archive = station(folder.path() / "a.sdb");
    EXPECT_EQ(archive->now(), kNoon);

    test::MainLoop loop;
    int readings = 0;
    archive->start({.reading = [&](Reading) { ++readings; }, .trouble = [](std::string) {}});
    writer.add(kNoon + 300, 17, "21");
    ASSERT_TRUE(loop.runUntil([&] { return readings > 0; }));
    EXPECT_EQ(archive->now(), kNoon + 300);
    archive->stop();
}

TEST(WeewxStation, ConvertsEachRowByItsOwnUnitSystem) {
    const test::TemporaryFolder folder;
    test::ArchiveWriter weewx(folder / "weewx.sdb", kUnitColumns);
    const auto newest = [&] { return station(folder / "weewx.sdb")->currentReading(); };

    weewx.add(kNoon, 1, "50, 41, 30, 29, 10, 270, 0.5, 2, 10, 55, 800, 6.5, 68, 30, 7");
    const Reading us = newest();
    EXPECT_EQ(us.time, kNoon);
    EXPECT_NEAR(*valueOf(us, "outdoorTemperature"), 10, 1e-9);
    EXPECT_NEAR(*valueOf(us, "outdoorDewPoint"), 5, 1e-9);
    EXPECT_NEAR(*valueOf(us, "barometricPressureRelative"), 1015.9167, 1e-9);
    EXPECT_NEAR(*valueOf(us, "barometricPressureAbsolute"), 982.05281, 1e-9);
    EXPECT_NEAR(*valueOf(us, "windSpeed"), 4.4704, 1e-9);
    EXPECT_EQ(*valueOf(us, "windDirection"), 270);
    EXPECT_NEAR(*valueOf(us, "rainIncrement"), 12.7, 1e-9);
    EXPECT_NEAR(*valueOf(us, "rainRate"), 50.8, 1e-9);
    EXPECT_NEAR(*valueOf(us, "lightningDistance"), 16.09344, 1e-9);
    EXPECT_EQ(*valueOf(us, "outdoorHumidity"), 55);
    EXPECT_EQ(*valueOf(us, "solarRadiation"), 800);
    EXPECT_EQ(*valueOf(us, "uvIndex"), 6.5);
    EXPECT_NEAR(*valueOf(us, "soilTemperature1"), 20, 1e-9);
    EXPECT_EQ(*valueOf(us, "soilTension1"), 30);
    EXPECT_EQ(*valueOf(us, "leafWetness1"), 7);

    weewx.add(kNoon + 300, 16, "10, 5, 1015, 980, 36, 270, 0.5, 2, 10, 55, 800, 6.5, 20, 30, 7");
    const Reading metric = newest();
    EXPECT_EQ(metric.time, kNoon + 300);
    EXPECT_EQ(*valueOf(metric, "outdoorTemperature"), 10);
    EXPECT_EQ(*valueOf(metric, "barometricPressureRelative"), 1015);
    EXPECT_NEAR(*valueOf(metric, "windSpeed"), 10, 1e-9);
    EXPECT_EQ(*valueOf(metric, "rainIncrement"), 5);
    EXPECT_EQ(*valueOf(metric, "rainRate"), 20);
    EXPECT_EQ(*valueOf(metric, "lightningDistance"), 10);

    weewx.add(kNoon + 600, 17, "10, 5, 1015, 980, 36, 270, 0.5, 2, 10, 55, 800, 6.5, 20, 30, 7");
    const Reading metricWX = newest();
    EXPECT_EQ(*valueOf(metricWX, "windSpeed"), 36);
    EXPECT_EQ(*valueOf(metricWX, "rainIncrement"), 0.5);
    EXPECT_EQ(*valueOf(metricWX, "rainRate"), 2);
    // All three rows of the day, each in its own unit.
    EXPECT_NEAR(*valueOf(metricWX, "rainToday"), 18.2, 1e-9);

    const auto rain = station(folder / "weewx.sdb")->historyLoader()->load("rainIncrement", kNoon, kNoon + 600);
    ASSERT_EQ(rain.size(), 3);
    EXPECT_NEAR(rain[0].value, 12.7, 1e-9);
    EXPECT_EQ(rain[1], (Sample{kNoon + 300, 5}));
    EXPECT_EQ(rain[2], (Sample{kNoon + 600, 0.5}));
}

TEST(WeewxStation, PassesOverRowsOfAnUnknownUnitSystem) {
    const test::TemporaryFolder folder;
    test::ArchiveWriter weewx(folder / "weewx.sdb", "outTemp");
    weewx.add(kNoon, 17, "11");
    weewx.add(kNoon + 300, 99, "12");
    const auto driver = station(folder / "weewx.sdb");
    EXPECT_EQ(driver->currentReading().time, kNoon);
    EXPECT_THAT(driver->historyLoader()->load("outdoorTemperature", 0, 2e9), ElementsAre(Sample{kNoon, 11}));
}

TEST(WeewxStation, WhatIsNullOrImpossibleHasNoValue) {
    const test::TemporaryFolder folder;
    test::ArchiveWriter weewx(folder / "weewx.sdb", "outTemp, outHumidity, windSpeed, windDir, inTemp, extraTemp1");
    weewx.add(kNoon, 1, "59, 50, 0, 90, 68, NULL");
    weewx.add(kNoon + 300, 1, "999, 140, 'calm', NULL, NULL, NULL");
    const auto driver = station(folder / "weewx.sdb");
    const Reading reading = driver->currentReading();
    // No sensor ever filled extraTemp1.
    EXPECT_THAT(keysOf(reading), ElementsAre("outdoorTemperature", "outdoorHumidity", "windSpeed", "windDirection",
                                             "indoorTemperature"));
    for (const auto& entry : reading.measurements) EXPECT_EQ(entry.value, std::nullopt) << entry.key;
    EXPECT_THAT(driver->historyLoader()->load("windDirection", 0, 2e9), ElementsAre(Sample{kNoon, 90}));
    EXPECT_EQ(driver->historyLoader()->load("outdoorTemperature", 0, 2e9).size(), 1);
}

TEST(WeewxStation, TheAltimeterServesWhereTheBarometerIsMissing) {
    const test::TemporaryFolder folder;
    test::ArchiveWriter both(folder / "both.sdb", "altimeter, barometer");
    both.add(kNoon, 17, "1010, 1011");
    both.add(kNoon + 300, 17, "1010, NULL");
    EXPECT_THAT(station(folder / "both.sdb")->historyLoader()->load("barometricPressureRelative", 0, 2e9),
                ElementsAre(Sample{kNoon, 1011}, Sample{kNoon + 300, 1010}));
    test::ArchiveWriter one(folder / "one.sdb", "altimeter");
    one.add(kNoon, 17, "1012");
    EXPECT_THAT(keysOf(station(folder / "one.sdb")->currentReading()), ElementsAre("barometricPressureRelative"));
}

TEST(WeewxStation, ErrorsNameTheFileAndTheFault) {
    const test::TemporaryFolder folder;
    EXPECT_THAT(faultOf(folder / "none.sdb"), EndsWith("none.sdb”: there is no such file"));
    EXPECT_FALSE(std::filesystem::exists(folder / "none.sdb"));
    EXPECT_THAT(faultOf(folder.write("text.sdb", std::string(5000, 'x'))),
                EndsWith("text.sdb”: it is not an SQLite database"));
    EXPECT_THAT(faultOf(folder.write("empty.sdb", "")), HasSubstr("no table “archive”"));
    EXPECT_THAT(faultOf(folder.path()), HasSubstr(folder.path().string()));
    const auto make = [&](const char* name, const char* sql) {
        EXPECT_TRUE(SqliteDatabase::open(folder / name, SqliteDatabase::Mode::write)->run(sql));
        return folder / name;
    };
    EXPECT_THAT(faultOf(make("other.sdb", "CREATE TABLE a (b)")), HasSubstr("other.sdb”: it is no weewx archive"));
    EXPECT_THAT(faultOf(make("time.sdb", "CREATE TABLE archive (usUnits)")), HasSubstr("no column “dateTime”"));
    EXPECT_THAT(faultOf(make("units.sdb", "CREATE TABLE archive (dateTime)")), HasSubstr("no column “usUnits”"));

    EXPECT_THAT(WeewxStation::create({}).error().message, HasSubstr("“file”"));
    EXPECT_THAT(WeewxStation::create({{"file", "a"}, {"pollSeconds", 0}}).error().message, HasSubstr("“pollSeconds”"));
}

TEST(WeewxStation, AnEmptyArchiveIsAStationWithoutReadings) {
    const test::TemporaryFolder folder;
    test::ArchiveWriter weewx(folder / "weewx.sdb", "outTemp");
    const auto driver = station(folder / "weewx.sdb");
    EXPECT_THAT(driver->currentReading().measurements, IsEmpty());
    EXPECT_EQ(driver->stationName(), "weewx");
    EXPECT_FALSE(driver->isLive());
    const auto named = WeewxStation::create({{"file", (folder / "weewx.sdb").string()}, {"name", "Roof"}});
    EXPECT_EQ((*named)->stationName(), "Roof");
}

/// Rows that come while the driver reads, in one journal mode and in the other.
class WeewxLive : public testing::TestWithParam<bool> {};

TEST_P(WeewxLive, SendsEachNewRowInOrderWhileWeewxWrites) {
    test::MainLoop loop;
    const test::TemporaryFolder folder;
    test::ArchiveWriter weewx(folder / "weewx.sdb", "outTemp, rain", GetParam());
    weewx.add(kNoon - 300, 17, "10, 1");
    weewx.add(kNoon, 17, "10, 1");
    const auto driver = station(folder / "weewx.sdb");
    weewx.add(kNoon + 300, 17, "11, 2");
    weewx.add(kNoon + 600, 17, "12, 0");
    std::vector<Reading> readings;
    driver->start({[&](Reading reading) { readings.push_back(std::move(reading)); },
                   [](const std::string& trouble) { ADD_FAILURE() << trouble; }});
    EXPECT_TRUE(loop.runUntil([&] { return readings.size() == 2; }));
    for (int row = 3; row <= 20; ++row) {
        weewx.run("BEGIN IMMEDIATE");
        weewx.add(kNoon + 300 * row, 17, std::to_string(10 + row) + ", 0.5");
        weewx.run("COMMIT");
    }
    EXPECT_TRUE(loop.runUntil([&] { return readings.size() == 20; }));
    driver->stop();
    for (std::size_t index = 0; index < readings.size(); ++index) {
        EXPECT_EQ(readings[index].time, kNoon + 300.0 * static_cast<double>(index + 1));
        EXPECT_EQ(valueOf(readings[index], "outdoorTemperature"), 11.0 + static_cast<double>(index));
    }
    EXPECT_EQ(valueOf(readings[0], "rainToday"), 4);
    EXPECT_EQ(valueOf(readings[19], "rainToday"), 13);
    EXPECT_EQ(driver->currentReading().time, kNoon + 6000);
    // What came while nobody listened comes at the next start.
    weewx.add(kNoon + 6300, 17, "40, 0");
    readings.clear();
    driver->start({[&](Reading reading) { readings.push_back(std::move(reading)); }, {}});
    EXPECT_TRUE(loop.runUntil([&] { return readings.size() == 1; }));
    EXPECT_EQ(readings.front().time, kNoon + 6300);
}

INSTANTIATE_TEST_SUITE_P(JournalModes, WeewxLive, testing::Bool(),
                         [](const auto& mode) { return mode.param ? "WriteAhead" : "Rollback"; });

TEST(WeewxStation, SendsAllOfALongAbsence) {
    test::MainLoop loop;
    const test::TemporaryFolder folder;
    test::ArchiveWriter weewx(folder / "weewx.sdb", "outTemp");
    weewx.add(kNoon, 17, "10");
    const auto driver = WeewxStation::create({{"file", (folder / "weewx.sdb").string()}, {"pollSeconds", 3600}});
    ASSERT_TRUE(driver);
    weewx.run("BEGIN");
    for (int row = 1; row <= 1200; ++row) weewx.add(kNoon + 300 * row, 17, "20");
    weewx.run("COMMIT");
    int count = 0;
    Seconds last = kNoon;
    (*driver)->start({[&](const Reading& reading) {
                          EXPECT_EQ(reading.time, last + 300);
                          last = reading.time;
                          ++count;
                      },
                      {}});
    EXPECT_TRUE(loop.runUntil([&] { return count == 1200; }));
}

TEST(WeewxStation, ASensorThatAppearsIsAProperty) {
    test::MainLoop loop;
    const test::TemporaryFolder folder;
    test::ArchiveWriter weewx(folder / "weewx.sdb", "outTemp, extraTemp3");
    weewx.add(kNoon, 17, "10, NULL");
    const auto driver = station(folder / "weewx.sdb");
    std::vector<Reading> readings;
    driver->start({[&](Reading reading) { readings.push_back(std::move(reading)); }, {}});
    weewx.add(kNoon + 300, 17, "10, 5");
    weewx.add(kNoon + 600, 17, "10, NULL");
    EXPECT_TRUE(loop.runUntil([&] { return readings.size() == 2; }));
    driver->stop();
    EXPECT_EQ(valueOf(readings[0], "extraTemperature3"), 5);
    ASSERT_TRUE(measurement(readings[1], "extraTemperature3"));
    EXPECT_EQ(valueOf(readings[1], "extraTemperature3"), std::nullopt);
}

TEST(WeewxStation, TellsWhenTheFileIsGoneAndWhenItIsBack) {
    test::MainLoop loop;
    const test::TemporaryFolder folder;
    const auto file = folder / "weewx.sdb";
    test::ArchiveWriter(file, "outTemp").add(kNoon, 17, "10");
    const auto driver = station(file);
    std::vector<std::string> troubles;
    std::vector<Seconds> times;
    driver->start({[&](const Reading& reading) { times.push_back(reading.time); },
                   [&](std::string trouble) { troubles.push_back(std::move(trouble)); }});
    std::filesystem::rename(file, folder / "away.sdb");
    EXPECT_TRUE(loop.runUntil([&] { return troubles.size() == 1; }));
    EXPECT_THAT(troubles[0], EndsWith("weewx.sdb”: there is no such file"));
    test::ArchiveWriter(folder / "away.sdb", "outTemp").add(kNoon + 300, 17, "11");
    std::filesystem::rename(folder / "away.sdb", file);
    EXPECT_TRUE(loop.runUntil([&] { return !times.empty(); }));
    driver->stop();
    EXPECT_THAT(troubles, ElementsAre(HasSubstr("no such file"), ""));
    EXPECT_THAT(times, ElementsAre(kNoon + 300));
}

TEST(WeewxStation, TellsWhenTheFileIsLockedForLongAndStopsMeanwhile) {
    test::MainLoop loop;
    const test::TemporaryFolder folder;
    test::ArchiveWriter weewx(folder / "weewx.sdb", "outTemp");
    weewx.add(kNoon, 17, "10");
    const auto driver = station(folder / "weewx.sdb");
    weewx.run("BEGIN EXCLUSIVE");
    std::vector<std::string> troubles;
    driver->start({{}, [&](std::string trouble) { troubles.push_back(std::move(trouble)); }});
    EXPECT_TRUE(loop.runUntil([&] { return troubles.size() == 1; }));
    EXPECT_THAT(troubles[0], EndsWith("weewx.sdb”: another program keeps it locked"));
    weewx.run("COMMIT");
    EXPECT_TRUE(loop.runUntil([&] { return troubles.size() == 2; }));
    EXPECT_EQ(troubles[1], "");
    weewx.run("BEGIN EXCLUSIVE");
    // Ends the wait for the lock.
    driver->stop();
}

TEST(WeewxStation, LeavesNothingBesideTheArchive) {
    const test::TemporaryFolder folder;
    for (const bool writeAhead : {false, true}) {
        const auto file = folder / (writeAhead ? "wal.sdb" : "rollback.sdb");
        {
            test::ArchiveWriter weewx(file, "outTemp", writeAhead);
            weewx.add(kNoon, 17, "10");
        }
        const auto driver = station(file);
        EXPECT_EQ(driver->currentReading().time, kNoon);
        EXPECT_EQ(driver->historyLoader()->load("outdoorTemperature", 0, 2e9).size(), 1);
    }
    EXPECT_THAT(filesIn(folder.path()), ElementsAre("rollback.sdb", "wal.sdb"));
}

TEST(WeewxStation, ReadsARowThatIsOnlyInTheLogYet) {
    const test::TemporaryFolder folder;
    test::ArchiveWriter weewx(folder / "weewx.sdb", "outTemp", true);
    weewx.run("PRAGMA wal_autocheckpoint = 0");
    weewx.add(kNoon, 17, "10");
    EXPECT_TRUE(std::filesystem::exists(folder / "weewx.sdb-wal"));
    EXPECT_EQ(station(folder / "weewx.sdb")->currentReading().time, kNoon);
}

}  // namespace
}  // namespace zor

#include "app/StationSource.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "app/SiteSession.h"

namespace zor {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;

Value::Dictionary settingsOf(const std::string& source) {
    const auto configuration = configurationOfSource(source);
    EXPECT_TRUE(configuration) << (configuration ? "" : configuration.error().message);
    return configuration ? configuration->settings : Value::Dictionary{};
}

std::string refusalOf(const std::string& source) {
    const auto configuration = configurationOfSource(source);
    return configuration ? "" : configuration.error().message;
}

/// What the driver says of settings that can be read.
std::string driversRefusalOf(const std::string& source) {
    const auto configuration = configurationOfSource(source);
    if (!configuration) return "could not be read";
    const auto driver = makeDriver(*configuration);
    return driver ? "" : driver.error().message;
}

TEST(StationSource, OfTheSimulatedStationNeedsNoSettings) {
    const auto configuration = configurationOfSource("simulated");
    ASSERT_TRUE(configuration);
    EXPECT_EQ(configuration->driver, "simulated");
    EXPECT_EQ(configuration->unitSystem, UnitSystem::metric);
    EXPECT_THAT(configuration->settings, IsEmpty());
    EXPECT_EQ(sourceOf(*configuration), "simulated");
}

TEST(StationSource, OfTheSimulatedStationTakesNumbersByName) {
    const auto configuration = configurationOfSource("simulated:seed=7,speed=60");
    ASSERT_TRUE(configuration);
    EXPECT_EQ(configuration->driver, "simulated");
    EXPECT_EQ(configuration->settings, (Value::Dictionary{{"seed", 7}, {"speed", 60}}));
    EXPECT_EQ(settingsOf("simulated:interval=0.5,latitude=-33.9,longitude=18.4,start=1700000000"),
              (Value::Dictionary{{"interval", 0.5}, {"latitude", -33.9}, {"longitude", 18.4}, {"start", 1700000000}}));
    EXPECT_EQ(settingsOf("simulated:speed=1e-6"), (Value::Dictionary{{"speed", 1e-6}}));
}

TEST(StationSource, IsWrittenAsItWasRead) {
    for (const char* source : {"simulated", "simulated:seed=-7", "simulated:seed=7,speed=60", "simulated:speed=0.25",
                               "simulated:seed=9223372036854775807,speed=1000000,interval=0.5,latitude=-33.9,"
                               "longitude=18.4,start=1700000000",
                               "simulated:start=1700000000.25", "weewx:/var/lib/weewx, of 2024.sdb"}) {
        const auto configuration = configurationOfSource(source);
        ASSERT_TRUE(configuration) << source;
        EXPECT_EQ(sourceOf(*configuration), source);
    }
}

TEST(StationSource, IsWrittenInOneOrder) {
    const auto configuration = configurationOfSource("simulated:start=5,speed=60,seed=7");
    ASSERT_TRUE(configuration);
    EXPECT_EQ(sourceOf(*configuration), "simulated:seed=7,speed=60,start=5");
}

TEST(StationSource, LeavesOutWhatIsNoSettingOfIts) {
    AgentConfiguration configuration;
    configuration.settings = {{"name", "Garden"}, {"valueLifetime", 60}, {"speed", "fast"}, {"seed", 3}};
    EXPECT_EQ(sourceOf(configuration), "simulated:seed=3");
    configuration.driver = "barometric";
    EXPECT_EQ(sourceOf(configuration), "barometric");
}

TEST(StationSource, RefusesAnUnknownSettingByName) {
    EXPECT_THAT(refusalOf("simulated:seed=7,sped=60"),
                AllOf(HasSubstr("\"sped\""), HasSubstr("seed, speed, interval, latitude, longitude, start")));
    EXPECT_THAT(refusalOf("simulated:Seed=7"), HasSubstr("\"Seed\""));
    EXPECT_THAT(refusalOf("simulated:name=7"), HasSubstr("\"name\""));
    EXPECT_THAT(refusalOf("simulated:"), HasSubstr("no setting \"\""));
    EXPECT_THAT(refusalOf("simulated:seed=7,"), HasSubstr("no setting \"\""));
    EXPECT_THAT(refusalOf("simulated:=7"), HasSubstr("no setting \"\""));
}

TEST(StationSource, RefusesWhatIsNoNumberByKeyAndValue) {
    for (const char* value : {"fast", "60x", " 60", "6 0", "0x10", "+", "1e999", "=60"}) {
        EXPECT_THAT(refusalOf(std::string("simulated:speed=") + value),
                    AllOf(HasSubstr("\"speed\""), HasSubstr("\"" + std::string(value) + "\"")));
    }
    EXPECT_THAT(refusalOf("simulated:speed="), AllOf(HasSubstr("\"speed\""), HasSubstr("\"\"")));
    EXPECT_THAT(refusalOf("simulated:seed"), AllOf(HasSubstr("\"seed\""), HasSubstr("\"\"")));
    EXPECT_THAT(refusalOf("simulated:seed=7,seed=7"), AllOf(HasSubstr("\"seed\""), HasSubstr("twice")));
}

TEST(StationSource, TheDriverNamesANumberThatItCannotUse) {
    EXPECT_EQ(driversRefusalOf("simulated:seed=7,speed=60"), "");
    for (const char* setting : {"speed=0", "speed=nan", "speed=inf", "interval=0", "latitude=91", "longitude=-181",
                                "start=-1", "seed=1.5", "seed=9223372036854775808"}) {
        const std::string key(setting, std::string_view(setting).find('='));
        EXPECT_THAT(driversRefusalOf(std::string("simulated:") + setting), HasSubstr("“" + key + "”"));
    }
}

TEST(StationSource, OfAnArchiveIsFoundFromEverywhere) {
    EXPECT_EQ(settingsOf("weewx:home/weewx.sdb")["file"],
              Value((std::filesystem::current_path() / "home/weewx.sdb").string()));
    EXPECT_THAT(refusalOf("weewx:"), HasSubstr("weewx:FILE"));
}

TEST(StationSource, IsToldFromAFileByItsBeginning) {
    for (const char* source : {"simulated", "simulated:seed=7", "simulated:x", "weewx:", "weewx:a.sdb"}) {
        EXPECT_TRUE(namesSource(source)) << source;
    }
    for (const char* file : {"demo", "simulated.site", "weewx", "weewx.sdb", "home/weewx:a.sdb", "simulate", ""}) {
        EXPECT_FALSE(namesSource(file)) << file;
    }
    EXPECT_THAT(refusalOf("barometric"), AllOf(HasSubstr("\"barometric\""), HasSubstr("weewx:FILE")));
}

}  // namespace
}  // namespace zor

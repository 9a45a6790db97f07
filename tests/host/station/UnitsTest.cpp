#include "host/station/Units.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <set>

namespace zor {
namespace {

double base(double value, std::string_view shortName, Quantity quantity) {
    const auto* unit = unitWithShortName(shortName, quantity);
    EXPECT_NE(unit, nullptr) << shortName;
    return unit ? toBase(value, *unit) : 0;
}

TEST(Units, ConvertToTheBaseUnit) {
    EXPECT_NEAR(base(212, "°F", Quantity::temperature), 100, 1e-12);
    EXPECT_NEAR(base(-40, "°F", Quantity::temperature), -40, 1e-12);
    EXPECT_DOUBLE_EQ(base(273.15, "K", Quantity::temperature), 0);
    EXPECT_NEAR(base(9, "°F", Quantity::temperatureDifference), 5, 1e-12);
    EXPECT_EQ(base(5, "°C", Quantity::temperatureDifference), 5);
    EXPECT_NEAR(base(29.92, "inHg", Quantity::pressure), 1013.21, 0.01);
    EXPECT_NEAR(base(760, "mmHg", Quantity::pressure), 1013.25, 0.01);
    EXPECT_EQ(base(1013.25, "mbar", Quantity::pressure), 1013.25);
    EXPECT_NEAR(base(101.325, "kPa", Quantity::pressure), 1013.25, 1e-9);
    EXPECT_NEAR(base(101325, "Pa", Quantity::pressure), 1013.25, 1e-9);
    EXPECT_NEAR(base(0.1, "inHg/3h", Quantity::pressureTrend), 3.386, 0.001);
    EXPECT_NEAR(base(36, "km/h", Quantity::speed), 10, 1e-12);
    EXPECT_NEAR(base(10, "mph", Quantity::speed), 4.4704, 1e-12);
    EXPECT_NEAR(base(10, "kn", Quantity::speed), 5.14444, 1e-5);
    EXPECT_DOUBLE_EQ(base(1, "in", Quantity::rain), 25.4);
    EXPECT_DOUBLE_EQ(base(1, "cm", Quantity::rain), 10);
    EXPECT_DOUBLE_EQ(base(2, "in/h", Quantity::rainRate), 50.8);
    EXPECT_DOUBLE_EQ(base(2, "cm/h", Quantity::rainRate), 20);
    EXPECT_DOUBLE_EQ(base(1.5, "klx", Quantity::illuminance), 1500);
    EXPECT_DOUBLE_EQ(base(1, "mi", Quantity::distance), 1.609344);
    EXPECT_DOUBLE_EQ(base(500, "m", Quantity::distance), 0.5);
    EXPECT_NEAR(base(5280, "ft", Quantity::distance), 1.609344, 1e-12);
    EXPECT_EQ(base(20, "kPa", Quantity::soilTension), 20);
    EXPECT_EQ(base(2, "h", Quantity::duration), 7200);
    EXPECT_EQ(base(2, "min", Quantity::duration), 120);
}

TEST(Units, ConvertBackFromTheBaseUnit) {
    EXPECT_NEAR(fromBase(21.5, *unitWithShortName("°F")), 70.7, 1e-12);
    EXPECT_DOUBLE_EQ(fromBase(25.4, *unitWithShortName("in")), 1);
    for (const auto& unit : allUnits()) EXPECT_NEAR(fromBase(toBase(12.5, unit), unit), 12.5, 1e-9) << unit.shortName;
}

TEST(Units, BaseUnitsLeaveValuesAsTheyAre) {
    for (const auto& unit : allUnits()) {
        const auto& first = baseUnit(unit.quantity);
        EXPECT_EQ(first.quantity, unit.quantity);
        EXPECT_EQ(toBase(7.25, first), 7.25) << first.shortName;
    }
    EXPECT_EQ(baseUnit(Quantity::temperature).shortName, "°C");
    EXPECT_EQ(baseUnit(Quantity::speed).shortName, "m/s");
    EXPECT_EQ(baseUnit(Quantity::pressureTrend).shortName, "hPa/3h");
    EXPECT_EQ(baseUnit(Quantity::distance).shortName, "km");
}

TEST(Units, AShortNameBelongsToOneUnitOfAQuantity) {
    std::set<std::pair<Quantity, std::string_view>> seen;
    for (const auto& unit : allUnits()) {
        EXPECT_TRUE(seen.emplace(unit.quantity, unit.shortName).second) << unit.shortName;
    }
}

TEST(Units, AreFoundByTheirShortNames) {
    for (const auto* name :
         {"°C",   "°F",  "K",  "%",  "hPa", "mbar", "inHg",  "mmHg", "kPa",  "Pa",  "hPa/3h", "inHg/3h", "m/s",
          "km/h", "mph", "kn", "mm", "in",  "cm",   "mm/h",  "in/h", "cm/h", "°",   "W/m²",   "lx",      "klx",
          "km",   "mi",  "m",  "ft", "V",   "ppm",  "µg/m³", "cbar", "s",    "min", "h"}) {
        ASSERT_NE(unitWithShortName(name), nullptr) << name;
        EXPECT_EQ(unitWithShortName(name)->shortName, name);
    }
    EXPECT_EQ(unitWithShortName("K")->quantity, Quantity::temperature);
    EXPECT_EQ(unitWithShortName("K", Quantity::temperatureDifference)->quantity, Quantity::temperatureDifference);
    EXPECT_EQ(unitWithShortName("kPa")->quantity, Quantity::pressure);
    EXPECT_EQ(unitWithShortName("m")->quantity, Quantity::distance);
    EXPECT_EQ(unitWithShortName("")->quantity, Quantity::none);
    EXPECT_EQ(unitWithShortName("", Quantity::uvIndex)->quantity, Quantity::uvIndex);
    EXPECT_EQ(unitWithShortName("furlong"), nullptr);
    EXPECT_EQ(unitWithShortName("hPa", Quantity::speed), nullptr);
}

TEST(Units, AreFoundByOtherSpellings) {
    const std::pair<const char*, const char*> spellings[] = {
        {"C", "°C"},      {"F", "°F"},      {"mb", "mbar"},     {"kts", "kn"},    {"kt", "kn"},   {"kph", "km/h"},
        {"w/m2", "W/m²"}, {"W/m2", "W/m²"}, {"W/m^2", "W/m²"},  {"inhg", "inHg"}, {"HPA", "hPa"}, {"in/hr", "in/h"},
        {"deg", "°"},     {"lux", "lx"},    {"ug/m3", "µg/m³"}, {"miles", "mi"}};
    for (const auto& [spelling, name] : spellings) {
        ASSERT_NE(unitWithShortName(spelling), nullptr) << spelling;
        EXPECT_EQ(unitWithShortName(spelling)->shortName, name) << spelling;
    }
    // With Greek mu instead of the micro sign.
    EXPECT_EQ(unitWithShortName("\u03BCg/m³")->shortName, "\u00B5g/m³");
}

TEST(Units, SystemsShowTheirOwnUnits) {
    const auto shown = [](UnitSystem system) {
        std::vector<std::string_view> names;
        for (const auto quantity : {Quantity::temperature, Quantity::temperatureDifference, Quantity::pressure,
                                    Quantity::pressureTrend, Quantity::speed, Quantity::rain, Quantity::rainRate,
                                    Quantity::distance, Quantity::humidity, Quantity::direction}) {
            names.push_back(unitForQuantity(quantity, system).shortName);
        }
        return names;
    };
    using testing::ElementsAre;
    EXPECT_THAT(shown(UnitSystem::metric),
                ElementsAre("°C", "K", "hPa", "hPa/3h", "km/h", "mm", "mm/h", "km", "%", "°"));
    EXPECT_THAT(shown(UnitSystem::us), ElementsAre("°F", "°F", "inHg", "inHg/3h", "mph", "in", "in/h", "mi", "%", "°"));
    EXPECT_THAT(shown(UnitSystem::uk), ElementsAre("°C", "K", "hPa", "hPa/3h", "mph", "mm", "mm/h", "mi", "%", "°"));
    EXPECT_THAT(shown(UnitSystem::si), ElementsAre("°C", "K", "hPa", "hPa/3h", "m/s", "mm", "mm/h", "km", "%", "°"));
    for (const auto& unit : allUnits()) {
        EXPECT_EQ(unitForQuantity(unit.quantity, UnitSystem::us).quantity, unit.quantity);
    }
}

TEST(Units, UsualDecimals) {
    const std::pair<const char*, int> decimals[] = {{"°C", 1},   {"°F", 1},   {"hPa", 1},  {"inHg", 2}, {"m/s", 1},
                                                    {"km/h", 1}, {"mph", 1},  {"kn", 1},   {"%", 0},    {"mm", 1},
                                                    {"in", 2},   {"mm/h", 1}, {"in/h", 2}, {"°", 0},    {"W/m²", 0}};
    for (const auto& [name, count] : decimals) EXPECT_EQ(unitWithShortName(name)->decimals, count) << name;
    EXPECT_EQ(baseUnit(Quantity::uvIndex).decimals, 1);
}

TEST(Units, NamesOfQuantitiesAndSystemsReadBack) {
    for (const auto& unit : allUnits()) EXPECT_EQ(quantityNamed(nameOfQuantity(unit.quantity)), unit.quantity);
    EXPECT_EQ(nameOfQuantity(Quantity::temperature), "temperature");
    EXPECT_EQ(nameOfQuantity(Quantity::uvIndex), "uvIndex");
    EXPECT_EQ(quantityNamed("no such"), Quantity::none);
    for (const auto system : {UnitSystem::metric, UnitSystem::us, UnitSystem::uk, UnitSystem::si}) {
        EXPECT_EQ(unitSystemNamed(nameOfUnitSystem(system)), system);
    }
    EXPECT_EQ(nameOfUnitSystem(UnitSystem::us), "us");
    EXPECT_EQ(unitSystemNamed("no such"), UnitSystem::metric);
}

TEST(Units, ImplausibleValuesAreRefused) {
    EXPECT_TRUE(isPlausible(-89.2, Quantity::temperature));
    EXPECT_FALSE(isPlausible(3276.7, Quantity::temperature));
    EXPECT_FALSE(isPlausible(-327.68, Quantity::temperature));
    EXPECT_TRUE(isPlausible(100, Quantity::humidity));
    EXPECT_FALSE(isPlausible(255, Quantity::humidity));
    EXPECT_FALSE(isPlausible(-1, Quantity::humidity));
    EXPECT_TRUE(isPlausible(1084.8, Quantity::pressure));
    EXPECT_FALSE(isPlausible(0, Quantity::pressure));
    EXPECT_TRUE(isPlausible(113.3, Quantity::speed));
    EXPECT_FALSE(isPlausible(-0.1, Quantity::speed));
    EXPECT_TRUE(isPlausible(360, Quantity::direction));
    EXPECT_FALSE(isPlausible(361, Quantity::direction));
    EXPECT_TRUE(isPlausible(1e300, Quantity::none));
    for (const auto& unit : allUnits()) {
        EXPECT_FALSE(isPlausible(std::nan(""), unit.quantity));
        EXPECT_FALSE(isPlausible(std::numeric_limits<double>::infinity(), unit.quantity));
        EXPECT_FALSE(isPlausible(-std::numeric_limits<double>::infinity(), unit.quantity));
    }
}

}  // namespace
}  // namespace zor

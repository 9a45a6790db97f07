#include "host/station/PropertyKeys.h"

#include <gtest/gtest.h>

#include <set>

namespace zor {
namespace {

TEST(PropertyKeys, EveryKnownPropertyHasAKeyOfItsOwn) {
    std::set<std::string_view> keys;
    for (const auto& description : knownProperties()) {
        EXPECT_TRUE(keys.insert(description.key).second) << description.key;
        EXPECT_FALSE(description.displayName.empty());
        EXPECT_EQ(knownProperty(description.key), &description);
    }
    for (const auto* key : {"outdoorTemperature", "temperature", "indoorTemperature", "outdoorHumidity", "humidity",
                            "outdoorDewPoint", "dewPoint", "outdoorHeatIndex", "heatIndex", "windSpeed", "rainRate",
                            "barometricPressureRelative", "barometricPressureAbsolute", "uvIndex"}) {
        EXPECT_TRUE(keys.contains(key)) << key;
    }
    EXPECT_EQ(knownProperty("fooBar"), nullptr);
}

TEST(PropertyKeys, QuantitiesOfKnownProperties) {
    EXPECT_EQ(knownProperty("outdoorDewPoint")->quantity, Quantity::temperature);
    EXPECT_EQ(knownProperty("windGust")->quantity, Quantity::speed);
    EXPECT_EQ(knownProperty("barometricPressureTrend")->quantity, Quantity::pressureTrend);
    EXPECT_EQ(knownProperty("rainToday")->quantity, Quantity::rain);
    EXPECT_EQ(knownProperty("rainRate")->quantity, Quantity::rainRate);
}

TEST(PropertyKeys, NamingOfAnyKey) {
    const auto naming = [](std::string_view key) { return namingOfProperty(key).displayName; };
    EXPECT_EQ(naming("outdoorTemperature"), "Outdoor Temperature");
    EXPECT_EQ(namingOfProperty("outdoorTemperature").quantity, Quantity::temperature);
    EXPECT_EQ(naming("temperature1"), "Temperature 1");
    EXPECT_EQ(namingOfProperty("temperature1").quantity, Quantity::temperature);
    EXPECT_EQ(naming("soilTension12"), "Soil Tension 12");
    EXPECT_EQ(naming("particulateMatter25"), "Particulate Matter 2.5");
    EXPECT_EQ(naming("fooBarBaz"), "Foo Bar Baz");
    EXPECT_EQ(namingOfProperty("fooBarBaz").quantity, Quantity::none);
    EXPECT_EQ(naming("sensor2Battery"), "Sensor 2 Battery");
    EXPECT_EQ(naming("airAQI"), "Air AQI");
    EXPECT_EQ(naming("42"), "42");
    EXPECT_EQ(naming(""), "");
}

}  // namespace
}  // namespace zor

#include "host/station/ValueFormats.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace zor {
namespace {

std::string shortText(double value, std::string_view unit) {
    return formatValue(value, *unitWithShortName(unit), valueWithShortUnitFormat);
}

TEST(ValueFormats, ShortUnits) {
    EXPECT_EQ(shortText(21.5, "°C"), "21.5 °C");
    EXPECT_EQ(shortText(54, "%"), "54 %");
    EXPECT_EQ(shortText(270, "°"), "270°");
    EXPECT_EQ(shortText(29.9213, "inHg"), "29.92 inHg");
    EXPECT_EQ(shortText(812.4, "W/m²"), "812 W/m²");
    EXPECT_EQ(shortText(42.75, ""), "42.8");
    EXPECT_EQ(formatValue(6.2, baseUnit(Quantity::uvIndex), valueWithShortUnitFormat), "6.2");
}

TEST(ValueFormats, LongAndPlain) {
    const auto& celsius = *unitWithShortName("°C");
    EXPECT_EQ(formatValue(21.5, celsius, valueWithLongUnitFormat), "21.5 degrees Celsius");
    EXPECT_EQ(formatValue(270, *unitWithShortName("°"), valueWithLongUnitFormat), "270 degrees");
    EXPECT_EQ(formatValue(6.2, baseUnit(Quantity::uvIndex), valueWithLongUnitFormat), "6.2");
    EXPECT_EQ(formatValue(21.5, celsius, plainValueFormat), "21.5");
    EXPECT_EQ(formatValue(21.5, celsius, "no such format"), "21.5");
    EXPECT_EQ(formatValue(21.5, celsius, ""), "21.5");
}

TEST(ValueFormats, DecimalsMayBeGiven) {
    const auto& celsius = *unitWithShortName("°C");
    EXPECT_EQ(formatValue(21.456, celsius, plainValueFormat, 0), "21");
    EXPECT_EQ(formatValue(21.456, celsius, valueWithShortUnitFormat, 2), "21.46 °C");
    EXPECT_EQ(formatValue(1e300, celsius, plainValueFormat, 100).size(), 301u + 1u + 17u);
}

TEST(ValueFormats, NoSignWhereTheValueRoundsToZero) {
    EXPECT_EQ(shortText(-0.04, "°C"), "0.0 °C");
    EXPECT_EQ(shortText(-0.0, "°C"), "0.0 °C");
    EXPECT_EQ(shortText(-0.06, "°C"), "-0.1 °C");
    EXPECT_EQ(shortText(-0.4, "%"), "0 %");
    EXPECT_EQ(shortText(-10, "°C"), "-10.0 °C");
}

TEST(ValueFormats, MissingValues) {
    const auto& celsius = *unitWithShortName("°C");
    for (const auto& format : valueFormats()) {
        EXPECT_EQ(formatValue({}, celsius, format.name), "--");
        EXPECT_EQ(formatValue(std::nan(""), celsius, format.name), "--");
        EXPECT_EQ(formatValue(std::numeric_limits<double>::infinity(), celsius, format.name), "--");
    }
    EXPECT_EQ(formatValue({}, *unitWithShortName("°"), compassPointFormat), "--");
}

TEST(ValueFormats, FormatsAreListedByName) {
    std::vector<std::string_view> names;
    for (const auto& format : valueFormats()) names.push_back(format.name);
    EXPECT_EQ(names, (std::vector<std::string_view>{"unitStringValueWithUnitShort", "unitStringValue",
                                                    "unitStringValueWithUnitLong", "compassPoint"}));
}

TEST(ValueFormats, SixteenCompassPoints) {
    const char* points[] = {"N", "NNE", "NE", "ENE", "E", "ESE", "SE", "SSE",
                            "S", "SSW", "SW", "WSW", "W", "WNW", "NW", "NNW"};
    for (int index = 0; index < 16; ++index) EXPECT_EQ(compassPoint(index * 22.5), points[index]);
    EXPECT_EQ(compassPoint(11.24), "N");
    EXPECT_EQ(compassPoint(11.25), "NNE");
    EXPECT_EQ(compassPoint(348.74), "NNW");
    EXPECT_EQ(compassPoint(348.75), "N");
    EXPECT_EQ(compassPoint(360), "N");
    EXPECT_EQ(compassPoint(450), "E");
    EXPECT_EQ(compassPoint(-90), "W");
    EXPECT_EQ(compassPoint(-1e-20), "N");
    EXPECT_EQ(compassPoint(std::nan("")), "--");
}

TEST(ValueFormats, CompassPointsOfDirectionsOnly) {
    EXPECT_EQ(formatValue(337.5, *unitWithShortName("°"), compassPointFormat), "NNW");
    EXPECT_EQ(formatValue(337.5, *unitWithShortName("W/m²"), compassPointFormat), "338");
}

}  // namespace
}  // namespace zor

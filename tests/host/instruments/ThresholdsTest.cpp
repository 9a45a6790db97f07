#include "host/instruments/Thresholds.h"

#include <gtest/gtest.h>

#include <limits>

namespace zor {
namespace {

const Color green = Color::rgb(0x00ff00);
const Color amber = Color::rgb(0xffbf00);
const Color red = Color::rgb(0xff0000);

TEST(Thresholds, AColourHoldsFromItsValueOn) {
    const Thresholds thresholds{{20, amber}, {30, red}};
    EXPECT_EQ(colorForValue(thresholds, 19.9, green), green);
    EXPECT_EQ(colorForValue(thresholds, 20, green), amber);
    EXPECT_EQ(colorForValue(thresholds, 29.9, green), amber);
    EXPECT_EQ(colorForValue(thresholds, 1e9, green), red);
    EXPECT_EQ(colorForValue({}, 5, green), green);
}

TEST(Thresholds, AreSortedAndTheLastOfEqualOnesCounts) {
    const auto sorted = sortedThresholds({{30, red}, {20, green}, {20, amber}});
    EXPECT_EQ(sorted, (Thresholds{{20, green}, {20, amber}, {30, red}}));
    EXPECT_EQ(colorForValue(sorted, 25, Color::black()), amber);
}

TEST(Thresholds, TravelAsDictionaries) {
    const Value value = ValueConversion<Thresholds>::to({{30, red}});
    EXPECT_EQ(value, Value(Value::Array{Value::Dictionary{{"value", 30.0}, {"color", "#ff0000ff"}}}));
    EXPECT_EQ(ValueConversion<Thresholds>::from(value), (Thresholds{{30, red}}));
    const Value whole = Value::Array{Value::Dictionary{{"value", 30}, {"color", "#ff0000"}}};
    EXPECT_EQ(ValueConversion<Thresholds>::from(whole), (Thresholds{{30, red}}));
}

TEST(Thresholds, RefuseWhatIsNone) {
    const auto of = [](Value number, Value color) {
        return ValueConversion<Threshold>::from(Value::Dictionary{{"value", number}, {"color", color}});
    };
    EXPECT_FALSE(of(std::numeric_limits<double>::quiet_NaN(), "#ff0000"));
    EXPECT_FALSE(of(std::numeric_limits<double>::infinity(), "#ff0000"));
    EXPECT_FALSE(of("30", "#ff0000"));
    EXPECT_FALSE(of(30, "red"));
    EXPECT_FALSE(of(30, Value()));
    EXPECT_FALSE(ValueConversion<Threshold>::from("30"));
}

}  // namespace
}  // namespace zor

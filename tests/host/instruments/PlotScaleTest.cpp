#include "host/instruments/PlotScale.h"

#include <gmock/gmock.h>

namespace zor {
namespace {

using testing::ElementsAre;

std::vector<std::string> labels(const PlotScale& scale) {
    std::vector<std::string> texts;
    for (const auto& tick : scale.ticks) texts.push_back(tick.label);
    return texts;
}

const Unit& unit(std::string_view name) {
    return *unitWithShortName(name);
}

TEST(PlotScale, EndsAtRoundNumbersAroundTheValues) {
    const auto scale = PlotScale::covering(998.9, 1003.4, unit("hPa"), 5);
    EXPECT_EQ(scale.minimum, 998);
    EXPECT_EQ(scale.maximum, 1004);
    EXPECT_THAT(labels(scale), ElementsAre("998", "1000", "1002", "1004"));
    EXPECT_EQ(scale.ticks[1].position, 1000);
    EXPECT_DOUBLE_EQ(scale.fraction(1001), 0.5);
}

TEST(PlotScale, NeverMagnifiesNoise) {
    EXPECT_THAT(labels(PlotScale::covering(20, 20.1, unit("°C"), 6)), ElementsAre("18", "19", "20", "21", "22", "23"));
    // Four hectopascals.
    EXPECT_THAT(labels(PlotScale::covering(29.92, 29.95, unit("inHg"), 4)),
                ElementsAre("29.85", "29.90", "29.95", "30.00"));
}

TEST(PlotScale, BeginsAtZeroForWhatHasNoLess) {
    EXPECT_THAT(labels(PlotScale::covering(12, 17, unit("m/s"), 4)), ElementsAre("0", "5", "10", "15", "20"));
    EXPECT_THAT(labels(PlotScale::covering(0, 0, unit("mm"), 4)), ElementsAre("0.0", "0.5", "1.0", "1.5", "2.0"));
}

TEST(PlotScale, HasNoMoreThanAHundredPercent) {
    EXPECT_THAT(labels(PlotScale::covering(97, 99, unit("%"), 5)), ElementsAre("80", "85", "90", "95", "100"));
    EXPECT_THAT(labels(PlotScale::covering(0, 3, unit("%"), 5)).front(), "0");
}

TEST(PlotScale, NamesTheQuartersOfACompass) {
    const auto scale = PlotScale::covering(170, 190, unit("°"), 8);
    EXPECT_THAT(labels(scale), ElementsAre("N", "E", "S", "W", "N"));
    EXPECT_EQ(scale.ticks[3].position, 270);
    EXPECT_THAT(labels(PlotScale::covering(170, 190, unit("°"), 3)), ElementsAre("N", "S", "N"));
}

TEST(PlotScale, HasNegativeNumbers) {
    EXPECT_THAT(labels(PlotScale::covering(-7.6, 28.9, unit("°C"), 5)), ElementsAre("-10", "0", "10", "20", "30"));
}

TEST(PlotScale, HoldsNumbersWithoutBounds) {
    const auto scale = PlotScale::covering(1e15, 1e15, baseUnit(Quantity::none), 5);
    EXPECT_LE(scale.minimum, 1e15);
    EXPECT_GT(scale.maximum, 1e15);
    EXPECT_GE(scale.ticks.size(), 2u);
}

}  // namespace
}  // namespace zor

#include "host/instruments/NiceStep.h"

#include <gmock/gmock.h>

#include <limits>

namespace zor {
namespace {

using testing::ElementsAre;

TEST(NiceStep, IsTheSmallestRoundStepThatSuffices) {
    EXPECT_EQ(NiceStep(70, 7).size(), 10);
    EXPECT_EQ(NiceStep(70, 6).size(), 20);
    EXPECT_EQ(NiceStep(70, 3).size(), 50);
    EXPECT_EQ(NiceStep(1, 10).size(), 0.1);
    EXPECT_EQ(NiceStep(3, 6).size(), 0.5);
    EXPECT_EQ(NiceStep(0.03, 4).size(), 0.01);
    EXPECT_EQ(NiceStep(120000, 6).size(), 20000);
}

TEST(NiceStep, CountsOnInSizes) {
    EXPECT_EQ(NiceStep(1, 1).coarser().size(), 2);
    EXPECT_EQ(NiceStep(2, 1).coarser().size(), 5);
    EXPECT_EQ(NiceStep(5, 1).coarser().size(), 10);
    EXPECT_EQ(NiceStep(0.5, 1).coarser().size(), 1);
}

TEST(NiceStep, NeedsAsManyDecimals) {
    EXPECT_EQ(NiceStep(20, 1).decimals(), 0);
    EXPECT_EQ(NiceStep(1, 1).decimals(), 0);
    EXPECT_EQ(NiceStep(0.5, 1).decimals(), 1);
    EXPECT_EQ(NiceStep(0.02, 1).decimals(), 2);
}

TEST(NiceStep, GivesTheNumbersMeant) {
    EXPECT_THAT(NiceStep(0.1, 1).multiplesWithin(0, 0.5), ElementsAre(0.0, 0.1, 0.2, 0.3, 0.4, 0.5));
    EXPECT_THAT(NiceStep(20, 1).multiplesWithin(-20, 50), ElementsAre(-20, 0, 20, 40));
    EXPECT_THAT(NiceStep(0.5, 1).multiplesWithin(28, 31), ElementsAre(28, 28.5, 29, 29.5, 30, 30.5, 31));
    EXPECT_THAT(NiceStep(5, 1).multiplesWithin(11, 14), ElementsAre());
    EXPECT_FALSE(std::signbit(NiceStep(5, 1).multiplesWithin(-3, 3).front()));
}

TEST(NiceStep, RoundsToItsMultiples) {
    const NiceStep step(20, 1);
    EXPECT_EQ(step.below(-3.9), -20);
    EXPECT_EQ(step.above(121.9), 140);
    EXPECT_EQ(step.nearest(121.9), 120);
    EXPECT_EQ(NiceStep(0.1, 1).above(0.1 + 0.2), 0.3);
    EXPECT_EQ(NiceStep(0.1, 1).below(0.3), 0.3);
}

TEST(NiceStep, IsDividedIntoRoundParts) {
    EXPECT_EQ(NiceStep(10, 1).parts(), 5);
    EXPECT_EQ(NiceStep(20, 1).parts(), 4);
    EXPECT_EQ(NiceStep(50, 1).parts(), 5);
}

TEST(NiceStep, SurvivesWhatIsNoSpan) {
    EXPECT_EQ(NiceStep(0, 5).size(), 1);
    EXPECT_EQ(NiceStep(-4, 5).size(), 1);
    EXPECT_EQ(NiceStep(std::numeric_limits<double>::infinity(), 5).size(), 1);
    EXPECT_EQ(NiceStep(std::numeric_limits<double>::quiet_NaN(), 5).size(), 1);
    EXPECT_EQ(NiceStep(10, 0).size(), 1);
    EXPECT_EQ(NiceStep(1, 1).multiplesWithin(0, 1e12).size(), 1000u);
}

}  // namespace
}  // namespace zor

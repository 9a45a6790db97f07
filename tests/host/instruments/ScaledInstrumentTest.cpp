#include "host/instruments/ScaledInstrumentView.h"

#include <cmath>
#include <limits>

#include "host/instruments/ZORLevelIndicatorView.h"
#include "host/instruments/ZORLinearGaugeView.h"
#include "tests/host/instruments/InstrumentSupport.h"

namespace zor {
namespace {

using test::drawn;

class ScaledInstrument : public ::testing::Test {
protected:
    void SetUp() override { FakeToolkit::install(); }

    std::vector<std::string> labels(View& view) {
        std::vector<std::string> texts;
        for (const auto& operation : drawn(view).operationsNamed("drawText")) texts.push_back(operation.text);
        return texts;
    }
    /// What the level indicator has filled.
    Rect filled() {
        const auto fills = drawn(level).operationsNamed("fillRect");
        return fills.size() == 1 ? fills[0].rect : Rect{};
    }

    ZORLevelIndicatorView level{Rect{0, 0, 180, 34}};
    ZORLinearGaugeView gauge{Rect{0, 0, 112, 512}};
};

TEST_F(ScaledInstrument, SuitsTheQuantityUnlessItsEndsAreSet) {
    EXPECT_EQ(level.minimum(), 0);
    EXPECT_EQ(level.maximum(), 100);
    const auto property = test::temperature(15);
    level.setProperty(property);
    EXPECT_EQ(level.minimum(), -20);
    EXPECT_EQ(level.maximum(), 50);
    property->setUnit(*unitWithShortName("°F"));
    EXPECT_EQ(level.minimum(), 0);
    EXPECT_EQ(level.maximum(), 120);
    EXPECT_TRUE(level.automaticRange());
    level.setMinimum(20);
    EXPECT_FALSE(level.automaticRange());
    EXPECT_EQ(level.minimum(), 20);
    EXPECT_EQ(level.maximum(), 120);
    level.setAutomaticRange(true);
    EXPECT_EQ(level.minimum(), 0);
}

TEST_F(ScaledInstrument, KeepsItsRangeInArchiveAndCopy) {
    const auto original = std::make_shared<ZORLevelIndicatorView>();
    original->setProperty(test::temperature(15));
    auto read = test::roundTrip(original);
    ASSERT_TRUE(read);
    EXPECT_TRUE(read->automaticRange());
    EXPECT_EQ(read->minimum(), 0);
    original->setMinimum(-5);
    original->setMaximum(35.5);
    original->setBarColor({1, 2, 3, 4});
    original->setThresholds({{30, Color::rgb(0xff0000)}});
    read = test::roundTrip(original);
    for (const auto& other : {read, std::dynamic_pointer_cast<ZORLevelIndicatorView>(original->copy())}) {
        ASSERT_TRUE(other);
        EXPECT_FALSE(other->automaticRange());
        EXPECT_EQ(other->minimum(), -5);
        EXPECT_EQ(other->maximum(), 35.5);
        EXPECT_EQ(other->barColor(), (Color{1, 2, 3, 4}));
        EXPECT_EQ(other->thresholds(), (Thresholds{{30, Color::rgb(0xff0000)}}));
    }
}

TEST_F(ScaledInstrument, RefusesEndsThatAreNoNumbers) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    for (const double end : {nan, std::numeric_limits<double>::infinity(), 1e7}) {
        EXPECT_FALSE(applySetting(level, level.settings(), "maximum", end)) << end;
    }
    EXPECT_TRUE(level.automaticRange());
    level.setMaximum(nan);
    EXPECT_EQ(level.maximum(), -1e6);
}

TEST_F(ScaledInstrument, FillsItsBarUpToTheValue) {
    const auto property = test::temperature(15);
    level.setProperty(property);
    EXPECT_DOUBLE_EQ(filled().width, 90);
    property->setValue(-80, 2000);
    EXPECT_EQ(filled().width, 0);
    property->setValue(55, 2000);
    EXPECT_EQ(filled().width, 180);
}

TEST_F(ScaledInstrument, AnEmptyScaleHasNoMarksAndNothingFilled) {
    level.setProperty(test::temperature(15));
    level.setMinimum(10);
    level.setMaximum(10);
    EXPECT_EQ(filled().width, 0);
    EXPECT_TRUE(labels(level).empty());
}

TEST_F(ScaledInstrument, TakesTheColourThatTheValueHasReached) {
    level.setThresholds({{10, Color::rgb(0x00ff00)}, {30, Color::rgb(0xff0000)}});
    const auto property = test::temperature(5);
    level.setProperty(property);
    const auto color = [&] { return drawn(level).operationsNamed("fillRect").at(0).color; };
    EXPECT_EQ(color(), Color::rgb(0x0a6ed1));
    property->setValue(15, 2000);
    EXPECT_EQ(color(), Color::rgb(0x00ff00));
    property->setValue(31, 2000);
    EXPECT_EQ(color(), Color::rgb(0xff0000));
}

TEST_F(ScaledInstrument, LabelsRoundNumbersWithRoomBetweenThem) {
    level.setProperty(test::temperature({}));
    EXPECT_EQ(labels(level), (std::vector<std::string>{"--", "-20", "0", "20", "40"}));
    level.setFrame({0, 0, 600, 60});
    EXPECT_EQ(labels(level), (std::vector<std::string>{"--", "-20", "-10", "0", "10", "20", "30", "40", "50"}));
}

TEST_F(ScaledInstrument, TheLinearGaugeNamesUnitAndValue) {
    gauge.setProperty(test::temperature(21.5));
    EXPECT_EQ(gauge.text(), "21.5");
    const auto texts = labels(gauge);
    ASSERT_GE(texts.size(), 3u);
    EXPECT_EQ(texts[0], "-20");
    EXPECT_EQ(texts[texts.size() - 2], "°C");
    EXPECT_EQ(texts.back(), "21.5");
    gauge.setProperty({});
    EXPECT_EQ(gauge.text(), "--");
    EXPECT_EQ(labels(gauge).back(), "--");
}

TEST_F(ScaledInstrument, TheColumnEndsBesideTheMarkOfItsValue) {
    gauge.setProperty(test::temperature(20));
    const auto recording = drawn(gauge);
    const auto fills = recording.operationsNamed("fillPath");
    const auto marks = recording.operationsNamed("strokePath").at(0).segments();
    ASSERT_EQ(fills.size(), 4u);
    // From -20 in steps of 10.
    ASSERT_EQ(marks.size(), 8u);
    EXPECT_NEAR(fills[2].path.bounds().y, marks[4][1], 1e-9);
}

}  // namespace
}  // namespace zor

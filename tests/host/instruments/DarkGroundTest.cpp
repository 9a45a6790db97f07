// What instruments offer to a dashboard that is dark and made of cards.

#include <gmock/gmock.h>

#include "host/instruments/Inks.h"
#include "host/instruments/ZORLevelIndicatorView.h"
#include "host/instruments/ZORLinearGaugeView.h"
#include "host/instruments/ZORPlotView.h"
#include "host/instruments/ZORRoundGaugeView.h"
#include "host/instruments/ZORTextFieldView.h"
#include "tests/host/instruments/InstrumentSupport.h"

namespace zor {
namespace {

using test::drawn;
using testing::Contains;
using testing::Each;
using testing::Not;

constexpr Color night = Color::rgb(0x141a23);

class DarkGround : public ::testing::Test {
protected:
    void SetUp() override { FakeToolkit::install(); }

    static std::vector<Color> textColors(View& view) {
        std::vector<Color> colors;
        for (const auto& operation : drawn(view).operationsNamed("drawText")) colors.push_back(operation.color);
        return colors;
    }
    static double largestFontSize(View& view) {
        double largest = 0;
        for (const auto& operation : drawn(view).operationsNamed("drawText")) {
            largest = std::max(largest, operation.font.size);
        }
        return largest;
    }
};

TEST_F(DarkGround, InksAreDarkOnLightAndLightWithATintOnDark) {
    EXPECT_EQ(inksOn(Color::white()).ink, Color::rgb(0x1d1d1f));
    EXPECT_EQ(inksOn(Color::clear()).ink, Color::rgb(0x1d1d1f));
    EXPECT_EQ(inksOn(Color::black()).ink, Color::rgb(0xf2f2f2));
    EXPECT_EQ(inksOn(Color::black()).secondary, Color::rgb(0x999999));
    const Inks inks = inksOn(Color::rgb(0x000040));
    EXPECT_GT(inks.track.blue, inks.track.red);
    EXPECT_EQ(inks.track.red, inks.track.green);
    EXPECT_EQ(inksOn(Color::rgb(0x000040).withAlpha(0.9)).track, inks.track);
}

TEST_F(DarkGround, StraightScalesStandOnTheirFace) {
    ZORLevelIndicatorView level({0, 0, 400, 70});
    ZORLinearGaugeView gauge({0, 0, 140, 300});
    for (ScaledInstrumentView* view :
         {static_cast<ScaledInstrumentView*>(&level), static_cast<ScaledInstrumentView*>(&gauge)}) {
        view->setProperty(test::temperature(21.5));
        EXPECT_EQ(view->faceColor(), Color::clear());
        EXPECT_THAT(textColors(*view), Each(testing::Truly(isDark)));
        view->setFaceColor(night);
        const auto operations = drawn(*view).operations();
        EXPECT_EQ(operations.front().rect, view->bounds());
        EXPECT_EQ(operations.front().color, night);
        EXPECT_THAT(textColors(*view), Each(Not(testing::Truly(isDark))));
        const auto copy = std::dynamic_pointer_cast<ScaledInstrumentView>(view->copy());
        ASSERT_TRUE(copy);
        EXPECT_EQ(copy->faceColor(), night);
    }
}

TEST_F(DarkGround, AGaugeWithoutItsRimIsFlat) {
    const auto gauge = std::make_shared<ZORRoundGaugeView>();
    gauge->setFrame({0, 0, 300, 300});
    gauge->setFaceColor(night);
    EXPECT_EQ(drawn(*gauge).operations().front().op, "fillPathWithGradient");
    gauge->setDrawsRim(false);
    const auto first = drawn(*gauge).operations().front();
    EXPECT_EQ(first.op, "fillPath");
    EXPECT_EQ(first.color, night);
    const auto restored = test::roundTrip(gauge);
    ASSERT_TRUE(restored);
    EXPECT_FALSE(restored->drawsRim());
}

TEST_F(DarkGround, APlotLeavesHeaderAndBorderToItsCard) {
    const auto plot = std::make_shared<ZORPlotView>();
    plot->setFrame({0, 0, 600, 200});
    plot->setProperty(test::temperature(21.5));
    const auto texts = [](View& view) {
        std::vector<std::string> all;
        for (const auto& operation : drawn(view).operationsNamed("drawText")) all.push_back(operation.text);
        return all;
    };
    const auto borders = [](View& view) {
        return std::ranges::count(drawn(view).operationsNamed("strokePath"), Rect{0.5, 0.5, 599, 199},
                                  [](const DrawingOperation& operation) { return operation.path.bounds(); }) == 1;
    };
    EXPECT_THAT(texts(*plot), Contains("Outdoor Temperature"));
    EXPECT_TRUE(borders(*plot));
    plot->setDrawsHeader(false);
    plot->setDrawsBorder(false);
    EXPECT_THAT(texts(*plot), Not(Contains("Outdoor Temperature")));
    EXPECT_FALSE(borders(*plot));

    plot->setFontSize(20);
    EXPECT_EQ(largestFontSize(*plot), 40) << "of the dashes in place of samples";
    const auto restored = test::roundTrip(plot);
    ASSERT_TRUE(restored);
    EXPECT_FALSE(restored->drawsHeader());
    EXPECT_FALSE(restored->drawsBorder());
    EXPECT_EQ(restored->fontSize(), 20);
    plot->setFontSize(-3);
    EXPECT_EQ(plot->fontSize(), 0);
    plot->setFontSize(1e9);
    EXPECT_EQ(plot->fontSize(), 100);
}

class UnitFont : public DarkGround {
protected:
    void SetUp() override {
        DarkGround::SetUp();
        field->setFrame({0, 0, 300, 60});
        field->setFont({.family = "Crysta", .size = 40});
        field->setUnitFont({.size = 20});
        field->setSeparateUnit(true);
        field->setProperty(test::temperature(-12.3));
    }
    std::vector<DrawingOperation> texts() { return drawn(*field).operationsNamed("drawText"); }

    std::shared_ptr<ZORTextFieldView> field = std::make_shared<ZORTextFieldView>();
};

TEST_F(UnitFont, NumberAndUnitShareALine) {
    const auto shown = texts();
    ASSERT_EQ(shown.size(), 2u);
    EXPECT_EQ(shown[0].text, "-12.3");
    EXPECT_EQ(shown[0].font, (Font{.family = "Crysta", .size = 40}));
    EXPECT_EQ(shown[1].text, "°C");
    EXPECT_EQ(shown[1].font, (Font{.size = 20}));
    // Ascents are 0.95 of the size.
    EXPECT_NEAR(shown[0].rect.y + 38, shown[1].rect.y + 19, 1e-9);
    EXPECT_EQ(shown[0].rect.x, 0);
    // Five characters of 20 points, a gap, two of 10.
    EXPECT_NEAR(shown[1].rect.maxX(), 125, 1e-9);
    EXPECT_EQ(field->text(), "-12.3 °C");
}

TEST_F(UnitFont, BothAreAlignedAsOne) {
    field->setAlignment(TextAlignment::right);
    EXPECT_NEAR(texts()[1].rect.maxX(), 300, 1e-9);
    field->setAlignment(TextAlignment::center);
    EXPECT_NEAR(texts()[0].rect.x, 87.5, 1e-9);
}

TEST_F(UnitFont, BothBecomeSmallerTogether) {
    field->setFrame({0, 0, 62.5, 60});
    EXPECT_NEAR(texts()[0].font.size, 20, 1e-9);
    EXPECT_NEAR(texts()[1].font.size, 10, 1e-9);
    field->setFrame({0, 0, 300, 12});
    EXPECT_NEAR(texts()[0].font.size, 10, 1e-9);
    EXPECT_NEAR(texts()[1].font.size, 5, 1e-9);
}

TEST_F(UnitFont, WhatIsNoValueWithItsShortUnitStaysOneText) {
    const auto expectOne = [this](const std::string& text) {
        ASSERT_EQ(texts().size(), 1u);
        EXPECT_EQ(texts()[0].text, text);
    };
    field->setPropertyFormat("unitStringValueWithUnitLong");
    expectOne("-12.3 degrees Celsius");
    field->setPropertyFormat("unitStringValueWithUnitShort");
    field->setProperty(test::temperature({}));
    expectOne("--");
    field->setProperty(test::temperature(21.5));
    field->setSeparateUnit(false);
    expectOne("21.5 °C");
    field->setSeparateUnit(true);
    field->setUseProperty(false);
    expectOne("Label");
}

TEST_F(UnitFont, IsCopiedAndArchived) {
    field->setUnitFont({.family = "", .size = 10});
    for (const auto& other : {test::roundTrip(field), std::dynamic_pointer_cast<ZORTextFieldView>(field->copy())}) {
        ASSERT_TRUE(other);
        EXPECT_TRUE(other->separateUnit());
        EXPECT_EQ(other->unitFont(), (Font{.size = 20}));
    }
}

}  // namespace
}  // namespace zor

#include "host/instruments/ZORRoundGaugeView.h"

#include <gmock/gmock.h>

#include <cmath>
#include <numbers>

#include "host/instruments/GaugeGeometry.h"
#include "host/station/PropertyKeys.h"
#include "tests/host/instruments/InstrumentSupport.h"

namespace zor {
namespace {

using test::drawn;
using testing::Contains;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;

TEST(GaugeGeometry, ADialRunsFromTheLowerLeftToTheLowerRight) {
    EXPECT_EQ(dialBearing(0), -135);
    EXPECT_EQ(dialBearing(0.5), 0);
    EXPECT_EQ(dialBearing(1), 135);
    EXPECT_EQ(dialBearing(-3), -135);
    EXPECT_EQ(dialBearing(1.2), 135);
}

TEST(GaugeGeometry, BearingsRunClockwiseFromTheTop) {
    const auto expectAt = [](double bearing, double x, double y) {
        const Point point = pointAtBearing({100, 100}, 50, bearing);
        EXPECT_NEAR(point.x, x, 1e-9) << bearing;
        EXPECT_NEAR(point.y, y, 1e-9) << bearing;
    };
    expectAt(0, 100, 50);
    expectAt(90, 150, 100);
    expectAt(180, 100, 150);
    expectAt(270, 50, 100);
    const Path quarter = arcBetweenBearings({100, 100}, 50, 0, 90);
    EXPECT_NEAR(quarter.elements().front().points[0].y, 50, 1e-9);
    EXPECT_NEAR(quarter.elements().back().points[2].x, 150, 1e-9);
}

class RoundGauge : public ::testing::Test {
protected:
    void SetUp() override {
        FakeToolkit::install();
        gauge->setFrame({0, 0, 240, 240});
    }

    std::shared_ptr<Property> link(std::string_view key, std::optional<double> value, std::string_view unit = {}) {
        const auto naming = namingOfProperty(key);
        auto property = std::make_shared<Property>(std::string(key), naming.displayName, naming.quantity);
        if (!unit.empty()) property->setUnit(*unitWithShortName(unit, naming.quantity));
        property->setValue(value, now());
        gauge->setProperty(property);
        return property;
    }
    std::vector<std::string> texts() const {
        std::vector<std::string> result;
        for (const auto& operation : drawn(*gauge).operationsNamed("drawText")) result.push_back(operation.text);
        return result;
    }
    /// In degrees clockwise from the top; nothing where none is drawn. Only a needle is moved and turned.
    std::optional<double> needle() const {
        const auto context = drawn(*gauge);
        for (const auto& operation : context.operations()) {
            if (operation.transform != Transform{}) {
                return std::atan2(operation.transform.b, operation.transform.a) * 180 / std::numbers::pi;
            }
        }
        return {};
    }
    std::vector<Color> bandColors() const {
        std::vector<Color> colors;
        for (const auto& operation : drawn(*gauge).operationsNamed("strokePath")) {
            if (operation.stroke.width > 5 && operation.stroke.color.alpha == 255) {
                colors.push_back(operation.stroke.color);
            }
        }
        return colors;
    }

    std::shared_ptr<ZORRoundGaugeView> gauge = std::make_shared<ZORRoundGaugeView>();
};

TEST_F(RoundGauge, ShowsTitleValueUnitAndScale) {
    link(kOutdoorTemperature, 21.5);
    EXPECT_THAT(texts(), IsSupersetOf({"Outdoor", "Temperature", "21.5", "°C", "-20", "0", "20", "40"}));
    EXPECT_EQ(gauge->text(), "21.5");
    EXPECT_EQ(gauge->kind(), "roundGauge");
}

TEST_F(RoundGauge, PointsItsNeedleAtTheValue) {
    link(kOutdoorTemperature, 15);
    // The middle of -20 °C to 50 °C.
    ASSERT_TRUE(needle());
    EXPECT_NEAR(needle().value_or(99), 0, 1e-9);
    link(kOutdoorTemperature, 32.5);
    EXPECT_NEAR(needle().value_or(0), 67.5, 1e-9);
    link(kHumidity, 25);
    EXPECT_NEAR(needle().value_or(0), -67.5, 1e-9);
}

TEST_F(RoundGauge, StopsItsNeedleAtTheScalesEnds) {
    link(kOutdoorTemperature, -45);
    EXPECT_NEAR(needle().value_or(0), -135, 1e-9);
    EXPECT_THAT(texts(), Contains("-45.0"));
    link(kWindSpeed, 60);
    EXPECT_NEAR(needle().value_or(0), 135, 1e-9);
}

TEST_F(RoundGauge, WithoutAValueHasNoNeedle) {
    link(kOutdoorTemperature, {});
    EXPECT_FALSE(needle());
    EXPECT_THAT(texts(), Contains("--"));
    EXPECT_THAT(bandColors(), IsEmpty());
    gauge->linkProperty("soilMoisture1", {});
    EXPECT_FALSE(needle());
    EXPECT_THAT(texts(), IsSupersetOf({"--", "soilMoisture1"}));
}

TEST_F(RoundGauge, CoversTheUsualWeatherInRoundNumbersOfTheUnit) {
    const auto expectRange = [this](std::string_view key, std::string_view unit, double least, double greatest) {
        link(key, {}, unit);
        EXPECT_EQ(gauge->minimum(), least) << unit;
        EXPECT_EQ(gauge->maximum(), greatest) << unit;
    };
    expectRange(kOutdoorTemperature, "°C", -20, 50);
    expectRange(kOutdoorTemperature, "°F", 0, 120);
    expectRange(kBarometricPressureRelative, "hPa", 950, 1050);
    expectRange(kBarometricPressureRelative, "inHg", 28, 31);
    expectRange(kHumidity, "%", 0, 100);
    expectRange(kWindSpeed, "m/s", 0, 30);
    expectRange(kWindSpeed, "km/h", 0, 100);
    expectRange(kWindSpeed, "mph", 0, 70);
    expectRange(kRainRate, "in/h", 0, 2);
}

TEST_F(RoundGauge, TakesAPersonsRange) {
    link(kOutdoorTemperature, 5);
    gauge->setMinimum(0);
    gauge->setMaximum(20);
    EXPECT_NEAR(needle().value_or(0), -67.5, 1e-9);
    gauge->setMaximum(-5);
    EXPECT_NEAR(needle().value_or(0), -135, 1e-9);
}

TEST_F(RoundGauge, FillsItsScaleFromZeroToTheValue) {
    link(kOutdoorTemperature, 21.5);
    gauge->setBarColor(Color::rgb(0x123456));
    EXPECT_THAT(bandColors(), testing::ElementsAre(Color::rgb(0x123456)));
}

TEST_F(RoundGauge, ColorsItsScaleByThresholds) {
    link(kOutdoorTemperature, 21.5);
    gauge->setThresholds({{30, Color::rgb(0xff0000)}, {-20, Color::rgb(0x0000ff)}, {0, Color::rgb(0x00ff00)}});
    EXPECT_THAT(bandColors(), testing::ElementsAre(Color::rgb(0x0000ff), Color::rgb(0x00ff00), Color::rgb(0xff0000)));
    // Where nothing of the scale has the colour, nothing is drawn.
    gauge->setThresholds({{20, Color::rgb(0xff0000)}, {90, Color::rgb(0x0000ff)}});
    EXPECT_THAT(bandColors(), testing::ElementsAre(Color::rgb(0xff0000)));
}

TEST_F(RoundGauge, IsACompassForDirections) {
    link(kWindDirection, 248);
    EXPECT_TRUE(gauge->isCompass());
    EXPECT_THAT(texts(), IsSupersetOf({"N", "NE", "E", "SE", "S", "SW", "W", "NW", "WSW", "248°", "Wind Direction"}));
    EXPECT_THAT(texts(), Not(Contains("50")));
    EXPECT_NEAR(needle().value_or(0), 248 - 360, 1e-9);
    EXPECT_EQ(gauge->text(), "WSW");
    link(kWindDirection, 90);
    EXPECT_NEAR(needle().value_or(0), 90, 1e-9);
}

TEST_F(RoundGauge, IsACompassForADirectionThatIsNotThere) {
    gauge->linkProperty("windDirection", {});
    EXPECT_TRUE(gauge->isCompass());
    EXPECT_FALSE(needle());
    EXPECT_THAT(texts(), IsSupersetOf({"N", "E", "S", "W", "--", "windDirection"}));
    gauge->linkProperty("windSpeed", {});
    EXPECT_FALSE(gauge->isCompass());
}

TEST_F(RoundGauge, LeavesOutWhatIsTooSmallToRead) {
    link(kOutdoorTemperature, 21.5);
    gauge->setFrame({0, 0, 60, 60});
    EXPECT_THAT(texts(), testing::ElementsAre("21.5"));
    EXPECT_TRUE(needle());
    gauge->setFrame({0, 0, 120, 120});
    EXPECT_THAT(texts(), testing::ElementsAre("21.5", "°C"));
    link(kWindDirection, 248);
    gauge->setFrame({0, 0, 60, 60});
    EXPECT_THAT(texts(), testing::ElementsAre("WSW"));
}

TEST_F(RoundGauge, StandsInTheMiddleOfItsFrame) {
    link(kOutdoorTemperature, 21.5);
    gauge->setFrame({0, 0, 400, 100});
    Rect ink;
    const auto context = drawn(*gauge);
    for (const auto& operation : context.operations()) {
        ink = unionRect(ink, operation.transform.apply(operation.path.bounds()));
    }
    EXPECT_NEAR(ink.center().x, 200, 6);
    const auto rim = drawn(*gauge).operationsNamed("fillPathWithGradient").front().path.bounds();
    EXPECT_EQ(rim, (Rect{150, 0, 100, 100}));
}

TEST_F(RoundGauge, ArchivesAndCopiesItsLook) {
    gauge->setCaption("Outside");
    gauge->setValueFont({.family = "LCDPHONE", .size = 24});
    gauge->setFaceColor(Color::black());
    gauge->setNeedleColor(Color::rgb(0x00ff00));
    gauge->setMinimum(-5);
    gauge->setMaximum(45);
    for (const auto& other : {test::roundTrip(gauge), std::dynamic_pointer_cast<ZORRoundGaugeView>(gauge->copy())}) {
        ASSERT_TRUE(other);
        EXPECT_EQ(other->caption(), "Outside");
        EXPECT_EQ(other->valueFont().family, "LCDPHONE");
        EXPECT_EQ(other->faceColor(), Color::black());
        EXPECT_EQ(other->needleColor(), Color::rgb(0x00ff00));
        EXPECT_EQ(other->minimum(), -5);
        EXPECT_EQ(other->maximum(), 45);
        EXPECT_FALSE(other->automaticRange());
    }
    link(kOutdoorTemperature, 21.5);
    EXPECT_THAT(texts(), Contains("Outside"));
}

TEST_F(RoundGauge, DrawsTheValueInItsFont) {
    link(kOutdoorTemperature, 21.5);
    gauge->setValueFont({.family = "Crysta", .size = 24});
    for (const auto& operation : drawn(*gauge).operationsNamed("drawText")) {
        EXPECT_EQ(operation.font.family, operation.text == "21.5" ? "Crysta" : "Helvetica Neue") << operation.text;
    }
}

}  // namespace
}  // namespace zor

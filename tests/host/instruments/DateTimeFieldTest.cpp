#include "host/instruments/ZORDateTimeFieldView.h"

#include <stdlib.h>
#include <time.h>

#include "tests/host/instruments/InstrumentSupport.h"

namespace zor {
namespace {

class DateTimeField : public ::testing::Test {
protected:
    void SetUp() override {
        FakeToolkit::install();
        ::setenv("TZ", "UTC0", 1);
        ::tzset();
        // 2026-07-06 09:05 UTC.
        setClock([]() -> Seconds { return 1783328700; });
    }
    void TearDown() override {
        setClock(nullptr);
        ::unsetenv("TZ");
        ::tzset();
    }
    ZORDateTimeFieldView field;
};

TEST_F(DateTimeField, ShowsTheClock) {
    EXPECT_EQ(field.kind(), "dateTimeField");
    EXPECT_EQ(field.classRecord().name(), "ZORDateTimeFieldView");
    EXPECT_FALSE(field.useProperty());
    EXPECT_EQ(field.text(), "Monday, 6 July 2026 09:05");
    field.setDateFormat("HH.mm");
    EXPECT_EQ(field.text(), "09.05");
}

TEST_F(DateTimeField, ShowsTheTimeOfTheStationAboveIt) {
    const auto agent = Agent::withName("Garden");
    agent->setClock([] { return Seconds{1783328700 - 86400}; });
    const auto shown = std::make_shared<ZORDateTimeFieldView>();
    const auto plugIn = test::TestPlugIn::withAgent(agent);
    plugIn->view()->addSubview(shown);
    EXPECT_EQ(shown->text(), "Sunday, 5 July 2026 09:05");
    shown->removeFromSuperview();
    EXPECT_EQ(shown->text(), "Monday, 6 July 2026 09:05");
}

TEST_F(DateTimeField, ShowsWhenItsPropertyWasReceived) {
    const auto property = test::temperature({});
    property->setValue(20, 1783328700 - 3600);
    field.setProperty(property);
    EXPECT_EQ(field.text(), "Monday, 6 July 2026 09:05");
    field.setUseProperty(true);
    EXPECT_EQ(field.text(), "Monday, 6 July 2026 08:05");
    property->setLifetime(60);
    EXPECT_EQ(field.text(), "Monday, 6 July 2026 08:05");
}

TEST_F(DateTimeField, SaysSoWhereThePropertyWasNeverReceived) {
    field.setUseProperty(true);
    EXPECT_EQ(field.text(), "Monday, 6 July 2026 09:05");
    field.linkProperty("outdoorTemperature", {});
    EXPECT_EQ(field.text(), "--");
    field.setProperty(std::make_shared<Property>("outdoorTemperature", "", Quantity::temperature));
    EXPECT_EQ(field.text(), "--");
    field.setProperty({});
    EXPECT_EQ(field.text(), "--");
}

TEST_F(DateTimeField, KeepsItsPatternInArchiveAndCopy) {
    const auto original = std::make_shared<ZORDateTimeFieldView>();
    original->setDateFormat("d.M.");
    for (const auto& other :
         {test::roundTrip(original), std::dynamic_pointer_cast<ZORDateTimeFieldView>(original->copy())}) {
        ASSERT_TRUE(other);
        EXPECT_EQ(other->dateFormat(), "d.M.");
        EXPECT_EQ(other->font().size, 14);
        EXPECT_FALSE(other->useProperty());
    }
}

}  // namespace
}  // namespace zor

#include "host/station/Property.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "host/foundation/KeyedArchiver.h"
#include "host/station/StationClasses.h"
#include "host/station/ValueFormats.h"

namespace zor {
namespace {

Seconds theTime = 1000;
Seconds testClock() {
    return theTime;
}

struct Observer : PropertyObserver {
    std::function<void()> action;
    int changes = 0;
    void propertyDidChange() override {
        ++changes;
        if (action) action();
    }
};

class PropertyTest : public testing::Test {
protected:
    PropertyTest() {
        registerStationClasses();
        theTime = 1000;
        setClock(testClock);
        property->addObserver(&observer);
    }
    ~PropertyTest() override {
        property->removeObserver(&observer);
        setClock(nullptr);
    }

    std::shared_ptr<Property> property =
        std::make_shared<Property>("outdoorTemperature", "Outdoor Temperature", Quantity::temperature);
    Observer observer;
};

TEST_F(PropertyTest, BeginsWithoutAValueInTheBaseUnit) {
    EXPECT_EQ(property->propertyName(), "outdoorTemperature");
    EXPECT_EQ(property->displayName(), "Outdoor Temperature");
    EXPECT_EQ(property->unit().shortName, "°C");
    EXPECT_EQ(property->value(), std::nullopt);
    EXPECT_EQ(property->valueInUnit(), std::nullopt);
    EXPECT_EQ(property->stringForFormat(valueWithShortUnitFormat), "--");
}

TEST_F(PropertyTest, ShowsItsValueInTheUnit) {
    property->setValue(21.5, 990);
    EXPECT_EQ(property->value(), 21.5);
    EXPECT_EQ(property->receivedAt(), 990);
    EXPECT_EQ(property->stringForFormat(valueWithShortUnitFormat), "21.5 °C");
    property->setUnit(*unitWithShortName("°F"));
    EXPECT_EQ(property->value(), 21.5);
    EXPECT_NEAR(*property->valueInUnit(), 70.7, 1e-9);
    EXPECT_EQ(property->stringForFormat(valueWithShortUnitFormat), "70.7 °F");
}

TEST_F(PropertyTest, UnitsOfOtherQuantitiesAreIgnored) {
    property->setUnit(*unitWithShortName("hPa"));
    EXPECT_EQ(property->unit().shortName, "°C");
    property->setUnit(*unitWithShortName("K", Quantity::temperatureDifference));
    EXPECT_EQ(property->unit().shortName, "°C");
    EXPECT_EQ(observer.changes, 0);
}

TEST_F(PropertyTest, WhatIsNotPlausibleIsNoValue) {
    property->setValue(20.0, 1000);
    for (const double wrong : {3276.7, -300.0, std::nan(""), HUGE_VAL}) {
        property->setValue(wrong, 1000);
        EXPECT_EQ(property->value(), std::nullopt);
    }
    EXPECT_EQ(property->stringForFormat(plainValueFormat), "--");
}

TEST_F(PropertyTest, AValueThatIsTooOldIsNone) {
    property->setLifetime(60);
    property->setValue(20.0, 1000);
    theTime = 1060;
    EXPECT_FALSE(property->isStale());
    EXPECT_EQ(property->value(), 20.0);
    theTime = 1060.5;
    EXPECT_TRUE(property->isStale());
    EXPECT_EQ(property->value(), std::nullopt);
    EXPECT_EQ(property->stringForFormat(valueWithShortUnitFormat), "--");
    property->setValue(20.0, 1060.5);
    EXPECT_EQ(property->value(), 20.0);
}

TEST_F(PropertyTest, WithoutALifetimeNoValueIsTooOld) {
    property->setValue(20.0, 0);
    theTime = 1e12;
    EXPECT_EQ(property->value(), 20.0);
}

TEST_F(PropertyTest, ObserversAreToldOfChangesOnly) {
    property->setValue(20.0, 1000);
    EXPECT_EQ(observer.changes, 1);
    property->setValue(20.0, 1010);
    EXPECT_EQ(observer.changes, 1);
    EXPECT_EQ(property->receivedAt(), 1010);
    property->setValue(20.5, 1020);
    EXPECT_EQ(observer.changes, 2);
    property->setUnit(*unitWithShortName("°F"));
    EXPECT_EQ(observer.changes, 3);
    property->setUnit(*unitWithShortName("°F"));
    EXPECT_EQ(observer.changes, 3);
    property->setValue({}, 1030);
    EXPECT_EQ(observer.changes, 4);
}

TEST_F(PropertyTest, ObserversAreToldOnceOfAge) {
    property->setLifetime(60);
    property->setValue(20.0, 1000);
    EXPECT_EQ(observer.changes, 1);
    property->noticeAge();
    EXPECT_EQ(observer.changes, 1);
    theTime = 1100;
    property->noticeAge();
    property->noticeAge();
    EXPECT_EQ(observer.changes, 2);
    property->setValue(20.0, 1100);
    EXPECT_EQ(observer.changes, 3);
    property->noticeAge();
    EXPECT_EQ(observer.changes, 3);
}

TEST_F(PropertyTest, ALifetimeMayEndAValueAtOnce) {
    property->setValue(20.0, 900);
    EXPECT_EQ(observer.changes, 1);
    property->setLifetime(60);
    EXPECT_EQ(observer.changes, 2);
    EXPECT_EQ(property->value(), std::nullopt);
    property->setLifetime(0);
    EXPECT_EQ(observer.changes, 3);
    EXPECT_EQ(property->value(), 20.0);
}

TEST_F(PropertyTest, ObserversMayGoWhileTheyAreTold) {
    auto second = std::make_unique<Observer>();
    Observer third;
    property->addObserver(second.get());
    property->addObserver(&third);
    observer.action = [&] {
        property->removeObserver(&observer);
        property->removeObserver(second.get());
        second.reset();
    };
    property->setValue(1.0, 1000);
    EXPECT_EQ(observer.changes, 1);
    EXPECT_EQ(third.changes, 1);
    property->setValue(2.0, 1000);
    EXPECT_EQ(observer.changes, 1);
    EXPECT_EQ(third.changes, 2);
    property->removeObserver(&third);
}

TEST_F(PropertyTest, AnObserverAddedWhileOthersAreToldHearsOfTheNextChange) {
    Observer late;
    observer.action = [&] {
        if (observer.changes == 1) property->addObserver(&late);
    };
    property->setValue(1.0, 1000);
    EXPECT_EQ(late.changes, 0);
    property->setValue(2.0, 1000);
    EXPECT_EQ(late.changes, 1);
    property->removeObserver(&late);
}

TEST_F(PropertyTest, TheLastOwnerMayLetGoWhileObserversAreTold) {
    Observer other;
    auto own = std::make_shared<Property>("x", "X", Quantity::none);
    own->addObserver(&other);
    other.action = [&] { own.reset(); };
    own->setValue(1.0, 1000);
    EXPECT_EQ(other.changes, 1);
}

TEST_F(PropertyTest, NamedProperties) {
    EXPECT_EQ(property->valueForKey("propertyName"), Value("outdoorTemperature"));
    EXPECT_EQ(property->valueForKey("displayName"), Value("Outdoor Temperature"));
    EXPECT_EQ(property->valueForKey("value"), Value());
    EXPECT_EQ(property->valueForKey("text"), Value("--"));
    EXPECT_TRUE(property->setValueForKey("unit", "F"));
    EXPECT_EQ(property->valueForKey("unit"), Value("°F"));
    EXPECT_TRUE(property->setValueForKey("value", 68));
    EXPECT_NEAR(*property->value(), 20, 1e-9);
    EXPECT_EQ(property->receivedAt(), 1000);
    EXPECT_EQ(property->valueForKey("text"), Value("68.0 °F"));
    EXPECT_TRUE(property->setValueForKey("unit", "hPa"));
    EXPECT_EQ(property->valueForKey("unit"), Value("°F"));
    EXPECT_FALSE(property->setValueForKey("value", "warm"));
    EXPECT_TRUE(property->setValueForKey("value", Value()));
    EXPECT_EQ(property->value(), std::nullopt);
    EXPECT_FALSE(property->setValueForKey("propertyName", "other"));
}

TEST_F(PropertyTest, ReadsBackWithoutItsValue) {
    property->setUnit(*unitWithShortName("°F"));
    property->setValue(20.0, 1000);
    const auto data = KeyedArchiver::archivedDataWithRootObject(Value(property));
    ASSERT_TRUE(data) << data.error().message;
    const auto root = KeyedUnarchiver::unarchivedRoot(*data);
    ASSERT_TRUE(root) << root.error().message;
    const auto read = root->as<Property>();
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->propertyName(), "outdoorTemperature");
    EXPECT_EQ(read->displayName(), "Outdoor Temperature");
    EXPECT_EQ(read->quantity(), Quantity::temperature);
    EXPECT_EQ(read->unit().shortName, "°F");
    EXPECT_EQ(read->value(), std::nullopt);
}

TEST_F(PropertyTest, ObserversAreToldInTheOrderInWhichTheyCame) {
    std::vector<int> told;
    std::vector<Observer> many(100);
    for (int index = 0; index < 100; ++index) {
        many[static_cast<std::size_t>(index)].action = [&told, index] { told.push_back(index); };
        property->addObserver(&many[static_cast<std::size_t>(index)]);
    }
    // Most leave, from both ends, and one comes back: it is the last then.
    for (std::size_t index = 0; index < 40; ++index) property->removeObserver(&many[index]);
    for (std::size_t index = 99; index > 42; --index) property->removeObserver(&many[index]);
    property->addObserver(&many[7]);
    property->setValue(20.0, 1000);
    EXPECT_EQ(told, (std::vector{40, 41, 42, 7}));
    for (auto& each : many) property->removeObserver(&each);
    property->setValue(21.0, 1000);
    EXPECT_EQ(told.size(), 4u);
    EXPECT_EQ(observer.changes, 2);
}

TEST_F(PropertyTest, AnObserverThatIsAddedTwiceIsToldOnce) {
    property->addObserver(&observer);
    property->setValue(20.0, 1000);
    EXPECT_EQ(observer.changes, 1);
    property->removeObserver(&observer);
    property->setValue(21.0, 1000);
    EXPECT_EQ(observer.changes, 1);
    // Nor does it matter that it is gone.
    property->removeObserver(&observer);
}

TEST_F(PropertyTest, AllObserversMayLeaveWhileTheFirstIsTold) {
    std::vector<Observer> many(50);
    for (auto& each : many) property->addObserver(&each);
    Observer late;
    observer.action = [&] {
        for (auto& each : many) property->removeObserver(&each);
        property->addObserver(&late);
    };
    property->setValue(20.0, 1000);
    EXPECT_EQ(observer.changes, 1);
    for (const auto& each : many) EXPECT_EQ(each.changes, 0);
    EXPECT_EQ(late.changes, 0);
    observer.action = {};
    property->setValue(21.0, 1000);
    EXPECT_EQ(observer.changes, 2);
    EXPECT_EQ(late.changes, 1);
    property->removeObserver(&late);
}

TEST_F(PropertyTest, AHundredThousandObserversComeAndGo) {
    std::vector<Observer> many(100'000);
    for (auto& each : many) property->addObserver(&each);
    property->setValue(20.0, 1000);
    // Those at odd places first.
    for (std::size_t index = 1; index < many.size(); index += 2) property->removeObserver(&many[index]);
    for (std::size_t index = 0; index < many.size(); index += 2) property->removeObserver(&many[index]);
    property->setValue(21.0, 1000);
    EXPECT_EQ(many.front().changes, 1);
    EXPECT_EQ(many.back().changes, 1);
    EXPECT_EQ(observer.changes, 2);
}

}  // namespace
}  // namespace zor

#include "host/station/Agent.h"

#include <gmock/gmock.h>

#include "host/foundation/ClassBuilder.h"
#include "host/foundation/KeyedArchiver.h"
#include "host/foundation/NotificationCenter.h"
#include "host/station/PropertyKeys.h"
#include "host/station/StationClasses.h"
#include "host/station/ValueFormats.h"
#include "tests/host/station/TestPlugIn.h"

namespace zor {
namespace {

using testing::ElementsAre;

Seconds theTime = 1000;
Seconds testClock() {
    return theTime;
}

/// An instrument: shows a property and remembers its name.
class TestInstrument : public View, public PropertyClient {
public:
    explicit TestInstrument(std::optional<std::string> name = {}) : name_(std::move(name)) {}
    std::shared_ptr<Property> property() const override { return property_; }
    void setProperty(const std::shared_ptr<Property>& property) override {
        property_ = property;
        name_ = property ? std::optional(property->propertyName()) : std::nullopt;
    }
    std::optional<std::string> propertyName() const override { return name_; }
    void linkProperty(const std::string& name, const std::shared_ptr<Property>& property) override {
        name_ = name;
        property_ = property;
        ++links;
    }
    int links = 0;

private:
    std::shared_ptr<Property> property_;
    std::optional<std::string> name_;
};

/// A widget: a view with an instrument as its "targetView".
class TestWidget : public View {
public:
    static const ClassRecord& staticClass() {
        static const ClassRecord& record = ClassBuilder<TestWidget>("TestWidget", &View::staticClass())
                                               .property("targetView", &TestWidget::targetView)
                                               .registered();
        return record;
    }
    const ClassRecord& classRecord() const override { return staticClass(); }
    explicit TestWidget(const std::shared_ptr<TestInstrument>& instrument) : instrument_(instrument) {
        addSubview(instrument);
    }
    std::shared_ptr<View> targetView() const { return instrument_; }

private:
    std::shared_ptr<View> instrument_;
};

class AgentTest : public testing::Test {
protected:
    AgentTest() {
        registerStationClasses();
        theTime = 1000;
        setClock(testClock);
    }
    ~AgentTest() override { setClock(nullptr); }

    std::vector<std::string> names() const {
        std::vector<std::string> names;
        for (const auto& property : agent->properties().all()) names.push_back(property->propertyName());
        return names;
    }
    std::string text(std::string_view key) const {
        return agent->properties().find(key)->stringForFormat(valueWithShortUnitFormat);
    }

    std::shared_ptr<Agent> agent = Agent::withName("Garden");
};

TEST_F(AgentTest, HasAName) {
    EXPECT_EQ(agent->name(), "Garden");
    EXPECT_EQ(agent->valueForKey("name"), Value("Garden"));
    EXPECT_TRUE(agent->setValueForKey("name", "Roof"));
    EXPECT_EQ(agent->name(), "Roof");
}

TEST_F(AgentTest, FindsPropertiesByTheFirstKeyPresent) {
    const auto temperature = agent->addProperty("temperature", "Temperature", Quantity::temperature);
    const auto indoor = agent->addProperty("indoorTemperature", "Indoor", Quantity::temperature);
    const auto& properties = agent->properties();
    EXPECT_EQ(properties.find("temperature"), temperature);
    EXPECT_EQ(properties.find("humidity"), nullptr);
    EXPECT_EQ(properties.objectForAnyKey({"outdoorTemperature", "indoorTemperature", "temperature"}), indoor);
    EXPECT_EQ(properties.objectForAnyKey({"humidity"}), nullptr);
    EXPECT_EQ(properties.objectForAnyKey({}), nullptr);
}

TEST_F(AgentTest, ADictionaryHoldsOnePropertyOfAName) {
    PropertyDictionary properties;
    properties.add(std::make_shared<Property>("a", "A", Quantity::none));
    properties.add(std::make_shared<Property>("b", "B", Quantity::none));
    const auto other = std::make_shared<Property>("a", "Other", Quantity::rain);
    properties.add(other);
    properties.add({});
    ASSERT_EQ(properties.all().size(), 2u);
    EXPECT_EQ(properties.all()[0], other);
    properties.clear();
    EXPECT_TRUE(properties.all().empty());
}

TEST_F(AgentTest, AddingAPropertyTwiceGivesTheFirst) {
    int told = 0;
    agent->setPropertiesObserver([&] { ++told; });
    const auto first = agent->addProperty("foo", "Foo", Quantity::rain);
    EXPECT_EQ(agent->addProperty("foo", "Other", Quantity::speed), first);
    EXPECT_EQ(first->displayName(), "Foo");
    EXPECT_EQ(told, 1);
}

TEST_F(AgentTest, AReadingAddsItsProperties) {
    int told = 0;
    agent->setPropertiesObserver([&] { ++told; });
    agent->takeReading({1000, {{"outdoorTemperature", 21.5}, {"sensorLevel", 3.0}, {"temperature2", 9.0}}});
    EXPECT_THAT(names(), ElementsAre("outdoorTemperature", "sensorLevel", "temperature2"));
    EXPECT_EQ(told, 1);
    EXPECT_EQ(agent->properties().find("outdoorTemperature")->displayName(), "Outdoor Temperature");
    EXPECT_EQ(agent->properties().find("sensorLevel")->displayName(), "Sensor Level");
    EXPECT_EQ(agent->properties().find("sensorLevel")->quantity(), Quantity::none);
    EXPECT_EQ(text("outdoorTemperature"), "21.5 °C");
    EXPECT_EQ(text("temperature2"), "9.0 °C");
    EXPECT_EQ(text("sensorLevel"), "3.0");
    EXPECT_EQ(agent->properties().find("sensorLevel")->receivedAt(), 1000);
    agent->takeReading({1010, {{"outdoorTemperature", 22.0}, {"sensorLevel", {}}}});
    EXPECT_EQ(told, 1);
    EXPECT_EQ(text("outdoorTemperature"), "22.0 °C");
    EXPECT_EQ(text("sensorLevel"), "--");
    agent->takeReading({1020, {{"rainToday", 1.0}}});
    EXPECT_EQ(told, 2);
}

TEST_F(AgentTest, AReadingIsCompletedAndRemembered) {
    agent->takeReading({1000, {{"outdoorTemperature", 25.0}, {"outdoorHumidity", 60.0}, {"windSpeed", 2.0}}});
    EXPECT_THAT(names(), ElementsAre("outdoorTemperature", "outdoorHumidity", "windSpeed", "outdoorDewPoint",
                                     "outdoorHeatIndex", "windChill", "feelsLike"));
    EXPECT_EQ(text("outdoorDewPoint"), "16.7 °C");
    EXPECT_EQ(agent->history()->samples("outdoorTemperature", 0, 2000), (std::vector<Sample>{{1000, 25}}));
    EXPECT_EQ(agent->history()->samples("windChill", 0, 2000), (std::vector<Sample>{{1000, 25}}));
}

TEST_F(AgentTest, ImpossibleValuesAreNeitherShownNorRememberedNorUsed) {
    agent->takeReading({1000, {{"outdoorTemperature", 25.0}, {"outdoorHumidity", 255.0}}});
    EXPECT_THAT(names(), ElementsAre("outdoorTemperature", "outdoorHumidity"));
    EXPECT_EQ(text("outdoorHumidity"), "--");
    EXPECT_TRUE(agent->history()->samples("outdoorHumidity", 0, 2000).empty());
}

TEST_F(AgentTest, TheUnitSystemHoldsForAllProperties) {
    agent->takeReading({1000, {{"outdoorTemperature", 20.0}, {"windSpeed", 10.0}}});
    EXPECT_EQ(text("windSpeed"), "36.0 km/h");
    agent->setUnitSystem(UnitSystem::us);
    EXPECT_EQ(text("outdoorTemperature"), "68.0 °F");
    EXPECT_EQ(text("windSpeed"), "22.4 mph");
    agent->takeReading({1010, {{"barometricPressureRelative", 1013.25}}});
    EXPECT_EQ(text("barometricPressureRelative"), "29.92 inHg");
    EXPECT_EQ(agent->configuration().unitSystem, UnitSystem::us);
    agent->setConfiguration({"weewx", {{"file", "/tmp/x.sdb"}}, UnitSystem::si});
    EXPECT_EQ(text("windSpeed"), "10.0 m/s");
    EXPECT_EQ(agent->configuration().driver, "weewx");
}

TEST_F(AgentTest, ValuesLiveForeverUnlessALifetimeIsSet) {
    agent->takeReading({1000, {{"outdoorTemperature", 20.0}}});
    theTime = 1e9;
    EXPECT_EQ(text("outdoorTemperature"), "20.0 °C");
    agent->setConfiguration({"simulated", {{"valueLifetime", 300}}, UnitSystem::metric});
    EXPECT_EQ(text("outdoorTemperature"), "--");
    agent->takeReading({theTime, {{"outdoorTemperature", 20.0}, {"windSpeed", 1.0}}});
    EXPECT_EQ(text("windSpeed"), "3.6 km/h");
    theTime += 301;
    EXPECT_EQ(text("windSpeed"), "--");
}

TEST_F(AgentTest, ItsTimeIsTheComputersUnlessItHasAClock) {
    EXPECT_EQ(agent->now(), 1000);
    agent->setClock([] { return Seconds{77}; });
    EXPECT_EQ(agent->now(), 77);
    agent->setClock({});
    EXPECT_EQ(agent->now(), 1000);
}

TEST_F(AgentTest, AgeIsJudgedByTheStationsTime) {
    agent->setConfiguration({"simulated", {{"valueLifetime", 300}}, UnitSystem::metric});
    Seconds stationTime = 500;
    agent->setClock([&] { return stationTime; });
    agent->takeReading({500, {{"outdoorTemperature", 20.0}}});
    EXPECT_EQ(text("outdoorTemperature"), "20.0 °C");
    stationTime = 801;
    EXPECT_EQ(text("outdoorTemperature"), "--");
    agent->setClock({});
}

TEST_F(AgentTest, AgeIsNoticedAtTheFullMinute) {
    struct Observer : PropertyObserver {
        int changes = 0;
        void propertyDidChange() override { ++changes; }
    } observer;
    agent->setConfiguration({"simulated", {{"valueLifetime", 300}}, UnitSystem::metric});
    agent->takeReading({1000, {{"outdoorTemperature", 20.0}}});
    const auto property = agent->properties().find("outdoorTemperature");
    property->addObserver(&observer);
    NotificationCenter::defaultCenter().post(kAppTimerOneMinuteNotification);
    EXPECT_EQ(observer.changes, 0);
    theTime = 1301;
    NotificationCenter::defaultCenter().post(kAppTimerOneMinuteNotification);
    NotificationCenter::defaultCenter().post(kAppTimerOneMinuteNotification);
    EXPECT_EQ(observer.changes, 1);
    property->removeObserver(&observer);
    const auto count = NotificationCenter::defaultCenter().observerCount(kAppTimerOneMinuteNotification);
    agent.reset();
    EXPECT_EQ(NotificationCenter::defaultCenter().observerCount(kAppTimerOneMinuteNotification), count - 1);
}

TEST_F(AgentTest, LinksWidgetsByTheNameThatTheirInstrumentsHold) {
    const auto wind = agent->addProperty("windSpeed", "Wind Speed", Quantity::speed);
    const auto instrument = std::make_shared<TestInstrument>("windSpeed");
    const auto lacking = std::make_shared<TestInstrument>("noSuch");
    lacking->setProperty(wind);
    lacking->linkProperty("noSuch", wind);
    const auto nameless = std::make_shared<TestInstrument>();
    const auto bare = std::make_shared<TestInstrument>("windSpeed");
    agent->linkPropertiesToWidgets({std::make_shared<TestWidget>(instrument), std::make_shared<TestWidget>(lacking),
                                    std::make_shared<View>(), nullptr, std::make_shared<TestWidget>(nameless), bare});
    EXPECT_EQ(instrument->property(), wind);
    EXPECT_EQ(bare->property(), wind);
    EXPECT_EQ(lacking->property(), nullptr);
    EXPECT_EQ(lacking->propertyName(), "noSuch");
    EXPECT_EQ(nameless->links, 0);
}

TEST_F(AgentTest, InstrumentsThatWaitAreLinkedWhenTheirPropertyComes) {
    const auto controller = std::make_shared<SiteWindowController>();
    agent->setSiteWindowController(controller);
    EXPECT_EQ(agent->siteWindowController(), controller);
    const auto plugIn = TestPlugIn::make(agent, controller, "Weather");
    controller->addPlugIn(plugIn, false);
    const auto wind = agent->addProperty("windSpeed", "Wind Speed", Quantity::speed);
    const auto waiting = std::make_shared<TestInstrument>("rainToday");
    const auto linked = std::make_shared<TestInstrument>("windSpeed");
    linked->setProperty(wind);
    const auto canvas = std::make_shared<View>();
    canvas->addSubview(std::make_shared<TestWidget>(waiting));
    canvas->addSubview(std::make_shared<TestWidget>(linked));
    plugIn->view()->addSubview(canvas);
    agent->takeReading({1000, {{"rainToday", 1.5}}});
    EXPECT_EQ(waiting->property(), agent->properties().find("rainToday"));
    EXPECT_EQ(linked->links, 0);
}

TEST_F(AgentTest, PlugInsWithoutAViewStayWithout) {
    const auto controller = std::make_shared<SiteWindowController>();
    agent->setSiteWindowController(controller);
    const auto plugIn = TestPlugIn::make(agent, controller, "Weather");
    controller->addPlugIn(plugIn, false);
    agent->addProperty("windSpeed", "Wind Speed", Quantity::speed);
    EXPECT_FALSE(plugIn->isViewLoaded());
}

TEST_F(AgentTest, DashboardWidgetsComeFromTheMaker) {
    EXPECT_TRUE(agent->dashboardWidgets().empty());
    agent->setDashboardWidgetsMaker([](Agent& station) {
        return std::vector<std::shared_ptr<View>>(station.name().size(), std::make_shared<View>());
    });
    EXPECT_EQ(agent->dashboardWidgets().size(), 6u);
}

TEST_F(AgentTest, ReadsBackWithItsPropertiesAndWithoutTheirValues) {
    agent->setConfiguration({"weewx", {{"file", "a.sdb"}, {"valueLifetime", 60}}, UnitSystem::uk});
    agent->takeReading({1000, {{"outdoorTemperature", 20.0}, {"windSpeed", 10.0}}});
    agent->properties().find("outdoorTemperature")->setUnit(*unitWithShortName("°F"));
    const auto data = KeyedArchiver::archivedDataWithRootObject(Value(agent));
    ASSERT_TRUE(data) << data.error().message;
    const auto root = KeyedUnarchiver::unarchivedRoot(*data);
    ASSERT_TRUE(root) << root.error().message;
    const auto original = std::exchange(agent, root->as<Agent>());
    ASSERT_NE(agent, nullptr);
    EXPECT_EQ(agent->name(), "Garden");
    EXPECT_EQ(agent->configuration().driver, "weewx");
    EXPECT_EQ(agent->configuration().settings, original->configuration().settings);
    EXPECT_EQ(agent->configuration().unitSystem, UnitSystem::uk);
    EXPECT_THAT(names(), ElementsAre("outdoorTemperature", "windSpeed", "windChill"));
    EXPECT_EQ(text("windSpeed"), "--");
    EXPECT_EQ(agent->properties().find("windSpeed")->unit().shortName, "mph");
    EXPECT_EQ(agent->properties().find("outdoorTemperature")->unit().shortName, "°F");
    agent->takeReading({1000, {{"windSpeed", 10.0}}});
    EXPECT_EQ(text("windSpeed"), "22.4 mph");
    theTime = 1100;
    EXPECT_EQ(text("windSpeed"), "--");
}

}  // namespace
}  // namespace zor

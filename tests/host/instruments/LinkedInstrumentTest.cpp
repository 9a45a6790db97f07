#include "host/instruments/ZORTextFieldView.h"
#include "tests/host/instruments/InstrumentSupport.h"

namespace zor {
namespace {

using test::TestPlugIn;

class LinkedInstrument : public ::testing::Test {
protected:
    void SetUp() override {
        FakeToolkit::install();
        agent->addProperty("outdoorTemperature", "Outdoor Temperature", Quantity::temperature)->setValue(21.5, 1000);
    }

    std::shared_ptr<Agent> agent = Agent::withName("Garden");
    std::shared_ptr<ZORTextFieldView> field = std::make_shared<ZORTextFieldView>();
};

TEST_F(LinkedInstrument, AnswersSetProperty) {
    const auto property = test::temperature(21.5);
    EXPECT_TRUE(field->respondsTo("setProperty:"));
    const Value argument(property);
    field->perform("setProperty:", {&argument, 1});
    EXPECT_EQ(field->property(), property);
    EXPECT_EQ(field->propertyName(), "outdoorTemperature");
    EXPECT_EQ(field->valueForKey("propertyName"), Value("outdoorTemperature"));
    EXPECT_EQ(field->valueForKey("property").asObject(), property);
    const Value none;
    field->perform("setProperty:", {&none, 1});
    EXPECT_FALSE(field->property());
    EXPECT_FALSE(field->propertyName());
}

TEST_F(LinkedInstrument, OnlyInstrumentsOfAPropertyAnswerSetProperty) {
    const std::vector<std::pair<const char*, bool>> expected{
        {"textField", true},  {"dateTimeField", true},  {"led", true},         {"plotView", true},
        {"roundGauge", true}, {"levelIndicator", true}, {"linearGauge", true}, {"box", false},
        {"imageView", false}, {"mapView", false},       {"webView", false},
    };
    for (const auto& [kind, answers] : expected) {
        const auto widget = ZORWidgetHostView::widgetOfKind(kind, {0, 0, 50, 50}, {});
        ASSERT_TRUE(widget) << kind;
        EXPECT_EQ(widget->targetView()->respondsTo("setProperty:"), answers) << kind;
    }
}

TEST_F(LinkedInstrument, KeepsANameThatTheAgentLacks) {
    field->linkProperty("soilMoisture1", {});
    EXPECT_EQ(field->propertyName(), "soilMoisture1");
    EXPECT_FALSE(field->property());
    EXPECT_EQ(field->text(), "--");
}

TEST_F(LinkedInstrument, UnlinkingKeepsTheNameOnlyForTheList) {
    field->setProperty(test::temperature(21.5));
    field->setProperty({});
    EXPECT_FALSE(field->property());
    EXPECT_FALSE(field->propertyName());
    EXPECT_EQ(field->lastPropertyName(), "outdoorTemperature");
    EXPECT_EQ(field->text(), "--");
}

TEST_F(LinkedInstrument, NeverLinkedHasNoLastName) {
    field->setProperty({});
    EXPECT_FALSE(field->lastPropertyName());
}

TEST_F(LinkedInstrument, AsksTheAgentOfThePlugInAboveWhenItEntersATree) {
    field->linkProperty("outdoorTemperature", {});
    const auto plugIn = TestPlugIn::withAgent(agent);
    plugIn->view()->addSubview(field);
    EXPECT_EQ(field->property(), agent->properties().find("outdoorTemperature"));
    EXPECT_EQ(field->text(), "21.5 °C");
}

TEST_F(LinkedInstrument, AsksTheAgentWhenAnAncestorEntersATree) {
    field->linkProperty("outdoorTemperature", {});
    const auto group = std::make_shared<View>();
    group->addSubview(field);
    EXPECT_FALSE(field->property());
    TestPlugIn::withAgent(agent)->view()->addSubview(group);
    EXPECT_TRUE(field->property());
}

TEST_F(LinkedInstrument, KeepsItsOwnLivePropertyInATree) {
    const auto property = test::temperature(3);
    field->setProperty(property);
    const auto plugIn = TestPlugIn::withAgent(agent);
    plugIn->view()->addSubview(field);
    EXPECT_EQ(field->property(), property);
}

TEST_F(LinkedInstrument, LinksByNameAloneWithinATree) {
    const auto plugIn = TestPlugIn::withAgent(agent);
    plugIn->view()->addSubview(field);
    EXPECT_TRUE(applySetting(*field, field->settings(), "propertyName", "outdoorTemperature"));
    EXPECT_EQ(field->text(), "21.5 °C");
    EXPECT_TRUE(applySetting(*field, field->settings(), "propertyName", "unheardOf"));
    EXPECT_EQ(field->propertyName(), "unheardOf");
    EXPECT_EQ(field->text(), "--");
    EXPECT_TRUE(applySetting(*field, field->settings(), "propertyName", ""));
    EXPECT_FALSE(field->propertyName());
    EXPECT_FALSE(applySetting(*field, field->settings(), "propertyName", 5));
}

TEST_F(LinkedInstrument, RedrawsWhenThePropertyChanges) {
    const auto peer = std::make_shared<FakeWindowPeer>();
    Window window;
    window.setPeer(peer);
    field->setFrame({10, 20, 100, 30});
    window.setContentView(std::make_shared<View>(Rect{0, 0, 400, 300}));
    window.contentView()->addSubview(field);
    window.show();
    const auto property = test::temperature(1);
    field->setProperty(property);
    peer->damage.clear();
    property->setValue(2, 2000);
    EXPECT_EQ(peer->damage, (std::vector<Rect>{{10, 20, 100, 30}}));
    field->setProperty({});
    peer->damage.clear();
    property->setValue(3, 3000);
    EXPECT_TRUE(peer->damage.empty());
}

TEST_F(LinkedInstrument, AReleasedInstrumentIsNotTold) {
    const auto property = test::temperature(1);
    field->setProperty(property);
    field.reset();
    property->setValue(2, 2000);
    property->notifyObservers();
}

TEST_F(LinkedInstrument, ACopyIsLinkedToTheSamePropertyAndLivesAlone) {
    const auto property = test::temperature(21.5);
    field->setProperty(property);
    field->setFrame({1, 2, 30, 40});
    const auto copy = std::dynamic_pointer_cast<ZORTextFieldView>(field->copy());
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->property(), property);
    EXPECT_EQ(copy->frame(), (Rect{1, 2, 30, 40}));
    copy->setProperty({});
    EXPECT_EQ(field->property(), property);
}

TEST_F(LinkedInstrument, ACopyKeepsANameWithoutProperty) {
    field->linkProperty("soilMoisture1", {});
    const auto copy = std::dynamic_pointer_cast<ZORTextFieldView>(field->copy());
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->propertyName(), "soilMoisture1");
    EXPECT_FALSE(copy->property());
}

TEST_F(LinkedInstrument, ACopyOfWhatWasUnlinkedKeepsItsLastNameOnly) {
    field->setProperty(test::temperature(21.5));
    field->setProperty({});
    const auto copy = std::dynamic_pointer_cast<ZORTextFieldView>(field->copy());
    ASSERT_TRUE(copy);
    EXPECT_FALSE(copy->propertyName());
    EXPECT_EQ(copy->lastPropertyName(), "outdoorTemperature");
}

TEST_F(LinkedInstrument, TheArchiveHoldsTheNameNotTheProperty) {
    field->setProperty(test::temperature(21.5));
    const auto read = test::roundTrip(field);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->propertyName(), "outdoorTemperature");
    EXPECT_FALSE(read->property());
    EXPECT_EQ(read->text(), "--");

    field->setProperty({});
    const auto unlinked = test::roundTrip(field);
    ASSERT_TRUE(unlinked);
    EXPECT_FALSE(unlinked->propertyName());
    EXPECT_EQ(unlinked->lastPropertyName(), "outdoorTemperature");
}

}  // namespace
}  // namespace zor

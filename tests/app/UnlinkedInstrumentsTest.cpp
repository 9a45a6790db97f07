#include "app/inspect/UnlinkedInstruments.h"

#include <gmock/gmock.h>

#include "app/inspect/PropertyMatches.h"
#include "host/foundation/ClassBuilder.h"
#include "host/station/PropertyKeys.h"
#include "host/station/SiteDocument.h"
#include "tests/support/FakeToolkit.h"

namespace zor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A document whose canvas is known by the name that the host asks for.
class Panel : public ZORPlugIn {
public:
    static const ClassRecord& staticClass() {
        static const ClassRecord& record = ClassBuilder<Panel>("TestPanel", &ZORPlugIn::staticClass())
                                               .property("editView", &Panel::editView)
                                               .registered();
        return record;
    }
    const ClassRecord& classRecord() const override { return staticClass(); }
    Panel(const std::shared_ptr<Agent>& agent, const std::shared_ptr<SiteWindowController>& controller) {
        initWithAgentSiteWindowController(agent, controller);
    }
    std::shared_ptr<View> editView() const { return canvas; }
    std::shared_ptr<View> canvas = std::make_shared<View>();
};

class UnlinkedInstruments : public testing::Test {
protected:
    void SetUp() override {
        FakeToolkit::install();
        for (const auto key : {kOutdoorTemperature, kIndoorTemperature, kOutdoorHumidity, kWindSpeed, kWindGust}) {
            const auto naming = namingOfProperty(key);
            agent->addProperty(key, naming.displayName, naming.quantity);
        }
        document = SiteDocument::create(agent, {});
        document->setDirty(false);
    }
    void TearDown() override { document->close(); }

    std::shared_ptr<Panel> addPanel(const std::string& title) {
        const auto panel = std::make_shared<Panel>(agent, document->siteWindowController());
        panel->setTitle(title);
        document->siteWindowController()->addPlugIn(panel, false);
        document->setDirty(false);
        return panel;
    }
    static std::shared_ptr<ZORWidgetHostView> add(Panel& panel, std::string_view kind, const std::string& name = {}) {
        const auto widget = ZORWidgetHostView::widgetOfKind(kind, {0, 0, 50, 50}, {});
        if (!name.empty()) linked(widget)->linkProperty(name, {});
        panel.canvas->addSubview(widget);
        return widget;
    }
    static std::shared_ptr<LinkedInstrumentView> linked(const std::shared_ptr<ZORWidgetHostView>& widget) {
        return std::dynamic_pointer_cast<LinkedInstrumentView>(widget->targetView());
    }
    std::vector<UnlinkedInstrument> found() const { return unlinkedInstrumentsOf(*document); }

    std::shared_ptr<Agent> agent = Agent::withName("A");
    std::shared_ptr<SiteDocument> document;
};

TEST_F(UnlinkedInstruments, AreThoseWhoseNameTheStationLacksInTheOrderOfTheListAndTheCanvas) {
    const auto one = addPanel("One"), two = addPanel("Two");
    const auto gauge = add(*one, "roundGauge", "soilMoisture");
    add(*one, "textField", "outdoorTemperature");
    const auto plot = add(*one, "plotView", "rainRate");
    const auto label = add(*two, "textField", "fooBar");
    EXPECT_THAT(found(),
                ElementsAre(UnlinkedInstrument{one, gauge, "soilMoisture"}, UnlinkedInstrument{one, plot, "rainRate"},
                            UnlinkedInstrument{two, label, "fooBar"}));
}

TEST_F(UnlinkedInstruments, OfADashboardThatIsOnlyInASeparateWindowCountLast) {
    const auto apart = addPanel("Apart"), both = addPanel("Both");
    const auto label = add(*apart, "textField", "fooBar"), gauge = add(*both, "roundGauge", "soilMoisture");
    document->showInSeparateWindow(apart);
    document->showInSeparateWindow(both);
    document->siteWindowController()->removePlugInAtIndex(0);
    EXPECT_THAT(found(), ElementsAre(UnlinkedInstrument{both, gauge, "soilMoisture"},
                                     UnlinkedInstrument{apart, label, "fooBar"}));
}

TEST_F(UnlinkedInstruments, WithoutANameOrAPropertyNothingIsMissing) {
    const auto panel = addPanel("One");
    add(*panel, "textField");
    add(*panel, "box");
    add(*panel, "webView");
    panel->canvas->addSubview(std::make_shared<View>());
    add(*panel, "led")->setTargetView({});
    EXPECT_THAT(found(), IsEmpty());
    panel->canvas.reset();
    EXPECT_THAT(found(), IsEmpty());
}

TEST_F(UnlinkedInstruments, ANameThatAnImportTookAwayCounts) {
    const auto panel = addPanel("One");
    const auto label = add(*panel, "textField", "fooBar"), other = add(*panel, "textField", "windSpeed");
    linked(label)->setProperty({});
    linked(other)->setProperty({});
    EXPECT_THAT(found(), ElementsAre(UnlinkedInstrument{panel, label, "fooBar"}));
}

TEST_F(UnlinkedInstruments, AreNoMoreWhenTheStationGetsTheProperty) {
    const auto panel = addPanel("One");
    add(*panel, "textField", "rainRate");
    EXPECT_EQ(found().size(), 1u);
    agent->addProperty("rainRate", "Rain Rate", Quantity::rainRate);
    EXPECT_THAT(found(), IsEmpty());
}

TEST_F(UnlinkedInstruments, LinkingSetsThePropertyAndTheDocumentCountsAsChanged) {
    const auto panel = addPanel("One");
    const auto label = add(*panel, "textField", "fooBar");
    ASSERT_TRUE(linkInstrument(found().at(0), "windSpeed"));
    EXPECT_EQ(linked(label)->propertyName(), "windSpeed");
    EXPECT_TRUE(document->isDirty());
    EXPECT_THAT(found(), IsEmpty());
}

TEST_F(UnlinkedInstruments, KindsHaveLabels) {
    EXPECT_EQ(labelOfKind("roundGauge"), "Round Gauge");
    EXPECT_EQ(labelOfKind("led"), "LED");
    EXPECT_EQ(labelOfKind("unheard"), "unheard");
}

class PropertyMatching : public UnlinkedInstruments {
protected:
    static std::vector<std::string> namesOf(const std::vector<std::shared_ptr<Property>>& properties) {
        std::vector<std::string> names;
        for (const auto& property : properties) names.push_back(property->propertyName());
        return names;
    }
    std::vector<std::string> nearest(const std::string& name) const {
        return namesOf(matchesForProperty(*agent, name).nearest);
    }
};

TEST_F(PropertyMatching, TheSameQuantityIsNearAndSharedWordsComeFirst) {
    EXPECT_THAT(nearest("temperature"), ElementsAre("outdoorTemperature", "indoorTemperature"));
    EXPECT_THAT(nearest("indoorDewPoint"), ElementsAre("indoorTemperature", "outdoorTemperature"));
    EXPECT_THAT(nearest("temperature3"), ElementsAre("outdoorTemperature", "indoorTemperature"));
    EXPECT_THAT(nearest("soilMoisture"), ElementsAre("outdoorHumidity"));
}

TEST_F(PropertyMatching, ANameThatNobodyKnowsIsReadByItsWords) {
    EXPECT_THAT(nearest("insideTemp"), ElementsAre("indoorTemperature", "outdoorTemperature"));
    EXPECT_THAT(nearest("outTemp"), ElementsAre("outdoorTemperature", "indoorTemperature"));
    EXPECT_THAT(nearest("wind_gust"), ElementsAre("windGust", "windSpeed"));
    EXPECT_THAT(nearest("fooBar"), IsEmpty());
    EXPECT_THAT(nearest("win"), IsEmpty());
    EXPECT_THAT(nearest(""), IsEmpty());
}

TEST_F(PropertyMatching, TheOthersFollowInTheStationsOrder) {
    EXPECT_THAT(namesOf(matchesForProperty(*agent, "windSpeed2").others),
                ElementsAre("outdoorTemperature", "indoorTemperature", "outdoorHumidity"));
    EXPECT_THAT(namesOf(matchesForProperty(*agent, "fooBar").others),
                ElementsAre("outdoorTemperature", "indoorTemperature", "outdoorHumidity", "windSpeed", "windGust"));
}

}  // namespace
}  // namespace zor

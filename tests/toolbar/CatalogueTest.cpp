#include "tests/toolbar/ToolbarSupport.h"

namespace zor {
namespace {

using ::testing::IsEmpty;

class Catalogue : public test::ToolbarTest {
protected:
    std::string entry(std::size_t row, const char* key) const {
        return (*toolbar->dashboardsArray())[row][key].asString();
    }
};

TEST_F(Catalogue, HasFiveEntriesInOrder) {
    ASSERT_EQ(toolbar->dashboardsArray()->size(), 5u);
    EXPECT_EQ(entry(0, "title"), "Standard Dashboard");
    EXPECT_EQ(entry(1, "title"), "Current Weather");
    EXPECT_EQ(entry(2, "title"), "Hi-Def Dashboard");
    EXPECT_EQ(entry(3, "title"), "Quad Plots");
    EXPECT_EQ(entry(4, "title"), "Clean Slate");
}

TEST_F(Catalogue, NamesABuilderOrAFileNeverBoth) {
    EXPECT_EQ(entry(0, "selector"), "standardDashboardPlugIn");
    EXPECT_EQ(entry(1, "selector"), "currentWeatherPlugIn");
    EXPECT_EQ(entry(2, "filename"), "Hi-Def");
    EXPECT_EQ(entry(3, "selector"), "quadPlotsPlugIn");
    EXPECT_EQ(entry(4, "selector"), "cleanSlatePlugIn");
    for (const auto& each : *toolbar->dashboardsArray()) {
        EXPECT_EQ(each.asDictionary().size(), 3u);
        EXPECT_NE(each["selector"].isAbsent(), each["filename"].isAbsent());
    }
}

TEST_F(Catalogue, EveryBuilderIsAnOperationOfThePlugIn) {
    for (const std::size_t row : {0, 1, 3, 4}) EXPECT_TRUE(toolbar->respondsTo(entry(row, "selector"))) << row;
}

TEST_F(Catalogue, DescriptionsAreExact) {
    EXPECT_EQ(entry(0, "description"),
              "This Dashboard shows the current weather using a mixture of gauges and labels with custom fonts.\n"
              "\n"
              "Contains:\n"
              "    \xE2\x80\xA2 Wind Speed & Direction\n"
              "    \xE2\x80\xA2 Barometric Pressure\n"
              "    \xE2\x80\xA2 Temperature\n"
              "    \xE2\x80\xA2 Humidity\n"
              "    \xE2\x80\xA2 Dew Point");
    EXPECT_EQ(entry(1, "description"),
              "This Dashboard shows the current weather in a small area with various font styles.\n"
              "\n"
              "Use this as a starting point for your own custom dashboard.\n"
              "\n"
              "Contains:\n"
              "    \xE2\x80\xA2 Temperature\n"
              "    \xE2\x80\xA2 Humidity\n"
              "    \xE2\x80\xA2 Heat Index");
    EXPECT_EQ(entry(2, "description"),
              "This Dashboard shows the current weather sized for a larger screen. It contains both indoor and outdoor "
              "wdigets, and is suitable for Davis weather stations.\n"
              "\n"
              "If you have another station, you will need to edit the dashboard and relink the widgets to the "
              "properties for your agent.");
    EXPECT_EQ(entry(3, "description"),
              "This Dashboard gives you four plots in a 2x2 arrangement showing today's values.\n"
              "\n"
              "Contains:\n"
              "    \xE2\x80\xA2 Temperature\n"
              "    \xE2\x80\xA2 Humidity\n"
              "    \xE2\x80\xA2 Wind Speed\n"
              "    \xE2\x80\xA2 Dew Point");
    EXPECT_EQ(entry(4, "description"),
              "This Dashboard starts in edit mode and contains a single text field.\n"
              "\n"
              "Use this as a starting point for your own custom dashboard.");
}

TEST_F(Catalogue, TwoPlugInsGetTheIdenticalArray) {
    const auto other = ZORDashboardToolbarPlugIn::initWithAgent(Agent::withName("B"), {});
    EXPECT_EQ(toolbar->dashboardsArray(), other->dashboardsArray());
    EXPECT_EQ(toolbar->dashboardsArray(), toolbar->dashboardsArray());
}

TEST_F(Catalogue, OutlivesThePlugInThatBuiltIt) {
    const auto* array = toolbar->dashboardsArray().get();
    toolbar = ZORDashboardToolbarPlugIn::initWithAgent(agent, controller);
    EXPECT_EQ(toolbar->dashboardsArray().get(), array);
}

TEST_F(Catalogue, ARowsBuilderMakesTheDashboardAndNamesIt) {
    EXPECT_EQ(toolbar->dashboardForRow(0)->title(), "Standard Dashboard");
    EXPECT_EQ(toolbar->dashboardForRow(1)->title(), "Current Weather");
    EXPECT_EQ(toolbar->dashboardForRow(3)->title(), "Quad Plots");
    EXPECT_EQ(toolbar->dashboardForRow(4)->title(), "Blank");
}

TEST_F(Catalogue, EveryCallMakesANewDashboardAddedNowhere) {
    const auto one = toolbar->dashboardForRow(4), two = toolbar->dashboardForRow(4);
    EXPECT_NE(one, two);
    EXPECT_NE(one->editView(), two->editView());
    EXPECT_EQ(one->agent(), agent);
    EXPECT_EQ(one->siteWindowController(), controller);
    EXPECT_THAT(controller->plugIns(), IsEmpty());
}

TEST_F(Catalogue, ARowOutsideGivesNothing) {
    EXPECT_FALSE(toolbar->dashboardForRow(5));
}

}  // namespace
}  // namespace zor

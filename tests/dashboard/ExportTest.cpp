#include "host/foundation/SafeFile.h"
#include "tests/dashboard/EditorFixture.h"
#include "tests/support/TemporaryFolder.h"

namespace zor {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Key;

class Export : public test::EditorTest {
protected:
    void exportTo(const std::string& path) {
        toolkit.saveAnswers.push_back({PanelResponse::ok, path});
        dashboard->exportDashboard({});
    }
    Value root() const {
        const auto data = readFile(file);
        if (!data) return {};
        return KeyedUnarchiver::unarchivedRoot(*data).valueOr({});
    }

    test::TemporaryFolder folder;
    std::string file = folder / "Panel.zordashboard";
};

TEST_F(Export, AsksForTheNameInASheetOnTheViewsWindow) {
    dashboard->setTitle("Weather");
    dashboard->exportDashboard({});
    ASSERT_EQ(toolkit.sheets.size(), 1u);
    EXPECT_EQ(toolkit.sheets[0]->kind, "save");
    EXPECT_EQ(toolkit.sheets[0]->name, "Weather");
    EXPECT_THAT(toolkit.sheets[0]->allowedTypes, ElementsAre("zordashboard"));
    EXPECT_EQ(toolkit.sheets[0]->window, window.get());
}

TEST_F(Export, WritesADictionaryOfThreeEntries) {
    dashboard->setTitle("Weather");
    exportTo(file);
    const auto read = root();
    ASSERT_TRUE(read.isDictionary());
    EXPECT_THAT(read.asDictionary(), ElementsAre(Key("agentName"), Key("editView"), Key("title")));
    EXPECT_EQ(read["title"], Value("Weather"));
    EXPECT_EQ(read["agentName"], Value("A"));
    const auto exported = read["editView"].as<ZORDashboardEditView>();
    ASSERT_TRUE(exported);
    EXPECT_EQ(exported->frame(), (Rect{0, 0, 800, 600}));
    EXPECT_EQ(test::framesOf(test::widgetsOn(exported)), test::framesOf({a, b, c}));
    EXPECT_TRUE(toolkit.sheets[0]->orderedOut);
}

TEST_F(Export, UntitledItSuggestsAndStoresUnnamed) {
    dashboard->setTitle({});
    exportTo(file);
    EXPECT_EQ(toolkit.sheets[0]->name, "Unnamed");
    EXPECT_EQ(root()["title"], Value("Unnamed"));
    EXPECT_EQ(dashboard->title(), std::nullopt);
}

TEST_F(Export, CarriesModeAndGridButNoSelection) {
    dashboard->selectAllObjects();
    canvas->setDrawGridLines(false);
    exportTo(file);
    const auto exported = root()["editView"].as<ZORDashboardEditView>();
    ASSERT_TRUE(exported);
    EXPECT_TRUE(exported->editMode());
    EXPECT_FALSE(exported->drawGridLines());
    EXPECT_THAT(test::eachOf(test::widgetsOn(exported), &ZORWidgetHostView::selected),
                ElementsAre(false, false, false));
    EXPECT_EQ(selection().size(), 3u);
}

TEST_F(Export, CancellingWritesNothingAndOrdersThePanelOut) {
    toolkit.saveAnswers.push_back({PanelResponse::cancel, file});
    dashboard->exportDashboard({});
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_TRUE(toolkit.sheets[0]->orderedOut);
}

TEST_F(Export, TheTitleIsThatOfTheBeginningTheAgentsNameThatOfTheEnd) {
    toolkit.holdAnswers = true;
    dashboard->setTitle("Before");
    exportTo(file);
    dashboard->setTitle("After");
    agent->setName("B");
    toolkit.deliverAnswers();
    EXPECT_EQ(root()["title"], Value("Before"));
    EXPECT_EQ(root()["agentName"], Value("B"));
}

TEST_F(Export, WithoutACanvasInTheViewNothingIsShown) {
    canvas->removeFromSuperview();
    dashboard->exportDashboard({});
    EXPECT_THAT(toolkit.sheets, IsEmpty());
}

TEST_F(Export, ADashboardThatGoesWhileTheSheetWaitsIsNotKept) {
    toolkit.holdAnswers = true;
    exportTo(file);
    const std::weak_ptr<ZORDashboardPlugIn> watched = dashboard;
    dashboard.reset();
    EXPECT_TRUE(watched.expired());
    toolkit.deliverAnswers();
    EXPECT_TRUE(toolkit.sheets[0]->orderedOut);
}

TEST_F(Export, AFailedWritingIsSilent) {
    exportTo(folder / "missing/Panel.zordashboard");
    EXPECT_EQ(toolkit.sheets.size(), 1u);
    EXPECT_TRUE(toolkit.sheets[0]->orderedOut);
}

TEST_F(Export, AnExportedCanvasIsTheSameAgainWhenReadAndExported) {
    exportTo(file);
    const auto first = readFile(file);
    exportTo(file);
    EXPECT_EQ(*first, *readFile(file));
}

}  // namespace
}  // namespace zor

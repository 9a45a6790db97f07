#include "host/views/RecordingContext.h"
#include "tests/toolbar/ToolbarSupport.h"
#include "toolbar/ZORDashboardListView.h"
#include "toolbar/ZORDashboardPreviewView.h"

namespace zor {
namespace {

using test::plugInBundle;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// What stands in for a loaded form.
class Form : public Object {
public:
    std::shared_ptr<Window> window = std::make_shared<Window>();
    std::shared_ptr<View> page1 = std::make_shared<View>(Rect{0, 0, 400, 300});
    std::shared_ptr<View> page2 = std::make_shared<View>(Rect{0, 0, 400, 300});
    std::shared_ptr<TableView> list = std::make_shared<TableView>();
    std::shared_ptr<TextField> description = std::make_shared<TextField>();
};

class SelectionWindow : public test::ToolbarTest {
protected:
    void SetUp() override {
        plugInBundle().write("SelectionWindow.ui", {});
        toolkit.interfaceLoader = [this](const std::filesystem::path& file, const ObjectPtr& owner) {
            loads.push_back(file.filename());
            EXPECT_EQ(owner, toolbar);
            auto form = std::make_shared<Form>();
            form->window->setContentView(std::make_shared<View>(Rect{0, 0, 400, 300}));
            form->page1->addSubview(form->list);
            owner->setValueForKey("configurationWindow", form->window);
            owner->setValueForKey("page1", form->page1);
            owner->setValueForKey("page2", form->page2);
            owner->setValueForKey("tableView", form->list);
            owner->setValueForKey("descriptionView", form->description);
            form->list->setDelegate(owner);
            return Result<ObjectPtr>(form);
        };
    }
    void TearDown() override { plugInBundle().remove("SelectionWindow.ui"); }

    std::vector<std::shared_ptr<View>> pagesShown() const {
        return toolbar->configurationWindow()->contentView()->subviews();
    }
    void show() { toolbar->performWithSender("toolbarItemAction:", nullptr); }
    std::vector<std::string> titles() const {
        std::vector<std::string> all;
        for (const auto& entry : controller->entries()) all.push_back(entry.title);
        return all;
    }

    std::vector<std::string> loads;
};

TEST_F(SelectionWindow, IsLoadedAtItsFirstShowingAndKept) {
    EXPECT_THAT(loads, IsEmpty());
    show();
    toolbar->cancelClicked({});
    show();
    EXPECT_THAT(loads, ElementsAre("SelectionWindow.ui"));
    EXPECT_TRUE(toolbar->configurationWindow());
}

TEST_F(SelectionWindow, AwakensWithTheCatalogueAndItsFirstEntry) {
    show();
    EXPECT_THAT(toolbar->tableView()->rows(), ElementsAre("Standard Dashboard", "Current Weather", "Hi-Def Dashboard",
                                                          "Quad Plots", "Clean Slate"));
    EXPECT_EQ(toolbar->tableView()->selectedRow(), 0);
    EXPECT_EQ(toolbar->dashboardTitle(), "Standard Dashboard");
    EXPECT_TRUE(toolbar->descriptionView()->stringValue().starts_with("This Dashboard shows the current weather"));
}

TEST_F(SelectionWindow, IsASheetOfTheSiteWindowAtPageOne) {
    show();
    EXPECT_EQ(controller->window()->attachedSheet(), toolbar->configurationWindow());
    EXPECT_THAT(pagesShown(), ElementsAre(toolbar->page1()));
}

TEST_F(SelectionWindow, EveryShowingEmptiesTheContentFirst) {
    show();
    toolbar->continueClicked({});
    const auto content = toolbar->configurationWindow()->contentView();
    content->addSubview(std::make_shared<View>());
    toolbar->cancelClicked({});
    show();
    EXPECT_THAT(pagesShown(), ElementsAre(toolbar->page1()));
}

TEST_F(SelectionWindow, EveryRowMayBeSelectedAndBringsItsTexts) {
    show();
    EXPECT_TRUE(toolbar->tableView()->clickRow(4));
    EXPECT_EQ(toolbar->dashboardTitle(), "Clean Slate");
    EXPECT_EQ(toolbar->descriptionView()->stringValue(),
              "This Dashboard starts in edit mode and contains a single text field.\n\n"
              "Use this as a starting point for your own custom dashboard.");
    EXPECT_TRUE(toolbar->tableViewShouldSelectRow({}, 1));
    EXPECT_EQ(toolbar->dashboardTitle(), "Current Weather");
}

TEST_F(SelectionWindow, PagesTurnOnlyFromTheRightOne) {
    show();
    toolbar->backClicked({});
    EXPECT_THAT(pagesShown(), ElementsAre(toolbar->page1()));
    toolbar->continueClicked({});
    toolbar->continueClicked({});
    EXPECT_THAT(pagesShown(), ElementsAre(toolbar->page2()));
    toolbar->backClicked({});
    EXPECT_THAT(pagesShown(), ElementsAre(toolbar->page1()));
}

TEST_F(SelectionWindow, PagesTurnOnlyWhereTheyComeFirst) {
    show();
    const auto content = toolbar->configurationWindow()->contentView();
    const auto other = std::make_shared<View>();
    toolbar->page1()->removeFromSuperview();
    content->addSubview(other);
    content->addSubview(toolbar->page1());
    toolbar->continueClicked({});
    EXPECT_THAT(pagesShown(), ElementsAre(other, toolbar->page1()));
}

TEST_F(SelectionWindow, DoneAddsTheSelectedEntryWithTheTitleThatWasTaken) {
    show();
    toolbar->tableView()->clickRow(3);
    toolbar->setDashboardTitle("Own title");
    toolbar->doneClicked({});
    EXPECT_THAT(titles(), ElementsAre("Own title"));
    EXPECT_EQ(controller->selectedIndex(), 0);
    EXPECT_FALSE(controller->window()->attachedSheet());
}

TEST_F(SelectionWindow, DoneWithoutItsResourceAddsNothing) {
    show();
    toolbar->tableView()->clickRow(2);
    toolbar->doneClicked({});
    EXPECT_THAT(titles(), IsEmpty());
    EXPECT_THAT(toolkit.sheets, IsEmpty());
}

TEST_F(SelectionWindow, DoneWithoutASelectionAddsNothing) {
    show();
    toolbar->tableView()->selectRow(-1);
    toolbar->doneClicked({});
    EXPECT_THAT(titles(), IsEmpty());
}

TEST_F(SelectionWindow, OtherEndsAddNothing) {
    show();
    toolbar->cancelClicked({});
    show();
    controller->window()->endSheet(toolbar->configurationWindow(), 7);
    EXPECT_THAT(titles(), IsEmpty());
    EXPECT_THAT(toolkit.sheets, IsEmpty());
}

TEST_F(SelectionWindow, ImportEndsItBeforeAskingForAFile) {
    toolkit.holdAnswers = true;
    show();
    toolbar->importClicked({});
    EXPECT_FALSE(controller->window()->attachedSheet());
    ASSERT_EQ(toolkit.sheets.size(), 1u);
    EXPECT_EQ(toolkit.sheets[0]->kind, "open");
    EXPECT_EQ(toolkit.sheets[0]->window, controller->window().get());
}

TEST_F(SelectionWindow, WithoutItsFileTheToolbarItemDoesNothing) {
    plugInBundle().remove("SelectionWindow.ui");
    show();
    toolbar->doneClicked({});
    toolbar->continueClicked({});
    EXPECT_THAT(loads, IsEmpty());
    EXPECT_FALSE(controller->window()->attachedSheet());
    EXPECT_THAT(titles(), IsEmpty());
}

TEST_F(SelectionWindow, ItsCompletionHoldsThePlugInWeakly) {
    show();
    const std::weak_ptr<Object> weak = toolbar;
    const auto window = toolbar->configurationWindow();
    toolbar.reset();
    EXPECT_TRUE(weak.expired());
    controller->window()->endSheet(window, 1);
    EXPECT_THAT(titles(), IsEmpty());
}

class Preview : public SelectionWindow {
protected:
    void SetUp() override {
        SelectionWindow::SetUp();
        show();
        preview->setFrame({0, 0, 300, 200});
        preview->setOwner(toolbar);
        toolbar->tableView()->addSelectionAction({preview, "takeRowFrom:"});
    }
    std::string drawn() {
        RecordingContext context;
        preview->drawRect(context, preview->bounds());
        return context.text();
    }
    std::shared_ptr<ZORDashboardPreviewView> preview = std::make_shared<ZORDashboardPreviewView>();
};

TEST_F(Preview, DrawsTheSelectedEntryAndAddsNothing) {
    toolbar->tableView()->clickRow(4);
    EXPECT_THAT(drawn(), ::testing::HasSubstr("<INSERT TITLE HERE>"));
    EXPECT_THAT(drawn(), ::testing::Not(::testing::HasSubstr("No preview")));
    EXPECT_THAT(titles(), IsEmpty());
}

TEST_F(Preview, SaysWhereThereIsNone) {
    EXPECT_THAT(drawn(), ::testing::HasSubstr("No preview"));
    toolbar->tableView()->clickRow(2);
    EXPECT_THAT(drawn(), ::testing::HasSubstr("No preview"));
}

TEST_F(Preview, CarriesTheTitleAsACaption) {
    preview->setCaptioned(true);
    toolbar->tableView()->clickRow(4);
    EXPECT_THAT(drawn(), ::testing::HasSubstr("Clean Slate"));
}

TEST_F(Preview, FollowsWhatItsDashboardShows) {
    give({"outdoorTemperature"});
    toolbar->page1()->addSubview(preview);
    controller->window()->show();
    const auto window = toolbar->configurationWindow();
    const auto peer = std::make_shared<FakeWindowPeer>();
    window->setPeer(peer);
    toolbar->tableView()->clickRow(1);
    drawn();
    peer->damage.clear();
    property("outdoorTemperature")->setValue(12, 1);
    EXPECT_THAT(peer->damage, ::testing::Not(IsEmpty()));
}

class List : public SelectionWindow {
protected:
    void SetUp() override {
        SelectionWindow::SetUp();
        show();
        list->setFrame({0, 0, 300, 460});
        list->setOwner(toolbar);
        list->setDelegate(toolbar);
        list->setRows(toolbar->tableView()->rows());
        toolbar->page1()->addSubview(list);
    }
    std::string drawn() {
        RecordingContext context;
        list->drawRect(context, list->bounds());
        return context.text();
    }
    std::shared_ptr<ZORDashboardListView> list = std::make_shared<ZORDashboardListView>();
};

TEST_F(List, RowsLieOneBelowTheOtherAndFillTheList) {
    EXPECT_EQ(list->rectOfRow(0).y, 6);
    for (int row = 1; row < 5; ++row) EXPECT_EQ(list->rectOfRow(row).y, list->rectOfRow(row - 1).maxY());
    EXPECT_LE(list->rectOfRow(4).maxY(), list->bounds().maxY());
}

TEST_F(List, EachRowHasItsTitleAndThePictureOfItsDashboard) {
    const std::string text = drawn();
    for (const auto& title : list->rows()) EXPECT_THAT(text, ::testing::HasSubstr(title));
    EXPECT_THAT(text, ::testing::HasSubstr("<INSERT TITLE HERE>"));
    // The catalogue's file is not there.
    EXPECT_THAT(text, ::testing::HasSubstr("No preview"));
    EXPECT_THAT(titles(), IsEmpty());
    EXPECT_EQ(toolbar->dashboardTitle(), "Standard Dashboard");
}

TEST_F(List, APressOnAPictureSelectsItsRow) {
    const Rect row = list->rectOfRow(2);
    toolbar->configurationWindow()->sendEvent(Event::mouse(EventType::mouseDown, {row.x + 40, row.center().y}, 0, 1));
    EXPECT_EQ(list->selectedRow(), 2);
    EXPECT_EQ(toolbar->dashboardTitle(), "Hi-Def Dashboard");
}

TEST_F(List, ANewValueDrawsTheRowsAgainThatShowIt) {
    give({"outdoorTemperature"});
    const auto peer = std::make_shared<FakeWindowPeer>();
    toolbar->configurationWindow()->setPeer(peer);
    drawn();
    peer->damage.clear();
    property("outdoorTemperature")->setValue(12, 1);
    ASSERT_THAT(peer->damage, ::testing::Not(IsEmpty()));
    bool isCurrentWeatherDamaged = false;
    for (const auto& rect : peer->damage) {
        isCurrentWeatherDamaged |= intersectsRect(rect, list->rectOfRow(1));
        EXPECT_FALSE(intersectsRect(rect, list->rectOfRow(4)));
    }
    EXPECT_TRUE(isCurrentWeatherDamaged);
}

}  // namespace
}  // namespace zor


#include "host/instruments/ZORPlotView.h"
#include "tests/dashboard/DashboardSupport.h"

namespace zor {
namespace {

using test::box;
using test::canvasOf;
using test::dashboardOf;
using test::dashboardRead;
using test::nan;
using test::reopened;
using test::widgetsOn;
using ::testing::ElementsAre;

std::shared_ptr<ZORDashboardEditView> canvasWith(const Rect& frame) {
    return ZORDashboardEditView::initWithFrame(frame);
}

TEST(DashboardWriting, FollowsTheBaseClassWithTitleSelectionCanvas) {
    const auto dashboard = dashboardOf({box({10, 20, 100, 50})});
    test::WritingOrder coder;
    dashboard->encodeWithCoder(coder);
    EXPECT_THAT(coder.keys(), ElementsAre("agent", "uniqueIdentifier", "title", "selectedObjects", "editView"));
    EXPECT_EQ(coder.valueOf("title"), Value("Unnamed"));
    EXPECT_EQ(coder.valueOf("editView"), Value(dashboard->editView()));
}

TEST(DashboardWriting, HoldsTheSelectionInItsOrder) {
    const auto a = box({0, 0, 10, 10}), b = box({20, 0, 10, 10});
    const auto dashboard = dashboardOf({a, b});
    dashboard->selectObject(b);
    dashboard->selectObject(a);
    test::WritingOrder coder;
    dashboard->encodeWithCoder(coder);
    EXPECT_EQ(coder.valueOf("selectedObjects"), Value(Value::Array{b, a}));
}

TEST(DashboardWriting, MendsAnAbsentTitleOnlyAfterwards) {
    const auto dashboard = dashboardOf({});
    dashboard->setTitle({});
    test::WritingOrder coder;
    dashboard->encodeWithCoder(coder);
    EXPECT_TRUE(coder.valueOf("title").isAbsent());
    EXPECT_EQ(dashboard->title(), "Unnamed");
}

TEST(DashboardArchive, SavedWithoutATitleReadsBackWithoutOne) {
    const auto dashboard = dashboardOf({});
    dashboard->setTitle({});
    const auto read = reopened(dashboard);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->title(), std::nullopt);
    EXPECT_EQ(dashboard->title(), "Unnamed");
    // Written again, it is named.
    EXPECT_EQ(reopened(dashboard)->title(), "Unnamed");
}

TEST(DashboardArchive, KeepsTitleCanvasAndWidgets) {
    const auto first = test::label({10, 20, 100, 50}, "Hello");
    first->setTitle("Greeting");
    const auto dashboard = dashboardOf({first, box({200, 40, 30, 30})});
    dashboard->setTitle("Weather");
    const auto read = reopened(dashboard);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->title(), "Weather");
    EXPECT_EQ(read->editView()->frame(), (Rect{0, 0, 240, 90}));
    const auto widgets = widgetsOn(read->editView());
    EXPECT_EQ(test::framesOf(widgets), (std::vector<Rect>{{10, 20, 100, 50}, {200, 40, 30, 30}}));
    EXPECT_THAT(test::zOrdersOn(read->editView()), ElementsAre(1, 2));
    EXPECT_EQ(widgets[0]->title(), "Greeting");
    EXPECT_EQ(widgets[0]->instrument()->text(), "Hello");
    EXPECT_EQ(read->uniqueIdentifier(), dashboard->uniqueIdentifier());
}

TEST(DashboardArchive, ZeroSizedCanvasBecomesTheDefault) {
    EXPECT_EQ(reopened(dashboardOf({}))->editView()->frame(), (Rect{0, 0, 1024, 1024}));
}

TEST(DashboardArchive, EitherSideZeroSuffices) {
    for (const Rect frame : {Rect{0, 0, 0, 500}, Rect{0, 0, 500, 0}, Rect{30, 40, 0, 0}, Rect{0, 0, 0, nan}}) {
        const auto read = dashboardRead({{"editView", canvasWith(frame)}});
        EXPECT_EQ(read->editView()->frame(), (Rect{0, 0, 1024, 1024})) << stringFromRect(frame);
    }
    auto dashboard = dashboardOf({});
    dashboard->editView()->setFrame({0, 0, 0, 500});
    EXPECT_EQ(reopened(dashboard)->editView()->frame(), (Rect{0, 0, 1024, 1024}));
}

TEST(DashboardArchive, NotANumberIsASizeOfItsOwn) {
    const auto read = dashboardRead({{"editView", canvasWith({0, 0, nan, 500})}});
    EXPECT_NE(read->editView()->frame().width, 1024);
    EXPECT_EQ(read->editView()->frame().height, 500);
}

TEST(DashboardArchive, OtherSizesStayAsTheyAre) {
    const auto read = dashboardRead({{"editView", canvasWith({3, 4, -5, 0.5})}});
    EXPECT_EQ(read->editView()->frame(), (Rect{3, 4, -5, 0.5}));
}

TEST(DashboardArchive, SelectionReadsBackAsTheVeryWidgetsOfTheCanvas) {
    const auto a = box({0, 0, 10, 10}), b = box({20, 0, 10, 10}), c = box({40, 0, 10, 10});
    const auto dashboard = dashboardOf({a, b, c});
    dashboard->selectObject(c);
    dashboard->selectObject(a);
    const auto read = reopened(dashboard);
    const auto widgets = widgetsOn(read->editView());
    ASSERT_EQ(widgets.size(), 3u);
    EXPECT_THAT(read->selectedObjects(), ElementsAre(widgets[2], widgets[0]));
    EXPECT_THAT(test::eachOf(widgets, &ZORWidgetHostView::selected), ElementsAre(true, false, true));
}

TEST(DashboardArchive, BeginsWithAnEmptyHistoryAndWithoutTheWidgetsHandedOnce) {
    const auto dashboard = dashboardOf({box({0, 0, 10, 10})});
    dashboard->undoManager()->registerUndoWithTarget(dashboard, [](Object&) {});
    const auto read = reopened(dashboard);
    ASSERT_TRUE(read->undoManager());
    EXPECT_EQ(read->undoManager()->depth(), 0);
    EXPECT_FALSE(read->widgets());
    EXPECT_FALSE(read->propertyPanelController());
}

TEST(DashboardArchive, APlotIsBoundToTheReadingDashboardsAgent) {
    const auto writer = Agent::withName("Writer"), reader = Agent::withName("Reader");
    const auto plot = ZORWidgetHostView::plotViewWithRect({10, 12, 480, 360}, writer);
    const auto dashboard = ZORDashboardPlugIn::initWithAgent(writer, {}, WidgetList{box({0, 0, 10, 10}), plot});
    const auto read = reopened(dashboard, reader);
    EXPECT_EQ(read->agent(), reader);
    const auto target = std::dynamic_pointer_cast<ZORPlotView>(widgetsOn(read->editView())[1]->targetView());
    ASSERT_TRUE(target);
    EXPECT_EQ(target->agent(), reader);
}

TEST(DashboardArchive, WidgetsAreBoundToTheReadingAgentsPropertiesByName) {
    const auto writer = Agent::withName("Writer"), reader = Agent::withName("Reader");
    const auto theirs = writer->addProperty("outdoorTemperature", "Outdoor Temperature", Quantity::temperature);
    const auto ours = reader->addProperty("outdoorTemperature", "Outdoor Temperature", Quantity::temperature);
    const auto field = ZORWidgetHostView::textFieldWithRect({0, 0, 100, 20});
    std::dynamic_pointer_cast<LinkedInstrumentView>(field->targetView())->setProperty(theirs);
    const auto read = reopened(ZORDashboardPlugIn::initWithAgent(writer, {}, WidgetList{field}), reader);
    const auto target = std::dynamic_pointer_cast<LinkedInstrumentView>(widgetsOn(read->editView())[0]->targetView());
    ASSERT_TRUE(target);
    EXPECT_EQ(target->property(), ours);
}

TEST(DashboardReading, AbsentKeysGiveAbsentValues) {
    const auto read = dashboardRead({});
    ASSERT_TRUE(read);
    EXPECT_FALSE(read->title());
    EXPECT_FALSE(read->editView());
    EXPECT_TRUE(read->selectedObjects().empty());
    EXPECT_TRUE(read->undoManager());
}

TEST(DashboardReading, ADashboardWithoutACanvasToleratesEverything) {
    FakeToolkit::install();
    const auto source = dashboardOf({box({0, 0, 10, 10})});
    source->selectAllObjects();
    source->copySelection({});
    const auto read = dashboardRead({});
    read->view();
    read->setSelectedObjects({box({0, 0, 10, 10}), box({0, 5, 10, 10})});
    read->alignTopEdges({});
    read->undoManager()->undo();
    read->duplicateObject({});
    read->editDashboard({});
    read->selectAllObjects();
    read->exitEditMode({});
    read->addBox({});
    read->bringToFront({});
    read->sendToBack({});
    read->deleteObject({});
    read->paste({});
    read->undo({});
    read->selectAll({});
    read->exportDashboard({});
    read->mouseDown(Event::mouse(EventType::mouseDown, {1, 1}, 0, 1));
    read->mouseDragged(Event::mouse(EventType::mouseDragged, {2, 2}, 0, 1));
    read->mouseUp(Event::mouse(EventType::mouseUp, {2, 2}, 0, 1));
    read->rightMouseDown(Event::mouse(EventType::rightMouseDown, {1, 1}, 0, 1));
    read->keyDown(Event::key(u"d", 2, commandKeyMask));
    EXPECT_FALSE(read->editView());
    const auto again = reopened(read);
    ASSERT_TRUE(again);
    EXPECT_FALSE(again->editView());
}

}  // namespace
}  // namespace zor

#include "host/instruments/ZORPlotView.h"
#include "tests/dashboard/EditorFixture.h"

namespace zor {
namespace {

using test::widgetsOn;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Kind {
    std::string action;
    std::string menuTitle;
    std::string kind;
    Size size;
};

void PrintTo(const Kind& kind, std::ostream* stream) {
    *stream << kind.action;
}

const std::vector<Kind> kinds{{"addTextLabel:", "Add Text Label", "textField", {256, 40}},
                              {"addDateTimeLabel:", "", "dateTimeField", {256, 40}},
                              {"addBox:", "Add Box", "box", {256, 256}},
                              {"addImage:", "Add Image", "imageView", {256, 256}},
                              {"addLED:", "Add LED", "led", {40, 40}},
                              {"addMapView:", "Add Map View", "mapView", {240, 240}},
                              {"addWebView:", "Add Web View", "webView", {240, 240}},
                              {"addPlot:", "Add Plot", "plotView", {480, 360}},
                              {"addLevelIndicator:", "Add Level Indicator", "levelIndicator", {180, 34}},
                              {"addRoundGauge:", "Add Round Gauge", "roundGauge", {240, 240}},
                              {"addLinearGauge:", "Add Linear Gauge", "linearGauge", {112, 512}}};

class Insertion : public test::HostedDashboard {
protected:
    Insertion() { hostForEditing({}, {1000, 800}); }
    std::shared_ptr<ZORWidgetHostView> added() const { return widgetsOn(canvas).back(); }
    /// Where a widget lands whose reference point is there.
    Rect placed(Point reference, void (ZORDashboardPlugIn::*add)(const ObjectPtr&)) {
        dashboard->setClickOffsetX(reference.x);
        dashboard->setClickOffsetY(reference.y);
        (*dashboard.*add)({});
        return added()->frame();
    }
};

class InsertionOfKind : public Insertion, public ::testing::WithParamInterface<Kind> {};

TEST_P(InsertionOfKind, PutsItsKindAtItsSizeUpAndLeftOfThePress) {
    rightPress({100, 110});
    dashboard->performWithSender(GetParam().action, canvas);
    ASSERT_EQ(widgetsOn(canvas).size(), 1u);
    EXPECT_EQ(added()->kind(), GetParam().kind);
    EXPECT_EQ(added()->frame(), (Rect{80, 90, GetParam().size.width, GetParam().size.height}));
    EXPECT_TRUE(added()->editable());
    EXPECT_FALSE(added()->selected());
    EXPECT_EQ(added()->zOrder(), 1);
    EXPECT_EQ(added()->title(), std::nullopt);
}

TEST_P(InsertionOfKind, IsWhatItsMenuItemDoes) {
    if (GetParam().menuTitle.empty()) return;
    rightPress({100, 110});
    EXPECT_TRUE(menu()->performItemWithTitle(GetParam().menuTitle));
    ASSERT_EQ(widgetsOn(canvas).size(), 1u);
    EXPECT_EQ(added()->kind(), GetParam().kind);
}

TEST_P(InsertionOfKind, OneUndoTakesItAwayAndRedoBringsNothing) {
    rightPress({100, 110});
    dashboard->performWithSender(GetParam().action, {});
    EXPECT_EQ(undoSteps(), 1);
    dashboard->undo({});
    EXPECT_THAT(widgetsOn(canvas), IsEmpty());
    dashboard->redo({});
    EXPECT_THAT(widgetsOn(canvas), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(EveryKind, InsertionOfKind, ::testing::ValuesIn(kinds),
                         [](const auto& test) { return test.param.action.substr(0, test.param.action.size() - 1); });

TEST_F(Insertion, NearTheTopLeftCornerItLandsInTheCorner) {
    rightPress({10, 10});
    menu()->performItemWithTitle("Add Text Label");
    EXPECT_EQ(added()->frame(), (Rect{0, 0, 256, 40}));
}

TEST_F(Insertion, OneSideOutsideSuffices) {
    EXPECT_EQ(placed({10, 300}, &ZORDashboardPlugIn::addLED), (Rect{0, 0, 40, 40}));
    EXPECT_EQ(placed({300, 10}, &ZORDashboardPlugIn::addLED), (Rect{0, 0, 40, 40}));
}

TEST_F(Insertion, NearTheFarEdgesItLandsInTheCornerToo) {
    EXPECT_EQ(placed({990, 300}, &ZORDashboardPlugIn::addLED), (Rect{0, 0, 40, 40}));
    EXPECT_EQ(placed({300, 790}, &ZORDashboardPlugIn::addLED), (Rect{0, 0, 40, 40}));
}

TEST_F(Insertion, TouchingTheEdgesIsWithin) {
    EXPECT_EQ(placed({20, 20}, &ZORDashboardPlugIn::addLED), (Rect{0, 0, 40, 40}));
    EXPECT_EQ(placed({980, 780}, &ZORDashboardPlugIn::addLED), (Rect{960, 760, 40, 40}));
    EXPECT_EQ(placed({980.5, 780}, &ZORDashboardPlugIn::addLED), (Rect{0, 0, 40, 40}));
}

TEST_F(Insertion, AWidgetLargerThanTheCanvasKeepsItsSize) {
    canvas->setFrame({0, 0, 100, 100});
    EXPECT_EQ(placed({50, 50}, &ZORDashboardPlugIn::addPlot), (Rect{0, 0, 480, 360}));
}

TEST_F(Insertion, TheCanvassFrameCountsNotItsBounds) {
    canvas->setFrame({50, 60, 400, 400});
    EXPECT_EQ(placed({75, 85}, &ZORDashboardPlugIn::addLED), (Rect{55, 65, 40, 40}));
    EXPECT_EQ(placed({60, 85}, &ZORDashboardPlugIn::addLED), (Rect{0, 0, 40, 40}));
    EXPECT_EQ(placed({430, 440}, &ZORDashboardPlugIn::addLED), (Rect{410, 420, 40, 40}));
}

TEST_F(Insertion, OnAWidgetThePlaceIsRelativeToItsCorner) {
    canvas->addSubview(test::box({500, 400, 100, 100}));
    rightPress({530, 425});
    menu()->performItemWithTitle("Add Text Label");
    EXPECT_EQ(added()->frame(), (Rect{10, 5, 256, 40}));
}

TEST_F(Insertion, GoesOnTopAndRenumbers) {
    canvas->addSubview(test::box({500, 400, 100, 100}));
    canvas->addSubview(test::box({600, 400, 100, 100}));
    widgetsOn(canvas)[0]->setZOrder(-4);
    dashboard->addLED({});
    EXPECT_THAT(test::zOrdersOn(canvas), ElementsAre(1, 2, 3));
    EXPECT_EQ(added()->kind(), "led");
}

TEST_F(Insertion, LeavesTheSelectionAsItWas) {
    const auto widget = test::box({500, 400, 100, 100});
    canvas->addSubview(widget);
    dashboard->selectObject(widget);
    dashboard->addLED({});
    EXPECT_THAT(selection(), ElementsAre(widget));
}

TEST_F(Insertion, TheWidgetIsAsEditableAsTheCanvas) {
    dashboard->exitEditMode({});
    dashboard->addLED({});
    EXPECT_FALSE(added()->editable());
}

TEST_F(Insertion, APlotHasTheDashboardsAgent) {
    dashboard->addPlot({});
    const auto plot = std::dynamic_pointer_cast<ZORPlotView>(added()->targetView());
    ASSERT_TRUE(plot);
    EXPECT_EQ(plot->agent(), agent);
}

TEST_F(Insertion, UndoingRemovesThatWidgetWhereverItStands) {
    dashboard->addLED({});
    const auto first = added();
    dashboard->addBox({});
    const auto second = added();
    canvas->addSubview(first);
    dashboard->undo({});
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(first));
    first->removeFromSuperview();
    dashboard->undo({});
    EXPECT_THAT(widgetsOn(canvas), IsEmpty());
}

}  // namespace
}  // namespace zor

#include <cmath>
#include <limits>
#include <set>

#include "host/instruments/ZORBoxView.h"
#include "host/instruments/ZORPlotView.h"
#include "host/instruments/ZORTextFieldView.h"
#include "tests/host/instruments/InstrumentSupport.h"

namespace zor {
namespace {

using test::TestCanvas;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

class Widget : public ::testing::Test {
protected:
    void SetUp() override { FakeToolkit::install(); }
    std::shared_ptr<ZORWidgetHostView> widget = ZORWidgetHostView::textFieldWithRect({40, 50, 200, 40});
};

TEST_F(Widget, ComesFromAFactoryWithItsFrameAndNothingElse) {
    EXPECT_EQ(widget->frame(), (Rect{40, 50, 200, 40}));
    EXPECT_EQ(widget->kind(), "textField");
    EXPECT_FALSE(widget->title());
    EXPECT_EQ(widget->zOrder(), 0);
    EXPECT_FALSE(widget->selected());
    EXPECT_FALSE(widget->allowResize());
    EXPECT_FALSE(widget->editable());
    EXPECT_FALSE(widget->inLiveResize());
    EXPECT_EQ(widget->mouseDownPoint(), (Point{0, 0}));
    ASSERT_EQ(widget->subviews().size(), 1u);
    EXPECT_EQ(widget->subviews()[0], widget->targetView());
    EXPECT_EQ(widget->targetView()->frame(), (Rect{0, 0, 200, 40}));
}

TEST_F(Widget, EveryKindHasItsFactoryAndClass) {
    const std::vector<std::pair<const char*, const char*>> expected{
        {"textField", "ZORTextFieldView"},
        {"dateTimeField", "ZORDateTimeFieldView"},
        {"box", "ZORBoxView"},
        {"imageView", "ZORImageView"},
        {"led", "ZORLEDView"},
        {"mapView", "ZORMapView"},
        {"webView", "ZORWebView"},
        {"plotView", "ZORPlotView"},
        {"roundGauge", "ZORRoundGaugeView"},
        {"levelIndicator", "ZORLevelIndicatorView"},
        {"linearGauge", "ZORLinearGaugeView"},
    };
    for (const auto& [kind, name] : expected) {
        const auto made = ZORWidgetHostView::widgetOfKind(kind, {1, 2, 30, 40}, {});
        ASSERT_TRUE(made) << kind;
        EXPECT_EQ(made->frame(), (Rect{1, 2, 30, 40})) << kind;
        EXPECT_EQ(made->kind(), kind);
        EXPECT_EQ(made->targetView()->classRecord().name(), name);
        EXPECT_EQ(made->targetView()->frame(), (Rect{0, 0, 30, 40})) << kind;
        EXPECT_FALSE(made->title()) << kind;
    }
    EXPECT_FALSE(ZORWidgetHostView::widgetOfKind("container", {}, {}));
    EXPECT_FALSE(ZORWidgetHostView::widgetOfKind("", {}, {}));
}

TEST_F(Widget, ThePlotIsBoundToTheAgent) {
    const auto agent = Agent::withName("Garden");
    const auto plot = ZORWidgetHostView::plotViewWithRect({0, 0, 100, 100}, agent);
    EXPECT_EQ(std::dynamic_pointer_cast<ZORPlotView>(plot->targetView())->agent(), agent);
}

TEST_F(Widget, TheInstrumentFollowsItsSize) {
    widget->setFrame({5, 6, 300, 90});
    EXPECT_EQ(widget->targetView()->frame(), (Rect{0, 0, 300, 90}));
    widget->setFrameWidth(120);
    widget->setFrameHeight(30);
    EXPECT_EQ(widget->targetView()->frame(), (Rect{0, 0, 120, 30}));
}

TEST_F(Widget, HasEachCoordinateOfItsFrame) {
    widget->setFrameXCoordinate(-7.25);
    widget->setFrameYCoordinate(1e-9);
    widget->setFrameWidth(0);
    widget->setFrameHeight(3);
    EXPECT_EQ(widget->frame(), (Rect{-7.25, 1e-9, 0, 3}));
    EXPECT_EQ(widget->frameXCoordinate(), -7.25);
    EXPECT_EQ(widget->frameYCoordinate(), 1e-9);
    EXPECT_EQ(widget->frameWidth(), 0);
    EXPECT_EQ(widget->frameHeight(), 3);
}

TEST_F(Widget, AnotherTargetTakesThePlaceOfTheFirst) {
    const auto box = std::make_shared<ZORBoxView>();
    widget->setTargetView(box);
    EXPECT_EQ(widget->subviews(), (std::vector<std::shared_ptr<View>>{box}));
    EXPECT_EQ(box->frame(), (Rect{0, 0, 200, 40}));
    widget->setTargetView(box);
    EXPECT_EQ(widget->targetView(), box);
    widget->setTargetView({});
    EXPECT_FALSE(widget->targetView());
    EXPECT_EQ(widget->kind(), "");
    EXPECT_TRUE(widget->properties().empty());
}

TEST_F(Widget, ACanvasKeepsItsOwnSize) {
    const auto container = ZORWidgetHostView::initWithFrame({0, 0, 500, 400});
    const auto canvas = std::make_shared<TestCanvas>(Rect{0, 0, 300, 200});
    container->setTargetView(canvas);
    EXPECT_EQ(canvas->frame(), (Rect{0, 0, 300, 200}));
    EXPECT_EQ(container->kind(), "container");
    container->setFrame({0, 0, 50, 50});
    EXPECT_EQ(canvas->frame(), (Rect{0, 0, 300, 200}));
    const auto other = std::make_shared<TestCanvas>(Rect{0, 0, 10, 20});
    container->replaceSubview(canvas, other);
    EXPECT_EQ(container->targetView(), other);
    EXPECT_EQ(container->kind(), "container");
}

TEST_F(Widget, TheContainerIsWhitePaperUnderItsCanvas) {
    const auto container = ZORWidgetHostView::initWithFrame({0, 0, 500, 400});
    EXPECT_TRUE(test::drawn(*container).operations().empty());
    container->setTargetView(std::make_shared<TestCanvas>(Rect{0, 0, 300, 200}));
    const auto operations = test::drawn(*container).operations();
    ASSERT_EQ(operations.size(), 1u);
    EXPECT_EQ(operations[0].rect, (Rect{0, 0, 300, 200}));
    EXPECT_EQ(operations[0].color, Color::white());
    EXPECT_TRUE(test::drawn(*widget).operations().empty());
}

TEST_F(Widget, OffersTheSettingsOfItsInstrument) {
    EXPECT_EQ(&widget->properties(), &widget->instrument()->settings());
    EXPECT_FALSE(widget->properties().empty());
}

TEST_F(Widget, HashesAreNeverUsedTwice) {
    std::set<std::int64_t> hashes{widget->hash()};
    std::int64_t last = widget->hash();
    for (int i = 0; i < 100; ++i) {
        const auto hash = ZORWidgetHostView::boxWithRect({})->hash();
        EXPECT_GT(hash, last);
        last = hash;
    }
    const auto copy = std::dynamic_pointer_cast<ZORWidgetHostView>(widget->copy());
    EXPECT_GT(copy->hash(), last);
}

TEST_F(Widget, ACopyHasWhatStaysAndNothingOfASelectionOrGesture) {
    widget->setZOrder(-3);
    widget->setTitle("Temperature");
    widget->setEditable(true);
    widget->setSelected(true);
    widget->setAllowResize(true);
    widget->setInLiveResize(true);
    widget->setMouseDownRelativeOffset({1, 2});
    widget->setMouseDownPoint({3, 4});
    widget->setClickOffsetX(5);
    widget->setClickOffsetY(6);
    const auto field = std::dynamic_pointer_cast<ZORTextFieldView>(widget->targetView());
    field->setStringToDraw("Hello");

    const auto copy = std::dynamic_pointer_cast<ZORWidgetHostView>(widget->copy());
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->frame(), (Rect{40, 50, 200, 40}));
    EXPECT_EQ(copy->zOrder(), -3);
    EXPECT_EQ(copy->title(), "Temperature");
    EXPECT_TRUE(copy->editable());
    EXPECT_FALSE(copy->selected());
    EXPECT_FALSE(copy->allowResize());
    EXPECT_FALSE(copy->inLiveResize());
    EXPECT_EQ(copy->mouseDownRelativeOffset(), (Point{0, 0}));
    EXPECT_EQ(copy->mouseDownPoint(), (Point{0, 0}));
    EXPECT_EQ(copy->clickOffsetX(), 0);
    EXPECT_EQ(copy->clickOffsetY(), 0);
    EXPECT_FALSE(copy->superview());
    const auto copied = std::dynamic_pointer_cast<ZORTextFieldView>(copy->targetView());
    ASSERT_TRUE(copied);
    EXPECT_NE(copied, field);
    EXPECT_EQ(copied->stringToDraw(), "Hello");
    copied->setStringToDraw("Bye");
    EXPECT_EQ(field->stringToDraw(), "Hello");
}

TEST_F(Widget, EveryKindCanBeCopied) {
    for (const char* kind : {"textField", "dateTimeField", "box", "imageView", "led", "mapView", "webView", "plotView",
                             "levelIndicator", "roundGauge", "linearGauge"}) {
        const auto made = ZORWidgetHostView::widgetOfKind(kind, {1, 2, 30, 40}, {});
        const auto copy = std::dynamic_pointer_cast<ZORWidgetHostView>(made->copy());
        ASSERT_TRUE(copy) << kind;
        EXPECT_EQ(copy->kind(), kind);
        EXPECT_NE(copy->targetView(), made->targetView());
    }
}

TEST_F(Widget, ShowsItsStateByName) {
    widget->setTitle("Temperature");
    EXPECT_EQ(widget->valueForKey("frame"), Value(Rect{40, 50, 200, 40}));
    EXPECT_EQ(widget->valueForKey("frameXCoordinate"), Value(40.0));
    EXPECT_EQ(widget->valueForKey("kind"), Value("textField"));
    EXPECT_EQ(widget->valueForKey("title"), Value("Temperature"));
    EXPECT_EQ(widget->valueForKey("zOrder"), Value(0));
    EXPECT_EQ(widget->valueForKey("hash"), Value(widget->hash()));
    EXPECT_EQ(widget->valueForKey("targetView").asObject(), widget->targetView());
    EXPECT_TRUE(widget->setValueForKey("title", Value()));
    EXPECT_FALSE(widget->title());
    EXPECT_TRUE(widget->setValueForKey("clickOffsetX", 2.5));
    EXPECT_EQ(widget->clickOffsetX(), 2.5);
    EXPECT_TRUE(widget->setValueForKey("mouseDownPoint", Point{7, 8}));
    EXPECT_EQ(widget->mouseDownPoint(), (Point{7, 8}));
    EXPECT_TRUE(widget->setValueForKey("inLiveResize", true));
    EXPECT_TRUE(widget->inLiveResize());
    EXPECT_FALSE(widget->setValueForKey("zOrder", "top"));
    EXPECT_FALSE(widget->setValueForKey("hash", 7));
    EXPECT_TRUE(widget->setValueForKey("frame", Rect{1, 2, 3, 4}));
    EXPECT_EQ(widget->targetView()->frame(), (Rect{0, 0, 3, 4}));
}

TEST_F(Widget, AFrameThatIsNoneIsKeptAndDrawsNothing) {
    widget->setSelected(true);
    widget->setAllowResize(true);
    widget->setFrameWidth(nan);
    EXPECT_TRUE(std::isnan(widget->frameWidth()));
    RecordingContext context;
    widget->drawRect(context, widget->bounds());
    widget->drawOverlay(context, widget->bounds());
    widget->targetView()->drawRect(context, widget->bounds());
    EXPECT_TRUE(context.operations().empty());
}

TEST_F(Widget, TheSelectionLookStaysInsideTheFrame) {
    RecordingContext context;
    widget->drawOverlay(context, widget->bounds());
    EXPECT_TRUE(context.operations().empty());
    widget->setSelected(true);
    widget->drawOverlay(context, widget->bounds());
    const auto strokes = context.operationsNamed("strokePath");
    ASSERT_EQ(strokes.size(), 2u);
    EXPECT_EQ(strokes[1].path.bounds(), (Rect{1, 1, 198, 38}));
    EXPECT_EQ(strokes[1].stroke.width, 2);
    EXPECT_EQ(strokes[1].stroke.color, Color::rgb(0x0a6ed1));
}

TEST_F(Widget, TheHandleIsDrawnInTheCornerWhereItCanBeUsed) {
    widget->setAllowResize(true);
    RecordingContext context;
    widget->drawOverlay(context, widget->bounds());
    const auto fills = context.operationsNamed("fillPath");
    ASSERT_EQ(fills.size(), 1u);
    EXPECT_EQ(fills[0].path.bounds(), (Rect{188, 28, 12, 12}));

    const auto container = ZORWidgetHostView::initWithFrame({0, 0, 300, 200});
    container->setTargetView(std::make_shared<TestCanvas>(Rect{0, 0, 300, 200}));
    container->setAllowResize(true);
    RecordingContext other;
    container->drawOverlay(other, container->bounds());
    EXPECT_TRUE(other.operations().empty());
}

TEST_F(Widget, SelectionAsksForARedrawOnlyWhenItChanges) {
    const auto peer = std::make_shared<FakeWindowPeer>();
    Window window;
    window.setPeer(peer);
    window.setContentView(std::make_shared<View>(Rect{0, 0, 400, 300}));
    window.contentView()->addSubview(widget);
    window.show();
    peer->damage.clear();
    widget->setSelected(true);
    widget->setSelected(true);
    widget->setAllowResize(true);
    EXPECT_EQ(peer->damage, (std::vector<Rect>{{40, 50, 200, 40}, {40, 50, 200, 40}}));
}

}  // namespace
}  // namespace zor

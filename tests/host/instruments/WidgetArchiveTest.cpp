#include <limits>

#include "host/foundation/ClassRegistry.h"
#include "host/foundation/PropertyList.h"
#include "host/instruments/ZORTextFieldView.h"
#include "tests/host/instruments/InstrumentSupport.h"

namespace zor {
namespace {

using test::DictionaryCoder;
using test::roundTrip;
using test::TestCanvas;

class WidgetArchive : public ::testing::Test {
protected:
    void SetUp() override {
        FakeToolkit::install();
        registerInstrumentClasses();
        TestCanvas::staticClass();
    }
};

TEST_F(WidgetArchive, HasTheseKeys) {
    const auto widget = ZORWidgetHostView::boxWithRect({1, 2, 3, 4});
    DictionaryCoder untitled;
    widget->encodeWithCoder(untitled);
    EXPECT_EQ(untitled.keys(), (std::vector<std::string>{"editable", "frame", "targetView", "zOrder"}));
    widget->setTitle("Box");
    widget->setSelected(true);
    widget->setAllowResize(true);
    widget->setInLiveResize(true);
    DictionaryCoder titled;
    widget->encodeWithCoder(titled);
    EXPECT_EQ(titled.keys(), (std::vector<std::string>{"editable", "frame", "targetView", "title", "zOrder"}));
}

TEST_F(WidgetArchive, KeepsWhatStaysAndNothingOfASelection) {
    const auto widget = ZORWidgetHostView::textFieldWithRect({0.1, -20.5, 200, 1e21});
    widget->setZOrder(7);
    widget->setTitle("Temperature");
    widget->setEditable(true);
    widget->setSelected(true);
    widget->setAllowResize(true);
    widget->setInLiveResize(true);
    widget->setClickOffsetX(5);
    std::dynamic_pointer_cast<ZORTextFieldView>(widget->targetView())->linkProperty("outdoorTemperature", {});
    const auto read = roundTrip(widget);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->frame(), (Rect{0.1, -20.5, 200, 1e21}));
    EXPECT_EQ(read->zOrder(), 7);
    EXPECT_EQ(read->title(), "Temperature");
    EXPECT_TRUE(read->editable());
    EXPECT_FALSE(read->selected());
    EXPECT_FALSE(read->allowResize());
    EXPECT_FALSE(read->inLiveResize());
    EXPECT_EQ(read->clickOffsetX(), 0);
    EXPECT_NE(read->hash(), widget->hash());
    const auto field = std::dynamic_pointer_cast<ZORTextFieldView>(read->targetView());
    ASSERT_TRUE(field);
    EXPECT_EQ(field->propertyName(), "outdoorTemperature");
    EXPECT_EQ(field->frame(), (Rect{0, 0, 200, 1e21}));
    EXPECT_EQ(read->subviews().size(), 1u);
}

TEST_F(WidgetArchive, EveryKindIsReadBack) {
    for (const char* kind : {"textField", "dateTimeField", "box", "imageView", "led", "mapView", "webView", "plotView",
                             "levelIndicator", "roundGauge", "linearGauge"}) {
        const auto read = roundTrip(ZORWidgetHostView::widgetOfKind(kind, {1, 2, 30, 40}, {}));
        ASSERT_TRUE(read) << kind;
        EXPECT_EQ(read->kind(), kind);
        EXPECT_EQ(read->targetView()->frame(), (Rect{0, 0, 30, 40})) << kind;
    }
}

TEST_F(WidgetArchive, EveryClassIsRegistered) {
    for (const char* name :
         {"ZORWidgetHostView", "ZORTextFieldView", "ZORDateTimeFieldView", "ZORBoxView", "ZORImageView", "ZORLEDView",
          "ZORMapView", "ZORWebView", "ZORPlotView", "ZORLevelIndicatorView", "ZORRoundGaugeView", "ZORLinearGaugeView",
          "ZORProperty", "View", "Image"}) {
        const auto* record = ClassRegistry::shared().find(name);
        ASSERT_TRUE(record) << name;
        EXPECT_TRUE(record->isCreatable()) << name;
    }
}

TEST_F(WidgetArchive, AFrameThatIsNoneIsReadAsZeros) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinity = std::numeric_limits<double>::infinity();
    DictionaryCoder coder(Value::Dictionary{{"frame", Rect{nan, 2, infinity, -4}}});
    const auto widget = std::make_shared<ZORWidgetHostView>();
    ASSERT_TRUE(widget->initWithCoder(coder));
    EXPECT_EQ(widget->frame(), (Rect{0, 2, 0, -4}));
}

TEST_F(WidgetArchive, AnEmptyOneGivesAnEmptyWidget) {
    DictionaryCoder coder;
    const auto widget = std::make_shared<ZORWidgetHostView>();
    ASSERT_TRUE(widget->initWithCoder(coder));
    EXPECT_EQ(widget->frame(), (Rect{}));
    EXPECT_FALSE(widget->targetView());
    EXPECT_EQ(widget->kind(), "");
    EXPECT_TRUE(std::dynamic_pointer_cast<ZORWidgetHostView>(widget->copy()));
    EXPECT_TRUE(roundTrip(widget));
}

TEST_F(WidgetArchive, ATargetThatIsNoInstrumentIsLeftOut) {
    for (const Value& target : {Value(Null{}), Value("a text"), Value(Image::plain({1, 1})),
                                Value(std::make_shared<View>()), Value(ZORWidgetHostView::boxWithRect({}))}) {
        DictionaryCoder coder(Value::Dictionary{{"frame", Rect{1, 2, 3, 4}}, {"targetView", target}, {"title", 5}});
        const auto widget = std::make_shared<ZORWidgetHostView>();
        ASSERT_TRUE(widget->initWithCoder(coder));
        EXPECT_FALSE(widget->targetView());
        EXPECT_FALSE(widget->title());
        EXPECT_EQ(widget->frame(), (Rect{1, 2, 3, 4}));
    }
}

/// Claims a target that may be anything, its own canvas included.
class ForgedWidget : public ZORWidgetHostView {
public:
    std::shared_ptr<View> claimed;
    void encodeWithCoder(Encoder& encoder) override {
        encoder.encodeRect("frame", {0, 0, 10, 10});
        encoder.encodeValue("targetView", claimed);
    }
};

TEST_F(WidgetArchive, AWidgetThatHostsItsOwnCanvasEnds) {
    const auto canvas = std::make_shared<TestCanvas>(Rect{0, 0, 100, 100});
    const auto forged = std::make_shared<ForgedWidget>();
    canvas->addSubview(forged);
    forged->claimed = canvas;
    const auto fromCanvas = roundTrip(std::static_pointer_cast<View>(canvas));
    ASSERT_TRUE(fromCanvas);
    const auto fromWidget = roundTrip(std::static_pointer_cast<View>(forged));
    ASSERT_TRUE(fromWidget);
    forged->claimed.reset();
    for (const auto& read : {fromCanvas, fromWidget}) {
        std::size_t depth = 0;
        for (const View* view = read.get(); view; view = view->superview()) ASSERT_LT(++depth, 4u);
    }
}

TEST_F(WidgetArchive, ATargetOfTwoWidgetsBelongsToOne) {
    const auto root = std::make_shared<View>();
    const auto shared = ZORWidgetHostView::boxWithRect({0, 0, 5, 5})->targetView();
    for (int i = 0; i < 2; ++i) {
        const auto forged = std::make_shared<ForgedWidget>();
        forged->claimed = shared;
        root->addSubview(forged);
    }
    const auto read = roundTrip(root);
    ASSERT_TRUE(read);
    ASSERT_EQ(read->subviews().size(), 2u);
    EXPECT_EQ(read->subviews()[0]->subviews().size() + read->subviews()[1]->subviews().size(), 1u);
}

TEST_F(WidgetArchive, ACanvasKeepsItsWidgetsWithOrderAndNumbers) {
    const auto canvas = std::make_shared<TestCanvas>(Rect{0, 0, 300, 200});
    canvas->setImage(Image::plain({300, 150}));
    for (const std::int64_t order : {9, 4, 6}) {
        const auto widget = ZORWidgetHostView::boxWithRect({static_cast<double>(order), 0, 10, 10});
        widget->setZOrder(order);
        canvas->addSubview(widget);
    }
    const auto container = ZORWidgetHostView::initWithFrame({0, 0, 300, 200});
    container->setTargetView(canvas);
    const auto read = roundTrip(container);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->kind(), "container");
    const auto target = std::dynamic_pointer_cast<TestCanvas>(read->targetView());
    ASSERT_TRUE(target);
    EXPECT_EQ(target->frame(), (Rect{0, 0, 300, 200}));
    EXPECT_EQ(target->image()->size(), (Size{300, 150}));
    ASSERT_EQ(target->subviews().size(), 3u);
    std::vector<std::int64_t> orders;
    for (const auto& child : target->subviews()) {
        orders.push_back(std::dynamic_pointer_cast<ZORWidgetHostView>(child)->zOrder());
    }
    EXPECT_EQ(orders, (std::vector<std::int64_t>{9, 4, 6}));
}

}  // namespace
}  // namespace zor

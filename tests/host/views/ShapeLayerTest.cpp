#include <gmock/gmock.h>

#include "host/views/RecordingContext.h"
#include "host/views/ShapeLayer.h"
#include "host/views/Window.h"
#include "tests/support/FakeWindowPeer.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace zor {
namespace {

class ShapeLayerTest : public testing::Test {
protected:
    std::shared_ptr<FakeWindowPeer> peer = std::make_shared<FakeWindowPeer>();
    Window window;
    std::shared_ptr<View> view = std::make_shared<View>(Rect{0, 0, 200, 100});
    std::shared_ptr<ShapeLayer> layer = std::make_shared<ShapeLayer>();

    void SetUp() override {
        window.setPeer(peer);
        window.setContentView(view);
        peer->damage.clear();
    }

    static BasicAnimation crawl() { return {"lineDashPhase", 0, 15, 0.75, true}; }
    static Path triangle() { return Path().moveTo({10, 10}).lineTo({20, 10}).lineTo({20, 30}).close(); }
};

TEST_F(ShapeLayerTest, BelongsToOneView) {
    view->addSublayer(layer);
    EXPECT_THAT(view->sublayers(), ElementsAre(layer));
    EXPECT_EQ(layer->superlayerView(), view.get());
    const auto other = std::make_shared<View>();
    other->addSublayer(layer);
    EXPECT_THAT(view->sublayers(), IsEmpty());
    EXPECT_EQ(layer->superlayerView(), other.get());
    view->removeSublayer(layer.get());
    EXPECT_THAT(other->sublayers(), ElementsAre(layer));
    layer->removeFromSuperlayer();
    layer->removeFromSuperlayer();
    EXPECT_THAT(other->sublayers(), IsEmpty());
    EXPECT_EQ(layer->superlayerView(), nullptr);
}

TEST_F(ShapeLayerTest, OutlivesItsView) {
    view->addSublayer(layer);
    window.setContentView(nullptr);
    view.reset();
    EXPECT_EQ(layer->superlayerView(), nullptr);
    layer->setPath(triangle());
}

TEST_F(ShapeLayerTest, DrawsNothingWithoutAPath) {
    RecordingContext context;
    layer->draw(context, 0);
    EXPECT_THAT(context.operations(), IsEmpty());
    EXPECT_THAT(layer->pathPoints(), IsEmpty());
}

TEST_F(ShapeLayerTest, DrawsFillAndDashedStroke) {
    layer->setPath(triangle());
    layer->setFillColor(Color::white());
    layer->setLineWidth(2);
    layer->setLineDashPattern({10, 5});
    layer->addAnimation(crawl(), "linePhase");
    RecordingContext context;
    layer->draw(context, 0.25);
    ASSERT_EQ(context.operations().size(), 2u);
    EXPECT_EQ(context.operations()[0].op, "fillPath");
    EXPECT_EQ(context.operations()[0].color, Color::white());
    const Stroke& stroke = context.operations()[1].stroke;
    EXPECT_EQ(stroke.color, Color::black());
    EXPECT_EQ(stroke.width, 2);
    EXPECT_THAT(stroke.dash, ElementsAre(10, 5));
    EXPECT_DOUBLE_EQ(stroke.dashPhase, 5);
    layer->setFillColor(Color::clear());
    layer->setStrokeColor(Color::clear());
    RecordingContext nothing;
    layer->draw(nothing, 0);
    EXPECT_THAT(nothing.operations(), IsEmpty());
}

TEST_F(ShapeLayerTest, ARepeatedAnimationBeginsAgainAndASingleOneStays) {
    EXPECT_EQ(layer->animatedValue("lineDashPhase", 1, 7), 7);
    layer->addAnimation(crawl(), "linePhase");
    EXPECT_EQ(layer->animatedValue("lineDashPhase", 0, 7), 0);
    EXPECT_DOUBLE_EQ(layer->animatedValue("lineDashPhase", 0.5, 7), 10);
    EXPECT_DOUBLE_EQ(layer->animatedValue("lineDashPhase", 1, 7), 5);
    EXPECT_EQ(layer->animatedValue("opacity", 1, 7), 7);
    layer->addAnimation({"opacity", 1, 0, 2, false}, "fade");
    EXPECT_DOUBLE_EQ(layer->animatedValue("opacity", 0.5, 7), 0.75);
    EXPECT_EQ(layer->animatedValue("opacity", 5, 7), 0);
    EXPECT_EQ(layer->animatedValue("opacity", -5, 7), 1);
    layer->addAnimation({"opacity", 1, 0, 0, false}, "fade");
    EXPECT_EQ(layer->animatedValue("opacity", 0, 7), 0);
}

TEST_F(ShapeLayerTest, ANewPathDamagesTheOldAndTheNewPlace) {
    view->addSublayer(layer);
    EXPECT_THAT(peer->damage, IsEmpty());
    layer->setPath(triangle());
    layer->setPath(Path::rect({50, 50, 10, 10}));
    layer->removeFromSuperlayer();
    const Rect first{9, 9, 12, 22}, second{49, 49, 12, 12};
    EXPECT_THAT(peer->damage, ElementsAre(first, first, second, second));
}

TEST_F(ShapeLayerTest, ABandDraggedUpAndLeftIsDamagedToo) {
    view->addSublayer(layer);
    layer->setPath(Path::rect({50, 50, -20, -30}));
    EXPECT_THAT(peer->damage, ElementsAre(Rect{29, 19, 22, 32}));
}

TEST_F(ShapeLayerTest, OnlyShownAnimationsAskForFrames) {
    view->addSublayer(layer);
    layer->setPath(triangle());
    const auto parent = std::make_shared<View>(Rect{0, 0, 200, 100});
    window.setContentView(parent);
    parent->addSubview(view);
    EXPECT_FALSE(parent->redisplayAnimatedLayers());
    layer->addAnimation(crawl(), "linePhase");
    peer->damage.clear();
    EXPECT_TRUE(parent->redisplayAnimatedLayers());
    EXPECT_THAT(peer->damage, ElementsAre(Rect{9, 9, 12, 22}));
    view->setHidden(true);
    EXPECT_FALSE(parent->redisplayAnimatedLayers());
}

TEST_F(ShapeLayerTest, IsReadByName) {
    EXPECT_TRUE(layer->valueForKey("animation").isAbsent());
    layer->setPath(triangle());
    layer->setLineDashPattern({10, 5});
    layer->setFillColor(Color::clear());
    layer->addAnimation(crawl(), "linePhase");
    EXPECT_EQ(layer->valueForKey("pathPoints"),
              Value(Value::Array{Value(Point{10, 10}), Value(Point{20, 10}), Value(Point{20, 30})}));
    EXPECT_EQ(layer->valueForKey("lineWidth"), Value(1.0));
    EXPECT_EQ(layer->valueForKey("strokeColor"), Value("#000000ff"));
    EXPECT_EQ(layer->valueForKey("fillColor"), Value("#00000000"));
    EXPECT_EQ(layer->valueForKey("lineDashPattern"), Value(Value::Array{10, 5}));
    EXPECT_EQ(layer->valueForKey("animation"), Value(Value::Dictionary{{"keyPath", "lineDashPhase"},
                                                                       {"from", 0.0},
                                                                       {"to", 15.0},
                                                                       {"duration", 0.75},
                                                                       {"repeats", "infinite"},
                                                                       {"key", "linePhase"}}));
}

}  // namespace
}  // namespace zor

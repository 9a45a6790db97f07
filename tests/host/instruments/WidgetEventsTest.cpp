#include "host/views/ScrollView.h"
#include "tests/host/instruments/InstrumentSupport.h"

namespace zor {
namespace {

using test::TestCanvas;
using test::TestPlugIn;

/// A dashboard's view tree without the dashboard: plug-in view, container, canvas, widgets.
class WidgetEvents : public ::testing::Test {
protected:
    void SetUp() override {
        FakeToolkit::install();
        container = ZORWidgetHostView::initWithFrame({0, 0, 400, 300});
        canvas = std::make_shared<TestCanvas>(Rect{0, 0, 400, 300});
        container->setTargetView(canvas);
        plugIn = TestPlugIn::withAgent({});
        plugIn->view()->setFrame({30, 20, 400, 300});
        plugIn->view()->addSubview(container);
        window.setContentView(std::make_shared<View>(Rect{0, 0, 800, 600}));
        window.contentView()->addSubview(plugIn->view());
        plugIn->told = [this](const std::string& name) {
            seen.push_back(name + " " + stringFromRect(widget->frame()) + (widget->inLiveResize() ? " live" : ""));
        };
        widget = ZORWidgetHostView::boxWithRect({100, 100, 50, 40});
        canvas->addSubview(widget);
    }

    EventPtr event(EventType type, Point onCanvas, std::uint32_t flags = 0) {
        return Event::mouse(type, {onCanvas.x + 30, onCanvas.y + 20}, flags, 1);
    }
    void press(Point at, std::uint32_t flags = 0) { window.sendEvent(event(EventType::mouseDown, at, flags)); }
    void drag(Point at) { window.sendEvent(event(EventType::mouseDragged, at)); }
    void release(Point at) { window.sendEvent(event(EventType::mouseUp, at)); }

    Window window;
    std::shared_ptr<TestPlugIn> plugIn;
    std::shared_ptr<ZORWidgetHostView> container;
    std::shared_ptr<TestCanvas> canvas;
    std::shared_ptr<ZORWidgetHostView> widget;
    std::vector<std::string> seen;
};

TEST_F(WidgetEvents, AWidgetStandsForItsInstrumentAndAContainerPassesIntoItsCanvas) {
    EXPECT_EQ(widget->hitTest({110, 110}), widget.get());
    EXPECT_EQ(widget->hitTest({99, 110}), nullptr);
    EXPECT_EQ(container->hitTest({110, 110}), widget.get());
    EXPECT_EQ(container->hitTest({10, 10}), canvas.get());
    widget->setHidden(true);
    EXPECT_EQ(widget->hitTest({110, 110}), nullptr);
    EXPECT_EQ(container->hitTest({110, 110}), canvas.get());
}

TEST_F(WidgetEvents, TheHandleLiesInsideTheBottomRightCorner) {
    EXPECT_EQ(widget->resizeHandle(), (Rect{38, 28, 12, 12}));
}

TEST_F(WidgetEvents, ADragOfTheHandleResizes) {
    widget->setAllowResize(true);
    press({145, 135});
    EXPECT_TRUE(widget->inLiveResize());
    drag({165.5, 130});
    EXPECT_EQ(widget->frame(), (Rect{100, 100, 70.5, 35}));
    EXPECT_EQ(widget->targetView()->frame(), (Rect{0, 0, 70.5, 35}));
    drag({155, 155});
    EXPECT_EQ(widget->frame(), (Rect{100, 100, 60, 60}));
    EXPECT_TRUE(widget->inLiveResize());
    release({155, 155});
    EXPECT_FALSE(widget->inLiveResize());
    EXPECT_EQ(widget->frame(), (Rect{100, 100, 60, 60}));
}

TEST_F(WidgetEvents, EverythingGoesUpTheChainDragsBeforeTheyAct) {
    widget->setAllowResize(true);
    press({145, 135});
    drag({155, 145});
    drag({165, 155});
    release({165, 155});
    EXPECT_EQ(seen, (std::vector<std::string>{"press {{100, 100}, {50, 40}} live", "drag {{100, 100}, {50, 40}} live",
                                              "drag {{100, 100}, {60, 50}} live", "release {{100, 100}, {70, 60}}"}));
}

TEST_F(WidgetEvents, AtLeastTenByTenRemain) {
    widget->setAllowResize(true);
    press({149.9, 139.9});
    drag({0, 0});
    EXPECT_EQ(widget->frame(), (Rect{100, 100, 10, 10}));
    drag({149.9, 139.9});
    EXPECT_EQ(widget->frame(), (Rect{100, 100, 50, 40}));
}

TEST_F(WidgetEvents, TheEdgesOfTheHandle) {
    widget->setAllowResize(true);
    const auto isHandle = [this](Point at) {
        press(at);
        const bool live = widget->inLiveResize();
        release(at);
        return live;
    };
    EXPECT_TRUE(isHandle({138, 128}));
    EXPECT_FALSE(isHandle({137.5, 128}));
    EXPECT_FALSE(isHandle({138, 127.5}));
    EXPECT_TRUE(isHandle({149.5, 139.5}));
    EXPECT_FALSE(isHandle({150, 139.5}));
    EXPECT_FALSE(isHandle({149.5, 140}));
}

TEST_F(WidgetEvents, ASmallWidgetIsAllHandle) {
    widget->setAllowResize(true);
    widget->setFrame({100, 100, 5, 5});
    press({101, 101});
    EXPECT_TRUE(widget->inLiveResize());
    drag({111, 102});
    EXPECT_EQ(widget->frame(), (Rect{100, 100, 15, 10}));
}

TEST_F(WidgetEvents, NothingIsResizedWithoutLeaveOrWithControlOrElsewhere) {
    press({145, 135});
    drag({165, 155});
    release({165, 155});
    widget->setAllowResize(true);
    press({145, 135}, controlKeyMask);
    EXPECT_FALSE(widget->inLiveResize());
    drag({165, 155});
    release({165, 155});
    press({110, 110});
    EXPECT_FALSE(widget->inLiveResize());
    drag({165, 155});
    EXPECT_EQ(widget->frame(), (Rect{100, 100, 50, 40}));
}

TEST_F(WidgetEvents, ShiftIsNoHindrance) {
    widget->setAllowResize(true);
    press({145, 135}, shiftKeyMask);
    EXPECT_TRUE(widget->inLiveResize());
}

TEST_F(WidgetEvents, WhatLiesAboveTheHandleTakesThePress) {
    const auto above = ZORWidgetHostView::boxWithRect({140, 130, 50, 50});
    canvas->addSubview(above);
    widget->setAllowResize(true);
    press({145, 135});
    EXPECT_FALSE(widget->inLiveResize());
    release({145, 135});
    press({139, 129});
    EXPECT_TRUE(widget->inLiveResize());
}

TEST_F(WidgetEvents, TheContainersCornerBelongsToItsCanvas) {
    container->setAllowResize(true);
    press({395, 295});
    EXPECT_FALSE(container->inLiveResize());
    drag({350, 250});
    EXPECT_EQ(container->frame(), (Rect{0, 0, 400, 300}));
}

TEST_F(WidgetEvents, TheFlagAloneMovesNothingAndEndsWithTheRelease) {
    press({110, 110});
    widget->setInLiveResize(true);
    drag({130, 130});
    EXPECT_EQ(widget->frame(), (Rect{100, 100, 50, 40}));
    release({130, 130});
    EXPECT_FALSE(widget->inLiveResize());
}

TEST_F(WidgetEvents, AWidgetThatIsRemovedWhileItIsHeldStopsThere) {
    widget->setAllowResize(true);
    press({145, 135});
    plugIn->told = [this](const std::string&) { widget->removeFromSuperview(); };
    drag({155, 145});
    EXPECT_EQ(widget->frame(), (Rect{100, 100, 50, 40}));
    release({155, 145});
    EXPECT_FALSE(widget->inLiveResize());
}

TEST_F(WidgetEvents, WidgetsOnACanvasAreLinkedWhenTheyArrive) {
    const auto agent = Agent::withName("Garden");
    agent->addProperty("outdoorHumidity", "Outdoor Humidity", Quantity::humidity)->setValue(64, 1000);
    const auto other = TestPlugIn::withAgent(agent);
    const auto pasted = ZORWidgetHostView::textFieldWithRect({0, 0, 100, 30});
    const auto client = std::dynamic_pointer_cast<PropertyClient>(pasted->targetView());
    client->linkProperty("outdoorHumidity", {});
    other->view()->addSubview(pasted);
    EXPECT_EQ(pasted->instrument()->text(), "64 %");
}

}  // namespace
}  // namespace zor

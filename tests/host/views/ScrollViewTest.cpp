#include <gmock/gmock.h>

#include "host/views/RecordingContext.h"
#include "host/views/ScrollView.h"
#include "tests/host/views/ProbeView.h"
#include "tests/support/FakeToolkit.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace zor {
namespace {

class ScrollViewTest : public testing::Test {
protected:
    ProbeView::Notes notes;
    std::shared_ptr<View> root = std::make_shared<View>(Rect{0, 0, 600, 600});
    std::shared_ptr<ScrollView> scroll = std::make_shared<ScrollView>(Rect{100, 50, 220, 100});
    std::shared_ptr<ProbeView> document = makeProbe("document", {0, 0, 400, 300}, notes);
    int told = 0;

    void SetUp() override {
        root->addSubview(scroll);
        scroll->setHasBorder(false);
        scroll->setHasVerticalRuler(true);
        scroll->setDocumentView(document);
        scroll->setObserver([this] { ++told; });
        notes.clear();
    }
};

TEST_F(ScrollViewTest, TheViewportIsWhatBorderRulerAndScrollersLeave) {
    EXPECT_EQ(scroll->viewport(), (Rect{20, 0, 200, 100}));
    scroll->setHasBorder(true);
    EXPECT_EQ(scroll->viewport(), (Rect{21, 1, 198, 98}));
    scroll->setScrollerRoom({15, 12});
    EXPECT_EQ(scroll->viewport(), (Rect{21, 1, 183, 86}));
    scroll->setHasVerticalRuler(false);
    EXPECT_EQ(scroll->viewport(), (Rect{1, 1, 203, 86}));
    EXPECT_EQ(told, 3);
    scroll->setScrollerRoom({15, 12});
    EXPECT_EQ(told, 3);
    scroll->setFrame({0, 0, 10, 10});
    EXPECT_EQ(scroll->viewport().size(), (Size{0, 0}));
}

TEST_F(ScrollViewTest, TheDocumentKeepsItsFrame) {
    scroll->setContentOffset({30, 40});
    EXPECT_EQ(document->frame(), (Rect{0, 0, 400, 300}));
    EXPECT_EQ(document->superview(), scroll.get());
    EXPECT_EQ(document->convertPointToView({0, 0}, nullptr), (Point{90, 10}));
    document->setFrame({7, 9, 400, 300});
    EXPECT_EQ(document->convertPointToView({0, 0}, nullptr), (Point{90, 10}));
}

TEST_F(ScrollViewTest, TheOffsetStaysWithinTheDocument) {
    EXPECT_EQ(scroll->largestOffset(), (Point{200, 200}));
    scroll->setContentOffset({500, -3});
    EXPECT_EQ(scroll->contentOffset(), (Point{200, 0}));
    scroll->setContentOffset({std::numeric_limits<double>::quiet_NaN(), 50});
    EXPECT_EQ(scroll->contentOffset(), (Point{0, 50}));
    document->setFrame({0, 0, 150, 120});
    EXPECT_EQ(scroll->contentOffset(), (Point{0, 20}));
    EXPECT_EQ(scroll->largestOffset(), (Point{0, 20}));
    scroll->setFrame({0, 0, 600, 600});
    EXPECT_EQ(scroll->contentOffset(), (Point{0, 0}));
    EXPECT_EQ(told, 4);
}

TEST_F(ScrollViewTest, ScrollsAsLittleAsShowsTheRectangle) {
    scroll->scrollToVisible({210, 10, 20, 20});
    EXPECT_EQ(scroll->contentOffset(), (Point{30, 0}));
    scroll->scrollToVisible({100, 150, 20, 20});
    EXPECT_EQ(scroll->contentOffset(), (Point{30, 70}));
    scroll->scrollToVisible({10, 160, 20, 5});
    EXPECT_EQ(scroll->contentOffset(), (Point{10, 70}));
    scroll->scrollToVisible({0, 0, 400, 300});
    EXPECT_EQ(scroll->contentOffset(), (Point{10, 70}));
}

TEST_F(ScrollViewTest, TheDocumentIsHitOnlyWithinTheViewport) {
    scroll->setContentOffset({30, 40});
    EXPECT_EQ(root->hitTest({125, 60}), document.get());
    EXPECT_EQ(root->hitTest({119, 60}), scroll.get());
    scroll->setScrollerRoom({15, 12});
    EXPECT_EQ(root->hitTest({304, 60}), document.get());
    EXPECT_EQ(root->hitTest({306, 60}), scroll.get());
    EXPECT_EQ(root->hitTest({325, 60}), root.get());
    scroll->setContentOffset({0, 0});
    document->setFrame({0, 0, 50, 50});
    EXPECT_EQ(root->hitTest({169, 60}), document.get());
    EXPECT_EQ(root->hitTest({171, 60}), scroll.get());
}

TEST_F(ScrollViewTest, TheWheelScrollsAndGoesOnAtTheEnd) {
    const auto outer = makeProbe("outer", {0, 0, 600, 600}, notes);
    outer->addSubview(scroll);
    notes.clear();
    const auto wheel = [&](double dy) { scroll->scrollWheel(Event::scroll({150, 60}, {0, dy})); };
    wheel(-150);
    EXPECT_EQ(scroll->contentOffset(), (Point{0, 150}));
    wheel(-150);
    EXPECT_EQ(scroll->contentOffset(), (Point{0, 200}));
    EXPECT_THAT(notes, IsEmpty());
    wheel(-150);
    EXPECT_THAT(notes, ElementsAre("outer scrollWheel"));
    wheel(1);
    EXPECT_EQ(scroll->contentOffset(), (Point{0, 199}));
}

TEST_F(ScrollViewTest, TheDocumentIsDrawnScrolledAndClippedToTheViewport) {
    scroll->setContentOffset({30, 40});
    RecordingContext context;
    scroll->displayTree(context, scroll->bounds(), false);
    const auto& drawn = context.operations().back();
    EXPECT_EQ(drawn.text, "document");
    EXPECT_EQ(drawn.transform.apply(Point{0, 0}), (Point{-10, -40}));
    EXPECT_EQ(drawn.clip, (Rect{20, 0, 200, 100}));
    EXPECT_EQ(drawn.rect, (Rect{30, 40, 200, 100}));
    EXPECT_EQ(context.depth(), 0u);
}

TEST_F(ScrollViewTest, DamageOfTheDocumentStaysWithinTheViewport) {
    Window window;
    const auto peer = std::make_shared<FakeWindowPeer>();
    window.setPeer(peer);
    window.setContentView(root);
    scroll->setContentOffset({30, 40});
    peer->damage.clear();
    document->setNeedsDisplayInRect({0, 0, 50, 50});
    document->setNeedsDisplayInRect({0, 0, 30, 50});
    EXPECT_THAT(peer->damage, ElementsAre(Rect{120, 50, 20, 10}));
}

TEST_F(ScrollViewTest, TheRulerTicksEveryTenPointsAndLabelsTheHundreds) {
    scroll->setContentOffset({0, 95});
    RecordingContext context;
    scroll->drawRect(context, scroll->bounds());
    const auto labels = context.operationsNamed("drawText");
    ASSERT_EQ(labels.size(), 1u);
    EXPECT_EQ(labels[0].text, "100");
    EXPECT_EQ(labels[0].rect, (Rect{0, 6, 18, 10}));
    const auto ticks = context.operationsNamed("strokePath");
    ASSERT_EQ(ticks.size(), 1u);
    const auto segments = ticks[0].segments();
    const auto has = [&](std::array<double, 4> tick) { return testing::Value(segments, testing::Contains(tick)); };
    EXPECT_TRUE(has({0, 5.5, 20, 5.5}));
    EXPECT_TRUE(has({16, 15.5, 20, 15.5}));
    EXPECT_TRUE(has({12, 55.5, 20, 55.5}));
    EXPECT_TRUE(has({16, 95.5, 20, 95.5}));
    EXPECT_FALSE(has({16, 10.5, 20, 10.5}));
}

TEST_F(ScrollViewTest, ARulerOfAnEndlessDocumentEnds) {
    document->setFrame({0, 0, 400, 1e300});
    scroll->setContentOffset({0, 1e299});
    RecordingContext context;
    scroll->drawRect(context, scroll->bounds());
    EXPECT_EQ(context.operationsNamed("strokePath").size(), 1u);
}

TEST_F(ScrollViewTest, AnotherDocumentReplacesTheFirst) {
    const auto next = std::make_shared<View>(Rect{0, 0, 10, 10});
    scroll->setContentOffset({30, 40});
    scroll->setDocumentView(next);
    EXPECT_THAT(scroll->subviews(), ElementsAre(next));
    EXPECT_EQ(scroll->contentOffset(), (Point{0, 0}));
    next->removeFromSuperview();
    EXPECT_EQ(scroll->documentView(), nullptr);
    EXPECT_EQ(scroll->largestOffset(), (Point{0, 0}));
    scroll->setDocumentView(root);
    EXPECT_EQ(scroll->documentView(), nullptr);
    scroll->setDocumentView(document);
    scroll->setDocumentView(nullptr);
    EXPECT_THAT(scroll->subviews(), IsEmpty());
}

}  // namespace
}  // namespace zor

#include <gmock/gmock.h>

#include "tests/host/views/ProbeView.h"
#include "tests/support/FakeToolkit.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace zor {
namespace {

/// Stands for a plug-in: a responder between its view and the window.
class Controller : public Responder {
public:
    bool acceptsFirstResponder() const override { return true; }
    void keyDown(const EventPtr&) override { ++keys; }
    void mouseDown(const EventPtr& event) override {
        ++presses;
        Responder::mouseDown(event);
    }
    int keys = 0;
    int presses = 0;
};

class WindowTest : public testing::Test {
protected:
    ProbeView::Notes notes;
    std::shared_ptr<Window> window = std::make_shared<Window>();
    std::shared_ptr<ProbeView> root = makeProbe("root", {10, 20, 200, 100}, notes);
    std::shared_ptr<ProbeView> child = makeProbe("child", {20, 20, 50, 50}, notes);
    std::shared_ptr<ProbeView> leaf = makeProbe("leaf", {0, 0, 10, 10}, notes);

    void SetUp() override {
        child->addSubview(leaf);
        root->addSubview(child);
        window->setContentView(root);
        notes.clear();
    }

    void mouse(EventType type, Point at) { window->sendEvent(Event::mouse(type, at, 0, 1)); }
    void key() { window->sendEvent(Event::key(u"a", 0, 0)); }
};

TEST_F(WindowTest, APressGoesToTheViewUnderThePointerAndUpTheChain) {
    mouse(EventType::mouseDown, {35, 45});
    EXPECT_THAT(notes, ElementsAre("leaf mouseDown"));
    notes.clear();
    leaf->takesEvents = false;
    child->takesEvents = false;
    mouse(EventType::mouseDown, {35, 45});
    EXPECT_THAT(notes, ElementsAre("leaf mouseDown", "child mouseDown", "root mouseDown"));
}

TEST_F(WindowTest, DragsAndTheReleaseGoToTheViewThatTookThePress) {
    EXPECT_FALSE(window->hasPressedView());
    mouse(EventType::mouseDown, {45, 55});
    EXPECT_TRUE(window->hasPressedView());
    mouse(EventType::mouseDragged, {500, 500});
    mouse(EventType::mouseUp, {11, 21});
    EXPECT_FALSE(window->hasPressedView());
    EXPECT_THAT(notes, ElementsAre("child mouseDown", "child mouseDragged", "child mouseUp"));
    mouse(EventType::mouseDragged, {45, 55});
    mouse(EventType::mouseUp, {45, 55});
    EXPECT_EQ(notes.size(), 3u);
}

TEST_F(WindowTest, DragsAfterARightPressGoToItsView) {
    mouse(EventType::rightMouseDown, {45, 55});
    EXPECT_FALSE(window->hasPressedView());
    mouse(EventType::mouseDragged, {0, 0});
    mouse(EventType::mouseUp, {0, 0});
    EXPECT_THAT(notes, ElementsAre("child rightMouseDown", "child mouseDragged"));
}

TEST_F(WindowTest, ARightPressWithinALeftGestureDoesNotTakeItOver) {
    mouse(EventType::mouseDown, {45, 55});
    mouse(EventType::rightMouseDown, {12, 22});
    mouse(EventType::mouseUp, {0, 0});
    EXPECT_THAT(notes, ElementsAre("child mouseDown", "root rightMouseDown", "child mouseUp"));
}

TEST_F(WindowTest, NothingIsHitOutsideTheContent) {
    mouse(EventType::mouseDown, {5, 5});
    mouse(EventType::mouseUp, {45, 55});
    EXPECT_THAT(notes, IsEmpty());
    window->setContentView(nullptr);
    mouse(EventType::mouseDown, {45, 55});
    window->sendEvent(Event::scroll({45, 55}, {0, 1}));
    EXPECT_THAT(notes, ElementsAre("root leaves window", "child leaves window", "leaf leaves window"));
}

TEST_F(WindowTest, TheWheelGoesToTheViewUnderThePointer) {
    window->sendEvent(Event::scroll({45, 55}, {0, 1}));
    EXPECT_THAT(notes, ElementsAre("child scrollWheel"));
}

TEST_F(WindowTest, AHandlerMayTakeItsOwnViewsOffTheTree) {
    leaf->takesEvents = false;
    child->takesEvents = false;
    child->whileHandling = [this] {
        root->removeFromSuperview();
        child->removeFromSuperview();
        leaf->removeFromSuperview();
        child->whileHandling = nullptr;
        child.reset();
        leaf.reset();
    };
    mouse(EventType::mouseDown, {35, 45});
    EXPECT_TRUE(window->hasPressedView());
    notes.clear();
    mouse(EventType::mouseDragged, {35, 45});
    mouse(EventType::mouseUp, {35, 45});
    EXPECT_THAT(notes, IsEmpty());
    EXPECT_FALSE(window->hasPressedView());
}

TEST_F(WindowTest, AViewThatLeftDuringItsGestureStillGetsTheRelease) {
    mouse(EventType::mouseDown, {35, 45});
    child->removeFromSuperview();
    notes.clear();
    mouse(EventType::mouseUp, {35, 45});
    EXPECT_THAT(notes, ElementsAre("leaf mouseUp"));
}

TEST_F(WindowTest, AHandlerMayReleaseTheWindow) {
    leaf->whileHandling = [this] { window.reset(); };
    Window& sender = *window;
    sender.sendEvent(Event::mouse(EventType::mouseDown, {35, 45}, 0, 1));
    EXPECT_EQ(root->window(), nullptr);
}

TEST_F(WindowTest, KeysGoToTheFirstResponder) {
    EXPECT_EQ(window->firstResponder(), window.get());
    key();
    EXPECT_THAT(notes, IsEmpty());
    EXPECT_TRUE(window->makeFirstResponder(child));
    key();
    EXPECT_THAT(notes, ElementsAre("child keyDown"));
    leaf->acceptsKeys = false;
    EXPECT_FALSE(window->makeFirstResponder(leaf));
    EXPECT_EQ(window->firstResponder(), child.get());
    EXPECT_TRUE(window->makeFirstResponder(nullptr));
    EXPECT_EQ(window->firstResponder(), window.get());
    EXPECT_TRUE(window->makeFirstResponder(window));
    EXPECT_EQ(window->firstResponder(), window.get());
}

TEST_F(WindowTest, AViewThatLeavesIsFirstResponderNoMore) {
    window->makeFirstResponder(leaf);
    child->removeFromSuperview();
    EXPECT_EQ(window->firstResponder(), window.get());
    window->makeFirstResponder(root);
    window->setContentView(nullptr);
    EXPECT_EQ(window->firstResponder(), window.get());
}

TEST_F(WindowTest, ARespondersOwnLifeEndsItsBeingFirst) {
    auto controller = std::make_shared<Controller>();
    window->makeFirstResponder(controller);
    child->removeFromSuperview();
    key();
    EXPECT_EQ(window->firstResponder(), controller.get());
    EXPECT_EQ(controller->keys, 1);
    controller.reset();
    EXPECT_EQ(window->firstResponder(), window.get());
}

TEST_F(WindowTest, TheChainEndsWithTheWindow) {
    EXPECT_EQ(leaf->nextResponder(), child.get());
    EXPECT_EQ(root->nextResponder(), window.get());
    EXPECT_EQ(window->nextResponder(), nullptr);
    auto controller = std::make_shared<Controller>();
    root->setNextResponder(controller);
    root->takesEvents = false;
    EXPECT_EQ(root->nextResponder(), controller.get());
    mouse(EventType::mouseDown, {12, 22});
    EXPECT_EQ(controller->presses, 1);
    controller.reset();
    EXPECT_EQ(root->nextResponder(), window.get());
}

TEST_F(WindowTest, ContentComesFromWhereItWas) {
    Window other;
    other.setContentView(root->subviews()[0]);
    EXPECT_TRUE(root->subviews().empty());
    EXPECT_EQ(child->window(), &other);
    window->setContentView(child);
    EXPECT_EQ(other.contentView(), nullptr);
    EXPECT_EQ(child->window(), window.get());
    EXPECT_EQ(root->window(), nullptr);
    root->addSubview(window->contentView());
    EXPECT_EQ(window->contentView(), nullptr);
    EXPECT_EQ(child->superview(), root.get());
    EXPECT_EQ(child->window(), nullptr);
}

TEST_F(WindowTest, ItsContentMayComeFromItsContent) {
    window->setContentView(root->subviews()[0]);
    EXPECT_EQ(window->contentView(), child);
    EXPECT_EQ(child->superview(), nullptr);
    EXPECT_EQ(root->window(), nullptr);
}

TEST_F(WindowTest, KnowsItsContentsController) {
    const auto controller = std::make_shared<Controller>();
    window->setContentViewController(controller, root);
    EXPECT_EQ(window->contentViewController(), controller);
    EXPECT_EQ(window->contentView(), root);
    window->setContentView(child);
    EXPECT_EQ(window->contentViewController(), nullptr);
}

TEST_F(WindowTest, ThePeerIsMadeAtTheFirstShowing) {
    FakeToolkit& toolkit = FakeToolkit::install();
    window->setTitle("Before");
    EXPECT_TRUE(toolkit.peers.empty());
    EXPECT_FALSE(window->isVisible());
    window->show();
    ASSERT_EQ(toolkit.peers.size(), 1u);
    window->show();
    EXPECT_TRUE(window->isVisible());
    window->setTitle("After");
    window->setTitle("After");
    window->setFrame({1, 2, 300, 200});
    window->setContentView(child);
    window->close();
    window->close();
    EXPECT_FALSE(window->isVisible());
    EXPECT_THAT(toolkit.peers[0]->calls, ElementsAre("show", "show", "title", "frame", "content", "hide"));
    EXPECT_EQ(window->valueForKey("title"), Value("After"));
    EXPECT_EQ(window->valueForKey("frame"), Value(Rect{1, 2, 300, 200}));
    EXPECT_EQ(window->valueForKey("visible"), Value(false));
}

TEST_F(WindowTest, ASheetIsGoneBeforeItsCompletionRuns) {
    const auto peer = std::make_shared<FakeWindowPeer>();
    window->setPeer(peer);
    FakeToolkit::install();
    const auto sheet = std::make_shared<Window>();
    sheet->setTitle("one");
    std::vector<int> codes;
    window->beginSheet(sheet, [&](int code) {
        codes.push_back(code);
        EXPECT_EQ(window->attachedSheet(), nullptr);
        EXPECT_FALSE(sheet->isVisible());
        window->beginSheet(sheet, [&](int next) { codes.push_back(next); });
    });
    EXPECT_EQ(window->attachedSheet(), sheet);
    EXPECT_TRUE(sheet->isVisible());
    window->endSheet(std::make_shared<Window>(), 1);
    EXPECT_THAT(codes, IsEmpty());
    window->endSheet(sheet, 2);
    EXPECT_THAT(codes, ElementsAre(2));
    EXPECT_EQ(window->attachedSheet(), sheet);
    window->endSheet(sheet, 1);
    EXPECT_THAT(codes, ElementsAre(2, 1));
    window->endSheet(sheet, 1);
    EXPECT_THAT(codes, ElementsAre(2, 1));
    EXPECT_THAT(peer->calls, ElementsAre("beginSheet one", "endSheet one", "beginSheet one", "endSheet one"));
}

TEST_F(WindowTest, ASecondSheetEndsTheFirstWithCodeZero) {
    const auto first = std::make_shared<Window>();
    const auto second = std::make_shared<Window>();
    std::vector<std::string> ends;
    window->beginSheet(first, [&](int code) { ends.push_back("first " + std::to_string(code)); });
    window->beginSheet(second, [&](int code) { ends.push_back("second " + std::to_string(code)); });
    EXPECT_EQ(window->attachedSheet(), second);
    EXPECT_FALSE(first->isVisible());
    window->close();
    EXPECT_EQ(window->attachedSheet(), nullptr);
    EXPECT_THAT(ends, ElementsAre("first 0", "second 0"));
}

TEST_F(WindowTest, ASheetBegunByTheCompletionStays) {
    const auto first = std::make_shared<Window>();
    const auto second = std::make_shared<Window>();
    const auto third = std::make_shared<Window>();
    int refused = -1;
    window->beginSheet(first, [&](int) { window->beginSheet(second, {}); });
    window->beginSheet(third, [&](int code) { refused = code; });
    EXPECT_EQ(window->attachedSheet(), second);
    EXPECT_EQ(refused, 0);
    EXPECT_FALSE(third->isVisible());
}

}  // namespace
}  // namespace zor

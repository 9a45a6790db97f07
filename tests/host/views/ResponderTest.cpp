#include <gmock/gmock.h>

#include "tests/host/views/ProbeView.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace zor {
namespace {

class ResponderTest : public testing::Test {
protected:
    ProbeView::Notes notes;
    std::shared_ptr<ProbeView> parent = makeProbe("parent", {0, 0, 100, 100}, notes);
    std::shared_ptr<ProbeView> child = makeProbe("child", {0, 0, 50, 50}, notes);

    void SetUp() override {
        parent->addSubview(child);
        notes.clear();
    }
};

TEST_F(ResponderTest, AnActionGoesToTheFirstThatDeclaresIt) {
    EXPECT_TRUE(child->tryToPerform("probe:", nullptr));
    EXPECT_THAT(notes, ElementsAre("child probe"));
    notes.clear();
    child->performs = false;
    EXPECT_TRUE(child->tryToPerform("probe:", parent));
    EXPECT_THAT(notes, ElementsAre("parent probe with sender"));
    EXPECT_FALSE(child->tryToPerform("nobody:", nullptr));
    parent->performs = false;
    EXPECT_FALSE(child->tryToPerform("probe:", nullptr));
}

TEST_F(ResponderTest, EveryEventIsPassedOn) {
    child->takesEvents = false;
    child->mouseDown({});
    child->mouseDragged({});
    child->mouseUp({});
    child->rightMouseDown({});
    child->keyDown({});
    child->scrollWheel({});
    EXPECT_THAT(notes, ElementsAre("child mouseDown", "parent mouseDown", "child mouseDragged", "parent mouseDragged",
                                   "child mouseUp", "parent mouseUp", "child rightMouseDown", "parent rightMouseDown",
                                   "child keyDown", "parent keyDown", "child scrollWheel", "parent scrollWheel"));
}

TEST_F(ResponderTest, WithoutANextResponderAnEventEnds) {
    Responder alone;
    alone.mouseDown({});
    EXPECT_FALSE(alone.tryToPerform("probe:", nullptr));
    EXPECT_FALSE(alone.acceptsFirstResponder());
    EXPECT_THAT(notes, IsEmpty());
}

TEST(EventTest, CarriesWhatItWasMadeWith) {
    const auto press = Event::mouse(EventType::mouseDown, {3, 4}, shiftKeyMask | controlKeyMask, 2);
    EXPECT_EQ(press->type(), EventType::mouseDown);
    EXPECT_EQ(press->locationInWindow(), (Point{3, 4}));
    EXPECT_EQ(press->modifierFlags(), 0x60000u);
    EXPECT_TRUE(press->hasFlag(controlKeyMask));
    EXPECT_FALSE(press->hasFlag(commandKeyMask));
    EXPECT_EQ(press->clickCount(), 2);

    const auto key = Event::key(u"\xF728", 117, commandKeyMask);
    EXPECT_EQ(key->type(), EventType::keyDown);
    EXPECT_EQ(key->characters(), u"\xF728");
    EXPECT_EQ(key->keyCode(), 117);
    EXPECT_TRUE(key->hasFlag(commandKeyMask));

    const auto wheel = Event::scroll({5, 6}, {-1, 2});
    EXPECT_EQ(wheel->type(), EventType::scrollWheel);
    EXPECT_EQ(wheel->locationInWindow(), (Point{5, 6}));
    EXPECT_EQ(wheel->scrollDelta(), (Size{-1, 2}));
}

}  // namespace
}  // namespace zor

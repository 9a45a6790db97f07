#include "tests/dashboard/EditorFixture.h"

namespace zor {
namespace {

using test::widgetsOn;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Keyboard : public test::EditorTest {
protected:
    Keyboard() { window->makeFirstResponder(dashboard); }
    void arrow(int code, std::uint32_t flags = 0) {
        static const std::map<int, std::u16string> characters{{leftArrowKeyCode, u"\xF702"},
                                                              {rightArrowKeyCode, u"\xF703"},
                                                              {downArrowKeyCode, u"\xF701"},
                                                              {upArrowKeyCode, u"\xF700"}};
        key(characters.at(code), code, flags);
    }
};

TEST_F(Keyboard, OutsideEditModeEveryKeyIsPassedOn) {
    dashboard->exitEditMode({});
    dashboard->selectObject(a);
    key(u"\x7F");
    key(u"d", 2, commandKeyMask);
    arrow(rightArrowKeyCode);
    EXPECT_THAT(surroundings->heard, ElementsAre("key", "key", "key"));
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(a, b, c));
    EXPECT_EQ(a->frame(), (Rect{100, 100, 80, 60}));
}

TEST_F(Keyboard, AKeyWithoutCharactersIsPassedOn) {
    dashboard->selectObject(a);
    key(u"", rightArrowKeyCode);
    EXPECT_THAT(surroundings->heard, ElementsAre("key"));
    EXPECT_EQ(a->frame(), (Rect{100, 100, 80, 60}));
}

TEST_F(Keyboard, InEditModeAnUnhandledKeyIsSwallowed) {
    dashboard->selectObject(a);
    key(u"a");
    key(u"a", 0, commandKeyMask);
    EXPECT_THAT(surroundings->heard, IsEmpty());
    EXPECT_EQ(a->frame(), (Rect{100, 100, 80, 60}));
    EXPECT_EQ(undoSteps(), 0);
}

TEST_F(Keyboard, DeleteBackspaceAndForwardDeleteAllDelete) {
    for (const auto* characters : {u"\x7F", u"\x08", u"\xF728"}) {
        const auto widget = test::box({0, 0, 10, 10});
        canvas->addSubview(widget);
        dashboard->selectObject(widget);
        dashboard->keyDown(Event::key(characters, 0, 0));
        EXPECT_THAT(widgetsOn(canvas), ElementsAre(a, b, c));
    }
    EXPECT_THAT(surroundings->heard, IsEmpty());
}

TEST_F(Keyboard, OnlyTheFirstCharacterCounts) {
    dashboard->selectObject(a);
    key(u"x\x7F");
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(a, b, c));
    key(u"\x7Fx");
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(b, c));
}

TEST_F(Keyboard, CommandDDuplicates) {
    dashboard->selectObject(a);
    key(u"d", 2, commandKeyMask);
    ASSERT_EQ(widgetsOn(canvas).size(), 4u);
    EXPECT_EQ(widgetsOn(canvas)[3]->frame(), (Rect{110, 90, 80, 60}));
}

TEST_F(Keyboard, NeitherUpperCaseNorDAloneDuplicates) {
    dashboard->selectObject(a);
    key(u"D", 2, commandKeyMask | shiftKeyMask);
    key(u"d", 2);
    key(u"d", 2, controlKeyMask);
    EXPECT_EQ(widgetsOn(canvas).size(), 3u);
    EXPECT_EQ(a->frame(), (Rect{100, 100, 80, 60}));
    EXPECT_THAT(surroundings->heard, IsEmpty());
}

TEST_F(Keyboard, ArrowsNudgeEverySelectedWidgetByOnePoint) {
    dashboard->selectObject(a);
    dashboard->selectObject(c);
    arrow(rightArrowKeyCode);
    EXPECT_EQ(a->frame(), (Rect{101, 100, 80, 60}));
    EXPECT_EQ(c->frame(), (Rect{101, 300, 80, 60}));
    arrow(downArrowKeyCode);
    EXPECT_EQ(a->frame(), (Rect{101, 101, 80, 60}));
    arrow(leftArrowKeyCode);
    EXPECT_EQ(a->frame(), (Rect{100, 101, 80, 60}));
    arrow(upArrowKeyCode);
    EXPECT_EQ(a->frame(), (Rect{100, 100, 80, 60}));
    EXPECT_EQ(b->frame(), (Rect{300, 100, 80, 60}));
}

TEST_F(Keyboard, WithShiftByTheCanvassStepFromWhereverTheyStand) {
    canvas->setStep(10);
    a->setFrame({3.5, 100, 80, 60});
    dashboard->selectObject(a);
    dashboard->selectObject(b);
    arrow(rightArrowKeyCode, shiftKeyMask);
    EXPECT_EQ(a->frame().x, 13.5);
    EXPECT_EQ(b->frame().x, 310);
    arrow(upArrowKeyCode, shiftKeyMask);
    EXPECT_EQ(a->frame().y, 90);
}

TEST_F(Keyboard, TheStepIsTakenInSinglePrecision) {
    canvas->setStep(12.3);
    a->setFrame({0, 0, 80, 60});
    dashboard->selectObject(a);
    arrow(rightArrowKeyCode, shiftKeyMask);
    EXPECT_EQ(a->frame().x, 12.300000190734863);
}

TEST_F(Keyboard, NudgesGoBeyondTheCanvas) {
    a->setFrame({0, 0, 80, 60});
    dashboard->selectObject(a);
    arrow(leftArrowKeyCode);
    arrow(upArrowKeyCode, shiftKeyMask);
    EXPECT_EQ(a->frame(), (Rect{-1, -20, 80, 60}));
}

TEST_F(Keyboard, NudgesRegisterNoUndo) {
    dashboard->selectObject(a);
    arrow(rightArrowKeyCode);
    EXPECT_EQ(undoSteps(), 0);
}

TEST_F(Keyboard, WithoutASelectionNothingMovesAndTheKeyIsSwallowed) {
    arrow(rightArrowKeyCode);
    EXPECT_EQ(a->frame(), (Rect{100, 100, 80, 60}));
    EXPECT_THAT(surroundings->heard, IsEmpty());
}

TEST_F(Keyboard, ReachesTheDashboardAfterAPress) {
    window->makeFirstResponder({});
    click(onA);
    arrow(rightArrowKeyCode);
    EXPECT_EQ(a->frame().x, 101);
}

TEST_F(Keyboard, ReachesTheDashboardAfterADeletion) {
    click(onA);
    key(u"\x7F");
    ASSERT_EQ(window->firstResponder(), canvas.get());
    dashboard->selectObject(b);
    arrow(rightArrowKeyCode);
    EXPECT_EQ(b->frame().x, 301);
    key(u"\x7F");
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(c));
}

}  // namespace
}  // namespace zor

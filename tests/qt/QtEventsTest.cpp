#include "qt/QtEvents.h"

#include <gtest/gtest.h>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

namespace zor {

namespace {

struct KeyCase {
    int key;
    Qt::KeyboardModifiers modifiers;
    QString text;
    std::u16string characters;
    int keyCode;
    std::uint32_t flags;
};

EventPtr translated(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
    return eventFromQt(QKeyEvent(QEvent::KeyPress, key, modifiers, text));
}

}  // namespace

class QtKeys : public testing::TestWithParam<KeyCase> {};

TEST_P(QtKeys, AreTranslated) {
    const KeyCase& expected = GetParam();
    const EventPtr event = translated(expected.key, expected.modifiers, expected.text);
    ASSERT_TRUE(event);
    EXPECT_EQ(event->type(), EventType::keyDown);
    EXPECT_EQ(event->characters(), expected.characters);
    EXPECT_EQ(event->keyCode(), expected.keyCode);
    EXPECT_EQ(event->modifierFlags(), expected.flags);
}

INSTANTIATE_TEST_SUITE_P(
    All, QtKeys,
    testing::Values(KeyCase{Qt::Key_Left, {}, "", u"\xF702", 123, 0},
                    KeyCase{Qt::Key_Right, Qt::ShiftModifier, "", u"\xF703", 124, 0x20000},
                    KeyCase{Qt::Key_Down, {}, "", u"\xF701", 125, 0},
                    KeyCase{Qt::Key_Up, Qt::KeypadModifier, "", u"\xF700", 126, 0},
                    KeyCase{Qt::Key_Backspace, {}, "\b", u"\x7F", 0, 0},
                    KeyCase{Qt::Key_Delete, {}, "\x7F", u"\xF728", 0, 0},
                    KeyCase{Qt::Key_D, Qt::ControlModifier, "\x04", u"d", 0, 0x100000},
                    KeyCase{Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier, "\x04", u"D", 0, 0x120000},
                    KeyCase{Qt::Key_A, {}, "a", u"a", 0, 0}, KeyCase{Qt::Key_Adiaeresis, {}, "ä", u"ä", 0, 0},
                    KeyCase{Qt::Key_unknown, {}, QString::fromUtf8("🌧"), u"🌧", 0, 0}));

TEST(QtEvents, AModifierAloneIsNoKeyPress) {
    EXPECT_FALSE(translated(Qt::Key_Shift, Qt::ShiftModifier, ""));
}

TEST(QtEvents, ControlOnTheMouseIsTheControlFlag) {
    const QMouseEvent press(QEvent::MouseButtonPress, QPointF(10.5, 20), QPointF(110.5, 120), Qt::LeftButton,
                            Qt::LeftButton, Qt::ControlModifier | Qt::ShiftModifier);
    const EventPtr event = eventFromQt(press, EventType::mouseDown, 2);
    EXPECT_EQ(event->type(), EventType::mouseDown);
    EXPECT_EQ(event->locationInWindow(), (Point{10.5, 20}));
    EXPECT_EQ(event->modifierFlags(), 0x60000u);
    EXPECT_EQ(event->clickCount(), 2);
}

TEST(QtEvents, TheWheelMovesTheContentWithTheHand) {
    const QWheelEvent pixels({5, 6}, {5, 6}, {3, -7}, {8, -120}, {}, {}, Qt::NoScrollPhase, false);
    EXPECT_EQ(eventFromQt(pixels)->scrollDelta(), (Size{3, -7}));
    const QWheelEvent notch({5, 6}, {5, 6}, {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
    const EventPtr event = eventFromQt(notch);
    EXPECT_EQ(event->type(), EventType::scrollWheel);
    EXPECT_EQ(event->locationInWindow(), (Point{5, 6}));
    EXPECT_EQ(event->scrollDelta().width, 0);
    EXPECT_GE(event->scrollDelta().height, 16);
}

}  // namespace zor

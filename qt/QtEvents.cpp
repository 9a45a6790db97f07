#include "qt/QtEvents.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>
#include <array>

#include "qt/QtConversions.h"

namespace zor {

namespace {

struct NamedKey {
    int key;
    char16_t character;
    int keyCode = 0;
};

constexpr std::array namedKeys{
    NamedKey{Qt::Key_Left, 0xF702, leftArrowKeyCode},
    NamedKey{Qt::Key_Right, 0xF703, rightArrowKeyCode},
    NamedKey{Qt::Key_Down, 0xF701, downArrowKeyCode},
    NamedKey{Qt::Key_Up, 0xF700, upArrowKeyCode},
    NamedKey{Qt::Key_Tab, 0x09},
    NamedKey{Qt::Key_Backtab, 0x19},
    NamedKey{Qt::Key_Backspace, 0x7F},
    NamedKey{Qt::Key_Delete, 0xF728},
    NamedKey{Qt::Key_Home, 0xF729},
    NamedKey{Qt::Key_End, 0xF72B},
    NamedKey{Qt::Key_PageUp, 0xF72C},
    NamedKey{Qt::Key_PageDown, 0xF72D},
};

/// Points that one notch of a mouse wheel scrolls by, for each line that the person wants.
constexpr double pointsPerLine = 16;
constexpr double anglePerNotch = 120;

std::uint32_t modifierFlags(Qt::KeyboardModifiers modifiers, std::uint32_t controlMask) {
    return (modifiers & Qt::ShiftModifier ? shiftKeyMask : 0) | (modifiers & Qt::ControlModifier ? controlMask : 0);
}

std::u16string characters(const QKeyEvent& event) {
    const bool isLatin = event.key() >= Qt::Key_Space && event.key() <= Qt::Key_AsciiTilde;
    if (!(event.modifiers() & Qt::ControlModifier) || !isLatin) return event.text().toStdU16String();
    const QChar character(event.key());
    return {(event.modifiers() & Qt::ShiftModifier ? character : character.toLower()).unicode()};
}

}  // namespace

EventPtr eventFromQt(const QKeyEvent& event) {
    const std::uint32_t flags = modifierFlags(event.modifiers(), commandKeyMask);
    const auto named = std::ranges::find(namedKeys, event.key(), &NamedKey::key);
    if (named != namedKeys.end()) return Event::key({named->character}, named->keyCode, flags);
    const std::u16string text = characters(event);
    return text.empty() ? nullptr : Event::key(text, 0, flags);
}

EventPtr eventFromQt(const QMouseEvent& event, EventType type, int clickCount) {
    return Event::mouse(type, fromQt(event.position()), modifierFlags(event.modifiers(), controlKeyMask), clickCount);
}

EventPtr eventFromQt(const QWheelEvent& event) {
    QPointF delta = event.pixelDelta();
    if (delta.isNull()) {
        delta = QPointF(event.angleDelta()) / anglePerNotch * QApplication::wheelScrollLines() * pointsPerLine;
    }
    return Event::scroll(fromQt(event.position()), {delta.x(), delta.y()});
}

}  // namespace zor

#pragma once

#include <memory>
#include <string>

#include "host/foundation/Object.h"

namespace zor {

enum class EventType { mouseDown, mouseDragged, mouseUp, rightMouseDown, keyDown, scrollWheel };

/// Modifier flag bits of an event.
inline constexpr std::uint32_t shiftKeyMask = 0x20000;
inline constexpr std::uint32_t controlKeyMask = 0x40000;
inline constexpr std::uint32_t commandKeyMask = 0x100000;

/// Hardware key codes.
inline constexpr int leftArrowKeyCode = 123;
inline constexpr int rightArrowKeyCode = 124;
inline constexpr int downArrowKeyCode = 125;
inline constexpr int upArrowKeyCode = 126;

class Event : public Object {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }

    static std::shared_ptr<Event> mouse(EventType type, Point locationInWindow, std::uint32_t flags, int clickCount);
    static std::shared_ptr<Event> key(std::u16string characters, int keyCode, std::uint32_t flags);
    static std::shared_ptr<Event> scroll(Point locationInWindow, Size delta);

    EventType type() const { return type_; }
    /// Window coordinates: origin at the content's top left, y downwards.
    Point locationInWindow() const { return location_; }
    std::uint32_t modifierFlags() const { return flags_; }
    bool hasFlag(std::uint32_t mask) const { return (flags_ & mask) != 0; }
    int clickCount() const { return clickCount_; }
    /// UTF-16 code units.
    const std::u16string& characters() const { return characters_; }
    int keyCode() const { return keyCode_; }
    /// Points to move by, positive when the content moves right and down.
    Size scrollDelta() const { return scrollDelta_; }

private:
    EventType type_ = EventType::mouseDown;
    Point location_;
    std::uint32_t flags_ = 0;
    int clickCount_ = 0;
    std::u16string characters_;
    int keyCode_ = 0;
    Size scrollDelta_;
};

using EventPtr = std::shared_ptr<Event>;

}  // namespace zor

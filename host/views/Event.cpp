#include "host/views/Event.h"

#include "host/foundation/ClassBuilder.h"

namespace zor {

const ClassRecord& Event::staticClass() {
    static const ClassRecord& record = ClassBuilder<Event>("Event", &Object::staticClass()).registered();
    return record;
}

EventPtr Event::mouse(EventType type, Point locationInWindow, std::uint32_t flags, int clickCount) {
    auto event = std::make_shared<Event>();
    event->type_ = type;
    event->location_ = locationInWindow;
    event->flags_ = flags;
    event->clickCount_ = clickCount;
    return event;
}

EventPtr Event::key(std::u16string characters, int keyCode, std::uint32_t flags) {
    auto event = std::make_shared<Event>();
    event->type_ = EventType::keyDown;
    event->characters_ = std::move(characters);
    event->keyCode_ = keyCode;
    event->flags_ = flags;
    return event;
}

EventPtr Event::scroll(Point locationInWindow, Size delta) {
    auto event = std::make_shared<Event>();
    event->type_ = EventType::scrollWheel;
    event->location_ = locationInWindow;
    event->scrollDelta_ = delta;
    return event;
}

}  // namespace zor

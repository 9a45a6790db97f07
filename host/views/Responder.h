#pragma once

#include <string_view>

#include "host/foundation/Object.h"
#include "host/views/Event.h"

namespace zor {

/// A link of the chain along which events and actions travel: view, parent ..., the plug-in's view, the plug-in, the
/// window. What a responder does not handle it passes on.
class Responder : public Object {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }

    virtual Responder* nextResponder() const { return nullptr; }

    /// Each of these passes the event on to the next responder unless it is overridden.
    virtual void mouseDown(const EventPtr& event);
    virtual void mouseDragged(const EventPtr& event);
    virtual void mouseUp(const EventPtr& event);
    virtual void rightMouseDown(const EventPtr& event);
    virtual void keyDown(const EventPtr& event);
    virtual void scrollWheel(const EventPtr& event);

    virtual bool acceptsFirstResponder() const { return false; }

    /// Performs the action on the first responder from here upwards that declares it; false where none does.
    bool tryToPerform(std::string_view action, const ObjectPtr& sender);
};

}  // namespace zor

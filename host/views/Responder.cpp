#include "host/views/Responder.h"

#include "host/foundation/ClassBuilder.h"

namespace zor {

namespace {

/// The next responder is kept alive until its handler returns, so that a handler may take its own view off the tree.
void passOn(const Responder& responder, void (Responder::*handler)(const EventPtr&), const EventPtr& event) {
    if (Responder* next = responder.nextResponder()) {
        const auto alive = next->weak_from_this().lock();
        (next->*handler)(event);
    }
}

}  // namespace

const ClassRecord& Responder::staticClass() {
    static const ClassRecord& record = ClassBuilder<Responder>("Responder", &Object::staticClass()).registered();
    return record;
}

void Responder::mouseDown(const EventPtr& event) {
    passOn(*this, &Responder::mouseDown, event);
}

void Responder::mouseDragged(const EventPtr& event) {
    passOn(*this, &Responder::mouseDragged, event);
}

void Responder::mouseUp(const EventPtr& event) {
    passOn(*this, &Responder::mouseUp, event);
}

void Responder::rightMouseDown(const EventPtr& event) {
    passOn(*this, &Responder::rightMouseDown, event);
}

void Responder::keyDown(const EventPtr& event) {
    passOn(*this, &Responder::keyDown, event);
}

void Responder::scrollWheel(const EventPtr& event) {
    passOn(*this, &Responder::scrollWheel, event);
}

bool Responder::tryToPerform(std::string_view action, const ObjectPtr& sender) {
    for (Responder* responder = this; responder; responder = responder->nextResponder()) {
        if (!responder->respondsTo(action)) continue;
        const auto alive = responder->weak_from_this().lock();
        responder->performWithSender(action, sender);
        return true;
    }
    return false;
}

}  // namespace zor

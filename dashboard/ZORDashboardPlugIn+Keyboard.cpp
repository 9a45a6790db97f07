#include "dashboard/ZORDashboardPlugIn.h"

namespace zor {

namespace {

constexpr char16_t deleteCharacter = 0x7F;
constexpr char16_t backspaceCharacter = 0x08;
constexpr char16_t forwardDeleteCharacter = 0xF728;

}  // namespace

void ZORDashboardPlugIn::keyDown(const EventPtr& event) {
    const auto& characters = event->characters();
    if (characters.empty() || !editView_ || !editView_->editMode()) {
        ZORPlugIn::keyDown(event);
        return;
    }
    const char16_t character = characters.front();
    if (character == deleteCharacter || character == backspaceCharacter || character == forwardDeleteCharacter) {
        deleteObject({});
    } else if (character == u'd' && event->hasFlag(commandKeyMask)) {
        duplicateObject({});
    } else {
        nudgeSelection(event->keyCode(), event->hasFlag(shiftKeyMask));
    }
}

void ZORDashboardPlugIn::nudgeSelection(int keyCode, bool byStep) {
    const double distance = byStep ? static_cast<float>(editView_->step()) : 1.0F;
    for (const auto& widget : selectedObjects_) {
        const Rect frame = widget->frame();
        switch (keyCode) {
            case leftArrowKeyCode: widget->setFrameXCoordinate(frame.x - distance); break;
            case rightArrowKeyCode: widget->setFrameXCoordinate(frame.x + distance); break;
            case downArrowKeyCode: widget->setFrameYCoordinate(frame.y + distance); break;
            case upArrowKeyCode: widget->setFrameYCoordinate(frame.y - distance); break;
            default: break;
        }
    }
}

}  // namespace zor

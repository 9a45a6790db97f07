#include "host/views/Controls.h"

#include "host/foundation/ClassBuilder.h"
#include "host/views/ControlColors.h"
#include "host/views/TextLines.h"
#include "host/views/Window.h"

namespace zor {

namespace {

constexpr double textInset = 4;
constexpr double buttonRadius = 6;
constexpr double buttonFontSize = 13;
constexpr double pressedShade = 0.18;
/// Around the title of the button that has the keyboard.
constexpr double focusInset = 3.5;

}  // namespace

void ControlAction::perform(const ObjectPtr& sender) const {
    const auto object = target.lock();
    if (object && object->respondsTo(name)) object->performWithSender(name, sender);
}

const ClassRecord& TextField::staticClass() {
    static const ClassRecord& record =
        ClassBuilder<TextField>("TextField", &View::staticClass())
            .property("stringValue", &TextField::stringValue, &TextField::setStringValue)
            .property("font", &TextField::font, &TextField::setFont)
            .property("textColor", &TextField::textColor, &TextField::setTextColor)
            .property("backgroundColor", &TextField::backgroundColor, &TextField::setBackgroundColor)
            .property("wraps", &TextField::wraps, &TextField::setWraps)
            .registered();
    return record;
}

void TextField::setStringValue(std::string text) {
    if (text == text_) return;
    text_ = std::move(text);
    setNeedsDisplay(true);
}

void TextField::setFont(Font font) {
    font_ = std::move(font);
    setNeedsDisplay(true);
}

void TextField::setTextColor(Color color) {
    textColor_ = color;
    setNeedsDisplay(true);
}

void TextField::setBackgroundColor(Color color) {
    backgroundColor_ = color;
    setNeedsDisplay(true);
}

void TextField::setAlignment(TextAlignment alignment) {
    alignment_ = alignment;
    setNeedsDisplay(true);
}

void TextField::setWraps(bool wraps) {
    wraps_ = wraps;
    setNeedsDisplay(true);
}

void TextField::drawRect(DrawingContext& context, const Rect&) {
    if (backgroundColor_.alpha > 0) context.fillRect(bounds(), backgroundColor_);
    drawString(context, textColor_);
}

void TextField::drawString(DrawingContext& context, Color color) const {
    const Rect area = insetRect(bounds(), textInset, 0);
    if (wraps_) {
        context.drawText(textBrokenToWidth(text_, font_, area.width), area, font_, color, alignment_,
                         VerticalAlignment::top);
    } else {
        context.drawText(text_, area, font_, color, alignment_, VerticalAlignment::center);
    }
}

const ClassRecord& Button::staticClass() {
    static const ClassRecord& record = ClassBuilder<Button>("Button", &View::staticClass())
                                           .property("title", &Button::title, &Button::setTitle)
                                           .action("click", &Button::click)
                                           .registered();
    return record;
}

void Button::setTitle(std::string title) {
    title_ = std::move(title);
    setNeedsDisplay(true);
}

void Button::setKeyEquivalent(std::u16string characters) {
    keyEquivalent_ = std::move(characters);
    setNeedsDisplay(true);
}

void Button::setPressed(const EventPtr& event) {
    const bool inside = event && pointInRect(convertPointFromView(event->locationInWindow(), nullptr), bounds());
    if (std::exchange(pressed_, inside) != inside) setNeedsDisplay(true);
}

void Button::keyDown(const EventPtr& event) {
    if (event->characters() != u" ") return View::keyDown(event);
    click();
}

void Button::mouseDown(const EventPtr& event) {
    setPressed(event);
}

void Button::mouseDragged(const EventPtr& event) {
    setPressed(event);
}

void Button::mouseUp(const EventPtr& event) {
    setPressed(event);
    if (!pressed_) return;
    setPressed({});
    click();
}

void Button::drawRect(DrawingContext& context, const Rect&) {
    const auto& colors = ControlColors::current();
    const bool isDefault = keyEquivalent_ == returnKey;
    const Path outline = Path::roundedRect(insetRect(bounds(), 0.5, 0.5), buttonRadius);
    const Color face = isDefault ? colors.accent : colors.face;
    context.fillPath(outline, pressed_ ? face.mixedWith(Color::black(), pressedShade) : face);
    context.strokePath(outline, {.color = isDefault ? face.mixedWith(Color::black(), pressedShade) : colors.edge});
    context.drawText(title_, bounds(), Font{.size = buttonFontSize, .bold = isDefault},
                     isDefault ? colors.onAccent : colors.text, TextAlignment::center, VerticalAlignment::center);
    if (!window() || window()->firstResponder() != this) return;
    context.strokePath(Path::roundedRect(insetRect(bounds(), focusInset, focusInset), buttonRadius - focusInset / 2),
                       {.color = isDefault ? colors.onAccent : colors.accent, .width = 1.5});
}

}  // namespace zor

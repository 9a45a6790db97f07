#include "host/views/View.h"

#include "host/foundation/ClassBuilder.h"
#include "host/foundation/Coder.h"
#include "host/views/ViewExtras.h"
#include "host/views/Window.h"

namespace zor {

const ClassRecord& View::staticClass() {
    static const ClassRecord& record = ClassBuilder<View>("View", &Responder::staticClass())
                                           .creatable()
                                           .property("frame", &View::frame, &View::setFrame)
                                           .property("hidden", &View::isHidden, &View::setHidden)
                                           .registered();
    return record;
}

View::View() = default;

View::View(const Rect& frame) : frame_(frame) {}

View::~View() {
    for (const auto& child : subviews()) child->superview_ = nullptr;
    for (const auto& layer : sublayers()) layer->view_ = nullptr;
}

View::Extras& View::extras() {
    if (!extras_) extras_ = std::make_unique<Extras>();
    return *extras_;
}

void View::setFrame(const Rect& frame) {
    if (frame == frame_) return;
    const bool resized = frame.size() != frame_.size();
    setNeedsDisplay(true);
    storeFrame(frame);
    setNeedsDisplay(true);
    if (resized) layout();
    if (superview_) superview_->childDidChangeFrame(*this);
}

void View::setHidden(bool hidden) {
    if (hidden == hidden_) return;
    // What is hidden asks for no redrawing, so that one of the two calls does it.
    setNeedsDisplay(true);
    hidden_ = hidden;
    setNeedsDisplay(true);
}

Responder* View::nextResponder() const {
    if (const auto set = nextResponder_.lock()) return set.get();
    return superview_ ? static_cast<Responder*>(superview_) : window_;
}

Window* View::window() const {
    return root().window_;
}

void View::setWindow(Window* window) {
    if (window == window_) return;
    window_ = window;
    announce(&View::viewDidMoveToWindow);
}

Point View::originInParent() const {
    const Point shift = superview_ ? superview_->childrenOrigin() : Point{};
    return {frame_.x + shift.x, frame_.y + shift.y};
}

Point View::originInWindow() const {
    Point origin;
    for (const View* view = this; view; view = view->superview_) {
        const Point step = view->originInParent();
        origin = {origin.x + step.x, origin.y + step.y};
    }
    return origin;
}

Point View::convertPointToView(Point point, const View* view) const {
    const Point from = originInWindow();
    const Point to = view ? view->originInWindow() : Point{};
    return {point.x + (from.x - to.x), point.y + (from.y - to.y)};
}

Point View::convertPointFromView(Point point, const View* view) const {
    const Point origin = convertPointToView({}, view);
    return {point.x - origin.x, point.y - origin.y};
}

Rect View::convertRectToView(const Rect& rect, const View* view) const {
    const Point origin = convertPointToView(rect.origin(), view);
    return {origin.x, origin.y, rect.width, rect.height};
}

void View::encodeWithCoder(Encoder& encoder) {
    Responder::encodeWithCoder(encoder);
    encoder.encodeRect("frame", frame_);
    if (hidden_) encoder.encodeBool("hidden", true);
    if (!subviews().empty()) encoder.encodeObjects("subviews", subviews());
}

bool View::initWithCoder(Decoder& decoder) {
    if (!Responder::initWithCoder(decoder)) return false;
    // In a circle it may have a parent already.
    storeFrame(decoder.decodeRect("frame"));
    hidden_ = decoder.decodeBool("hidden");
    restoreSubviews(decoder.decodeObjects<View>("subviews"));
    return true;
}

}  // namespace zor

#include "host/views/View.h"

#include <algorithm>

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
    for (const auto& child : subviews_) child->superview_ = nullptr;
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
    frame_ = frame;
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

const View& View::root() const {
    const View* view = this;
    while (view->superview_) view = view->superview_;
    return *view;
}

bool View::isDescendantOf(const View& other) const {
    const View* view = this;
    while (view && view != &other) view = view->superview_;
    return view != nullptr;
}

bool View::mayAdopt(const View* view) const {
    return view && !isDescendantOf(*view);
}

std::size_t View::indexOf(const View& child) const {
    // From both ends: what leaves among thousands mostly stands near one of them.
    const std::size_t count = subviews_.size();
    for (std::size_t first = 0; 2 * first < count; ++first) {
        if (subviews_[first].get() == &child) return first;
        if (subviews_[count - 1 - first].get() == &child) return count - 1 - first;
    }
    return count;
}

void View::addSubview(const std::shared_ptr<View>& view) {
    if (!mayAdopt(view.get())) return;
    // The argument may be an element of the very list that is about to change.
    auto child = view;
    if (child->superview_ == this) {
        const auto place = std::ranges::find(subviews_, child);
        subviews_.erase(place);
        subviews_.push_back(std::move(child));
        subviews_.back()->setNeedsDisplay(true);
    } else {
        child->leaveTree();
        insertChild(std::move(child), subviews_.size());
    }
}

void View::removeFromSuperview() {
    if (superview_) superview_->takeChild(superview_->indexOf(*this));
}

void View::replaceSubview(const std::shared_ptr<View>& old, const std::shared_ptr<View>& replacement) {
    if (!old || old->superview_ != this || old == replacement || !mayAdopt(replacement.get())) return;
    auto child = replacement;
    const auto leaving = old;
    child->leaveTree();
    const auto index = indexOf(*leaving);
    if (index == subviews_.size()) return;
    takeChild(index);
    insertChild(std::move(child), std::min(index, subviews_.size()));
}

void View::sortSubviews(const std::function<int(const View&, const View&)>& compare) {
    std::ranges::stable_sort(subviews_, [&](const auto& a, const auto& b) { return compare(*a, *b) < 0; });
    setNeedsDisplay(true);
}

void View::restoreSubviews(std::vector<std::shared_ptr<View>> views) {
    const View& top = root();
    for (auto& view : views) {
        if (!view || view->superview_ || view->window_ || view.get() == &top) continue;
        view->superview_ = this;
        subviews_.push_back(std::move(view));
    }
    setNeedsDisplay(true);
}

void View::leaveTree() {
    if (superview_) {
        removeFromSuperview();
    } else if (window_) {
        window_->setContentView({});
    }
}

void View::insertChild(std::shared_ptr<View> child, std::size_t index) {
    View& added = *child;
    const auto alive = child;
    subviews_.insert(subviews_.begin() + static_cast<std::ptrdiff_t>(index), std::move(child));
    added.superview_ = this;
    added.announce(&View::viewDidMoveToSuperview);
    if (added.window()) added.announce(&View::viewDidMoveToWindow);
    added.setNeedsDisplay(true);
}

void View::takeChild(std::size_t index) {
    const auto child = subviews_[index];
    child->setNeedsDisplay(true);
    Window* const left = window();
    if (left) left->viewLeaves(*child);
    subviews_.erase(subviews_.begin() + static_cast<std::ptrdiff_t>(index));
    child->superview_ = nullptr;
    child->announce(&View::viewDidMoveToSuperview);
    if (left) child->announce(&View::viewDidMoveToWindow);
}

void View::announce(void (View::*hook)()) {
    (this->*hook)();
    // By index and held, since a hook may change the list.
    for (std::size_t i = 0; i < subviews_.size(); ++i) {
        const auto child = subviews_[i];
        child->announce(hook);
    }
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

View* View::hitTest(Point point) {
    if (hidden_) return nullptr;
    const bool inside = pointInRect(point, frame_);
    const bool clips = clipsToBounds();
    if (clips && !inside) return nullptr;
    const Point own{point.x - frame_.x, point.y - frame_.y};
    if (!clips || pointInRect(own, childrenClip())) {
        const Point shift = childrenOrigin();
        const Point below{own.x - shift.x, own.y - shift.y};
        for (auto child = subviews_.rbegin(); child != subviews_.rend(); ++child) {
            if (View* hit = (*child)->hitTest(below)) return hit;
        }
    }
    return inside ? this : nullptr;
}

void View::encodeWithCoder(Encoder& encoder) {
    Responder::encodeWithCoder(encoder);
    encoder.encodeRect("frame", frame_);
    if (hidden_) encoder.encodeBool("hidden", true);
    if (!subviews_.empty()) encoder.encodeObjects("subviews", subviews_);
}

bool View::initWithCoder(Decoder& decoder) {
    if (!Responder::initWithCoder(decoder)) return false;
    frame_ = decoder.decodeRect("frame");
    hidden_ = decoder.decodeBool("hidden");
    restoreSubviews(decoder.decodeObjects<View>("subviews"));
    return true;
}

}  // namespace zor

// A view's children: coming, leaving and being found.

#include <algorithm>
#include <utility>

#include "host/views/ViewExtras.h"
#include "host/views/Window.h"

namespace zor {

namespace {

/// From so many children on, their frames are kept side by side.
constexpr std::size_t manyChildren = 32;

}  // namespace

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

void View::closeGaps() const {
    hasGaps_ = false;
    const auto gap = std::ranges::find(subviews_, nullptr);
    const auto first = static_cast<std::size_t>(gap - subviews_.begin());
    subviews_.erase(std::remove(gap, subviews_.end(), nullptr), subviews_.end());
    placeChildren(first);
}

/// Tells the children from `first` on where they stand.
void View::placeChildren(std::size_t first) const {
    for (std::size_t index = first; index < subviews_.size(); ++index) {
        subviews_[index]->place_ = static_cast<std::uint32_t>(index);
    }
    if (!childFrames()) return;
    auto& frames = extras_->childFrames;
    frames.resize(subviews_.size());
    for (std::size_t index = first; index < subviews_.size(); ++index) {
        frames[index] = {subviews_[index]->frame_, subviews_[index]->keepsWithinFrame()};
    }
}

/// After children have come in at `first` or behind it.
void View::noteChildren(std::size_t first) {
    if (subviews_.size() < manyChildren || childFrames()) return placeChildren(first);
    if (hasGaps_) closeGaps();
    extras().childFrames.resize(subviews_.size());
    placeChildren(0);
}

void View::storeFrame(const Rect& frame) {
    frame_ = frame;
    if (superview_ && superview_->childFrames()) superview_->extras_->childFrames[place_].frame = frame;
}

void View::addSubview(const std::shared_ptr<View>& view) {
    if (!mayAdopt(view.get())) return;
    // The argument may be an element of the very list that is about to change.
    auto child = view;
    if (child->superview_ == this) {
        subviews_[child->place_].reset();
        hasGaps_ = true;
        appendChild(child);
        child->setNeedsDisplay(true);
    } else {
        child->leaveTree();
        insertChild(std::move(child), subviews_.size());
    }
}

void View::appendChild(std::shared_ptr<View> child) {
    // Gaps are closed before the list grows for them, and leave room for as many again: linear time, little memory.
    if (hasGaps_ && subviews_.size() == subviews_.capacity()) {
        closeGaps();
        subviews_.reserve(2 * subviews_.size() + 1);
    }
    subviews_.push_back(std::move(child));
    noteChildren(subviews_.size() - 1);
}

void View::removeFromSuperview() {
    if (superview_) superview_->takeChild(*this);
}

void View::replaceSubview(const std::shared_ptr<View>& old, const std::shared_ptr<View>& replacement) {
    if (!old || old->superview_ != this || old == replacement || !mayAdopt(replacement.get())) return;
    auto child = replacement;
    const auto leaving = old;
    child->leaveTree();
    if (leaving->superview_ != this) return;
    if (hasGaps_) closeGaps();
    const std::size_t index = leaving->place_;
    takeChild(*leaving);
    insertChild(std::move(child), std::min(index, subviews().size()));
}

void View::sortSubviews(const std::function<int(const View&, const View&)>& compare) {
    if (hasGaps_) closeGaps();
    std::ranges::stable_sort(subviews_, [&](const auto& a, const auto& b) { return compare(*a, *b) < 0; });
    placeChildren(0);
    setNeedsDisplay(true);
}

void View::restoreSubviews(std::vector<std::shared_ptr<View>> views) {
    if (views.empty()) return;
    const View& top = root();
    const auto first = subviews().size();
    for (auto& view : views) {
        if (!view || view->superview_ || view->window_ || view.get() == &top || !mayRestore(*view)) continue;
        view->superview_ = this;
        subviews_.push_back(std::move(view));
    }
    noteChildren(first);
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
    added.superview_ = this;
    if (index == subviews_.size()) {
        appendChild(std::move(child));
    } else {
        subviews_.insert(subviews_.begin() + static_cast<std::ptrdiff_t>(index), std::move(child));
        noteChildren(index);
    }
    added.announce(&View::viewDidMoveToSuperview);
    if (added.window()) added.announce(&View::viewDidMoveToWindow);
    added.setNeedsDisplay(true);
}

void View::takeChild(const View& leaving) {
    const auto child = subviews_[leaving.place_];
    child->setNeedsDisplay(true);
    Window* const left = window();
    if (left) left->viewLeaves(*child);
    // Whoever was told may have taken it already.
    if (child->superview_ != this) return;
    subviews_[child->place_].reset();
    hasGaps_ = true;
    child->superview_ = nullptr;
    child->announce(&View::viewDidMoveToSuperview);
    if (left) child->announce(&View::viewDidMoveToWindow);
}

void View::announce(void (View::*hook)()) {
    (this->*hook)();
    // By index and held, since a hook may change the list.
    for (std::size_t index = 0; index < subviews().size(); ++index) {
        const auto child = subviews()[index];
        child->announce(hook);
    }
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
        const auto& children = subviews();
        const ChildFrame* const noted = childFrames();
        for (std::size_t index = children.size(); index-- > 0;) {
            if (noted && noted[index].keepsWithinFrame && !pointInRect(below, noted[index].frame)) continue;
            if (View* hit = children[index]->hitTest(below)) return hit;
        }
    }
    return inside ? this : nullptr;
}

std::shared_ptr<View> View::topmostChildAt(Point point) const {
    const auto& children = subviews();
    const ChildFrame* const noted = childFrames();
    for (std::size_t index = children.size(); index-- > 0;) {
        if (pointInRect(point, noted ? noted[index].frame : children[index]->frame_)) return children[index];
    }
    return {};
}

}  // namespace zor

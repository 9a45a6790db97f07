#include "qt/AutoScroller.h"

#include <algorithm>

namespace zor {

namespace {

constexpr int millisecondsPerStep = 30;
/// Inside the edge, in points.
constexpr double edge = 20;
/// Of the distance from where the edge begins, scrolled in one step.
constexpr double share = 0.35;
constexpr double longestStep = 40;

/// Below 0 towards the beginning, 0 in the middle.
double advanceAlong(double at, double start, double length) {
    const double before = start + edge - at, beyond = at - (start + length - edge);
    const double distance = beyond > 0 ? beyond : before > 0 ? -before : 0;
    return std::clamp(distance * share, -longestStep, longestStep);
}

}  // namespace

AutoScroller::AutoScroller(std::function<void(const EventPtr&)> dragAgain) : dragAgain_(std::move(dragAgain)) {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { step(); });
}

void AutoScroller::begin(View* view) {
    end();
    if (!view || !view->dragsScroll()) return;
    for (View* around = view; around; around = around->superview()) {
        if (auto scrollView = std::dynamic_pointer_cast<ScrollView>(around->shared_from_this())) {
            scrollView_ = scrollView;
            return;
        }
    }
}

void AutoScroller::follow(const EventPtr& drag) {
    drag_ = drag;
    if (advance() == Point{}) {
        timer_.stop();
    } else if (!timer_.isActive()) {
        timer_.start(millisecondsPerStep);
    }
}

void AutoScroller::end() {
    timer_.stop();
    scrollView_.reset();
    drag_.reset();
}

Point AutoScroller::advance() const {
    const auto scrollView = scrollView_.lock();
    if (!scrollView || !drag_) return {};
    const Point at = scrollView->convertPointFromView(drag_->locationInWindow(), nullptr);
    const Rect port = scrollView->viewport();
    return {advanceAlong(at.x, port.x, port.width), advanceAlong(at.y, port.y, port.height)};
}

void AutoScroller::step() {
    const auto scrollView = scrollView_.lock();
    const Point before = scrollView ? scrollView->contentOffset() : Point{};
    const Point by = advance();
    if (scrollView) scrollView->setContentOffset({before.x + by.x, before.y + by.y});
    // At the end of the page there is nothing left to do.
    if (!scrollView || scrollView->contentOffset() == before) return timer_.stop();
    const auto drag = drag_;
    dragAgain_(drag);
}

}  // namespace zor

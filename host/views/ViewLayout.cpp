#include <algorithm>
#include <optional>

#include "host/views/ViewExtras.h"

namespace zor {

namespace {

/// What constraints say of a view in one direction.
struct Extent {
    std::optional<double> start;
    std::optional<double> end;
    std::optional<double> length;

    /// Two ends decide over a length, the start over the end; what nothing is said of stays.
    void apply(double& origin, double& size) const {
        if (start && end) {
            size = *end - *start;
        } else if (length) {
            size = *length;
        }
        if (start) {
            origin = *start;
        } else if (end) {
            origin = *end - size;
        }
    }
};

struct Wanted {
    std::shared_ptr<View> target;
    Extent across;
    Extent down;

    void set(LayoutAttribute attribute, double value) {
        switch (attribute) {
            case LayoutAttribute::left:
                across.start = value;
                break;
            case LayoutAttribute::right:
                across.end = value;
                break;
            case LayoutAttribute::width:
                across.length = value;
                break;
            case LayoutAttribute::top:
                down.start = value;
                break;
            case LayoutAttribute::bottom:
                down.end = value;
                break;
            case LayoutAttribute::height:
                down.length = value;
                break;
        }
    }
};

double valueOf(LayoutAttribute attribute, const Rect& rect) {
    switch (attribute) {
        case LayoutAttribute::left:
            return rect.x;
        case LayoutAttribute::right:
            return rect.maxX();
        case LayoutAttribute::width:
            return rect.width;
        case LayoutAttribute::top:
            return rect.y;
        case LayoutAttribute::bottom:
            return rect.maxY();
        case LayoutAttribute::height:
            return rect.height;
    }
    return 0;
}

}  // namespace

const std::vector<LayoutConstraint>& View::constraints() const {
    static const std::vector<LayoutConstraint> none;
    return extras_ ? extras_->constraints : none;
}

void View::addConstraints(std::vector<LayoutConstraint> constraints) {
    auto& held = extras().constraints;
    held.insert(held.end(), std::make_move_iterator(constraints.begin()), std::make_move_iterator(constraints.end()));
    layout();
}

void View::deactivateConstraints() {
    if (!extras_) return;
    for (auto& constraint : extras_->constraints) constraint.active = false;
}

void View::layout() {
    std::vector<Wanted> wishes;
    for (const auto& constraint : constraints()) {
        auto target = constraint.target.lock();
        if (!constraint.active || !target || target->superview_ != this) continue;
        auto wish = std::ranges::find(wishes, target, &Wanted::target);
        if (wish == wishes.end()) wish = wishes.insert(wish, {std::move(target), {}, {}});
        wish->set(constraint.attribute,
                  valueOf(constraint.attribute, bounds()) * constraint.multiplier + constraint.constant);
    }
    const Point origin = childrenOrigin();
    for (const auto& wish : wishes) {
        Rect frame = offsetRect(wish.target->frame(), origin.x, origin.y);
        wish.across.apply(frame.x, frame.width);
        wish.down.apply(frame.y, frame.height);
        wish.target->setFrame(offsetRect(frame, -origin.x, -origin.y));
    }
}

}  // namespace zor

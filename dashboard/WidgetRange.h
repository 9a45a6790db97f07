#pragma once

#include <iterator>
#include <memory>
#include <vector>

#include "host/instruments/ZORWidgetHostView.h"

namespace zor {

/// A canvas's children as the widgets that they are, in stacking order, first = bottom. Refers to the list of children.
class WidgetRange {
public:
    class Iterator {
    public:
        using iterator_category = std::bidirectional_iterator_tag;
        using value_type = ZORWidgetHostView;
        using difference_type = std::ptrdiff_t;
        using pointer = ZORWidgetHostView*;
        using reference = ZORWidgetHostView&;

        Iterator() = default;
        explicit Iterator(std::vector<std::shared_ptr<View>>::const_iterator place) : place_(place) {}

        reference operator*() const { return static_cast<reference>(**place_); }
        pointer operator->() const { return &**this; }
        Iterator& operator++() { return ++place_, *this; }
        Iterator& operator--() { return --place_, *this; }
        Iterator operator++(int) { return Iterator(place_++); }
        Iterator operator--(int) { return Iterator(place_--); }
        bool operator==(const Iterator&) const = default;

    private:
        std::vector<std::shared_ptr<View>>::const_iterator place_;
    };

    explicit WidgetRange(const std::vector<std::shared_ptr<View>>& children) : children_(children) {}

    Iterator begin() const { return Iterator(children_.begin()); }
    Iterator end() const { return Iterator(children_.end()); }
    /// From the top down.
    auto rbegin() const { return std::make_reverse_iterator(end()); }
    auto rend() const { return std::make_reverse_iterator(begin()); }
    bool empty() const { return children_.empty(); }
    ZORWidgetHostView& front() const { return *begin(); }
    ZORWidgetHostView& back() const { return *rbegin(); }

private:
    const std::vector<std::shared_ptr<View>>& children_;
};

}  // namespace zor

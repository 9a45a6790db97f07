#pragma once
// Where the values that objects ask for are: objects of one class mostly have the same keys, which their archive holds
// once, and ask for them in the same order.

#include <deque>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/foundation/FlatIndex.h"
#include "host/foundation/PropertyList.h"

namespace zor {

/// Dictionaries that have the same keys in the same order.
class KeyLayout {
public:
    using Index = PropertyList::Index;
    /// Of a key among its dictionary's, the first of equal ones.
    using Place = std::optional<std::uint32_t>;

    KeyLayout(const PropertyList& list, std::span<const Index> keys);

    std::span<const Index> keys() const { return keys_; }
    Place classPlace() const { return classPlace_; }
    /// `step` counts an object's questions, and says what it probably asks for now.
    Place place(std::string_view key, std::size_t& step) {
        const bool isExpected = step < questions_.size() && questions_[step].key == key;
        return isExpected ? questions_[step++].place : unexpectedPlace(key, step);
    }

    static Place placeAmong(const PropertyList& list, std::span<const Index> keys, std::string_view key);

private:
    struct Question {
        std::string key;
        Place place;
    };

    Place unexpectedPlace(std::string_view key, std::size_t& step);

    const PropertyList& list_;
    std::span<const Index> keys_;
    Place classPlace_;
    /// In the order in which they were first asked.
    std::vector<Question> questions_;
};

/// A file may hold a layout for each of its objects: only so many are kept.
class KeyLayouts {
public:
    using Index = PropertyList::Index;

    explicit KeyLayouts(const PropertyList& list) : list_(list) {}

    /// The layout of dictionaries with those keys, or none where there are too many others.
    KeyLayout* of(std::span<const Index> keys);

private:
    static constexpr std::size_t most = 256;

    const PropertyList& list_;
    std::deque<KeyLayout> layouts_;
    FlatIndex index_;
};

}  // namespace zor

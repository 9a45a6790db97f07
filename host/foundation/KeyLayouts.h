#pragma once
// Where the values that objects ask for are: objects of one class mostly have the same keys, which their archive holds
// once, and ask for them in the same order.

#include <array>
#include <cstring>
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
    /// `step` is the place, among the questions, of what the object probably asks for now.
    Place place(std::string_view key, std::size_t& step) {
        const bool isExpected = step < questions_.size() && isEqual(questions_[step].key, key);
        return isExpected ? questions_[step++].place : unexpectedPlace(key, step);
    }

private:
    /// Keys are short, and a call would take longer than this.
    static bool isEqual(std::string_view one, std::string_view other) {
        if (one.size() != other.size()) return false;
        if (coversAll<std::uint64_t>(one)) return haveEqualEnds<std::uint64_t>(one, other);
        return coversAll<std::uint32_t>(one) ? haveEqualEnds<std::uint32_t>(one, other) : one == other;
    }
    /// Whether the word at the beginning and that at the end, together, are all of the text.
    template <typename Word>
    static bool coversAll(std::string_view text) {
        return text.size() >= sizeof(Word) && text.size() <= 2 * sizeof(Word);
    }
    template <typename Word>
    static bool haveEqualEnds(std::string_view one, std::string_view other) {
        const auto word = [](const char* at) {
            Word bits;
            std::memcpy(&bits, at, sizeof bits);
            return bits;
        };
        const std::size_t last = one.size() - sizeof(Word);
        return word(one.data()) == word(other.data()) && word(one.data() + last) == word(other.data() + last);
    }

    struct Question {
        std::string key;
        Place place;
    };

    Place unexpectedPlace(std::string_view key, std::size_t& step);
    Place placeOf(std::string_view key) const;

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

    KeyLayout* find(std::span<const Index> keys);

    const PropertyList& list_;
    std::deque<KeyLayout> layouts_;
    FlatIndex index_;
    /// Widgets and what they show mostly take turns.
    std::array<KeyLayout*, 2> recent_{};
};

}  // namespace zor

#pragma once
// A hash index into a table that its owner keeps: numbers by hash, in one block of memory.

#include <cstdint>
#include <optional>
#include <vector>

namespace zor {

/// Spreads the bits of a number or an address over the whole hash.
constexpr std::uint64_t hashOfBits(std::uint64_t bits) {
    bits = (bits ^ bits >> 30) * 0xBF58'476D'1CE4'E5B9;
    bits = (bits ^ bits >> 27) * 0x94D0'49BB'1331'11EB;
    return bits ^ bits >> 31;
}

class FlatIndex {
public:
    using Number = std::uint32_t;

    /// The number whose entry `matches`, or the one that `make` gives, which is noted under the hash.
    /// `make` must not use this index.
    template <typename Matches, typename Make>
    Number findOrMake(std::uint64_t hash, Matches&& matches, Make&& make) {
        if (used_ * 2 >= slots_.size()) grow();
        const auto mark = static_cast<std::uint32_t>(hash);
        Slot& slot = slots_[placeOf(mark, matches)];
        if (slot.number == empty) {
            slot = {mark, make()};
            ++used_;
        }
        return slot.number;
    }

    /// The number whose entry `matches`, or none.
    template <typename Matches>
    std::optional<Number> find(std::uint64_t hash, Matches&& matches) const {
        if (slots_.empty()) return {};
        const Slot& slot = slots_[placeOf(static_cast<std::uint32_t>(hash), matches)];
        return slot.number == empty ? std::nullopt : std::optional(slot.number);
    }

private:
    static constexpr Number empty = 0xFFFF'FFFF;
    struct Slot {
        std::uint32_t mark = 0;
        Number number = empty;
    };

    /// Where the wanted slot is, or the empty one where it would be.
    template <typename Wanted>
    std::size_t place(std::uint32_t mark, Wanted&& wanted) const {
        std::size_t position = mark & (slots_.size() - 1);
        while (slots_[position].number != empty && !wanted(slots_[position])) {
            position = (position + 1) & (slots_.size() - 1);
        }
        return position;
    }

    template <typename Matches>
    std::size_t placeOf(std::uint32_t mark, Matches&& matches) const {
        return place(mark, [&](const Slot& taken) { return taken.mark == mark && matches(taken.number); });
    }

    void grow() {
        std::vector<Slot> old(slots_.empty() ? 64 : slots_.size() * 2);
        old.swap(slots_);
        for (const Slot& slot : old) {
            if (slot.number != empty) slots_[place(slot.mark, [](const Slot&) { return false; })] = slot;
        }
    }

    std::vector<Slot> slots_;
    std::size_t used_ = 0;
};

}  // namespace zor

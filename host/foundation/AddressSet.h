#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "host/foundation/FlatIndex.h"

namespace zor {

/// A set of addresses, in one block of memory that is made for as many as it may come to hold.
class AddressSet {
public:
    explicit AddressSet(std::size_t most) : slots_(std::bit_ceil(2 * most + 1)) {}

    /// Whether it is new. No more than were announced may come.
    bool insert(const void* address) {
        auto& slot = slots_[place(address)];
        if (slot) return false;
        slot = address;
        return true;
    }
    bool contains(const void* address) const { return slots_[place(address)] != nullptr; }

private:
    /// Where the address is, or the empty slot where it would be.
    std::size_t place(const void* address) const {
        const std::size_t mask = slots_.size() - 1;
        std::size_t position = hashOfBits(reinterpret_cast<std::uintptr_t>(address)) & mask;
        while (slots_[position] && slots_[position] != address) position = (position + 1) & mask;
        return position;
    }

    std::vector<const void*> slots_;
};

}  // namespace zor

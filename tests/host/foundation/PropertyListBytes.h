#pragma once
// Binary property lists put together by hand, right or wrong.

#include <cstdint>
#include <initializer_list>
#include <string_view>

#include "host/foundation/Value.h"

namespace zor {

class PropertyListBytes {
public:
    /// The trailer's fields; those left alone are right.
    std::optional<std::uint64_t> count;
    std::optional<std::uint64_t> root;
    std::optional<std::uint64_t> tableOffset;
    std::uint8_t offsetSize = 2;
    std::uint8_t referenceSize = 1;

    /// Adds an object and gives its number.
    std::uint64_t add(const Bytes& object) {
        offsets_.push_back(data_.size());
        data_.insert(data_.end(), object.begin(), object.end());
        return offsets_.size() - 1;
    }
    std::uint64_t add(std::initializer_list<int> object) { return add(Bytes(object.begin(), object.end())); }
    /// ASCII of up to 14 characters.
    std::uint64_t addText(std::string_view text) {
        Bytes object{static_cast<std::uint8_t>(0x50 | text.size())};
        object.insert(object.end(), text.begin(), text.end());
        return add(object);
    }
    /// One more number for the object at that offset.
    std::uint64_t addOffset(std::uint64_t offset) {
        offsets_.push_back(offset);
        return offsets_.size() - 1;
    }
    std::uint64_t offsetOf(std::uint64_t object) const { return offsets_[object]; }
    std::uint64_t end() const { return data_.size(); }

    /// The whole file; the object added last is the root unless said otherwise.
    Bytes finish() const {
        Bytes file = data_;
        for (const auto offset : offsets_) append(file, offset, offsetSize);
        file.insert(file.end(), 6, 0);
        file.push_back(offsetSize);
        file.push_back(referenceSize);
        append(file, count.value_or(offsets_.size()), 8);
        append(file, root.value_or(offsets_.size() - 1), 8);
        append(file, tableOffset.value_or(data_.size()), 8);
        return file;
    }

    static void append(Bytes& bytes, std::uint64_t number, std::size_t size) {
        for (std::size_t index = size; index-- > 0;) bytes.push_back(static_cast<std::uint8_t>(number >> 8 * index));
    }

private:
    Bytes data_{'b', 'p', 'l', 'i', 's', 't', '0', '0'};
    std::vector<std::uint64_t> offsets_;
};

inline Bytes bytesOf(std::string_view text) {
    return {text.begin(), text.end()};
}

}  // namespace zor

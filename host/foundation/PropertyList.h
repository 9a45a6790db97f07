#pragma once
// Property lists as flat tables: every node knows its children by number, so that shared containers cost nothing
// and no reader needs recursion.

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "host/foundation/Result.h"
#include "host/foundation/Value.h"

namespace zor {

struct PropertyListNode {
    using Index = std::uint32_t;
    struct Uid {
        std::uint64_t number = 0;
        bool operator==(const Uid&) const = default;
    };
    /// A 16-byte integer that does not fit 64 bits.
    struct WideInteger {
        std::uint64_t high = 0;
        std::uint64_t low = 0;
    };
    /// Children are nodes `first` to `first + count` of PropertyList::references(); a dictionary has its `count` keys
    /// first and then as many values.
    struct Array {
        std::size_t first = 0;
        std::size_t count = 0;
    };
    struct Dictionary {
        std::size_t first = 0;
        std::size_t count = 0;
    };
    std::variant<std::monostate, bool, std::int64_t, WideInteger, double, Date, std::string, Bytes, Uid, Array,
                 Dictionary>
        content;
};

class PropertyList {
public:
    using Index = PropertyListNode::Index;

    /// Reads "bplist00" or XML. Offsets, counts and sizes are checked before memory is taken; text must be UTF-8,
    /// UTF-16 or ASCII; a container that contains itself is refused. Errors name the byte offset at fault.
    static Result<PropertyList> parse(std::span<const std::uint8_t> data);
    /// The binary form; equal scalars are stored once.
    Bytes binary() const;

    Index root() const { return root_; }
    const PropertyListNode& node(Index index) const { return nodes_[index]; }
    std::size_t size() const { return nodes_.size(); }
    std::span<const Index> arrayItems(Index array) const;
    std::span<const Index> dictionaryKeys(Index dictionary) const;
    std::span<const Index> dictionaryValues(Index dictionary) const;
    /// The value's node under the key, or none.
    std::optional<Index> find(Index dictionary, std::string_view key) const;

    /// Building: children are added before their container.
    Index add(PropertyListNode node);
    Index addArray(std::span<const Index> items);
    Index addDictionary(std::span<const Index> keys, std::span<const Index> values);
    void setRoot(Index root) { root_ = root; }

    /// Plain content (no UIDs) as a value, nested at most 64 deep; UIDs become {"CF$UID": n}.
    Result<Value> value(Index index) const;
    static PropertyList fromValue(const Value& value);

private:
    std::vector<PropertyListNode> nodes_;
    std::vector<Index> references_;
    Index root_ = 0;
};

}  // namespace zor

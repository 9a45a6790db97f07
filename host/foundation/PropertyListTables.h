#pragma once
// The tables of which a property list consists: nodes that know their children by number, so that shared containers
// cost nothing and no reader needs recursion.

#include <bit>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zor {

enum class PropertyListKind : std::uint8_t { null, boolean, integer, real, date, string, data, uid, array, dictionary };

/// Sixteen bytes, whatever the kind.
struct PropertyListNode {
    using Index = std::uint32_t;

    PropertyListKind kind = PropertyListKind::null;
    /// Bytes of text or data, items of an array, entries of a dictionary.
    std::uint32_t count = 0;
    /// A number's bits, or where children begin in `references`, text and data in `source` or, behind it, in `bytes`.
    std::uint64_t payload = 0;

    bool isContainer() const { return kind == PropertyListKind::array || kind == PropertyListKind::dictionary; }
};

struct PropertyListTables {
    using Index = PropertyListNode::Index;

    std::vector<PropertyListNode> nodes;
    /// The children of arrays; of a dictionary first all its keys, then as many values.
    std::vector<Index> references;
    /// UTF-8 text and data: where the file had them, which the tables do not own, and of the tables' own.
    std::string_view source;
    std::string bytes;
    Index root = 0;

    /// Every child of an array; a dictionary's keys and values.
    std::span<const Index> children(const PropertyListNode& container) const {
        const bool isDictionary = container.kind == PropertyListKind::dictionary;
        return {references.data() + container.payload, std::size_t{container.count} * (isDictionary ? 2 : 1)};
    }
    std::string_view text(const PropertyListNode& node) const {
        const bool isOwn = node.payload >= source.size();
        return {isOwn ? bytes.data() + (node.payload - source.size()) : source.data() + node.payload, node.count};
    }
};

}  // namespace zor

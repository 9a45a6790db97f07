#pragma once
// Makes a property list node by node, children before their container. Equal scalars are stored once.

#include <optional>
#include <span>
#include <string_view>

#include "host/foundation/FlatIndex.h"
#include "host/foundation/PropertyListTables.h"
#include "host/foundation/Value.h"

namespace zor {

class PropertyListBuilder {
public:
    using Index = PropertyListNode::Index;

    struct Entry {
        Index key = 0;
        Index value = 0;
    };

    Index addBool(bool value) { return addNumber(PropertyListKind::boolean, value ? 1 : 0); }
    Index addInteger(std::int64_t value) {
        return addNumber(PropertyListKind::integer, static_cast<std::uint64_t>(value));
    }
    Index addReal(double value) { return addNumber(PropertyListKind::real, std::bit_cast<std::uint64_t>(value)); }
    Index addDate(Date value) {
        return addNumber(PropertyListKind::date, std::bit_cast<std::uint64_t>(value.secondsSinceReference));
    }
    Index addUid(std::uint64_t number) { return addNumber(PropertyListKind::uid, number); }
    /// A UID that was not added before, and is not going to be but by this.
    Index addNewUid(std::uint64_t number) { return add({PropertyListKind::uid, 0, number}); }
    /// Nothing where the text is not UTF-8, or 4 GiB long.
    std::optional<Index> addString(std::string_view text);
    /// Nothing for 4 GiB and more.
    std::optional<Index> addData(std::span<const std::uint8_t> data);
    Index addArray(std::span<const Index> items);
    /// The keys are strings; of equal ones readers find the first.
    Index addDictionary(std::span<const Entry> entries);

    std::size_t size() const { return tables_.nodes.size(); }
    const PropertyListNode& node(Index index) const { return tables_.nodes[index]; }
    std::string_view string(Index index) const { return tables_.text(tables_.nodes[index]); }

    /// What was added; the builder is spent.
    PropertyListTables finish(Index root);

private:
    Index add(PropertyListNode node);
    Index addNumber(PropertyListKind kind, std::uint64_t bits);
    std::optional<Index> addBytes(PropertyListKind kind, std::string_view bytes);

    PropertyListTables tables_;
    FlatIndex scalars_;
};

}  // namespace zor

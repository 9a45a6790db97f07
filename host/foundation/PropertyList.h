#pragma once
// Property lists: what keyed archives and Info files are made of.

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

#include "host/foundation/PropertyListTables.h"
#include "host/foundation/Result.h"
#include "host/foundation/Value.h"

namespace zor {

class PropertyList {
public:
    using Index = PropertyListNode::Index;
    using Kind = PropertyListKind;

    /// Values are nested no deeper than this.
    static constexpr std::size_t deepestValue = 64;

    explicit PropertyList(PropertyListTables tables) : tables_(std::move(tables)) {}

    /// Reads "bplist00" or XML and keeps nothing of `data`. Offsets, counts and sizes are checked before memory is
    /// taken; text must be UTF-8, UTF-16 or ASCII; dictionary keys must be strings; a container that contains itself is
    /// refused. Integers that need more than 64 bits become reals, sets arrays. Errors name the byte offset at fault.
    static Result<PropertyList> parse(std::span<const std::uint8_t> data);
    /// The same, but `data` must outlive the list, which refers to it.
    static Result<PropertyList> parseInPlace(std::span<const std::uint8_t> data);
    /// The binary form.
    Bytes binary() const;

    Index root() const { return tables_.root; }
    /// Nodes, and references between them.
    std::size_t size() const { return tables_.nodes.size(); }
    std::size_t referenceCount() const { return tables_.references.size(); }
    Kind kind(Index index) const { return tables_.nodes[index].kind; }

    /// Each of these asks a node of its own kind.
    bool boolean(Index index) const { return tables_.nodes[index].payload != 0; }
    std::int64_t integer(Index index) const { return static_cast<std::int64_t>(tables_.nodes[index].payload); }
    double real(Index index) const { return std::bit_cast<double>(tables_.nodes[index].payload); }
    Date date(Index index) const { return {real(index)}; }
    std::uint64_t uid(Index index) const { return tables_.nodes[index].payload; }
    std::string_view string(Index index) const { return tables_.text(tables_.nodes[index]); }
    Bytes data(Index index) const;
    std::span<const Index> items(Index array) const { return tables_.children(tables_.nodes[array]); }
    std::span<const Index> keys(Index dictionary) const;
    std::span<const Index> values(Index dictionary) const;
    /// The value's node under the key, or none; none either where the node is no dictionary.
    std::optional<Index> find(Index dictionary, std::string_view key) const;

    /// The content as a value, nested at most `deepestValue` levels; a UID becomes {"CF$UID": n}, a null absent.
    Result<Value> value(Index index) const;
    /// Absent entries are left out. Null placeholders, objects, text that is not UTF-8 and deeper nesting are refused.
    static Result<PropertyList> fromValue(const Value& value);

private:
    PropertyListTables tables_;
    /// What the tables refer to, where the list keeps it.
    std::shared_ptr<const Bytes> data_;
};

}  // namespace zor

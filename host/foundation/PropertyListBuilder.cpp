#include "host/foundation/PropertyListBuilder.h"

#include <utility>

#include "host/foundation/Unicode.h"

namespace zor {

PropertyListBuilder::Index PropertyListBuilder::add(PropertyListNode node) {
    tables_.nodes.push_back(node);
    return static_cast<Index>(tables_.nodes.size() - 1);
}

PropertyListBuilder::Index PropertyListBuilder::addNumber(PropertyListKind kind, std::uint64_t bits) {
    return scalars_.findOrMake(
        hashOfBits(bits + static_cast<std::uint64_t>(kind)),
        [&](Index index) { return node(index).kind == kind && node(index).payload == bits; },
        [&] {
            return add({kind, 0, bits});
        });
}

std::optional<PropertyListBuilder::Index> PropertyListBuilder::addBytes(PropertyListKind kind, std::string_view bytes) {
    if (!std::in_range<std::uint32_t>(bytes.size())) return {};
    return scalars_.findOrMake(
        std::hash<std::string_view>()(bytes) + static_cast<std::uint64_t>(kind),
        [&](Index index) { return node(index).kind == kind && string(index) == bytes; },
        [&] {
            const auto start = tables_.bytes.size();
            tables_.bytes.append(bytes);
            return add({kind, static_cast<std::uint32_t>(bytes.size()), start});
        });
}

std::optional<PropertyListBuilder::Index> PropertyListBuilder::addString(std::string_view text) {
    if (!isUtf8(text)) return {};
    return addBytes(PropertyListKind::string, text);
}

std::optional<PropertyListBuilder::Index> PropertyListBuilder::addData(std::span<const std::uint8_t> data) {
    return addBytes(PropertyListKind::data, {reinterpret_cast<const char*>(data.data()), data.size()});
}

PropertyListBuilder::Index PropertyListBuilder::addArray(std::span<const Index> items) {
    const auto first = tables_.references.size();
    tables_.references.insert(tables_.references.end(), items.begin(), items.end());
    return add({PropertyListKind::array, static_cast<std::uint32_t>(items.size()), first});
}

PropertyListBuilder::Index PropertyListBuilder::addDictionary(std::span<const Entry> entries) {
    const auto first = tables_.references.size();
    for (const Entry& entry : entries) tables_.references.push_back(entry.key);
    for (const Entry& entry : entries) tables_.references.push_back(entry.value);
    return add({PropertyListKind::dictionary, static_cast<std::uint32_t>(entries.size()), first});
}

PropertyListTables PropertyListBuilder::finish(Index root) {
    tables_.root = root;
    return std::move(tables_);
}

}  // namespace zor

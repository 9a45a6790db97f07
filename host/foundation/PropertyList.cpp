#include "host/foundation/PropertyList.h"

#include "host/foundation/PropertyListFormats.h"

namespace zor {

Result<PropertyList> PropertyList::parse(std::span<const std::uint8_t> data) {
    const auto kept = std::make_shared<const Bytes>(data.begin(), data.end());
    auto list = parseInPlace(*kept);
    if (list) list->data_ = kept;
    return list;
}

Result<PropertyList> PropertyList::parseInPlace(std::span<const std::uint8_t> data) {
    const std::string_view text(reinterpret_cast<const char*>(data.data()), data.size());
    auto tables = text.starts_with(binaryPropertyListMagic) ? readBinaryPropertyList(data) : readXmlPropertyList(data);
    if (!tables) return tables.error();
    return PropertyList(std::move(*tables));
}

Bytes PropertyList::binary() const {
    return writeBinaryPropertyList(tables_);
}

Bytes PropertyList::data(Index index) const {
    const auto bytes = string(index);
    return {bytes.begin(), bytes.end()};
}

std::span<const PropertyList::Index> PropertyList::keys(Index dictionary) const {
    const auto& node = tables_.nodes[dictionary];
    return tables_.children(node).first(node.count);
}

std::span<const PropertyList::Index> PropertyList::values(Index dictionary) const {
    const auto& node = tables_.nodes[dictionary];
    return tables_.children(node).subspan(node.count);
}

std::optional<PropertyList::Index> PropertyList::find(Index dictionary, std::string_view key) const {
    if (kind(dictionary) != Kind::dictionary) return {};
    const auto candidates = keys(dictionary);
    for (std::size_t index = 0; index < candidates.size(); ++index) {
        if (string(candidates[index]) == key) return values(dictionary)[index];
    }
    return {};
}

}  // namespace zor

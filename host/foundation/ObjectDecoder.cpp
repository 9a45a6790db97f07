#include "host/foundation/ObjectDecoder.h"

namespace zor {

std::optional<PropertyList::Index> ObjectDecoder::search(std::string_view key) const {
    return key.starts_with('$') ? list_.find(node_, '$' + std::string(key)) : list_.find(node_, key);
}

Value ObjectDecoder::number(std::string_view key) const {
    const auto node = find(key);
    const auto plain = node ? reader_.plainNode(*node) : std::nullopt;
    if (!plain) return {};
    switch (list_.kind(*plain)) {
        case PropertyList::Kind::boolean:
            return list_.boolean(*plain);
        case PropertyList::Kind::integer:
            return list_.integer(*plain);
        case PropertyList::Kind::real:
            return list_.real(*plain);
        default:
            return {};
    }
}

std::optional<Value> ObjectDecoder::decodeValueIfPresent(std::string_view key) {
    std::optional<Value> value;
    if (const auto node = find(key)) {
        const auto failure = reader_.take(*node, number_, value);
        if (failure && !failure_) failure_ = failure;
        if (!value) value.emplace();
    }
    return value;
}

ObjectPtr ObjectDecoder::context(std::string_view name) const {
    const auto& context = reader_.options().context;
    const auto found = context.find(name);
    return found == context.end() ? ObjectPtr{} : found->second;
}

}  // namespace zor

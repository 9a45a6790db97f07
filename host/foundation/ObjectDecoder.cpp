#include "host/foundation/ObjectDecoder.h"

namespace zor {

std::optional<PropertyList::Index> ObjectDecoder::find(std::string_view key) const {
    std::string escaped;
    if (key.starts_with('$')) key = escaped = '$' + std::string(key);
    for (std::size_t tried = 0; tried < keys_.size(); ++tried) {
        if (cursor_ == keys_.size()) cursor_ = 0;
        const std::size_t place = cursor_++;
        if (list_.string(keys_[place]) == key) return values_[place];
    }
    return {};
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
    const auto node = find(key);
    if (!node) return {};
    auto taken = reader_.take(*node, number_);
    if (taken.failure && !failure_) failure_ = taken.failure;
    return std::move(taken.value);
}

ObjectPtr ObjectDecoder::context(std::string_view name) const {
    const auto& context = reader_.options().context;
    const auto found = context.find(name);
    return found == context.end() ? ObjectPtr{} : found->second;
}

}  // namespace zor

#include "tests/support/FakePasteboard.h"

namespace zor {

void FakePasteboard::setDataForType(Bytes data, std::string_view type) {
    contents_.insert_or_assign(std::string(type), std::move(data));
}

Bytes FakePasteboard::dataForType(std::string_view type) const {
    const auto found = contents_.find(type);
    return found == contents_.end() ? Bytes{} : found->second;
}

std::vector<std::string> FakePasteboard::types() const {
    std::vector<std::string> types;
    for (const auto& [type, data] : contents_) types.push_back(type);
    return types;
}

}  // namespace zor

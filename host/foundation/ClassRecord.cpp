#include "host/foundation/ClassRecord.h"

#include <algorithm>

namespace zor {

namespace {

template <typename Entry>
const Entry* namedEntry(const std::vector<Entry>& entries, std::string_view name) {
    const auto found = std::ranges::find(entries, name, &Entry::name);
    return found == entries.end() ? nullptr : &*found;
}

}  // namespace

bool ClassRecord::isKindOf(const ClassRecord& other) const {
    const ClassRecord* record = this;
    while (record && record != &other) record = record->base_;
    return record != nullptr;
}

const ActionRecord* ClassRecord::action(std::string_view name) const {
    if (const auto* own = namedEntry(actions_, name)) return own;
    return base_ ? base_->action(name) : nullptr;
}

const PropertyRecord* ClassRecord::property(std::string_view name) const {
    if (const auto* own = namedEntry(properties_, name)) return own;
    return base_ ? base_->property(name) : nullptr;
}

}  // namespace zor

#include "host/foundation/ClassRegistry.h"

#include <mutex>

namespace zor {

ClassRegistry& ClassRegistry::shared() {
    // Never destroyed: objects that outlive main still ask for their class.
    static auto& registry = *new ClassRegistry;
    return registry;
}

const ClassRecord& ClassRegistry::add(std::unique_ptr<ClassRecord> record) {
    const std::unique_lock lock(mutex_);
    const auto [entry, isNew] = records_.try_emplace(record->name(), nullptr);
    if (isNew) {
        record->bundle_ = loading_;
        entry->second = std::move(record);
    }
    return *entry->second;
}

const ClassRecord* ClassRegistry::find(std::string_view name) const {
    const std::shared_lock lock(mutex_);
    const auto found = records_.find(name);
    return found == records_.end() ? nullptr : found->second.get();
}

void ClassRegistry::beginBundle(std::shared_ptr<Bundle> bundle) {
    const std::unique_lock lock(mutex_);
    loading_ = bundle;
}

void ClassRegistry::endBundle() {
    const std::unique_lock lock(mutex_);
    loading_.reset();
}

}  // namespace zor

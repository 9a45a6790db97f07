#pragma once
// Every class that may be made by name. Archives can name no other.

#include <map>
#include <memory>
#include <shared_mutex>
#include <string>
#include <string_view>

#include "host/foundation/ClassRecord.h"

namespace zor {

/// Classes are added on the main thread; any thread may look them up.
class ClassRegistry {
public:
    static ClassRegistry& shared();

    /// Keeps the record for the life of the process. A name that is taken keeps its first record, which is the answer.
    const ClassRecord& add(std::unique_ptr<ClassRecord> record);
    /// Empty where no class of that name is registered.
    const ClassRecord* find(std::string_view name) const;

    /// Records added between begin and end belong to that bundle; the host's own classes are registered before.
    void beginBundle(std::shared_ptr<Bundle> bundle);
    void endBundle();

private:
    ClassRegistry() = default;

    mutable std::shared_mutex mutex_;
    std::map<std::string, std::unique_ptr<ClassRecord>, std::less<>> records_;
    std::weak_ptr<Bundle> loading_;
};

}  // namespace zor

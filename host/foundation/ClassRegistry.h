#pragma once
// Every class that may be made by name. Archives can name no other.

#include <memory>
#include <string_view>
#include <unordered_map>

#include "host/foundation/ClassRecord.h"

namespace zor {

class ClassRegistry {
public:
    static ClassRegistry& shared();

    /// Keeps the record for the life of the process. A name that is taken keeps its first record.
    const ClassRecord& add(std::unique_ptr<ClassRecord> record);
    /// Empty where no class of that name is registered.
    const ClassRecord* find(std::string_view name) const;

    /// Records added between begin and end belong to that bundle.
    void beginBundle(std::shared_ptr<Bundle> bundle);
    void endBundle();

private:
    std::unordered_map<std::string, std::unique_ptr<ClassRecord>> records_;
    std::weak_ptr<Bundle> loading_;
};

}  // namespace zor

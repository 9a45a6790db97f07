#pragma once
// What the class names in an archive stand for.

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/foundation/ArchiveFailure.h"
#include "host/foundation/KeyedArchiver.h"
#include "host/foundation/PropertyList.h"

namespace zor {

struct ArchivedClass {
    enum class Kind : std::uint8_t { unusable, object, array, dictionary, string, data, date, null };

    Kind kind = Kind::unusable;
    /// Of an object.
    const ClassRecord* record = nullptr;
    /// Why the class is unusable; the object is not filled in.
    ArchiveFailure failure = {};
};

class ArchivedClasses {
public:
    using Index = PropertyList::Index;

    ArchivedClasses(const PropertyList& list, KeyedUnarchiverDelegate* delegate)
        : list_(list), delegate_(delegate), allowance_(list.referenceCount()) {}

    /// What the class record at the node stands for: first its own name, then its hints, then what the delegate says.
    const ArchivedClass& at(Index classNode) {
        for (const auto& [node, itsClass] : recent_) {
            if (itsClass && node == classNode) return *itsClass;
        }
        return find(classNode);
    }

private:
    struct Recent {
        Index node = 0;
        const ArchivedClass* itsClass = nullptr;
    };

    const ArchivedClass& find(Index classNode);
    ArchivedClass resolve(Index classNode);
    bool isClassName(Index node) const;
    ArchivedClass named(std::string_view name) const;
    ArchivedClass fromDelegate(Index classNode, Index nameNode);
    /// The strings of a list of names, as long as such lists are not longer, all together, than the file.
    std::vector<Index> names(Index classNode, std::string_view key);

    const PropertyList& list_;
    KeyedUnarchiverDelegate* delegate_;
    std::size_t allowance_;
    std::unordered_map<Index, ArchivedClass> known_;
    /// Widgets and what they show mostly take turns.
    std::array<Recent, 2> recent_{};
    /// The delegate's answers by class name.
    std::map<std::string, const ClassRecord*, std::less<>> answers_;
};

}  // namespace zor

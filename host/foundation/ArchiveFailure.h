#pragma once
// Why one object of an archive cannot be decoded, kept small: a hostile file may hold as many as it has objects.

#include <cstdint>
#include <string>

#include "host/foundation/PropertyList.h"

namespace zor {

struct ArchiveFailure {
    enum class Reason : std::uint8_t {
        none,
        /// `detail` is the number that is referred to.
        referenceOutOfRange,
        notAnObject,
        noClass,
        noClassName,
        /// `detail` is the node of the class name.
        unknownClass,
        abstractClass,
        noItems,
        noContent,
        unequalCounts,
        keyNotText,
        containsItself,
        tooDeep,
        sharedOutOfProportion,
        givenOutOfProportion,
        textOutOfProportion,
    };

    Reason reason = Reason::none;
    /// The object at fault.
    std::uint32_t object = 0;
    std::uint64_t detail = 0;

    explicit operator bool() const { return reason != Reason::none; }
    std::string description(const PropertyList& list) const;
};

/// The text in double quotes, long text cut short.
std::string quoted(std::string_view text);

}  // namespace zor

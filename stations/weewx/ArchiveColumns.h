#pragma once
// What the columns of a weewx archive mean.

#include <cstdint>
#include <span>
#include <string_view>

#include "host/station/Units.h"

namespace zor {

struct ArchiveColumn {
    std::string_view name;
    /// The property that it holds; where two columns hold one, the later serves where the earlier has no value.
    std::string_view key;
};
std::span<const ArchiveColumn> archiveColumns();

/// The unit of a quantity in rows whose usUnits is 1 (US), 16 (metric) or 17 (metric with m/s and mm); none for any
/// other system.
const Unit* archiveUnit(Quantity quantity, std::int64_t usUnits);

}  // namespace zor

#pragma once
// The two forms of a property list on disk, as functions from and to its tables.

#include <cstdint>
#include <span>

#include "host/foundation/PropertyListTables.h"
#include "host/foundation/Result.h"
#include "host/foundation/Value.h"

namespace zor {

inline constexpr std::string_view binaryPropertyListMagic = "bplist00";

/// Errors name the byte offset at fault. The tables of the binary form refer to `data`.
Result<PropertyListTables> readBinaryPropertyList(std::span<const std::uint8_t> data);
Result<PropertyListTables> readXmlPropertyList(std::span<const std::uint8_t> data);
Bytes writeBinaryPropertyList(const PropertyListTables& tables);

}  // namespace zor

#pragma once
// Files read whole and replaced safely.

#include <cstdint>
#include <filesystem>
#include <span>

#include "host/foundation/Result.h"
#include "host/foundation/Value.h"

namespace zor {

/// The whole file; the error names it and says why. Files of more than `limit` bytes are refused.
Result<Bytes> readFile(const std::filesystem::path& path, std::uintmax_t limit = std::uintmax_t{1} << 30);
/// Written beside, synced, renamed over the old one, the folder synced: the old file or the new one is always whole.
/// A failure leaves the old file untouched and no scrap behind; the error names the path and says why. An existing
/// file keeps its permissions; of a symbolic link, the file it leads to is written.
Status writeFileAtomically(const std::filesystem::path& path, std::span<const std::uint8_t> data);
/// Removes what a program that was killed while it wrote the file left beside it, as every writing does first; what
/// another program is writing at this moment stays.
void removeAbandonedScraps(const std::filesystem::path& path);

}  // namespace zor

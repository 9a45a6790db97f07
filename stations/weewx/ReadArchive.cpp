#include "stations/weewx/ReadArchive.h"

#include <fstream>

namespace zor {

std::optional<detail::Resting> detail::resting(const std::filesystem::path& archive) {
    // Two bytes of the header give the versions of the format that writing and reading need; 2 is the write-ahead log.
    constexpr std::streamoff kVersions = 18;
    std::ifstream file(archive, std::ios::binary);
    file.seekg(kVersions);
    const bool writeAhead = file.get() == 2 && file.get() == 2;
    std::error_code code;
    if (!writeAhead || std::filesystem::exists(archive.string() + "-wal", code) || code) return {};
    const Resting mark{std::filesystem::file_size(archive, code), std::filesystem::last_write_time(archive, code)};
    return code ? std::nullopt : std::optional(mark);
}

}  // namespace zor

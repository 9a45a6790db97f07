#pragma once

#include <filesystem>
#include <optional>
#include <utility>

#include "stations/weewx/WeewxArchive.h"

namespace zor {

namespace detail {
/// What a file looks like that nobody has open, in the mode in which a reader would make files beside it.
struct Resting {
    std::uintmax_t size;
    std::filesystem::file_time_type changed;
    bool operator==(const Resting&) const = default;
};
std::optional<Resting> resting(const std::filesystem::path& archive);
}  // namespace detail

/// Opens the archive as it is now, reads from it and closes it. `read` takes a const WeewxArchive& and gives a Result;
/// it may run twice.
template <typename Read>
auto readArchive(const std::filesystem::path& path, const SqliteWaiting& waiting, const Read& read)
    -> decltype(read(std::declval<const WeewxArchive&>())) {
    const auto readIn = [&](SqliteDatabase::Mode mode) -> decltype(read(std::declval<const WeewxArchive&>())) {
        const auto archive = WeewxArchive::open(path, mode, waiting);
        if (!archive) return archive.error();
        return read(*archive);
    };
    // A write-ahead log is made even by those who only read, and left behind. Where nobody writes it is not needed; it
    // has to be shown afterwards that nobody did.
    if (const auto before = detail::resting(path)) {
        auto result = readIn(SqliteDatabase::Mode::readUnchanging);
        if (detail::resting(path) == before) return result;
    }
    return readIn(SqliteDatabase::Mode::read);
}

}  // namespace zor

#pragma once

#include <deque>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/station/Reading.h"
#include "stations/sqlite/SqliteDatabase.h"

namespace zor {

/// A reading and the site it belongs to.
struct SiteReading {
    std::string site;
    Reading reading;
};

/// The file of the history store: table `series` gives each site's property a number, table `sample` holds its values
/// by time in milliseconds since 1970. The schema's version is the file's user_version.
class HistoryFile {
public:
    struct Opened;

    /// For the one writer; makes the file. A damaged one is kept beside under another name, nothing of it lost, and a
    /// fresh one begun. An error where the file cannot be made, is somebody else's or of a newer version: it is left as
    /// it is.
    static Result<Opened> openForWriting(const std::filesystem::path& path);
    /// Keeps the damaged file under another name and begins a fresh one. No connection to it may be open.
    static Result<Opened> beginAnew(const std::filesystem::path& path, const Error& found);
    /// One transaction. A sample of the same moment replaces the one before; what has no finite value is left out.
    Status write(const std::deque<SiteReading>& readings);
    /// Whether what the last write met was damaged content.
    bool isDamaged() const { return isDamaged_; }

    /// Samples in [from, to], ascending, from a connection of its own. Where there are more than `limit` the span is
    /// cut into equal pieces: of each its least and its greatest sample are given, of rain increments the sum at the
    /// time of its last, so that neither an extreme nor an amount is lost.
    static Result<std::vector<Sample>> read(const std::filesystem::path& path, std::string_view site,
                                            std::string_view key, Seconds from, Seconds to, std::size_t limit);

private:
    explicit HistoryFile(SqliteDatabase database) : database_(std::move(database)) {}
    static Result<HistoryFile> open(const std::filesystem::path& path, bool& damaged);
    Status prepareSchema(const std::string& name);
    Status writeAll(const std::deque<SiteReading>& readings);
    Result<std::int64_t> series(const std::string& site, const std::string& key);

    SqliteDatabase database_;
    bool isDamaged_ = false;
    std::map<std::pair<std::string, std::string>, std::int64_t> series_;
};

struct HistoryFile::Opened {
    HistoryFile file;
    /// What was found damaged and where it is kept now.
    std::optional<Error> damage;
};

}  // namespace zor

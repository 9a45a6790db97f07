#include "stations/history/HistoryFile.h"

#include <cmath>

#include "host/station/PropertyKeys.h"
#include "stations/history/Thinning.h"

namespace zor {
namespace {

constexpr std::int64_t kVersion = 1;
constexpr const char* kSchema = R"(
    BEGIN IMMEDIATE;
    CREATE TABLE series (
        id INTEGER PRIMARY KEY,
        site TEXT NOT NULL,
        key TEXT NOT NULL,
        UNIQUE (site, key)
    );
    CREATE TABLE sample (
        series INTEGER NOT NULL,
        time INTEGER NOT NULL,
        value REAL NOT NULL,
        PRIMARY KEY (series, time)
    ) WITHOUT ROWID;
    PRAGMA user_version = 1;
    COMMIT;
)";

/// Milliseconds, at the ends of what fits where the moment does not.
std::int64_t stored(Seconds time) {
    constexpr double kLimit = 9e15;
    return std::llround(std::fmax(-kLimit, std::fmin(time * 1000, kLimit)));
}

Seconds restored(std::int64_t time) {
    return static_cast<double>(time) / 1000;
}

/// Gives the file and SQLite's files beside it a name that nobody has.
Result<std::filesystem::path> setAside(const std::filesystem::path& path) {
    std::error_code code;
    std::filesystem::path kept;
    for (int number = 1;; ++number) {
        kept = path.string() + ".damaged-" + std::to_string(number);
        if (!std::filesystem::exists(kept, code)) break;
    }
    // The log goes first: a log without its file is harmless, a fresh file must never meet an old log.
    for (const char* suffix : {"-wal", "-shm", ""}) {
        const std::filesystem::path from = path.string() + suffix;
        if (!std::filesystem::exists(from, code)) continue;
        std::filesystem::rename(from, kept.string() + suffix, code);
        if (code) return Error{"“" + path.string() + "”: it is damaged and cannot be renamed: " + code.message()};
    }
    return kept;
}

}  // namespace

Result<HistoryFile> HistoryFile::open(const std::filesystem::path& path, bool& damaged) {
    auto database = SqliteDatabase::open(path, SqliteDatabase::Mode::write);
    if (!database) return database.error();
    HistoryFile file(std::move(*database));
    const auto prepared = file.prepareSchema(path.string());
    damaged = !prepared && file.database_.isDamaged();
    if (!prepared) return prepared.error();
    return file;
}

Result<HistoryFile::Opened> HistoryFile::openForWriting(const std::filesystem::path& path) {
    bool damaged = false;
    auto file = open(path, damaged);
    if (file) return Opened{std::move(*file), {}};
    return damaged ? beginAnew(path, file.error()) : file.error();
}

Result<HistoryFile::Opened> HistoryFile::beginAnew(const std::filesystem::path& path, const Error& found) {
    const auto kept = setAside(path);
    if (!kept) return kept.error();
    bool damaged = false;
    auto file = open(path, damaged);
    if (!file) return file.error();
    return Opened{std::move(*file),
                  Error{found.message + "; it is kept as “" + kept->string() + "” and a new one is begun"}};
}

Status HistoryFile::prepareSchema(const std::string& name) {
    const auto version = database_.integer("PRAGMA user_version");
    if (!version) return version.error();
    const auto tables = database_.integer("SELECT count(*) FROM sqlite_master");
    if (!tables) return tables.error();
    if (*version > kVersion) {
        return Error{"“" + name + "”: it is of a newer version of the program (" + std::to_string(*version) + ")"};
    }
    if (*version<kVersion&& * tables> 0) return Error{"“" + name + "”: it is another program's database"};

    // Readers and the writer do not hinder each other; a loss of power may take the last seconds, never the file.
    if (const auto mode = database_.run("PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL;"); !mode) return mode;
    if (*version == kVersion) {
        // Touches both tables, so that damage at their roots shows now.
        const auto count = database_.integer("SELECT (SELECT count(*) FROM series) + EXISTS (SELECT 1 FROM sample)");
        return count ? success() : Status(count.error());
    }
    return database_.run(kSchema);
}

Result<std::int64_t> HistoryFile::series(const std::string& site, const std::string& key) {
    const auto known = series_.find({site, key});
    if (known != series_.end()) return known->second;
    auto add = database_.prepare("INSERT OR IGNORE INTO series (site, key) VALUES (?, ?)");
    if (!add) return add.error();
    if (const auto added = add->bind(1, site).bind(2, key).run(); !added) return added.error();
    auto find = database_.prepare("SELECT id FROM series WHERE site = ? AND key = ?");
    if (!find) return find.error();
    const auto row = find->bind(1, site).bind(2, key).step();
    if (!row) return row.error();
    return series_[{site, key}] = find->integer(0);
}

Status HistoryFile::writeAll(const std::deque<SiteReading>& readings) {
    auto insert = database_.prepare("INSERT OR REPLACE INTO sample (series, time, value) VALUES (?, ?, ?)");
    if (!insert) return insert.error();
    for (const auto& [site, reading] : readings) {
        if (!std::isfinite(reading.time)) continue;
        for (const auto& [key, value] : reading.measurements) {
            if (!value || !std::isfinite(*value)) continue;
            const auto number = series(site, key);
            if (!number) return number.error();
            const auto written = insert->bind(1, *number).bind(2, stored(reading.time)).bind(3, *value).run();
            if (!written) return written;
        }
    }
    return success();
}

Status HistoryFile::write(const std::deque<SiteReading>& readings) {
    if (const auto begun = database_.run("BEGIN IMMEDIATE"); !begun) return begun;
    auto written = writeAll(readings);
    if (written) written = database_.run("COMMIT");
    if (!written) {
        isDamaged_ = database_.isDamaged();
        // Numbers given in a transaction that never was are nobody's.
        series_.clear();
        // The fault that is told is the first one; a transaction that SQLite ended itself cannot be ended again.
        static_cast<void>(database_.run("ROLLBACK"));
    }
    return written;
}

Result<std::vector<Sample>> HistoryFile::read(const std::filesystem::path& path, std::string_view site,
                                              std::string_view key, Seconds from, Seconds to, std::size_t limit) {
    const auto database = SqliteDatabase::open(path, SqliteDatabase::Mode::read);
    if (!database) return database.error();
    auto find = database->prepare("SELECT id FROM series WHERE site = ? AND key = ?");
    if (!find) return find.error();
    const auto known = find->bind(1, site).bind(2, key).step();
    if (!known) return known.error();
    if (!*known) return std::vector<Sample>();
    const std::int64_t series = find->integer(0);
    const auto bindSpan = [&](SqliteStatement& statement) {
        statement.bind(1, series).bind(2, stored(from)).bind(3, stored(to));
    };

    // The ends of the samples that are there, and whether there are more than the limit; both without reading all, as a
    // year of readings is millions.
    auto survey = database->prepare(R"(
        SELECT (SELECT min(time) FROM sample WHERE series = ?1 AND time BETWEEN ?2 AND ?3),
               (SELECT max(time) FROM sample WHERE series = ?1 AND time BETWEEN ?2 AND ?3),
               EXISTS (SELECT 1 FROM sample WHERE series = ?1 AND time BETWEEN ?2 AND ?3 LIMIT 1 OFFSET ?4))");
    if (!survey) return survey.error();
    bindSpan(*survey);
    const auto surveyed = survey->bind(4, static_cast<std::int64_t>(limit)).step();
    if (!surveyed) return surveyed.error();
    std::optional<Thinning> thinning;
    if (survey->integer(2) != 0) {
        const auto keep = key == kRainIncrement ? Thinning::Keep::sum : Thinning::Keep::extremes;
        thinning.emplace(restored(survey->integer(0)), restored(survey->integer(1)), limit / 2, keep);
    }

    auto select =
        database->prepare("SELECT time, value FROM sample WHERE series = ? AND time BETWEEN ? AND ? ORDER BY time");
    if (!select) return select.error();
    bindSpan(*select);
    std::vector<Sample> samples;
    for (;;) {
        const auto row = select->step();
        if (!row) return row.error();
        if (!*row) return thinning ? thinning->finish() : samples;
        const Sample sample{restored(select->integer(0)), select->real(1)};
        if (thinning) {
            thinning->add(sample);
        } else {
            samples.push_back(sample);
        }
    }
}

}  // namespace zor

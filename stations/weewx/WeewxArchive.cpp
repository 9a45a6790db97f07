#include "stations/weewx/WeewxArchive.h"

#include <algorithm>
#include <array>

#include "host/station/DerivedValues.h"
#include "host/station/PropertyKeys.h"
#include "stations/weewx/ArchiveColumns.h"

namespace zor {
namespace {

/// A month of five-minute rows.
constexpr int kNewestRows = 31 * 288;

std::string quoted(std::string_view name) {
    return "\"" + std::string(name) + "\"";
}

std::optional<double> inBaseUnit(std::optional<double> stored, Quantity quantity, std::int64_t usUnits) {
    if (!stored) return {};
    const double value = toBase(*stored, *archiveUnit(quantity, usUnits));
    return isPlausible(value, quantity) ? std::optional(value) : std::nullopt;
}

}  // namespace

Result<WeewxArchive> WeewxArchive::open(const std::filesystem::path& path, SqliteDatabase::Mode mode,
                                        SqliteWaiting waiting) {
    auto database = SqliteDatabase::open(path, mode, std::move(waiting));
    if (!database) return database.error();
    WeewxArchive archive(std::move(*database));

    auto info = archive.database_.prepare("SELECT name FROM pragma_table_info('archive')");
    if (!info) return info.error();
    std::set<std::string, std::less<>> present;
    for (;;) {
        const auto row = info->step();
        if (!row) return row.error();
        if (!*row) break;
        present.insert(info->text(0));
    }
    const std::string file = "“" + path.string() + "”: ";
    if (present.empty()) return Error{file + "it is no weewx archive, as it has no table “archive”"};
    for (const std::string_view needed : {"dateTime", "usUnits"}) {
        if (!present.contains(needed)) {
            return Error{file + "its table “archive” has no column “" + std::string(needed) + "”"};
        }
    }
    for (const auto& [name, key] : archiveColumns()) {
        if (!present.contains(name)) continue;
        const auto [place, isNew] =
            archive.columns_.try_emplace(std::string(key), Column{quoted(name), namingOfProperty(key).quantity});
        if (isNew) {
            archive.keys_.emplace_back(key);
        } else {
            place->second.expression = "coalesce(" + place->second.expression + ", " + quoted(name) + ")";
        }
    }
    return archive;
}

Result<std::set<std::string>> WeewxArchive::keysInUse() const {
    std::string sql = "SELECT 0";
    for (const auto& key : keys_) sql += ", count(" + columns_.at(key).expression + ")";
    sql += " FROM (SELECT * FROM archive ORDER BY dateTime DESC LIMIT " + std::to_string(kNewestRows) + ")";
    auto statement = database_.prepare(sql);
    if (!statement) return statement.error();
    const auto row = statement->step();
    if (!row) return row.error();
    std::set<std::string> used;
    for (std::size_t index = 0; index < keys_.size(); ++index) {
        if (statement->integer(static_cast<int>(index) + 1) > 0) used.insert(keys_[index]);
    }
    return used;
}

Result<std::vector<ArchiveRow>> WeewxArchive::select(std::span<const std::string_view> keys,
                                                     const std::string& condition,
                                                     std::span<const double> parameters) const {
    std::vector<Quantity> quantities;
    std::string sql = "SELECT dateTime, usUnits";
    for (const auto key : keys) {
        const auto column = columns_.find(key);
        const bool isThere = column != columns_.end();
        sql += ", " + (isThere ? column->second.expression : "NULL");
        quantities.push_back(isThere ? column->second.quantity : Quantity::none);
    }
    // A row of another unit system cannot be understood.
    auto statement = database_.prepare(sql + " FROM archive WHERE usUnits IN (1, 16, 17) AND " + condition);
    if (!statement) return statement.error();
    for (std::size_t index = 0; index < parameters.size(); ++index) {
        statement->bind(static_cast<int>(index) + 1, parameters[index]);
    }

    std::vector<ArchiveRow> rows;
    for (;;) {
        const auto hasRow = statement->step();
        if (!hasRow) return hasRow.error();
        if (!*hasRow) return rows;
        const auto usUnits = statement->integer(1);
        ArchiveRow row{statement->real(0), {}};
        row.values.reserve(keys.size());
        for (std::size_t index = 0; index < keys.size(); ++index) {
            row.values.push_back(
                inBaseUnit(statement->number(static_cast<int>(index) + 2), quantities[index], usUnits));
        }
        rows.push_back(std::move(row));
    }
}

Result<std::vector<ArchiveRow>> WeewxArchive::rows(std::span<const std::string_view> keys, Seconds from,
                                                   Seconds to) const {
    return select(keys, "dateTime BETWEEN ? AND ? ORDER BY dateTime", std::array{from, to});
}

Result<std::vector<Reading>> WeewxArchive::readings(const std::string& condition,
                                                    std::span<const double> parameters) const {
    const std::vector<std::string_view> keys(keys_.begin(), keys_.end());
    const auto selected = select(keys, condition, parameters);
    if (!selected) return selected.error();

    std::vector<Reading> readings;
    for (const auto& row : *selected) {
        Reading reading{row.time, {}};
        for (std::size_t index = 0; index < keys.size(); ++index) {
            reading.measurements.push_back({keys_[index], row.values[index]});
        }
        if (columns_.contains(kRainIncrement)) {
            const auto day = rows(std::array{kRainIncrement}, localMidnight(row.time), row.time);
            if (!day) return day.error();
            reading.measurements.push_back({std::string(kRainToday), rainSinceMidnight(*day, row.time)});
        }
        readings.push_back(std::move(reading));
    }
    return readings;
}

Result<std::vector<Reading>> WeewxArchive::readingsAfter(Seconds time, int limit) const {
    return readings("dateTime > ? ORDER BY dateTime LIMIT ?", std::array{time, static_cast<double>(limit)});
}

Result<Reading> WeewxArchive::newestReading() const {
    auto newest = readings("TRUE ORDER BY dateTime DESC LIMIT 1", {});
    if (!newest) return newest.error();
    return newest->empty() ? Reading{} : std::move(newest->front());
}

std::optional<double> rainSinceMidnight(std::span<const ArchiveRow> rows, Seconds time) {
    const Seconds midnight = localMidnight(time);
    std::optional<double> amount;
    for (const auto& row : rows) {
        const auto value = row.values.front();
        if (!value) continue;
        // What a row at midnight holds fell on the day before.
        const bool isToday = row.time > midnight && row.time <= time;
        amount = amount.value_or(0) + (isToday ? *value : 0);
    }
    return amount;
}

}  // namespace zor

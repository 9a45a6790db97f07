#pragma once

#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/station/Reading.h"
#include "host/station/Units.h"
#include "stations/sqlite/SqliteDatabase.h"

namespace zor {

/// One row's values of the keys asked for, in their order, in base units; nothing where the row or the whole archive
/// has none, or one that cannot be.
struct ArchiveRow {
    /// The end of the row's interval.
    Seconds time = 0;
    std::vector<std::optional<double>> values;
};

/// A connection to a weewx archive. Knows the columns that this one has and the unit system of each row; rows of a unit
/// system that nobody knows are passed over.
class WeewxArchive {
public:
    /// Errors name the file and what it lacks.
    static Result<WeewxArchive> open(const std::filesystem::path& path, SqliteDatabase::Mode mode,
                                     SqliteWaiting waiting);

    /// The properties that it has columns for, in the order of their importance.
    const std::vector<std::string>& keys() const { return keys_; }
    /// Those of them that had a value in the newest rows, a month of them at most: what the station has sensors for.
    Result<std::set<std::string>> keysInUse() const;
    /// Rows with from <= time <= to, ascending.
    Result<std::vector<ArchiveRow>> rows(std::span<const std::string_view> keys, Seconds from, Seconds to) const;
    /// The oldest rows after the moment, ascending, as readings of all `keys()` with the rain of their day.
    Result<std::vector<Reading>> readingsAfter(Seconds time, int limit) const;
    /// A reading without measurements where there is no row.
    Result<Reading> newestReading() const;

private:
    struct Column {
        /// What gives the property's value of a row, in SQL.
        std::string expression;
        Quantity quantity;
    };

    explicit WeewxArchive(SqliteDatabase database) : database_(std::move(database)) {}
    Result<std::vector<ArchiveRow>> select(std::span<const std::string_view> keys, const std::string& condition,
                                           std::span<const double> parameters) const;
    Result<std::vector<Reading>> readings(const std::string& condition, std::span<const double> parameters) const;

    SqliteDatabase database_;
    std::vector<std::string> keys_;
    std::map<std::string, Column, std::less<>> columns_;
};

/// The amounts in (midnight, time] of the local day, from rows of the one key rainIncrement; nothing where no row has
/// one.
std::optional<double> rainSinceMidnight(std::span<const ArchiveRow> rows, Seconds time);

}  // namespace zor

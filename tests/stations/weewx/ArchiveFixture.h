#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "stations/sqlite/SqliteDatabase.h"

namespace zor::test {

/// weewx's side of an archive: makes the table and writes rows.
class ArchiveWriter {
public:
    /// `columns` beside dateTime, usUnits and interval, separated by commas.
    ArchiveWriter(const std::filesystem::path& path, const std::string& columns, bool writeAhead = false)
        : database_(std::move(*SqliteDatabase::open(path, SqliteDatabase::Mode::write))), columns_(columns) {
        run(writeAhead ? "PRAGMA journal_mode = WAL" : "PRAGMA journal_mode = DELETE");
        run("CREATE TABLE IF NOT EXISTS archive (dateTime INTEGER NOT NULL UNIQUE PRIMARY KEY, usUnits INTEGER NOT "
            "NULL,"
            " `interval` INTEGER NOT NULL, " +
            columns + ")");
    }

    void run(const std::string& sql) {
        const auto done = database_.run(sql);
        EXPECT_TRUE(done) << done.error().message << " in " << sql;
    }

    /// `values` of the columns in SQL, separated by commas.
    void add(long long dateTime, int usUnits, const std::string& values) {
        run("INSERT INTO archive (dateTime, usUnits, `interval`, " + columns_ + ") VALUES (" +
            std::to_string(dateTime) + ", " + std::to_string(usUnits) + ", 5, " + values + ")");
    }

private:
    SqliteDatabase database_;
    std::string columns_;
};

}  // namespace zor::test

#pragma once
// SQLite for the drivers that read and the store that writes: connections and statements that close themselves, errors
// as results. A connection and its statements belong to one thread at a time.

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>

#include "host/foundation/Result.h"

struct sqlite3;
struct sqlite3_stmt;

namespace zor {

/// How a lock of another program is waited for.
struct SqliteWaiting {
    std::chrono::milliseconds limit{5000};
    /// Ends the wait early.
    std::stop_token stop = {};
};

namespace detail {
/// What a connection and its statements share.
struct SqliteContext {
    std::string path;
    SqliteWaiting waiting;
    /// SQLite's code of the last fault.
    int fault = 0;

    Error noteFault(sqlite3* connection);
};
}  // namespace detail

/// A compiled statement. It must not outlive its database.
class SqliteStatement {
public:
    /// Parameters count from 1. What cannot be bound shows in the next step.
    SqliteStatement& bind(int parameter, std::int64_t value);
    SqliteStatement& bind(int parameter, double value);
    SqliteStatement& bind(int parameter, std::string_view value);
    /// True with a row to read, false at the end; an error ends the statement.
    Result<bool> step();
    /// Runs to the end without reading rows and makes the statement ready to be bound and run again.
    Status run();

    /// Columns count from 0.
    bool isNull(int column) const;
    std::int64_t integer(int column) const;
    double real(int column) const;
    /// The value where the column holds a number, nothing for NULL, text and blobs.
    std::optional<double> number(int column) const;
    std::string text(int column) const;

private:
    friend class SqliteDatabase;
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const;
    };
    SqliteStatement(detail::SqliteContext& context, sqlite3_stmt* statement)
        : context_(&context), statement_(statement) {}
    Error fault() const;

    detail::SqliteContext* context_;
    std::unique_ptr<sqlite3_stmt, Finalize> statement_;
    bool isUnbound_ = false;
};

/// One connection.
class SqliteDatabase {
public:
    enum class Mode {
        /// Changes nothing, makes no file.
        read,
        /// As `read`, for a file that nobody changes meanwhile: takes no lock and makes nothing beside it.
        readUnchanging,
        /// Reads and writes; makes a file that is not there.
        write,
    };

    /// Errors name the file and the fault. Whether the content is a database shows at the first statement.
    static Result<SqliteDatabase> open(const std::filesystem::path& path, Mode mode, SqliteWaiting waiting = {});

    Result<SqliteStatement> prepare(std::string_view sql) const;
    /// Statements without parameters, separated by semicolons.
    Status run(const std::string& sql) const;
    /// The first column of the first row of a query; 0 for none.
    Result<std::int64_t> integer(std::string_view sql) const;

    /// Whether the last fault was damaged content, or content that is no database at all.
    bool isDamaged() const;
    /// Whether the last fault was another program's lock.
    bool isLocked() const;

private:
    struct Close {
        void operator()(sqlite3* connection) const;
    };
    SqliteDatabase() = default;

    // Declared before the connection that uses it, so that it dies after it.
    std::unique_ptr<detail::SqliteContext> context_ = std::make_unique<detail::SqliteContext>();
    std::unique_ptr<sqlite3, Close> connection_;
};

}  // namespace zor

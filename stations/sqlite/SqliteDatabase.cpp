#include "stations/sqlite/SqliteDatabase.h"

#include <sqlite3.h>

#include <thread>
#include <utility>

namespace zor {
namespace {

constexpr std::chrono::milliseconds kLockPause{20};

int primary(int code) {
    return code & 0xff;
}

bool isLock(int code) {
    return primary(code) == SQLITE_BUSY || primary(code) == SQLITE_LOCKED;
}

/// Called by SQLite while somebody else holds a lock; 0 gives up.
int waitForLock(void* context, int attempt) {
    const auto& waiting = static_cast<const detail::SqliteContext*>(context)->waiting;
    if (waiting.stop.stop_requested() || attempt * kLockPause >= waiting.limit) return 0;
    std::this_thread::sleep_for(kLockPause);
    return 1;
}

}  // namespace

Error detail::SqliteContext::noteFault(sqlite3* connection) {
    // Without a connection there was no memory for one.
    fault = connection ? sqlite3_extended_errcode(connection) : SQLITE_NOMEM;
    std::string text = connection ? sqlite3_errmsg(connection) : sqlite3_errstr(fault);
    if (fault == SQLITE_READONLY_ROLLBACK || fault == SQLITE_READONLY_RECOVERY) {
        text = "its writer stopped in the middle of a change and has to be started again first";
    } else if (isLock(fault)) {
        text = "another program keeps it locked";
    } else if (primary(fault) == SQLITE_NOTADB) {
        text = "it is not an SQLite database";
    }
    return {"“" + path + "”: " + text};
}

void SqliteStatement::Finalize::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

SqliteStatement& SqliteStatement::bind(int parameter, std::int64_t value) {
    isUnbound_ |= sqlite3_bind_int64(statement_.get(), parameter, value) != SQLITE_OK;
    return *this;
}

SqliteStatement& SqliteStatement::bind(int parameter, double value) {
    isUnbound_ |= sqlite3_bind_double(statement_.get(), parameter, value) != SQLITE_OK;
    return *this;
}

SqliteStatement& SqliteStatement::bind(int parameter, std::string_view value) {
    isUnbound_ |= sqlite3_bind_text(statement_.get(), parameter, value.data(), static_cast<int>(value.size()),
                                    SQLITE_TRANSIENT) != SQLITE_OK;
    return *this;
}

Error SqliteStatement::fault() const {
    return context_->noteFault(sqlite3_db_handle(statement_.get()));
}

Result<bool> SqliteStatement::step() {
    if (std::exchange(isUnbound_, false)) return fault();
    switch (sqlite3_step(statement_.get())) {
        case SQLITE_ROW:
            return true;
        case SQLITE_DONE:
            return false;
        default: {
            const auto wrong = fault();
            sqlite3_reset(statement_.get());
            return wrong;
        }
    }
}

Status SqliteStatement::run() {
    for (;;) {
        const auto row = step();
        if (!row) return row.error();
        if (!*row) break;
    }
    sqlite3_reset(statement_.get());
    return success();
}

bool SqliteStatement::isNull(int column) const {
    return sqlite3_column_type(statement_.get(), column) == SQLITE_NULL;
}

std::int64_t SqliteStatement::integer(int column) const {
    return sqlite3_column_int64(statement_.get(), column);
}

double SqliteStatement::real(int column) const {
    return sqlite3_column_double(statement_.get(), column);
}

std::optional<double> SqliteStatement::number(int column) const {
    const int type = sqlite3_column_type(statement_.get(), column);
    if (type != SQLITE_INTEGER && type != SQLITE_FLOAT) return {};
    return real(column);
}

std::string SqliteStatement::text(int column) const {
    const auto* characters = reinterpret_cast<const char*>(sqlite3_column_text(statement_.get(), column));
    if (!characters) return {};
    return {characters, static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column))};
}

void SqliteDatabase::Close::operator()(sqlite3* connection) const {
    sqlite3_close_v2(connection);
}

Result<SqliteDatabase> SqliteDatabase::open(const std::filesystem::path& path, Mode mode, SqliteWaiting waiting) {
    std::error_code code;
    if (mode != Mode::write && !std::filesystem::exists(path, code)) {
        return Error{"“" + path.string() + "”: there is no such file"};
    }
    SqliteDatabase database;
    database.context_->path = path.string();
    database.context_->waiting = std::move(waiting);
    // As a URI, so that "unchanging" can be said; its special characters are escaped.
    std::string name = "file:";
    for (const char character : database.context_->path) {
        switch (character) {
            case '%':
                name += "%25";
                break;
            case '?':
                name += "%3f";
                break;
            case '#':
                name += "%23";
                break;
            default:
                name += character;
        }
    }
    if (mode == Mode::readUnchanging) name += "?immutable=1";
    const int access = mode == Mode::write ? SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE : SQLITE_OPEN_READONLY;
    sqlite3* connection = nullptr;
    const int result =
        sqlite3_open_v2(name.c_str(), &connection, access | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX, nullptr);
    database.connection_.reset(connection);
    if (result != SQLITE_OK) return database.context_->noteFault(connection);
    sqlite3_busy_handler(connection, waitForLock, database.context_.get());
    return database;
}

Result<SqliteStatement> SqliteDatabase::prepare(std::string_view sql) const {
    sqlite3_stmt* statement = nullptr;
    const int result =
        sqlite3_prepare_v2(connection_.get(), sql.data(), static_cast<int>(sql.size()), &statement, nullptr);
    if (result != SQLITE_OK) return context_->noteFault(connection_.get());
    return SqliteStatement(*context_, statement);
}

Status SqliteDatabase::run(const std::string& sql) const {
    const int result = sqlite3_exec(connection_.get(), sql.c_str(), nullptr, nullptr, nullptr);
    return result == SQLITE_OK ? success() : Status(context_->noteFault(connection_.get()));
}

Result<std::int64_t> SqliteDatabase::integer(std::string_view sql) const {
    auto statement = prepare(sql);
    if (!statement) return statement.error();
    const auto row = statement->step();
    if (!row) return row.error();
    return *row ? statement->integer(0) : 0;
}

bool SqliteDatabase::isDamaged() const {
    return primary(context_->fault) == SQLITE_CORRUPT || primary(context_->fault) == SQLITE_NOTADB;
}

bool SqliteDatabase::isLocked() const {
    return isLock(context_->fault);
}

}  // namespace zor

#include "stations/sqlite/SqliteDatabase.h"

#include <gmock/gmock.h>

#include <fstream>
#include <thread>

#include "tests/support/TemporaryFolder.h"

namespace zor {
namespace {

using Mode = SqliteDatabase::Mode;
using testing::HasSubstr;

SqliteDatabase writable(const std::filesystem::path& path) {
    auto database = SqliteDatabase::open(path, Mode::write);
    EXPECT_TRUE(database) << database.error().message;
    return std::move(*database);
}

TEST(SqliteDatabase, BindsAndReadsEveryKind) {
    const test::TemporaryFolder folder;
    const auto database = writable(folder / "a.db");
    ASSERT_TRUE(database.run("CREATE TABLE t (a, b, c, d)"));
    auto insert = database.prepare("INSERT INTO t VALUES (?, ?, ?, NULL)");
    ASSERT_TRUE(insert);
    EXPECT_TRUE(insert->bind(1, std::int64_t{1} << 40).bind(2, 2.5).bind(3, "Müller's").run());
    EXPECT_TRUE(insert->bind(1, std::int64_t{7}).run());

    auto select = database.prepare("SELECT * FROM t");
    ASSERT_TRUE(select);
    EXPECT_TRUE(select->step().valueOr(false));
    EXPECT_EQ(select->integer(0), 1099511627776);
    EXPECT_EQ(select->real(1), 2.5);
    EXPECT_EQ(select->text(2), "Müller's");
    EXPECT_TRUE(select->isNull(3));
    EXPECT_EQ(select->number(1), 2.5);
    EXPECT_EQ(select->number(2), std::nullopt);
    EXPECT_EQ(select->number(3), std::nullopt);
    EXPECT_TRUE(select->step().valueOr(false));
    EXPECT_EQ(select->integer(0), 7);
    EXPECT_FALSE(select->step().valueOr(true));
    EXPECT_EQ(database.integer("SELECT count(*) FROM t").valueOr(0), 2);
    EXPECT_EQ(database.integer("SELECT a FROM t WHERE a = 99").valueOr(-1), 0);
}

TEST(SqliteDatabase, ErrorsNameTheFileAndTheFault) {
    const test::TemporaryFolder folder;
    const auto missing = SqliteDatabase::open(folder / "none.db", Mode::read);
    ASSERT_FALSE(missing);
    EXPECT_EQ(missing.error().message, "“" + (folder / "none.db").string() + "”: there is no such file");
    EXPECT_FALSE(std::filesystem::exists(folder / "none.db"));

    const auto database = writable(folder / "a.db");
    const auto wrong = database.prepare("SELECT x FROM nowhere");
    ASSERT_FALSE(wrong);
    EXPECT_THAT(wrong.error().message, HasSubstr("a.db”: no such table: nowhere"));
    EXPECT_FALSE(database.isDamaged());
    EXPECT_FALSE(database.isLocked());
    auto statement = database.prepare("SELECT 1");
    ASSERT_TRUE(statement);
    EXPECT_FALSE(statement->bind(2, 1.0).step());
}

TEST(SqliteDatabase, TellsWhatIsNoDatabase) {
    const test::TemporaryFolder folder;
    const auto path = folder.write("text.db", std::string(4096, 'x'));
    const auto database = SqliteDatabase::open(path, Mode::read);
    ASSERT_TRUE(database);
    const auto count = database->integer("SELECT count(*) FROM sqlite_master");
    ASSERT_FALSE(count);
    EXPECT_THAT(count.error().message, HasSubstr("text.db”: it is not an SQLite database"));
    EXPECT_TRUE(database->isDamaged());
}

TEST(SqliteDatabase, ReadsFilesWithSpecialCharactersInTheirNames) {
    const test::TemporaryFolder folder;
    for (const char* name : {"50%41 a?b#c.db", "ümläut.db"}) {
        ASSERT_TRUE(writable(folder / name).run("CREATE TABLE t (a)"));
        EXPECT_TRUE(std::filesystem::exists(folder / name));
        const auto database = SqliteDatabase::open(folder / name, Mode::readUnchanging);
        ASSERT_TRUE(database);
        EXPECT_EQ(database->integer("SELECT count(*) FROM sqlite_master").valueOr(0), 1);
    }
}

TEST(SqliteDatabase, ReadersChangeNothing) {
    const test::TemporaryFolder folder;
    ASSERT_TRUE(writable(folder / "a.db").run("CREATE TABLE t (a)"));
    for (const auto mode : {Mode::read, Mode::readUnchanging}) {
        const auto database = SqliteDatabase::open(folder / "a.db", mode);
        ASSERT_TRUE(database);
        EXPECT_FALSE(database->run("INSERT INTO t VALUES (1)"));
    }
}

TEST(SqliteDatabase, WaitsForALockOnlyAsLongAsItMay) {
    const test::TemporaryFolder folder;
    const auto holder = writable(folder / "a.db");
    ASSERT_TRUE(holder.run("CREATE TABLE t (a); BEGIN EXCLUSIVE"));

    const auto impatient = SqliteDatabase::open(folder / "a.db", Mode::read, {.limit = std::chrono::milliseconds(60)});
    ASSERT_TRUE(impatient);
    const auto count = impatient->integer("SELECT count(*) FROM t");
    ASSERT_FALSE(count);
    EXPECT_THAT(count.error().message, HasSubstr("a.db”: another program keeps it locked"));
    EXPECT_TRUE(impatient->isLocked());

    std::stop_source source;
    const auto stoppable =
        SqliteDatabase::open(folder / "a.db", Mode::read, {.limit = std::chrono::hours(1), .stop = source.get_token()});
    ASSERT_TRUE(stoppable);
    std::thread stopper([&] { source.request_stop(); });
    EXPECT_FALSE(stoppable->integer("SELECT count(*) FROM t"));
    stopper.join();
}

TEST(SqliteDatabase, WaitsUntilTheLockIsGone) {
    const test::TemporaryFolder folder;
    const auto holder = writable(folder / "a.db");
    ASSERT_TRUE(holder.run("CREATE TABLE t (a); BEGIN EXCLUSIVE; INSERT INTO t VALUES (5)"));
    std::thread release([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        EXPECT_TRUE(holder.run("COMMIT"));
    });
    const auto reader = SqliteDatabase::open(folder / "a.db", Mode::read);
    ASSERT_TRUE(reader);
    EXPECT_EQ(reader->integer("SELECT a FROM t").valueOr(0), 5);
    release.join();
}

}  // namespace
}  // namespace zor

#include "stations/history/HistoryStore.h"

#include <gmock/gmock.h>

#include <cmath>
#include <fstream>
#include <limits>
#include <thread>

#include "host/foundation/Log.h"
#include "stations/sqlite/SqliteDatabase.h"
#include "tests/support/TemporaryFolder.h"

namespace zor {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr Seconds kStart = 1751364000;

Reading reading(Seconds time, double temperature) {
    return {time, {{"outdoorTemperature", temperature}}};
}

class HistoryStoreTest : public testing::Test {
protected:
    HistoryStoreTest() : sink_(setLogSink({})) {}
    ~HistoryStoreTest() override { setLogSink(sink_); }

    std::shared_ptr<HistoryStore> open(const std::string& name = "history.sqlite") {
        auto store = HistoryStore::open(folder_ / name);
        EXPECT_TRUE(store) << store.error().message;
        return store ? *store : nullptr;
    }
    static std::vector<Sample> temperatures(const HistoryStore& store, const std::string& site = "roof") {
        return store.loader(site)->load("outdoorTemperature", 0, 4e9);
    }
    std::string bytes(const std::string& name) {
        std::ifstream file(folder_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    SqliteDatabase raw(const std::string& name = "history.sqlite") {
        return std::move(*SqliteDatabase::open(folder_ / name, SqliteDatabase::Mode::write));
    }

    const test::TemporaryFolder folder_;

private:
    LogSink sink_;
};

TEST_F(HistoryStoreTest, GivesBackWhatCameIn) {
    const auto store = open();
    EXPECT_EQ(store->damage(), std::nullopt);
    store->append("roof", {kStart, {{"outdoorTemperature", 21.125}, {"windSpeed", 3.0}}});
    store->append("roof", {kStart + 2.5, {{"outdoorTemperature", 21.25}}});
    store->append("shed", reading(kStart, -5));
    // Everything appended before is there at once.
    EXPECT_THAT(temperatures(*store), ElementsAre(Sample{kStart, 21.125}, Sample{kStart + 2.5, 21.25}));
    EXPECT_THAT(temperatures(*store, "shed"), ElementsAre(Sample{kStart, -5}));
    EXPECT_THAT(temperatures(*store, "cellar"), IsEmpty());
    const auto loader = store->loader("roof");
    EXPECT_THAT(loader->load("windSpeed", 0, 4e9), ElementsAre(Sample{kStart, 3}));
    EXPECT_THAT(loader->load("windGust", 0, 4e9), IsEmpty());
    EXPECT_THAT(loader->load("outdoorTemperature", kStart, kStart + 2.4), ElementsAre(Sample{kStart, 21.125}));
    EXPECT_THAT(loader->load("outdoorTemperature", kStart + 2.5, kStart + 2.5),
                ElementsAre(Sample{kStart + 2.5, 21.25}));
    EXPECT_THAT(loader->load("outdoorTemperature", kStart + 3, kStart), IsEmpty());
    EXPECT_EQ(loader->load("outdoorTemperature", -std::numeric_limits<double>::infinity(), 1e300).size(), 2);
}

TEST_F(HistoryStoreTest, AReadingOfTheSameMomentReplaces) {
    const auto store = open();
    store->append("roof", reading(kStart, 1));
    ASSERT_TRUE(store->flush());
    store->append("roof", reading(kStart, 2));
    EXPECT_THAT(temperatures(*store), ElementsAre(Sample{kStart, 2}));
}

TEST_F(HistoryStoreTest, LateReadingsAreSortedIn) {
    const auto store = open();
    for (const Seconds time : {30, 10, 20}) store->append("roof", reading(time, time));
    EXPECT_THAT(temperatures(*store), ElementsAre(Sample{10, 10}, Sample{20, 20}, Sample{30, 30}));
}

TEST_F(HistoryStoreTest, WhatHasNoValueIsLeftOut) {
    const auto store = open();
    store->append("roof", {kStart, {{"a", std::nullopt}, {"b", NAN}, {"c", INFINITY}, {"d", 1.0}}});
    store->append("roof", {NAN, {{"d", 2.0}}});
    ASSERT_TRUE(store->flush());
    for (const char* key : {"a", "b", "c"}) EXPECT_THAT(store->loader("roof")->load(key, 0, 4e9), IsEmpty());
    EXPECT_THAT(store->loader("roof")->load("d", 0, 4e9), ElementsAre(Sample{kStart, 1}));
}

TEST_F(HistoryStoreTest, NothingIsLostWhenItCloses) {
    for (int session = 0; session < 3; ++session) {
        const auto store = open("deep/er/history.sqlite");
        for (int index = 0; index < 1000; ++index) {
            store->append("roof", reading(kStart + session * 2500 + index * 2.5, index));
        }
    }
    EXPECT_EQ(temperatures(*open("deep/er/history.sqlite")).size(), 3000);
    EXPECT_FALSE(std::filesystem::exists(folder_ / "deep/er/history.sqlite-wal"));
}

TEST_F(HistoryStoreTest, ALoaderThatOutlivesTheStoreGivesNothing) {
    auto store = open();
    store->append("roof", reading(kStart, 1));
    const auto loader = store->loader("roof");
    store.reset();
    EXPECT_THAT(loader->load("outdoorTemperature", 0, 4e9), IsEmpty());
    EXPECT_FALSE(std::filesystem::exists(folder_ / "history.sqlite-wal"));
}

TEST_F(HistoryStoreTest, WhatWasFlushedSurvivesACrash) {
    const auto store = open();
    for (int index = 0; index < 500; ++index) store->append("roof", reading(kStart + index, index));
    ASSERT_TRUE(store->flush());
    // What the disk holds if the program died now.
    std::filesystem::copy_file(folder_ / "history.sqlite", folder_ / "crashed.sqlite");
    std::filesystem::copy_file(folder_ / "history.sqlite-wal", folder_ / "crashed.sqlite-wal");
    const auto crashed = open("crashed.sqlite");
    EXPECT_EQ(crashed->damage(), std::nullopt);
    EXPECT_EQ(temperatures(*crashed).size(), 500);
}

TEST_F(HistoryStoreTest, ATornWriteCostsOnlyWhatItWrote) {
    const auto store = open();
    store->append("roof", reading(kStart, 1));
    ASSERT_TRUE(store->flush());
    store->append("roof", reading(kStart + 1, 2));
    ASSERT_TRUE(store->flush());
    std::filesystem::copy_file(folder_ / "history.sqlite", folder_ / "torn.sqlite");
    std::filesystem::copy_file(folder_ / "history.sqlite-wal", folder_ / "torn.sqlite-wal");
    std::filesystem::resize_file(folder_ / "torn.sqlite-wal",
                                 std::filesystem::file_size(folder_ / "torn.sqlite-wal") - 100);
    const auto torn = open("torn.sqlite");
    EXPECT_EQ(torn->damage(), std::nullopt);
    EXPECT_THAT(temperatures(*torn), ElementsAre(Sample{kStart, 1}));
    torn->append("roof", reading(kStart + 2, 3));
    EXPECT_EQ(temperatures(*torn).size(), 2);
}

TEST_F(HistoryStoreTest, ADamagedFileIsKeptAndAFreshOneBegun) {
    folder_.write("history.sqlite", std::string(9000, 'z'));
    for (int round = 1; round <= 2; ++round) {
        {
            const auto store = open();
            ASSERT_TRUE(store->damage());
            EXPECT_THAT(store->damage()->message,
                        HasSubstr("history.sqlite”: it is not an SQLite database; it is kept"));
            EXPECT_THAT(store->damage()->message, HasSubstr("history.sqlite.damaged-" + std::to_string(round)));
            store->append("roof", reading(kStart, round));
            EXPECT_THAT(temperatures(*store), ElementsAre(Sample{kStart, double(round)}));
        }
        EXPECT_EQ(open()->damage(), std::nullopt);
        std::filesystem::remove(folder_ / "history.sqlite");
        folder_.write("history.sqlite", std::string(9000, 'y'));
    }
    EXPECT_EQ(bytes("history.sqlite.damaged-1"), std::string(9000, 'z'));
    EXPECT_EQ(bytes("history.sqlite.damaged-2"), std::string(9000, 'y'));
}

TEST_F(HistoryStoreTest, ATruncatedFileIsKeptToo) {
    {
        const auto store = open();
        for (int index = 0; index < 5000; ++index) store->append("roof", reading(kStart + index, index));
    }
    std::filesystem::resize_file(folder_ / "history.sqlite", 4096);
    const auto store = open();
    ASSERT_TRUE(store->damage());
    EXPECT_EQ(std::filesystem::file_size(folder_ / "history.sqlite.damaged-1"), 4096);
    store->append("roof", reading(kStart, 1));
    EXPECT_EQ(temperatures(*store).size(), 1);
}

TEST_F(HistoryStoreTest, DamageThatShowsWhileWritingLosesNothing) {
    {
        const auto store = open();
        for (int index = 0; index < 20000; ++index) store->append("roof", reading(kStart + index, index));
    }
    // The page that new samples go to; the roots stay whole.
    const auto size = std::filesystem::file_size(folder_ / "history.sqlite");
    {
        std::fstream file(folder_ / "history.sqlite", std::ios::in | std::ios::out | std::ios::binary);
        for (std::uintmax_t page = 5; page < size / 4096; ++page) {
            file.seekp(static_cast<std::streamoff>(page * 4096));
            file << std::string(4096, '\xff');
        }
    }
    const auto store = open();
    EXPECT_EQ(store->damage(), std::nullopt);
    store->append("roof", reading(kStart + 30000, 7));
    EXPECT_TRUE(store->flush());
    ASSERT_TRUE(store->damage());
    EXPECT_THAT(temperatures(*store), ElementsAre(Sample{kStart + 30000, 7}));
    EXPECT_EQ(std::filesystem::file_size(folder_ / "history.sqlite.damaged-1"), size);
}

TEST_F(HistoryStoreTest, LeavesForeignAndNewerFilesAlone) {
    ASSERT_TRUE(raw("foreign.sqlite").run("CREATE TABLE recipes (name)"));
    const auto foreign = HistoryStore::open(folder_ / "foreign.sqlite");
    ASSERT_FALSE(foreign);
    EXPECT_THAT(foreign.error().message, HasSubstr("foreign.sqlite”: it is another program's database"));
    ASSERT_TRUE(raw("newer.sqlite").run("CREATE TABLE sample (x); PRAGMA user_version = 2"));
    const auto newer = HistoryStore::open(folder_ / "newer.sqlite");
    ASSERT_FALSE(newer);
    EXPECT_THAT(newer.error().message, HasSubstr("newer.sqlite”: it is of a newer version"));
    EXPECT_TRUE(raw("foreign.sqlite").run("SELECT * FROM recipes"));
    EXPECT_FALSE(std::filesystem::exists(folder_ / "foreign.sqlite.damaged-1"));
}

TEST_F(HistoryStoreTest, SaysWhyThereCanBeNoStore) {
    folder_.write("file", "x");
    const auto inFile = HistoryStore::open(folder_ / "file/history.sqlite");
    ASSERT_FALSE(inFile);
    EXPECT_THAT(inFile.error().message, HasSubstr("the folder cannot be made"));
    const auto folder = HistoryStore::open(folder_.path());
    ASSERT_FALSE(folder);
    EXPECT_THAT(folder.error().message, HasSubstr(folder_.path().string()));
}

TEST_F(HistoryStoreTest, HoldsTheNewestWhileItCannotWrite) {
    const auto store = open();
    EXPECT_TRUE(store->flush());
    EXPECT_EQ(store->trouble(), std::nullopt);
    const auto holder = raw();
    ASSERT_TRUE(holder.run("BEGIN IMMEDIATE"));
    for (int index = 0; index < 20100; ++index) store->append("roof", reading(kStart + index, index));
    const auto delayed = store->flush();
    ASSERT_FALSE(delayed);
    EXPECT_THAT(delayed.error().message, HasSubstr("another program keeps it locked"));
    EXPECT_EQ(store->trouble(), delayed.error());
    ASSERT_TRUE(holder.run("COMMIT"));
    EXPECT_TRUE(store->flush());
    EXPECT_EQ(store->trouble(), std::nullopt);
    // The oldest hundred were one too many each.
    const auto samples = temperatures(*store);
    ASSERT_EQ(samples.size(), 20000);
    EXPECT_EQ(samples.front().time, kStart + 100);
}

TEST_F(HistoryStoreTest, BeginsAnewWhereTheFileWasRemoved) {
    const auto store = open();
    store->append("roof", reading(kStart, 1));
    ASSERT_TRUE(store->flush());
    for (const char* suffix : {"", "-wal", "-shm"}) {
        std::filesystem::remove(folder_ / (std::string("history.sqlite") + suffix));
    }
    store->append("roof", reading(kStart + 1, 2));
    EXPECT_THAT(temperatures(*store), ElementsAre(Sample{kStart + 1, 2}));
}

TEST_F(HistoryStoreTest, ThinsLongSpansWithoutLosingAnExtreme) {
    const auto store = open();
    constexpr int kCount = 50000;
    double rain = 0;
    for (int index = 0; index < kCount; ++index) {
        const double temperature = index == 12345 ? 40 : index == 33333 ? -40 : 10 + std::sin(index * 0.01);
        const double amount = index % 7 == 0 ? 0.25 : 0;
        rain += amount;
        store->append("roof", {kStart + index * 2.5, {{"outdoorTemperature", temperature}, {"rainIncrement", amount}}});
        // Far faster than any station: no more than the store holds.
        if (index % 10000 == 0) {
            ASSERT_TRUE(store->flush());
        }
    }
    const auto loader = store->loader("roof");
    const auto all = temperatures(*store);
    EXPECT_LE(all.size(), 20000);
    EXPECT_GT(all.size(), 10000);
    EXPECT_THAT(all, testing::Contains(Sample{kStart + 12345 * 2.5, 40}));
    EXPECT_THAT(all, testing::Contains(Sample{kStart + 33333 * 2.5, -40}));
    EXPECT_TRUE(std::ranges::is_sorted(all, std::ranges::less_equal{}, &Sample::time));

    const auto increments = loader->load("rainIncrement", 0, 4e9);
    EXPECT_LE(increments.size(), 20000);
    double sum = 0;
    for (const auto& sample : increments) sum += sample.value;
    EXPECT_EQ(sum, rain);
    EXPECT_EQ(increments.back().time, kStart + (kCount - 1) * 2.5);

    // 20,000 samples are no long span.
    EXPECT_EQ(loader->load("outdoorTemperature", kStart, kStart + 19999 * 2.5).size(), 20000);
    EXPECT_LE(loader->load("outdoorTemperature", kStart, kStart + 20000 * 2.5).size(), 20000);
}

TEST_F(HistoryStoreTest, ServesManyThreadsAtOnce) {
    const auto store = open();
    std::vector<std::thread> readers;
    for (int index = 0; index < 3; ++index) {
        readers.emplace_back([loader = store->loader("roof")] {
            std::size_t most = 0;
            for (int round = 0; round < 20; ++round) {
                const auto size = loader->load("outdoorTemperature", 0, 4e9).size();
                EXPECT_GE(size, most);
                most = size;
            }
        });
    }
    for (int index = 0; index < 2000; ++index) store->append("roof", reading(kStart + index, index));
    for (auto& reader : readers) reader.join();
    EXPECT_EQ(temperatures(*store).size(), 2000);
}

}  // namespace
}  // namespace zor

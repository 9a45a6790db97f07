#include "host/foundation/SafeFile.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

#include "tests/support/TemporaryFolder.h"

namespace zor {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

Bytes bytes(std::string_view text) {
    return {text.begin(), text.end()};
}

mode_t permissions(const fs::path& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    return status.st_mode & 07777;
}

class SafeFileTest : public testing::Test {
protected:
    std::string contents(const fs::path& path) {
        const auto data = readFile(path);
        return data ? std::string(data->begin(), data->end()) : "unreadable: " + data.error().message;
    }
    std::ptrdiff_t entries() { return std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()); }

    test::TemporaryFolder folder;
};

TEST_F(SafeFileTest, ReadsWhatWasWritten) {
    Bytes large(300'000);
    for (std::size_t index = 0; index < large.size(); ++index) large[index] = static_cast<std::uint8_t>(index * 7);
    ASSERT_TRUE(writeFileAtomically(folder / "large", large));
    const auto back = readFile(folder / "large");
    ASSERT_TRUE(back);
    EXPECT_EQ(*back, large);
    ASSERT_TRUE(writeFileAtomically(folder / "large", {}));
    EXPECT_EQ(contents(folder / "large"), "");
}

TEST_F(SafeFileTest, ReplacesTheOldFileAndLeavesNoScrap) {
    folder.write("file", "old and longer");
    ASSERT_TRUE(writeFileAtomically(folder / "file", bytes("new")));
    EXPECT_EQ(contents(folder / "file"), "new");
    EXPECT_EQ(entries(), 1);
}

TEST_F(SafeFileTest, MissingFileIsNamedWithTheReason) {
    const auto data = readFile(folder / "missing");
    ASSERT_FALSE(data);
    EXPECT_EQ(data.error().message, "cannot read \"" + (folder / "missing").string() + "\": No such file or directory");
}

TEST_F(SafeFileTest, FolderIsNoFile) {
    const auto data = readFile(folder.path());
    ASSERT_FALSE(data);
    EXPECT_THAT(data.error().message, HasSubstr("Is a directory"));
    const auto written = writeFileAtomically(folder.path(), bytes("x"));
    ASSERT_FALSE(written);
    EXPECT_THAT(written.error().message, HasSubstr("Is a directory"));
}

TEST_F(SafeFileTest, FileBeyondTheLimitIsRefused) {
    const auto file = folder.write("file", "12345");
    EXPECT_TRUE(readFile(file, 5));
    const auto data = readFile(file, 4);
    ASSERT_FALSE(data);
    EXPECT_THAT(data.error().message, HasSubstr("File too large"));
}

TEST_F(SafeFileTest, PermissionsOfAnExistingFileStay) {
    const auto file = folder.write("file", "old");
    ASSERT_EQ(::chmod(file.c_str(), 0640), 0);
    ASSERT_TRUE(writeFileAtomically(file, bytes("new")));
    EXPECT_EQ(permissions(file), 0640u);
}

TEST_F(SafeFileTest, NewFileObeysTheMask) {
    const mode_t before = ::umask(027);
    const auto written = writeFileAtomically(folder / "file", bytes("new"));
    ::umask(before);
    ASSERT_TRUE(written);
    EXPECT_EQ(permissions(folder / "file"), 0640u);
}

TEST_F(SafeFileTest, FollowsLinks) {
    folder.write("real/file", "old");
    fs::create_symlink("real/file", folder / "link");
    fs::create_symlink(folder / "link", folder / "link to link");
    ASSERT_TRUE(writeFileAtomically(folder / "link to link", bytes("new")));
    EXPECT_TRUE(fs::is_symlink(folder / "link to link"));
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(contents(folder / "real/file"), "new");
}

TEST_F(SafeFileTest, LinkToNothingMakesTheFileItLeadsTo) {
    fs::create_symlink("target", folder / "link");
    ASSERT_TRUE(writeFileAtomically(folder / "link", bytes("new")));
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(contents(folder / "target"), "new");
}

TEST_F(SafeFileTest, LinkInACircleIsAnError) {
    fs::create_symlink("b", folder / "a");
    fs::create_symlink("a", folder / "b");
    const auto written = writeFileAtomically(folder / "a", bytes("new"));
    ASSERT_FALSE(written);
    EXPECT_THAT(written.error().message, HasSubstr((folder / "a").string()));
}

TEST_F(SafeFileTest, MissingFolderIsAnErrorThatNamesThePath) {
    const auto written = writeFileAtomically(folder / "missing/file", bytes("new"));
    ASSERT_FALSE(written);
    EXPECT_EQ(written.error().message,
              "cannot write \"" + (folder / "missing/file").string() + "\": No such file or directory");
}

TEST_F(SafeFileTest, PipeIsNotReplaced) {
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_FALSE(writeFileAtomically(folder / "pipe", bytes("new")));
    EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
    EXPECT_EQ(entries(), 1);
}

TEST_F(SafeFileTest, FailedWriteKeepsTheOldFileAndLeavesNoScrap) {
    const auto file = folder.write("file", "old");
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit tight{1000, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &tight), 0);
    const auto written = writeFileAtomically(file, Bytes(5000, 1));
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, oldHandler);

    ASSERT_FALSE(written);
    EXPECT_EQ(written.error().message, "cannot write \"" + file.string() + "\": File too large");
    EXPECT_EQ(contents(file), "old");
    EXPECT_EQ(entries(), 1);
}

TEST_F(SafeFileTest, ScrapsOfAKilledProgramGoWithTheNextWriting) {
    const auto file = folder.write("file", "old");
    folder.write(".file.0.zor-tmp", "half of i");
    folder.write(".file.3.zor-tmp", "half");
    folder.write(".other.0.zor-tmp", "of another file");
    removeAbandonedScraps(file);
    EXPECT_EQ(entries(), 2);
    EXPECT_EQ(contents(folder / ".other.0.zor-tmp"), "of another file");
    EXPECT_EQ(contents(file), "old");

    folder.write(".file.0.zor-tmp", "half of i");
    ASSERT_TRUE(writeFileAtomically(file, bytes("new")));
    EXPECT_EQ(contents(file), "new");
    EXPECT_EQ(entries(), 2);
}

TEST_F(SafeFileTest, ScrapsThatAnotherProgramIsWritingStay) {
    const auto file = folder.write("file", "old");
    std::vector<int> writers;
    for (int number = 0; number < 4; ++number) {
        const auto scrap = folder.write(".file." + std::to_string(number) + ".zor-tmp", "theirs");
        writers.push_back(::open(scrap.c_str(), O_WRONLY | O_CLOEXEC));
        ASSERT_EQ(::flock(writers.back(), LOCK_EX), 0);
    }
    removeAbandonedScraps(file);
    EXPECT_EQ(entries(), 5);
    const auto refused = writeFileAtomically(file, bytes("new"));
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().message, "cannot write \"" + file.string() + "\": Device or resource busy");
    EXPECT_EQ(contents(file), "old");

    ::close(writers[2]);
    EXPECT_TRUE(writeFileAtomically(file, bytes("new")));
    EXPECT_EQ(contents(file), "new");
    EXPECT_EQ(contents(folder / ".file.1.zor-tmp"), "theirs");
    EXPECT_EQ(entries(), 4);
    for (const int number : {0, 1, 3}) ::close(writers[static_cast<std::size_t>(number)]);
}

TEST_F(SafeFileTest, LongestNamesHaveScrapsToo) {
    const auto file = folder / std::string(255, 'n');
    ASSERT_TRUE(writeFileAtomically(file, bytes("new")));
    EXPECT_EQ(contents(file), "new");
    EXPECT_EQ(entries(), 1);
}

}  // namespace
}  // namespace zor

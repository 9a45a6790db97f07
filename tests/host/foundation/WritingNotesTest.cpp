#include "host/foundation/WritingNotes.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "host/foundation/SafeFile.h"
#include "tests/support/TemporaryFolder.h"

namespace zor {
namespace {

namespace fs = std::filesystem;

class WritingNotesTest : public testing::Test {
protected:
    WritingNotesTest() { keepWritingNotesIn(notes); }
    ~WritingNotesTest() override { keepWritingNotesIn({}); }
    std::ptrdiff_t noteCount() {
        return fs::exists(notes) ? std::distance(fs::directory_iterator(notes), fs::directory_iterator()) : 0;
    }
    /// A program that ends in the middle of writing the file.
    void leaveHalf(const std::string& file) {
        const pid_t child = ::fork();
        if (child == 0) {
            const WritingNote note(folder / file);
            folder.write("." + file + ".0.zor-tmp", "half of i");
            ::_exit(0);
        }
        int status = -1;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_EQ(status, 0);
    }

    test::TemporaryFolder folder;
    const fs::path notes = folder / "data" / "unfinished";
};

TEST_F(WritingNotesTest, ANoteNamesTheFileWhileItIsWritten) {
    {
        const WritingNote note(folder / "panel");
        ASSERT_EQ(noteCount(), 1);
        EXPECT_EQ(fs::read_symlink(fs::directory_iterator(notes)->path()), folder / "panel");
        const WritingNote other(folder / "another");
        EXPECT_EQ(noteCount(), 2);
    }
    EXPECT_EQ(noteCount(), 0);
}

TEST_F(WritingNotesTest, AWrittenFileLeavesNoNote) {
    ASSERT_TRUE(writeFileAtomically(folder / "panel", Bytes{1, 2}));
    EXPECT_TRUE(fs::exists(notes));
    EXPECT_EQ(noteCount(), 0);
    EXPECT_FALSE(writeFileAtomically(folder / "nowhere" / "panel", Bytes{1, 2}));
    EXPECT_EQ(noteCount(), 0);
}

TEST_F(WritingNotesTest, TheNextStartRemovesWhatAKilledProgramLeft) {
    folder.write("panel", "old");
    folder.write(".stranger.0.zor-tmp", "not noted");
    leaveHalf("panel");
    ASSERT_EQ(noteCount(), 1);
    ASSERT_TRUE(fs::exists(folder / ".panel.0.zor-tmp"));

    keepWritingNotesIn(notes);
    EXPECT_EQ(noteCount(), 0);
    EXPECT_FALSE(fs::exists(folder / ".panel.0.zor-tmp"));
    EXPECT_TRUE(fs::exists(folder / ".stranger.0.zor-tmp"));
    EXPECT_TRUE(fs::exists(folder / "panel"));
}

TEST_F(WritingNotesTest, NotesOfAProgramAtWorkStay) {
    const WritingNote note(folder / "panel");
    folder.write(".panel.0.zor-tmp", "half of i");
    keepWritingNotesIn(notes);
    EXPECT_EQ(noteCount(), 1);
    EXPECT_TRUE(fs::exists(folder / ".panel.0.zor-tmp"));
}

TEST_F(WritingNotesTest, WhatIsNoNoteIsLeftAlone) {
    folder.write(".panel.0.zor-tmp", "half of i");
    fs::create_directories(notes);
    folder.write("data/unfinished/text", "no link");
    keepWritingNotesIn(notes);
    EXPECT_EQ(noteCount(), 1);
}

TEST_F(WritingNotesTest, WithoutAFolderFilesAreWrittenAllTheSame) {
    folder.write("file", "in the way");
    keepWritingNotesIn(folder / "file" / "notes");
    EXPECT_TRUE(writeFileAtomically(folder / "panel", Bytes{1}));
    keepWritingNotesIn({});
    EXPECT_TRUE(writeFileAtomically(folder / "panel", Bytes{1}));
}

}  // namespace
}  // namespace zor

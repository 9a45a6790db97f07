#pragma once
// Notes of files that are being written: a program that is killed leaves half a file beside, and nobody may ever write
// or open that file again. The next start finds it by its note.

#include <filesystem>

namespace zor {

/// Removes what killed programs left unfinished according to their notes in the folder; from then on this program
/// keeps its own there. The folder is made with the first note; where it cannot be, nothing is noted and nothing fails.
void keepWritingNotesIn(const std::filesystem::path& folder);

/// Lives as long as the writing of that file.
class WritingNote {
public:
    explicit WritingNote(const std::filesystem::path& file);
    WritingNote(const WritingNote&) = delete;
    WritingNote& operator=(const WritingNote&) = delete;
    ~WritingNote();

private:
    std::filesystem::path note_;
};

}  // namespace zor

#include "host/foundation/WritingNotes.h"

#include <signal.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <charconv>
#include <string>
#include <system_error>

#include "host/foundation/SafeFile.h"

namespace zor {

namespace {

namespace fs = std::filesystem;

fs::path notesFolder;

/// A note's name begins with the number of the program that wrote it.
bool isWriterAlive(const std::string& note) {
    pid_t program = 0;
    const auto [end, error] = std::from_chars(note.data(), note.data() + note.size(), program);
    return error == std::errc() && program > 0 && (::kill(program, 0) == 0 || errno == EPERM);
}

}  // namespace

void keepWritingNotesIn(const fs::path& folder) {
    std::error_code error;
    notesFolder = folder;
    for (fs::directory_iterator note(folder, error); !error && note != fs::directory_iterator();
         note.increment(error)) {
        // A number that is in use again keeps its note until some later start.
        std::error_code unread;
        const auto file = fs::read_symlink(note->path(), unread);
        if (unread || isWriterAlive(note->path().filename().string())) continue;
        removeAbandonedScraps(file);
        ::unlink(note->path().c_str());
    }
}

WritingNote::WritingNote(const fs::path& file) {
    static std::atomic<unsigned> count = 0;
    if (notesFolder.empty()) return;
    std::error_code error;
    fs::create_directories(notesFolder, error);
    const auto target = fs::absolute(file, error);
    // A link names the file in a single step: there is no half a note. Without one the writing goes on all the same.
    const auto note = notesFolder / (std::to_string(::getpid()) + "." + std::to_string(count++));
    if (!error && ::symlink(target.c_str(), note.c_str()) == 0) note_ = note;
}

WritingNote::~WritingNote() {
    if (!note_.empty()) ::unlink(note_.c_str());
}

}  // namespace zor

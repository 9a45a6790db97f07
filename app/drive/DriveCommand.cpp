#include <fstream>
#include <iostream>

#include "app/Commands.h"
#include "app/Runtime.h"
#include "app/drive/DriveSession.h"

namespace zor {

namespace {

void drive(std::istream& lines, DriveSession& session) {
    // An empty line is answered too, so that whoever waits for one answer to each line never waits in vain.
    for (std::string line; std::getline(lines, line);) {
        std::cout << session.answer(line) << '\n' << std::flush;
    }
}

int run(std::span<const std::string> words) {
    if (words.size() > 1) return failUsage(driveCommand, "name at most one file");
    std::ifstream file;
    if (words.size() == 1) {
        file.open(words[0]);
        if (!file) return fail("cannot read " + words[0]);
    }
    HeadlessRuntime runtime([]() -> std::unique_ptr<Toolkit> { return std::make_unique<DriveToolkit>(); });
    DriveSession session(runtime.plugIns(), static_cast<DriveToolkit&>(Toolkit::current()));
    drive(words.empty() ? std::cin : file, session);
    return 0;
}

}  // namespace

const Command driveCommand{"drive", "drive [FILE]", "Carries out a script: one JSON object per line in, one out.", run};

}  // namespace zor

// station: a weather station's instrument panels.

#include <algorithm>
#include <array>
#include <cstdio>

#include "app/Commands.h"
#include "app/Version.h"

namespace zor {

std::span<const Command> allCommands() {
    static const std::array commands{openCommand,      newCommand,     renderCommand, serveCommand,
                                     catalogueCommand, inspectCommand, driveCommand};
    return commands;
}

namespace {

void printHelp() {
    std::printf("station %s: a weather station's instrument panels\n\n", programVersion);
    std::printf("usage: station [COMMAND] ...\n\n");
    for (const auto& command : allCommands()) {
        std::printf("  station %.*s\n      %.*s\n", static_cast<int>(command.usage.size()), command.usage.data(),
                    static_cast<int>(command.summary.size()), command.summary.data());
    }
    std::printf("\n  SITE is a saved Site Document (.site), a SOURCE, or \"demo\": the built-in simulated station.\n");
    std::printf("  SOURCE is where readings come from: simulated or weewx:FILE, the SQLite archive of weewx.\n");
    std::printf("  The simulated station takes settings, simulated:seed=7,speed=60: seed, speed (times real time),\n");
    std::printf("  interval (seconds), latitude, longitude (degrees), start (seconds since 1970).\n");
    std::printf("  station --help, station --version\n");
}

int runProgram(std::span<const std::string> words) {
    if (words.empty()) return openCommand.run({});
    const std::string& first = words.front();
    if (first == "--help" || first == "-h" || first == "help") {
        printHelp();
        return 0;
    }
    if (first == "--version") {
        std::printf("station %s\n", programVersion);
        return 0;
    }
    const auto commands = allCommands();
    const auto command = std::ranges::find(commands, first, &Command::name);
    if (command != commands.end()) {
        const auto rest = words.subspan(1);
        if (std::ranges::find(rest, "--help") != rest.end()) {
            std::printf("usage: station %.*s\n%.*s\n", static_cast<int>(command->usage.size()), command->usage.data(),
                        static_cast<int>(command->summary.size()), command->summary.data());
            return 0;
        }
        return command->run(rest);
    }
    // A bare file name opens it, as a double click in a file manager does.
    if (first.ends_with(".site")) return openCommand.run(words);
    return fail("there is no command \"" + first + "\"; see station --help") + 1;
}

}  // namespace

}  // namespace zor

int main(int argc, char** argv) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    return zor::runProgram(words);
}

#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/foundation/Result.h"

namespace zor {

/// Words and options of one command.
class Arguments {
public:
    /// `valued` options take the next word ("--dashboard TITLE" or "--dashboard=TITLE"), `flags` none. Everything else
    /// that begins with "-" is an error that names it.
    static Result<Arguments> parse(std::span<const std::string> words, std::span<const std::string_view> valued,
                                   std::span<const std::string_view> flags = {});

    const std::vector<std::string>& words() const { return words_; }
    std::optional<std::string> option(std::string_view name) const;
    bool has(std::string_view flag) const { return options_.contains(flag); }

private:
    std::vector<std::string> words_;
    std::map<std::string, std::string, std::less<>> options_;
};

/// One command of the program: `station NAME ...`.
struct Command {
    std::string_view name;
    std::string_view usage;
    std::string_view summary;
    /// Gives the exit status; messages go to standard error, answers to standard output.
    int (*run)(std::span<const std::string> words);
};

std::span<const Command> allCommands();
/// Writes "station: MESSAGE" to standard error and gives the exit status for it.
int fail(std::string_view message);
/// The same for a wrong call, with the command's usage.
int failUsage(const Command& command, std::string_view message);

}  // namespace zor

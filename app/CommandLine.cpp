#include "app/CommandLine.h"

#include <algorithm>
#include <cstdio>

namespace zor {

namespace {

bool isListed(std::span<const std::string_view> names, std::string_view name) {
    return std::ranges::find(names, name) != names.end();
}

}  // namespace

Result<Arguments> Arguments::parse(std::span<const std::string> words, std::span<const std::string_view> valued,
                                   std::span<const std::string_view> flags) {
    Arguments arguments;
    for (std::size_t index = 0; index < words.size(); ++index) {
        const std::string& word = words[index];
        if (word.size() < 2 || word[0] != '-') {
            arguments.words_.push_back(word);
            continue;
        }
        const std::size_t equals = word.find('=');
        const std::string name = word.substr(0, equals);
        if (isListed(flags, name) && equals == std::string::npos) {
            arguments.options_[name] = "";
        } else if (!isListed(valued, name)) {
            return Error{"unknown option " + name};
        } else if (equals != std::string::npos) {
            arguments.options_[name] = word.substr(equals + 1);
        } else if (index + 1 < words.size()) {
            arguments.options_[name] = words[++index];
        } else {
            return Error{"option " + name + " needs a value"};
        }
    }
    return arguments;
}

std::optional<std::string> Arguments::option(std::string_view name) const {
    const auto found = options_.find(name);
    return found == options_.end() ? std::nullopt : std::optional(found->second);
}

int fail(std::string_view message) {
    std::fprintf(stderr, "station: %.*s\n", static_cast<int>(message.size()), message.data());
    return 1;
}

int failUsage(const Command& command, std::string_view message) {
    fail(message);
    std::fprintf(stderr, "usage: station %.*s\n", static_cast<int>(command.usage.size()), command.usage.data());
    return 2;
}

}  // namespace zor

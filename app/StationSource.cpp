#include "app/StationSource.h"

#include <filesystem>
#include <string_view>
#include <system_error>

namespace zor {

namespace {

constexpr std::string_view simulated = "simulated";
constexpr std::string_view weewx = "weewx:";

}  // namespace

bool namesSource(const std::string& text) {
    return text == simulated || text.starts_with(weewx);
}

Result<AgentConfiguration> configurationOfSource(const std::string& source) {
    AgentConfiguration configuration;
    if (source == simulated) return configuration;
    if (!source.starts_with(weewx)) {
        return Error{"there is no source named \"" + source + "\" (there are simulated and weewx:FILE)"};
    }
    if (source.size() == weewx.size()) return Error{"name the archive: weewx:FILE"};
    configuration.driver = "weewx";
    // A document is found again from wherever the program is started.
    std::error_code error;
    const auto file = std::filesystem::absolute(source.substr(weewx.size()), error);
    configuration.settings["file"] = error ? source.substr(weewx.size()) : file.string();
    return configuration;
}

std::string sourceOf(const AgentConfiguration& configuration) {
    if (configuration.driver != "weewx") return std::string(simulated);
    const auto file = configuration.settings.find("file");
    return std::string(weewx) + (file == configuration.settings.end() ? "" : file->second.string().value_or(""));
}

}  // namespace zor

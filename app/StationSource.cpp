#include "app/StationSource.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>

namespace zor {

namespace {

constexpr std::string_view simulated = "simulated";
constexpr std::string_view weewx = "weewx";
/// What a source may say of the simulated station, in the order in which we write it. All are numbers.
constexpr std::array<std::string_view, 6> simulatedKeys{"seed", "speed", "interval", "latitude", "longitude", "start"};

/// What follows "NAME:", or nothing where the source is another.
std::optional<std::string> detailsOf(const std::string& source, std::string_view name) {
    if (!source.starts_with(name) || source.size() == name.size() || source[name.size()] != ':') return {};
    return source.substr(name.size() + 1);
}

std::string inQuotes(std::string_view text) {
    return '"' + std::string(text) + '"';
}

template <typename Number>
std::optional<Number> parsed(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc{} && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

/// A whole number stays one; absent where the text is no number.
Value numberIn(std::string_view text) {
    if (const auto whole = parsed<std::int64_t>(text)) return *whole;
    const auto real = parsed<double>(text);
    return real ? Value(*real) : Value();
}

std::string written(const Value& number) {
    std::array<char, 32> digits{};
    char* const end = digits.data() + digits.size();
    return {digits.data(), number.isInteger() ? std::to_chars(digits.data(), end, number.asInteger()).ptr
                                              : std::to_chars(digits.data(), end, number.asReal()).ptr};
}

std::string listedKeys() {
    std::string list;
    for (const auto key : simulatedKeys) list += (list.empty() ? "" : ", ") + std::string(key);
    return list;
}

/// "seed=7,speed=60". Whether a number is one that the station can use is the driver's to say.
Status readSettings(std::string_view text, Value::Dictionary& settings) {
    for (bool isLast = false; !isLast;) {
        const std::size_t comma = text.find(',');
        isLast = comma == std::string_view::npos;
        const std::string_view entry = text.substr(0, comma);
        text.remove_prefix(isLast ? text.size() : comma + 1);
        const std::size_t equals = entry.find('=');
        const std::string_view key = entry.substr(0, equals);
        if (std::ranges::find(simulatedKeys, key) == simulatedKeys.end()) {
            return Error{"the simulated station has no setting " + inQuotes(key) + " (there are " + listedKeys() + ")"};
        }
        const std::string_view value = equals == std::string_view::npos ? "" : entry.substr(equals + 1);
        Value number = numberIn(value);
        if (number.isAbsent()) {
            return Error{inQuotes(key) + " of the simulated station must be a number, not " + inQuotes(value)};
        }
        if (!settings.emplace(key, std::move(number)).second) {
            return Error{inQuotes(key) + " of the simulated station is given twice"};
        }
    }
    return success();
}

}  // namespace

bool namesSource(const std::string& text) {
    return text == simulated || detailsOf(text, simulated) || detailsOf(text, weewx);
}

Result<AgentConfiguration> configurationOfSource(const std::string& source) {
    AgentConfiguration configuration;
    if (source == simulated) return configuration;
    if (const auto settings = detailsOf(source, simulated)) {
        if (const auto status = readSettings(*settings, configuration.settings); !status) return status.error();
        return configuration;
    }
    const auto archive = detailsOf(source, weewx);
    if (!archive) {
        return Error{"there is no source named " + inQuotes(source) +
                     " (there are simulated, simulated:SETTING=NUMBER,... and weewx:FILE)"};
    }
    if (archive->empty()) return Error{"name the archive: weewx:FILE"};
    configuration.driver = weewx;
    // A document is found again from wherever the program is started.
    std::error_code error;
    const auto file = std::filesystem::absolute(*archive, error);
    configuration.settings["file"] = error ? *archive : file.string();
    return configuration;
}

std::string sourceOf(const AgentConfiguration& configuration) {
    const auto setting = [&](std::string_view key) {
        const auto found = configuration.settings.find(key);
        return found == configuration.settings.end() ? Value() : found->second;
    };
    std::string source = configuration.driver;
    if (source == weewx) return source + ':' + setting("file").string().value_or("");
    if (source != simulated) return source;
    char before = ':';
    for (const auto key : simulatedKeys) {
        const Value number = setting(key);
        if (!number.isNumber()) continue;
        source += before + std::string(key) + '=' + written(number);
        before = ',';
    }
    return source;
}

}  // namespace zor

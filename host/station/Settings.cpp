#include "host/station/Settings.h"

#include <algorithm>
#include <cmath>

namespace zor {

namespace {

bool isOffered(const Setting& setting, const Value& value) {
    return std::ranges::any_of(setting.choices, [&](const auto& choice) { return choice.first == value; });
}

bool isWithinLimits(const Setting& setting, const Value& value) {
    const auto number = value.number();
    return number && std::isfinite(*number) && (!setting.minimum || *number >= *setting.minimum) &&
           (!setting.maximum || *number <= *setting.maximum);
}

/// Apart from the value's kind, which the setter knows.
bool mayTake(const Setting& setting, const Value& value) {
    if (!setting.choices.empty()) return isOffered(setting, value);
    return setting.kind != SettingKind::number || isWithinLimits(setting, value);
}

/// Why the setting did not take the value.
std::string objection(const Setting& setting, const Value& value) {
    if (mayTake(setting, value)) return "the value is of the wrong kind";
    if (!setting.choices.empty()) return "the value is none of the choices";
    const auto number = value.number();
    if (!number || !std::isfinite(*number)) return "must be a finite number";
    const bool isTooSmall = setting.minimum && *number < *setting.minimum;
    return isTooSmall ? "must be at least " + shortestNumber(*setting.minimum)
                      : "must be at most " + shortestNumber(*setting.maximum);
}

}  // namespace

Status applySetting(Object& object, const Setting& setting, const Value& value) {
    if (mayTake(setting, value) && setting.set(object, value)) return success();
    return Error{objection(setting, value)};
}

Status applySetting(Object& object, const SettingList& settings, std::string_view name, const Value& value) {
    const auto setting = std::ranges::find(settings, name, &Setting::name);
    if (setting == settings.end()) return Error{std::string(name) + ": there is no such setting"};
    const auto status = applySetting(object, *setting, value);
    return status ? status : Status(Error{setting->name + ": " + status.error().message});
}

}  // namespace zor

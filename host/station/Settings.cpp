#include "host/station/Settings.h"

#include <algorithm>
#include <cmath>

namespace zor {

namespace {

/// What is wrong with the value apart from its kind, which the setter knows; empty where nothing is.
std::string objection(const Setting& setting, const Value& value) {
    if (!setting.choices.empty()) {
        const bool offered =
            std::ranges::any_of(setting.choices, [&](const auto& choice) { return choice.first == value; });
        return offered ? "" : "the value is none of the choices";
    }
    if (setting.kind != SettingKind::number) return {};
    const auto number = value.number();
    if (!number || !std::isfinite(*number)) return "must be a finite number";
    if (setting.minimum && *number < *setting.minimum) return "must be at least " + shortestNumber(*setting.minimum);
    if (setting.maximum && *number > *setting.maximum) return "must be at most " + shortestNumber(*setting.maximum);
    return {};
}

}  // namespace

Status applySetting(Object& object, const Setting& setting, const Value& value) {
    if (auto reason = objection(setting, value); !reason.empty()) return Error{std::move(reason)};
    if (!setting.set(object, value)) return Error{"the value is of the wrong kind"};
    return success();
}

Status applySetting(Object& object, const SettingList& settings, std::string_view name, const Value& value) {
    const auto setting = std::ranges::find(settings, name, &Setting::name);
    if (setting == settings.end()) return Error{std::string(name) + ": there is no such setting"};
    const auto status = applySetting(object, *setting, value);
    return status ? status : Status(Error{setting->name + ": " + status.error().message});
}

}  // namespace zor

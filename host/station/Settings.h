#pragma once
// What a person can set of an object, declared once: serves the property panel, the archive and the automation.

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/foundation/Object.h"
#include "host/foundation/Result.h"
#include "host/foundation/ValueConversion.h"

namespace zor {

enum class SettingKind {
    text,
    number,
    boolean,
    choice,
    color,
    font,
    alignment,
    property,
    numberFormat,
    dateFormat,
    imageFile,
    url,
    thresholds,
};

struct Setting {
    /// Key in the archive and name in the automation: "fontSize".
    std::string name;
    /// What the person reads: "Font Size".
    std::string label;
    SettingKind kind = SettingKind::text;
    std::function<Value(const Object&)> get;
    /// False where the value is of the wrong kind; it is then unchanged.
    std::function<bool(Object&, const Value&)> set;
    /// For numbers.
    std::optional<double> minimum = {};
    std::optional<double> maximum = {};
    std::string unit = {};
    /// For choices: value and label.
    std::vector<std::pair<Value, std::string>> choices = {};
};

using SettingList = std::vector<Setting>;

/// Sets after checking range and choices. The error says what was wrong, for a person who sees the setting.
Status applySetting(Object& object, const Setting& setting, const Value& value);
/// Sets by name after checking range and choices. The error names the setting and what was wrong.
Status applySetting(Object& object, const SettingList& settings, std::string_view name, const Value& value);

/// A setting from a getter and a setter of `T`.
template <typename T, typename G, typename C, typename A, typename D>
Setting makeSetting(std::string name, std::string label, SettingKind kind, G (C::*getter)() const,
                    void (D::*setter)(A)) {
    return {std::move(name), std::move(label), kind,
            [getter](const Object& object) {
                return ValueConversion<std::remove_cvref_t<G>>::to((dynamic_cast<const T&>(object).*getter)());
            },
            [setter](Object& object, const Value& value) {
                auto argument = ValueConversion<std::remove_cvref_t<A>>::from(value);
                if (!argument) return false;
                (dynamic_cast<T&>(object).*setter)(std::move(*argument));
                return true;
            }};
}

}  // namespace zor

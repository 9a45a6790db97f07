#pragma once
// How the instruments make their setting lists: from the named properties that their classes declare.

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/foundation/Font.h"
#include "host/station/Settings.h"
#include "host/views/DrawingContext.h"

namespace zor {

/// "left", "center", "right".
template <>
struct ValueConversion<TextAlignment> : detail::WithDefault<TextAlignment> {
    static Value to(TextAlignment value);
    static std::optional<TextAlignment> from(const Value& value);
};

/// In points.
inline constexpr double smallestFontSize = 1;
inline constexpr double largestFontSize = 2000;
/// Whether the font has a family and a size between the two.
bool isUsableFont(const Font& font);

/// Bounds for numbers that have no natural ones, wide enough for every quantity and far from what drawing cannot hold.
inline constexpr double largestSettingNumber = 1e6;

/// The nearest number that lies between the two; `minimum` for NaN. Setters use it so that drawing can rely on them.
double bounded(double value, double minimum, double maximum);

/// A class's settings after those of its base class. Each names a property that the class's record declares.
class SettingsBuilder {
public:
    SettingsBuilder(const ClassRecord& record, const SettingList& base) : record_(record), list_(base) {}

    SettingsBuilder& add(std::string name, std::string label, SettingKind kind);
    SettingsBuilder& number(std::string name, std::string label, double minimum, double maximum, std::string unit = {});
    SettingsBuilder& choice(std::string name, std::string label, SettingKind kind,
                            std::vector<std::pair<Value, std::string>> choices);
    /// Takes usable fonts only. The property's setter is named so that they are converted once.
    template <typename T>
    SettingsBuilder& font(std::string name, std::string label, void (T::*setter)(Font)) {
        add(std::move(name), std::move(label), SettingKind::font);
        list_.back().set = [setter](Object& object, const Value& value) {
            auto font = ValueConversion<Font>::from(value);
            if (!font || !isUsableFont(*font)) return false;
            (static_cast<T&>(object).*setter)(*std::move(font));
            return true;
        };
        return *this;
    }
    /// Takes an image, of which it stores a copy; the path of a picture file; [w, h] for a plain image; nothing.
    SettingsBuilder& imageFile(std::string name, std::string label);
    SettingList build() { return std::move(list_); }

private:
    /// Lets the setting of the last property take only what `convert` makes a value of.
    SettingsBuilder& filtered(std::function<std::optional<Value>(const Value&)> convert);

    const ClassRecord& record_;
    SettingList list_;
};

}  // namespace zor

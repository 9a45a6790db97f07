#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "host/foundation/ValueConversion.h"

namespace zor {

/// sRGB with straight alpha.
struct Color {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t alpha = 255;

    /// 0xRRGGBB, opaque.
    static constexpr Color rgb(std::uint32_t value) {
        return {static_cast<std::uint8_t>(value >> 16), static_cast<std::uint8_t>(value >> 8),
                static_cast<std::uint8_t>(value), 255};
    }
    static constexpr Color clear() { return {0, 0, 0, 0}; }
    static constexpr Color black() { return rgb(0x000000); }
    static constexpr Color white() { return rgb(0xFFFFFF); }
    /// The system's plain grey.
    static constexpr Color gray() { return rgb(0x808080); }
    /// The same colour with its alpha times `factor` (0 to 1; what lies outside counts as the nearer end).
    constexpr Color withAlpha(double factor) const {
        const double bounded = factor > 0 ? (factor < 1 ? factor : 1) : 0;
        return {red, green, blue, static_cast<std::uint8_t>(alpha * bounded + 0.5)};
    }
    /// The mixture that is `amount` (0 to 1) of the way from this colour to the other.
    Color mixedWith(const Color& other, double amount) const;

    /// "#rrggbbaa".
    std::string text() const;
    /// "#rrggbb" or "#rrggbbaa"; nothing for other text.
    static std::optional<Color> fromText(std::string_view text);

    bool operator==(const Color&) const = default;
};

template <>
struct ValueConversion<Color> : detail::WithDefault<Color> {
    static Value to(const Color& value) { return value.text(); }
    static std::optional<Color> from(const Value& value) { return Color::fromText(value.asString()); }
};

}  // namespace zor

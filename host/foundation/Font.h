#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/foundation/ValueConversion.h"

namespace zor {

/// A wish for a font; the toolkit finds the nearest one it has.
struct Font {
    std::string family = "Helvetica Neue";
    /// Points.
    double size = 12;
    bool bold = false;
    bool italic = false;

    /// "Helvetica Neue Bold" is the bold style of "Helvetica Neue"; likewise "Italic" and "Bold Italic".
    static Font named(std::string_view name, double size);

    bool operator==(const Font&) const = default;
};

template <>
struct ValueConversion<Font> : detail::WithDefault<Font> {
    /// {"family", "size", "bold", "italic"}.
    static Value to(const Font& value);
    static std::optional<Font> from(const Value& value);
};

}  // namespace zor

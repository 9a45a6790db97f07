#include "host/foundation/Font.h"

#include <array>
#include <cmath>

namespace zor {

namespace {

std::optional<Font> converted(const Value& value) {
    const auto family = value["family"].string();
    const auto size = value["size"].number();
    if (!family || family->empty() || !size || !std::isfinite(*size) || *size <= 0) return {};
    return Font{*family, *size, value["bold"].asBool(), value["italic"].asBool()};
}

}  // namespace

Font Font::named(std::string_view name, double size) {
    // The style word stands last, and a family of its own must remain before it.
    const auto takeStyle = [&name](std::string_view style) {
        if (name.size() <= style.size() || !name.ends_with(style)) return false;
        name.remove_suffix(style.size());
        return true;
    };
    Font font;
    font.italic = takeStyle(" Italic");
    font.bold = takeStyle(" Bold");
    font.family = name;
    font.size = size;
    return font;
}

Value ValueConversion<Font>::to(const Font& value) {
    // In the order of the keys, each put behind the one before.
    Value::Dictionary font;
    font.emplace_hint(font.end(), "bold", value.bold);
    font.emplace_hint(font.end(), "family", value.family);
    font.emplace_hint(font.end(), "italic", value.italic);
    font.emplace_hint(font.end(), "size", value.size);
    return font;
}

std::optional<Font> ValueConversion<Font>::from(const Value& value) {
    // Archives hold equal fonts once, so that a few dictionaries come again and again.
    struct Converted {
        std::shared_ptr<const Value::Dictionary> from;
        std::optional<Font> font;
    };
    struct Memory {
        std::array<Converted, 4> fonts;
        std::size_t oldest = 0;
    };
    thread_local Memory memory;
    Memory& known = memory;
    if (!value.isDictionary()) return {};
    for (const auto& [from, font] : known.fonts) {
        if (from.get() == &value.asDictionary()) return font;
    }
    Converted& made = known.fonts[known.oldest++ % known.fonts.size()];
    made = {value.sharedDictionary(), converted(value)};
    return made.font;
}

}  // namespace zor

#include "host/foundation/Font.h"

#include <algorithm>
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

bool holdsPlainValuesOnly(const Value::Dictionary& dictionary) {
    return std::ranges::none_of(dictionary, [](const auto& entry) {
        const Value& value = entry.second;
        return value.isObject() || value.isArray() || value.isDictionary() || value.isData();
    });
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
        Font font;
    };
    struct Memory {
        std::array<Converted, 4> fonts;
        std::size_t next = 0;
    };
    thread_local Memory ofThread;
    // A thread's own variable is looked up at every use.
    Memory& memory = ofThread;
    if (!value.isDictionary()) return {};
    for (const auto& [from, font] : memory.fonts) {
        if (from.get() == &value.asDictionary()) return font;
    }
    auto font = converted(value);
    // One that holds more than a font may not be filled yet, and is not kept alive for it.
    if (font && holdsPlainValuesOnly(value.asDictionary())) {
        memory.fonts[memory.next] = {value.sharedDictionary(), *font};
        memory.next = (memory.next + 1) % memory.fonts.size();
    }
    return font;
}

}  // namespace zor

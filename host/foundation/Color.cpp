#include "host/foundation/Color.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace zor {

Color Color::mixedWith(const Color& other, double amount) const {
    const double share = amount > 0 ? std::min(amount, 1.0) : 0;
    const auto mix = [share](std::uint8_t from, std::uint8_t to) {
        return static_cast<std::uint8_t>(std::lround(from + (to - from) * share));
    };
    return {mix(red, other.red), mix(green, other.green), mix(blue, other.blue), mix(alpha, other.alpha)};
}

std::string Color::text() const {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text = "#";
    for (const auto component : {red, green, blue, alpha}) {
        text += digits[component >> 4];
        text += digits[component & 15];
    }
    return text;
}

std::optional<Color> Color::fromText(std::string_view text) {
    if ((text.size() != 7 && text.size() != 9) || text.front() != '#') return {};
    std::uint32_t number = 0;
    const auto* end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data() + 1, end, number, 16);
    if (error != std::errc{} || rest != end) return {};
    if (text.size() == 7) return rgb(number);
    Color color = rgb(number >> 8);
    color.alpha = static_cast<std::uint8_t>(number);
    return color;
}

}  // namespace zor

#pragma once
// The texts of single values in XML property lists.

#include <charconv>
#include <optional>
#include <string_view>

#include "host/foundation/Value.h"

namespace zor {

inline constexpr std::string_view xmlWhiteSpace = " \t\r\n";

/// Without the white space around it.
std::string_view trimmed(std::string_view text);
/// "2024-05-17T08:30:00Z"
std::optional<Date> dateFromXml(std::string_view text);
/// White space may stand anywhere.
std::optional<Bytes> bytesFromBase64(std::string_view text);

/// A number that fills the text, with or without sign; `format` is what std::from_chars takes behind the value.
template <typename Number, typename... Format>
std::optional<Number> numberFrom(std::string_view text, Format... format) {
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, format...);
    if (error != std::errc{} || end != text.data() + text.size()) return {};
    return number;
}

}  // namespace zor

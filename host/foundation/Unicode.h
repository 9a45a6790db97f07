#pragma once
// UTF-8 checked and turned into UTF-16 and back.

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace zor {

inline constexpr char32_t invalidCodePoint = 0xFFFF'FFFF;

/// The code point at `position`, which moves behind it; invalidCodePoint where the bytes are not UTF-8.
/// Over-long forms, surrogates and values above U+10FFFF are not.
char32_t nextCodePoint(std::string_view text, std::size_t& position);
bool isAscii(std::string_view text);
bool isUtf8(std::string_view text);
/// Gives false, adding nothing, for a surrogate or a value above U+10FFFF.
bool appendUtf8(std::string& text, char32_t codePoint);
/// Appends UTF-16 of either byte order; false where it is cut short or holds half of a surrogate pair.
bool appendUtf8FromUtf16(std::string& text, std::span<const std::uint8_t> data, bool bigEndian);

}  // namespace zor

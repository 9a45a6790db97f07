#include "host/foundation/Unicode.h"

#include <cstring>

namespace zor {

namespace {

constexpr char32_t largestCodePoint = 0x10FFFF;

constexpr bool isSurrogate(char32_t codePoint) {
    return codePoint >= 0xD800 && codePoint < 0xE000;
}

/// The length of the plain beginning, eight bytes at a time.
std::size_t asciiPrefix(std::string_view text) {
    std::size_t position = 0;
    for (; text.size() - position >= sizeof(std::uint64_t); position += sizeof(std::uint64_t)) {
        std::uint64_t block;
        std::memcpy(&block, text.data() + position, sizeof block);
        if (block & 0x8080'8080'8080'8080) break;
    }
    while (position < text.size() && static_cast<unsigned char>(text[position]) < 0x80) ++position;
    return position;
}

}  // namespace

char32_t nextCodePoint(std::string_view text, std::size_t& position) {
    const auto byte = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
    const unsigned char lead = byte(position);
    if (lead < 0x80) {
        ++position;
        return lead;
    }
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() - position < length) return invalidCodePoint;
    char32_t codePoint = lead & (0x7F >> length);
    for (std::size_t index = 1; index < length; ++index) {
        const unsigned char next = byte(position + index);
        if ((next & 0xC0) != 0x80) return invalidCodePoint;
        codePoint = codePoint << 6 | (next & 0x3F);
    }
    constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (codePoint < smallest[length] || codePoint > largestCodePoint || isSurrogate(codePoint)) return invalidCodePoint;
    position += length;
    return codePoint;
}

bool isAscii(std::string_view text) {
    return asciiPrefix(text) == text.size();
}

bool isUtf8(std::string_view text) {
    std::size_t position = asciiPrefix(text);
    while (position < text.size()) {
        if (nextCodePoint(text, position) == invalidCodePoint) return false;
    }
    return true;
}

bool appendUtf8(std::string& text, char32_t codePoint) {
    if (codePoint > largestCodePoint || isSurrogate(codePoint)) return false;
    const auto continuation = [&](int shift) { return static_cast<char>(0x80 | (codePoint >> shift & 0x3F)); };
    if (codePoint < 0x80) {
        text.push_back(static_cast<char>(codePoint));
    } else if (codePoint < 0x800) {
        text.append({static_cast<char>(0xC0 | codePoint >> 6), continuation(0)});
    } else if (codePoint < 0x10000) {
        text.append({static_cast<char>(0xE0 | codePoint >> 12), continuation(6), continuation(0)});
    } else {
        text.append({static_cast<char>(0xF0 | codePoint >> 18), continuation(12), continuation(6), continuation(0)});
    }
    return true;
}

bool appendUtf8FromUtf16(std::string& text, std::span<const std::uint8_t> data, bool bigEndian) {
    if (data.size() % 2 != 0) return false;
    const auto unit = [&](std::size_t index) -> char32_t {
        return bigEndian ? data[index] << 8 | data[index + 1] : data[index + 1] << 8 | data[index];
    };
    for (std::size_t index = 0; index < data.size(); index += 2) {
        char32_t codePoint = unit(index);
        const bool startsPair = codePoint >= 0xD800 && codePoint < 0xDC00 && data.size() - index >= 4;
        if (startsPair) {
            const char32_t low = unit(index + 2);
            if (low < 0xDC00 || low >= 0xE000) return false;
            codePoint = 0x10000 + ((codePoint - 0xD800) << 10) + (low - 0xDC00);
            index += 2;
        }
        if (!appendUtf8(text, codePoint)) return false;
    }
    return true;
}

}  // namespace zor

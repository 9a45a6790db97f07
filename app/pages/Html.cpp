#include "app/pages/Html.h"

#include <array>
#include <cstddef>

#include "host/foundation/Unicode.h"

namespace zor {

namespace {

constexpr std::string_view hexDigits = "0123456789ABCDEF";

int hexValue(char digit) {
    if (digit >= '0' && digit <= '9') return digit - '0';
    if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
    return digit >= 'A' && digit <= 'F' ? digit - 'A' + 10 : -1;
}

bool isUnreserved(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9') || std::string_view("-._~").find(character) != std::string_view::npos;
}

struct Range {
    char32_t first;
    char32_t last;
};

/// White space and the characters of general category Cc and Cf, with the fillers that fonts leave empty.
constexpr std::array<Range, 19> unseen{{{0x00, 0x20},     {0x7F, 0xA0},     {0xAD, 0xAD},     {0x34F, 0x34F},
                                        {0x61C, 0x61C},   {0x115F, 0x1160}, {0x1680, 0x1680}, {0x17B4, 0x17B5},
                                        {0x180B, 0x180F}, {0x2000, 0x200F}, {0x2028, 0x202F}, {0x205F, 0x206F},
                                        {0x2800, 0x2800}, {0x3000, 0x3000}, {0x3164, 0x3164}, {0xFE00, 0xFE0F},
                                        {0xFEFF, 0xFEFF}, {0xFFA0, 0xFFA0}, {0xE0000, 0xE0FFF}}};

bool isUnseen(char32_t codePoint) {
    for (const auto& range : unseen) {
        if (codePoint >= range.first && codePoint <= range.last) return true;
    }
    return false;
}

}  // namespace

std::string htmlEscaped(std::string_view text) {
    std::string escaped;
    for (const char character : text) {
        switch (character) {
            case '&': escaped += "&amp;"; break;
            case '<': escaped += "&lt;"; break;
            case '>': escaped += "&gt;"; break;
            case '"': escaped += "&quot;"; break;
            case '\'': escaped += "&#39;"; break;
            default: escaped += character;
        }
    }
    return escaped;
}

std::string percentEncoded(std::string_view component) {
    std::string encoded;
    for (const char character : component) {
        if (isUnreserved(character)) {
            encoded += character;
            continue;
        }
        const auto byte = static_cast<unsigned char>(character);
        encoded += '%';
        encoded += hexDigits[byte >> 4];
        encoded += hexDigits[byte & 15];
    }
    return encoded;
}

std::string percentEncodedPath(std::string_view path) {
    std::string encoded;
    while (true) {
        const auto slash = path.find('/');
        encoded += percentEncoded(path.substr(0, slash));
        if (slash == std::string_view::npos) return encoded;
        encoded += '/';
        path.remove_prefix(slash + 1);
    }
}

std::string percentDecoded(std::string_view text) {
    std::string decoded;
    for (std::size_t index = 0; index < text.size(); ++index) {
        const int high = text[index] == '%' && index + 2 < text.size() ? hexValue(text[index + 1]) : -1;
        const int low = high >= 0 ? hexValue(text[index + 2]) : -1;
        if (low < 0) {
            decoded += text[index];
            continue;
        }
        decoded += static_cast<char>(high * 16 + low);
        index += 2;
    }
    return decoded;
}

bool isBlank(std::string_view text) {
    for (std::size_t position = 0; position < text.size();) {
        if (!isUnseen(nextCodePoint(text, position))) return false;
    }
    return true;
}

}  // namespace zor

#include "host/views/TextLines.h"

#include <algorithm>

#include "host/views/Toolkit.h"

namespace zor {

namespace {

/// Blanks, and a bullet with its blanks, which continued lines stand clear of.
std::size_t lengthOfIndent(std::string_view line) {
    constexpr std::string_view bullet = "\u2022 ";
    const std::size_t blanks = std::min(line.find_first_not_of(' '), line.size());
    return line.substr(blanks).starts_with(bullet) ? blanks + bullet.size() : blanks;
}

std::string brokenLine(std::string_view line, const Font& font, double width) {
    const std::size_t indentLength = lengthOfIndent(line);
    std::string current(line.substr(0, indentLength));
    const std::string indent(static_cast<std::size_t>(std::ranges::count_if(
                                 current, [](char each) { return (each & 0xC0) != 0x80; })),
                             ' ');
    std::string broken;
    bool isEmpty = true;
    for (std::string_view rest = line.substr(indentLength); !rest.empty();) {
        const std::string_view word = rest.substr(0, rest.find(' '));
        rest.remove_prefix(std::min(word.size() + 1, rest.size()));
        std::string longer = isEmpty ? current + std::string(word) : current + ' ' + std::string(word);
        if (!isEmpty && Toolkit::current().sizeOfText(longer, font).width > width) {
            broken += current + '\n';
            longer = indent + std::string(word);
        }
        current = std::move(longer);
        isEmpty = false;
    }
    return broken + current;
}

}  // namespace

std::string textBrokenToWidth(std::string_view text, const Font& font, double width) {
    std::string broken;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        broken += brokenLine(text.substr(start, end - start), font, width);
        if (end < text.size()) broken += '\n';
        start = end + 1;
    }
    return broken;
}

}  // namespace zor

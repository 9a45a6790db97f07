#include "app/pages/MarkupReader.h"

#include <algorithm>
#include <array>
#include <utility>

#include "host/foundation/Unicode.h"

namespace zor {

namespace {

constexpr char32_t replacement = 0xFFFD;
constexpr char32_t noBreakSpace = 0xA0;
/// "&#x10FFFF;" is the longest reference that stands for something.
constexpr std::size_t longestReference = 10;

struct NamedReference {
    std::string_view name;
    char32_t code;
};
constexpr std::array<NamedReference, 6> namedReferences{
    {{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}, {"nbsp", noBreakSpace}}};

/// What may be shown in place of a character: no control characters, no surrogates, no non-characters.
char32_t shown(char32_t code) {
    if (code == '\t' || code == '\n' || code == '\r' || code == '\f') return ' ';
    const bool isControl = code < 0x20 || (code >= 0x7F && code < 0xA0);
    const bool isSurrogate = code >= 0xD800 && code < 0xE000;
    const bool isNoCharacter = code > 0x10FFFF || (code & 0xFFFE) == 0xFFFE || (code >= 0xFDD0 && code < 0xFDF0);
    return isControl || isSurrogate || isNoCharacter ? replacement : code;
}

/// The number in "#65" or "#x41"; none for anything else.
std::optional<char32_t> numbered(std::string_view name) {
    if (name.empty() || name.front() != '#') return {};
    name.remove_prefix(1);
    const bool isHexadecimal = !name.empty() && (name.front() == 'x' || name.front() == 'X');
    if (isHexadecimal) name.remove_prefix(1);
    if (name.empty()) return {};
    char32_t number = 0;
    for (const char digit : name) {
        const char lower = static_cast<char>(digit | 0x20);
        char32_t value;
        if (digit >= '0' && digit <= '9') {
            value = static_cast<char32_t>(digit - '0');
        } else if (isHexadecimal && lower >= 'a' && lower <= 'f') {
            value = static_cast<char32_t>(lower - 'a' + 10);
        } else {
            return {};
        }
        number = number * (isHexadecimal ? 16 : 10) + value;
    }
    return number;
}

struct Reference {
    char32_t code;
    std::size_t length;
};

/// The reference that begins with the "&" at `position`.
std::optional<Reference> referenceAt(const MarkupText& text, std::size_t position) {
    std::string name;
    for (std::size_t index = position + 1; index < text.size() && index - position < longestReference; ++index) {
        const auto& character = text[index];
        if (character.is(';')) {
            const auto length = index + 1 - position;
            if (const auto number = numbered(name)) return Reference{shown(*number), length};
            const auto known = std::ranges::find(namedReferences, std::string_view(name), &NamedReference::name);
            if (known == namedReferences.end()) return {};
            return Reference{known->code, length};
        }
        if (character.isTitle || character.code > 0x7F) return {};
        name += static_cast<char>(character.code);
    }
    return {};
}

std::string lowerCase(const MarkupCharacter& character) {
    std::string text;
    // A letter of a title is no letter of a name.
    appendUtf8(text, character.isTitle ? replacement : character.code);
    if (text.size() == 1 && text[0] >= 'A' && text[0] <= 'Z') text[0] = static_cast<char>(text[0] | 0x20);
    return text;
}

}  // namespace

MarkupText withoutReferences(const MarkupText& text) {
    MarkupText plain;
    for (std::size_t index = 0; index < text.size();) {
        const auto reference = text[index].is('&') ? referenceAt(text, index) : std::nullopt;
        plain.push_back(reference ? MarkupCharacter{reference->code} : text[index]);
        index += reference ? reference->length : 1;
    }
    return plain;
}

const MarkupText* MarkupToken::attribute(std::string_view attributeName) const {
    const auto found = std::ranges::find(attributes, attributeName, &Attribute::name);
    return found == attributes.end() ? nullptr : &found->value;
}

MarkupReader::MarkupReader(std::string_view bytes, const std::vector<bool>& titleBytes) {
    text_.reserve(bytes.size());
    for (std::size_t position = 0; position < bytes.size();) {
        const bool isTitle = titleBytes[position];
        const auto code = nextCodePoint(bytes, position);
        if (code == invalidCodePoint) ++position;
        text_.push_back({code == invalidCodePoint ? replacement : shown(code), isTitle});
    }
}

bool MarkupReader::at(std::size_t position, char character) const {
    return position < text_.size() && text_[position].is(character);
}

bool MarkupReader::isLetter(std::size_t position) const {
    if (position >= text_.size() || text_[position].isTitle) return false;
    const auto lower = text_[position].code | 0x20;
    return lower >= 'a' && lower <= 'z';
}

bool MarkupReader::startsWith(std::size_t position, std::string_view text) const {
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (!at(position + index, text[index])) return false;
    }
    return true;
}

/// Where the text ends that is found first; the end of everything where it is not found.
std::size_t MarkupReader::find(std::string_view text, std::size_t from) const {
    for (std::size_t position = from; position < text_.size(); ++position) {
        if (startsWith(position, text)) return position + text.size();
    }
    return text_.size();
}

bool MarkupReader::beginsComment() const {
    return at(position_, '<') && (at(position_ + 1, '!') || at(position_ + 1, '?'));
}

bool MarkupReader::beginsTag() const {
    return at(position_, '<') && isLetter(position_ + (at(position_ + 1, '/') ? 2 : 1));
}

MarkupToken MarkupReader::take(std::size_t end, MarkupToken::Kind kind) {
    MarkupToken token;
    token.kind = kind;
    token.text.assign(text_.begin() + static_cast<std::ptrdiff_t>(position_),
                      text_.begin() + static_cast<std::ptrdiff_t>(end));
    position_ = end;
    return token;
}

std::optional<MarkupToken> MarkupReader::next() {
    if (position_ >= text_.size()) return {};
    if (beginsComment()) return readComment();
    return beginsTag() ? readTag() : readText();
}

MarkupToken MarkupReader::readText() {
    std::size_t end = position_ + 1;
    while (end < text_.size() && !at(end, '<')) ++end;
    auto token = take(end, MarkupToken::Kind::text);
    token.text = withoutReferences(token.text);
    return token;
}

MarkupToken MarkupReader::readComment() {
    const auto end = startsWith(position_, "<!--") ? find("-->", position_ + 2) : find(">", position_);
    return take(end, MarkupToken::Kind::other);
}

MarkupToken MarkupReader::readTag() {
    const bool isEnd = at(position_ + 1, '/');
    std::string name;
    std::vector<MarkupToken::Attribute> attributes;
    std::size_t position = position_ + (isEnd ? 2 : 1);
    const auto ends = [&](std::string_view characters) {
        return position >= text_.size() ||
               std::ranges::any_of(characters, [&](char character) { return at(position, character); });
    };
    for (; !ends(" />"); ++position) name += lowerCase(text_[position]);
    while (true) {
        while (at(position, ' ') || at(position, '/')) ++position;
        if (position >= text_.size()) return take(position, MarkupToken::Kind::other);
        if (at(position, '>')) break;
        MarkupToken::Attribute attribute;
        // An "=" in the first place is part of the name.
        do {
            attribute.name += lowerCase(text_[position++]);
        } while (!ends(" />="));
        while (at(position, ' ')) ++position;
        if (at(position, '=')) {
            ++position;
            while (at(position, ' ')) ++position;
            attribute.value = readValue(position);
        }
        attributes.push_back(std::move(attribute));
    }
    auto tag = take(position + 1, isEnd ? MarkupToken::Kind::endTag : MarkupToken::Kind::startTag);
    tag.name = std::move(name);
    tag.attributes = std::move(attributes);
    return tag;
}

MarkupText MarkupReader::readValue(std::size_t& position) const {
    const bool isQuoted = at(position, '"') || at(position, '\'');
    const char quote = isQuoted ? static_cast<char>(text_[position++].code) : '>';
    MarkupText value;
    while (position < text_.size() && !at(position, quote) && (isQuoted || !at(position, ' '))) {
        value.push_back(text_[position++]);
    }
    if (isQuoted && position < text_.size()) ++position;
    return value;
}

}  // namespace zor

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zor {

/// A character of an advertisement.
struct MarkupCharacter {
    char32_t code = 0;
    /// Text and never markup, whatever character it is.
    bool isTitle = false;

    bool is(char character) const { return !isTitle && code == static_cast<unsigned char>(character); }
};
using MarkupText = std::vector<MarkupCharacter>;

/// A tag, a comment or text between them.
struct MarkupToken {
    enum class Kind { text, startTag, endTag, other };

    struct Attribute {
        std::string name;
        MarkupText value;
    };

    Kind kind = Kind::text;
    /// Of a tag, in lower case.
    std::string name;
    std::vector<Attribute> attributes;
    /// As written, but for the references in text: "<" for "&lt;".
    MarkupText text;

    /// Of the first attribute of that name.
    const MarkupText* attribute(std::string_view attributeName) const;
};

/// Cuts an advertisement into tokens by the rules by which browsers find the ends of tags, quotes and comments. A tag or
/// comment without an end is a token of the kind "other" that goes to the end of the text.
class MarkupReader {
public:
    /// Takes any bytes: what is not UTF-8 or a control character becomes U+FFFD, white space becomes a space.
    MarkupReader(std::string_view bytes, const std::vector<bool>& titleBytes);
    /// None at the end.
    std::optional<MarkupToken> next();

private:
    bool at(std::size_t position, char character) const;
    bool isLetter(std::size_t position) const;
    bool startsWith(std::size_t position, std::string_view text) const;
    std::size_t find(std::string_view text, std::size_t from) const;
    bool beginsTag() const;
    bool beginsComment() const;
    MarkupToken readText();
    MarkupToken readTag();
    MarkupToken readComment();
    MarkupText readValue(std::size_t& position) const;
    /// What lies between here and `end`, as the token's text.
    MarkupToken take(std::size_t end, MarkupToken::Kind kind);

    MarkupText text_;
    std::size_t position_ = 0;
};

/// Replaces "&amp;", "&lt;", "&gt;", "&quot;", "&apos;", "&nbsp;" and numbered references, each with its semicolon.
MarkupText withoutReferences(const MarkupText& text);

}  // namespace zor

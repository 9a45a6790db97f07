// A small reader of the XML that property lists use: elements, text, the five predefined and numeric entities, CDATA.
// Declarations, comments and the document type are passed over; nothing is fetched, no other entity is expanded.

#include <algorithm>
#include <optional>

#include "host/foundation/PropertyListBuilder.h"
#include "host/foundation/PropertyListFormats.h"
#include "host/foundation/Unicode.h"
#include "host/foundation/XmlPropertyListScalars.h"

namespace zor {

namespace {

using Index = PropertyListBuilder::Index;
using namespace std::string_view_literals;

constexpr std::string_view leafElements[] = {"key", "string", "true", "false", "integer", "real", "date", "data"};

class Reader {
public:
    /// Reads from `start` on.
    Reader(std::string_view text, std::size_t start) : text_(text), position_(start) {}

    Result<PropertyListTables> read() {
        while (!error_ && position_ < text_.size()) step();
        if (!error_ && !open_.empty()) fail("an element that is not closed", open_.back().offset);
        if (!error_ && !root_) fail("no value", text_.size());
        if (error_) return *error_;
        return builder_.finish(*root_);
    }

private:
    struct Open {
        std::string_view name;
        std::size_t offset = 0;
        /// Where its children start among `values_`; a dictionary's keys and values alternate.
        std::size_t firstChild = 0;
        std::size_t keys = 0;
    };

    void fail(std::string_view fault, std::size_t offset) {
        if (!error_) error_ = Error{std::string(fault) + " at offset " + std::to_string(offset)};
    }

    bool at(std::string_view wanted) const { return text_.substr(position_).starts_with(wanted); }

    /// Moves behind the next occurrence.
    bool passOver(std::string_view end, std::string_view what) {
        const auto found = text_.find(end, position_);
        if (found == text_.npos) {
            fail(what, position_);
            return false;
        }
        position_ = found + end.size();
        return true;
    }

    void step() {
        const auto markup = std::min(text_.find('<', position_), text_.size());
        if (!trimmed(text_.substr(position_, markup - position_)).empty())
            return fail("text outside of a value", position_);
        position_ = markup;
        if (position_ == text_.size()) return;
        if (at("<?")) {
            passOver("?>", "a declaration that is not closed");
        } else if (at("<!--")) {
            passOver("-->", "a comment that is not closed");
        } else if (at("<!DOCTYPE")) {
            passOverDocumentType();
        } else if (at("</")) {
            closeElement();
        } else {
            openElement();
        }
    }

    void passOverDocumentType() {
        const auto start = position_;
        bool inSubset = false;
        for (; position_ < text_.size(); ++position_) {
            const char character = text_[position_];
            if (at("<!--")) {
                if (!passOver("-->", "a comment that is not closed")) return;
                --position_;
            } else if (character == '"' || character == '\'') {
                ++position_;
                if (!passOver({&character, 1}, "a quotation that is not closed")) return;
                --position_;
            } else if (character == '[' || character == ']') {
                inSubset = character == '[';
            } else if (character == '>' && !inSubset) {
                ++position_;
                return;
            }
        }
        fail("a document type that is not closed", start);
    }

    struct Tag {
        std::string_view name;
        bool isEmpty = false;
    };

    /// Reads up to the closing bracket; attributes are passed over.
    std::optional<Tag> readTag() {
        const auto start = position_;
        ++position_;
        const auto nameEnd = text_.find_first_of(" \t\r\n/>", position_);
        Tag tag{text_.substr(position_, nameEnd == text_.npos ? 0 : nameEnd - position_)};
        for (; position_ < text_.size(); ++position_) {
            const char character = text_[position_];
            if (character == '"' || character == '\'') {
                ++position_;
                if (!passOver({&character, 1}, "a quotation that is not closed")) return {};
                --position_;
            } else if (character == '>') {
                tag.isEmpty = text_[position_ - 1] == '/';
                ++position_;
                return tag;
            }
        }
        fail("a tag that is not closed", start);
        return {};
    }

    void openElement() {
        const auto start = position_;
        const auto tag = readTag();
        if (!tag) return;
        if (tag->name == "plist" || tag->name == "dict" || tag->name == "array") {
            if (tag->name == "plist" && !open_.empty()) return fail("a \"plist\" inside of another element", start);
            open_.push_back({tag->name, start, values_.size(), 0});
            if (tag->isEmpty) close(start);
            return;
        }
        if (std::ranges::find(leafElements, tag->name) == std::end(leafElements)) {
            return fail("an unknown element", start);
        }
        std::string content;
        if (!tag->isEmpty && !readContent(tag->name, content)) return;
        if (tag->name == "key") return addKey(content, start);
        if (const auto value = scalar(tag->name, content, start)) addValue(*value, start);
    }

    /// The text up to the closing tag of that name, entities replaced.
    bool readContent(std::string_view name, std::string& content) {
        while (position_ < text_.size()) {
            const auto next = std::min(text_.find_first_of("<&", position_), text_.size());
            content.append(text_.substr(position_, next - position_));
            position_ = next;
            if (at("&")) {
                if (!readEntity(content)) return false;
            } else if (at("<!--")) {
                if (!passOver("-->", "a comment that is not closed")) return false;
            } else if (at("<![CDATA[")) {
                position_ += "<![CDATA["sv.size();
                const auto start = position_;
                if (!passOver("]]>", "a CDATA section that is not closed")) return false;
                content.append(text_.substr(start, position_ - start - "]]>"sv.size()));
            } else if (at("</")) {
                return readClosingTag(name);
            } else if (at("<")) {
                fail("an element inside of a value", position_);
                return false;
            }
        }
        fail("a value that is not closed", position_);
        return false;
    }

    bool readEntity(std::string& content) {
        const auto start = position_;
        // No entity that is known here is longer.
        constexpr std::size_t longest = 16;
        const auto end = text_.substr(start, longest).find(';');
        const auto name = text_.substr(start + 1, end == text_.npos ? 0 : end - 1);
        position_ += name.size() + 2;
        constexpr std::pair<std::string_view, char> predefined[] = {
            {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};
        for (const auto& [known, character] : predefined) {
            if (name == known) {
                content.push_back(character);
                return true;
            }
        }
        if (name.starts_with('#')) {
            const bool isHexadecimal = name.starts_with("#x");
            const auto codePoint =
                numberFrom<std::uint32_t>(name.substr(isHexadecimal ? 2 : 1), isHexadecimal ? 16 : 10);
            if (codePoint && *codePoint != 0 && appendUtf8(content, *codePoint)) return true;
        }
        fail("an unknown entity", start);
        return false;
    }

    bool readClosingTag(std::string_view name) {
        const auto start = position_;
        const auto tag = readTag();
        if (!tag) return false;
        // What readTag took for the name starts behind the "<".
        const auto closed = trimmed(text_.substr(start + 2, position_ - start - 3));
        if (closed == name) return true;
        fail("a closing tag that does not match", start);
        return false;
    }

    void closeElement() {
        const auto start = position_;
        if (open_.empty()) return fail("a closing tag that does not match", start);
        if (readClosingTag(open_.back().name)) close(start);
    }

    void close(std::size_t start) {
        const Open element = open_.back();
        open_.pop_back();
        if (element.name == "plist") return;
        const auto children = std::span(values_).subspan(element.firstChild);
        std::optional<Index> made;
        if (element.name == "array") {
            made = builder_.addArray(children);
        } else if (children.size() != element.keys * 2) {
            return fail("a key without a value", start);
        } else {
            made = dictionary(children);
        }
        values_.resize(element.firstChild);
        addValue(*made, element.offset);
    }

    /// {CF$UID: n} is how XML writes a UID.
    Index dictionary(std::span<const Index> children) {
        if (children.size() == 2 && builder_.string(children[0]) == "CF$UID") {
            const auto& number = builder_.node(children[1]);
            if (number.kind == PropertyListKind::integer && static_cast<std::int64_t>(number.payload) >= 0) {
                return builder_.addUid(number.payload);
            }
        }
        entries_.clear();
        for (std::size_t index = 0; index < children.size(); index += 2) {
            entries_.push_back({children[index], children[index + 1]});
        }
        return builder_.addDictionary(entries_);
    }

    bool expectsValue() const {
        const Open& element = open_.back();
        return element.name != "dict" || values_.size() - element.firstChild == element.keys * 2 - 1;
    }

    void addKey(std::string_view key, std::size_t offset) {
        if (open_.empty() || open_.back().name != "dict") return fail("a key outside of a dictionary", offset);
        Open& element = open_.back();
        if (element.keys > 0 && expectsValue()) return fail("a key without a value", offset);
        if (const auto string = addString(key, offset)) {
            ++element.keys;
            values_.push_back(*string);
        }
    }

    void addValue(Index value, std::size_t offset) {
        if (open_.empty() || open_.back().name == "plist") {
            if (root_) return fail("a second value", offset);
            root_ = value;
        } else if (!expectsValue()) {
            fail("a value without a key", offset);
        } else {
            values_.push_back(value);
        }
    }

    std::optional<Index> addString(std::string_view text, std::size_t offset) {
        const auto string = builder_.addString(text);
        if (!string) fail("text that is not UTF-8", offset);
        return string;
    }

    std::optional<Index> scalar(std::string_view name, std::string_view content, std::size_t offset) {
        const auto text = trimmed(content);
        if (name == "string") return addString(content, offset);
        if (name == "true") return builder_.addBool(true);
        if (name == "false") return builder_.addBool(false);
        if (name == "integer") {
            if (const auto number = integer(text)) return number;
        } else if (name == "real") {
            if (const auto number = numberFrom<double>(text)) return builder_.addReal(*number);
        } else if (name == "date") {
            if (const auto date = dateFromXml(text)) return builder_.addDate(*date);
        } else if (name == "data") {
            if (const auto data = bytesFromBase64(text)) return builder_.addData(*data);
        }
        fail("an element \"" + std::string(name) + "\" with wrong content", offset);
        return {};
    }

    /// Decimal, or hexadecimal behind "0x"; what 64 bits cannot hold becomes a real, as in the binary form.
    std::optional<Index> integer(std::string_view text) {
        const bool isNegative = text.starts_with('-');
        const auto digits = text.substr(isNegative || text.starts_with('+') ? 1 : 0);
        if (digits.empty() || digits[0] < '0' || digits[0] > '9') return {};
        if (digits.starts_with("0x") || digits.starts_with("0X")) {
            const auto number = numberFrom<std::int64_t>(digits.substr(2), 16);
            return number ? std::optional(builder_.addInteger(isNegative ? -*number : *number)) : std::nullopt;
        }
        if (const auto number = numberFrom<std::int64_t>(text)) return builder_.addInteger(*number);
        if (digits.find_first_not_of("0123456789") != digits.npos) return {};
        const auto real = numberFrom<double>(text);
        return real ? std::optional(builder_.addReal(*real)) : std::nullopt;
    }

    std::string_view text_;
    std::size_t position_;
    PropertyListBuilder builder_;
    std::optional<Error> error_;
    std::optional<Index> root_;
    std::vector<Open> open_;
    std::vector<Index> values_;
    std::vector<PropertyListBuilder::Entry> entries_;
};

}  // namespace

Result<PropertyListTables> readXmlPropertyList(std::span<const std::uint8_t> data) {
    std::string_view text(reinterpret_cast<const char*>(data.data()), data.size());
    std::string converted;
    const bool isBigEndian = text.starts_with("\xFE\xFF");
    if (isBigEndian || text.starts_with("\xFF\xFE")) {
        if (!appendUtf8FromUtf16(converted, data.subspan(2), isBigEndian)) {
            return Error{"text that is not UTF-16 at offset 0"};
        }
        text = converted;
    }
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    const std::size_t start = text.starts_with(mark) ? mark.size() : 0;
    if (!trimmed(text.substr(start)).starts_with('<')) {
        return Error{"neither \"bplist00\" nor XML at offset " + std::to_string(start)};
    }
    return Reader(text, start).read();
}

}  // namespace zor

#include "app/pages/Advertisement.h"

#include <algorithm>
#include <array>
#include <utility>

#include "app/pages/AdvertisedTitles.h"
#include "app/pages/Html.h"
#include "app/pages/MarkupReader.h"
#include "host/foundation/Unicode.h"

namespace zor {

namespace {

using Kind = Advertisement::Kind;

constexpr std::string_view namelessLink = "Untitled";
constexpr std::array<std::string_view, 3> elementNames{"h1", "h2", "p"};
constexpr std::array<std::string_view, 4> targets{"_blank", "_self", "_parent", "_top"};
/// What may stand in the path of a link as it is; "/", "?", "#" and "%" have their own meaning there.
constexpr std::string_view pathPunctuation = "/?#!$&'()*+,;=:@-._~";

std::optional<Kind> blockNamed(std::string_view name) {
    const auto found = std::ranges::find(elementNames, name);
    if (found == elementNames.end()) return {};
    return static_cast<Kind>(found - elementNames.begin());
}

std::string_view elementName(Kind kind) { return elementNames[static_cast<std::size_t>(kind)]; }

std::string utf8(const MarkupText& text) {
    std::string bytes;
    for (const auto& character : text) appendUtf8(bytes, character.code);
    return bytes;
}

bool isPlainInPath(char32_t code) {
    const auto lower = code | 0x20;
    if ((code >= '0' && code <= '9') || (lower >= 'a' && lower <= 'z' && code < 0x80)) return true;
    return code < 0x80 && pathPunctuation.find(static_cast<char>(code)) != std::string_view::npos;
}

bool isHexDigit(const MarkupCharacter& character) {
    const auto lower = character.code | 0x20;
    return !character.isTitle && ((character.code >= '0' && character.code <= '9') || (lower >= 'a' && lower <= 'f'));
}

/// Whether a component of the path leads out of where it is, also when the reader decodes it first.
bool climbs(std::string_view path) {
    const std::string decoded = percentDecoded(path.substr(0, path.find_first_of("?#")));
    for (std::size_t begin = 0; begin <= decoded.size();) {
        const auto end = std::min(decoded.find_first_of("/\\", begin), decoded.size());
        const auto component = std::string_view(decoded).substr(begin, end - begin);
        if (component == "." || component == "..") return true;
        begin = end + 1;
    }
    return std::ranges::any_of(decoded, [](char byte) { return static_cast<unsigned char>(byte) < 0x20; });
}

/// The address on the page for an address below the base that the plug-in was given; none for any other.
std::optional<std::string> ownPath(const MarkupText& written, const AdvertisementSource& source) {
    const MarkupText address = withoutReferences(written);
    const std::string_view base = source.askedBase;
    if (address.size() <= base.size() + 1) return {};
    for (std::size_t index = 0; index < base.size(); ++index) {
        if (!address[index].is(base[index])) return {};
    }
    if (!address[base.size()].is('/')) return {};
    std::string path;
    for (std::size_t index = base.size(); index < address.size(); ++index) {
        const auto& character = address[index];
        if (character.is('\\')) return {};
        const bool isEncoded = character.is('%') && index + 2 < address.size() && isHexDigit(address[index + 1]) &&
                               isHexDigit(address[index + 2]);
        if (isEncoded || (!character.isTitle && isPlainInPath(character.code))) {
            path += static_cast<char>(character.code);
        } else {
            path += percentEncoded(utf8({character}));
        }
    }
    if (climbs(path)) return {};
    return source.base + path;
}

std::string permittedTarget(const MarkupToken& tag) {
    const auto* written = tag.attribute("target");
    if (!written) return {};
    std::string target = utf8(withoutReferences(*written));
    std::ranges::transform(target, target.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter | 0x20) : letter;
    });
    return std::ranges::find(targets, target) == targets.end() ? std::string() : target;
}

/// Puts tokens together to blocks, closing what the advertisement leaves open.
class Builder {
public:
    explicit Builder(const AdvertisementSource& source) : source_(source) {}

    void add(const MarkupToken& token) {
        switch (token.kind) {
            case MarkupToken::Kind::startTag: return start(token);
            case MarkupToken::Kind::endTag: return end(token);
            default: return addText(utf8(token.text));
        }
    }

    std::vector<Advertisement::Block> blocks() && {
        endLink();
        endBlock();
        return std::move(blocks_);
    }

private:
    void start(const MarkupToken& tag) {
        if (const auto kind = blockNamed(tag.name)) {
            endBlock();
            block_ = Advertisement::Block{*kind, {}};
            return;
        }
        const auto* address = tag.name == "a" ? tag.attribute("href") : nullptr;
        const auto path = address ? ownPath(*address, source_) : std::nullopt;
        if (!path) return addText(utf8(tag.text));
        endLink();
        link_ = Advertisement::Link{*path, permittedTarget(tag)};
        linkHasText_ = false;
        linkEndsWithBlock_ = block_.has_value();
    }

    void end(const MarkupToken& tag) {
        if (const auto kind = blockNamed(tag.name)) {
            const bool isOpen = block_ && (*kind == Kind::paragraph) == (block_->kind == Kind::paragraph);
            if (isOpen) endBlock();
        } else if (tag.name == "a" && link_) {
            endLink();
        } else {
            addText(utf8(tag.text));
        }
    }

    void addText(const std::string& text) {
        if (!block_) {
            // White space between blocks.
            if (text.find_first_not_of(' ') == std::string::npos) return;
            block_ = Advertisement::Block{};
        }
        if (!continuesRun_) block_->runs.push_back({{}, link_});
        block_->runs.back().text += text;
        continuesRun_ = true;
        linkHasText_ = true;
    }

    /// A link is kept though nothing of it could be seen.
    void endLink() {
        if (link_ && !linkHasText_) addText(std::string(namelessLink));
        link_.reset();
        continuesRun_ = false;
    }

    void endBlock() {
        if (std::exchange(linkEndsWithBlock_, false)) endLink();
        continuesRun_ = false;
        if (!block_) return;
        auto block = std::move(*block_);
        block_.reset();
        std::string whole;
        for (auto& run : block.runs) {
            replaceBase(run.text);
            if (run.link && isBlank(run.text)) run.text = namelessLink;
            whole += run.text;
        }
        if (!isBlank(whole)) blocks_.push_back(std::move(block));
    }

    void replaceBase(std::string& text) const {
        for (auto at = text.find(source_.askedBase); at != std::string::npos; at = text.find(source_.askedBase, at)) {
            text.replace(at, source_.askedBase.size(), source_.base);
            at += source_.base.size();
        }
    }

    const AdvertisementSource& source_;
    std::vector<Advertisement::Block> blocks_;
    std::optional<Advertisement::Block> block_;
    std::optional<Advertisement::Link> link_;
    bool linkHasText_ = false;
    /// Opened inside a block; a link around blocks ends with its own tag.
    bool linkEndsWithBlock_ = false;
    bool continuesRun_ = false;
};

}  // namespace

Advertisement Advertisement::parse(std::string_view html, const AdvertisementSource& source) {
    MarkupReader reader(html, titleBytes(html, source));
    Builder builder(source);
    while (const auto token = reader.next()) builder.add(*token);
    return {std::move(builder).blocks()};
}

std::string Advertisement::Block::html() const {
    const std::string name(elementName(kind));
    std::string html = "<" + name + ">";
    for (const auto& run : runs) {
        if (!run.link) {
            html += htmlEscaped(run.text);
            continue;
        }
        html += "<a href=\"" + htmlEscaped(run.link->path) + "\"";
        if (!run.link->target.empty()) html += " target=\"" + run.link->target + "\" rel=\"noopener\"";
        html += ">" + htmlEscaped(run.text) + "</a>";
    }
    return html + "</" + name + ">";
}

std::string Advertisement::html() const {
    std::string html;
    for (const auto& block : blocks) html += block.html();
    return html;
}

}  // namespace zor

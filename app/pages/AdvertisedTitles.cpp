#include "app/pages/AdvertisedTitles.h"

#include <algorithm>
#include <cstddef>
#include <map>

#include "app/pages/Html.h"

namespace zor {

namespace {

constexpr std::size_t nowhere = std::string_view::npos;

struct Span {
    std::size_t begin;
    std::size_t end;
};

/// Where the tag ends in which a value stands that begins at `begin` and goes to `from` at least; nowhere for a tag
/// that has no end.
std::size_t endOfTag(std::string_view html, std::size_t begin, std::size_t from) {
    const char quote = begin > 0 ? html[begin - 1] : '=';
    std::size_t at = quote == '"' || quote == '\'' ? html.find(quote, from) : html.find_first_of(" \t\r\n>", from);
    if (at != nowhere && html[at] == quote) ++at;
    while (at < html.size()) {
        const char character = html[at];
        if (character == '>') return at + 1;
        if (character == '"' || character == '\'') at = html.find(character, at + 1);
        if (at != nowhere) ++at;
    }
    return nowhere;
}

/// Whether something is left of the title when its tags are taken away.
bool hasWords(std::string_view title) {
    while (!title.empty()) {
        const auto tag = title.find('<');
        if (!isBlank(title.substr(0, tag))) return true;
        const auto end = tag == nowhere ? nowhere : title.find('>', tag);
        if (end == nowhere) return false;
        title.remove_prefix(end + 1);
    }
    return false;
}

/// Every place where the word begins, overlapping ones too, in linear time (Knuth, Morris and Pratt, SIAM Journal on
/// Computing 6, 1977).
std::vector<std::size_t> occurrences(std::string_view text, std::string_view word) {
    std::vector<std::size_t> border(word.size() + 1, 0);
    std::size_t length = 0;
    const auto extend = [&](char next) {
        while (length > 0 && (length == word.size() || word[length] != next)) length = border[length];
        if (word[length] == next) ++length;
    };
    for (std::size_t index = 1; index < word.size(); ++index) {
        extend(word[index]);
        border[index + 1] = length;
    }
    length = 0;
    std::vector<std::size_t> found;
    for (std::size_t index = 0; index < text.size(); ++index) {
        extend(text[index]);
        if (length == word.size()) found.push_back(index + 1 - length);
    }
    return found;
}

class TitleMarker {
public:
    TitleMarker(std::string_view html, const AdvertisementSource& source)
        : html_(html), source_(source), marked_(html.size(), false), hasLink_(source.plugIns.size(), false) {
        for (std::size_t index = 0; index < source.plugIns.size(); ++index) {
            byIdentifier_.emplace(source.plugIns[index].identifier, index);
        }
    }

    std::vector<bool> marked() && {
        markAfterLinks();
        for (std::size_t index = 0; index < source_.plugIns.size(); ++index) {
            const auto& title = source_.plugIns[index].title;
            if (title.find('<') != nowhere && (!hasLink_[index] || hasWords(title))) markOutsideLinks(title);
        }
        return std::move(marked_);
    }

private:
    void mark(Span span) {
        std::fill(marked_.begin() + static_cast<std::ptrdiff_t>(span.begin),
                  marked_.begin() + static_cast<std::ptrdiff_t>(span.end), true);
    }

    void markAfterLinks() {
        const std::string base = source_.askedBase + "/";
        for (std::size_t at = html_.find(base); at != nowhere;) {
            const std::size_t path = at + base.size();
            const std::size_t next = html_.find(base, path);
            markLink(at, path, html_.substr(0, next));
            at = next;
        }
    }

    /// The last component without its extension is an identifier, which holds no dot and no slash itself.
    void markLink(std::size_t begin, std::size_t path, std::string_view upToNext) {
        const std::size_t dot = upToNext.find('.', path);
        if (dot == nowhere) return;
        const std::size_t name = std::max(path, upToNext.rfind('/', dot) + 1);
        const auto [first, last] = byIdentifier_.equal_range(upToNext.substr(name, dot - name));
        if (first == last) return;
        mark({name, dot});
        const std::size_t tagEnd = endOfTag(upToNext, begin, dot);
        if (tagEnd == nowhere) return;
        std::size_t length = 0;
        for (auto each = first; each != last; ++each) {
            const std::string_view title = source_.plugIns[each->second].title;
            if (!upToNext.substr(tagEnd).starts_with(title)) continue;
            hasLink_[each->second] = true;
            length = std::max(length, title.size());
        }
        mark({tagEnd, tagEnd + length});
        constexpr std::string_view opening = "<a href=";
        const bool isPlain = begin > opening.size() && html_.substr(0, begin - 1).ends_with(opening);
        links_.push_back({isPlain ? begin - 1 - opening.size() : begin, tagEnd + length});
    }

    void markOutsideLinks(std::string_view title) {
        std::size_t done = 0;
        for (const auto begin : occurrences(html_, title)) {
            const Span span{begin, begin + title.size()};
            const auto link = std::ranges::upper_bound(links_, span.begin, {}, &Span::end);
            if (link != links_.end() && link->begin < span.end) continue;
            mark({std::max(done, span.begin), span.end});
            done = span.end;
        }
    }

    std::string_view html_;
    const AdvertisementSource& source_;
    std::vector<bool> marked_;
    /// Per listed plug-in: whether its title stands in its link.
    std::vector<bool> hasLink_;
    std::multimap<std::string_view, std::size_t> byIdentifier_;
    /// From the link's tag to the end of the title, in order.
    std::vector<Span> links_;
};

}  // namespace

std::vector<bool> titleBytes(std::string_view html, const AdvertisementSource& source) {
    return TitleMarker(html, source).marked();
}

}  // namespace zor

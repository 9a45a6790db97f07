#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zor {

/// A plug-in whose name another plug-in's advertisement may hold, as it stands in the site window.
struct ListedPlugIn {
    std::string identifier;
    std::string title;
};

/// What the host knows of an advertisement that it asked for.
struct AdvertisementSource {
    /// The base URL given to the plug-in for this one answer: a path of letters, digits and "-._~%/" with a component
    /// that nobody can guess, so that whatever begins with it was written by the plug-in and by no title.
    std::string askedBase;
    /// The base URL that takes its place on the page.
    std::string base;
    std::vector<ListedPlugIn> plugIns;
};

/// What is left of a plug-in's advertisement on the host's page: headings, paragraphs and links to that plug-in's own
/// resources. All other markup, and every title of a listed plug-in whatever it looks like, is text.
struct Advertisement {
    struct Link {
        /// Below the plug-in's base URL, percent-encoded.
        std::string path;
        /// "_blank", "_self", "_parent", "_top" or empty.
        std::string target;
    };
    struct Run {
        /// UTF-8 without control characters; a link's text is never blank.
        std::string text;
        std::optional<Link> link;
    };
    enum class Kind { heading1, heading2, paragraph };
    struct Block {
        Kind kind = Kind::paragraph;
        std::vector<Run> runs;

        std::string html() const;
    };

    std::vector<Block> blocks;

    /// Takes any bytes, in time linear in their number for each listed plug-in.
    static Advertisement parse(std::string_view html, const AdvertisementSource& source);
    std::string html() const;
};

}  // namespace zor

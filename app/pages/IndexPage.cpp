#include "app/pages/IndexPage.h"

#include <algorithm>

#include "app/pages/Html.h"

namespace zor {

namespace {

/// A wind gauge moves more often, but a dashboard is drawn on the thread that serves the window.
constexpr int secondsBetweenPictures = 15;

std::string head(const std::string& title, const std::string& more) {
    return "<!DOCTYPE html>\n<html lang=\"en\"" + std::string(more.empty() ? "" : " class=\"thumbnail\"") +
           "><head><meta charset=\"utf-8\">"
           "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">"
           "<meta name=\"color-scheme\" content=\"light dark\"><title>" +
           htmlEscaped(title) + "</title>" + more + "<link rel=\"icon\" type=\"image/svg+xml\" href=\"" +
           std::string(iconAddress) + "\"><link rel=\"stylesheet\" href=\"" + std::string(styleSheetAddress) +
           "\"></head>\n";
}

bool isPicture(const Advertisement::Run& run) { return run.link && run.link->path.ends_with(".png"); }

bool hasPicture(const Advertisement::Block& block) { return std::ranges::any_of(block.runs, isPicture); }

/// The link's text says what the picture shows, so the picture itself is passed over by screen readers and the keyboard.
std::string card(const Advertisement::Block& block) {
    std::string html = "<li>";
    for (const auto& run : block.runs) {
        if (!isPicture(run)) continue;
        html += "<div class=\"picture\"><iframe src=\"" + htmlEscaped(std::string(thumbnailAddress) + run.link->path) +
                "\" title=\"" + htmlEscaped(run.text) +
                "\" loading=\"lazy\" tabindex=\"-1\" aria-hidden=\"true\"></iframe></div>";
    }
    return html + block.html() + "</li>\n";
}

std::string advertised(const Advertisement& advertisement) {
    std::string html;
    bool isList = false;
    for (const auto& block : advertisement.blocks) {
        if (hasPicture(block) != isList) {
            html += isList ? "</ul>\n" : "<ul class=\"pictures\">\n";
            isList = !isList;
        }
        html += isList ? card(block) : block.html() + "\n";
    }
    return isList ? html + "</ul>\n" : html;
}

}  // namespace

std::string indexPage(const std::vector<AdvertisedSite>& sites) {
    std::string title;
    std::string body;
    for (const auto& site : sites) {
        const std::string name = isBlank(site.name) ? "Station" : site.name;
        title += (title.empty() ? "" : ", ") + name;
        body += "<section aria-label=\"" + htmlEscaped(name) + "\"><p class=\"site\">" + htmlEscaped(name) + "</p>\n";
        for (const auto& each : site.advertisements) body += advertised(each);
        body += "</section>\n";
    }
    if (sites.empty()) body = "<h1>No station</h1><p>No Site Document is open.</p>\n";
    return head(title.empty() ? "Station" : title, {}) + "<body><main>\n" + body + "</main></body></html>\n";
}

std::string thumbnailPage(const std::string& picture) {
    const std::string refresh =
        "<meta http-equiv=\"refresh\" content=\"" + std::to_string(secondsBetweenPictures) + "\">";
    return head("Picture", refresh) + "<body><img src=\"" + htmlEscaped(picture) + "\" alt=\"\"></body></html>\n";
}

}  // namespace zor

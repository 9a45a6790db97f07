#include "app/pages/SitePages.h"

#include "host/foundation/MainQueue.h"

namespace zor {

namespace {

constexpr std::string_view style = R"(
:root { color-scheme: light dark; --ground: #f5f5f7; --card: #fff; --ink: #1d1d1f; --quiet: #6e6e73; --line: #d2d2d7; }
@media (prefers-color-scheme: dark) {
  :root { --ground: #161618; --card: #232326; --ink: #f5f5f7; --quiet: #a1a1a6; --line: #3a3a3d; }
}
* { box-sizing: border-box; }
body { margin: 0; padding: clamp(1rem, 4vw, 3rem); background: var(--ground); color: var(--ink);
       font: 16px/1.5 system-ui, "Helvetica Neue", "Liberation Sans", sans-serif; }
h1 { font-size: 1.75rem; line-height: 1.2; margin: 0 0 .25rem; }
p { margin: 0 0 1.5rem; color: var(--quiet); }
ul { list-style: none; margin: 0; padding: 0; display: grid; gap: 1.5rem;
     grid-template-columns: repeat(auto-fill, minmax(min(100%, 22rem), 1fr)); }
li { background: var(--card); border: 1px solid var(--line); border-radius: 12px; overflow: hidden; }
li img { display: block; width: 100%; height: 15rem; object-fit: contain; background: #fff;
         border-bottom: 1px solid var(--line); }
li a { color: inherit; }
.name { display: flex; justify-content: space-between; gap: 1rem; align-items: baseline; padding: .75rem 1rem; }
h2 { font-size: 1rem; margin: 0; overflow-wrap: anywhere; }
)";

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

SitePages::SitePages(std::shared_ptr<SiteDocument> document) : document_(document) {}

WebAnswer SitePages::answer(const WebRequest& request) const {
    WebAnswer answer = WebAnswer::text(503, "The station is closing.\n");
    MainQueue::shared().sync([&] {
        const std::string& path = request.path;
        if (path == "/") {
            answer = WebAnswer::html(indexPage());
        } else if (path.ends_with(".png") || path.ends_with(".pdf")) {
            answer = picture(path.substr(1, path.size() - 5), path.ends_with(".pdf"));
        } else {
            answer = WebAnswer::text(404, "There is nothing here.\n");
        }
    });
    return answer;
}

std::string SitePages::indexPage() const {
    const auto document = document_.lock();
    if (!document) return {};
    const std::string name = htmlEscaped(document->agent()->name());
    std::string items;
    for (const auto& dashboard : document->siteWindowController()->plugIns()) {
        const std::string link = "/" + htmlEscaped(dashboard->uniqueIdentifier());
        const std::string title = htmlEscaped(dashboard->title().value_or("Untitled"));
        items += "<li><a href=\"" + link + ".png\"><img src=\"" + link + ".png\" alt=\"" + title +
                 "\" loading=\"lazy\"></a><div class=\"name\"><h2>" + title + "</h2><a href=\"" + link +
                 ".pdf\" aria-label=\"" + title + " as PDF\">PDF</a></div></li>\n";
    }
    return "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\">"
           "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"><title>" +
           name + "</title><style>" + std::string(style) + "</style></head>\n<body><main><h1>" + name +
           "</h1><p>The station's dashboards, as they are now.</p>\n<ul>\n" + items + "</ul></main></body></html>\n";
}

WebAnswer SitePages::picture(const std::string& identifier, bool pdf) const {
    const auto document = document_.lock();
    if (document) {
        for (const auto& dashboard : document->siteWindowController()->plugIns()) {
            if (dashboard->uniqueIdentifier() != identifier) continue;
            const Value scale = 1.0;
            const Value data = pdf ? dashboard->perform("pdfRepresentation")
                                   : dashboard->perform("pngImageWithScale:", {&scale, 1});
            if (!data.isData()) break;
            return {.contentType = pdf ? "application/pdf" : "image/png",
                    .body = std::make_shared<const Bytes>(data.asData())};
        }
    }
    return WebAnswer::text(404, "There is no such picture.\n");
}

}  // namespace zor

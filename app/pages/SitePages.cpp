#include "app/pages/SitePages.h"

#include <algorithm>
#include <chrono>
#include <map>
#include <random>
#include <thread>

#include "app/pages/Advertisement.h"
#include "app/pages/Html.h"
#include "app/pages/IndexPage.h"
#include "app/pages/PageResources.h"
#include "host/foundation/MainQueue.h"

namespace zor {

namespace {

constexpr std::string_view plugInsAddress = "/plugins/";
/// For samples that plots have asked for; their absence is no reason to show nothing.
constexpr std::chrono::seconds longestWaitForThePast{2};
constexpr std::chrono::milliseconds betweenLooks{5};

/// What nobody can have put into a title beforehand.
std::string unguessable() {
    std::random_device source;
    std::string text;
    for (int word = 0; word < 4; ++word) text += std::to_string(source()) + '-';
    return text + '0';
}

WebAnswer quitting() {
    return WebAnswer::text(503, "The station is closing.\n");
}

WebAnswer nothingHere() {
    return WebAnswer::text(404, "There is nothing here.\n");
}

WebAnswer fileAnswer(std::string_view contents, std::string type) {
    WebAnswer answer = WebAnswer::text(200, contents);
    answer.contentType = std::move(type);
    return answer;
}

/// Every plug-in of the document: those that stand for their bundles, those in the list, those in windows of their own.
std::vector<std::shared_ptr<ZORPlugIn>> plugInsOf(const SiteDocument& document) {
    auto plugIns = document.entryPlugIns();
    const auto add = [&](const std::shared_ptr<ZORPlugIn>& plugIn) {
        if (plugIn && std::ranges::find(plugIns, plugIn) == plugIns.end()) plugIns.push_back(plugIn);
    };
    for (const auto& plugIn : document.siteWindowController()->plugIns()) add(plugIn);
    for (const auto& controller : document.windowControllers()) add(controller->contentViewController());
    return plugIns;
}

/// The names under which plug-ins may show each other: those in the list and those of windows.
std::vector<ListedPlugIn> titlesIn(const SiteDocument& document) {
    std::vector<ListedPlugIn> listed;
    for (const auto& entry : document.siteWindowController()->entries()) {
        listed.push_back({entry.representedObject->uniqueIdentifier(), entry.title});
    }
    for (const auto& controller : document.windowControllers()) {
        const auto shown = controller->contentViewController();
        if (shown && controller->window()) listed.push_back({shown->uniqueIdentifier(), controller->window()->title()});
    }
    return listed;
}

/// Whether samples have come since the news were counted, when all that was asked for has come or it takes too long. A
/// worker's thread.
bool hasNewsOfThePast(const History& history, std::uint64_t newsBefore) {
    const auto deadline = std::chrono::steady_clock::now() + longestWaitForThePast;
    while (true) {
        bool isComing = false;
        bool hasNews = false;
        const auto look = [&] {
            isComing = history.isFetching();
            hasNews = history.newsCount() != newsBefore;
        };
        // A program that quits waits for nothing.
        if (!MainQueue::shared().sync(look)) return false;
        if (!isComing || std::chrono::steady_clock::now() >= deadline) return hasNews;
        std::this_thread::sleep_for(betweenLooks);
    }
}

}  // namespace

struct SitePages::HostedPlugIn {
    /// Its component in addresses.
    std::string name;
    std::shared_ptr<ZORPlugIn> plugIn;
    std::shared_ptr<SiteDocument> document;
};

/// The answers of one Site Document's plug-ins, as they are.
struct SitePages::Asked {
    struct Answer {
        std::string html;
        AdvertisementSource source;
    };

    const SiteDocument* document;
    std::string name;
    std::vector<Answer> answers;
};

SitePages::SitePages(const std::shared_ptr<SiteDocument>& document)
    : SitePages([weak = std::weak_ptr(document)]() -> std::vector<std::shared_ptr<SiteDocument>> {
          if (auto open = weak.lock()) return {std::move(open)};
          return {};
      }) {}

WebAnswer SitePages::answer(const WebRequest& request) {
    const std::string_view path = request.path;
    if (path == "/") return index();
    if (path == styleSheetAddress) return fileAnswer(pageStyleSheet, "text/css; charset=utf-8");
    if (path == iconAddress || path == "/favicon.ico") return fileAnswer(pageIcon, "image/svg+xml");
    if (path.starts_with(plugInsAddress)) return plugInsAnswer(request);
    if (path.starts_with(thumbnailAddress)) {
        const auto picture = path.substr(thumbnailAddress.size());
        if (picture.starts_with(plugInsAddress)) return WebAnswer::html(thumbnailPage(percentEncodedPath(picture)));
    }
    return nothingHere();
}

/// Main thread. A copy of a document beside it has plug-ins of the same identifiers: the later ones get a number, which
/// cannot be part of an identifier.
std::vector<SitePages::HostedPlugIn> SitePages::hostedPlugIns() const {
    std::vector<HostedPlugIn> hosted;
    std::map<std::string, int> met;
    for (const auto& document : documents_()) {
        for (const auto& plugIn : plugInsOf(*document)) {
            std::string name = plugIn->uniqueIdentifier();
            const int count = ++met[name];
            if (count > 1) name += '.' + std::to_string(count);
            hosted.push_back({std::move(name), plugIn, document});
        }
    }
    return hosted;
}

/// Main thread.
std::vector<SitePages::Asked> SitePages::askForAdvertisements() const {
    std::vector<Asked> sites;
    const std::string nonce = unguessable();
    for (const auto& [name, plugIn, document] : hostedPlugIns()) {
        if (sites.empty() || sites.back().document != document.get()) {
            sites.push_back({document.get(), document->agent()->name(), {}});
        }
        const std::string base = std::string(plugInsAddress) + percentEncoded(name);
        const std::string askedBase = base + "/" + nonce;
        auto html = plugIn->webServiceAdvertisementForBaseURL(askedBase);
        if (html.empty()) continue;
        sites.back().answers.push_back({std::move(html), {askedBase, base, titlesIn(*document)}});
    }
    return sites;
}

WebAnswer SitePages::index() const {
    std::vector<Asked> asked;
    if (!MainQueue::shared().sync([&] { asked = askForAdvertisements(); })) return quitting();
    std::vector<AdvertisedSite> sites;
    for (const auto& [document, name, answers] : asked) {
        AdvertisedSite site{name, {}};
        for (const auto& [html, source] : answers) site.advertisements.push_back(Advertisement::parse(html, source));
        sites.push_back(std::move(site));
    }
    return WebAnswer::html(indexPage(sites));
}

WebAnswer SitePages::plugInsAnswer(const WebRequest& request) {
    const std::string_view below = std::string_view(request.path).substr(plugInsAddress.size());
    const std::size_t slash = below.find('/');
    if (slash == std::string_view::npos) return nothingHere();
    std::shared_ptr<ZORPlugIn> plugIn;
    std::shared_ptr<History> history;
    std::uint64_t news = 0;
    const auto find = [&] {
        for (const auto& hosted : hostedPlugIns()) {
            if (hosted.name != below.substr(0, slash)) continue;
            plugIn = hosted.plugIn;
            history = hosted.document->agent()->history();
            news = history->newsCount();
        }
    };
    if (!MainQueue::shared().sync(find)) return quitting();
    if (!plugIn) return nothingHere();
    WebAnswer answer = answerOf(*plugIn, request);
    // What was drawn while some of its past was on its way is drawn again, and others are let in before that.
    if (answer.status == 200 && hasNewsOfThePast(*history, news)) {
        auto again = answerOf(*plugIn, request);
        if (again.status == 200) answer = std::move(again);
    }
    // Whatever may be the last reference to either goes where it lives.
    MainQueue::shared().post([plugIn = std::move(plugIn), history = std::move(history)] {});
    return answer;
}

WebAnswer SitePages::answerOf(ZORPlugIn& plugIn, const WebRequest& request) {
    const auto pass = gate_.enter();
    if (!pass) return WebAnswer::busy();
    const auto response = plugIn.webServiceResponseForRequest(request);
    if (!response) return nothingHere();
    return {.contentType = response->contentType, .body = response->data};
}

}  // namespace zor

#include "app/pages/AdvertisedTitles.h"

#include <gtest/gtest.h>

#include <string>

#include "app/pages/Html.h"
#include "tests/app/pages/AdvertisementSupport.h"

namespace zor {
namespace {

/// What the dashboards' own plug-in writes.
std::string advertised(const std::vector<ListedPlugIn>& plugIns) {
    std::string html = "<h1>REST API</h1>Pictures.<p>";
    for (const auto& [identifier, title] : plugIns) {
        html += "<h2><a href=\"" + askedBase + "/" + identifier + ".png\" target=\"_blank\">" + title + "</a></h2>";
    }
    return html;
}

std::string expected(const std::vector<ListedPlugIn>& plugIns) {
    std::string html = "<h1>REST API</h1><p>Pictures.</p>";
    for (const auto& [identifier, title] : plugIns) {
        html += "<h2><a href=\"/plugins/p/" + percentEncoded(identifier) +
                ".png\" target=\"_blank\" rel=\"noopener\">" + htmlEscaped(title) + "</a></h2>";
    }
    return html;
}

void expectText(const std::vector<ListedPlugIn>& plugIns) {
    EXPECT_EQ(shown(advertised(plugIns), plugIns), expected(plugIns));
}

const std::vector<std::string> hostileTitles{
    "<h1>big</h1>",
    "</a></h2><h1>out</h1>",
    "<",
    ">",
    "<h2>",
    "</h2>",
    "<a href=\"",
    "<a href=\"/plugins/p/x.png\">mine</a>",
    "<a href=\"/plugins/p/81-7-1/x.png\">guessed</a>",
    "a",
    "h2",
    "href",
    "\"",
    "'",
    "&",
    "&lt;h1&gt;",
    "&amp;amp;",
    "<!--",
    "-->",
    "<![CDATA[",
    "<svg onload=alert(1)>",
    "<script>",
    "</script><script>alert(1)</script>",
    "<h1",
    "</a></h2><h2><a href=\"",
    "\" onclick=\"alert(1)",
    "target=\"_blank\">",
    ".png\" target=\"_blank\">",
    "_blank\">x</a></h2>",
};

TEST(AdvertisedTitles, AreTextWhateverTheyLookLike) {
    for (const auto& title : hostileTitles) {
        SCOPED_TRACE(title);
        expectText({{"one", title}});
        expectText({{"one", "Plain"}, {"two", title}, {"three", "Other"}});
        expectText({{"one", title}, {"two", title}});
    }
}

TEST(AdvertisedTitles, AreTextAllTogether) {
    std::vector<ListedPlugIn> plugIns;
    for (const auto& title : hostileTitles) plugIns.push_back({"id" + std::to_string(plugIns.size()), title});
    expectText(plugIns);
}

TEST(AdvertisedTitles, OneThatBeginsLikeTheNextLinkEndsWhereItEnds) {
    const std::string overreaching = "zz</a></h2><h2><a href=\"" + askedBase.substr(0, 11);
    expectText({{"one", "zz"}, {"two", overreaching}, {"three", "<h1>evil</h1>"}});
}

/// The page looks worse then, but no title becomes more than text.
TEST(AdvertisedTitles, WithWordsOfTheAdvertisementTakeThemAlong) {
    const std::string title = "Pictures.<p>";
    EXPECT_EQ(shown(advertised({{"one", title}}), {{"one", title}}),
              "<h1>REST API</h1><p>Pictures.&lt;p&gt;</p><h2><a href=\"/plugins/p/one.png\" target=\"_blank\" "
              "rel=\"noopener\">Pictures.&lt;p&gt;</a></h2>");
}

TEST(AdvertisedTitles, IdentifiersAreTextToo) {
    for (const auto* identifier : {"\"><h1>x", "' onload=x", "a b", "\\\\host", "%2e%2e", "a?b#c", "&#46;&quot;", "<a>"}) {
        SCOPED_TRACE(identifier);
        expectText({{identifier, "Mine"}, {"two", "<h1>"}});
    }
}

TEST(AdvertisedTitles, OfTheSameIdentifierTheLongerIsMeant) {
    const std::string html = advertised({{"one", "a<h1>b"}});
    EXPECT_EQ(shown(html, {{"one", "a"}, {"one", "a<h1>b"}}), expected({{"one", "a<h1>b"}}));
}

TEST(AdvertisedTitles, OutsideOfLinksAreTextWhereTheyHaveNoLink) {
    EXPECT_EQ(shown("<p>See <h1>mine</h1>, and <h1>.", {{"one", "<h1>mine</h1>"}, {"two", "<h1>"}}),
              "<p>See &lt;h1&gt;mine&lt;/h1&gt;, and &lt;h1&gt;.</p>");
    EXPECT_EQ(shown("<p title=\"a\"><b\">c</p>", {{"one", "a\"><b"}}), "<p>c</p>");
}

TEST(AdvertisedTitles, OutsideOfTheirLinkAreTextWhereTheyHaveWords) {
    const std::vector<ListedPlugIn> plugIns{{"one", "<h1>mine</h1>"}};
    EXPECT_EQ(shown("<p>Newest: <h1>mine</h1>!" + advertised(plugIns), plugIns),
              "<p>Newest: &lt;h1&gt;mine&lt;/h1&gt;!</p>" + expected(plugIns));
}

TEST(AdvertisedTitles, OverlappingOccurrencesAreAllTaken) {
    EXPECT_EQ(shown("<p>x<h1>x<h1>x", {{"one", "x<h1>x"}}), "<p>x&lt;h1&gt;x&lt;h1&gt;x</p>");
}

TEST(AdvertisedTitles, BytesThatAreNoTextMayBePartOfThem) {
    const std::vector<ListedPlugIn> plugIns{{"one", "\xff<h1>\xc3"}};
    EXPECT_EQ(shown(advertised(plugIns), plugIns), expected({{"one", "\ufffd<h1>\ufffd"}}));
}

TEST(AdvertisedTitles, LongOnesTakeTimeLinearInTheirLength) {
    std::string title(100'000, '<');
    title += 'x';
    const std::string text(300'000, '<');
    const auto marked = titleBytes(text, {askedBase, "/plugins/p", {{"one", title}}});
    EXPECT_EQ(marked, std::vector<bool>(text.size(), false));
}

}  // namespace
}  // namespace zor

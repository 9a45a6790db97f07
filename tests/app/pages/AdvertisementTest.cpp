#include "app/pages/Advertisement.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "tests/app/pages/AdvertisementSupport.h"

namespace zor {
namespace {

using namespace std::string_literals;

const std::string link = "<a href=\"" + askedBase + "/x.png\" target=\"_blank\">";
const std::string shownLink = "<a href=\"/plugins/p/x.png\" target=\"_blank\" rel=\"noopener\">";

/// The address that is left of `<a href=WRITTEN>t</a>`; "none" where there is no link.
std::string address(const std::string& written) {
    const auto advertisement = Advertisement::parse("<p><a href=" + written + ">t</a>", {askedBase, "/plugins/p", {}});
    for (const auto& block : advertisement.blocks) {
        for (const auto& run : block.runs) {
            if (run.link) return run.link->path;
        }
    }
    return "none";
}

std::string below(const std::string& rest) { return address("\"" + askedBase + rest + "\""); }

TEST(Advertisement, HeadingsParagraphsAndOwnLinksPass) {
    EXPECT_EQ(shown("<h1>One</h1>Two.<p>Three<h2>" + link + "Four</a></h2>"),
              "<h1>One</h1><p>Two.</p><p>Three</p><h2>" + shownLink + "Four</a></h2>");
}

TEST(Advertisement, NothingIsNothing) {
    EXPECT_EQ(shown(""), "");
    EXPECT_EQ(shown(" \n\t<p></p><h1>\n</h1>"), "");
}

TEST(Advertisement, OtherElementsAreText) {
    EXPECT_EQ(shown("<p>a<b>c</b>"), "<p>a&lt;b&gt;c&lt;/b&gt;</p>");
    EXPECT_EQ(shown("<script>alert(1)</script>"), "<p>&lt;script&gt;alert(1)&lt;/script&gt;</p>");
    EXPECT_EQ(shown("<svg onload=\"x()\"/>"), "<p>&lt;svg onload=&quot;x()&quot;/&gt;</p>");
    EXPECT_EQ(shown("<h3>x</h3>"), "<p>&lt;h3&gt;x&lt;/h3&gt;</p>");
    EXPECT_EQ(shown("<h1x>"), "<p>&lt;h1x&gt;</p>");
    EXPECT_EQ(shown("<!DOCTYPE html><!-- <h1>x</h1> -->"), "<p>&lt;!DOCTYPE html&gt;&lt;!-- &lt;h1&gt;x&lt;/h1&gt; --&gt;</p>");
}

TEST(Advertisement, TagsInAttributesOfOtherElementsAreText) {
    EXPECT_EQ(shown("<img alt=\"<h1>x</h1>\">"), "<p>&lt;img alt=&quot;&lt;h1&gt;x&lt;/h1&gt;&quot;&gt;</p>");
    EXPECT_EQ(shown("<img alt='><h1>'>"), "<p>&lt;img alt=&#39;&gt;&lt;h1&gt;&#39;&gt;</p>");
}

TEST(Advertisement, AttributesOfPermittedElementsAreDropped) {
    EXPECT_EQ(shown("<h1 id=x onclick='y()' style=\"z\">a</h1>"), "<h1>a</h1>");
    EXPECT_EQ(shown("<h2><a onclick=x href='" + askedBase + "/x.png' download>a</a></h2>"),
              "<h2><a href=\"/plugins/p/x.png\">a</a></h2>");
}

TEST(Advertisement, NamesAreTakenInAnyCase) {
    EXPECT_EQ(shown("<H1>a</h1><P>b</P><H2><A HREF=" + askedBase + "/x.png TARGET=_BLANK>c</A></H2>"),
              "<h1>a</h1><p>b</p><h2>" + shownLink + "c</a></h2>");
}

TEST(Advertisement, TargetsHaveReservedNamesOnly) {
    EXPECT_EQ(shown("<p><a target=_self href=" + askedBase + "/x>a</a>"),
              "<p><a href=\"/plugins/p/x\" target=\"_self\" rel=\"noopener\">a</a></p>");
    EXPECT_EQ(shown("<p><a target='\" onload=x' href=" + askedBase + "/x>a</a>"),
              "<p><a href=\"/plugins/p/x\">a</a></p>");
}

TEST(Advertisement, TagsWithoutAnEndAreText) {
    EXPECT_EQ(shown("a<h1"), "<p>a&lt;h1</p>");
    EXPECT_EQ(shown("<h1>a</h1"), "<h1>a&lt;/h1</h1>");
    EXPECT_EQ(shown("a<p title=\"x>b<h1>c"), "<p>a&lt;p title=&quot;x&gt;b&lt;h1&gt;c</p>");
    EXPECT_EQ(shown("a<!-- <h1>b</h1>"), "<p>a&lt;!-- &lt;h1&gt;b&lt;/h1&gt;</p>");
    EXPECT_EQ(shown("a<"), "<p>a&lt;</p>");
    EXPECT_EQ(shown("1 < 2 <3 </ 4"), "<p>1 &lt; 2 &lt;3 &lt;/ 4</p>");
}

TEST(Advertisement, WhatIsLeftOpenIsClosed) {
    EXPECT_EQ(shown("<h1>a<h2>b<p>c"), "<h1>a</h1><h2>b</h2><p>c</p>");
    EXPECT_EQ(shown("<h2>" + link + "a</h2>b"), "<h2>" + shownLink + "a</a></h2><p>b</p>");
    EXPECT_EQ(shown("<h2>" + link + "a" + link + "b</h2>"), "<h2>" + shownLink + "a</a>" + shownLink + "b</a></h2>");
}

TEST(Advertisement, EndTagsThatCloseNothingLeaveNoElement) {
    EXPECT_EQ(shown("</p></h1>a</h2>b</p>c"), "<p>ab</p><p>c</p>");
    EXPECT_EQ(shown("<h1>a</p>b</h2>c"), "<h1>ab</h1><p>c</p>");
    EXPECT_EQ(shown("<h1>a</a></h1>"), "<h1>a&lt;/a&gt;</h1>");
}

TEST(Advertisement, ALinkAroundHeadingsIsALinkInEach) {
    EXPECT_EQ(shown(link + "<h1>a</h1><h2>b</h2></a>c"),
              "<h1>" + shownLink + "a</a></h1><h2>" + shownLink + "b</a></h2><p>c</p>");
}

TEST(Advertisement, ALinkAlwaysHasAName) {
    const std::string nameless = "<h2>" + shownLink + "Untitled</a></h2>";
    for (const auto* title : {"", " ", "\u00a0", "\u200b\u2060", "\u202e", "\u3164", "&nbsp;", "&#8203;"}) {
        EXPECT_EQ(shown("<h2>" + link + title + "</a></h2>"), nameless) << title;
    }
    EXPECT_EQ(shown(link + "</a>"), "<p>" + shownLink + "Untitled</a></p>");
}

TEST(Advertisement, ReferencesAreReadOnce) {
    EXPECT_EQ(shown("a &amp; b &lt;h1&gt; &quot;&apos;"), "<p>a &amp; b &lt;h1&gt; &quot;&#39;</p>");
    EXPECT_EQ(shown("&#60;h1&#x3E; &#X3c;"), "<p>&lt;h1&gt; &lt;</p>");
    EXPECT_EQ(shown("&amp;lt;"), "<p>&amp;lt;</p>");
    EXPECT_EQ(shown("&lt &copy; &; &#; &#x; &#xg; & &"), "<p>&amp;lt &amp;copy; &amp;; &amp;#; &amp;#x; &amp;#xg; &amp; &amp;</p>");
    EXPECT_EQ(shown("a&#0;b&#xD800;c&#x110000;d&#99999999999;"), "<p>a\ufffdb\ufffdc\ufffdd&amp;#99999999999;</p>");
}

TEST(Advertisement, BytesThatAreNoTextAreReplaced) {
    EXPECT_EQ(shown("a\0b\x01\x7f"s), "<p>a\ufffdb\ufffd\ufffd</p>");
    EXPECT_EQ(shown("a\xff\xc3(\xed\xa0\x80"), "<p>a\ufffd\ufffd(\ufffd\ufffd\ufffd</p>");
    EXPECT_EQ(shown("\xc0\xbch1>x"), "<p>\ufffd\ufffdh1&gt;x</p>");
    EXPECT_EQ(shown("<h1\0>x"s), "<p>&lt;h1\ufffd&gt;x</p>");
    EXPECT_EQ(shown("<\0h1>x"s), "<p>&lt;\ufffdh1&gt;x</p>");
    EXPECT_EQ(shown("a\tb\nc\r\nd"), "<p>a b c  d</p>");
}

TEST(Advertisement, CharactersThatOnlyLookLikeMarkupAreText) {
    EXPECT_EQ(shown("\uff1ch1\uff1ex"), "<p>\uff1ch1\uff1ex</p>");
    EXPECT_EQ(shown("<\u017fvg>"), "<p>&lt;\u017fvg&gt;</p>");
}

TEST(Advertisement, LinksBelowTheBasePass) {
    EXPECT_EQ(below("/x.png"), "/plugins/p/x.png");
    EXPECT_EQ(below("/some/dir/x.png?a=b&amp;c=d#e"), "/plugins/p/some/dir/x.png?a=b&c=d#e");
    EXPECT_EQ(address("'" + askedBase + "/a b\u00e4\"<>'"), "/plugins/p/a%20b%C3%A4%22%3C%3E");
    EXPECT_EQ(below("/50%25%zz%"), "/plugins/p/50%25%25zz%25");
    EXPECT_EQ(below("/..x/x../.x."), "/plugins/p/..x/x../.x.");
}

TEST(Advertisement, OtherLinksAreText) {
    for (const auto* written :
         {"\"\"", "x.png", "/", "/plugins/p/x.png", "/plugins/q/81-7-0/x.png", "/PLUGINS/p/81-7-0/x.png",
          "javascript:alert(1)", "\"java\nscript:alert(1)\"", "data:text/html,x", "//host/plugins/p/81-7-0/x.png",
          "http://host/plugins/p/81-7-0/x.png", "\\\\host", "\"\x01/plugins/p/81-7-0/x.png\"",
          "\" /plugins/p/81-7-0/x.png\"", "/plugins/p/81-7-0", "/plugins/p/81-7-0/", "/plugins/p/81-7-0x/x.png",
          "/plugins/p/81-7-0?/x.png", "&#106;avascript:alert(1)"}) {
        EXPECT_EQ(address(written), "none") << written;
    }
    EXPECT_EQ(shown("<p><a href=\"javascript:x\">t</a>"), "<p>&lt;a href=&quot;javascript:x&quot;&gt;t&lt;/a&gt;</p>");
    EXPECT_EQ(shown("<p><a>t</a>"), "<p>&lt;a&gt;t&lt;/a&gt;</p>");
}

TEST(Advertisement, LinksThatClimbOutOfTheBaseAreText) {
    for (const auto* rest : {"/../x", "/a/../../x", "/a/..", "/.", "/%2e%2e/x", "/.%2E/x", "/%2E/x", "/a%2f..%2fx",
                             "/a%5c..%5cx", "/..\\x", "/a\\b", "/&#46;&#46;/x", "/a/..?b", "/a/..#b", "/%00", "/%0d%0ax"}) {
        EXPECT_EQ(below(rest), "none") << rest;
    }
}

TEST(Advertisement, TheFirstOfTwoAddressesCounts) {
    EXPECT_EQ(address("x href=\"" + askedBase + "/x.png\""), "none");
    EXPECT_EQ(address("\"" + askedBase + "/x.png\" href=javascript:x"), "/plugins/p/x.png");
}

TEST(Advertisement, TheBaseReadsAsItIsOnThePage) {
    EXPECT_EQ(shown("Try " + askedBase + "/x.png or " + askedBase), "<p>Try /plugins/p/x.png or /plugins/p</p>");
}

/// What is left of a page's HTML when the permitted tags are taken away.
std::string withoutTags(std::string html) {
    const std::string anchor = "<a href=\"/plugins/p/";
    for (auto at = html.find(anchor); at != std::string::npos; at = html.find(anchor)) {
        html.erase(at, html.find('>', at) + 1 - at);
    }
    for (const auto* tag : {"<h1>", "</h1>", "<h2>", "</h2>", "<p>", "</p>", "</a>"}) {
        for (auto at = html.find(tag); at != std::string::npos; at = html.find(tag)) html.erase(at, std::string(tag).size());
    }
    return html;
}

TEST(Advertisement, WhateverIsAdvertisedNothingElseBecomesMarkup) {
    const std::vector<std::string> pieces{"<", ">", "</", "/>", "<h1", "<h2>", "<p>", "<p ", "<a ", "</a>", link, "href=",
                                          "target=", askedBase, "/x.png", "\"", "'", "=", "&", "&lt;", "&#60;", "&#x3c",
                                          ";", "<!--", "-->", "<svg onload=", "javascript:", "..", "%2e", "\\", " ", "\n",
                                          "\0"s, "\xff", "\xc3", "x", "Title<h1>"};
    std::mt19937 play(5);
    for (int round = 0; round < 20'000; ++round) {
        std::string html;
        for (auto count = play() % 30; count > 0; --count) html += pieces[play() % pieces.size()];
        const auto result = shown(html, {{"x", "Title<h1>"}, {"y", "<a "}});
        const auto text = withoutTags(result);
        ASSERT_EQ(text.find_first_of("<>\"'"), std::string::npos) << html << "\nbecame\n" << result;
    }
}

TEST(Advertisement, ManyOpenTagsTakeNoLongerThanTheirNumber) {
    std::string html;
    for (int count = 0; count < 50'000; ++count) html += "<p a=\"'><h2><a <!-- ";
    EXPECT_FALSE(shown(html).empty());
}

}  // namespace
}  // namespace zor

#include "app/pages/IndexPage.h"

#include <gtest/gtest.h>

#include "tests/app/pages/AdvertisementSupport.h"

namespace zor {
namespace {

using testing::AssertionResult;

AssertionResult has(const std::string& page, const std::string& part) {
    if (page.find(part) != std::string::npos) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "no " << part << " in " << page;
}

Advertisement advertisementOf(const std::string& html) {
    return Advertisement::parse(html, {askedBase, "/plugins/p", {}});
}

std::string pictureLink(const std::string& name, const std::string& text) {
    return "<a href=\"" + askedBase + "/" + name + "\">" + text + "</a>";
}

TEST(IndexPage, NamesEverySite) {
    const auto page = indexPage({{"Garden", {}}, {"<Roof> \"2\"", {}}});
    EXPECT_TRUE(has(page, "<title>Garden, &lt;Roof&gt; &quot;2&quot;</title>"));
    EXPECT_TRUE(has(page, "<section aria-label=\"Garden\"><p class=\"site\">Garden</p>"));
    EXPECT_TRUE(has(page, "<section aria-label=\"&lt;Roof&gt; &quot;2&quot;\">"));
}

TEST(IndexPage, SaysWhereNothingIsOpen) { EXPECT_TRUE(has(indexPage({}), "No Site Document is open.")); }

TEST(IndexPage, PutsPicturesThatFollowEachOtherIntoOneList) {
    const auto page = indexPage({{"Garden",
                                  {advertisementOf("<h1>API</h1>" + pictureLink("a.png", "A") + "<h2>" +
                                                   pictureLink("b.png", "B") + "</h2><p>end")}}});
    EXPECT_TRUE(has(page, "<h1>API</h1>\n<ul class=\"pictures\">\n<li>"));
    EXPECT_TRUE(has(page, "src=\"/thumbnail/plugins/p/a.png\" title=\"A\" loading=\"lazy\""));
    EXPECT_TRUE(has(page, "<p><a href=\"/plugins/p/a.png\">A</a></p></li>\n<li>"));
    EXPECT_TRUE(has(page, "<h2><a href=\"/plugins/p/b.png\">B</a></h2></li>\n</ul>\n<p>end</p>"));
}

TEST(IndexPage, OtherLinksHaveNoPicture) {
    const auto page = indexPage({{"Garden", {advertisementOf("<p>" + pictureLink("a.pdf", "A") + "</p>")}}});
    EXPECT_TRUE(has(page, "<p><a href=\"/plugins/p/a.pdf\">A</a></p>"));
    EXPECT_FALSE(has(page, "<iframe"));
}

TEST(IndexPage, RunsNothingAndLoadsNothingFromElsewhere) {
    const auto page = indexPage({{"Garden", {advertisementOf("<h2>" + pictureLink("a.png", "A") + "</h2>")}}});
    for (const auto* part : {"<script", "<style", " style=", " on", "http:", "https:", "data:"}) {
        EXPECT_FALSE(has(page, part)) << part;
    }
}

TEST(ThumbnailPage, ShowsThePictureAndLoadsItselfAgain) {
    const auto page = thumbnailPage("/plugins/p/a%22.png");
    EXPECT_TRUE(has(page, "<img src=\"/plugins/p/a%22.png\" alt=\"\">"));
    EXPECT_TRUE(has(page, "<meta http-equiv=\"refresh\" content=\"15\">"));
}

}  // namespace
}  // namespace zor

// The token, the count of failures, the names of the server, and the rule that joins them.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <fstream>

#include "tests/support/TemporaryFolder.h"
#include "web/AccessRule.h"

namespace zor {
namespace {

using namespace std::chrono_literals;

InternetAddress address(const std::string& text) {
    return InternetAddress::parse(text).value();
}

const FailureCounter::Time start = FailureCounter::Time() + 1h;

class AccessTokenTest : public testing::Test {
protected:
    AccessToken kept(const std::string& site = "demo") {
        auto token = AccessToken::keep(folder.path() / "web", site);
        return token ? *token : throw std::runtime_error(token.error().message);
    }
    static unsigned permissions(const std::filesystem::path& path) {
        struct stat status = {};
        return stat(path.c_str(), &status) == 0 ? status.st_mode & 0777 : 0;
    }

    test::TemporaryFolder folder;
};

TEST_F(AccessTokenTest, Is128BitsInAFileForItsOwnerAlone) {
    const auto before = umask(0);
    const auto token = kept();
    umask(before);
    EXPECT_EQ(token.text().size(), 32U);
    EXPECT_EQ(token.text().find_first_not_of("0123456789abcdef"), std::string::npos);
    EXPECT_EQ(permissions(token.file()), 0600U);
    EXPECT_EQ(permissions(token.file().parent_path()), 0700U);
    std::string line;
    std::getline(std::ifstream(token.file()), line);
    EXPECT_EQ(line, token.text());
    // No scrap is left beside it.
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(token.file().parent_path()), {}), 1);
}

TEST_F(AccessTokenTest, StaysTheSameForASiteAndDiffersBetweenSites) {
    const auto token = kept();
    EXPECT_EQ(kept().text(), token.text());
    EXPECT_NE(kept("/home/anna/Garden.site").text(), token.text());
    EXPECT_NE(kept("../../x\n").file(), token.file());
    EXPECT_EQ(kept("../../x\n").file().parent_path(), token.file().parent_path());
}

TEST_F(AccessTokenTest, IsMadeAnewWhereOthersCouldReadItOrItIsNone) {
    auto token = kept();
    chmod(token.file().c_str(), 0644);
    const auto second = kept();
    EXPECT_NE(second.text(), token.text());
    EXPECT_EQ(permissions(second.file()), 0600U);
    for (const std::string contents :
         {"", "short\n", "0123456789abcdef0123456789abcdeX\n", "0123456789abcdef0123456789abcdef0\n"}) {
        std::ofstream(second.file(), std::ios::trunc) << contents;
        EXPECT_EQ(kept().text().size(), 32U) << contents;
    }
    std::filesystem::remove(second.file());
    const auto elsewhere = folder.path() / "elsewhere";
    std::ofstream(elsewhere) << "0123456789abcdef0123456789abcdef\n";
    chmod(elsewhere.c_str(), 0600);
    std::filesystem::create_symlink(elsewhere, second.file());
    EXPECT_NE(kept().text(), "0123456789abcdef0123456789abcdef");
}

TEST_F(AccessTokenTest, AFolderThatCannotBeMadeIsNamed) {
    std::ofstream(folder.path() / "web") << "a file";
    const auto token = AccessToken::keep(folder.path() / "web", "demo");
    ASSERT_FALSE(token);
    EXPECT_NE(token.error().message.find((folder.path() / "web").string()), std::string::npos);
}

TEST_F(AccessTokenTest, MatchesItselfAlone) {
    const auto token = kept();
    EXPECT_TRUE(token.matches(token.text()));
    EXPECT_FALSE(token.matches(""));
    EXPECT_FALSE(token.matches(token.text().substr(1)));
    EXPECT_FALSE(token.matches(token.text() + "0"));
    for (std::size_t at = 0; at < 32; ++at) {
        std::string other = token.text();
        other[at] = other[at] == '0' ? '1' : '0';
        EXPECT_FALSE(token.matches(other)) << at;
    }
}

TEST(FailureCounterTest, TenWithinAMinuteShutOut) {
    FailureCounter counter;
    const auto client = address("192.0.2.1");
    for (int second = 0; second < 9; ++second) counter.count(client, start + second * 1s);
    EXPECT_EQ(counter.shutOut(client, start + 8s), std::nullopt);
    counter.count(client, start + 9s);
    EXPECT_EQ(counter.shutOut(client, start + 9s), 51s);
    EXPECT_EQ(counter.shutOut(client, start + 59s + 1ms), 1s);
    EXPECT_EQ(counter.shutOut(client, start + 60s), std::nullopt);
    EXPECT_EQ(counter.shutOut(address("192.0.2.2"), start + 9s), std::nullopt);
}

TEST(FailureCounterTest, TenInMoreThanAMinuteDoNot) {
    FailureCounter counter;
    const auto client = address("192.0.2.1");
    for (int count = 0; count < 100; ++count) counter.count(client, start + count * 7s);
    EXPECT_EQ(counter.shutOut(client, start + 99 * 7s), std::nullopt);
}

TEST(FailureCounterTest, RemembersABoundedNumberOfClientsTheLatest) {
    FailureCounter counter;
    const auto one = address("192.0.2.1");
    for (int count = 0; count < 10; ++count) counter.count(one, start);
    for (int count = 0; count < 5000; ++count) {
        counter.count(address("10.0." + std::to_string(count / 250) + "." + std::to_string(count % 250)),
                      start + 1s + count * 1ms);
        ASSERT_LE(counter.clientCount(), 1024U);
    }
    EXPECT_EQ(counter.shutOut(one, start + 7s), std::nullopt);
}

TEST(InternetAddressTest, ReadsAndWrites) {
    for (const std::string text : {"127.0.0.1", "0.0.0.0", "::1", "::", "2001:db8::7"}) {
        EXPECT_EQ(address(text).text(), text);
    }
    EXPECT_EQ(address("::1").textInUrl(), "[::1]");
    EXPECT_EQ(address("::ffff:192.0.2.7"), address("192.0.2.7"));
    for (const std::string text : {"", "localhost", "127.1", "127.0.0.1.", "[::1]", "1.2.3.4:80", "0x7f.0.0.1"}) {
        EXPECT_FALSE(InternetAddress::parse(text)) << text;
    }
}

TEST(InternetAddressTest, KnowsThisMachineAndAClientsNetwork) {
    for (const auto* text : {"127.0.0.1", "127.9.9.9", "::1"}) EXPECT_TRUE(address(text).isLoopback()) << text;
    for (const auto* text : {"128.0.0.1", "0.0.0.0", "::", "::2", "100::1"}) EXPECT_FALSE(address(text).isLoopback());
    EXPECT_TRUE(address("0.0.0.0").isAny());
    EXPECT_TRUE(address("::").isAny());
    EXPECT_EQ(address("2001:db8:1:2:3:4:5:6").client(), address("2001:db8:1:2::"));
    EXPECT_EQ(address("192.0.2.7").client(), address("192.0.2.7"));
}

TEST(HostCheckTest, LoopbackAnswersToItsOwnNames) {
    const HostCheck hosts(8087, "");
    const auto local = address("127.0.0.1");
    for (const auto* host : {"127.0.0.1:8087", "127.0.0.1", "localhost:8087", "LocalHost", "[::1]:8087", "[::1]"}) {
        EXPECT_TRUE(hosts.isServed(host, local)) << host;
        EXPECT_TRUE(hosts.isServed(host, address("::1"))) << host;
    }
    for (const auto* host :
         {"", "evil.example", "evil.example:8087", "127.0.0.1:8088", "127.0.0.1:", "127.0.0.1:08087", "localhost.:8087",
          "localhost.evil.example", "192.168.1.5:8087", "::1", "[::1", "[127.0.0.1]", "[localhost]",
          "127.0.0.1:8087:8087", "a@127.0.0.1:8087", "garden", ".local"}) {
        EXPECT_FALSE(hosts.isServed(host, local)) << host;
    }
}

TEST(HostCheckTest, OtherInterfacesAnswerToTheirAddressAndTheMachinesName) {
    const HostCheck hosts(8087, "garden");
    const auto local = address("192.168.1.5");
    for (const auto* host : {"192.168.1.5:8087", "192.168.1.5", "garden:8087", "GARDEN", "garden.local:8087"}) {
        EXPECT_TRUE(hosts.isServed(host, local)) << host;
    }
    for (const auto* host :
         {"localhost:8087", "127.0.0.1:8087", "192.168.1.6:8087", "garden.evil.example", "garden:1"}) {
        EXPECT_FALSE(hosts.isServed(host, local)) << host;
    }
}

TEST(AddressesTest, LoseTheTokenAndNothingElse) {
    EXPECT_EQ(targetWithoutToken("/?token=abc"), "/");
    EXPECT_EQ(targetWithoutToken("/a/b%20c?token=abc"), "/a/b%20c");
    EXPECT_EQ(targetWithoutToken("/a?x=1&token=abc&y=2"), "/a?x=1&y=2");
    EXPECT_EQ(targetWithoutToken("/a?token=abc&x&tokens=1&token"), "/a?x&tokens=1");
    EXPECT_EQ(targetWithoutToken("/a"), "/a");
    // However it is written: it would be asked for again and again.
    EXPECT_EQ(targetWithoutToken("/a?%74oken=abc&x=%74oken"), "/a?x=%74oken");
    EXPECT_EQ(targetWithoutToken("/a?%74%6F%6b%65%6e&%%=1"), "/a?%%=1");
}

TEST(AddressesTest, NeverLeadToAnotherServer) {
    EXPECT_EQ(targetWithoutToken("//evil.example/a?token=abc"), "/evil.example/a");
    EXPECT_EQ(targetWithoutToken("/\\evil.example?token=abc"), "/evil.example");
    EXPECT_EQ(targetWithoutToken("///?token=abc"), "/");
}

class AccessRuleTest : public AccessTokenTest {
protected:
    int status(const std::optional<Reply>& reply) { return reply ? reply->answer.status : 200; }
    std::string header(const Reply& reply, const std::string& name) {
        const auto all = reply.allHeaders();
        const auto found = std::ranges::find(all, name, &Reply::Header::first);
        return found == all.end() ? "" : found->second;
    }

    AccessToken token = kept();
    AccessRule rule{{8087, "garden"}, token, "station-8087"};
    AccessRule::Asked asked{.client = address("192.168.1.9"),
                            .local = address("192.168.1.5"),
                            .target = "/a?token=x",
                            .host = "192.168.1.5:8087",
                            .authorization = {},
                            .cookie = {},
                            .tokenInQuery = {}};
};

TEST_F(AccessRuleTest, WithoutATokenOnlyTheNameCounts) {
    AccessRule open({8087, ""}, {}, "");
    asked.local = address("127.0.0.1");
    asked.host = "localhost:8087";
    EXPECT_EQ(status(open.objection(asked, start)), 200);
    asked.host = "evil.example";
    EXPECT_EQ(status(open.objection(asked, start)), 421);
    asked.host.reset();
    EXPECT_EQ(status(open.objection(asked, start)), 421);
}

TEST_F(AccessRuleTest, TheTokenOpensAsHeaderAndAsCookie) {
    EXPECT_EQ(status(rule.objection(asked, start)), 401);
    EXPECT_EQ(header(*rule.objection(asked, start), "WWW-Authenticate"), "Bearer");
    asked.cookie = token.text();
    EXPECT_EQ(status(rule.objection(asked, start)), 200);
    asked.cookie = "x";
    EXPECT_EQ(status(rule.objection(asked, start)), 401);
    asked.cookie.reset();
    const std::string bearer = "Bearer " + token.text();
    asked.authorization = bearer;
    EXPECT_EQ(status(rule.objection(asked, start)), 200);
    const std::string lower = "bearer " + token.text();
    asked.authorization = lower;
    EXPECT_EQ(status(rule.objection(asked, start)), 200);
    const std::string basic = "Basic " + token.text();
    for (const std::string_view wrong : {std::string_view(basic), std::string_view(token.text()),
                                         std::string_view("Bearer "), std::string_view("Bearer")}) {
        asked.authorization = wrong;
        EXPECT_EQ(status(rule.objection(asked, start)), 401) << wrong;
    }
}

TEST_F(AccessRuleTest, TheTokenInTheAddressIsTradedForACookie) {
    asked.tokenInQuery = token.text();
    asked.target = "/a?token=x&y=1";
    const auto reply = rule.objection(asked, start);
    ASSERT_EQ(status(reply), 303);
    EXPECT_EQ(header(*reply, "Location"), "/a?y=1");
    EXPECT_EQ(header(*reply, "Set-Cookie"), "station-8087=" + token.text() + "; HttpOnly; SameSite=Strict; Path=/");
    asked.tokenInQuery = "wrong";
    EXPECT_EQ(status(rule.objection(asked, start)), 401);
}

TEST_F(AccessRuleTest, TenFailuresShutOutEvenTheRightToken) {
    for (int count = 0; count < 10; ++count) EXPECT_EQ(status(rule.objection(asked, start)), 401);
    asked.cookie = token.text();
    const auto reply = rule.objection(asked, start + 20s);
    ASSERT_EQ(status(reply), 429);
    EXPECT_EQ(header(*reply, "Retry-After"), "40");
    EXPECT_EQ(status(rule.objection(asked, start + 60s)), 200);
    asked.client = address("192.168.1.10");
    EXPECT_EQ(status(rule.objection(asked, start + 20s)), 200);
}

}  // namespace
}  // namespace zor

#include "web/RequestHead.h"

#include <gtest/gtest.h>

namespace zor {
namespace {

constexpr std::string_view host = "Host: localhost\r\n";

/// The status of the refusal, 200 for a whole head, 0 while more must come.
int verdict(const std::string& bytes) {
    const auto verdict = RequestHead::examine(bytes);
    if (verdict.refusal) return verdict.refusal->answer.status;
    return verdict.head ? 200 : 0;
}

std::string get(const std::string& headers, const std::string& target = "/") {
    return "GET " + target + " HTTP/1.1\r\n" + std::string(host) + headers + "\r\n";
}

std::string headers(int count) {
    std::string text;
    for (int each = 0; each < count; ++each) text += "X" + std::to_string(each) + ": y\r\n";
    return text;
}

TEST(RequestHeadTest, WaitsForTheWholeHead) {
    const std::string whole = get("");
    for (std::size_t size = 0; size < whole.size(); ++size) EXPECT_EQ(verdict(whole.substr(0, size)), 0) << size;
    EXPECT_EQ(verdict(whole), 200);
    EXPECT_EQ(verdict(whole + "what follows is of no interest"), 200);
}

TEST(RequestHeadTest, GivesTheTargetAsItWasSent) {
    EXPECT_EQ(RequestHead::examine(get("", "/a%20b?token=1&x")).head->target, "/a%20b?token=1&x");
}

TEST(RequestHeadTest, TakesEightKibibytesAndNotOneMore) {
    const std::string rest = get("X: \r\n");
    const auto padded = [&](std::size_t size) { return get("X: " + std::string(size - rest.size(), 'y') + "\r\n"); };
    ASSERT_EQ(padded(8192).size(), 8192U);
    EXPECT_EQ(verdict(padded(8192)), 200);
    EXPECT_EQ(verdict(padded(8193)), 431);
    EXPECT_EQ(verdict(std::string(8191, 'x')), 0);
    EXPECT_EQ(verdict(std::string(8192, 'x')), 431);
}

TEST(RequestHeadTest, TakesSixtyFourHeaders) {
    EXPECT_EQ(verdict(get(headers(63))), 200);
    EXPECT_EQ(verdict(get(headers(64))), 431);
}

TEST(RequestHeadTest, TakesNoBody) {
    EXPECT_EQ(verdict(get("Content-Length: 0\r\n")), 200);
    EXPECT_EQ(verdict(get("Content-Length: 1\r\n")), 413);
    EXPECT_EQ(verdict(get("content-LENGTH:000123456789012345678901234567890\r\n")), 413);
    EXPECT_EQ(verdict(get("Content-Length: -1\r\n")), 400);
    EXPECT_EQ(verdict(get("Content-Length: 0, 5\r\n")), 400);
    EXPECT_EQ(verdict(get("Content-Length:\r\n")), 400);
    EXPECT_EQ(verdict(get("Transfer-Encoding: chunked\r\n")), 413);
    EXPECT_EQ(verdict(get("Transfer-Encoding: identity\r\n")), 413);
    EXPECT_EQ(verdict(get("Expect: 100-continue\r\n")), 417);
}

TEST(RequestHeadTest, KnowsTwoMethods) {
    EXPECT_EQ(verdict("HEAD / HTTP/1.1\r\n\r\n"), 200);
    for (const std::string method : {"POST", "PUT", "DELETE", "OPTIONS", "TRACE", "CONNECT", "get", "GETT", "X"}) {
        const auto refusal = RequestHead::examine(method + " / HTTP/1.1\r\n\r\n").refusal;
        ASSERT_TRUE(refusal) << method;
        EXPECT_EQ(refusal->answer.status, 405);
        EXPECT_EQ(refusal->headers, (std::vector<Reply::Header>{{"Allow", "GET, HEAD"}}));
    }
}

TEST(RequestHeadTest, RefusesWhatIsNoRequest) {
    for (const std::string line :
         {"", " ", "GET", "GET /", "GET / ", "GET  / HTTP/1.1", "GET / x HTTP/1.1", "GET / HTTP/1.1 ",
          " GET / HTTP/1.1", "GET x HTTP/1.1", "GET http://localhost/ HTTP/1.1", "GET * HTTP/1.1", "G(T / HTTP/1.1",
          "GET /%00 HTTP/1.1", "GET / HTTX/1.1", "GET\t/\tHTTP/1.1", "GET /\t HTTP/1.1"}) {
        EXPECT_EQ(verdict(line + "\r\n\r\n"), 400) << line;
    }
    EXPECT_EQ(verdict("GET / HTTP/1.0\r\n\r\n"), 200);
    EXPECT_EQ(verdict("GET / HTTP/2.0\r\n\r\n"), 505);
}

TEST(RequestHeadTest, RefusesHeadersThatMayBeReadInTwoWays) {
    EXPECT_EQ(verdict(get("X: a\r\n b\r\n")), 400);
    EXPECT_EQ(verdict(get("X : a\r\n")), 400);
    EXPECT_EQ(verdict(get(": a\r\n")), 400);
    EXPECT_EQ(verdict(get("X\r\n")), 400);
    EXPECT_EQ(verdict(get("X: a\nContent-Length: 5\r\n")), 400);
    EXPECT_EQ(verdict(get("X: a\rContent-Length: 5\r\n")), 400);
    EXPECT_EQ(verdict(get(std::string("X: a\0b\r\n", 8))), 400);
    EXPECT_EQ(verdict(get("Host: other\r\n")), 400);
    EXPECT_EQ(verdict(get("X: a\tb \xc3\xa4\r\n")), 200);
}

TEST(RequestHeadTest, ARefusalForHeadSaysSo) {
    EXPECT_TRUE(RequestHead::examine("HEAD x HTTP/1.1\r\n\r\n").isHeadMethod);
    EXPECT_FALSE(RequestHead::examine("GET x HTTP/1.1\r\n\r\n").isHeadMethod);
}

TEST(ReplyTest, SaysTheSameWithAndWithoutItsBody) {
    const Reply reply{WebAnswer::text(400, "No.\n")};
    const std::string head = reply.wireText(false);
    EXPECT_TRUE(head.starts_with("HTTP/1.1 400 Bad Request\r\n"));
    EXPECT_TRUE(head.ends_with("\r\nContent-Length: 4\r\n\r\n"));
    EXPECT_EQ(reply.wireText(true), head + "No.\n");
}

}  // namespace
}  // namespace zor

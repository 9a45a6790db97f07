#include "web/WebServer.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <thread>

#include "host/foundation/MainQueue.h"
#include "tests/support/WebClient.h"

namespace zor {
namespace {

using namespace std::chrono_literals;

std::unique_ptr<WebServer> serve(WebServer::Handler handler, const WebServer::Options& options = {}) {
    auto server = WebServer::start(options, std::move(handler));
    EXPECT_TRUE(server) << server.error().message;
    return std::move(*server);
}

TEST(WebServerTest, AnAnswerThatNobodyReadsIsCut) {
    constexpr std::size_t size = 64 << 20;
    const auto body = std::make_shared<const Bytes>(size, 'x');
    std::atomic<int> asked = 0;
    WebServer::Options options;
    options.answerTime = 200ms;
    const auto handler = [&](const WebRequest& request) {
        ++asked;
        return request.path == "/small" ? WebAnswer::text(200, "As ever.") : WebAnswer{.body = body};
    };
    const auto server = serve(handler, options);
    const WebClient slow(server->port(), 1, 4096);
    slow.ask("/");
    while (asked == 0) std::this_thread::yield();
    // Ten times the limit, and the moment that the gate may take to look.
    std::this_thread::sleep_for(3s);
    const auto read = slow.read();
    EXPECT_GT(read.size(), 0U);
    EXPECT_LT(read.size(), size);
    // Others are served as ever.
    const WebClient quick(server->port());
    quick.ask("/small");
    EXPECT_TRUE(quick.read().ends_with("As ever."));
}

TEST(WebServerTest, WhereSixtyFourWaitForTheirAnswersTheNextIsToldToComeAgain) {
    std::promise<void> told;
    const auto mayAnswer = told.get_future().share();
    const auto server = serve([&](const WebRequest&) {
        mayAnswer.wait();
        return WebAnswer::text(200, "At last.");
    });
    std::vector<WebClient> waiting;
    for (int number = 0; number < 64; ++number) {
        waiting.emplace_back(server->port(), 10 + number / 32);
        waiting.back().ask("/");
    }
    const WebClient late(server->port(), 20);
    late.ask("/");
    const auto refusal = late.read();
    EXPECT_TRUE(refusal.starts_with("HTTP/1.1 503 ")) << refusal;
    EXPECT_NE(refusal.find("\r\nRetry-After: 2\r\n"), std::string::npos) << refusal;
    told.set_value();
    for (const auto& each : waiting) {
        const auto answer = each.read();
        EXPECT_TRUE(answer.starts_with("HTTP/1.1 200 ") && answer.ends_with("At last.")) << answer;
    }
}

TEST(WebServerTest, EndsWhileAnswersWaitForTheMainThreadThatEndsIt) {
    auto& queue = MainQueue::shared();
    queue.attach([] {});
    std::atomic<int> asked = 0;
    std::atomic<int> drawn = 0;
    auto server = serve([&](const WebRequest&) {
        ++asked;
        queue.sync([&] { ++drawn; });
        return WebAnswer::text(200, "");
    });
    std::vector<WebClient> clients;
    for (int number = 0; number < 16; ++number) {
        clients.emplace_back(server->port());
        clients.back().ask("/");
    }
    // All workers wait for this thread, as they do when the event loop ends.
    while (asked < 16) std::this_thread::yield();
    queue.cancel();
    server.reset();
    EXPECT_EQ(drawn, 0);
    queue.reopen();
    for (const auto& client : clients) client.read();
}

}  // namespace
}  // namespace zor

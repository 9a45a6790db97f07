// What the web server adds to the drawing of a picture: `web_bench RUNS` prints, as JSON, the milliseconds from picture
// to picture of Quad Plots, drawn in a loop and served to eight kept connections. Every picture has another value.

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QGuiApplication>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <thread>

#include "app/pages/SitePages.h"
#include "bench/PlotsDay.h"
#include "host/foundation/MainQueue.h"
#include "host/instruments/InstrumentClasses.h"
#include "qt/MainQueueRunner.h"
#include "qt/QtToolkit.h"
#include "toolbar/ZORDashboardToolbarPlugIn.h"
#include "web/WebServer.h"

using namespace zor;

namespace {

constexpr int connections = 8;
constexpr int rounds = 5;

using Clock = std::chrono::steady_clock;

double milliseconds(Clock::duration duration) {
    return std::chrono::duration<double, std::milli>(duration).count();
}

/// Asks on one connection until the count is used up.
void fetch(std::uint16_t port, const std::string& path, std::atomic<int>& left) {
    const int connection = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (connect(connection, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) std::abort();
    const std::string request = "GET " + path + " HTTP/1.1\r\nHost: localhost\r\n\r\n";
    std::string answer(1 << 20, '\0');
    while (left-- > 0) {
        if (send(connection, request.data(), request.size(), MSG_NOSIGNAL) < 0) std::abort();
        std::size_t size = 0;
        std::size_t wanted = std::string::npos;
        while (size < wanted) {
            const auto count = recv(connection, answer.data() + size, answer.size() - size, 0);
            if (count <= 0) std::abort();
            size += static_cast<std::size_t>(count);
            const std::string_view come(answer.data(), size);
            const auto end = come.find("\r\n\r\n");
            if (wanted != std::string::npos || end == std::string_view::npos) continue;
            if (!come.starts_with("HTTP/1.1 200 ")) std::abort();
            const auto length = come.find("Content-Length: ");
            wanted = end + 4 + std::strtoul(answer.data() + length + 16, nullptr, 10);
        }
    }
    close(connection);
}

}  // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("TZ", "UTC", 1);
    QGuiApplication application(argc, argv);
    Toolkit::install(std::make_unique<QtToolkit>());
    MainQueueRunner runner;
    registerInstrumentClasses();
    setClock(bench::endOfTheDay);
    const int runs = argc > 1 ? std::atoi(argv[1]) : 200;

    const auto agent = bench::agentOfThePlots();
    bench::giveDay(*agent, 1);
    const auto document = SiteDocument::create(agent, {});
    const auto controller = document->siteWindowController();
    const auto entry = ZORDashboardToolbarPlugIn::initWithAgent(agent, controller);
    const auto dashboard = entry->quadPlotsPlugIn();
    controller->addPlugIn(entry, false);
    controller->addPlugIn(dashboard, false);
    double value = 0;
    const auto change = [&] { agent->takeReading({bench::theTime, {{"outdoorTemperature", value += 0.01}}}); };

    const auto pages = std::make_shared<SitePages>(document);
    const auto server = WebServer::start({}, [&](const WebRequest& request) {
        MainQueue::shared().post(change);
        return pages->answer(request);
    });
    if (!server) return 1;
    const std::string path = "/plugins/" + entry->uniqueIdentifier() + "/" + dashboard->uniqueIdentifier() + ".png";

    double alone = 1e9;
    double served = 1e9;
    for (int round = 0; round < rounds; ++round) {
        const Value scale = 1.0;
        auto begin = Clock::now();
        for (int run = 0; run < runs; ++run) {
            change();
            dashboard->perform("pngImageWithScale:", {&scale, 1});
        }
        alone = std::min(alone, milliseconds(Clock::now() - begin) / runs);

        std::atomic<int> left = runs;
        std::atomic<int> working = connections;
        std::vector<std::thread> clients;
        begin = Clock::now();
        for (int number = 0; number < connections; ++number) {
            clients.emplace_back([&] {
                fetch((*server)->port(), path, left);
                if (--working == 0) MainQueue::shared().post([] { QCoreApplication::quit(); });
            });
        }
        application.exec();
        served = std::min(served, milliseconds(Clock::now() - begin) / runs);
        for (auto& client : clients) client.join();
    }
    std::printf("{\"alone\": %.3f, \"served\": %.3f}\n", alone, served);
}

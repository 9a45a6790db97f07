#include <charconv>
#include <cstdio>

#include "app/Commands.h"
#include "app/Runtime.h"
#include "app/SiteSession.h"
#include "app/StationStore.h"
#include "app/pages/SitePages.h"

namespace zor {

namespace {

constexpr std::uint16_t usualPort = 8087;

/// "ADDRESS:PORT", "[::1]:PORT" or "PORT".
Result<WebServer::Options> parseAddress(const std::string& text) {
    WebServer::Options options;
    const std::size_t colon = text.rfind(':');
    const std::string port = colon == std::string::npos ? text : text.substr(colon + 1);
    if (colon != std::string::npos) {
        std::string address = text.substr(0, colon);
        if (address.starts_with('[') && address.ends_with(']')) address = address.substr(1, address.size() - 2);
        // The name stands for both loopback addresses, as no address does.
        if (address != "localhost") options.addresses = {address};
    }
    const auto [end, error] = std::from_chars(port.data(), port.data() + port.size(), options.port);
    if (error != std::errc{} || end != port.data() + port.size()) {
        return Error{"--http wants ADDRESS:PORT, not " + text};
    }
    return options;
}

int run(std::span<const std::string> words) {
    static constexpr std::array<std::string_view, 1> valued{"--http"};
    const auto arguments = Arguments::parse(words, valued);
    if (!arguments) return failUsage(serveCommand, arguments.error().message);
    if (arguments->words().size() != 1) return failUsage(serveCommand, "name one SITE");
    const auto asked = arguments->option("--http");
    const auto options = parseAddress(asked.value_or("127.0.0.1:" + std::to_string(usualPort)));
    if (!options) return failUsage(serveCommand, options.error().message);

    HeadlessRuntime runtime;
    const auto session = SiteSession::open(arguments->words()[0], runtime.plugIns());
    if (!session) return fail(session.error().message);
    auto& site = **session;
    site.setTroubleObserver([&] {
        if (!site.trouble().empty()) fail(site.trouble());
    });
    if (!site.trouble().empty()) fail(site.trouble());
    site.start(openStationStore());

    const auto pages = std::make_shared<SitePages>(site.document());
    const auto handler = [pages](const WebRequest& request) { return pages->answer(request); };
    auto server = WebServer::start(*options, handler);
    // A usual port that is taken is no reason not to serve.
    if (!server && !asked) server = WebServer::start({}, handler);
    if (!server) return fail(server.error().message);
    std::printf("The dashboards of %s are at %s\n", site.agent()->name().c_str(), (*server)->url().c_str());
    std::fflush(stdout);
    return runtime.runEventLoop();
}

}  // namespace

const Command serveCommand{"serve", "serve SITE [--http ADDRESS:PORT]",
                           "Serves the dashboards to browsers on this machine, without a window.", run};

}  // namespace zor

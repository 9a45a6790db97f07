#include <charconv>
#include <cstdio>

#include "app/Commands.h"
#include "app/Runtime.h"
#include "app/SiteSession.h"
#include "app/StationSource.h"
#include "app/StationStore.h"
#include "app/WebDefaults.h"
#include "app/pages/SitePages.h"
#include "host/foundation/MainQueue.h"

namespace zor {

namespace {

/// "ADDRESS:PORT", "[::1]:PORT", "localhost:PORT" or "PORT".
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

/// The token of a site stays the same however its file is named in the call.
void keepTokenFor(const std::string& site, WebServer::Options& options) {
    options.tokenFolder = webTokenFolder();
    std::error_code error;
    const auto path = std::filesystem::weakly_canonical(site, error);
    options.site = site == "demo" || namesSource(site) || error ? site : path.string();
}

void sayWhere(const std::string& name, const WebServer& server) {
    const char* words = "The dashboards of %s are at %s\n";
    for (const auto& address : server.addresses()) {
        std::printf(words, name.c_str(), server.withToken(address).c_str());
        words = "The dashboards of %s are also at %s\n";
    }
    if (server.needsToken()) {
        std::printf("Whoever has this address sees them; its token is kept in %s\n", server.tokenFile().c_str());
    }
    std::fflush(stdout);
}

int run(std::span<const std::string> words) {
    static constexpr std::array<std::string_view, 1> valued{"--http"};
    const auto arguments = Arguments::parse(words, valued);
    if (!arguments) return failUsage(serveCommand, arguments.error().message);
    if (arguments->words().size() != 1) return failUsage(serveCommand, "name one SITE");
    const auto asked = arguments->option("--http");
    auto options = parseAddress(asked.value_or(std::to_string(usualWebPort)));
    if (!options) return failUsage(serveCommand, options.error().message);
    keepTokenFor(arguments->words()[0], *options);

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
    // From the event loop, so that whoever has read it may end the program with a signal.
    MainQueue::shared().post([&] { sayWhere(site.agent()->name(), **server); });
    return runtime.runEventLoop();
}

}  // namespace

const Command serveCommand{"serve", "serve SITE [--http ADDRESS:PORT]",
                           "Serves the dashboards to browsers, without a window: on this machine alone, or with a "
                           "token on the address of your choice.",
                           run};

}  // namespace zor

#include "web/WebServer.h"

#include <algorithm>

#include "web/Gate.h"
#include "web/HttpDaemon.h"

namespace zor {

namespace {

/// As many as may wait for a picture, and some for what takes no time.
constexpr unsigned workers = 16;

}  // namespace

struct WebServer::State {
    Listeners listeners;
    std::optional<AccessToken> token;
    std::vector<InternetAddress> served = listeners.addresses();
    std::uint16_t port = listeners.port();
    ConnectionTable connections;
    WorkerPool pool{workers};
    std::unique_ptr<HttpDaemon> daemon = {};
    std::unique_ptr<Gate> gate = {};

    State(Listeners opened, std::optional<AccessToken> kept, std::chrono::milliseconds answerTime)
        : listeners(std::move(opened)),
          token(std::move(kept)),
          connections([](int socket) { shutdown(socket, SHUT_RDWR); }, answerTime) {}

    /// Nobody comes in, then all answers are made, then all connections end.
    ~State() {
        gate.reset();
        pool.stop();
        daemon.reset();
    }
};

WebServer::WebServer(std::unique_ptr<State> state) : state_(std::move(state)) {}

WebServer::~WebServer() = default;

Result<std::unique_ptr<WebServer>> WebServer::start(const Options& options, Handler handler) {
    auto listeners = Listeners::open(options.addresses, options.port);
    if (!listeners) return listeners.error();
    const bool servesOthers = listeners->servesOthers();
    std::optional<AccessToken> token;
    if (servesOthers) {
        if (options.tokenFolder.empty()) return Error{"cannot serve to other machines: no folder keeps the token"};
        auto kept = AccessToken::keep(options.tokenFolder, options.site);
        if (!kept) return kept.error();
        token = std::move(*kept);
    }
    auto state = std::make_unique<State>(std::move(*listeners), token, options.answerTime);
    AccessRule rule({state->port, servesOthers ? HostCheck::nameOfThisMachine() : ""}, std::move(token),
                    "station-" + std::to_string(state->port));
    state->daemon = HttpDaemon::start(state->connections, state->pool, std::move(rule), std::move(handler));
    if (!state->daemon) return Error{"cannot serve: the system has no room for another server"};
    auto gate = Gate::open(
        state->listeners, state->connections,
        [daemon = state->daemon.get()](int socket, const InternetAddress& client) { daemon->add(socket, client); });
    if (!gate) return gate.error();
    state->gate = std::move(*gate);
    return std::unique_ptr<WebServer>(new WebServer(std::move(state)));
}

std::uint16_t WebServer::port() const {
    return state_->port;
}

std::vector<std::string> WebServer::addresses() const {
    std::vector<std::string> addresses;
    const auto add = [&](const InternetAddress& address) {
        const std::string text = "http://" + address.textInUrl() + ":" + std::to_string(state_->port) + "/";
        if (std::ranges::find(addresses, text) == addresses.end()) addresses.push_back(text);
    };
    for (const auto& served : state_->served) {
        if (!served.isAny()) {
            add(served);
            continue;
        }
        for (const auto& own : InternetAddress::ofThisMachine()) {
            if (own.isFour() || !served.isFour()) add(own);
        }
    }
    return addresses;
}

std::string WebServer::url() const {
    const auto all = addresses();
    return all.empty() ? std::string() : all.front();
}

bool WebServer::needsToken() const {
    return state_->token.has_value();
}

std::string WebServer::withToken(const std::string& address) const {
    return state_->token ? address + "?token=" + state_->token->text() : address;
}

std::filesystem::path WebServer::tokenFile() const {
    return state_->token ? state_->token->file() : std::filesystem::path();
}

}  // namespace zor

#include "web/WebServer.h"

#include <arpa/inet.h>
#include <microhttpd.h>
#include <netinet/in.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace zor {

namespace {

constexpr unsigned connectionLimit = 64;
constexpr unsigned connectionLimitPerAddress = 32;
constexpr unsigned secondsOfSilence = 10;
constexpr std::size_t headMemory = 8 * 1024;
constexpr unsigned workers = 4;

/// Bodies live as long as the server still sends them.
struct BodyOwner {
    std::shared_ptr<const Bytes> body;
};

bool parseAddress(const std::string& address, std::uint16_t port, sockaddr_storage& storage) {
    std::memset(&storage, 0, sizeof storage);
    if (address == "127.0.0.1") {
        auto& four = reinterpret_cast<sockaddr_in&>(storage);
        four.sin_family = AF_INET;
        four.sin_port = htons(port);
        four.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        return true;
    }
    if (address == "::1") {
        auto& six = reinterpret_cast<sockaddr_in6&>(storage);
        six.sin6_family = AF_INET6;
        six.sin6_port = htons(port);
        six.sin6_addr = in6addr_loopback;
        return true;
    }
    return false;
}

}  // namespace

struct WebServer::State {
    std::string address;
    Handler handler;
    MHD_Daemon* daemon = nullptr;
    std::uint16_t port = 0;

    /// A name that leads here from another site's page is refused, so that no page elsewhere can read ours.
    bool isOwnHost(const char* host) const {
        if (!host) return false;
        const std::string suffix = ":" + std::to_string(port);
        std::string_view name = host;
        if (name.ends_with(suffix)) name.remove_suffix(suffix.size());
        return name == "127.0.0.1" || name == "localhost" || name == "[::1]";
    }

    WebAnswer answer(MHD_Connection* connection, const char* url, std::string_view method) const {
        if (method != "GET" && method != "HEAD") return WebAnswer::text(405, "Only GET and HEAD are served here.\n");
        if (!isOwnHost(MHD_lookup_connection_value(connection, MHD_HEADER_KIND, "Host"))) {
            return WebAnswer::text(421, "This server does not answer under that name.\n");
        }
        return handler({.path = url});
    }

    static MHD_Result send(MHD_Connection* connection, const WebAnswer& answer) {
        auto owner = std::make_unique<BodyOwner>(BodyOwner{answer.body});
        const std::size_t size = answer.body ? answer.body->size() : 0;
        const auto read = [](void* context, std::uint64_t position, char* buffer, std::size_t room) -> ssize_t {
            const auto& body = *static_cast<BodyOwner*>(context)->body;
            const std::size_t count = std::min(room, body.size() - static_cast<std::size_t>(position));
            std::memcpy(buffer, body.data() + position, count);
            return static_cast<ssize_t>(count);
        };
        const auto release = [](void* context) { delete static_cast<BodyOwner*>(context); };
        MHD_Response* response =
            size == 0 ? MHD_create_response_from_buffer(0, nullptr, MHD_RESPMEM_PERSISTENT)
                      : MHD_create_response_from_callback(size, 64 * 1024, read, owner.release(), release);
        if (!response) return MHD_NO;
        if (answer.retryAfter) {
            MHD_add_response_header(response, "Retry-After", std::to_string(answer.retryAfter->count()).c_str());
        }
        MHD_add_response_header(response, "Content-Type", answer.contentType.c_str());
        MHD_add_response_header(response, "Cache-Control", "no-store");
        MHD_add_response_header(response, "X-Content-Type-Options", "nosniff");
        MHD_add_response_header(response, "Referrer-Policy", "no-referrer");
        MHD_add_response_header(response, "Cross-Origin-Resource-Policy", "same-origin");
        MHD_add_response_header(response, "Content-Security-Policy",
                                "default-src 'none'; img-src 'self'; style-src 'self'; frame-src 'self'");
        const auto result = MHD_queue_response(connection, static_cast<unsigned>(answer.status), response);
        MHD_destroy_response(response);
        return result;
    }

    static MHD_Result handle(void* context, MHD_Connection* connection, const char* url, const char* method,
                             const char*, const char*, std::size_t* bodySize, void** request) {
        // The first call only announces the request's head; a body is read to its end and dropped.
        static const char seen = 0;
        if (*request != &seen) {
            *request = const_cast<char*>(&seen);
            return MHD_YES;
        }
        if (*bodySize > 0) {
            *bodySize = 0;
            return MHD_YES;
        }
        return send(connection, static_cast<const State*>(context)->answer(connection, url, method));
    }
};

WebServer::WebServer(std::unique_ptr<State> state) : state_(std::move(state)) {}

WebServer::~WebServer() { MHD_stop_daemon(state_->daemon); }

Result<std::unique_ptr<WebServer>> WebServer::start(const Options& options, Handler handler) {
    const std::string text = options.addresses.empty() ? "127.0.0.1" : options.addresses.front();
    sockaddr_storage address;
    if (!parseAddress(text, options.port, address)) {
        return Error{"cannot serve on " + text + ": it is not an address of this machine alone"};
    }
    auto state = std::make_unique<State>();
    state->address = text;
    state->handler = std::move(handler);
    unsigned flags = MHD_USE_EPOLL_INTERNAL_THREAD;
    if (text == "::1") flags |= MHD_USE_IPv6;
    errno = 0;
    state->daemon = MHD_start_daemon(
        flags, options.port, nullptr, nullptr, &State::handle, state.get(), MHD_OPTION_SOCK_ADDR,
        reinterpret_cast<sockaddr*>(&address), MHD_OPTION_THREAD_POOL_SIZE, workers, MHD_OPTION_CONNECTION_LIMIT,
        connectionLimit, MHD_OPTION_PER_IP_CONNECTION_LIMIT, connectionLimitPerAddress, MHD_OPTION_CONNECTION_TIMEOUT,
        secondsOfSilence, MHD_OPTION_CONNECTION_MEMORY_LIMIT, headMemory, MHD_OPTION_END);
    if (!state->daemon) {
        return Error{"cannot serve on " + text + ":" + std::to_string(options.port) + ": " +
                     (errno ? std::strerror(errno) : "the server does not start")};
    }
    const auto* info = MHD_get_daemon_info(state->daemon, MHD_DAEMON_INFO_BIND_PORT);
    state->port = info ? info->port : options.port;
    return std::unique_ptr<WebServer>(new WebServer(std::move(state)));
}

std::uint16_t WebServer::port() const { return state_->port; }

std::vector<std::string> WebServer::addresses() const {
    const std::string host = state_->address == "::1" ? "[::1]" : state_->address;
    return {"http://" + host + ":" + std::to_string(state_->port) + "/"};
}

std::string WebServer::url() const { return addresses().front(); }

bool WebServer::needsToken() const { return false; }

std::string WebServer::withToken(const std::string& address) const { return address; }

std::filesystem::path WebServer::tokenFile() const { return {}; }

}  // namespace zor

#include "web/HttpDaemon.h"

#include <microhttpd.h>

#include <chrono>
#include <map>
#include <mutex>

#include "web/RequestHead.h"

namespace zor {

namespace {

using Clock = std::chrono::steady_clock;

/// The library keeps a head, what it finds in it and the head of the answer in one piece of memory.
constexpr std::size_t memoryPerConnection = 4 * RequestHead::sizeLimit;
/// The table decides who comes in; connections that the library is still closing must not count.
constexpr unsigned libraryLimit = 2 * ConnectionTable::limit;

/// One connection's request and its answer.
struct Exchange {
    InternetAddress client;
    /// Path and query as they were sent.
    std::string target = {};
    bool isAnnounced = false;
    std::optional<Reply> reply = {};
};

Exchange& exchangeOf(MHD_Connection* connection) {
    const auto* info = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_SOCKET_CONTEXT);
    return *static_cast<Exchange*>(info->socket_context);
}

int socketOf(MHD_Connection* connection) {
    return MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CONNECTION_FD)->connect_fd;
}

InternetAddress localAddress(int socket) {
    InternetAddress::Socket local;
    local.size = sizeof local.storage;
    getsockname(socket, reinterpret_cast<sockaddr*>(&local.storage), &local.size);
    return InternetAddress::of(local.get());
}

std::optional<std::string_view> value(MHD_Connection* connection, MHD_ValueKind kind, const std::string& name) {
    const char* text = nullptr;
    std::size_t size = 0;
    if (MHD_lookup_connection_value_n(connection, kind, name.data(), name.size(), &text, &size) != MHD_YES) return {};
    return text ? std::string_view(text, size) : std::string_view();
}

/// A refusal for what breaks the rules of heads. The library has taken the head apart, so the lines are put together
/// again as they were, but for the space around values.
std::optional<Reply> objectionToHead(MHD_Connection* connection, std::string_view method, std::string_view target,
                                     std::string_view version) {
    const auto* size = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_REQUEST_HEADER_SIZE);
    if (!size || size->header_size > RequestHead::sizeLimit) return RequestHead::tooLarge();
    std::string head;
    const auto add = [&](auto... parts) { (head.append(parts), ...); };
    add(method, " ", target, " ", version, "\r\n");
    const auto addLine = [](void* text, MHD_ValueKind, const char* name, std::size_t nameSize, const char* value,
                            std::size_t valueSize) {
        auto& lines = *static_cast<std::string*>(text);
        lines.append(name, nameSize).append(":").append(value ? value : "", valueSize).append("\r\n");
        return MHD_YES;
    };
    MHD_get_connection_values_n(connection, MHD_HEADER_KIND, addLine, &head);
    add("\r\n");
    return RequestHead::examine(head).refusal;
}

/// The body belongs to the response until it has been sent.
MHD_Response* makeResponse(const Reply& reply) {
    using Body = std::shared_ptr<const Bytes>;
    const Body& body = reply.answer.body;
    MHD_Response* response = nullptr;
    if (!body || body->empty()) {
        response = MHD_create_response_from_buffer(0, nullptr, MHD_RESPMEM_PERSISTENT);
    } else {
        auto owner = std::make_unique<Body>(body);
        const auto release = [](void* kept) { delete static_cast<Body*>(kept); };
        response = MHD_create_response_from_buffer_with_free_callback_cls(
            body->size(), const_cast<std::uint8_t*>(body->data()), release, owner.get());
        if (response) owner.release();
    }
    if (!response) return nullptr;
    for (const auto& [name, text] : reply.allHeaders()) MHD_add_response_header(response, name.c_str(), text.c_str());
    return response;
}

WebAnswer answerOf(const HttpDaemon::Handler& handler, const WebRequest& request, bool isEnding) {
    if (isEnding) return WebAnswer::text(503, "The server is closing.\n");
    try {
        return handler(request);
    } catch (...) {
        return WebAnswer::text(500, "This cannot be shown now.\n");
    }
}

}  // namespace

struct HttpDaemon::State {
    ConnectionTable& connections;
    WorkerPool& pool;
    AccessRule rule;
    Handler handler;
    std::mutex mutex = {};
    std::map<int, Exchange> exchanges = {};
    MHD_Daemon* daemon = nullptr;

    void forget(int socket) {
        {
            const std::lock_guard lock(mutex);
            exchanges.erase(socket);
        }
        connections.leave(socket);
    }

    std::optional<Reply> objection(MHD_Connection* connection, const Exchange& exchange) {
        AccessRule::Asked asked;
        asked.client = exchange.client;
        asked.local = localAddress(socketOf(connection));
        asked.target = exchange.target;
        asked.host = value(connection, MHD_HEADER_KIND, "Host");
        asked.authorization = value(connection, MHD_HEADER_KIND, "Authorization");
        asked.cookie = value(connection, MHD_COOKIE_KIND, rule.cookieName());
        asked.tokenInQuery = value(connection, MHD_GET_ARGUMENT_KIND, "token");
        return rule.objection(asked, Clock::now());
    }

    /// The connection rests until the pool has made the answer.
    void ask(MHD_Connection* connection, Exchange& exchange, const char* path) {
        connections.wait(socketOf(connection));
        MHD_suspend_connection(connection);
        pool.add([this, connection, &exchange, request = WebRequest{path}](bool isEnding) {
            exchange.reply = Reply{.answer = answerOf(handler, request, isEnding), .isLast = isEnding};
            MHD_resume_connection(connection);
        });
    }

    MHD_Result answer(MHD_Connection* connection, const Reply& reply) {
        connections.answer(socketOf(connection), Clock::now());
        MHD_Response* response = makeResponse(reply);
        if (!response) return MHD_NO;
        const auto result = MHD_queue_response(connection, static_cast<unsigned>(reply.answer.status), response);
        MHD_destroy_response(response);
        return result;
    }

    /// The library calls it with the line of a request, before it decodes the address.
    static void* begin(void*, const char* target, MHD_Connection* connection) {
        exchangeOf(connection).target = target;
        return nullptr;
    }

    /// The library calls it once with the head of a request, before it asks for a body, and twice more with all of it:
    /// to be answered and, where the pool makes the answer, to take that.
    static MHD_Result handle(void* context, MHD_Connection* connection, const char* path, const char* method,
                             const char* version, const char*, std::size_t*, void**) {
        auto& state = *static_cast<State*>(context);
        auto& exchange = exchangeOf(connection);
        if (!exchange.isAnnounced) {
            exchange.isAnnounced = true;
            const auto refusal = objectionToHead(connection, method, exchange.target, version);
            return refusal ? state.answer(connection, *refusal) : MHD_YES;
        }
        if (!exchange.reply) exchange.reply = state.objection(connection, exchange);
        if (exchange.reply) return state.answer(connection, *exchange.reply);
        state.ask(connection, exchange, path);
        return MHD_YES;
    }

    /// The library tells the end of each answer before it reads on or tells the end of the connection.
    static void complete(void* context, MHD_Connection* connection, void**, MHD_RequestTerminationCode) {
        auto& exchange = exchangeOf(connection);
        exchange = {exchange.client};
        static_cast<State*>(context)->connections.keep(socketOf(connection), Clock::now());
    }

    /// The library tells the end before it closes the socket.
    static void notify(void* context, MHD_Connection* connection, void** exchange,
                       MHD_ConnectionNotificationCode code) {
        auto& state = *static_cast<State*>(context);
        const int socket = socketOf(connection);
        if (code == MHD_CONNECTION_NOTIFY_CLOSED) return state.forget(socket);
        const std::lock_guard lock(state.mutex);
        *exchange = &state.exchanges.at(socket);
    }
};

HttpDaemon::HttpDaemon(std::unique_ptr<State> state) : state_(std::move(state)) {}

HttpDaemon::~HttpDaemon() {
    if (state_->daemon) MHD_stop_daemon(state_->daemon);
}

std::unique_ptr<HttpDaemon> HttpDaemon::start(ConnectionTable& connections, WorkerPool& pool, AccessRule rule,
                                              Handler handler) {
    std::unique_ptr<State> state(new State{connections, pool, std::move(rule), std::move(handler)});
    const unsigned flags =
        MHD_USE_EPOLL_INTERNAL_THREAD | MHD_USE_NO_LISTEN_SOCKET | MHD_USE_ITC | MHD_ALLOW_SUSPEND_RESUME;
    state->daemon =
        MHD_start_daemon(flags, 0, nullptr, nullptr, &State::handle, state.get(), MHD_OPTION_NOTIFY_CONNECTION,
                         &State::notify, state.get(), MHD_OPTION_URI_LOG_CALLBACK, &State::begin, state.get(),
                         MHD_OPTION_NOTIFY_COMPLETED, &State::complete, state.get(), MHD_OPTION_CONNECTION_LIMIT,
                         libraryLimit, MHD_OPTION_CONNECTION_MEMORY_LIMIT, memoryPerConnection, MHD_OPTION_END);
    if (!state->daemon) return {};
    return std::unique_ptr<HttpDaemon>(new HttpDaemon(std::move(state)));
}

void HttpDaemon::add(int socket, const InternetAddress& client) {
    {
        const std::lock_guard lock(state_->mutex);
        state_->exchanges[socket] = {client};
    }
    const auto from = client.socket(0);
    // The library closes the socket where it fails, without a word about its end.
    if (MHD_add_connection(state_->daemon, socket, from.get(), from.size) != MHD_YES) state_->forget(socket);
}

}  // namespace zor

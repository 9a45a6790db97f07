#pragma once

#include <functional>
#include <memory>
#include <string>

#include "host/station/WebRequest.h"
#include "web/AccessRule.h"
#include "web/ConnectionTable.h"
#include "web/WorkerPool.h"

namespace zor {

/// Reads the requests of each connection that it is given, one after the other, and sends the answers, through the HTTP
/// library on one thread of its own; the answers are made by the pool. Every head is held to the rules of RequestHead
/// and AccessRule; whoever breaks them is told so and has to go.
class HttpDaemon {
public:
    using Handler = std::function<WebAnswer(const WebRequest&)>;

    /// The table and the pool must outlive the daemon, and the pool must end first. Nothing where the system has no
    /// room for it.
    static std::unique_ptr<HttpDaemon> start(ConnectionTable& connections, WorkerPool& pool, AccessRule rule,
                                             Handler handler);
    /// Closes all connections.
    ~HttpDaemon();

    /// Takes over the socket, whose client has sent a whole head. Any thread.
    void add(int socket, const InternetAddress& client);

private:
    struct State;
    explicit HttpDaemon(std::unique_ptr<State> state);
    std::unique_ptr<State> state_;
};

}  // namespace zor

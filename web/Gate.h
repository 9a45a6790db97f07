#pragma once

#include <functional>
#include <map>
#include <thread>

#include "host/foundation/Result.h"
#include "web/ConnectionTable.h"
#include "web/Listeners.h"
#include "web/RequestHead.h"

namespace zor {

/// Lets connections in and holds each until the whole head of its first request is there, in time, in bounds and
/// without a body; whatever else comes is refused or cut here. One thread for all, so that slow clients cost nothing
/// but their place. It only looks at what has come: whoever takes the connection over reads it from the start.
class Gate {
public:
    /// Takes over the socket, which is in the table until whoever has it closes it; the gate's thread.
    using Pass = std::function<void(int socket, const InternetAddress& client)>;

    /// All must outlive the gate, but for the function.
    static Result<std::unique_ptr<Gate>> open(Listeners& listeners, ConnectionTable& connections, Pass pass);
    /// Closes what is still in the gate, and the listeners.
    ~Gate();
    Gate(const Gate&) = delete;
    Gate& operator=(const Gate&) = delete;

private:
    Gate(Listeners& listeners, ConnectionTable& connections, Pass pass);
    bool watch(int descriptor, std::uint32_t events);
    void run();
    int millisecondsToWait() const;
    void letIn(int listener);
    void enter(int socket, const InternetAddress& client);
    void look(int socket, bool isEnded);
    void refuse(int socket, const RequestHead::Verdict& verdict);
    void drop(int socket, std::size_t& received);
    void close(int socket);

    /// What the gate knows of a connection in it.
    struct Guest {
        InternetAddress client;
        bool isRefused = false;
        /// Bytes thrown away since the refusal.
        std::size_t received = 0;
    };

    Listeners& listeners_;
    ConnectionTable& connections_;
    Pass pass_;
    std::map<int, Guest> guests_;
    int events_ = -1;
    int end_ = -1;
    std::thread thread_;
};

}  // namespace zor

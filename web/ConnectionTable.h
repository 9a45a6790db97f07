#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <vector>

#include "web/InternetAddress.h"

namespace zor {

/// All connections, by their sockets: who may come in, who has to go and when. Any thread.
class ConnectionTable {
public:
    using Time = std::chrono::steady_clock::time_point;
    static constexpr std::size_t limit = 64;
    static constexpr std::size_t limitPerClient = 8;
    static constexpr std::size_t limitPerLoopbackClient = 32;
    /// For the whole head of the request, from the connection on.
    static constexpr std::chrono::seconds headTime{5};
    /// For the client to take a refusal.
    static constexpr std::chrono::seconds farewellTime{1};
    /// For the client to take the whole answer.
    static constexpr std::chrono::seconds answerTime{30};

    struct Room {
        bool isThere = false;
        /// Who has to go first, of those that the gate holds.
        std::optional<int> victim = {};
    };

    /// Where too many are there already, the longest unfinished head has to go, of the client itself where it has too
    /// many; where all have sent their heads there is no room.
    Room roomFor(const InternetAddress& client) const;
    /// In the gate, with an unfinished head.
    void enter(int socket, const InternetAddress& client, Time now);
    /// Still in the gate: the refusal has been sent.
    void refuse(int socket, Time now);
    /// Out of the gate, with a whole head.
    void pass(int socket, Time now);
    /// The answer is being made, which takes as long as it takes.
    void wait(int socket);
    /// The answer is on its way.
    void answer(int socket, Time now);
    /// Before the socket is closed, as its number may come again.
    void leave(int socket);

    /// Those in the gate whose time is over. Those beyond it are cut by the function, which must not close the socket.
    std::vector<int> overdue(Time now, const std::function<void(int socket)>& cut);
    /// When to ask for these next.
    std::optional<Time> nextDeadline() const;
    /// Those in the gate.
    std::vector<int> inGate() const;

private:
    struct Connection {
        InternetAddress client;
        Time since;
        std::optional<Time> deadline;
        bool isInGate = true;
    };

    void setDeadline(int socket, std::optional<Time> deadline, bool isInGate);

    mutable std::mutex mutex_;
    std::map<int, Connection> connections_;
};

}  // namespace zor

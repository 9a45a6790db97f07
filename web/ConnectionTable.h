#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

#include "web/InternetAddress.h"

namespace zor {

/// All connections, by their sockets: who may come in, who has to go and when. Any thread.
class ConnectionTable {
public:
    using Time = std::chrono::steady_clock::time_point;
    /// Ends a connection beyond the gate without closing its socket, which the library does.
    using Cut = std::function<void(int socket)>;
    static constexpr std::size_t limit = 64;
    static constexpr std::size_t limitPerClient = 8;
    static constexpr std::size_t limitPerLoopbackClient = 32;
    /// For the whole head of a request, from the connection or the end of the answer before on.
    static constexpr std::chrono::seconds headTime{5};
    /// For the client to take a refusal.
    static constexpr std::chrono::seconds farewellTime{1};
    struct Room {
        bool isThere = false;
        /// Whom the gate must close first.
        std::optional<int> victim = {};
    };

    /// `answerTime` is for the client to take a whole answer.
    explicit ConnectionTable(Cut cut, std::chrono::milliseconds answerTime = std::chrono::seconds(30))
        : cut_(std::move(cut)), answerTime_(answerTime) {}

    std::chrono::milliseconds answerTime() const { return answerTime_; }

    /// Where too many are there already, the longest unfinished head has to go, of the client itself where it has too
    /// many; where all have sent their heads there is no room. Beyond the gate it is cut at once.
    Room makeRoomFor(const InternetAddress& client);
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
    /// The answer has gone; another head may come.
    void keep(int socket, Time now);
    /// Before the socket is closed, as its number may come again.
    void leave(int socket);

    /// Those in the gate whose time is over, which it must close. Those beyond it are cut.
    std::vector<int> overdue(Time now);
    /// When to ask for these next.
    std::optional<Time> nextDeadline() const;
    /// Those in the gate.
    std::vector<int> inGate() const;

private:
    enum class Place {
        gate,
        /// With the library, between the end of an answer and that of the next head.
        kept,
        /// With the library and a whole head.
        served,
        /// As good as gone: nobody waits for it, and it takes no room.
        cut
    };

    struct Connection {
        InternetAddress client;
        /// When its head began to be waited for.
        Time since;
        std::optional<Time> deadline;
        Place place = Place::gate;

        bool isUnfinished() const { return place == Place::gate || place == Place::kept; }
    };

    void move(int socket, Place place, std::optional<Time> deadline, std::optional<Time> since = {});
    void cut(int socket, Connection& connection);

    Cut cut_;
    std::chrono::milliseconds answerTime_;
    mutable std::mutex mutex_;
    std::map<int, Connection> connections_;
};

}  // namespace zor

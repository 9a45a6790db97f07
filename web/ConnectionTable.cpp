#include "web/ConnectionTable.h"

namespace zor {

ConnectionTable::Room ConnectionTable::roomFor(const InternetAddress& client) const {
    const std::lock_guard lock(mutex_);
    const InternetAddress key = client.client();
    std::size_t own = 0;
    // The oldest unfinished heads.
    const std::pair<const int, Connection>* ofAll = nullptr;
    const std::pair<const int, Connection>* ofClient = nullptr;
    const auto note = [](const auto*& oldest, const auto& each) {
        if (each.second.isInGate && (!oldest || each.second.since < oldest->second.since)) oldest = &each;
    };
    for (const auto& each : connections_) {
        note(ofAll, each);
        if (each.second.client != key) continue;
        ++own;
        note(ofClient, each);
    }
    const bool isOwnFull = own >= (client.isLoopback() ? limitPerLoopbackClient : limitPerClient);
    if (!isOwnFull && connections_.size() < limit) return {.isThere = true};
    const auto* victim = isOwnFull ? ofClient : ofAll;
    if (!victim) return {};
    return {.isThere = true, .victim = victim->first};
}

void ConnectionTable::enter(int socket, const InternetAddress& client, Time now) {
    const std::lock_guard lock(mutex_);
    connections_[socket] = {client.client(), now, now + headTime};
}

void ConnectionTable::setDeadline(int socket, std::optional<Time> deadline, bool isInGate) {
    const std::lock_guard lock(mutex_);
    const auto found = connections_.find(socket);
    if (found == connections_.end()) return;
    found->second.deadline = deadline;
    found->second.isInGate = isInGate;
}

void ConnectionTable::refuse(int socket, Time now) {
    setDeadline(socket, now + farewellTime, true);
}

void ConnectionTable::pass(int socket, Time now) {
    setDeadline(socket, now + headTime, false);
}

void ConnectionTable::wait(int socket) {
    setDeadline(socket, {}, false);
}

void ConnectionTable::answer(int socket, Time now) {
    setDeadline(socket, now + answerTime, false);
}

void ConnectionTable::leave(int socket) {
    const std::lock_guard lock(mutex_);
    connections_.erase(socket);
}

std::vector<int> ConnectionTable::overdue(Time now, const std::function<void(int socket)>& cut) {
    const std::lock_guard lock(mutex_);
    std::vector<int> gate;
    for (auto& [socket, connection] : connections_) {
        if (!connection.deadline || *connection.deadline > now) continue;
        if (connection.isInGate) {
            gate.push_back(socket);
        } else {
            // Under the lock, so that the socket is still this connection's.
            cut(socket);
            connection.deadline.reset();
        }
    }
    return gate;
}

std::optional<ConnectionTable::Time> ConnectionTable::nextDeadline() const {
    const std::lock_guard lock(mutex_);
    std::optional<Time> next;
    for (const auto& [socket, connection] : connections_) {
        if (connection.deadline && (!next || *connection.deadline < *next)) next = connection.deadline;
    }
    return next;
}

std::vector<int> ConnectionTable::inGate() const {
    const std::lock_guard lock(mutex_);
    std::vector<int> sockets;
    for (const auto& [socket, connection] : connections_) {
        if (connection.isInGate) sockets.push_back(socket);
    }
    return sockets;
}

}  // namespace zor

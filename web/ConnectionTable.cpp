#include "web/ConnectionTable.h"

namespace zor {

ConnectionTable::Room ConnectionTable::makeRoomFor(const InternetAddress& client) {
    const std::lock_guard lock(mutex_);
    const InternetAddress key = client.client();
    std::size_t all = 0;
    std::size_t own = 0;
    // The oldest unfinished heads.
    std::pair<const int, Connection>* ofAll = nullptr;
    std::pair<const int, Connection>* ofClient = nullptr;
    const auto note = [](auto*& oldest, auto& each) {
        if (each.second.isUnfinished() && (!oldest || each.second.since < oldest->second.since)) oldest = &each;
    };
    for (auto& each : connections_) {
        if (each.second.place == Place::cut) continue;
        ++all;
        note(ofAll, each);
        if (each.second.client != key) continue;
        ++own;
        note(ofClient, each);
    }
    const bool isOwnFull = own >= (client.isLoopback() ? limitPerLoopbackClient : limitPerClient);
    if (!isOwnFull && all < limit) return {.isThere = true};
    auto* victim = isOwnFull ? ofClient : ofAll;
    if (!victim) return {};
    if (victim->second.place == Place::gate) return {.isThere = true, .victim = victim->first};
    cut(victim->first, victim->second);
    return {.isThere = true};
}

void ConnectionTable::enter(int socket, const InternetAddress& client, Time now) {
    const std::lock_guard lock(mutex_);
    connections_[socket] = {client.client(), now, now + headTime};
}

/// `since`: its head is waited for from now on.
void ConnectionTable::move(int socket, Place place, std::optional<Time> deadline, std::optional<Time> since) {
    const std::lock_guard lock(mutex_);
    const auto found = connections_.find(socket);
    if (found == connections_.end() || found->second.place == Place::cut) return;
    auto& connection = found->second;
    connection = {connection.client, since.value_or(connection.since), deadline, place};
}

/// The caller holds the lock, so that the socket is still this connection's.
void ConnectionTable::cut(int socket, Connection& connection) {
    cut_(socket);
    connection.deadline.reset();
    connection.place = Place::cut;
}

void ConnectionTable::refuse(int socket, Time now) {
    move(socket, Place::gate, now + farewellTime);
}

void ConnectionTable::pass(int socket, Time now) {
    move(socket, Place::served, now + headTime);
}

void ConnectionTable::wait(int socket) {
    move(socket, Place::served, {});
}

void ConnectionTable::answer(int socket, Time now) {
    move(socket, Place::served, now + answerTime_);
}

void ConnectionTable::keep(int socket, Time now) {
    move(socket, Place::kept, now + headTime, now);
}

void ConnectionTable::leave(int socket) {
    const std::lock_guard lock(mutex_);
    connections_.erase(socket);
}

std::vector<int> ConnectionTable::overdue(Time now) {
    const std::lock_guard lock(mutex_);
    std::vector<int> gate;
    for (auto& [socket, connection] : connections_) {
        if (!connection.deadline || *connection.deadline > now) continue;
        if (connection.place == Place::gate) {
            gate.push_back(socket);
        } else {
            cut(socket, connection);
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
        if (connection.place == Place::gate) sockets.push_back(socket);
    }
    return sockets;
}

}  // namespace zor

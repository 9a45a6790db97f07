#include "web/Gate.h"

#include <netinet/tcp.h>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <span>

namespace zor {

namespace {

using Clock = std::chrono::steady_clock;

/// What a refused client may still send before it is cut.
constexpr std::size_t farewellBytes = 64 * 1024;
/// Answers get their deadlines on other threads.
constexpr std::chrono::milliseconds longestWait{1000};
/// Between tries where the system has no descriptors left.
constexpr std::chrono::milliseconds breather{50};
/// So that heads are looked at in between.
constexpr std::size_t acceptedAtOnce = 16;

bool isListener(const Listeners& listeners, int descriptor) {
    return std::ranges::find(listeners.sockets(), descriptor) != listeners.sockets().end();
}

void setOptions(int socket, std::chrono::milliseconds answerTime) {
    const int yes = 1;
    // The last piece of an answer must not wait until the one before is acknowledged, 44 ms later.
    setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
    // The system, too, keeps what nobody takes no longer than that.
    const auto milliseconds = static_cast<unsigned>(answerTime.count());
    setsockopt(socket, IPPROTO_TCP, TCP_USER_TIMEOUT, &milliseconds, sizeof milliseconds);
}

void send(int socket, const std::string& text) {
    [[maybe_unused]] const auto sent = ::send(socket, text.data(), text.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
}

}  // namespace

Gate::Gate(Listeners& listeners, ConnectionTable& connections, Pass pass)
    : listeners_(listeners), connections_(connections), pass_(std::move(pass)) {}

Result<std::unique_ptr<Gate>> Gate::open(Listeners& listeners, ConnectionTable& connections, Pass pass) {
    std::unique_ptr<Gate> gate(new Gate(listeners, connections, std::move(pass)));
    gate->events_ = epoll_create1(EPOLL_CLOEXEC);
    gate->end_ = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    bool isWatched = gate->events_ >= 0 && gate->end_ >= 0 && gate->watch(gate->end_, EPOLLIN);
    for (const int listener : listeners.sockets()) isWatched = isWatched && gate->watch(listener, EPOLLIN);
    if (!isWatched) return Error{std::string("cannot wait for connections: ") + std::strerror(errno)};
    gate->thread_ = std::thread([raw = gate.get()] { raw->run(); });
    return gate;
}

Gate::~Gate() {
    if (thread_.joinable()) {
        eventfd_write(end_, 1);
        thread_.join();
    }
    listeners_.close();
    for (const int socket : connections_.inGate()) close(socket);
    if (end_ >= 0) ::close(end_);
    if (events_ >= 0) ::close(events_);
}

bool Gate::watch(int descriptor, std::uint32_t events) {
    epoll_event event = {};
    event.events = events;
    event.data.fd = descriptor;
    return epoll_ctl(events_, EPOLL_CTL_ADD, descriptor, &event) == 0;
}

int Gate::millisecondsToWait() const {
    const auto deadline = connections_.nextDeadline();
    const auto left = deadline ? *deadline - Clock::now() : Clock::duration(longestWait);
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(std::min<Clock::duration>(left, longestWait));
    return std::max(0, static_cast<int>(wait.count()));
}

void Gate::run() {
    std::array<epoll_event, 2 * ConnectionTable::limit> events;
    while (true) {
        const int count = epoll_wait(events_, events.data(), static_cast<int>(events.size()), millisecondsToWait());
        const auto ready = std::span(events).first(static_cast<std::size_t>(std::max(count, 0)));
        // Heads that have come first: whoever comes now may push out those that have not.
        for (const auto& event : ready) {
            if (event.data.fd == end_) return;
            if (guests_.contains(event.data.fd)) {
                look(event.data.fd, (event.events & (EPOLLRDHUP | EPOLLHUP | EPOLLERR)) != 0);
            }
        }
        for (const auto& event : ready) {
            if (isListener(listeners_, event.data.fd)) letIn(event.data.fd);
        }
        for (const int socket : connections_.overdue(Clock::now())) close(socket);
    }
}

void Gate::letIn(int listener) {
    for (std::size_t count = 0; count < acceptedAtOnce; ++count) {
        InternetAddress::Socket from;
        from.size = sizeof from.storage;
        const int socket =
            accept4(listener, reinterpret_cast<sockaddr*>(&from.storage), &from.size, SOCK_NONBLOCK | SOCK_CLOEXEC);
        if (socket >= 0) {
            enter(socket, InternetAddress::of(from.get()));
        } else if (errno != EINTR && errno != ECONNABORTED) {
            if (errno != EAGAIN) std::this_thread::sleep_for(breather);
            return;
        }
    }
}

void Gate::enter(int socket, const InternetAddress& client) {
    setOptions(socket, connections_.answerTime());
    const auto room = connections_.makeRoomFor(client);
    if (room.victim) close(*room.victim);
    if (!room.isThere) {
        send(socket, Reply{WebAnswer::busy()}.wireText(true));
        ::close(socket);
        return;
    }
    connections_.enter(socket, client, Clock::now());
    guests_[socket] = {client};
    if (!watch(socket, EPOLLIN | EPOLLRDHUP | EPOLLET)) return close(socket);
    look(socket, false);
}

/// `isEnded`: nothing more will come.
void Gate::look(int socket, bool isEnded) {
    Guest& guest = guests_[socket];
    if (guest.isRefused) return drop(socket, guest.received);
    std::array<char, RequestHead::sizeLimit> bytes;
    const auto size = recv(socket, bytes.data(), bytes.size(), MSG_PEEK | MSG_DONTWAIT);
    if (size < 0 && (errno == EAGAIN || errno == EINTR) && !isEnded) return;
    if (size <= 0) return close(socket);
    const auto verdict = RequestHead::examine({bytes.data(), static_cast<std::size_t>(size)});
    if (verdict.head) {
        const InternetAddress client = guest.client;
        epoll_ctl(events_, EPOLL_CTL_DEL, socket, nullptr);
        guests_.erase(socket);
        connections_.pass(socket, Clock::now());
        pass_(socket, client);
    } else if (verdict.refusal) {
        refuse(socket, verdict);
    } else if (isEnded) {
        close(socket);
    }
}

/// A socket that is closed with bytes unread takes back the answer, so what the client still sends is dropped for a
/// moment.
void Gate::refuse(int socket, const RequestHead::Verdict& verdict) {
    send(socket, verdict.refusal->wireText(!verdict.isHeadMethod));
    shutdown(socket, SHUT_WR);
    connections_.refuse(socket, Clock::now());
    Guest& guest = guests_[socket];
    guest.isRefused = true;
    drop(socket, guest.received);
}

void Gate::drop(int socket, std::size_t& received) {
    std::array<char, 16 * 1024> bytes;
    while (received < farewellBytes) {
        const auto size = recv(socket, bytes.data(), bytes.size(), MSG_DONTWAIT);
        if (size < 0 && errno == EAGAIN) return;
        if (size <= 0) break;
        received += static_cast<std::size_t>(size);
    }
    close(socket);
}

void Gate::close(int socket) {
    guests_.erase(socket);
    connections_.leave(socket);
    ::close(socket);
}

}  // namespace zor

#include "web/Listeners.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace zor {

namespace {

/// A free port of the first address may be taken on the next one.
constexpr int triesForFreePort = 20;

}  // namespace

Result<std::vector<Listeners::Wanted>> Listeners::wanted(const std::vector<std::string>& addresses) {
    std::vector<Wanted> wanted;
    for (const auto& text : addresses) {
        const auto address = InternetAddress::parse(text);
        if (!address) return Error{"cannot serve on " + text + ": it is not an address"};
        wanted.push_back({*address});
    }
    if (wanted.empty()) wanted = {{*InternetAddress::parse("127.0.0.1")}, {*InternetAddress::parse("::1"), true}};
    return wanted;
}

Result<Listeners> Listeners::open(const std::vector<std::string>& addresses, std::uint16_t port) {
    const auto all = wanted(addresses);
    if (!all) return all.error();
    Listeners listeners;
    InternetAddress failed;
    int error = 0;
    for (int tries = 0; tries < triesForFreePort; ++tries) {
        error = listeners.openAll(*all, port, failed);
        if (error == 0) return listeners;
        listeners.close();
        if (port != 0 || error != EADDRINUSE) break;
    }
    return Error{"cannot serve on " + failed.textInUrl() + ":" + std::to_string(port) + ": " + std::strerror(error)};
}

int Listeners::openAll(const std::vector<Wanted>& all, std::uint16_t port, InternetAddress& failed) {
    port_ = port;
    const bool hasAnyFour =
        std::ranges::any_of(all, [](const Wanted& each) { return each.address.isAny() && each.address.isFour(); });
    for (const auto& [address, isOptional] : all) {
        const int error = openOne(address, address.isAny() && !hasAnyFour);
        const bool isMissing = error == EAFNOSUPPORT || error == EADDRNOTAVAIL;
        if (error == 0) {
            addresses_.push_back(address);
        } else if (!isOptional || !isMissing) {
            failed = address;
            return error;
        }
    }
    return 0;
}

int Listeners::openOne(const InternetAddress& address, bool isDual) {
    const int family = address.isFour() ? AF_INET : AF_INET6;
    const int socket = ::socket(family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (socket < 0) return errno;
    sockets_.push_back(socket);
    const int yes = 1;
    const int sixOnly = isDual ? 0 : 1;
    // Connections of a server that has just ended still hold the address for a minute.
    setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    if (!address.isFour()) setsockopt(socket, IPPROTO_IPV6, IPV6_V6ONLY, &sixOnly, sizeof sixOnly);
    auto place = address.socket(port_);
    if (bind(socket, place.get(), place.size) != 0 || listen(socket, SOMAXCONN) != 0) {
        const int error = errno;
        ::close(socket);
        sockets_.pop_back();
        return error;
    }
    if (getsockname(socket, reinterpret_cast<sockaddr*>(&place.storage), &place.size) != 0) return errno;
    port_ = ntohs(address.isFour() ? reinterpret_cast<const sockaddr_in&>(place.storage).sin_port
                                   : reinterpret_cast<const sockaddr_in6&>(place.storage).sin6_port);
    return 0;
}

bool Listeners::servesOthers() const {
    return !std::ranges::all_of(addresses_, [](const auto& address) { return address.isLoopback(); });
}

void Listeners::close() {
    for (const int socket : sockets_) ::close(socket);
    sockets_.clear();
    addresses_.clear();
}

}  // namespace zor

#pragma once

#include <netinet/in.h>
#include <sys/socket.h>

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zor {

/// An address of IPv4 or IPv6, without a port. An IPv4 address inside of IPv6 is the IPv4 address.
class InternetAddress {
public:
    /// As sockets want it.
    struct Socket {
        sockaddr_storage storage = {};
        socklen_t size = 0;
        const sockaddr* get() const { return reinterpret_cast<const sockaddr*>(&storage); }
    };

    InternetAddress() = default;
    /// "127.0.0.1", "::1"; nothing for names and anything else.
    static std::optional<InternetAddress> parse(const std::string& text);
    /// The unspecified address for other families.
    static InternetAddress of(const sockaddr* address);
    /// The addresses that the machine's running interfaces have now, the loopback interface's last. Those that only
    /// work together with an interface's name are left out.
    static std::vector<InternetAddress> ofThisMachine();

    bool isFour() const { return isFour_; }
    bool isLoopback() const;
    /// 0.0.0.0 or ::, all addresses of a machine where one is served.
    bool isAny() const;
    std::string text() const;
    /// "127.0.0.1", "[::1]".
    std::string textInUrl() const { return isFour_ ? text() : "[" + text() + "]"; }
    Socket socket(std::uint16_t port) const;
    /// What one client can be held to: the address, and of IPv6, where a client has millions, the network.
    InternetAddress client() const;

    auto operator<=>(const InternetAddress&) const = default;

private:
    bool isFour_ = true;
    /// In network order; IPv4 in the first four.
    std::array<std::uint8_t, 16> bytes_ = {};
};

}  // namespace zor

#include "web/InternetAddress.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>

#include <algorithm>
#include <cstring>

namespace zor {

std::optional<InternetAddress> InternetAddress::parse(const std::string& text) {
    sockaddr_in four = {};
    four.sin_family = AF_INET;
    if (inet_pton(AF_INET, text.c_str(), &four.sin_addr) == 1) return of(reinterpret_cast<const sockaddr*>(&four));
    sockaddr_in6 six = {};
    six.sin6_family = AF_INET6;
    if (inet_pton(AF_INET6, text.c_str(), &six.sin6_addr) == 1) return of(reinterpret_cast<const sockaddr*>(&six));
    return {};
}

InternetAddress InternetAddress::of(const sockaddr* address) {
    InternetAddress result;
    if (address->sa_family == AF_INET) {
        std::memcpy(result.bytes_.data(), &reinterpret_cast<const sockaddr_in*>(address)->sin_addr, 4);
    } else if (address->sa_family == AF_INET6) {
        const in6_addr& six = reinterpret_cast<const sockaddr_in6*>(address)->sin6_addr;
        result.isFour_ = IN6_IS_ADDR_V4MAPPED(&six);
        if (result.isFour_) {
            std::memcpy(result.bytes_.data(), six.s6_addr + 12, 4);
        } else {
            std::memcpy(result.bytes_.data(), six.s6_addr, 16);
        }
    }
    return result;
}

std::vector<InternetAddress> InternetAddress::ofThisMachine() {
    std::vector<InternetAddress> found;
    ifaddrs* first = nullptr;
    if (getifaddrs(&first) != 0) return found;
    for (const ifaddrs* each = first; each; each = each->ifa_next) {
        if (!each->ifa_addr || !(each->ifa_flags & IFF_UP)) continue;
        const int family = each->ifa_addr->sa_family;
        if (family != AF_INET && family != AF_INET6) continue;
        const InternetAddress address = of(each->ifa_addr);
        const bool isLinkLocal = !address.isFour_ && address.bytes_[0] == 0xfe && (address.bytes_[1] & 0xc0) == 0x80;
        if (!isLinkLocal) found.push_back(address);
    }
    freeifaddrs(first);
    std::ranges::stable_partition(found, [](const auto& address) { return !address.isLoopback(); });
    return found;
}

bool InternetAddress::isLoopback() const {
    if (isFour_) return bytes_[0] == 127;
    return std::ranges::all_of(bytes_.begin(), bytes_.end() - 1, [](auto byte) { return byte == 0; }) &&
           bytes_.back() == 1;
}

bool InternetAddress::isAny() const {
    return std::ranges::all_of(bytes_, [](auto byte) { return byte == 0; });
}

std::string InternetAddress::text() const {
    char text[INET6_ADDRSTRLEN] = "";
    inet_ntop(isFour_ ? AF_INET : AF_INET6, bytes_.data(), text, sizeof text);
    return text;
}

InternetAddress::Socket InternetAddress::socket(std::uint16_t port) const {
    Socket result;
    if (isFour_) {
        auto& four = reinterpret_cast<sockaddr_in&>(result.storage);
        four.sin_family = AF_INET;
        four.sin_port = htons(port);
        std::memcpy(&four.sin_addr, bytes_.data(), 4);
        result.size = sizeof four;
    } else {
        auto& six = reinterpret_cast<sockaddr_in6&>(result.storage);
        six.sin6_family = AF_INET6;
        six.sin6_port = htons(port);
        std::memcpy(&six.sin6_addr, bytes_.data(), 16);
        result.size = sizeof six;
    }
    return result;
}

InternetAddress InternetAddress::client() const {
    if (isFour_ || isLoopback()) return *this;
    InternetAddress network = *this;
    std::fill(network.bytes_.begin() + 8, network.bytes_.end(), std::uint8_t{0});
    return network;
}

}  // namespace zor

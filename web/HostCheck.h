#pragma once

#include <string>
#include <string_view>

#include "web/InternetAddress.h"

namespace zor {

/// The names under which the server answers. A page of another site that leads its own name here is refused, so that it
/// cannot read ours.
class HostCheck {
public:
    /// `machineName` is empty where this machine alone is served.
    HostCheck(std::uint16_t port, std::string machineName) : port_(port), machineName_(std::move(machineName)) {}
    static std::string nameOfThisMachine();

    /// Of the Host header ("127.0.0.1:8087", "[::1]", "localhost") and the address at which the client came in. A
    /// host without a port is good on every port.
    bool isServed(std::string_view host, const InternetAddress& local) const;

private:
    std::uint16_t port_;
    std::string machineName_;
};

}  // namespace zor

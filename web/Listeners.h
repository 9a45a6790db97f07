#pragma once

#include <string>
#include <vector>

#include "host/foundation/Result.h"
#include "web/InternetAddress.h"

namespace zor {

/// The sockets that wait for connections, one for each address, all on one port.
class Listeners {
public:
    /// The addresses as WebServer::Options has them. The error names the address and says why.
    static Result<Listeners> open(const std::vector<std::string>& addresses, std::uint16_t port);
    Listeners(Listeners&&) noexcept = default;
    Listeners& operator=(Listeners&&) = delete;
    ~Listeners() { close(); }

    const std::vector<int>& sockets() const { return sockets_; }
    std::uint16_t port() const { return port_; }
    const std::vector<InternetAddress>& addresses() const { return addresses_; }
    bool servesOthers() const;
    /// Nobody is let in any more.
    void close();

private:
    /// An address that the machine need not have, as ::1 of this machine alone.
    struct Wanted {
        InternetAddress address;
        bool isOptional = false;
    };

    Listeners() = default;
    static Result<std::vector<Wanted>> wanted(const std::vector<std::string>& addresses);
    /// An error number, or 0.
    int openAll(const std::vector<Wanted>& wanted, std::uint16_t port, InternetAddress& failed);
    int openOne(const InternetAddress& address, bool isDual);

    std::vector<int> sockets_;
    std::vector<InternetAddress> addresses_;
    std::uint16_t port_ = 0;
};

}  // namespace zor

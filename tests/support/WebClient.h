#pragma once

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace zor {

/// A bare connection to a port of this machine.
class WebClient {
public:
    /// `number` is the end of its own address; `room` is how many bytes of an answer the system takes for it, where it
    /// matters.
    explicit WebClient(std::uint16_t port, int number = 1, int room = 0) {
        if (room > 0) setsockopt(socket_, SOL_SOCKET, SO_RCVBUF, &room, sizeof room);
        const timeval limit = {.tv_sec = 30, .tv_usec = 0};
        setsockopt(socket_, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
        const auto own = address(number, 0);
        const auto server = address(1, port);
        EXPECT_EQ(bind(socket_, reinterpret_cast<const sockaddr*>(&own), sizeof own), 0);
        EXPECT_EQ(connect(socket_, reinterpret_cast<const sockaddr*>(&server), sizeof server), 0);
    }
    WebClient(WebClient&& other) noexcept : socket_(std::exchange(other.socket_, -1)) {}
    WebClient& operator=(WebClient&&) = delete;
    ~WebClient() {
        if (socket_ >= 0) close(socket_);
    }

    void ask(const std::string& path) const {
        const std::string head = "GET " + path + " HTTP/1.1\r\nHost: localhost\r\nConnection: close\r\n\r\n";
        EXPECT_EQ(send(socket_, head.data(), head.size(), MSG_NOSIGNAL), static_cast<ssize_t>(head.size()));
    }

    /// All that comes until the other side ends.
    std::string read() const {
        std::string all;
        std::vector<char> piece(1 << 16);
        for (ssize_t size = 0; (size = recv(socket_, piece.data(), piece.size(), 0)) > 0;) {
            all.append(piece.data(), static_cast<std::size_t>(size));
        }
        return all;
    }

private:
    static sockaddr_in address(int number, std::uint16_t port) {
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK - 1 + static_cast<std::uint32_t>(number));
        return address;
    }

    int socket_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
};

}  // namespace zor

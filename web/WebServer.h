#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "host/foundation/Result.h"
#include "host/foundation/Value.h"
#include "host/station/WebRequest.h"

namespace zor {

struct WebAnswer {
    int status = 200;
    std::string contentType = "text/plain; charset=utf-8";
    std::shared_ptr<const Bytes> body;

    static WebAnswer text(int status, std::string_view text);
    static WebAnswer html(std::string_view text);
};

/// A small HTTP server for pages and pictures of the machine itself: GET and HEAD only, no request bodies, nothing kept.
class WebServer {
public:
    /// Called on worker threads, several at once.
    using Handler = std::function<WebAnswer(const WebRequest&)>;

    struct Options {
        /// A loopback address: "127.0.0.1" or "::1".
        std::string address = "127.0.0.1";
        /// 0 takes any free port.
        std::uint16_t port = 0;
    };

    /// Serves until the object is destroyed. The error names the address and why it cannot be served.
    static Result<std::unique_ptr<WebServer>> start(const Options& options, Handler handler);
    ~WebServer();

    /// "http://127.0.0.1:8080/".
    std::string url() const;
    std::uint16_t port() const;

private:
    struct State;
    explicit WebServer(std::unique_ptr<State> state);
    std::unique_ptr<State> state_;
};

}  // namespace zor

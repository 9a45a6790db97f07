#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/foundation/Result.h"
#include "host/station/WebRequest.h"
#include "web/WebAnswer.h"

namespace zor {

/// A small HTTP server for pages and pictures: GET and HEAD only, no request bodies, nothing kept. Served to this
/// machine alone it is open to all its users; served to other machines it asks everybody for a token.
class WebServer {
public:
    /// Called on worker threads, several at once; it may wait for the main thread.
    using Handler = std::function<WebAnswer(const WebRequest&)>;

    struct Options {
        /// "192.168.1.5", "::1", "0.0.0.0" (all of IPv4), "::" (all of both). None: this machine alone, that is
        /// 127.0.0.1 and, where the machine has it, ::1 on the same port.
        std::vector<std::string> addresses;
        /// 0 takes any free port, the same for all addresses.
        std::uint16_t port = 0;
        /// Where the tokens are kept, and whose token is asked for: any text that names the site and stays the same, as
        /// the path of its document does. Both are needed as soon as an address is not a loopback address.
        std::filesystem::path tokenFolder;
        std::string site;
        /// How long a client may take to read a whole answer.
        std::chrono::milliseconds answerTime = std::chrono::seconds(30);
    };

    /// Serves until the object is destroyed. The error names the address and why it cannot be served, or the token's
    /// file and why it cannot be kept.
    static Result<std::unique_ptr<WebServer>> start(const Options& options, Handler handler);
    /// Ends all connections and waits for the handlers that run; on the main thread it runs the main queue meanwhile,
    /// so that those which wait for that thread come to their end.
    ~WebServer();

    std::uint16_t port() const;
    /// What a person can open, the likeliest first: "http://192.168.1.5:8087/", "http://[::1]:8087/". Where all
    /// addresses are served these are the ones that the machine has now.
    std::vector<std::string> addresses() const;
    /// The first of them.
    std::string url() const;

    /// Whether other machines are served, so that every request must show the token.
    bool needsToken() const;
    /// The address with the token in it, for copying: it opens the pages once and leaves a cookie. Without need of a
    /// token the address itself.
    std::string withToken(const std::string& address) const;
    /// The file that holds the token; removed while nothing is served, it is made anew with another token.
    std::filesystem::path tokenFile() const;

private:
    struct State;
    explicit WebServer(std::unique_ptr<State> state);
    std::unique_ptr<State> state_;
};

}  // namespace zor

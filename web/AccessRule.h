#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "web/AccessToken.h"
#include "web/FailureCounter.h"
#include "web/HostCheck.h"
#include "web/Reply.h"

namespace zor {

/// Who may see the pages: whoever asks under a name of ours and, where there is a token, shows it. One thread at a
/// time.
class AccessRule {
public:
    /// What a request shows of itself. Views of what the request does not have are absent.
    struct Asked {
        InternetAddress client;
        /// The address at which the client came in.
        InternetAddress local;
        /// Path and query as they were sent.
        std::string_view target;
        std::optional<std::string_view> host;
        std::optional<std::string_view> authorization;
        std::optional<std::string_view> cookie;
        std::optional<std::string_view> tokenInQuery;
    };

    AccessRule(HostCheck hosts, std::optional<AccessToken> token, std::string cookieName)
        : hosts_(std::move(hosts)), token_(std::move(token)), cookieName_(std::move(cookieName)) {}

    /// Cookies are the same for all ports of a machine, so the name has the port in it.
    const std::string& cookieName() const { return cookieName_; }
    /// 421 under a foreign name; 401 without the token, 429 after too many of these; 303 to the address without the
    /// token for whoever shows it there, with a cookie to show from then on. Nothing where the request may go on.
    std::optional<Reply> objection(const Asked& asked, FailureCounter::Time now);

private:
    bool showsToken(const Asked& asked) const;
    Reply welcome(std::string_view target) const;

    HostCheck hosts_;
    std::optional<AccessToken> token_;
    std::string cookieName_;
    FailureCounter failures_;
};

/// "/a?x=1&token=T&y=2" without the token: "/a?x=1&y=2". Always a path of this server, never another one's address.
std::string targetWithoutToken(std::string_view target);

}  // namespace zor

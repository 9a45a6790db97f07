#include "web/AccessRule.h"

#include <microhttpd.h>
#include <strings.h>

#include <algorithm>

namespace zor {

namespace {

constexpr std::string_view bearer = "Bearer ";

/// The credential after "Bearer ", whose case does not matter; empty for other schemes.
std::string_view bearerToken(std::string_view authorization) {
    if (authorization.size() < bearer.size() || strncasecmp(authorization.data(), bearer.data(), bearer.size()) != 0) {
        return {};
    }
    return authorization.substr(bearer.size());
}

/// Whether the server takes a parameter of the query for the token, which may be written with escapes.
bool isToken(std::string_view parameter) {
    std::string name(parameter.substr(0, parameter.find('=')));
    name.resize(MHD_http_unescape(name.data()));
    return name == "token";
}

}  // namespace

std::string targetWithoutToken(std::string_view target) {
    const auto question = target.find('?');
    std::string_view path = target.substr(0, question);
    // A browser takes "//name" and "/\name" for another server.
    path.remove_prefix(std::min(path.find_first_not_of("/\\"), path.size()));
    std::string result = "/" + std::string(path);
    if (question == std::string_view::npos) return result;
    char separator = '?';
    for (auto query = target.substr(question + 1); !query.empty();) {
        const auto end = query.find('&');
        const auto each = query.substr(0, end);
        if (!each.empty() && !isToken(each)) {
            result += separator + std::string(each);
            separator = '&';
        }
        query.remove_prefix(end == std::string_view::npos ? query.size() : end + 1);
    }
    return result;
}

bool AccessRule::showsToken(const Asked& asked) const {
    if (asked.tokenInQuery) return token_->matches(*asked.tokenInQuery);
    if (asked.authorization) return token_->matches(bearerToken(*asked.authorization));
    return asked.cookie && token_->matches(*asked.cookie);
}

Reply AccessRule::welcome(std::string_view target) const {
    return {WebAnswer::text(303, "The page is at its address without the token.\n"),
            {{"Location", targetWithoutToken(target)},
             {"Set-Cookie", cookieName_ + "=" + token_->text() + "; HttpOnly; SameSite=Strict; Path=/"}}};
}

std::optional<Reply> AccessRule::objection(const Asked& asked, FailureCounter::Time now) {
    if (!asked.host || !hosts_.isServed(*asked.host, asked.local)) {
        return Reply{WebAnswer::text(421, "This server does not answer under that name.\n")};
    }
    if (!token_) return {};
    const auto client = asked.client.client();
    if (const auto wait = failures_.shutOut(client, now)) {
        Reply reply{WebAnswer::text(429, "Too many requests without the right token; wait a minute.\n")};
        reply.answer.retryAfter = wait;
        return reply;
    }
    if (!showsToken(asked)) {
        failures_.count(client, now);
        return Reply{WebAnswer::text(401, "Open the address that the station shows, with its token, once.\n"),
                     {{"WWW-Authenticate", "Bearer"}}};
    }
    if (asked.tokenInQuery) return welcome(asked.target);
    return {};
}

}  // namespace zor

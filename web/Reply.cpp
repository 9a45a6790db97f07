#include "web/Reply.h"

namespace zor {

namespace {

std::string_view reasonPhrase(int status) {
    switch (status) {
        case 400:
            return "Bad Request";
        case 405:
            return "Method Not Allowed";
        case 413:
            return "Content Too Large";
        case 417:
            return "Expectation Failed";
        case 431:
            return "Request Header Fields Too Large";
        case 503:
            return "Service Unavailable";
        case 505:
            return "HTTP Version Not Supported";
        default:
            return "";
    }
}

/// A browser that shows a bare picture styles the page that it makes around it.
std::string securityPolicy(std::string_view contentType) {
    const std::string styles = contentType.starts_with("image/") ? "'unsafe-inline'" : "'self'";
    return "default-src 'none'; img-src 'self'; style-src " + styles +
           "; frame-src 'self'; frame-ancestors 'self'; base-uri 'none'; form-action 'none'";
}

}  // namespace

Reply Reply::methodNotAllowed() {
    return {WebAnswer::text(405, "Only GET and HEAD are served here.\n"), {{"Allow", "GET, HEAD"}}};
}

std::vector<Reply::Header> Reply::allHeaders() const {
    std::vector<Header> all = headers;
    all.emplace_back("Content-Type", answer.contentType);
    if (answer.retryAfter) all.emplace_back("Retry-After", std::to_string(answer.retryAfter->count()));
    all.emplace_back("Content-Security-Policy", securityPolicy(answer.contentType));
    all.emplace_back("X-Content-Type-Options", "nosniff");
    all.emplace_back("Referrer-Policy", "no-referrer");
    all.emplace_back("Cache-Control", "no-store");
    all.emplace_back("Cross-Origin-Resource-Policy", "same-origin");
    if (isLast) all.emplace_back("Connection", "close");
    return all;
}

std::string Reply::wireText(bool withBody) const {
    std::string text = "HTTP/1.1 " + std::to_string(answer.status) + " " + std::string(reasonPhrase(answer.status));
    for (const auto& [name, value] : allHeaders()) text += "\r\n" + name + ": " + value;
    text += "\r\nContent-Length: " + std::to_string(answer.body ? answer.body->size() : 0) + "\r\n\r\n";
    if (withBody && answer.body) text.append(answer.body->begin(), answer.body->end());
    return text;
}

}  // namespace zor

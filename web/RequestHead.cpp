#include "web/RequestHead.h"

#include <algorithm>
#include <array>

namespace zor {

namespace {

Reply malformed() {
    return {WebAnswer::text(400, "This is not a request.\n")};
}
/// The library would ask for the body that must not come.
Reply expectationFailed() {
    return {WebAnswer::text(417, "Requests end with their head here.\n")};
}
Reply bodyRefused() {
    return {WebAnswer::text(413, "Requests with a body are not served here.\n")};
}

bool isTokenCharacter(char character) {
    const bool isAlphanumeric = (character >= '0' && character <= '9') || (character >= 'a' && character <= 'z') ||
                                (character >= 'A' && character <= 'Z');
    return isAlphanumeric || std::string_view("!#$%&'*+-.^_`|~").find(character) != std::string_view::npos;
}

bool isToken(std::string_view text) {
    return !text.empty() && std::ranges::all_of(text, isTokenCharacter);
}

bool isControl(char character) {
    const auto byte = static_cast<unsigned char>(character);
    return (byte < 0x20 && byte != '\t') || byte == 0x7f;
}

bool equalsIgnoringCase(std::string_view one, std::string_view lower) {
    return std::ranges::equal(one, lower, [](char left, char right) {
        return (left >= 'A' && left <= 'Z' ? static_cast<char>(left - 'A' + 'a') : left) == right;
    });
}

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

/// Takes the line off the front of the text; lines end in CR LF.
std::string_view takeLine(std::string_view& text) {
    const auto end = text.find("\r\n");
    const auto line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 2);
    return line;
}

/// The three parts of "GET / HTTP/1.1", empty ones where there are not exactly three.
std::array<std::string_view, 3> requestLineParts(std::string_view line) {
    const auto first = line.find(' ');
    const auto last = line.rfind(' ');
    if (first == std::string_view::npos || first == last) return {};
    const auto target = line.substr(first + 1, last - first - 1);
    if (target.find(' ') != std::string_view::npos) return {};
    return {line.substr(0, first), target, line.substr(last + 1)};
}

/// Nothing where the line is fine.
std::optional<Reply> objectionToRequestLine(std::string_view line, RequestHead& head) {
    const auto [method, target, version] = requestLineParts(line);
    if (!isToken(method) || line.find('\t') != std::string_view::npos || !version.starts_with("HTTP/"))
        return malformed();
    if (version != "HTTP/1.1" && version != "HTTP/1.0") {
        return Reply{WebAnswer::text(505, "Only HTTP/1.1 is served here.\n")};
    }
    if (method != "GET" && method != "HEAD") return Reply::methodNotAllowed();
    head.target = target;
    const auto path = target.substr(0, target.find('?'));
    // A zero byte would end the path early.
    if (!target.starts_with('/') || path.find("%00") != std::string_view::npos) return malformed();
    return {};
}

std::optional<Reply> objectionToHeaders(std::string_view lines) {
    std::size_t count = 0;
    std::size_t hosts = 0;
    while (!lines.empty()) {
        const auto line = takeLine(lines);
        const auto colon = line.find(':');
        if (colon == std::string_view::npos || !isToken(line.substr(0, colon))) return malformed();
        if (++count > RequestHead::headerLimit) return RequestHead::tooLarge();
        const auto name = line.substr(0, colon);
        const auto value = trimmed(line.substr(colon + 1));
        if (equalsIgnoringCase(name, "host") && ++hosts > 1) return malformed();
        if (equalsIgnoringCase(name, "transfer-encoding")) return bodyRefused();
        if (equalsIgnoringCase(name, "expect")) return expectationFailed();
        if (equalsIgnoringCase(name, "content-length")) {
            if (value.empty() || value.find_first_not_of("0123456789") != std::string_view::npos) return malformed();
            if (value.find_first_not_of('0') != std::string_view::npos) return bodyRefused();
        }
    }
    return {};
}

}  // namespace

Reply RequestHead::tooLarge() {
    return {WebAnswer::text(431, "The head of the request is too large.\n")};
}

RequestHead::Verdict RequestHead::examine(std::string_view bytes) {
    Verdict verdict;
    const auto end = bytes.substr(0, sizeLimit).find("\r\n\r\n");
    if (end == std::string_view::npos) {
        if (bytes.size() >= sizeLimit) verdict.refusal = tooLarge();
        return verdict;
    }
    auto lines = bytes.substr(0, end + 2);
    RequestHead head;
    verdict.isHeadMethod = lines.starts_with("HEAD ");
    verdict.refusal = objectionToRequestLine(takeLine(lines), head);
    if (!verdict.refusal) verdict.refusal = objectionToHeaders(lines);
    // After the kinder answers: whatever is left is no text at all.
    const auto text = bytes.substr(0, end);
    for (std::size_t at = 0; at < text.size() && !verdict.refusal; ++at) {
        if (text[at] == '\r' && text.substr(at + 1).starts_with('\n')) {
            ++at;
        } else if (isControl(text[at])) {
            verdict.refusal = malformed();
        }
    }
    if (!verdict.refusal) verdict.head = std::move(head);
    return verdict;
}

}  // namespace zor

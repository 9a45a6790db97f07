#include "web/WebAnswer.h"

namespace zor {

WebAnswer WebAnswer::text(int status, std::string_view text) {
    return {.status = status, .body = std::make_shared<const Bytes>(text.begin(), text.end())};
}

WebAnswer WebAnswer::html(std::string_view text) {
    return {.contentType = "text/html; charset=utf-8", .body = std::make_shared<const Bytes>(text.begin(), text.end())};
}

WebAnswer WebAnswer::busy() {
    WebAnswer answer = text(503, "Too many ask at the same time.\n");
    answer.retryAfter = std::chrono::seconds(2);
    return answer;
}

}  // namespace zor

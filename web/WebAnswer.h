#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "host/foundation/Value.h"

namespace zor {

struct WebAnswer {
    int status = 200;
    std::string contentType = "text/plain; charset=utf-8";
    std::shared_ptr<const Bytes> body = nullptr;
    /// When it may be worth asking again.
    std::optional<std::chrono::seconds> retryAfter = std::nullopt;

    static WebAnswer text(int status, std::string_view text);
    static WebAnswer html(std::string_view text);
    /// 503: too many wait already; ask again in a moment.
    static WebAnswer busy();
};

}  // namespace zor

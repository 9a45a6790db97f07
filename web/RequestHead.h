#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "web/Reply.h"

namespace zor {

/// What is known of a request before anything is done about it. Strict, so that whoever reads the head again cannot
/// take it for something else: no bare line ends, no folded lines, no body.
struct RequestHead {
    /// Bytes, with the empty line at the end.
    static constexpr std::size_t sizeLimit = 8 * 1024;
    static constexpr std::size_t headerLimit = 64;

    struct Verdict;

    /// Path and query as they were sent.
    std::string target;

    /// Of the bytes that have come so far, of which more than the limit are of no use.
    static Verdict examine(std::string_view bytes);
    /// The refusal of a head beyond the limits.
    static Reply tooLarge();
};

/// Neither a head nor a refusal: more must come.
struct RequestHead::Verdict {
    std::optional<RequestHead> head;
    std::optional<Reply> refusal;
    /// Whether the refusal must go without its body.
    bool isHeadMethod = false;
};

}  // namespace zor

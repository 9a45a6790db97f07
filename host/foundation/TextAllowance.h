#pragma once

#include <cstddef>

namespace zor {

/// How much text may be copied out of a file. A value holds its own copy of a text that the file stores once, so a
/// small hostile file could otherwise ask for any amount of memory; no honest one comes near the limit.
class TextAllowance {
public:
    explicit TextAllowance(std::size_t fileSize) : left_((std::size_t{64} << 20) + 16 * fileSize) {}

    /// Whether that many more bytes are within the allowance.
    bool take(std::size_t bytes) {
        if (bytes > left_) return false;
        left_ -= bytes;
        return true;
    }

private:
    std::size_t left_;
};

}  // namespace zor

#pragma once

#include <cstddef>

namespace zor {

/// How much may be made of a file. Many values may name a text or a container that the file stores once, so a small
/// hostile file could otherwise ask for any amount of memory or time; no honest one comes near the limits.
class Allowance {
public:
    /// Bytes of text that are copied, or read as numbers: a value holds its own copy of a text.
    static Allowance ofText(std::size_t fileSize) { return Allowance((std::size_t{64} << 20) + 16 * fileSize); }
    /// Bytes of the containers that objects are given: each looks through all that it holds, and may copy it.
    static Allowance ofContainers(std::size_t fileSize) { return Allowance((std::size_t{16} << 20) + 16 * fileSize); }

    /// Whether that many more bytes are within the allowance.
    bool take(std::size_t bytes) {
        if (bytes > left_) return false;
        left_ -= bytes;
        return true;
    }

private:
    explicit Allowance(std::size_t bytes) : left_(bytes) {}

    std::size_t left_;
};

}  // namespace zor

#pragma once

namespace zor::test {

/// Whether a sanitizer watches this program, which makes it slower and larger than what is promised of it.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr bool isSanitized = true;
#else
inline constexpr bool isSanitized = false;
#endif

}  // namespace zor::test

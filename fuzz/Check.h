#pragma once

#include <cstdio>
#include <cstdlib>

namespace zor::fuzz {

/// Ends the run where the rule is broken; libFuzzer keeps the input.
inline void check(bool holds, const char* rule) {
    if (holds) return;
    std::fprintf(stderr, "broken: %s\n", rule);
    std::abort();
}

}  // namespace zor::fuzz

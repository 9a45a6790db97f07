#pragma once
// Times of single runs, and a table of them. Absolute times mean little on a shared machine: compare within one run.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace zor::bench {

/// The median of `runs` runs, in milliseconds; `prepare` is not counted.
inline double medianMilliseconds(int runs, const std::function<void()>& work,
                                 const std::function<void()>& prepare = {}) {
    std::vector<double> times;
    for (int run = 0; run < runs; ++run) {
        if (prepare) prepare();
        const auto begin = std::chrono::steady_clock::now();
        work();
        times.push_back(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count());
    }
    std::ranges::nth_element(times, times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2));
    return times[times.size() / 2];
}

inline void printHeading(const char* what, const char* first, const char* second) {
    std::printf("\n%s\n%-34s %12s %12s %9s\n", what, "", first, second, "ratio");
}

/// A row of the table; `peer` 0 where there is nothing to compare with.
inline void printRow(const std::string& name, double own, double peer = 0) {
    if (peer > 0) {
        std::printf("%-34s %12.3f %12.3f %9.2f\n", name.c_str(), own, peer, peer / own);
    } else {
        std::printf("%-34s %12.3f\n", name.c_str(), own);
    }
}

}  // namespace zor::bench

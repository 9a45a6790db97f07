#pragma once
// Times, memory, and a table of both. Absolute times mean little on a shared machine: compare within one run.

#include <gperftools/malloc_extension_c.h>
#include <sys/resource.h>
#include <time.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace zor::bench {

/// What is timed; `prepare` runs before each run of `work` and is not counted.
struct Task {
    std::function<void()> work;
    std::function<void()> prepare = {};
};

/// Milliseconds of processor time that this thread has used: waiting for others does not count.
inline double threadMilliseconds() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// The median of `runs` runs, in milliseconds of processor time.
inline double medianMilliseconds(int runs, const Task& task) {
    std::vector<double> times;
    for (int run = 0; run < runs; ++run) {
        if (task.prepare) task.prepare();
        const double begin = threadMilliseconds();
        task.work();
        times.push_back(threadMilliseconds() - begin);
    }
    std::ranges::nth_element(times, times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2));
    return times[times.size() / 2];
}

/// The best of several medians of each task, taken in turns, so that what else the machine does meets all alike.
inline std::vector<double> bestMedians(int runs, const std::vector<Task>& tasks) {
    constexpr int rounds = 5;
    std::vector<double> best(tasks.size(), std::numeric_limits<double>::max());
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t index = 0; index < tasks.size(); ++index) {
            best[index] = std::min(best[index], medianMilliseconds(runs, tasks[index]));
        }
    }
    return best;
}

/// Milliseconds of processor time that this process has used.
inline double processorMilliseconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto milliseconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
    };
    return milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
}

/// Bytes of the heap in use, of programs with the quick allocator.
inline double heapBytes() {
    std::size_t bytes = 0;
    MallocExtension_GetNumericProperty("generic.current_allocated_bytes", &bytes);
    return static_cast<double>(bytes);
}

inline void printHeading(const std::string& what, const char* first, const char* second) {
    std::printf("\n%-42s %11s %11s %9s\n", what.c_str(), first, second, "ratio");
}

/// A row of the table with the share of `peer` that `own` is; `peer` 0 where there is nothing to compare with.
inline void printRow(const std::string& name, double own, double peer = 0) {
    if (peer > 0) {
        std::printf("%-42s %11.3f %11.3f %9.2f\n", name.c_str(), own, peer, own / peer);
    } else {
        std::printf("%-42s %11.3f\n", name.c_str(), own);
    }
    std::fflush(stdout);
}

}  // namespace zor::bench

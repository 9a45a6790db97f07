#include "host/foundation/Log.h"

#include <cstdio>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

namespace zor {

namespace {

void writeToStandardError(std::string_view line) {
    // One write, so that lines of several threads do not mix.
    const std::string text = std::string(line) + '\n';
    std::fwrite(text.data(), 1, text.size(), stderr);
}

struct Log {
    std::mutex mutex;
    std::shared_ptr<const LogSink> sink = std::make_shared<const LogSink>(writeToStandardError);
};

Log& sharedLog() {
    // Never destroyed: other threads may still log while the process ends.
    static auto& log = *new Log;
    return log;
}

}  // namespace

void logLine(std::string_view line) {
    std::shared_ptr<const LogSink> sink;
    {
        const std::lock_guard lock(sharedLog().mutex);
        sink = sharedLog().sink;
    }
    if (*sink) (*sink)(line);
}

LogSink setLogSink(LogSink sink) {
    auto next = std::make_shared<const LogSink>(std::move(sink));
    const std::lock_guard lock(sharedLog().mutex);
    return *std::exchange(sharedLog().sink, std::move(next));
}

}  // namespace zor

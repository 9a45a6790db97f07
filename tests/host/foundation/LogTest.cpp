#include <gmock/gmock.h>

#include "host/foundation/Log.h"

namespace zor {
namespace {

TEST(LogTest, LinesGoToTheSinkAndTheOldSinkComesBack) {
    std::vector<std::string> lines;
    auto before = setLogSink([&](std::string_view line) { lines.emplace_back(line); });
    logLine("one");
    logLine("two");
    setLogSink({});
    logLine("dropped");
    setLogSink(std::move(before));
    EXPECT_THAT(lines, testing::ElementsAre("one", "two"));
}

TEST(LogTest, StandardErrorAtFirst) {
    testing::internal::CaptureStderr();
    logLine("said aloud");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "said aloud\n");
}

}  // namespace
}  // namespace zor

#include <gtest/gtest.h>

#include "tests/hostile/Resources.h"
#include "tests/hostile/SampleDocuments.h"

namespace zor::test {
namespace {

/// What is held after that many times of opening, archiving and closing.
LiveMemory heldAfter(int cycles, const SampleDocument& document) {
    for (int cycle = 0; cycle < cycles; ++cycle) {
        EXPECT_TRUE(readDocument(document.kind, document.data)) << document.name;
    }
    return liveMemory();
}

TEST(OpenAndClose, LeaveNothingBehind) {
    const int cycles = wantsAll() ? 1000 : 50;
    for (const auto& document : sampleDocuments()) {
        // The first ones fill what is kept for the life of the process.
        const auto before = heldAfter(3, document);
        const auto after = heldAfter(cycles, document);
        EXPECT_EQ(after.pieces, before.pieces) << document.name;
        // How much of a piece can be used differs a little from place to place.
        EXPECT_NEAR(static_cast<double>(after.bytes), static_cast<double>(before.bytes), 1024) << document.name;
    }
}

TEST(OpenAndClose, RefusalsLeaveNothingBehind) {
    for (const auto& document : sampleDocuments()) {
        if (document.kind == DocumentKind::exported) continue;
        Bytes damaged = document.data;
        damaged[damaged.size() / 2] ^= 0x40;
        const auto status = readDocument(document.kind, damaged);
        const auto before = liveMemory();
        for (int cycle = 0; cycle < 50; ++cycle) (void)readDocument(document.kind, damaged);
        EXPECT_EQ(liveMemory().pieces, before.pieces) << document.name;
    }
}

}  // namespace
}  // namespace zor::test

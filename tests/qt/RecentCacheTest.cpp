#include "qt/RecentCache.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace zor {
namespace {

TEST(RecentCache, FindsWhatWasAdded) {
    RecentCache<int> cache(3);
    EXPECT_EQ(cache.find("a"), nullptr);
    cache.add("a") = 5;
    ASSERT_NE(cache.find("a"), nullptr);
    EXPECT_EQ(*cache.find("a"), 5);
    cache.clear();
    EXPECT_EQ(cache.find("a"), nullptr);
    EXPECT_EQ(cache.count(), 0u);
}

TEST(RecentCache, KeepsTheLastOnesAndNeverTwiceAsManyMore) {
    RecentCache<int> cache(10);
    for (int number = 0; number < 1000; ++number) {
        cache.add(std::to_string(number)) = number;
        EXPECT_LE(cache.count(), 20u);
        for (int last = std::max(0, number - 9); last <= number; ++last) {
            const int* const found = cache.find(std::to_string(last));
            ASSERT_NE(found, nullptr) << last << " after " << number;
            EXPECT_EQ(*found, last);
        }
    }
    EXPECT_EQ(cache.find("900"), nullptr);
}

TEST(RecentCache, WhatIsAskedForStays) {
    RecentCache<int> cache(10);
    int* const kept = &cache.add("kept");
    *kept = 7;
    for (int number = 0; number < 1000; ++number) {
        cache.add(std::to_string(number));
        if (number % 9 != 0) continue;
        ASSERT_EQ(cache.find("kept"), kept);
        EXPECT_EQ(*kept, 7);
    }
}

}  // namespace
}  // namespace zor

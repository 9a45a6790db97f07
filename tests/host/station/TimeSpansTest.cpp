#include "host/station/TimeSpans.h"

#include <gmock/gmock.h>

#include <cmath>

namespace zor {

void PrintTo(const TimeSpan& span, std::ostream* out) {
    *out << '[' << span.from << ", " << span.to << ']';
}

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(TimeSpans, MergeWhereTheyOverlapOrTouch) {
    TimeSpans spans;
    spans.add({10, 20});
    spans.add({40, 50});
    EXPECT_THAT(spans.all(), ElementsAre(TimeSpan{10, 20}, TimeSpan{40, 50}));
    spans.add({20, 25});
    EXPECT_THAT(spans.all(), ElementsAre(TimeSpan{10, 25}, TimeSpan{40, 50}));
    spans.add({0, 5});
    EXPECT_THAT(spans.all(), ElementsAre(TimeSpan{0, 5}, TimeSpan{10, 25}, TimeSpan{40, 50}));
    spans.add({4, 45});
    EXPECT_THAT(spans.all(), ElementsAre(TimeSpan{0, 50}));
    spans.add({10, 20});
    EXPECT_THAT(spans.all(), ElementsAre(TimeSpan{0, 50}));
}

TEST(TimeSpans, EmptyAndBackwardSpansAddNothing) {
    TimeSpans spans;
    spans.add({5, 4});
    spans.add({std::nan(""), 4});
    EXPECT_THAT(spans.all(), IsEmpty());
    spans.add({5, 5});
    EXPECT_THAT(spans.all(), ElementsAre(TimeSpan{5, 5}));
}

TEST(TimeSpans, MissingParts) {
    TimeSpans spans;
    EXPECT_THAT(spans.missing({0, 100}), ElementsAre(TimeSpan{0, 100}));
    spans.add({10, 20});
    spans.add({40, 50});
    EXPECT_THAT(spans.missing({0, 100}), ElementsAre(TimeSpan{0, 10}, TimeSpan{20, 40}, TimeSpan{50, 100}));
    EXPECT_THAT(spans.missing({12, 18}), IsEmpty());
    EXPECT_THAT(spans.missing({10, 20}), IsEmpty());
    EXPECT_THAT(spans.missing({15, 30}), ElementsAre(TimeSpan{20, 30}));
    EXPECT_THAT(spans.missing({25, 45}), ElementsAre(TimeSpan{25, 40}));
    EXPECT_THAT(spans.missing({22, 30}), ElementsAre(TimeSpan{22, 30}));
    EXPECT_THAT(spans.missing({30, 30}), ElementsAre(TimeSpan{30, 30}));
    EXPECT_THAT(spans.missing({20, 20}), IsEmpty());
    EXPECT_THAT(spans.missing({8, 2}), IsEmpty());
}

}  // namespace
}  // namespace zor

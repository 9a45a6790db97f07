#include <gmock/gmock.h>

#include "host/views/RecordingContext.h"

using testing::ElementsAre;

namespace zor {
namespace {

using Segment = std::array<double, 4>;

TEST(RecordingContextTest, KeepsOperationsInOrder) {
    RecordingContext context;
    context.strokePath(Path().addSegment({0, 0}, {0, 45}), {Color::gray(), 1, {3, 3}});
    context.fillRect({1, 2, 3, 4}, Color::white());
    context.strokePolyline({{0, 0}, {5, 5}, {9, 1}}, {Color::black(), 2});
    context.drawText("21.5 °C", {0, 0, 50, 20}, Font{"Helvetica Neue", 14, true}, Color::black(), TextAlignment::center,
                     VerticalAlignment::bottom);
    context.drawImage(*Image::plain({8, 9}), {0, 0, 80, 90});
    EXPECT_EQ(context.text(),
              "strokePath M 0 0 L 0 45 width 1 dash 3 3 #808080ff\n"
              "fillRect 1 2 3 4 #ffffffff\n"
              "strokePolyline M 0 0 L 5 5 L 9 1 width 2 #000000ff\n"
              "drawText 0 0 50 20 #000000ff \"Helvetica Neue\" 14 bold center bottom \"21.5 °C\"\n"
              "drawImage 0 0 80 90 image 8 9\n");
    EXPECT_EQ(context.operationsNamed("strokePath").size(), 1u);
}

TEST(RecordingContextTest, SegmentsIncludeTheClosingOne) {
    RecordingContext context;
    context.fillPath(Path::rect({0, 0, 4, 2}).addSegment({7, 7}, {8, 8}), Color::black());
    EXPECT_THAT(context.operations()[0].segments(),
                ElementsAre(Segment{0, 0, 4, 0}, Segment{4, 0, 4, 2}, Segment{4, 2, 0, 2}, Segment{0, 2, 0, 0},
                            Segment{7, 7, 8, 8}));
}

TEST(RecordingContextTest, TransformsAndClipsTogether) {
    RecordingContext context;
    context.save();
    context.translate(10, 20);
    context.scale(2, 3);
    context.clipToRect({0, 0, 5, 5});
    context.save();
    context.clipToRect({1, 1, 10, 10});
    context.fillRect({1, 1, 2, 2}, Color::black());
    context.restore();
    context.fillRect({1, 1, 2, 2}, Color::black());
    EXPECT_EQ(context.depth(), 1u);
    context.restore();
    context.restore();
    context.fillRect({1, 1, 2, 2}, Color::black());
    const auto& operations = context.operations();
    EXPECT_EQ(operations[0].placedRect(), (Rect{12, 23, 4, 6}));
    EXPECT_EQ(operations[0].clip, (Rect{12, 23, 8, 12}));
    EXPECT_EQ(operations[1].clip, (Rect{10, 20, 10, 15}));
    EXPECT_EQ(operations[2].transform, Transform{});
    EXPECT_EQ(operations[2].clip, std::nullopt);
}

TEST(RecordingContextTest, RotatesClockwiseOnScreen) {
    RecordingContext context;
    context.translate(100, 100);
    context.rotate(90);
    context.fillRect({10, 0, 5, 1}, Color::black());
    const Rect placed = context.operations()[0].placedRect();
    EXPECT_NEAR(placed.x, 99, 1e-9);
    EXPECT_NEAR(placed.y, 110, 1e-9);
    EXPECT_NEAR(placed.width, 1, 1e-9);
    EXPECT_NEAR(placed.height, 5, 1e-9);
}

TEST(RecordingContextTest, DescribesGradients) {
    RecordingContext context;
    Gradient gradient{Gradient::Kind::linear, {0, 0}, {0, 10}, 0, {{0, Color::white()}, {1, Color::black()}}};
    context.fillPathWithGradient(Path::rect({0, 0, 1, 1}), gradient);
    EXPECT_EQ(context.text(),
              "fillPathWithGradient M 0 0 L 1 0 L 1 1 L 0 1 Z linear 0 0 0 10 0 0 #ffffffff 1 #000000ff\n");
}

}  // namespace
}  // namespace zor

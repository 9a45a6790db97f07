#include <limits>

#include "tests/dashboard/DashboardSupport.h"

namespace zor {
namespace {

using test::canvasOf;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CanvasGrid : public ::testing::Test {
protected:
    void make(Size size, double step = 20) {
        canvas = canvasOf({}, size);
        canvas->setStep(step);
        canvas->setEditMode(true);
    }
    /// The strokes of the canvas itself.
    std::vector<DrawingOperation> strokes(Rect dirty) {
        RecordingContext context;
        canvas->drawRect(context, dirty);
        return context.operationsNamed("strokePath");
    }
    std::vector<DrawingOperation> strokes() { return strokes(canvas->bounds()); }
    /// Where the lines down and across stand, from a single stroke.
    std::vector<double> vertical() {
        std::vector<double> xs;
        for (const auto& [x1, y1, x2, y2] : lines()) {
            if (x1 == x2 && y1 == 0 && y2 == canvas->frame().height) xs.push_back(x1);
        }
        return xs;
    }
    std::vector<double> horizontal() {
        std::vector<double> ys;
        for (const auto& [x1, y1, x2, y2] : lines()) {
            if (y1 == y2 && x1 == 0 && x2 == canvas->frame().width) ys.push_back(y1);
        }
        return ys;
    }
    std::vector<std::array<double, 4>> lines() {
        const auto drawn = strokes();
        EXPECT_EQ(drawn.size(), 1u);
        return drawn.empty() ? std::vector<std::array<double, 4>>{} : drawn[0].segments();
    }

    std::shared_ptr<ZORDashboardEditView> canvas;
};

using Line = std::array<double, 4>;

TEST_F(CanvasGrid, LinesStandAtEveryStepBeforeTheFarEdges) {
    make({100, 45});
    EXPECT_THAT(lines(),
                ElementsAre(Line{0, 0, 0, 45}, Line{20, 0, 20, 45}, Line{40, 0, 40, 45}, Line{60, 0, 60, 45},
                            Line{80, 0, 80, 45}, Line{0, 0, 100, 0}, Line{0, 20, 100, 20}, Line{0, 40, 100, 40}));
}

TEST_F(CanvasGrid, NoLineStandsOnAFarEdge) {
    make({100, 40});
    EXPECT_THAT(vertical(), ElementsAre(0, 20, 40, 60, 80));
    EXPECT_THAT(horizontal(), ElementsAre(0, 20));
    make({100.5, 40.5});
    EXPECT_THAT(vertical(), ElementsAre(0, 20, 40, 60, 80, 100));
    EXPECT_THAT(horizontal(), ElementsAre(0, 20, 40));
}

TEST_F(CanvasGrid, IsOneDashedGreyStroke) {
    make({100, 45});
    const auto drawn = strokes();
    ASSERT_EQ(drawn.size(), 1u);
    EXPECT_THAT(drawn[0].stroke.dash, ElementsAre(3.0, 3.0));
    EXPECT_EQ(drawn[0].stroke.dashPhase, 0);
    EXPECT_EQ(drawn[0].stroke.width, 1);
    EXPECT_EQ(drawn[0].color, Color::gray());
}

TEST_F(CanvasGrid, TheFractionOfTheStepIsDroppedAtEveryLine) {
    make({60, 30}, 12.5);
    EXPECT_THAT(vertical(), ElementsAre(0, 12, 24, 36, 48));
    EXPECT_THAT(horizontal(), ElementsAre(0, 12, 24));
    make({6, 5}, 1.9);
    EXPECT_THAT(vertical(), ElementsAre(0, 1, 2, 3, 4, 5));
    EXPECT_THAT(horizontal(), ElementsAre(0, 1, 2, 3, 4));
}

TEST_F(CanvasGrid, NeedsBothTheModeAndTheSwitch) {
    make({100, 45});
    canvas->setDrawGridLines(false);
    EXPECT_THAT(strokes(), IsEmpty());
    canvas->setEditMode(false);
    ASSERT_TRUE(canvas->drawGridLines());
    EXPECT_THAT(strokes(), IsEmpty());
    canvas->setEditMode(true);
    EXPECT_EQ(strokes().size(), 1u);
}

TEST_F(CanvasGrid, ACanvasWithoutASizeDrawsNoLines) {
    make({0, 0});
    for (const auto& stroke : strokes()) EXPECT_THAT(stroke.segments(), IsEmpty());
}

TEST_F(CanvasGrid, CoversTheWholeFrameWhateverIsDamaged) {
    make({100, 45});
    const auto drawn = strokes({50, 20, 5, 5});
    ASSERT_EQ(drawn.size(), 1u);
    EXPECT_EQ(drawn[0].segments().size(), 8u);
}

TEST_F(CanvasGrid, LiesAboveTheImageAndBelowTheWidgets) {
    make({300, 200});
    canvas->setImage(Image::plain({100, 100}));
    canvas->addSubview(test::label({10, 10, 100, 20}, "Hello"));
    RecordingContext context;
    canvas->displayTree(context, canvas->bounds(), false);
    std::vector<std::string> seen;
    for (const auto& operation : context.operations()) {
        if (operation.op == "drawImage" || operation.op == "drawText") seen.push_back(operation.op);
        if (operation.stroke.dash == std::vector<double>{3, 3}) seen.push_back("grid");
    }
    EXPECT_THAT(seen, ElementsAre("drawImage", "grid", "drawText"));
}

TEST_F(CanvasGrid, NoStepMakesTheDrawingHang) {
    for (const double step :
         {0.5, 0.0, -20.0, std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(), 1e300}) {
        make({100, 45}, step);
        strokes();
    }
}

TEST_F(CanvasGrid, ACanvasBeyondDrawingShowsNone) {
    for (const Size size : {Size{100001, 45}, Size{45, 1e300}, Size{std::numeric_limits<double>::infinity(), 45},
                            Size{std::numeric_limits<double>::quiet_NaN(), 45}}) {
        make(size);
        EXPECT_THAT(strokes(), IsEmpty());
    }
}

}  // namespace
}  // namespace zor

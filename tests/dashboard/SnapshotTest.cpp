#include "tests/dashboard/HostedDashboard.h"

namespace zor {
namespace {

using test::box;
using test::label;
using test::widgetsOn;
using ::testing::ElementsAre;
using ::testing::StartsWith;

/// Keeps the last picture's operations.
class DrawingToolkit : public FakeToolkit {
public:
    std::shared_ptr<const Bytes> pdfOfDrawing(Size size, const Drawing& drawing) override {
        return keep(drawing), FakeToolkit::pdfOfDrawing(size, drawing);
    }
    std::shared_ptr<const Bytes> pngOfDrawing(Size size, const Drawing& drawing) override {
        return keep(drawing), FakeToolkit::pngOfDrawing(size, drawing);
    }
    RecordingContext context;

private:
    void keep(const Drawing& drawing) {
        context = {};
        drawing(context);
    }
};

class Snapshot : public test::HostedDashboard {
protected:
    Snapshot() {
        auto made = std::make_unique<DrawingToolkit>();
        drawingToolkit = made.get();
        Toolkit::install(std::move(made));
    }
    std::string pdf() const { return textOf(dashboard->pdfRepresentation()); }
    std::string png(double scale) const { return textOf(dashboard->pngImageWithScale(scale)); }
    std::vector<std::string> texts() const {
        std::vector<std::string> drawn;
        for (const auto& operation : drawingToolkit->context.operationsNamed("drawText"))
            drawn.push_back(operation.text);
        return drawn;
    }
    std::vector<DrawingOperation> grids() const {
        std::vector<DrawingOperation> found;
        for (const auto& operation : drawingToolkit->context.operationsNamed("strokePath")) {
            if (operation.stroke.dash == std::vector<double>{3, 3}) found.push_back(operation);
        }
        return found;
    }

    DrawingToolkit* drawingToolkit;
};

TEST_F(Snapshot, PdfIsOnePageOfTheCanvassSize) {
    host({box({10, 20, 100, 50})}, {600, 400});
    EXPECT_THAT(pdf(), StartsWith("pdf 600 400\n"));
    EXPECT_THAT(drawingToolkit->pictures, ElementsAre(Size{600, 400}));
}

TEST_F(Snapshot, PngIsOfTheCanvassSize) {
    host({box({10, 20, 100, 50})}, {600, 400});
    EXPECT_THAT(png(1), StartsWith("png 600 400\n"));
}

TEST_F(Snapshot, TheScaleOfThePngIsIgnored) {
    host({box({10, 20, 100, 50})}, {600, 400});
    const auto once = png(1);
    EXPECT_EQ(png(2), once);
    EXPECT_EQ(png(0), once);
    EXPECT_EQ(png(-3.5), once);
}

TEST_F(Snapshot, ADashboardThatIsNotShownIsRenderedToo) {
    dashboard = test::dashboardOf({label({10, 20, 100, 50}, "Hello")}, {600, 400});
    EXPECT_THAT(pdf(), StartsWith("pdf 600 400\n"));
    EXPECT_THAT(texts(), ElementsAre("Hello"));
}

TEST_F(Snapshot, TheCanvassCornerIsThePagesAndNothingElseOfTheTreeShows) {
    host({label({30, 40, 200, 50}, "Hello")}, {600, 400});
    pdf();
    ASSERT_THAT(texts(), ElementsAre("Hello"));
    const auto drawn = drawingToolkit->context.operationsNamed("drawText")[0].placedRect();
    EXPECT_TRUE(containsRect({30, 40, 200, 50}, drawn)) << stringFromRect(drawn);
    EXPECT_EQ(drawn.x, 30);
}

TEST_F(Snapshot, ShowsTheWholeCanvasHoweverSmallTheViewAndFarScrolled) {
    host({label({10, 10, 200, 50}, "first"), label({1500, 1200, 200, 50}, "last")}, {2000, 1500});
    dashboard->view()->setFrame({0, 0, 300, 200});
    scrollView()->setContentOffset({400, 300});
    EXPECT_THAT(pdf(), StartsWith("pdf 2000 1500\n"));
    EXPECT_THAT(texts(), ElementsAre("first", "last"));
    EXPECT_EQ(scrollView()->contentOffset(), (Point{400, 300}));
}

TEST_F(Snapshot, DrawsImageThenWidgetsFromTheLowestUp) {
    host({label({0, 0, 100, 20}, "low"), label({0, 0, 100, 20}, "high")}, {600, 400});
    canvas->setImage(Image::plain({60, 40}));
    canvas->addSubview(widgetsOn(canvas)[0]);
    pdf();
    EXPECT_THAT(texts(), ElementsAre("high", "low"));
    const auto& operations = drawingToolkit->context.operations();
    const auto image = std::ranges::find(operations, "drawImage", &DrawingOperation::op);
    const auto text = std::ranges::find(operations, "drawText", &DrawingOperation::op);
    ASSERT_NE(image, operations.end());
    EXPECT_LT(image, text);
}

TEST_F(Snapshot, TheGridShowsOnlyInEditModeWithTheGridOn) {
    host({}, {100, 45});
    pdf();
    EXPECT_TRUE(grids().empty());
    dashboard->editDashboard({});
    pdf();
    EXPECT_EQ(grids().size(), 1u);
    png(1);
    EXPECT_EQ(grids().size(), 1u);
    canvas->setDrawGridLines(false);
    pdf();
    EXPECT_TRUE(grids().empty());
}

TEST_F(Snapshot, ACanvasAwayFromTheCornerIsShownWhole) {
    dashboard = test::dashboardOf({label({10, 10, 100, 20}, "first"), label({340, 270, 50, 20}, "last")}, {400, 300});
    dashboard->editView()->setFrame({50, 60, 400, 300});
    EXPECT_THAT(pdf(), StartsWith("pdf 400 300\n"));
    ASSERT_THAT(texts(), ElementsAre("first", "last"));
    const auto last = drawingToolkit->context.operationsNamed("drawText")[1];
    EXPECT_EQ(last.placedRect().x, 340);
    EXPECT_TRUE(containsRect(*last.clip, last.placedRect())) << stringFromRect(*last.clip);
}

TEST_F(Snapshot, SelectionAndHandlesNeverShow) {
    host({box({10, 20, 100, 50}), box({200, 40, 30, 30})}, {600, 400});
    dashboard->editDashboard({});
    const auto plain = pdf();
    const auto plainImage = png(1);
    click({30, 30});
    ASSERT_TRUE(widgetsOn(canvas)[0]->allowResize());
    EXPECT_EQ(pdf(), plain);
    EXPECT_EQ(png(1), plainImage);
}

TEST_F(Snapshot, LeavesTheLiveDashboardUnchanged) {
    const auto a = box({10, 20, 100, 50}), b = box({200, 40, 30, 30});
    host({a, b}, {600, 400});
    dashboard->editDashboard({});
    canvas->setDrawGridLines(false);
    canvas->setStep(7);
    click({220, 50});
    a->setZOrder(-5);
    const auto depth = dashboard->undoManager()->depth();
    const auto observers = NotificationCenter::defaultCenter().observerCount(kAppTimerOneMinuteNotification);
    pdf();
    png(1);
    EXPECT_THAT(dashboard->selectedObjects(), ElementsAre(b));
    EXPECT_TRUE(b->selected());
    EXPECT_TRUE(b->allowResize());
    EXPECT_TRUE(canvas->editMode());
    EXPECT_FALSE(canvas->drawGridLines());
    EXPECT_EQ(canvas->step(), 7);
    EXPECT_EQ(dashboard->editView(), canvas);
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(a, b));
    EXPECT_THAT(test::zOrdersOn(canvas), ElementsAre(-5, 2));
    EXPECT_EQ(a->frame(), (Rect{10, 20, 100, 50}));
    EXPECT_EQ(canvas->window(), window.get());
    EXPECT_EQ(a->superview(), canvas.get());
    EXPECT_EQ(dashboard->undoManager()->depth(), depth);
    EXPECT_EQ(NotificationCenter::defaultCenter().observerCount(kAppTimerOneMinuteNotification), observers);
}

TEST_F(Snapshot, ADashboardWithoutACanvasGivesAnEmptyPage) {
    dashboard = test::dashboardRead({});
    EXPECT_THAT(pdf(), StartsWith("pdf 0 0\n"));
}

TEST_F(Snapshot, FailuresOfTheRendererAreAbsentData) {
    host({box({10, 20, 100, 50})}, {600, 400});
    drawingToolkit->failDrawing = true;
    EXPECT_EQ(dashboard->pdfRepresentation(), nullptr);
    EXPECT_EQ(dashboard->pngImageWithScale(1), nullptr);
}

}  // namespace
}  // namespace zor

#include "qt/QtPrinting.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QPdfWriter>

#include "host/views/DrawingContext.h"
#include "host/views/View.h"

namespace zor {

namespace {

constexpr PrintSettings fitBoth{PaperOrientation::landscape, Pagination::fit, Pagination::fit};

class MarkedView : public View {
public:
    using View::View;
    void drawRect(DrawingContext& context, const Rect&) override { context.fillRect(bounds(), Color::gray()); }
    void drawOverlay(DrawingContext&, const Rect&) override { overlayDrawn = true; }
    bool overlayDrawn = false;
};

int pagesPrinted(View& view, const PrintSettings& settings) {
    QByteArray document;
    QBuffer buffer(&document);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageOrientation(QPageLayout::Landscape);
    EXPECT_TRUE(printView(view, settings, writer));
    return static_cast<int>(document.count("/Type /Page\n"));
}

}  // namespace

TEST(QtPrinting, FittingBothWaysKeepsTheAspectRatioInTheMiddle) {
    EXPECT_EQ(pageLayout({1000, 500}, {800, 600}, fitBoth), (PageLayout{0.8, 1, 1, {0, 100}}));
    EXPECT_EQ(pageLayout({100, 300}, {800, 600}, fitBoth), (PageLayout{2, 1, 1, {300, 0}}));
}

TEST(QtPrinting, FittingOneWayTakesPagesTheOther) {
    PrintSettings settings{PaperOrientation::portrait, Pagination::fit, Pagination::automatic};
    EXPECT_EQ(pageLayout({1000, 2000}, {500, 800}, settings), (PageLayout{0.5, 1, 2, {0, 0}}));
    settings.vertical = Pagination::clip;
    EXPECT_EQ(pageLayout({1000, 2000}, {500, 800}, settings), (PageLayout{0.5, 1, 1, {0, 0}}));
}

TEST(QtPrinting, AutomaticIsTheNaturalSize) {
    EXPECT_EQ(pageLayout({900, 300}, {400, 500}, {}), (PageLayout{1, 3, 1, {0, 100}}));
    EXPECT_EQ(pageLayout({400, 500}, {400, 500}, {}), (PageLayout{1, 1, 1, {0, 0}}));
}

TEST(QtPrinting, AnEmptyViewTakesOnePage) {
    EXPECT_EQ(pageLayout({0, 0}, {400, 500}, fitBoth), PageLayout{});
}

TEST(QtPrinting, PrintsWithoutHandles) {
    const auto view = std::make_shared<MarkedView>(Rect{0, 0, 3000, 500});
    EXPECT_EQ(pagesPrinted(*view, fitBoth), 1);
    EXPECT_EQ(pagesPrinted(*view, {}), 4);
    EXPECT_FALSE(view->overlayDrawn);
}

}  // namespace zor

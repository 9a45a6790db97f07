#include "qt/AutoScroller.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>

#include "host/instruments/ZORWidgetHostView.h"
#include "qt/QtDrawingContext.h"
#include "qt/ViewTreeWidget.h"

namespace zor {
namespace {

/// A viewport of 100 by 100 points onto a page of 100 by 1000, on which a widget lies.
struct Page {
    explicit Page(bool isEdited) {
        widget->setEditable(isEdited);
        document->addSubview(widget);
        scrollView->setHasBorder(false);
        scrollView->setDocumentView(document);
    }
    static EventPtr dragAt(double y) { return Event::mouse(EventType::mouseDragged, {50, y}, 0, 1); }
    /// Until `told` drags have come again.
    void wait(int told) {
        while (drags < told) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    std::shared_ptr<ZORWidgetHostView> widget = ZORWidgetHostView::boxWithRect({10, 10, 40, 40});
    std::shared_ptr<View> document = std::make_shared<View>(Rect{0, 0, 100, 1000});
    std::shared_ptr<ScrollView> scrollView = std::make_shared<ScrollView>(Rect{0, 0, 100, 100});
    int drags = 0;
    AutoScroller scroller{[this](const EventPtr&) { ++drags; }};
};

TEST(AutoScroller, TellsTheDragAgainWhileThePageMoves) {
    Page page(true);
    page.scroller.begin(page.widget.get());
    page.scroller.follow(Page::dragAt(130));
    page.wait(2);
    // 50 points beyond where the edge begins, of which a step is 0.35.
    EXPECT_EQ(page.scrollView->contentOffset(), (Point{0, 35}));
    page.scroller.follow(Page::dragAt(-500));
    page.wait(3);
    EXPECT_EQ(page.scrollView->contentOffset(), (Point{0, 0}));
}

TEST(AutoScroller, RestsInTheMiddleAndOutsideOfEditing) {
    Page edited(true);
    edited.scroller.begin(edited.widget.get());
    edited.scroller.follow(Page::dragAt(50));
    Page shown(false);
    shown.scroller.begin(shown.widget.get());
    shown.scroller.follow(Page::dragAt(130));
    // Something that moves tells when the time of a step is over.
    Page moving(true);
    moving.scroller.begin(moving.widget.get());
    moving.scroller.follow(Page::dragAt(130));
    moving.wait(2);
    EXPECT_EQ(edited.drags, 0);
    EXPECT_EQ(shown.drags, 0);
}

TEST(ViewTreeWidget, ThePointerOverTheHandleSaysThatItResizes) {
    const auto window = std::make_shared<Window>();
    const auto content = std::make_shared<View>(Rect{0, 0, 200, 200});
    const auto widget = ZORWidgetHostView::boxWithRect({10, 10, 100, 100});
    content->addSubview(widget);
    window->setContentView(content);
    ViewTreeWidget shown;
    shown.resize(200, 200);
    shown.setShownWindow(window.get());
    const auto moveTo = [&](QPointF place) {
        QMouseEvent move(QEvent::MouseMove, place, place, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&shown, &move);
        return shown.cursor().shape();
    };
    EXPECT_EQ(moveTo({105, 105}), Qt::ArrowCursor);
    widget->setAllowResize(true);
    EXPECT_EQ(moveTo({105, 105}), Qt::SizeFDiagCursor);
    EXPECT_EQ(moveTo({60, 60}), Qt::ArrowCursor);
    shown.setShownWindow(nullptr);
}

TEST(QtDrawingContext, RectanglesAlignToPixels) {
    QImage image(100, 100, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    painter.scale(1.5, 1.5);
    QtDrawingContext context(painter);
    // 16.5 to 30 pixels.
    EXPECT_EQ(context.alignedToPixels({11, 10, 9, 10}).maxX(), 20);
    EXPECT_NEAR(context.alignedToPixels({11, 10, 9, 10}).x, 17 / 1.5, 1e-9);
}

}  // namespace
}  // namespace zor

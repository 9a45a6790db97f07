#include "qt/ViewTreeWidget.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QScrollBar>

#include "host/instruments/InstrumentDrawing.h"
#include "host/instruments/ZORWidgetHostView.h"
#include "host/views/ScrollView.h"
#include "host/views/ShapeLayer.h"
#include "qt/QtConversions.h"
#include "qt/QtWindowPeer.h"

namespace zor {

namespace {

class RecordingView : public View {
public:
    explicit RecordingView(const Rect& frame, Color color = Color::rgb(0xFF0000)) : View(frame), color_(color) {}

    void drawRect(DrawingContext& context, const Rect& dirty) override {
        ++drawings;
        lastDirty = dirty;
        context.fillRect(bounds(), color_);
    }
    void drawOverlay(DrawingContext& context, const Rect&) override { context.fillRect({0, 0, 4, 4}, Color::black()); }
    void mouseDown(const EventPtr& event) override { record(event); }
    void mouseDragged(const EventPtr& event) override { record(event); }
    void mouseUp(const EventPtr& event) override { record(event); }
    void rightMouseDown(const EventPtr& event) override { record(event); }
    void keyDown(const EventPtr& event) override { record(event); }
    bool acceptsFirstResponder() const override { return true; }

    std::vector<EventPtr> events;
    int drawings = 0;
    Rect lastDirty;

private:
    void record(const EventPtr& event) { events.push_back(event); }
    Color color_;
};

class ViewTreeWidgetTest : public testing::Test {
protected:
    ViewTreeWidgetTest() {
        widget.resize(300, 200);
        window->setPeer(std::make_shared<QtWindowPeer>(*window, widget));
        window->setContentView(root);
        root->addSubview(view);
        widget.show();
        QApplication::processEvents();
    }

    void mouse(QEvent::Type type, QPointF at, Qt::MouseButton button, Qt::MouseButtons buttons, ulong time) {
        QMouseEvent event(type, at, widget.mapToGlobal(at), button, buttons, Qt::NoModifier);
        event.setTimestamp(time);
        QApplication::sendEvent(&widget, &event);
    }

    std::vector<QScrollBar*> shownBars() {
        std::vector<QScrollBar*> bars;
        for (QScrollBar* bar : widget.findChildren<QScrollBar*>()) {
            if (bar->isVisible()) bars.push_back(bar);
        }
        return bars;
    }

    ViewTreeWidget widget;
    std::shared_ptr<Window> window = std::make_shared<Window>();
    std::shared_ptr<View> root = std::make_shared<View>();
    std::shared_ptr<RecordingView> view = std::make_shared<RecordingView>(Rect{50, 40, 100, 80});
};

}  // namespace

TEST_F(ViewTreeWidgetTest, TheContentHasTheWidgetsSize) {
    EXPECT_EQ(root->frame(), (Rect{0, 0, 300, 200}));
    widget.resize(320, 240);
    EXPECT_EQ(root->frame(), (Rect{0, 0, 320, 240}));
}

TEST_F(ViewTreeWidgetTest, ShowsTheTreeOnThePalettesGround) {
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Window, QColor(0x30, 0x30, 0x38));
    widget.setPalette(palette);
    const QImage shown = widget.grab().toImage();
    EXPECT_EQ(shown.pixel(10, 10), qRgb(0x30, 0x30, 0x38));
    EXPECT_EQ(shown.pixel(100, 80), qRgb(0xFF, 0, 0));
    // Overlays are shown too.
    EXPECT_EQ(shown.pixel(51, 41), qRgb(0, 0, 0));
}

TEST_F(ViewTreeWidgetTest, PaintsOnlyWhatIsDamaged) {
    const auto other = std::make_shared<RecordingView>(Rect{200, 40, 50, 50});
    root->addSubview(other);
    QApplication::processEvents();
    view->drawings = other->drawings = 0;
    QApplication::processEvents();
    EXPECT_EQ(view->drawings, 0);
    view->setNeedsDisplayInRect({10, 10, 5, 5});
    QApplication::processEvents();
    EXPECT_EQ(view->drawings, 1);
    EXPECT_EQ(other->drawings, 0);
    EXPECT_EQ(view->lastDirty, (Rect{9, 9, 7, 7}));
}

TEST_F(ViewTreeWidgetTest, ScalesWithTheDevice) {
    QImage twice(600, 400, QImage::Format_ARGB32_Premultiplied);
    twice.setDevicePixelRatio(2);
    widget.render(&twice);
    EXPECT_EQ(twice.pixel(101, 90), qRgb(0xFF, 0, 0));
    EXPECT_EQ(twice.pixel(299, 239), qRgb(0xFF, 0, 0));
    EXPECT_NE(twice.pixel(300, 239), qRgb(0xFF, 0, 0));
}

TEST_F(ViewTreeWidgetTest, ASelectionsEdgeIsSharpAtEveryScale) {
    // Nothing in it, so that nothing but its look is there.
    const auto empty = ZORWidgetHostView::initWithFrame({180.3, 30.7, 90, 80});
    empty->setSelected(true);
    root->addSubview(empty);
    const QColor ground = widget.palette().color(QPalette::Window);
    const QColor line = toQt(palette::accent);
    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0}) {
        QImage image(QSizeF(300 * scale, 200 * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(scale);
        widget.render(&image);
        const int middle = static_cast<int>(70 * scale);
        int left = static_cast<int>(170 * scale);
        while (left < image.width() && image.pixelColor(left, middle) == ground) ++left;
        EXPECT_EQ(image.pixelColor(left, middle), line) << scale;
        int top = static_cast<int>(20 * scale);
        const int across = static_cast<int>(220 * scale);
        while (top < image.height() && image.pixelColor(across, top) == ground) ++top;
        EXPECT_EQ(image.pixelColor(across, top), line) << scale;
    }
}

TEST_F(ViewTreeWidgetTest, OverAHandleThePointerTellsSo) {
    const auto box = ZORWidgetHostView::boxWithRect({50, 40, 100, 80});
    root->addSubview(box);
    const auto shapeAt = [this](QPointF at) {
        mouse(QEvent::MouseMove, at, Qt::NoButton, Qt::NoButton, 1000);
        return widget.cursor().shape();
    };
    EXPECT_EQ(shapeAt({145, 115}), Qt::ArrowCursor);
    box->setAllowResize(true);
    EXPECT_EQ(shapeAt({145, 115}), Qt::SizeFDiagCursor);
    EXPECT_EQ(shapeAt({137, 115}), Qt::ArrowCursor);
    EXPECT_EQ(shapeAt({145, 115}), Qt::SizeFDiagCursor);
    // Of what lies above, not of what shows below.
    root->addSubview(view);
    EXPECT_EQ(shapeAt({145, 115}), Qt::ArrowCursor);
}

TEST_F(ViewTreeWidgetTest, PressDragAndReleaseReachTheView) {
    mouse(QEvent::MouseButtonPress, {60, 50}, Qt::LeftButton, Qt::LeftButton, 1000);
    mouse(QEvent::MouseMove, {250, 150.5}, Qt::NoButton, Qt::LeftButton, 1010);
    mouse(QEvent::MouseButtonRelease, {250, 150.5}, Qt::LeftButton, Qt::NoButton, 1020);
    mouse(QEvent::MouseMove, {70, 50}, Qt::NoButton, Qt::NoButton, 1030);
    ASSERT_EQ(view->events.size(), 3u);
    EXPECT_EQ(view->events[0]->type(), EventType::mouseDown);
    EXPECT_EQ(view->events[0]->clickCount(), 1);
    EXPECT_EQ(view->events[1]->type(), EventType::mouseDragged);
    EXPECT_EQ(view->events[1]->locationInWindow(), (Point{250, 150.5}));
    EXPECT_EQ(view->events[2]->type(), EventType::mouseUp);
}

TEST_F(ViewTreeWidgetTest, ClicksAreCounted) {
    const QPointF at(60, 50);
    mouse(QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton, 1000);
    mouse(QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton, 1050);
    mouse(QEvent::MouseButtonDblClick, at, Qt::LeftButton, Qt::LeftButton, 1100);
    mouse(QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton, 1150);
    mouse(QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton, 1200);
    mouse(QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton, 5000);
    std::vector<int> counts;
    for (const auto& event : view->events) {
        if (event->type() == EventType::mouseDown) counts.push_back(event->clickCount());
    }
    EXPECT_THAT(counts, testing::ElementsAre(1, 2, 3, 1));
}

TEST_F(ViewTreeWidgetTest, TheRightButtonIsARightPress) {
    mouse(QEvent::MouseButtonPress, {60, 50}, Qt::RightButton, Qt::RightButton, 1000);
    mouse(QEvent::MouseButtonRelease, {60, 50}, Qt::RightButton, Qt::NoButton, 1010);
    ASSERT_EQ(view->events.size(), 1u);
    EXPECT_EQ(view->events[0]->type(), EventType::rightMouseDown);
}

TEST_F(ViewTreeWidgetTest, KeysReachTheFirstResponder) {
    window->makeFirstResponder(view);
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Left, Qt::NoModifier);
    QApplication::sendEvent(&widget, &key);
    ASSERT_EQ(view->events.size(), 1u);
    EXPECT_EQ(view->events[0]->keyCode(), 123);
}

TEST_F(ViewTreeWidgetTest, TheMenuKeyIsARightPress) {
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    view->setFrame({0, 0, 300, 200});
    QApplication::sendEvent(&widget, &menu);
    ASSERT_EQ(view->events.size(), 1u);
    EXPECT_EQ(view->events[0]->type(), EventType::rightMouseDown);
}

TEST_F(ViewTreeWidgetTest, ScrollBarsAreThereWhileTheDocumentIsLarger) {
    const auto scroll = std::make_shared<ScrollView>(Rect{0, 0, 200, 150});
    scroll->setHasBorder(false);
    const auto document = std::make_shared<View>(Rect{0, 0, 100, 100});
    scroll->setDocumentView(document);
    root->addSubview(scroll);
    QApplication::processEvents();
    EXPECT_TRUE(shownBars().empty());

    document->setFrame({0, 0, 100, 400});
    QApplication::processEvents();
    ASSERT_EQ(shownBars().size(), 1u);
    QScrollBar& bar = *shownBars().front();
    EXPECT_EQ(bar.orientation(), Qt::Vertical);
    EXPECT_EQ(bar.geometry().right(), 199);
    EXPECT_EQ(bar.height(), 150);
    EXPECT_EQ(bar.maximum(), 250);
    EXPECT_EQ(scroll->viewport().width, 200 - bar.width());

    bar.setValue(70);
    EXPECT_EQ(scroll->contentOffset(), (Point{0, 70}));
    scroll->setContentOffset({0, 120});
    EXPECT_EQ(bar.value(), 120);

    // With the bar at the right edge the document is too wide as well.
    document->setFrame({0, 0, 195, 400});
    QApplication::processEvents();
    EXPECT_EQ(shownBars().size(), 2u);

    document->setFrame({0, 0, 100, 100});
    QApplication::processEvents();
    EXPECT_TRUE(shownBars().empty());
    EXPECT_EQ(scroll->viewport(), (Rect{0, 0, 200, 150}));
}

TEST_F(ViewTreeWidgetTest, ScrollBarsGoWithTheirView) {
    const auto scroll = std::make_shared<ScrollView>(Rect{0, 0, 200, 150});
    scroll->setDocumentView(std::make_shared<View>());
    root->addSubview(scroll);
    const auto document = std::make_shared<View>(Rect{0, 0, 900, 900});
    scroll->setDocumentView(document);
    QApplication::processEvents();
    EXPECT_EQ(shownBars().size(), 2u);
    scroll->removeFromSuperview();
    QApplication::processEvents();
    EXPECT_TRUE(shownBars().empty());
    EXPECT_EQ(scroll->viewport().width, 198);
}

TEST_F(ViewTreeWidgetTest, AnimatesWhileThereIsSomethingToAnimate) {
    const auto layer = std::make_shared<ShapeLayer>();
    layer->setPath(Path::rect({10, 10, 50, 50}));
    layer->addAnimation({"lineDashPhase", 0, 15, 0.75, true}, "linePhase");
    const auto drawingsUntil = [&](int count) {
        view->drawings = 0;
        QElapsedTimer clock;
        clock.start();
        while (view->drawings < count && clock.elapsed() < 5000) {
            QApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 100);
        }
        return view->drawings;
    };
    view->addSublayer(layer);
    EXPECT_GE(drawingsUntil(4), 4);
    layer->removeFromSuperlayer();
    QApplication::processEvents();
    // Once the last frame has been drawn nothing is due any more.
    for (int i = 0; i < 3; ++i) QApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 60);
    view->drawings = 0;
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 150) QApplication::processEvents(QEventLoop::AllEvents, 10);
    EXPECT_EQ(view->drawings, 0);
}

TEST_F(ViewTreeWidgetTest, OutlivesItsWindow) {
    window.reset();
    EXPECT_EQ(widget.shownWindow(), nullptr);
    mouse(QEvent::MouseButtonPress, {60, 50}, Qt::LeftButton, Qt::LeftButton, 1000);
    widget.grab();
    EXPECT_TRUE(view->events.empty());
}

}  // namespace zor

// The editor with many widgets in a window of the screen's size, beside the toolkit's own graphics scene: real mouse
// events and real repainting. `editor_bench [COUNT ...]`; 10,000 and 100,000 widgets without a word.

#include <QApplication>
#include <QGraphicsRectItem>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTimer>
#include <cstdlib>
#include <random>
#include <ranges>

#include "bench/Measure.h"
#include "dashboard/ZORDashboardPlugIn.h"
#include "host/instruments/InstrumentClasses.h"
#include "qt/QtConversions.h"
#include "qt/QtToolkit.h"
#include "qt/QtWindowPeer.h"

using namespace zor;
using bench::Task;

namespace {

constexpr double canvasSide = 20'000;
constexpr QSize viewport{1400, 1000};
constexpr Size widgetSize{90, 30};
/// A widget that shows, and a place without one.
constexpr Point shown{300, 310};
constexpr Point bare{700, 500};
constexpr int runs = 15;

std::vector<Rect> randomFrames(int count) {
    std::mt19937 random(1);
    std::uniform_real_distribution<double> place(0, canvasSide - 100);
    std::vector<Rect> frames{{shown.x - 10, shown.y - 10, widgetSize.width, widgetSize.height}};
    while (frames.size() < static_cast<std::size_t>(count)) {
        const Rect frame{place(random), place(random), widgetSize.width, widgetSize.height};
        if (!pointInRect(bare, insetRect(frame, -50, -50))) frames.push_back(frame);
    }
    return frames;
}

void sendMouse(QWidget& widget, QEvent::Type type, Qt::MouseButtons held, QPointF place) {
    const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, place, widget.mapToGlobal(place), button, held, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

/// Paints what has been damaged.
void repaint() {
    QCoreApplication::processEvents();
}

/// A dashboard in edit mode.
class Editor {
public:
    Editor(const std::vector<Rect>& frames, int selected) : selected_(static_cast<std::size_t>(selected)) {
        const double before = bench::heapBytes();
        WidgetList widgets;
        for (const auto& frame : frames) widgets.push_back(ZORWidgetHostView::textFieldWithRect(frame));
        bytesPerWidget = (bench::heapBytes() - before) / static_cast<double>(frames.size());
        dashboard = ZORDashboardPlugIn::initWithAgent(agent, controller, std::move(widgets), {canvasSide, canvasSide});
        widget.resize(viewport);
        window->setPeer(std::make_shared<QtWindowPeer>(*window, widget));
        const std::shared_ptr<View> view = dashboard->view();
        window->setContentViewController(dashboard, view);
        dashboard->editDashboard({});
        widget.show();
        select();
        repaint();
    }

    /// The first widgets, thus the one that shows too.
    void select() {
        dashboard->unselectAllObjects();
        WidgetList first;
        for (const auto& each : dashboard->editView()->subviews()) {
            if (first.size() == selected_) break;
            first.push_back(std::static_pointer_cast<ZORWidgetHostView>(each));
            first.back()->setSelected(true);
        }
        dashboard->setSelectedObjects(std::move(first));
        repaint();
    }

    void send(QEvent::Type type, Point onCanvas) {
        const auto held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        sendMouse(widget, type, held, toQt(dashboard->editView()->convertPointToView(onCanvas, nullptr)));
    }
    void press(Point point) { send(QEvent::MouseButtonPress, point); }
    void drag(Point point) { send(QEvent::MouseMove, point); }
    void release(Point point) { send(QEvent::MouseButtonRelease, point); }
    Task command(const char* action) {
        return {[this, action] {
                    dashboard->performWithSender(action, {});
                    repaint();
                },
                [this] { select(); }};
    }

    double bytesPerWidget = 0;
    std::shared_ptr<Agent> agent = Agent::withName("Bench");
    std::shared_ptr<SiteWindowController> controller = std::make_shared<SiteWindowController>();
    std::shared_ptr<ZORDashboardPlugIn> dashboard;

private:
    std::size_t selected_;
    ViewTreeWidget widget;
    std::shared_ptr<Window> window = std::make_shared<Window>();
};

/// As many movable, selectable rectangles in the toolkit's scene.
class Scene {
public:
    Scene(const std::vector<Rect>& frames, int selected) : selected_(static_cast<std::size_t>(selected)) {
        scene_.setSceneRect(0, 0, canvasSide, canvasSide);
        const double before = bench::heapBytes();
        for (const auto& frame : frames) {
            auto* item = scene_.addRect(0, 0, frame.width, frame.height);
            item->setPos(frame.x, frame.y);
            item->setFlags(QGraphicsItem::ItemIsMovable | QGraphicsItem::ItemIsSelectable);
            items_.push_back(item);
        }
        bytesPerItem = (bench::heapBytes() - before) / static_cast<double>(frames.size());
        view_.setAlignment(Qt::AlignLeft | Qt::AlignTop);
        view_.setDragMode(QGraphicsView::RubberBandDrag);
        view_.resize(viewport);
        view_.show();
        view_.horizontalScrollBar()->setValue(0);
        view_.verticalScrollBar()->setValue(0);
        select();
    }

    void select() {
        scene_.clearSelection();
        for (auto* item : items_ | std::views::take(selected_)) item->setSelected(true);
        repaint();
    }
    void send(QEvent::Type type, Point onScene) {
        const auto held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        sendMouse(*view_.viewport(), type, held, view_.mapFromScene(toQt(onScene)));
    }
    void press(Point point) { send(QEvent::MouseButtonPress, point); }
    void drag(Point point) { send(QEvent::MouseMove, point); }
    void release(Point point) { send(QEvent::MouseButtonRelease, point); }
    /// Something done to each selected item.
    Task command(std::function<void(QGraphicsItem&)> change) {
        return {[this, change = std::move(change)] {
                    for (auto* item : scene_.selectedItems()) change(*item);
                    repaint();
                },
                [this] { select(); }};
    }
    void selectAll() {
        QPainterPath everything;
        everything.addRect(scene_.sceneRect());
        scene_.setSelectionArea(everything);
        repaint();
    }
    const QGraphicsItem* itemAt(Point point) { return scene_.itemAt(toQt(point), {}); }

    double bytesPerItem = 0;

private:
    std::size_t selected_;
    QGraphicsScene scene_;
    QGraphicsView view_{&scene_};
    std::vector<QGraphicsRectItem*> items_;
};

template <typename Canvas>
Task pressTask(Canvas& canvas) {
    return {[&canvas] {
                canvas.press(shown);
                repaint();
            },
            [&canvas] {
                canvas.release(shown);
                canvas.select();
            }};
}

/// A step of a gesture that has begun.
template <typename Canvas>
Task dragTask(Canvas& canvas, Point from) {
    return {[&canvas, from, step = 0]() mutable {
        step = (step + 1) % 40;
        canvas.drag({from.x + step, from.y + step});
        repaint();
    }};
}

class Comparison {
public:
    explicit Comparison(int count)
        : frames_(randomFrames(count)), editor_(frames_, count / 10), scene_(frames_, count / 10) {
        bench::printHeading(std::to_string(count) + " widgets, milliseconds", "editor", "scene");
    }

    void run() {
        row("press and repaint", pressTask(editor_), pressTask(scene_));
        gesture("drag step and repaint", shown);
        const auto selectsNothing = [](auto& canvas) { canvas.release(bare); };
        selectsNothing(editor_);
        selectsNothing(scene_);
        gesture("band step and repaint", bare);
        commands();
        hitTest();
        clipboard();
        bench::printRow("idle, processor time of 1000 ms", idle());
        bench::printHeading("memory, bytes each", "widget", "item");
        bench::printRow("with a text label; bare item", editor_.bytesPerWidget, scene_.bytesPerItem);
        bench::printRow("without an instrument; bare item", bytesOfBareWidget(), scene_.bytesPerItem);
    }

private:
    static void row(const char* name, const Task& own, const Task& peer = {}, int times = runs) {
        std::vector<Task> tasks{own};
        if (peer.work) tasks.push_back(peer);
        const auto medians = bench::bestMedians(times, tasks);
        bench::printRow(name, medians.front(), medians.size() > 1 ? medians.back() : 0);
    }

    void gesture(const char* name, Point from) {
        editor_.select();
        scene_.select();
        editor_.press(from);
        scene_.press(from);
        row(name, dragTask(editor_, from), dragTask(scene_, from));
        editor_.release(from);
        scene_.release(from);
    }

    void commands() {
        auto& dashboard = *editor_.dashboard;
        row("nudge and repaint",
            {[&] {
                 dashboard.keyDown(Event::key(u"\uF703", rightArrowKeyCode, 0));
                 repaint();
             },
             [&] { editor_.select(); }},
            scene_.command([](QGraphicsItem& item) { item.moveBy(1, 0); }));
        Task align = editor_.command("alignTopEdges:");
        align.prepare = [&] {
            // To move them anew.
            dashboard.undo({});
            editor_.select();
        };
        row("align and repaint", align,
            scene_.command([y = 0.0](QGraphicsItem& item) mutable { item.setY(y += 0.001); }));
        dashboard.undo({});
        row("bring to front and repaint", editor_.command("bringToFront:"),
            scene_.command([z = 0.0](QGraphicsItem& item) mutable { item.setZValue(++z); }));
        row("select all and repaint", editor_.command("selectAll:"),
            {[&] { scene_.selectAll(); }, [&] { scene_.select(); }});
    }

    void hitTest() {
        row("hit test, bare place", {[&] { editor_.dashboard->objectUnderPoint(bare); }},
            {[&] { scene_.itemAt(bare); }});
    }

    void clipboard() {
        auto& dashboard = *editor_.dashboard;
        row("copy of the canvas", {[&] { dashboard.editView()->copy(); }}, {}, 3);
        dashboard.selectAllObjects();
        row("copy of all to the pasteboard", {[&] { dashboard.copySelection({}); }}, {}, 3);
        row("paste of as many", {[&] { dashboard.paste({}); }, [&] { dashboard.undo({}); }}, {}, 3);
        dashboard.undo({});
        row("undo of that paste", {[&] { dashboard.undo({}); }, [&] { dashboard.paste({}); }}, {}, 3);
        const auto all = [&] {
            dashboard.undo({});
            dashboard.selectAllObjects();
        };
        row("deletion of all", {[&] { dashboard.deleteObject({}); }, all}, {}, 3);
        dashboard.undo({});
        row("undo of that deletion",
            {[&] { dashboard.undo({}); },
             [&] {
                 dashboard.selectAllObjects();
                 dashboard.deleteObject({});
             }},
            {}, 3);
        repaint();
    }

    double idle() {
        editor_.select();
        repaint();
        QTimer::singleShot(1000, qApp, &QCoreApplication::quit);
        const double before = bench::processorMilliseconds();
        QCoreApplication::exec();
        return bench::processorMilliseconds() - before;
    }

    double bytesOfBareWidget() const {
        const double before = bench::heapBytes();
        WidgetList widgets;
        for (const auto& frame : frames_) widgets.push_back(ZORWidgetHostView::initWithFrame(frame));
        return (bench::heapBytes() - before) / static_cast<double>(frames_.size());
    }

    std::vector<Rect> frames_;
    Editor editor_;
    Scene scene_;
};

}  // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QApplication application(argc, argv);
    Toolkit::install(std::make_unique<QtToolkit>());
    registerInstrumentClasses();
    std::vector<int> counts;
    for (const auto& word : application.arguments().mid(1)) counts.push_back(word.toInt());
    if (counts.empty()) counts = {10'000, 100'000};
    for (const int count : counts) Comparison(count).run();
}

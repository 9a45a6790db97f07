// The editor with many widgets, beside the toolkit's own graphics scene.

#include <QApplication>
#include <QGraphicsRectItem>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QImage>
#include <QPainter>
#include <cstdlib>
#include <random>

#include "bench/Measure.h"
#include "dashboard/ZORDashboardPlugIn.h"
#include "host/instruments/InstrumentClasses.h"
#include "qt/QtDrawingContext.h"
#include "qt/QtToolkit.h"

using namespace zor;
using bench::medianMilliseconds;

namespace {

constexpr double canvasSide = 20'000;
constexpr QSize viewport{1400, 1000};
constexpr int runs = 15;

std::vector<Rect> randomFrames(int count) {
    std::mt19937 random(1);
    std::uniform_real_distribution<double> place(0, canvasSide - 100);
    std::vector<Rect> frames;
    for (int index = 0; index < count; ++index) frames.push_back({place(random), place(random), 90, 30});
    return frames;
}

/// A dashboard in edit mode in a window of the viewport's size, painted as the screen is.
class Editor {
public:
    Editor(const std::vector<Rect>& frames, int selected) {
        WidgetList widgets;
        for (const auto& frame : frames) widgets.push_back(ZORWidgetHostView::textFieldWithRect(frame));
        dashboard = ZORDashboardPlugIn::initWithAgent(agent, controller, std::move(widgets), {canvasSide, canvasSide});
        window->setContentView(std::make_shared<View>(Rect{0, 0, 1420, 1000}));
        window->contentView()->addSubview(dashboard->view());
        dashboard->view()->setFrame({0, 0, 1420, 1000});
        dashboard->editDashboard({});
        select(selected);
    }

    void select(int count) {
        dashboard->unselectAllObjects();
        int left = count;
        for (auto& widget : dashboard->editView()->widgets()) {
            if (left-- <= 0) break;
            dashboard->selectObject(std::static_pointer_cast<ZORWidgetHostView>(widget.shared_from_this()));
        }
    }

    void send(EventType type, Point onCanvas) {
        const auto point = dashboard->editView()->convertPointToView(onCanvas, nullptr);
        window->sendEvent(Event::mouse(type, point, 0, 1));
    }

    void paint() {
        QPainter painter(&image_);
        QtDrawingContext context(painter);
        window->contentView()->displayTree(context, {0, 0, 1420, 1000}, true);
    }

    std::shared_ptr<Agent> agent = Agent::withName("Bench");
    std::shared_ptr<SiteWindowController> controller = std::make_shared<SiteWindowController>();
    std::shared_ptr<Window> window = std::make_shared<Window>();
    std::shared_ptr<ZORDashboardPlugIn> dashboard;

private:
    QImage image_{1420, 1000, QImage::Format_ARGB32_Premultiplied};
};

/// As many movable, selectable items in the toolkit's scene.
class Scene {
public:
    Scene(const std::vector<Rect>& frames, int selected) {
        scene_.setSceneRect(0, 0, canvasSide, canvasSide);
        for (const auto& frame : frames) {
            auto* item = scene_.addRect(0, 0, frame.width, frame.height);
            item->setPos(frame.x, frame.y);
            item->setFlags(QGraphicsItem::ItemIsMovable | QGraphicsItem::ItemIsSelectable);
            items_.push_back(item);
        }
        for (int index = 0; index < selected; ++index) items_[static_cast<std::size_t>(index)]->setSelected(true);
    }

    void paint() {
        QPainter painter(&image_);
        scene_.render(&painter, QRectF(0, 0, viewport.width(), viewport.height()),
                      QRectF(0, 0, viewport.width(), viewport.height()));
    }
    void moveSelection(double dx) {
        for (auto* item : scene_.selectedItems()) item->moveBy(dx, 0);
    }
    void band(double side) {
        QPainterPath path;
        path.addRect(0, 0, side, side);
        scene_.setSelectionArea(path);
    }
    void selectAll() { band(canvasSide); }
    QGraphicsItem* itemAt(double x, double y) { return scene_.itemAt(x, y, {}); }

private:
    QGraphicsScene scene_;
    std::vector<QGraphicsRectItem*> items_;
    QImage image_{viewport, QImage::Format_ARGB32_Premultiplied};
};

void compare(int count, int selected) {
    const auto frames = randomFrames(count);
    Editor editor(frames, selected);
    Scene scene(frames, selected);
    auto& dashboard = *editor.dashboard;
    bench::printHeading((std::to_string(count) + " widgets, " + std::to_string(selected) + " selected, milliseconds").c_str(),
                        "editor", "scene");

    const Point onWidget = dashboard.selectedObjects().front()->frame().center();
    double x = 0;
    editor.send(EventType::mouseDown, onWidget);
    bench::printRow("drag step and repaint",
                    medianMilliseconds(runs,
                                       [&] {
                                           editor.send(EventType::mouseDragged, {onWidget.x + (x += 1), onWidget.y});
                                           editor.paint();
                                       }),
                    medianMilliseconds(runs, [&] {
                        scene.moveSelection(1);
                        scene.paint();
                    }));
    editor.send(EventType::mouseUp, onWidget);
    editor.select(selected);
    bench::printRow("press", medianMilliseconds(
                                 runs, [&] { editor.send(EventType::mouseDown, onWidget); },
                                 [&] {
                                     editor.send(EventType::mouseUp, onWidget);
                                     editor.select(selected);
                                 }));
    editor.send(EventType::mouseUp, onWidget);
    dashboard.unselectAllObjects();
    dashboard.setMouseDownPoint({0, 0});
    dashboard.setDrawSelectionBox(true);
    dashboard.createRubberBand();
    double side = canvasSide / 3;
    bench::printRow("band step and repaint",
                    medianMilliseconds(runs,
                                       [&] {
                                           editor.send(EventType::mouseDragged, {side += 20, side});
                                           editor.paint();
                                       },
                                       [&] {
                                           if (!editor.window->hasPressedView()) {
                                               editor.send(EventType::mouseDown, {0, 0});
                                               dashboard.setMouseDownPoint({0, 0});
                                               dashboard.setDrawSelectionBox(true);
                                           }
                                       }),
                    medianMilliseconds(runs, [&] {
                        scene.band(side += 20);
                        scene.paint();
                    }));
    editor.send(EventType::mouseUp, {0, 0});
    const auto command = [&](const char* name, const char* action) {
        bench::printRow(name, medianMilliseconds(
                                  runs,
                                  [&] {
                                      dashboard.performWithSender(action, {});
                                      editor.paint();
                                  },
                                  [&] { editor.select(selected); }));
    };
    const auto arrow = Event::key(u"\uF703", rightArrowKeyCode, 0);
    bench::printRow("nudge and repaint", medianMilliseconds(
                                             runs,
                                             [&] {
                                                 dashboard.keyDown(arrow);
                                                 editor.paint();
                                             },
                                             [&] { editor.select(selected); }));
    command("align and repaint", "alignTopEdges:");
    command("bring to front and repaint", "bringToFront:");
    command("select all and repaint", "selectAll:");
    bench::printRow("hit test", medianMilliseconds(runs, [&] { dashboard.objectUnderPoint({9000, 9000}); }),
                    medianMilliseconds(runs, [&] { scene.itemAt(9000, 9000); }));
    bench::printRow("copy of the canvas", medianMilliseconds(3, [&] { dashboard.editView()->copy(); }));
    dashboard.selectAllObjects();
    dashboard.copySelection({});
    bench::printRow("paste of as many", medianMilliseconds(1, [&] { dashboard.paste({}); }));
}

}  // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QApplication application(argc, argv);
    Toolkit::install(std::make_unique<QtToolkit>());
    registerInstrumentClasses();
    compare(10'000, 1'000);
    compare(100'000, 1'000);
}

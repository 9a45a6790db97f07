#include "qt/panel/QtPropertyPanelPeer.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>

#include "host/instruments/ZORWidgetHostView.h"
#include "qt/QtConversions.h"
#include "qt/QtWindowPeer.h"
#include "qt/panel/GeometrySettings.h"

namespace zor {

namespace {

constexpr double greatestHeight = 560;

/// The widget whose place on the canvas is the target's own, or none where the target has none to set.
std::shared_ptr<ZORWidgetHostView> widgetAround(const std::shared_ptr<View>& target) {
    if (!target || !target->superview() || target->valueForKey("showPositionProperties") == Value(false)) return {};
    return std::dynamic_pointer_cast<ZORWidgetHostView>(target->superview()->shared_from_this());
}

}  // namespace

QtPropertyPanelPeer::QtPropertyPanelPeer(ZORPropertyPanelController& controller) : controller_(controller) {
    auto panel = std::make_unique<PropertyPanel>([&controller] { controller.noteChange(); });
    panel_ = panel.get();
    auto& window = *controller.window();
    window.setPeer(std::make_shared<QtWindowPeer>(window, std::move(panel)));
    controller.setObserver([this] { reload(); });
    showEntries();
    fitWindow();
}

QtPropertyPanelPeer::~QtPropertyPanelPeer() {
    watch({});
    // The panel goes with its window, later; nothing of it may reach the controller any more.
    if (panel_) panel_->setSections({}, {});
}

void QtPropertyPanelPeer::reload() {
    if (!panel_) return;
    const auto target = controller_.targetObject();
    if (target != target_.lock() || (target_.expired() && target)) return showEntries();
    // Shown anew, it is opened anew.
    if (!controller_.isVisible()) panel_->keepPresentValues();
    panel_->refresh();
}

void QtPropertyPanelPeer::showEntries() {
    const auto target = controller_.targetObject();
    target_ = target;
    const auto view = std::dynamic_pointer_cast<View>(target);
    const auto widget = widgetAround(view);
    std::vector<PanelSection> sections;
    if (widget) {
        sections.push_back(
            {QObject::tr("Position"), widget, &geometrySettings(), PanelSection::Arrangement::pairs});
    }
    sections.push_back({QObject::tr("Settings"), target, controller_.properties(), PanelSection::Arrangement::list});
    panel_->setSections(std::move(sections), {controller_.agent(), target});
    watch({view, widget});
}

void QtPropertyPanelPeer::watch(const std::vector<std::weak_ptr<View>>& views) {
    for (const auto& each : watched_) {
        if (const auto view = each.lock()) view->setChangeObserver({});
    }
    watched_ = views;
    for (const auto& each : watched_) {
        if (const auto view = each.lock()) {
            view->setChangeObserver([panel = panel_] {
                if (panel && panel->isVisible()) panel->scheduleRefresh();
            });
        }
    }
}

void QtPropertyPanelPeer::fitWindow() {
    auto& window = *controller_.window();
    const Rect frame = window.frame();
    const QScreen* screen = QGuiApplication::primaryScreen();
    const double room = screen ? frame.maxY() - flippedOnScreen(fromQt(screen->availableGeometry().bottomLeft())).y : 0;
    const double height = std::min({static_cast<double>(panel_->fullHeight()), greatestHeight, room});
    if (height > frame.height) window.setFrame({frame.x, frame.maxY() - height, frame.width, height});
}

}  // namespace zor

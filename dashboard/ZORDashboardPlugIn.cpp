#include "dashboard/ZORDashboardPlugIn.h"

#include <algorithm>
#include <limits>

#include "host/foundation/NotificationCenter.h"
#include "host/station/PlugInDescription.h"
#include "host/station/ZORHelpManager.h"

namespace zor {

namespace {

/// Left and top margins are repeated on the right and bottom, so that the widgets sit centred in equal margins.
Size sizeAroundWidgets(const WidgetList& widgets) {
    constexpr double farthest = std::numeric_limits<double>::max();
    double minX = farthest;
    double minY = farthest;
    double maxRight = 0;
    double maxBottom = 0;
    for (const auto& widget : widgets) {
        const Rect& frame = widget->frame();
        minX = std::min(minX, frame.x);
        maxRight = std::max(maxRight, frame.maxX());
        minY = std::min(minY, frame.y);
        maxBottom = std::max(maxBottom, frame.maxY());
    }
    if (minX == farthest) minX = 0;
    if (minY == farthest) minY = 0;
    return {maxRight + minX, maxBottom + minY};
}

}  // namespace

std::shared_ptr<ZORDashboardPlugIn> ZORDashboardPlugIn::initWithAgent(
    const std::shared_ptr<Agent>& agent, const std::shared_ptr<SiteWindowController>& siteWindowController,
    std::optional<WidgetList> widgets, Size size) {
    auto dashboard = std::make_shared<ZORDashboardPlugIn>();
    if (!dashboard->initDashboard(agent, siteWindowController, std::move(widgets), size)) return {};
    return dashboard;
}

bool ZORDashboardPlugIn::initDashboard(const std::shared_ptr<Agent>& agent,
                                       const std::shared_ptr<SiteWindowController>& siteWindowController,
                                       std::optional<WidgetList> widgets, Size size) {
    if (!initWithAgentSiteWindowController(agent, siteWindowController)) return false;
    if (size.width == 0 || size.height == 0) size = sizeAroundWidgets(widgets.value_or(WidgetList{}));
    setTitle("Unnamed");
    editView_ = ZORDashboardEditView::initWithFrame({0, 0, size.width, size.height});
    widgets_ = std::move(widgets);
    if (widgets_) editView_->addSubviews(*widgets_);
    undoManager_ = std::make_shared<UndoManager>();
    selectedObjects_.clear();
    return true;
}

ZORDashboardPlugIn::~ZORDashboardPlugIn() { unregisterForNotification(); }

std::shared_ptr<ZORPlugIn> ZORDashboardPlugIn::copyWithZone() {
    auto copy = std::static_pointer_cast<ZORDashboardPlugIn>(ZORPlugIn::copyWithZone());
    copy->setTitle(title());
    copy->setEditView(
        ask(editView_, [](auto& canvas) { return std::static_pointer_cast<ZORDashboardEditView>(canvas.copy()); }));
    return copy;
}

void ZORDashboardPlugIn::setPropertyPanelController(std::shared_ptr<ZORPropertyPanelController> controller) {
    propertyPanelController_ = std::move(controller);
}

void ZORDashboardPlugIn::viewWillDisappear() {
    ZORPlugIn::viewWillDisappear();
    hidePropertyPanel();
}

void ZORDashboardPlugIn::registerForNotification() {
    NotificationCenter::defaultCenter().addObserver(
        this, kAppTimerOneMinuteNotification, nullptr,
        [this](const Notification& notification) { topOfTheMinuteNotification(notification); });
}

void ZORDashboardPlugIn::unregisterForNotification() {
    NotificationCenter::defaultCenter().removeObserver(this, kAppTimerOneMinuteNotification, nullptr);
}

// Instruments keep themselves current; a dashboard has nothing to do each minute.
void ZORDashboardPlugIn::topOfTheMinuteNotification(const Notification&) {}

std::string ZORDashboardPlugIn::textDescription() const {
    return "Dashboard is a plug-in that provides customized instrument panels.";
}

std::string ZORDashboardPlugIn::htmlDescription() const {
    return "<table>" + htmlVersionRow(*this, "Dashboard Plug-In") + "<tr><td colspan=2><i>" + textDescription() +
           "</i></td></tr>" + "</table>";
}

std::shared_ptr<Image> ZORDashboardPlugIn::icon() const { return imageResource(*this, "icon"); }

void ZORDashboardPlugIn::showHelp() { ZORHelpManager::sharedHelpManager().openHelpAnchor("dashboard"); }

}  // namespace zor

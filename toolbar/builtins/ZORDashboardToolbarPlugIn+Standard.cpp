#include "toolbar/ZORDashboardToolbarPlugIn.h"

namespace zor {

std::shared_ptr<ZORDashboardPlugIn> ZORDashboardToolbarPlugIn::standardDashboardPlugIn() {
    WidgetList widgets;
    for (const auto& view : ask(agent(), [](Agent& station) { return station.dashboardWidgets(); })) {
        if (auto widget = std::dynamic_pointer_cast<ZORWidgetHostView>(view)) widgets.push_back(std::move(widget));
    }
    auto dashboard = ZORDashboardPlugIn::initWithAgent(agent(), siteWindowController(), std::move(widgets));
    if (!dashboard) return {};
    dashboard->view();
    dashboard->setTitle("Standard Dashboard");
    return dashboard;
}

}  // namespace zor

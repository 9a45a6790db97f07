#include <array>

#include "host/instruments/ZORPlotView.h"
#include "host/station/PropertyKeys.h"
#include "toolbar/ZORDashboardToolbarPlugIn.h"

namespace zor {

std::shared_ptr<ZORDashboardPlugIn> ZORDashboardToolbarPlugIn::quadPlotsPlugIn() {
    constexpr double margin = 10;
    constexpr double top = 12;
    constexpr double gap = 20;
    constexpr auto period = static_cast<std::uint32_t>(PlotPeriod::today);
    const auto station = agent();
    const auto property = [&](std::initializer_list<std::string_view> keys) {
        return ask(station, [&](const Agent& owner) { return owner.properties().objectForAnyKey(keys); });
    };
    const std::array properties{
        property({kOutdoorTemperature, kTemperature, "temperature1", kIndoorTemperature}),
        property({kOutdoorHumidity, kHumidity}),
        property({kWindSpeed}),
        property({kOutdoorDewPoint, kDewPoint}),
    };

    WidgetList widgets;
    Rect rect{margin, top, 480, 360};
    for (std::size_t index = 0; index < properties.size(); ++index) {
        auto widget = ZORWidgetHostView::plotViewWithRect(rect, station);
        auto plot = std::static_pointer_cast<ZORPlotView>(widget->targetView());
        plot->setProperty(properties[index]);
        plot->setPeriod(period);
        widgets.push_back(std::move(widget));
        if (index % 2 == 0) {
            rect.x += rect.width + gap;
        } else {
            // The row's y counts twice: the lower row stands a little farther off than the gap.
            rect.x = margin;
            rect.y += rect.y + rect.height + gap;
        }
    }

    auto dashboard = ZORDashboardPlugIn::initWithAgent(station, siteWindowController(), std::move(widgets));
    if (!dashboard) return {};
    dashboard->setTitle("Quad Plots");
    dashboard->view();
    return dashboard;
}

}  // namespace zor

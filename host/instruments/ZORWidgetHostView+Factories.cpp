#include <array>
#include <utility>

#include "host/instruments/ZORBoxView.h"
#include "host/instruments/ZORDateTimeFieldView.h"
#include "host/instruments/ZORImageView.h"
#include "host/instruments/ZORLEDView.h"
#include "host/instruments/ZORLevelIndicatorView.h"
#include "host/instruments/ZORLinearGaugeView.h"
#include "host/instruments/ZORMapView.h"
#include "host/instruments/ZORPlotView.h"
#include "host/instruments/ZORRoundGaugeView.h"
#include "host/instruments/ZORTextFieldView.h"
#include "host/instruments/ZORWebView.h"
#include "host/instruments/ZORWidgetHostView.h"

namespace zor {

using WidgetPtr = std::shared_ptr<ZORWidgetHostView>;

WidgetPtr ZORWidgetHostView::hosting(const Rect& rect, const std::shared_ptr<View>& target) {
    auto widget = initWithFrame(rect);
    widget->setTargetView(target);
    return widget;
}

WidgetPtr ZORWidgetHostView::textFieldWithRect(const Rect& rect) {
    return hosting(rect, std::make_shared<ZORTextFieldView>());
}

WidgetPtr ZORWidgetHostView::dateTimeFieldWithRect(const Rect& rect) {
    return hosting(rect, std::make_shared<ZORDateTimeFieldView>());
}

WidgetPtr ZORWidgetHostView::boxWithRect(const Rect& rect) {
    return hosting(rect, std::make_shared<ZORBoxView>());
}

WidgetPtr ZORWidgetHostView::imageViewWithRect(const Rect& rect) {
    return hosting(rect, std::make_shared<ZORImageView>());
}

WidgetPtr ZORWidgetHostView::ledWithRect(const Rect& rect) {
    return hosting(rect, std::make_shared<ZORLEDView>());
}

WidgetPtr ZORWidgetHostView::mapViewWithRect(const Rect& rect) {
    return hosting(rect, std::make_shared<ZORMapView>());
}

WidgetPtr ZORWidgetHostView::webViewWithRect(const Rect& rect) {
    return hosting(rect, std::make_shared<ZORWebView>());
}

WidgetPtr ZORWidgetHostView::plotViewWithRect(const Rect& rect, const std::shared_ptr<Agent>& agent) {
    const auto plot = std::make_shared<ZORPlotView>();
    plot->setAgent(agent);
    return hosting(rect, plot);
}

WidgetPtr ZORWidgetHostView::levelIndicatorWithRect(const Rect& rect) {
    return hosting(rect, std::make_shared<ZORLevelIndicatorView>());
}

WidgetPtr ZORWidgetHostView::roundGaugeWithRect(const Rect& rect) {
    return hosting(rect, std::make_shared<ZORRoundGaugeView>());
}

WidgetPtr ZORWidgetHostView::linearGaugeWithRect(const Rect& rect) {
    return hosting(rect, std::make_shared<ZORLinearGaugeView>());
}

WidgetPtr ZORWidgetHostView::widgetOfKind(std::string_view kind, const Rect& rect,
                                          const std::shared_ptr<Agent>& agent) {
    using Factory = WidgetPtr (*)(const Rect&);
    static constexpr std::array<std::pair<std::string_view, Factory>, 10> factories{{
        {"textField", textFieldWithRect},
        {"dateTimeField", dateTimeFieldWithRect},
        {"box", boxWithRect},
        {"imageView", imageViewWithRect},
        {"led", ledWithRect},
        {"mapView", mapViewWithRect},
        {"webView", webViewWithRect},
        {"levelIndicator", levelIndicatorWithRect},
        {"roundGauge", roundGaugeWithRect},
        {"linearGauge", linearGaugeWithRect},
    }};
    if (kind == "plotView") return plotViewWithRect(rect, agent);
    for (const auto& [word, make] : factories) {
        if (word == kind) return make(rect);
    }
    return {};
}

}  // namespace zor

#include "app/inspect/UnlinkedInstruments.h"

#include <algorithm>
#include <array>

namespace zor {

std::optional<std::string> storedPropertyName(const ZORWidgetHostView& widget) {
    const auto instrument = std::dynamic_pointer_cast<LinkedInstrumentView>(widget.targetView());
    if (!instrument) return {};
    const auto name = instrument->propertyName();
    return name ? name : instrument->lastPropertyName();
}

std::vector<UnlinkedInstrument> unlinkedInstrumentsOn(const View& canvas, const Agent& agent) {
    std::vector<UnlinkedInstrument> unlinked;
    for (const auto& view : canvas.subviews()) {
        const auto widget = std::dynamic_pointer_cast<ZORWidgetHostView>(view);
        const auto name = widget ? storedPropertyName(*widget) : std::nullopt;
        if (name && !agent.properties().find(*name)) unlinked.push_back({{}, widget, *name});
    }
    return unlinked;
}

std::vector<UnlinkedInstrument> unlinkedInstrumentsOf(const SiteDocument& document) {
    auto plugIns = document.siteWindowController()->plugIns();
    for (const auto& window : document.windowControllers()) {
        const auto plugIn = window->contentViewController();
        if (plugIn && std::ranges::find(plugIns, plugIn) == plugIns.end()) plugIns.push_back(plugIn);
    }
    std::vector<UnlinkedInstrument> unlinked;
    for (const auto& plugIn : plugIns) {
        const auto canvas = plugIn->valueForKey("editView").as<View>();
        if (!canvas) continue;
        for (auto& each : unlinkedInstrumentsOn(*canvas, *document.agent())) {
            each.dashboard = plugIn;
            unlinked.push_back(std::move(each));
        }
    }
    return unlinked;
}

std::string labelOfKind(const std::string& kind) {
    using Label = std::pair<std::string_view, std::string_view>;
    static constexpr std::array labels{
        Label{"textField", "Text Label"},
        Label{"dateTimeField", "Date and Time"},
        Label{"box", "Box"},
        Label{"imageView", "Image"},
        Label{"led", "LED"},
        Label{"mapView", "Map"},
        Label{"webView", "Web View"},
        Label{"plotView", "Plot"},
        Label{"levelIndicator", "Level Indicator"},
        Label{"roundGauge", "Round Gauge"},
        Label{"linearGauge", "Linear Gauge"},
    };
    const auto found = std::ranges::find(labels, kind, &Label::first);
    return found == labels.end() ? kind : std::string(found->second);
}

Status linkInstrument(const UnlinkedInstrument& unlinked, const std::string& propertyName) {
    const auto instrument = unlinked.widget->instrument();
    if (!instrument) return Error{"the instrument is gone"};
    if (const auto status = applySetting(*instrument, instrument->settings(), "propertyName", propertyName); !status) {
        return status;
    }
    const auto site = ask(unlinked.dashboard, [](const ZORPlugIn& plugIn) { return plugIn.siteWindowController(); });
    const auto document = ask(site, [](const SiteWindowController& controller) { return controller.document(); });
    ask(document, [](SiteDocument& changed) { changed.setDirty(true); });
    return success();
}

}  // namespace zor

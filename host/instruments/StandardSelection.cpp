#include "host/instruments/StandardSelection.h"

#include <algorithm>
#include <initializer_list>

#include "host/station/PropertyKeys.h"

namespace zor {

namespace {

using Properties = StandardSelection::Properties;

constexpr std::size_t mostDisplays = 4;
constexpr std::size_t mostPlots = 3;

bool holds(const Properties& list, const std::shared_ptr<Property>& property) {
    return std::ranges::find(list, property) != list.end();
}

/// Those that are there and not yet in the list.
void append(Properties& list, const Properties& properties) {
    for (const auto& property : properties) {
        if (property && !holds(list, property)) list.push_back(property);
    }
}

void cut(Properties& list, std::size_t most) {
    if (list.size() > most) list.resize(most);
}

}  // namespace

StandardSelection StandardSelection::of(const Agent& agent) {
    const auto first = [&](std::initializer_list<std::string_view> keys) {
        return agent.properties().objectForAnyKey(keys);
    };
    const auto temperature = first({kOutdoorTemperature, kTemperature, "temperature1", kIndoorTemperature});
    const auto windSpeed = first({kWindSpeed});
    const auto pressure = first({kBarometricPressureRelative, kBarometricPressureAbsolute});
    const auto humidity = first({kOutdoorHumidity, kHumidity, kIndoorHumidity});

    StandardSelection selection;
    append(selection.gauges, {temperature, windSpeed, first({kWindDirection}), pressure});
    append(selection.displays,
           {humidity, first({kOutdoorDewPoint, kDewPoint, kIndoorDewPoint}), first({kRainToday, kRainRate}),
            first({kWindGust}), first({kFeelsLike, kOutdoorHeatIndex, kHeatIndex})});
    for (const auto& property : agent.properties().all()) {
        if (!holds(selection.gauges, property)) append(selection.displays, {property});
    }
    cut(selection.displays, mostDisplays);
    append(selection.plots, {temperature, pressure, humidity, windSpeed});
    append(selection.plots, selection.displays);
    append(selection.plots, selection.gauges);
    cut(selection.plots, mostPlots);
    return selection;
}

}  // namespace zor

#include "host/instruments/ZORRoundGaugeView.h"

#include <algorithm>
#include <utility>

#include "host/foundation/ClassBuilder.h"
#include "host/instruments/InstrumentDrawing.h"
#include "host/instruments/NiceStep.h"
#include "host/station/PropertyKeys.h"
#include "host/station/ValueFormats.h"
#include "host/views/Toolkit.h"

namespace zor {

namespace {

/// In points: what a number of the scale leaves free around it, as a part of its font's size, what a mark without
/// number takes of the scale, and how close small marks may stand.
constexpr double numberClearance = 1.2;
constexpr double bareMarkRoom = 9;
constexpr double leastSmallMarkDistance = 3;

}  // namespace

const ClassRecord& ZORRoundGaugeView::staticClass() {
    using Self = ZORRoundGaugeView;
    static const ClassRecord& record = ClassBuilder<Self>("ZORRoundGaugeView", &ScaledInstrumentView::staticClass())
                                           .creatable()
                                           .property("caption", &Self::caption, &Self::setCaption)
                                           .property("valueFont", &Self::valueFont, &Self::setValueFont)
                                           .property("drawsRim", &Self::drawsRim, &Self::setDrawsRim)
                                           .property("needleColor", &Self::needleColor, &Self::setNeedleColor)
                                           .registered();
    return record;
}

const SettingList& ZORRoundGaugeView::settings() const {
    static const SettingList list = SettingsBuilder(staticClass(), ScaledInstrumentView::settings())
                                        .add("caption", "Caption", SettingKind::text)
                                        .font("valueFont", "Value Font", &ZORRoundGaugeView::setValueFont)
                                        .add("drawsRim", "Rim", SettingKind::boolean)
                                        .add("needleColor", "Needle Color", SettingKind::color)
                                        .build();
    return list;
}

void ZORRoundGaugeView::setValueFont(Font font) {
    if (isUsableFont(font)) store(valueFont_, std::move(font));
}

bool ZORRoundGaugeView::isCompass() const {
    if (property()) return property()->quantity() == Quantity::direction;
    return propertyName() && namingOfProperty(*propertyName()).quantity == Quantity::direction;
}

std::optional<std::string> ZORRoundGaugeView::text() const {
    return formatValue(currentValue(), unitShown(), compassPointFormat);
}

std::string ZORRoundGaugeView::captionShown() const {
    if (!caption_.empty()) return caption_;
    return property() ? property()->displayName() : propertyName().value_or("");
}

void ZORRoundGaugeView::drawRect(DrawingContext& context, const Rect&) {
    if (!isVisibleArea(bounds())) return;
    const GaugeStyle style{faceColor(), needleColor_, valueFont_, drawsRim_};
    if (isCompass()) {
        const std::string degrees =
            currentValue() ? formatValue(currentValue(), unitShown(), valueWithShortUnitFormat) : std::string();
        drawCompass(context, bounds(), {captionShown(), *text(), degrees, currentValue()}, style);
        return;
    }
    drawDial(context, bounds(),
             {.title = captionShown(),
              .value = *text(),
              .unit = std::string(unitShown().shortName),
              .marks = dialMarks(),
              .bands = dialBands(),
              .needle = currentFraction()},
             style);
}

std::vector<DialContent::Mark> ZORRoundGaugeView::dialMarks() const {
    const double radius = gaugeRadius(bounds());
    const auto numbers = dialNumberFont(radius);
    const auto room = [&](const ScaleMark& mark) {
        return Toolkit::current().sizeOfText(mark.label, *numbers).width + numberClearance * numbers->size;
    };
    const auto strong = numbers ? marks(dialNumberLength(radius), room)
                                : marks(dialScaleLength(radius), [](const ScaleMark&) { return bareMarkRoom; });
    std::vector<DialContent::Mark> all;
    for (const auto& mark : strong) all.push_back({mark.fraction, mark.label});
    if (strong.size() < 2) return all;

    const NiceStep step(strong[1].value - strong[0].value, 1);
    const NiceStep small(step.size(), step.parts());
    if (small.size() / (maximum() - minimum()) * dialScaleLength(radius) < leastSmallMarkDistance) return all;
    for (const double value : small.multiplesWithin(minimum(), maximum())) {
        if (step.nearest(value) != value) all.push_back({fractionOf(value)});
    }
    return all;
}

/// Each threshold's colour up to the next one; without thresholds, the value's distance from zero or, on a scale
/// without it, from the scale's beginning.
std::vector<DialContent::Band> ZORRoundGaugeView::dialBands() const {
    std::vector<DialContent::Band> bands;
    for (const auto& threshold : thresholds()) {
        const double from = fractionOf(threshold.value);
        if (!bands.empty()) bands.back().to = from;
        bands.push_back({from, 1, threshold.color});
    }
    const auto value = currentFraction();
    if (!bands.empty() || !value) return bands;
    const auto [from, to] = std::minmax({fractionOf(0), *value});
    return {{from, to, barColor()}};
}

}  // namespace zor

#include "host/instruments/ScaledInstrumentView.h"

#include <algorithm>

#include "host/foundation/ClassBuilder.h"
#include "host/instruments/NiceStep.h"
#include "host/instruments/QuantityRanges.h"
#include "host/station/ValueFormats.h"
#include "host/views/DrawingContext.h"

namespace zor {

const ClassRecord& ScaledInstrumentView::staticClass() {
    using Self = ScaledInstrumentView;
    static const ClassRecord& record = ClassBuilder<Self>("ScaledInstrumentView", &LinkedInstrumentView::staticClass())
                                           .property("minimum", &Self::minimum, &Self::setMinimum)
                                           .property("maximum", &Self::maximum, &Self::setMaximum)
                                           .property("automaticRange", &Self::automaticRange, &Self::setAutomaticRange)
                                           .property("barColor", &Self::barColor, &Self::setBarColor)
                                           .property("faceColor", &Self::faceColor, &Self::setFaceColor)
                                           .property("thresholds", &Self::thresholds, &Self::setThresholds)
                                           .registered();
    return record;
}

const SettingList& ScaledInstrumentView::settings() const {
    // The automatic range comes after the ends, which switch it off, so that copies and archives keep it.
    static const SettingList list = SettingsBuilder(staticClass(), LinkedInstrumentView::settings())
                                        .number("minimum", "Minimum", -largestSettingNumber, largestSettingNumber)
                                        .number("maximum", "Maximum", -largestSettingNumber, largestSettingNumber)
                                        .add("automaticRange", "Automatic Range", SettingKind::boolean)
                                        .add("barColor", "Color", SettingKind::color)
                                        .add("faceColor", "Face Color", SettingKind::color)
                                        .add("thresholds", "Colors from Values", SettingKind::thresholds)
                                        .build();
    return list;
}

void ScaledInstrumentView::setMinimum(double minimum) {
    range_ = {bounded(minimum, -largestSettingNumber, largestSettingNumber), range().greatest};
    setAutomaticRange(false);
}

void ScaledInstrumentView::setMaximum(double maximum) {
    range_ = {range().least, bounded(maximum, -largestSettingNumber, largestSettingNumber)};
    setAutomaticRange(false);
}

std::optional<double> ScaledInstrumentView::currentFraction() const {
    const auto value = currentValue();
    return value ? std::optional(fractionOf(*value)) : std::nullopt;
}

Color ScaledInstrumentView::currentColor() const {
    const auto value = currentValue();
    return value ? colorForValue(thresholds_, *value, barColor_) : barColor_;
}

std::vector<ScaleMark> ScaledInstrumentView::marks(double length,
                                                   const std::function<double(const ScaleMark&)>& extent) const {
    for (int steps = 10; steps >= 1; --steps) {
        auto scale = marksInSteps(steps);
        if (scale.size() < 2) break;
        double largest = 0;
        for (const auto& mark : scale) largest = std::max(largest, extent(mark));
        if (largest <= (scale[1].fraction - scale[0].fraction) * length) return scale;
    }
    return {};
}

std::vector<ScaleMark> ScaledInstrumentView::marksInSteps(int mostSteps) const {
    const auto [least, greatest] = range();
    if (!(greatest > least)) return {};
    const NiceStep step(greatest - least, mostSteps);
    std::vector<ScaleMark> marks;
    for (const double value : step.multiplesWithin(least, greatest)) {
        marks.push_back({value, fractionOf(value), formatValue(value, unitShown(), plainValueFormat, step.decimals())});
    }
    return marks;
}

void ScaledInstrumentView::drawFace(DrawingContext& context) const {
    if (faceColor_.alpha > 0) context.fillRect(bounds(), faceColor_);
}

const Unit& ScaledInstrumentView::unitShown() const {
    const auto shown = property();
    return shown ? shown->unit() : baseUnit(Quantity::none);
}

ScaledInstrumentView::Range ScaledInstrumentView::usualRange() const {
    const Unit& unit = unitShown();
    const auto& usual = rangeOfQuantity(unit.quantity);
    if (unit.scale == 1 && unit.offset == 0) return {usual.least, usual.greatest};
    const double least = fromBase(usual.least, unit);
    const double greatest = fromBase(usual.greatest, unit);
    // Round numbers in other units as well, such as 0 to 120 °F for -20 °C to 50 °C.
    const NiceStep step(greatest - least, 10);
    return {step.nearest(least), step.nearest(greatest)};
}

double ScaledInstrumentView::fractionOf(double value) const {
    const auto [least, greatest] = range();
    return greatest > least ? std::clamp((value - least) / (greatest - least), 0.0, 1.0) : 0;
}

}  // namespace zor

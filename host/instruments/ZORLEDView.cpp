#include "host/instruments/ZORLEDView.h"

#include <algorithm>

#include "host/foundation/ClassBuilder.h"
#include "host/instruments/InstrumentDrawing.h"
#include "host/instruments/InstrumentSettings.h"

namespace zor {

namespace {

Gradient downwards(const Rect& rect, Color top, Color bottom) {
    return {.start = rect.origin(), .end = {rect.x, rect.maxY()}, .stops = {{0, top}, {1, bottom}}};
}

Rect squareAround(Point center, double radius) {
    return {center.x - radius, center.y - radius, 2 * radius, 2 * radius};
}

}  // namespace

const ClassRecord& ZORLEDView::staticClass() {
    using Self = ZORLEDView;
    static const ClassRecord& record = ClassBuilder<Self>("ZORLEDView", &LinkedInstrumentView::staticClass())
                                           .creatable()
                                           .property("offColor", &Self::offColor, &Self::setOffColor)
                                           .property("onColor", &Self::onColor, &Self::setOnColor)
                                           .property("thresholds", &Self::thresholds, &Self::setThresholds)
                                           .property("lightColor", &Self::lightColor)
                                           .registered();
    return record;
}

const SettingList& ZORLEDView::settings() const {
    static const SettingList list = SettingsBuilder(staticClass(), LinkedInstrumentView::settings())
                                        .add("offColor", "Color without Value", SettingKind::color)
                                        .add("onColor", "Color", SettingKind::color)
                                        .add("thresholds", "Colors from Values", SettingKind::thresholds)
                                        .build();
    return list;
}

Color ZORLEDView::lightColor() const {
    const auto value = currentValue();
    return value ? colorForValue(thresholds_, *value, onColor_) : offColor_;
}

void ZORLEDView::drawRect(DrawingContext& context, const Rect&) {
    if (!isVisibleArea(bounds())) return;
    const Point center = bounds().center();
    const double radius = std::min(bounds().width, bounds().height) / 2;
    const Color color = lightColor();

    // A metal ring, a groove, the lens lit from below, and the reflection of a window above.
    const Rect ring = squareAround(center, radius);
    context.fillPathWithGradient(Path::oval(ring), downwards(ring, Color::rgb(0xf2f2f4), Color::rgb(0xa1a1a6)));
    const Rect groove = squareAround(center, radius * 0.86);
    context.fillPath(Path::oval(groove), color.mixedWith(Color::black(), 0.45));
    const double lens = radius * 0.81;
    const Gradient glow{
        .kind = Gradient::Kind::radial,
        .start = {center.x, center.y + lens * 0.45},
        .end = {},
        .radius = lens * 1.6,
        .stops = {
            {0, color.mixedWith(Color::white(), 0.45)}, {0.45, color}, {1, color.mixedWith(Color::black(), 0.35)}}};
    context.fillPathWithGradient(Path::circle(center, lens), glow);
    const Rect shine{center.x - lens * 0.62, center.y - lens * 0.9, lens * 1.24, lens * 0.85};
    context.fillPathWithGradient(Path::oval(shine),
                                 downwards(shine, Color::white().withAlpha(0.75), Color::white().withAlpha(0.05)));
}

}  // namespace zor

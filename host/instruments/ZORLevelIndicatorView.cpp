#include "host/instruments/ZORLevelIndicatorView.h"

#include <algorithm>

#include "host/foundation/ClassBuilder.h"
#include "host/instruments/InstrumentDrawing.h"
#include "host/station/ValueFormats.h"
#include "host/views/Toolkit.h"

namespace zor {

namespace {

/// Scales in smaller letters are left out.
constexpr double smallestLabelSize = 7;
constexpr double largestLabelSize = 48;
/// Of the marks below the bar, as a part of the labels' size.
constexpr double markLength = 0.35;
constexpr double lineHeight = 1.25;

}  // namespace

const ClassRecord& ZORLevelIndicatorView::staticClass() {
    static const ClassRecord& record =
        ClassBuilder<ZORLevelIndicatorView>("ZORLevelIndicatorView", &ScaledInstrumentView::staticClass())
            .creatable()
            .registered();
    return record;
}

void ZORLevelIndicatorView::drawRect(DrawingContext& context, const Rect&) {
    if (!isVisibleArea(bounds())) return;
    drawFace(context);
    const double barHeight = std::min({bounds().height * 0.42, bounds().width * 0.12, 120.0});
    const double fontSize = std::min(barHeight * 0.75, largestLabelSize);
    const bool hasScale = fontSize >= smallestLabelSize;
    const double scaleHeight = hasScale ? fontSize * (markLength + lineHeight) : 0;
    const double height = hasScale ? barHeight : std::min(bounds().height, bounds().width * 0.24);
    const Rect bar{0, (bounds().height - height - scaleHeight) / 2, bounds().width, height};
    drawBar(context, bar);
    if (hasScale) drawScale(context, bar, fontSize);
}

void ZORLevelIndicatorView::drawBar(DrawingContext& context, const Rect& bar) const {
    const double radius = std::min(bar.height / 2, 6.0);
    const Path track = Path::roundedRect(bar, radius);
    context.fillPath(track, inks().track);
    const auto fraction = currentFraction();
    if (!fraction) {
        drawFittedText(context, missingValueText, insetRect(bar, radius, 0), {.size = bar.height * 0.8},
                       inks().secondary);
        return;
    }
    context.save();
    context.clipToPath(track);
    context.fillRect({bar.x, bar.y, bar.width * *fraction, bar.height}, currentColor());
    context.restore();
}

void ZORLevelIndicatorView::drawScale(DrawingContext& context, const Rect& bar, double fontSize) const {
    const Font font{.size = fontSize};
    const auto width = [&](const ScaleMark& mark) { return Toolkit::current().sizeOfText(mark.label, font).width; };
    // Labels at the ends move inwards by half their width and must not meet their neighbours there.
    const auto scale = marks(bar.width, [&](const ScaleMark& mark) { return 1.5 * width(mark) + fontSize * 0.4; });
    if (scale.empty()) return;
    const double labelTop = bar.maxY() + fontSize * markLength;
    Path lines;
    for (const auto& mark : scale) {
        const double x = std::clamp(bar.x + mark.fraction * bar.width, bar.x + 0.5, bar.maxX() - 0.5);
        lines.addSegment({x, bar.maxY() + 1}, {x, labelTop});
        const double labelWidth = width(mark);
        const double left = std::clamp(x - labelWidth / 2, bar.x, bar.maxX() - labelWidth);
        drawFittedText(context, mark.label, {left, labelTop, labelWidth, fontSize * lineHeight}, font,
                       inks().secondary);
    }
    context.strokePath(lines, {.color = inks().secondary.withAlpha(0.6), .width = 1});
}

}  // namespace zor

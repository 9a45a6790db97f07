#include "host/instruments/ZORLinearGaugeView.h"

#include <algorithm>

#include "host/foundation/ClassBuilder.h"
#include "host/instruments/InstrumentDrawing.h"
#include "host/station/ValueFormats.h"
#include "host/views/Toolkit.h"

namespace zor {

namespace {

/// Labels in smaller letters are left out.
constexpr double smallestLabelSize = 6;
constexpr double largestLabelSize = 60;
/// As parts of the labels' size.
constexpr double lineHeight = 1.25;
constexpr double columnWidth = 1.3;
constexpr double gap = 0.45;
constexpr double markLength = 0.55;
constexpr double valueSize = 1.4;

/// The space between the unit above and the value below in which the ends of the scale still have room.
Rect scaleArea(const Rect& bounds, double fontSize, bool hasLabels) {
    const double end = columnWidth * fontSize;
    const double top = hasLabels ? fontSize * lineHeight : 0;
    const double bottom = hasLabels ? fontSize * valueSize * lineHeight : 0;
    return {0, top + end, bounds.width, bounds.height - top - bottom - 2 * end};
}

}  // namespace

const ClassRecord& ZORLinearGaugeView::staticClass() {
    static const ClassRecord& record =
        ClassBuilder<ZORLinearGaugeView>("ZORLinearGaugeView", &ScaledInstrumentView::staticClass())
            .creatable()
            .registered();
    return record;
}

std::optional<std::string> ZORLinearGaugeView::text() const {
    return formatValue(currentValue(), unitShown(), plainValueFormat);
}

void ZORLinearGaugeView::drawRect(DrawingContext& context, const Rect&) {
    if (!isVisibleArea(bounds())) return;
    drawFace(context);
    const double fontSize = std::min({bounds().width * 0.13, bounds().height * 0.07, largestLabelSize});
    const bool hasLabels = fontSize >= smallestLabelSize;
    // Without labels the column alone fills the middle of the view.
    const double unitSize = hasLabels ? fontSize : std::min(bounds().width * 0.25, bounds().height * 0.14);
    const Rect area = scaleArea(bounds(), unitSize, hasLabels);
    const Font font{.size = fontSize};
    std::vector<ScaleMark> scale;
    double labelWidth = 0;
    if (hasLabels) {
        scale = marks(area.height, [&](const ScaleMark&) { return fontSize * lineHeight * 1.5; });
        for (const auto& mark : scale) {
            labelWidth = std::max(labelWidth, Toolkit::current().sizeOfText(mark.label, font).width);
        }
    }

    const double column = columnWidth * unitSize;
    const double beside = scale.empty() ? 0 : fontSize * (2 * gap + markLength) + labelWidth;
    const double left = std::max(0.0, (bounds().width - column - beside) / 2);
    drawColumn(context, {left, area.y, column, area.height});
    if (!hasLabels) return;
    drawScale(context, scale, area, left + column + fontSize * gap, fontSize);

    const double lineOfUnit = fontSize * lineHeight;
    drawFittedText(context, unitShown().shortName, {0, 0, bounds().width, lineOfUnit}, font, inks().secondary);
    const double lineOfValue = fontSize * valueSize * lineHeight;
    drawFittedText(context, *text(), {0, bounds().height - lineOfValue, bounds().width, lineOfValue},
                   {.size = fontSize * valueSize, .bold = true}, inks().ink);
}

/// A glass tube with a bulb, both filled up to the value.
void ZORLinearGaugeView::drawColumn(DrawingContext& context, const Rect& column) const {
    const double width = column.width * 0.62;
    const double bulb = column.width / 2;
    const Rect tube{column.center().x - width / 2, column.y - width / 2, width, column.height + width / 2 + bulb};
    const Point bulbCenter{column.center().x, column.maxY() + bulb};
    const Color glass = inks().track;
    context.fillPath(Path::roundedRect(tube, width / 2), glass);
    context.fillPath(Path::circle(bulbCenter, bulb), glass);

    const auto fraction = currentFraction();
    if (!fraction) return;
    const double wall = width * 0.2;
    const double inner = width - 2 * wall;
    const double top = column.maxY() - *fraction * column.height;
    const Rect filled{column.center().x - inner / 2, top, inner, bulbCenter.y - top};
    context.fillPath(Path::roundedRect(filled, inner * 0.3), currentColor());
    context.fillPath(Path::circle(bulbCenter, bulb - wall), currentColor());
}

void ZORLinearGaugeView::drawScale(DrawingContext& context, const std::vector<ScaleMark>& scale, const Rect& area,
                                   double left, double fontSize) const {
    if (scale.empty()) return;
    const Font font{.size = fontSize};
    const double length = fontSize * markLength;
    const auto heightOf = [&area](double fraction) { return area.maxY() - fraction * area.height; };
    const double labelLeft = left + length + fontSize * gap;
    const double line = fontSize * lineHeight;
    Path marks;
    for (const auto& mark : scale) {
        const double y = heightOf(mark.fraction);
        marks.addSegment({left, y}, {left + length, y});
        drawFittedText(context, mark.label, {labelLeft, y - line / 2, bounds().width - labelLeft, line}, font,
                       inks().ink, TextAlignment::left);
    }
    context.strokePath(marks, {.color = inks().secondary, .width = 1.2});

    // Half steps between the marks, as far as the scale reaches.
    const double half = (scale[1].fraction - scale[0].fraction) / 2;
    Path halves;
    for (double fraction = scale.front().fraction + half; fraction < 1; fraction += 2 * half) {
        halves.addSegment({left, heightOf(fraction)}, {left + length * 0.55, heightOf(fraction)});
    }
    context.strokePath(halves, {.color = inks().secondary.withAlpha(0.6), .width = 1});
}

}  // namespace zor

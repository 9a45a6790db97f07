#include <cmath>
#include <numbers>

#include "host/instruments/GaugeGeometry.h"
#include "host/instruments/GaugeParts.h"
#include "host/views/Toolkit.h"

namespace zor {

namespace {

// In parts of the radius.
constexpr double trackRadius = 0.865;
constexpr double trackWidth = 0.055;
constexpr double tickOuter = 0.82;
constexpr double majorTickInner = 0.745;
constexpr double minorTickInner = 0.785;
/// Where the numbers end, towards the marks.
constexpr double numberOuter = 0.715;
constexpr double numberSize = 0.105;
/// Digits are about this part of their font's size high.
constexpr double digitHeight = 0.72;

// In points: what is smaller is left out.
constexpr double leastNumberSize = 7.5;
constexpr double leastRadiusWithUnit = 40;
constexpr double leastRadiusWithTitle = 72;

double arcLength(double radius) {
    return radius * dialSweep * std::numbers::pi / 180;
}

void drawTrack(const GaugeParts& parts, const DialContent& content) {
    const auto stroke = [&](double from, double to, Color color, LineCap cap) {
        parts.context().strokePath(
            arcBetweenBearings(parts.center(), parts.points(trackRadius), dialBearing(from), dialBearing(to)),
            {.color = color, .width = parts.points(trackWidth), .cap = cap});
    };
    stroke(0, 1, parts.inks().hairline.withAlpha(0.65), LineCap::butt);
    for (const auto& band : content.bands) {
        if (band.to > band.from) stroke(band.from, band.to, band.color, LineCap::butt);
    }
}

/// Wide numbers stand farther in, so that every number ends equally far from its mark.
void drawNumber(const GaugeParts& parts, const std::string& number, const Font& font, double bearing) {
    const Size size = Toolkit::current().sizeOfText(number, font);
    const Point towards = pointAtBearing({}, 1, bearing);
    const double reach = std::abs(towards.x) * size.width / 2 + std::abs(towards.y) * font.size * digitHeight / 2;
    const Point middle = pointAtBearing(parts.center(), parts.points(numberOuter) - reach, bearing);
    parts.context().drawText(number, {middle.x - size.width, middle.y - size.height, 2 * size.width, 2 * size.height},
                             font, parts.inks().ink, TextAlignment::center, VerticalAlignment::center);
}

void drawMarks(const GaugeParts& parts, const DialContent& content) {
    Path fine;
    Path strong;
    const auto numbers = dialNumberFont(parts.points(1));
    for (const auto& mark : content.marks) {
        const double bearing = dialBearing(mark.fraction);
        if (mark.label.empty()) {
            fine.addSegment(parts.at(tickOuter, bearing), parts.at(minorTickInner, bearing));
            continue;
        }
        strong.addSegment(parts.at(tickOuter, bearing), parts.at(majorTickInner, bearing));
        if (!numbers) continue;
        drawNumber(parts, mark.label, *numbers, bearing);
    }
    parts.context().strokePath(fine, {.color = parts.inks().secondary, .width = std::fmax(0.5, parts.points(0.009))});
    parts.context().strokePath(strong, {.color = parts.inks().ink, .width = std::fmax(1, parts.points(0.017))});
}

/// Below the middle, between the ends of the scale, where the needle never comes.
void drawTexts(const GaugeParts& parts, const DialContent& content) {
    const double radius = parts.points(1);
    if (radius >= leastRadiusWithTitle) {
        parts.drawTitle(content.title, 0.34, {0.56, 0.23}, 0.105);
        parts.drawLine(content.value, 0.605, {0.72, 0.28}, parts.valueFont(0.25), parts.inks().ink);
    } else {
        parts.drawLine(content.value, 0.52, {0.92, 0.4}, parts.valueFont(0.36), parts.inks().ink);
    }
    if (radius >= leastRadiusWithUnit) {
        parts.drawLine(content.unit, 0.81, {0.5, 0.15}, parts.font(0.115), parts.inks().secondary);
    }
}

}  // namespace

std::optional<Font> dialNumberFont(double radius) {
    const Font font{.size = radius * numberSize};
    return font.size >= leastNumberSize ? std::optional(font) : std::nullopt;
}

double dialNumberLength(double radius) {
    return arcLength(radius * (numberOuter - numberSize));
}

double dialScaleLength(double radius) {
    return arcLength(radius * tickOuter);
}

void drawDial(DrawingContext& context, const Rect& bounds, const DialContent& content, const GaugeStyle& style) {
    const GaugeParts parts(context, bounds, style);
    parts.drawFace();
    drawTrack(parts, content);
    drawMarks(parts, content);
    drawTexts(parts, content);
    if (content.needle) {
        parts.drawNeedle(dialBearing(*content.needle), {.tail = -0.16, .shoulder = 0, .tip = 0.79, .width = 0.075});
    }
    parts.drawHub();
}

}  // namespace zor

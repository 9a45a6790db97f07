#include <array>
#include <cmath>
#include <string_view>

#include "host/instruments/GaugeParts.h"
#include "host/station/ValueFormats.h"

namespace zor {

namespace {

// In parts of the radius.
constexpr double discRadius = 0.46;
/// The needle ends where the letters begin, so that it never covers one.
constexpr double needleTip = 0.68;
constexpr double letterRadius = 0.765;
constexpr double tickOuter = 0.925;

// In points: what is smaller is left out.
constexpr double leastRadiusWithLetters = 36;
constexpr double leastRadiusWithMinorLetters = 80;
constexpr double leastRadiusWithTitle = 84;
constexpr double leastRadiusWithFineTicks = 60;
constexpr double leastRadiusWithDegrees = 44;

void drawTicks(const GaugeParts& parts) {
    Path fine;
    Path strong;
    const int step = parts.points(1) >= leastRadiusWithFineTicks ? 5 : 15;
    for (int bearing = 0; bearing < 360; bearing += step) {
        const bool isStrong = bearing % 45 == 0;
        const double length = isStrong ? 0.06 : bearing % 15 == 0 ? 0.045 : 0.025;
        (isStrong ? strong : fine).addSegment(parts.at(tickOuter, bearing), parts.at(tickOuter - length, bearing));
    }
    parts.context().strokePath(fine, {.color = parts.inks().secondary, .width = std::fmax(0.5, parts.points(0.009))});
    parts.context().strokePath(strong, {.color = parts.inks().ink, .width = std::fmax(1, parts.points(0.018))});
}

void drawLetters(const GaugeParts& parts) {
    if (parts.points(1) < leastRadiusWithLetters) return;
    const int step = parts.points(1) >= leastRadiusWithMinorLetters ? 45 : 90;
    for (int bearing = 0; bearing < 360; bearing += step) {
        const bool isMain = bearing % 90 == 0;
        const Font font = parts.font(isMain ? 0.15 : 0.08, isMain);
        const Color color = bearing == 0 ? parts.style().needleColor
                            : isMain     ? parts.inks().ink
                                         : parts.inks().secondary;
        const Point place = parts.at(letterRadius, bearing);
        const double half = parts.points(0.2);
        parts.context().drawText(compassPoint(bearing), {place.x - half, place.y - half, 2 * half, 2 * half}, font,
                                 color, TextAlignment::center, VerticalAlignment::center);
    }
}

void drawTexts(const GaugeParts& parts, const CompassContent& content) {
    const double radius = parts.points(1);
    if (radius < leastRadiusWithDegrees) {
        parts.drawLine(content.point, 0, {0.8, 0.4}, parts.valueFont(0.34), parts.inks().ink);
        return;
    }
    if (radius >= leastRadiusWithTitle) parts.drawTitle(content.title, -0.26, {0.66, 0.17}, 0.085);
    parts.drawLine(content.point, 0, {0.84, 0.3}, parts.valueFont(0.26), parts.inks().ink);
    parts.drawLine(content.degrees, 0.26, {0.6, 0.16}, parts.font(0.13), parts.inks().secondary);
}

}  // namespace

void drawCompass(DrawingContext& context, const Rect& bounds, const CompassContent& content, const GaugeStyle& style) {
    const GaugeParts parts(context, bounds, style);
    parts.drawFace();
    drawTicks(parts);
    drawLetters(parts);
    if (content.needle) {
        parts.drawNeedle(*content.needle,
                         {.tail = 0.3, .shoulder = discRadius - 0.03, .tip = needleTip, .width = 0.27});
    }
    parts.drawDisc(discRadius);
    drawTexts(parts, content);
}

}  // namespace zor

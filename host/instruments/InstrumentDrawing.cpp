#include "host/instruments/InstrumentDrawing.h"

#include <algorithm>

#include "host/views/Toolkit.h"

namespace zor {

namespace {

/// What a measured text may exceed its room by, for sizes that were themselves made from a measured text.
constexpr double roundingRoom = 0.01;
/// In points; smaller text would be dust.
constexpr double smallestDrawnFontSize = 1;

double shareThatFits(Size text, Size room) {
    const double across = text.width > room.width + roundingRoom ? room.width / text.width : 1;
    const double down = text.height > room.height + roundingRoom ? room.height / text.height : 1;
    return std::min(across, down);
}

}  // namespace

bool isVisibleArea(const Rect& bounds) {
    return !bounds.isEmpty() && isDrawable(bounds);
}

std::string singleLine(std::string_view text) {
    std::string line(text);
    std::ranges::replace_if(
        line, [](char character) { return character == '\n' || character == '\r'; }, ' ');
    return line;
}

Font fontFittingText(std::string_view text, const Font& font, Size room) {
    Font fitting = font;
    // Measured sizes are only nearly proportional to the font's, so that a second and a third look may be needed.
    for (int round = 0; round < 4; ++round) {
        const double share = shareThatFits(Toolkit::current().sizeOfText(text, fitting), room);
        if (share >= 1) return fitting;
        fitting.size *= round == 0 ? share : share * 0.99;
        if (!(fitting.size >= smallestDrawnFontSize)) break;
    }
    fitting.size = 0;
    return fitting;
}

void drawFittedText(DrawingContext& context, std::string_view text, const Rect& rect, const Font& font, Color color,
                    TextAlignment alignment) {
    const std::string line = singleLine(text);
    if (line.empty() || rect.isEmpty()) return;
    const Font fitting = fontFittingText(line, font, rect.size());
    if (fitting.size > 0) context.drawText(line, rect, fitting, color, alignment, VerticalAlignment::center);
}

void drawCard(DrawingContext& context, const Rect& rect, double radius, Color fill, Color border, double borderWidth) {
    const double half = std::min(rect.width, rect.height) / 2;
    const double corner = std::min(radius, half);
    if (fill.alpha > 0) context.fillPath(Path::roundedRect(rect, corner), fill);
    const double width = std::min(borderWidth, half);
    if (border.alpha == 0 || !(width > 0)) return;
    const Rect middle = insetRect(rect, width / 2, width / 2);
    context.strokePath(Path::roundedRect(middle, std::max(0.0, corner - width / 2)), {.color = border, .width = width});
}

}  // namespace zor

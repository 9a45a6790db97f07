#include "host/instruments/GaugeParts.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "host/instruments/GaugeGeometry.h"
#include "host/instruments/InstrumentDrawing.h"

namespace zor {

namespace {

constexpr double faceRadius = 0.94;

Gradient downwards(const Rect& rect, Color top, Color bottom) {
    return {.start = rect.origin(), .end = {rect.x, rect.maxY()}, .stops = {{0, top}, {1, bottom}}};
}

/// Two lines of a title, split at the space nearest its middle; the second is empty without one.
std::pair<std::string, std::string> inTwoLines(const std::string& title) {
    const auto middle = static_cast<std::ptrdiff_t>(title.size() / 2);
    auto best = std::string::npos;
    for (auto space = title.find(' '); space != std::string::npos; space = title.find(' ', space + 1)) {
        const auto distance = [&](std::size_t place) { return std::abs(static_cast<std::ptrdiff_t>(place) - middle); };
        if (best == std::string::npos || distance(space) < distance(best)) best = space;
    }
    if (best == std::string::npos) return {title, {}};
    return {title.substr(0, best), title.substr(best + 1)};
}

}  // namespace

double gaugeRadius(const Rect& bounds) {
    return std::min(bounds.width, bounds.height) / 2;
}

Point GaugeParts::at(double distance, double bearing) const {
    return pointAtBearing(center_, points(distance), bearing);
}

Font GaugeParts::valueFont(double size) const {
    Font font = style_.valueFont;
    font.size = points(size);
    return font;
}

void GaugeParts::drawFace() const {
    if (!style_.drawsRim) {
        context_.fillPath(Path::circle(center_, radius_), style_.faceColor);
        return;
    }
    const bool dark = isDark(style_.faceColor);
    const Rect rim = squareAround(center_, radius_);
    context_.fillPathWithGradient(Path::oval(rim), dark ? downwards(rim, Color::rgb(0x6e6e73), Color::rgb(0x1c1c1e))
                                                        : downwards(rim, Color::rgb(0xfdfdfe), Color::rgb(0xb4b4bb)));
    const double edge = std::min(1.0, points(0.02));
    context_.strokePath(Path::circle(center_, radius_ - edge / 2),
                        {.color = Color::black().withAlpha(dark ? 0.6 : 0.16), .width = edge});
    const Gradient vault{.kind = Gradient::Kind::radial,
                         .start = {center_.x, center_.y - points(0.25)},
                         .end = {},
                         .radius = points(1.25),
                         .stops = {{0, style_.faceColor.mixedWith(Color::white(), dark ? 0.08 : 0.5)},
                                   {0.55, style_.faceColor},
                                   {1, style_.faceColor.mixedWith(Color::black(), dark ? 0.35 : 0.09)}}};
    context_.fillPathWithGradient(Path::circle(center_, points(faceRadius)), vault);
    context_.strokePath(Path::circle(center_, points(faceRadius)),
                        {.color = Color::black().withAlpha(dark ? 0.5 : 0.1), .width = edge});
}

void GaugeParts::drawDisc(double radius) const {
    const Rect disc = squareAround(center_, points(radius));
    context_.fillPath(Path::circle({center_.x, center_.y + points(0.018)}, points(radius + 0.006)),
                      Color::black().withAlpha(0.12));
    const double shine = isDark(style_.faceColor) ? 0.14 : 0.6;
    context_.fillPathWithGradient(Path::oval(disc), downwards(disc, style_.faceColor.mixedWith(Color::white(), shine),
                                                              style_.faceColor.mixedWith(Color::black(), 0.04)));
    context_.strokePath(Path::oval(disc), {.color = inks_.hairline, .width = std::min(1.0, points(0.012))});
}

void GaugeParts::drawLine(std::string_view text, double down, Size box, const Font& font, Color color) const {
    const Size room{points(box.width), points(box.height)};
    drawFittedText(context_, text,
                   {center_.x - room.width / 2, center_.y + points(down) - room.height / 2, room.width, room.height},
                   font, color);
}

void GaugeParts::drawTitle(std::string_view title, double down, Size box, double fontSize) const {
    const std::string line = singleLine(title);
    const Font wish = font(fontSize, true);
    const auto fits = [&](const std::string& text) {
        return fontFittingText(text, wish, {points(box.width), points(box.height) / 2}).size;
    };
    const auto [first, second] = inTwoLines(line);
    const double size = second.empty() ? 0 : std::min(fits(first), fits(second));
    if (size <= fits(line) * 1.1) {
        drawLine(line, down, box, wish, inks_.secondary);
        return;
    }
    Font common = wish;
    common.size = size;
    drawLine(first, down - box.height / 4, {box.width, box.height / 2}, common, inks_.secondary);
    drawLine(second, down + box.height / 4, {box.width, box.height / 2}, common, inks_.secondary);
}

void GaugeParts::drawNeedle(double bearing, const Needle& needle) const {
    const double half = points(needle.width) / 2;
    const Point tail{0, -points(needle.tail)};
    const Point tip{0, -points(needle.tip)};
    const auto side = [&](double direction) {
        return Path()
            .moveTo(tail)
            .lineTo({direction * half * 0.72, tail.y})
            .lineTo({direction * half, -points(needle.shoulder)})
            .lineTo({direction * half * 0.12, tip.y})
            .lineTo(tip)
            .close();
    };
    const auto drawAt = [&](Point place, Color left, Color right) {
        context_.save();
        context_.translate(place.x, place.y);
        context_.rotate(bearing);
        context_.fillPath(side(-1), left);
        context_.fillPath(side(1), right);
        context_.restore();
    };
    const Color shadow = Color::black().withAlpha(0.16);
    drawAt({center_.x + points(0.012), center_.y + points(0.022)}, shadow, shadow);
    drawAt(center_, style_.needleColor.mixedWith(Color::white(), 0.12),
           style_.needleColor.mixedWith(Color::black(), 0.16));
}

void GaugeParts::drawHub() const {
    const Rect hub = squareAround(center_, points(0.085));
    context_.fillPath(Path::circle({center_.x, center_.y + points(0.015)}, points(0.09)),
                      Color::black().withAlpha(0.18));
    context_.fillPathWithGradient(Path::oval(hub), downwards(hub, Color::rgb(0x5b5b60), Color::rgb(0x1f1f22)));
    context_.fillPath(Path::circle(center_, points(0.03)), Color::rgb(0xc9c9ce));
}

}  // namespace zor

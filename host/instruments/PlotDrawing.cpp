#include "host/instruments/PlotDrawing.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

#include "host/instruments/Inks.h"
#include "host/instruments/InstrumentDrawing.h"
#include "host/instruments/PlotScale.h"
#include "host/instruments/PlotSeries.h"
#include "host/instruments/PlotTime.h"
#include "host/station/ValueFormats.h"
#include "host/views/Toolkit.h"

namespace zor {

namespace {

constexpr double cardRadius = 10;
/// Below these the header, and then the axes, would leave too little of the plot.
constexpr Size leastSizeWithHeader{90, 50};
constexpr Size leastSizeWithAxes{150, 100};

bool holds(const Rect& bounds, Size size) {
    return bounds.width >= size.width && bounds.height >= size.height;
}

/// The middle of the row or column of pixels, so that a thin line stays sharp.
double sharp(double position) {
    return std::floor(position) + 0.5;
}

class PlotPainter {
public:
    PlotPainter(DrawingContext& context, const Rect& bounds, const PlotContent& content, const PlotStyle& style)
        : context_(context), bounds_(bounds), content_(content), style_(style), inks_(inksOn(style.background)) {
        textSize_ =
            style.fontSize > 0 ? style.fontSize : std::clamp(std::sqrt(bounds.width * bounds.height) / 30, 10.0, 24.0);
        padding_ = std::min({textSize_, bounds.width / 10, bounds.height / 10});
        area_ = insetRect(bounds, padding_, padding_);
    }

    void draw() {
        drawCard(context_, bounds_, std::min(cardRadius, padding_), style_.background,
                 style_.drawsBorder ? inks_.hairline : Color::clear());
        if (style_.drawsHeader && holds(bounds_, leastSizeWithHeader)) drawHeader();
        layOutScale();
        if (holds(bounds_, leastSizeWithAxes)) drawAxes();
        if (content_.samples.empty()) {
            drawFittedText(context_, missingValueText, area_, {.size = 2 * textSize_}, inks_.secondary);
        } else {
            drawSamples();
        }
    }

private:
    Font textFont(double factor, bool bold = false) const { return {.size = textSize_ * factor, .bold = bold}; }

    static double widthOf(std::string_view text, const Font& font) {
        return Toolkit::current().sizeOfText(text, font).width;
    }

    /// Title, unit and, at the right, the current value. The value is never cut.
    void drawHeader() {
        const Rect row{area_.x, area_.y, area_.width, textSize_ * 1.7};
        takeFromTop(row.height + textSize_ * 0.6);
        const Font valueFont = textFont(1.35, true);
        const double valueWidth = std::min(widthOf(content_.value, valueFont) + 1, row.width * 0.6);
        drawFittedText(context_, content_.value, {row.maxX() - valueWidth, row.y, valueWidth, row.height}, valueFont,
                       style_.lineColor, TextAlignment::right);

        const double room = row.width - valueWidth - textSize_;
        const std::string title = singleLine(content_.title);
        const Font titleFont = fontFittingText(title, textFont(1.1, true), {room, row.height});
        if (titleFont.size <= 0) return;
        const double titleWidth = widthOf(title, titleFont) + 1;
        drawFittedText(context_, title, {row.x, row.y, titleWidth, row.height}, titleFont, inks_.ink,
                       TextAlignment::left);
        // Every label of a compass says what it is.
        if (content_.unit.quantity == Quantity::direction) return;
        const Font unitFont = textFont(0.95);
        const double unitWidth = widthOf(content_.unit.shortName, unitFont) + 1;
        if (titleWidth + textSize_ / 2 + unitWidth > room) return;
        drawFittedText(context_, content_.unit.shortName,
                       {row.x + titleWidth + textSize_ / 2, row.y, unitWidth, row.height}, unitFont, inks_.secondary,
                       TextAlignment::left);
    }

    void takeFromTop(double height) {
        area_.y += height;
        area_.height -= height;
    }

    /// The value axis for the samples; its labels are not yet placed.
    void layOutScale() {
        if (content_.samples.empty()) return;
        const auto [least, greatest] = std::ranges::minmax_element(content_.samples, {}, &Sample::value);
        scale_ = PlotScale::covering(least->value, greatest->value, content_.unit,
                                     std::clamp(static_cast<int>(area_.height / (textSize_ * 2.8)), 2, 8));
    }

    void drawAxes() {
        const Font font = textFont(0.9);
        const double lineHeight = textSize_ * 1.25;
        area_.height -= lineHeight + textSize_ * 0.3;
        double labelWidth = 0;
        for (const auto& tick : scale_.ticks) labelWidth = std::max(labelWidth, widthOf(tick.label, font) + 1);
        const double taken = labelWidth > 0 ? labelWidth + textSize_ * 0.5 : 0;
        area_.x += taken;
        area_.width -= taken;
        const auto times = timeTicks(content_.span, static_cast<int>(area_.width / (textSize_ * 4.5)));

        drawGrid(times);
        for (const auto& tick : scale_.ticks) {
            const Rect label{area_.x - taken, yOf(tick.position) - lineHeight / 2, labelWidth, lineHeight};
            context_.drawText(tick.label, label, font, inks_.secondary, TextAlignment::right,
                              VerticalAlignment::center);
        }
        drawTimeLabels(times, font, lineHeight);
    }

    void drawGrid(const std::vector<PlotTick>& times) {
        Path fine;
        Path axes;
        axes.addSegment({area_.x, sharp(area_.maxY())}, {area_.maxX(), sharp(area_.maxY())});
        for (const auto& tick : scale_.ticks) {
            const double y = sharp(yOf(tick.position));
            const bool isZero = tick.position == 0 && scale_.minimum < 0;
            (isZero ? axes : fine).addSegment({area_.x, y}, {area_.maxX(), y});
        }
        for (const auto& tick : times) {
            const double x = sharp(xOf(tick.position));
            fine.addSegment({x, area_.y}, {x, area_.maxY()});
            axes.addSegment({x, area_.maxY()}, {x, area_.maxY() + textSize_ * 0.3});
        }
        if (style_.drawsGrid) context_.strokePath(fine, {.color = inks_.hairline.withAlpha(0.55), .width = 1});
        context_.strokePath(axes, {.color = inks_.hairline.mixedWith(inks_.secondary, 0.35), .width = 1});
    }

    /// Each under its mark, moved inwards at the card's edges; one that would touch its neighbour is left out.
    void drawTimeLabels(const std::vector<PlotTick>& times, const Font& font, double lineHeight) {
        double end = bounds_.x;
        for (const auto& tick : times) {
            const double width = widthOf(tick.label, font) + 1;
            const double farthest = bounds_.maxX() - padding_ / 2 - width;
            const double x = std::clamp(xOf(tick.position) - width / 2, bounds_.x + padding_ / 2,
                                        std::max(farthest, bounds_.x + padding_ / 2));
            if (x < end) continue;
            context_.drawText(tick.label, {x, area_.maxY() + textSize_ * 0.3, width, lineHeight}, font, inks_.secondary,
                              TextAlignment::center, VerticalAlignment::center);
            end = x + width + textSize_ * 0.4;
        }
    }

    void drawSamples() {
        // The newest sample's dot may reach over the area's edge.
        const double margin = style_.lineWidth + 3;
        context_.save();
        context_.clipToRect(intersectionRect(insetRect(area_, -margin, -margin), bounds_));
        if (content_.unit.quantity == Quantity::direction) {
            drawDots();
        } else {
            for (const auto& run : unbrokenRuns(content_.samples)) drawRun(run);
            drawNewest();
        }
        context_.restore();
    }

    void drawRun(SampleRun run) {
        const int columns = std::max(1, static_cast<int>(std::ceil(area_.width)));
        const auto points = pointsOf(thinned(run, content_.span, columns));
        if (points.size() == 1) {
            context_.fillPath(Path::circle(points.front(), style_.lineWidth * 0.75), style_.lineColor);
            return;
        }
        if (style_.fillsArea) fillBelow(pointsOf(halfway(run, content_.span, columns)));
        context_.strokePolyline(
            points,
            {.color = style_.lineColor, .width = style_.lineWidth, .cap = LineCap::round, .join = LineJoin::round});
    }

    std::vector<Point> pointsOf(SampleRun samples) const {
        std::vector<Point> points;
        points.reserve(samples.size());
        for (const auto& sample : samples) points.push_back(pointOf(sample));
        return points;
    }

    void fillBelow(const std::vector<Point>& points) {
        Path area;
        area.moveTo({points.front().x, area_.maxY()});
        for (const auto& point : points) area.lineTo(point);
        area.lineTo({points.back().x, area_.maxY()}).close();
        const Gradient fade{.start = {0, area_.y},
                            .end = {0, area_.maxY()},
                            .stops = {{0, style_.lineColor.withAlpha(0.34)}, {1, style_.lineColor.withAlpha(0.03)}}};
        context_.fillPathWithGradient(area, fade);
    }

    /// The newest sample stands out.
    void drawNewest() {
        const Point point = pointOf(content_.samples.back());
        const double radius = style_.lineWidth + 1.4;
        context_.fillPath(Path::circle(point, radius + 1.2), style_.background);
        context_.fillPath(Path::circle(point, radius), style_.lineColor);
    }

    /// A direction has no line: from north to north would cross the whole plot. Dots that would lie on each other are
    /// drawn once.
    void drawDots() {
        const double radius = std::max(1.1, style_.lineWidth * 0.8);
        std::set<std::pair<long, long>> taken;
        Path dots;
        for (const auto& sample : content_.samples) {
            const Point point = pointOf(sample);
            if (taken.emplace(std::lround(point.x), std::lround(point.y)).second) {
                dots.addOval({point.x - radius, point.y - radius, 2 * radius, 2 * radius});
            }
        }
        context_.fillPath(dots, style_.lineColor.withAlpha(0.85));
    }

    double xOf(Seconds time) const {
        const auto& span = content_.span;
        return area_.x + (time - span.from) / (span.to - span.from) * area_.width;
    }
    double yOf(double value) const { return area_.maxY() - scale_.fraction(value) * area_.height; }
    Point pointOf(const Sample& sample) const { return {xOf(sample.time), yOf(sample.value)}; }

    DrawingContext& context_;
    const Rect& bounds_;
    const PlotContent& content_;
    const PlotStyle& style_;
    Inks inks_;
    double textSize_;
    double padding_;
    /// What is left for the curve.
    Rect area_;
    PlotScale scale_;
};

}  // namespace

void drawPlot(DrawingContext& context, const Rect& bounds, const PlotContent& content, const PlotStyle& style) {
    PlotPainter(context, bounds, content, style).draw();
}

}  // namespace zor

#pragma once
// What dials and compasses are made of. Lengths that carry no unit are parts of the gauge's radius.

#include <string_view>

#include "host/instruments/GaugeDrawing.h"
#include "host/instruments/Inks.h"

namespace zor {

/// One drawing of one gauge.
class GaugeParts {
public:
    GaugeParts(DrawingContext& context, const Rect& bounds, const GaugeStyle& style)
        : context_(context),
          style_(style),
          inks_(inksOn(style.faceColor)),
          center_(bounds.center()),
          radius_(gaugeRadius(bounds)) {}

    DrawingContext& context() const { return context_; }
    const GaugeStyle& style() const { return style_; }
    const Inks& inks() const { return inks_; }
    Point center() const { return center_; }
    double points(double part) const { return part * radius_; }
    Point at(double distance, double bearing) const;

    /// Rim and face.
    void drawFace() const;
    /// A raised disc in the middle.
    void drawDisc(double radius) const;
    /// One line around the middle of the box, which lies centred below the gauge's own centre (above for negative
    /// `down`).
    void drawLine(std::string_view text, double down, Size box, const Font& font, Color color) const;
    /// The title in one line, or in two where that makes it larger.
    void drawTitle(std::string_view title, double down, Size box, double fontSize) const;
    /// A bright and a shaded side, with its shadow: from `tail` (negative beyond the centre) to `tip`, `width` wide at
    /// the `shoulder`, where it is widest.
    struct Needle {
        double tail;
        double shoulder;
        double tip;
        double width;
    };
    void drawNeedle(double bearing, const Needle& needle) const;
    void drawHub() const;
    Font font(double size, bool bold = false) const { return {.size = points(size), .bold = bold}; }
    Font valueFont(double size) const;

private:
    DrawingContext& context_;
    const GaugeStyle& style_;
    Inks inks_;
    Point center_;
    double radius_;
};

}  // namespace zor

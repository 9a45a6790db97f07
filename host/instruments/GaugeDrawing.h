#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/foundation/Color.h"
#include "host/foundation/Font.h"
#include "host/views/DrawingContext.h"

namespace zor {

struct GaugeStyle {
    Color faceColor;
    Color needleColor;
    /// Its size is that of the gauge's choosing.
    Font valueFont;
    /// Without it the face is flat.
    bool drawsRim = true;
};

/// Places on a dial's scale are fractions: 0 at its beginning, 1 at its end.
struct DialContent {
    struct Mark {
        double fraction = 0;
        /// Empty for the small marks between the numbers.
        std::string label = {};
    };
    struct Band {
        double from = 0;
        double to = 0;
        Color color;
    };
    std::string title;
    std::string value;
    std::string unit;
    std::vector<Mark> marks;
    std::vector<Band> bands;
    /// Nothing leaves the needle away.
    std::optional<double> needle;
};

struct CompassContent {
    std::string title;
    /// "WSW".
    std::string point;
    /// "248°".
    std::string degrees;
    /// Where the wind comes from, in degrees clockwise from north; nothing leaves the needle away.
    std::optional<double> needle;
};

/// The largest circle centred in the rectangle, in which both kinds are drawn.
double gaugeRadius(const Rect& bounds);
/// Font of a dial's numbers; nothing where they would be too small to be read.
std::optional<Font> dialNumberFont(double radius);
/// Length of the line on which a dial's numbers stand.
double dialNumberLength(double radius);
/// Length of the scale itself.
double dialScaleLength(double radius);

void drawDial(DrawingContext& context, const Rect& bounds, const DialContent& content, const GaugeStyle& style);
void drawCompass(DrawingContext& context, const Rect& bounds, const CompassContent& content, const GaugeStyle& style);

}  // namespace zor

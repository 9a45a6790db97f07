#pragma once

#include <string>
#include <vector>

#include "host/foundation/Color.h"
#include "host/station/TimeSpans.h"
#include "host/station/Units.h"
#include "host/views/DrawingContext.h"

namespace zor {

/// What a plot shows.
struct PlotContent {
    std::string title;
    /// The current value with its unit.
    std::string value;
    /// The unit of the samples.
    const Unit& unit;
    TimeSpan span;
    /// Ascending in time. Without any, "--" stands in their place.
    std::vector<Sample> samples;
};

/// How it shows it.
struct PlotStyle {
    Color lineColor;
    /// Points.
    double lineWidth = 1.6;
    bool drawsGrid = true;
    bool fillsArea = true;
    bool drawsHeader = true;
    bool drawsBorder = true;
    Color background;
    /// Points; 0 for what suits the plot's size.
    double fontSize = 0;
};

/// Fills `bounds` with a card that holds title, value, axes, grid and the samples: dots for directions, a line with
/// gaps for everything else. A small plot keeps its curve and lets its texts go.
void drawPlot(DrawingContext& context, const Rect& bounds, const PlotContent& content, const PlotStyle& style);

}  // namespace zor

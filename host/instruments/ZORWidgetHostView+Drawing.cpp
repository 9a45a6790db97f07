#include <algorithm>

#include "host/instruments/InstrumentDrawing.h"
#include "host/instruments/ZORWidgetHostView.h"

namespace zor {

namespace {

/// A solid line with a soft one inside it; both keep within the widget, whose drawing ends at its edge.
void drawSelectionLook(DrawingContext& context, const Rect& bounds) {
    constexpr double line = 2;
    constexpr double halo = 2;
    const Rect outline = context.alignedToPixels(bounds);
    const auto strokeInside = [&](double offset, double width, Color color) {
        const Rect middle = insetRect(outline, offset + width / 2, offset + width / 2);
        if (!middle.isEmpty()) context.strokePath(Path::rect(middle), {.color = color, .width = width});
    };
    strokeInside(line, halo, palette::accent.withAlpha(0.22));
    strokeInside(0, line, palette::accent);
}

/// Three lines across the corner on a light triangle, which show on any ground.
void drawHandle(DrawingContext& context, const Rect& handle) {
    const Point corner{handle.maxX(), handle.maxY()};
    const auto acrossAt = [&corner](Path& path, double distance) {
        path.addSegment({corner.x - distance, corner.y}, {corner.x, corner.y - distance});
    };
    Path ground;
    ground.moveTo({handle.x, corner.y}).lineTo({corner.x, handle.y}).lineTo(corner).close();
    context.fillPath(ground, palette::paper.withAlpha(0.9));
    Path lines;
    for (const double part : {0.35, 0.65, 0.95}) acrossAt(lines, part * handle.width);
    context.strokePath(lines, {.color = palette::accent, .width = 1.4});
}

}  // namespace

void ZORWidgetHostView::drawRect(DrawingContext& context, const Rect&) {
    if (!hostsCanvas()) return;
    const Rect paper = targetView()->frame();
    if (isVisibleArea(paper)) context.fillRect(paper, palette::paper);
}

void ZORWidgetHostView::drawOverlay(DrawingContext& context, const Rect&) {
    if (!isVisibleArea(bounds())) return;
    if (selected_) drawSelectionLook(context, bounds());
    // A container's handle would lie under its canvas, which takes the presses there.
    if (allowResize_ && !hostsCanvas()) drawHandle(context, context.alignedToPixels(resizeHandle()));
}

}  // namespace zor

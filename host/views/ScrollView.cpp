#include "host/views/ScrollView.h"

#include <algorithm>
#include <cmath>

#include "host/foundation/ClassBuilder.h"
#include "host/views/ControlColors.h"
#include "host/views/DrawingContext.h"

namespace zor {

namespace {

/// The offset nearest to `offset` that shows all from `start` to `end`, or nothing else where there is less room.
double offsetShowing(double start, double end, double offset, double room) {
    const auto [least, most] = std::minmax({start, end - room});
    return std::clamp(offset, least, most);
}

}  // namespace

const ClassRecord& ScrollView::staticClass() {
    static const ClassRecord& record =
        ClassBuilder<ScrollView>("ScrollView", &View::staticClass())
            .property("contentOffset", &ScrollView::contentOffset, &ScrollView::setContentOffset)
            .registered();
    return record;
}

void ScrollView::setHasBorder(bool border) {
    if (border == border_) return;
    border_ = border;
    geometryChanged();
}

void ScrollView::setHasVerticalRuler(bool ruler) {
    if (ruler == verticalRuler_) return;
    verticalRuler_ = ruler;
    geometryChanged();
}

void ScrollView::setScrollerRoom(Size room) {
    if (room == scrollerRoom_) return;
    scrollerRoom_ = room;
    geometryChanged();
}

std::shared_ptr<View> ScrollView::documentView() const {
    auto document = documentView_.lock();
    return document && document->superview() == this ? document : nullptr;
}

void ScrollView::setDocumentView(const std::shared_ptr<View>& view) {
    const auto before = documentView();
    if (before == view) return;
    if (before) before->removeFromSuperview();
    documentView_ = view;
    addSubview(view);
    geometryChanged();
}

Rect ScrollView::viewport() const {
    const double border = border_ ? 1 : 0;
    const double ruler = verticalRuler_ ? rulerThickness : 0;
    return {border + ruler, border, std::max(0.0, bounds().width - 2 * border - ruler - scrollerRoom_.width),
            std::max(0.0, bounds().height - 2 * border - scrollerRoom_.height)};
}

Point ScrollView::childrenOrigin() const {
    const Rect port = viewport();
    const auto document = documentView();
    const Point corner = document ? document->frame().origin() : Point{};
    return {port.x - offset_.x - corner.x, port.y - offset_.y - corner.y};
}

Point ScrollView::largestOffset() const {
    const auto document = documentView();
    if (!document) return {};
    const Rect port = viewport();
    return {std::max(0.0, document->frame().width - port.width), std::max(0.0, document->frame().height - port.height)};
}

Point ScrollView::bounded(Point offset) const {
    const Point largest = largestOffset();
    return {std::min(std::max(0.0, offset.x), largest.x), std::min(std::max(0.0, offset.y), largest.y)};
}

void ScrollView::setContentOffset(Point offset) {
    const Point wanted = bounded(offset);
    if (wanted == offset_) return;
    offset_ = wanted;
    geometryChanged();
}

void ScrollView::scrollToVisible(const Rect& rect) {
    const Rect port = viewport();
    setContentOffset({offsetShowing(rect.x, rect.maxX(), offset_.x, port.width),
                      offsetShowing(rect.y, rect.maxY(), offset_.y, port.height)});
}

void ScrollView::geometryChanged() {
    offset_ = bounded(offset_);
    setNeedsDisplay(true);
    if (observer_) observer_();
}

void ScrollView::layout() {
    View::layout();
    geometryChanged();
}

void ScrollView::childDidChangeFrame(const View& child) {
    if (&child == documentView().get()) geometryChanged();
}

void ScrollView::scrollWheel(const EventPtr& event) {
    const Point before = offset_;
    const Size delta = event->scrollDelta();
    setContentOffset({before.x - delta.width, before.y - delta.height});
    if (offset_ == before) View::scrollWheel(event);
}

void ScrollView::drawRect(DrawingContext& context, const Rect& dirty) {
    if (border_) context.strokePath(Path::rect(insetRect(bounds(), 0.5, 0.5)), {ControlColors::current().edge});
    if (verticalRuler_ && isDrawable(bounds())) drawRuler(context, dirty);
}

void ScrollView::drawRuler(DrawingContext& context, const Rect& dirty) const {
    const Rect port = viewport();
    const Rect ruler{port.x - rulerThickness, port.y, rulerThickness, port.height};
    const Rect shown = intersectionRect(ruler, dirty);
    if (shown.isEmpty()) return;
    constexpr double step = 10, labelStep = 100, labelHeight = 10;
    context.save();
    context.clipToRect(ruler);
    context.fillRect(ruler, ControlColors::current().ground);
    // From the label above, which may reach into what is shown.
    const double top = port.y - offset_.y;
    const double first = std::floor((shown.y - labelHeight - top) / step) * step;
    Path ticks;
    // So far out that a step makes no difference there are no ticks.
    for (double y = first; top + y < shown.maxY() && y + step > y; y += step) {
        const bool labelled = std::fmod(y, labelStep) == 0;
        const double length = labelled ? rulerThickness : std::fmod(y, labelStep / 2) == 0 ? 8 : 4;
        ticks.addSegment({ruler.maxX() - length, top + y + 0.5}, {ruler.maxX(), top + y + 0.5});
        if (!labelled) continue;
        context.drawText(shortestNumber(y), {ruler.x, top + y + 1, rulerThickness - 2, labelHeight}, Font{.size = 7},
                         ControlColors::current().quiet, TextAlignment::right);
    }
    context.strokePath(ticks, {ControlColors::current().quiet});
    context.restore();
}

}  // namespace zor

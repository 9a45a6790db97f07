#include <algorithm>

#include "host/views/Toolkit.h"
#include "host/views/ViewExtras.h"
#include "host/views/Window.h"

namespace zor {

void View::setChangeObserver(std::function<void()> observer) {
    if (observer || extras_) extras().changeObserver = std::move(observer);
}

void View::setNeedsDisplayInRect(const Rect& rect) {
    if (extras_ && extras_->changeObserver) {
        // The observer may replace itself.
        const auto observer = extras_->changeObserver;
        observer();
    }
    Window* const shown = window();
    if (!shown) return;
    Rect damaged = clipsToBounds() ? intersectionRect(rect, bounds()) : rect;
    for (const View* view = this; !view->hidden_ && !damaged.isEmpty(); view = view->superview_) {
        const Point origin = view->originInParent();
        damaged = offsetRect(damaged, origin.x, origin.y);
        if (!view->superview_) return shown->viewNeedsDisplay(damaged);
        if (view->superview_->clipsToBounds()) {
            damaged = intersectionRect(damaged, view->superview_->childrenClip());
        }
    }
}

void View::displayTree(DrawingContext& context, const Rect& dirty, bool withOverlays) {
    context.save();
    drawSubtree(context, dirty, withOverlays);
    context.restore();
}

void View::drawSubtree(DrawingContext& context, const Rect& dirty, bool withOverlays) {
    Rect visible = dirty;
    if (clipsToBounds()) {
        visible = intersectionRect(dirty, bounds());
        if (visible.isEmpty()) return;
        context.clipToRect(bounds());
    }
    drawRect(context, visible);
    drawChildren(context, visible, withOverlays);
    // A picture shows every animation at its beginning, so that the same state gives the same bytes.
    for (const auto& layer : sublayers()) layer->draw(context, withOverlays ? layer->secondsRunning() : 0);
    if (withOverlays) drawOverlay(context, visible);
}

void View::drawChildren(DrawingContext& context, const Rect& visible, bool withOverlays) {
    const auto& children = subviews();
    if (children.empty()) return;
    Rect shown = visible;
    const bool narrowed = clipsToBounds() && childrenClip() != bounds();
    if (narrowed) {
        shown = intersectionRect(visible, childrenClip());
        context.save();
        context.clipToRect(childrenClip());
    }
    const Point shift = childrenOrigin();
    const ChildFrame* const noted = childFrames();
    for (std::size_t index = 0; index < children.size(); ++index) {
        const bool mayBePassedOver = noted && noted[index].keepsWithinFrame;
        if (mayBePassedOver && !intersectsRect(shown, offsetRect(noted[index].frame, shift.x, shift.y))) continue;
        const auto& child = children[index];
        if (child->hidden_) continue;
        const Rect place = offsetRect(child->frame_, shift.x, shift.y);
        if (!intersectsRect(shown, place) && child->clipsToBounds()) continue;
        context.save();
        context.translate(place.x, place.y);
        child->drawSubtree(context, offsetRect(shown, -place.x, -place.y), withOverlays);
        context.restore();
    }
    if (narrowed) context.restore();
}

void View::drawPicture(DrawingContext& context, const Rect& rect) {
    context.translate(-rect.x, -rect.y);
    displayTree(context, rect, false);
}

std::shared_ptr<const Bytes> View::dataWithPDFInsideRect(const Rect& rect) {
    if (!isDrawable(rect)) return {};
    return Toolkit::current().pdfOfDrawing(rect.size(), [&](DrawingContext& context) { drawPicture(context, rect); });
}

std::shared_ptr<const Bytes> View::dataWithPNGInsideRect(const Rect& rect) {
    if (!isDrawable(rect)) return {};
    return Toolkit::current().pngOfDrawing(rect.size(), [&](DrawingContext& context) { drawPicture(context, rect); });
}

const std::vector<std::shared_ptr<ShapeLayer>>& View::sublayers() const {
    static const std::vector<std::shared_ptr<ShapeLayer>> none;
    return extras_ ? extras_->sublayers : none;
}

void View::addSublayer(const std::shared_ptr<ShapeLayer>& layer) {
    if (!layer) return;
    auto added = layer;
    added->removeFromSuperlayer();
    added->view_ = this;
    added->redisplay();
    extras().sublayers.push_back(std::move(added));
}

void View::removeSublayer(const ShapeLayer* layer) {
    if (!layer || layer->view_ != this) return;
    const auto place = std::ranges::find(extras_->sublayers, layer, &std::shared_ptr<ShapeLayer>::get);
    const auto removed = *place;
    extras_->sublayers.erase(place);
    removed->redisplay();
    removed->view_ = nullptr;
}

bool View::redisplayAnimatedLayers() {
    bool found = false;
    for (const ShapeLayer* layer : ShapeLayer::animatedLayers()) {
        const View* view = layer->view_;
        while (view && view != this && !view->hidden_) view = view->superview_;
        if (view != this || hidden_) continue;
        layer->redisplay();
        found = true;
    }
    return found;
}

}  // namespace zor

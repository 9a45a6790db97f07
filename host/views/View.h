#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "host/views/LayoutConstraint.h"
#include "host/views/Responder.h"

namespace zor {

class DrawingContext;
class ShapeLayer;
class Window;

/// A rectangle of a view tree: frame in the parent's coordinates, children in stacking order (first = bottom). All
/// views are flipped: origin at the top left, y downwards. A child never owns its parent.
class View : public Responder {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }
    View();
    explicit View(const Rect& frame);
    ~View() override;

    const Rect& frame() const { return frame_; }
    /// Redraws what the view leaves and what it covers, and lays its children out where its size changed.
    virtual void setFrame(const Rect& frame);
    /// The frame's size at origin (0, 0).
    Rect bounds() const { return {0, 0, frame_.width, frame_.height}; }
    virtual bool isFlipped() const { return true; }

    View* superview() const { return superview_; }
    const std::vector<std::shared_ptr<View>>& subviews() const { return subviews_; }
    /// On top of the others; a view that is already a child moves to the top, one of another parent leaves it.
    /// A view is never added to itself or to a view inside it.
    virtual void addSubview(const std::shared_ptr<View>& view);
    void removeFromSuperview();
    /// Puts `replacement` at the stacking place of `old`; nothing where `old` is no child.
    void replaceSubview(const std::shared_ptr<View>& old, const std::shared_ptr<View>& replacement);
    /// Stable; `compare` gives -1, 0 or 1.
    void sortSubviews(const std::function<int(const View&, const View&)>& compare);
    /// Reads children back with the order stored, without what addSubview does beside.
    void restoreSubviews(std::vector<std::shared_ptr<View>> views);

    bool isHidden() const { return hidden_; }
    void setHidden(bool hidden);

    /// The parent, unless another next responder was set.
    Responder* nextResponder() const override;
    void setNextResponder(const std::shared_ptr<Responder>& responder) { nextResponder_ = responder; }

    /// The window at the root of the tree, or none.
    Window* window() const;
    /// The root view of a window knows it; only Window calls this.
    void setWindow(Window* window);
    /// Called on every view of a subtree that has come into or left a view tree with a window.
    virtual void viewDidMoveToWindow() {}
    /// Called on every view of a subtree whose chain of parents has changed.
    virtual void viewDidMoveToSuperview() {}

    /// From the coordinates of `view` to the receiver's; no view means window coordinates.
    Point convertPointFromView(Point point, const View* view) const;
    Point convertPointToView(Point point, const View* view) const;
    Rect convertRectToView(const Rect& rect, const View* view) const;
    /// The topmost visible view at a point in the parent's coordinates: itself, a descendant or none.
    virtual View* hitTest(Point point);

    /// Draws the view's own content in its own coordinates; children draw after it, on top.
    virtual void drawRect(DrawingContext&, const Rect& /*dirty*/) {}
    /// Draws on top of the children: handles, selection looks. Never part of a picture.
    virtual void drawOverlay(DrawingContext&, const Rect& /*dirty*/) {}
    /// The view and all below it that touch `dirty` (own coordinates), clipped to each view's bounds where it clips.
    void displayTree(DrawingContext& context, const Rect& dirty, bool withOverlays);
    virtual bool clipsToBounds() const { return true; }
    void setNeedsDisplay(bool needed);
    void setNeedsDisplayInRect(const Rect& rect);

    /// The drawing of `rect` as a one-page vector document; empty where the toolkit fails.
    std::shared_ptr<const Bytes> dataWithPDFInsideRect(const Rect& rect);
    /// The same drawing as pixels, one per point, encoded as PNG.
    std::shared_ptr<const Bytes> dataWithPNGInsideRect(const Rect& rect);

    /// Constraints that the view holds between itself and its children.
    const std::vector<LayoutConstraint>& constraints() const;
    void addConstraints(std::vector<LayoutConstraint> constraints);
    void deactivateConstraints();
    bool translatesAutoresizingMaskIntoConstraints() const { return translatesAutoresizing_; }
    void setTranslatesAutoresizingMaskIntoConstraints(bool translates) { translatesAutoresizing_ = translates; }
    /// Applies the constraints to the children.
    virtual void layout();

    /// Layers over the view's children, drawn in order; they take no events.
    const std::vector<std::shared_ptr<ShapeLayer>>& sublayers() const;
    void addSublayer(const std::shared_ptr<ShapeLayer>& layer);
    void removeSublayer(const ShapeLayer* layer);

    void encodeWithCoder(Encoder& encoder) override;
    bool initWithCoder(Decoder& decoder) override;

private:
    struct Extras;
    Extras& extras();
    void setSuperview(View* superview);
    void announceMove(bool windowChanged);
    bool isInside(const View& other) const;

    Rect frame_;
    View* superview_ = nullptr;
    Window* window_ = nullptr;
    std::vector<std::shared_ptr<View>> subviews_;
    std::weak_ptr<Responder> nextResponder_;
    std::unique_ptr<Extras> extras_;
    bool hidden_ = false;
    bool translatesAutoresizing_ = true;
};

}  // namespace zor

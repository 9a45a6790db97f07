#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "host/views/LayoutConstraint.h"
#include "host/views/Responder.h"

namespace zor {

class DrawingContext;
class ShapeLayer;
class Window;

enum class PointerShape { arrow, resizeDiagonally };

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
    /// Whether the receiver is `other` or lies somewhere below it.
    bool isDescendantOf(const View& other) const;
    const std::vector<std::shared_ptr<View>>& subviews() const {
        if (hasGaps_) closeGaps();
        return subviews_;
    }
    /// The topmost child whose frame contains the point, hidden or not; in the children's coordinates. Unlike hitTest
    /// it asks no child.
    std::shared_ptr<View> topmostChildAt(Point point) const;
    /// On top of the others; a view that is already a child moves to the top, one of another parent leaves it.
    /// A view is never added to itself or to a view inside it.
    virtual void addSubview(const std::shared_ptr<View>& view);
    void removeFromSuperview();
    /// Puts `replacement` at the stacking place of `old`; nothing where `old` is no child.
    void replaceSubview(const std::shared_ptr<View>& old, const std::shared_ptr<View>& replacement);
    /// Stable; `compare` gives -1, 0 or 1.
    void sortSubviews(const std::function<int(const View&, const View&)>& compare);
    /// Appends children read back, with the order stored and without what addSubview does beside; they are told of
    /// nothing before the whole tree enters another. A view that has a parent or is the root of this tree is left out.
    void restoreSubviews(std::vector<std::shared_ptr<View>> views);
    /// Whether a child read back may be the view's.
    virtual bool mayRestore(const View& /*child*/) const { return true; }

    bool isHidden() const { return hidden_; }
    void setHidden(bool hidden);

    /// The one set while it lives, else the parent, else the window.
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
    /// Whether the view, now and ever, neither shows nor is hit outside of its frame: then, among many, it is not asked
    /// for what lies elsewhere.
    virtual bool keepsWithinFrame() const { return false; }

    /// Draws the view's own content in its own coordinates; children draw after it, on top.
    virtual void drawRect(DrawingContext&, const Rect& /*dirty*/) {}
    /// Draws on top of the children: handles, selection looks. Never part of a picture.
    virtual void drawOverlay(DrawingContext&, const Rect& /*dirty*/) {}
    /// The view and all below it that touch `dirty` (own coordinates), clipped to each view's bounds where it clips.
    void displayTree(DrawingContext& context, const Rect& dirty, bool withOverlays);
    virtual bool clipsToBounds() const { return true; }
    /// Where the children of a view that clips show and are hit, in its own coordinates.
    virtual Rect childrenClip() const { return bounds(); }
    /// Where the children's coordinates begin, in the receiver's own: away from (0, 0) only in a view that scrolls.
    virtual Point childrenOrigin() const { return {}; }
    void setNeedsDisplay(bool needed) {
        // Most of what is set of a view is set before anybody sees it.
        if (needed && (superview_ || window_ || extras_)) setNeedsDisplayInRect(bounds());
    }
    void setNeedsDisplayInRect(const Rect& rect);
    /// Told whenever the view asks for redrawing, thus whenever its frame or anything that it shows changes.
    void setChangeObserver(std::function<void()> observer);

    /// The pointer's shape over a point in own coordinates.
    virtual PointerShape pointerShapeAt(Point) const { return PointerShape::arrow; }
    /// Whether a drag that begins in the view scrolls what it lies in while the pointer is at the edge.
    virtual bool dragsScroll() const { return false; }

    /// The drawing of `rect` as a one-page vector document; empty where the toolkit fails or a side is too large.
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
    /// Asks for the redrawing of every animated layer of the subtree that shows; false where there is none, so that a
    /// toolkit's timer may rest.
    bool redisplayAnimatedLayers();

    void encodeWithCoder(Encoder& encoder) override;
    bool initWithCoder(Decoder& decoder) override;

protected:
    /// Called after a child has taken another frame.
    virtual void childDidChangeFrame(const View& /*child*/) {}

private:
    /// What few views have, so that the others stay small.
    struct Extras;
    struct ChildFrame;
    Extras& extras();
    const View& root() const;
    bool mayAdopt(const View* view) const;
    void leaveTree();
    void insertChild(std::shared_ptr<View> child, std::size_t index);
    void appendChild(std::shared_ptr<View> child);
    void takeChild(const View& leaving);
    void closeGaps() const;
    void placeChildren(std::size_t first) const;
    void noteChildren(std::size_t first);
    const ChildFrame* childFrames() const;
    void storeFrame(const Rect& frame);
    void announce(void (View::*hook)());
    Point originInParent() const;
    Point originInWindow() const;
    void drawSubtree(DrawingContext& context, const Rect& dirty, bool withOverlays);
    void drawChildren(DrawingContext& context, const Rect& visible, bool withOverlays);
    void drawPicture(DrawingContext& context, const Rect& rect);

    Rect frame_;
    /// Among the parent's children, gaps included.
    std::uint32_t place_ = 0;
    bool hidden_ = false;
    bool translatesAutoresizing_ = true;
    mutable bool hasGaps_ = false;
    View* superview_ = nullptr;
    Window* window_ = nullptr;
    /// Children that left are gaps until somebody looks, so that thousands leave in linear time.
    mutable std::vector<std::shared_ptr<View>> subviews_;
    std::weak_ptr<Responder> nextResponder_;
    std::unique_ptr<Extras> extras_;
};

}  // namespace zor

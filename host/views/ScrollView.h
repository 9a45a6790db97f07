#pragma once

#include <functional>

#include "host/views/View.h"

namespace zor {

/// A viewport onto its document view, which keeps its own size. Scrollers are the toolkit's: it sets the room they
/// take and follows the content through `setObserver`.
class ScrollView : public View {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }
    using View::View;

    /// Points that the vertical ruler takes at the left edge.
    static constexpr double rulerThickness = 20;

    bool hasBorder() const { return border_; }
    void setHasBorder(bool border);
    bool hasVerticalRuler() const { return verticalRuler_; }
    void setHasVerticalRuler(bool ruler);

    /// Shown with its top left corner at the viewport's, less the offset, whatever its frame's origin. None where it
    /// has left the receiver.
    std::shared_ptr<View> documentView() const;
    /// Replaces the one before.
    void setDocumentView(const std::shared_ptr<View>& view);

    /// What is left of the bounds for the document, in the receiver's coordinates.
    Rect viewport() const;
    /// The document point at the viewport's top left; kept within the document.
    Point contentOffset() const { return offset_; }
    void setContentOffset(Point offset);
    /// The farthest offset, (0, 0) where the document fits.
    Point largestOffset() const;
    /// Scrolls as little as makes the document rectangle visible.
    void scrollToVisible(const Rect& rect);

    /// Room for the toolkit's scrollers at the right and bottom edges.
    void setScrollerRoom(Size room);
    /// Told after viewport, document size or offset change.
    void setObserver(std::function<void()> observer) { observer_ = std::move(observer); }

    Rect childrenClip() const override { return viewport(); }
    Point childrenOrigin() const override;
    void layout() override;
    void scrollWheel(const EventPtr& event) override;
    void drawRect(DrawingContext& context, const Rect& dirty) override;

protected:
    void childDidChangeFrame(const View& child) override;

private:
    void geometryChanged();
    Point bounded(Point offset) const;
    void drawRuler(DrawingContext& context, const Rect& dirty) const;

    std::weak_ptr<View> documentView_;
    Point offset_;
    Size scrollerRoom_;
    std::function<void()> observer_;
    bool border_ = true;
    bool verticalRuler_ = false;
};

}  // namespace zor

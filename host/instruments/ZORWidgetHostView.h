#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "host/instruments/ZORInstrumentView.h"
#include "host/station/Agent.h"
#include "host/views/Pasteboard.h"

namespace zor {

/// The container of one instrument on a canvas: frame, stacking number, selection look, resize handle. Also the
/// container of a canvas in its scroll view, with the canvas as its target view.
class ZORWidgetHostView : public View {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }

    ZORWidgetHostView();
    static std::shared_ptr<ZORWidgetHostView> initWithFrame(const Rect& frame);

    /// The factories: a widget of that frame with a new instrument, without a title.
    static std::shared_ptr<ZORWidgetHostView> textFieldWithRect(const Rect& rect);
    static std::shared_ptr<ZORWidgetHostView> dateTimeFieldWithRect(const Rect& rect);
    static std::shared_ptr<ZORWidgetHostView> boxWithRect(const Rect& rect);
    static std::shared_ptr<ZORWidgetHostView> imageViewWithRect(const Rect& rect);
    static std::shared_ptr<ZORWidgetHostView> ledWithRect(const Rect& rect);
    static std::shared_ptr<ZORWidgetHostView> mapViewWithRect(const Rect& rect);
    static std::shared_ptr<ZORWidgetHostView> webViewWithRect(const Rect& rect);
    static std::shared_ptr<ZORWidgetHostView> plotViewWithRect(const Rect& rect, const std::shared_ptr<Agent>& agent);
    static std::shared_ptr<ZORWidgetHostView> levelIndicatorWithRect(const Rect& rect);
    static std::shared_ptr<ZORWidgetHostView> roundGaugeWithRect(const Rect& rect);
    static std::shared_ptr<ZORWidgetHostView> linearGaugeWithRect(const Rect& rect);
    /// By the word of the kind ("textField", "roundGauge" ...); empty for an unknown one.
    static std::shared_ptr<ZORWidgetHostView> widgetOfKind(std::string_view kind, const Rect& rect,
                                                           const std::shared_ptr<Agent>& agent);

    /// "container" where it hosts a canvas.
    std::string kind() const;
    /// The only child, also where it came by other ways than `setTargetView`; may be absent.
    std::shared_ptr<View> targetView() const;
    /// Becomes the only child, as large as the widget unless it is a canvas, which keeps its own size. None leaves the
    /// widget empty.
    void setTargetView(const std::shared_ptr<View>& view);
    /// The target as an instrument, or none.
    std::shared_ptr<ZORInstrumentView> instrument() const;

    double frameXCoordinate() const { return frame().x; }
    double frameYCoordinate() const { return frame().y; }
    double frameWidth() const { return frame().width; }
    double frameHeight() const { return frame().height; }
    void setFrameXCoordinate(double x);
    void setFrameYCoordinate(double y);
    void setFrameWidth(double width);
    void setFrameHeight(double height);
    /// The target follows the widget's size.
    void layout() override;

    std::int64_t zOrder() const { return zOrder_; }
    void setZOrder(std::int64_t order) { zOrder_ = order; }
    bool selected() const { return selected_; }
    void setSelected(bool selected);
    bool allowResize() const { return allowResize_; }
    void setAllowResize(bool allow);
    bool editable() const { return editable_; }
    void setEditable(bool editable) { editable_ = editable; }
    /// Whether it is being resized by its handle.
    bool inLiveResize() const { return inLiveResize_; }
    void setInLiveResize(bool live) { inLiveResize_ = live; }
    std::optional<std::string> title() const { return title_; }
    void setTitle(std::optional<std::string> title) { title_ = std::move(title); }
    /// The instrument's settings, for the property panel.
    const SettingList& properties() const;
    /// From a counter that starts at 1, never used twice.
    std::int64_t hash() const { return hash_; }

    /// Where a gesture began; written by the editor, in points.
    Point mouseDownRelativeOffset() const { return mouseDownRelativeOffset_; }
    void setMouseDownRelativeOffset(Point offset) { mouseDownRelativeOffset_ = offset; }
    Point mouseDownPoint() const { return press_ ? press_->point : Point{}; }
    void setMouseDownPoint(Point point) { press().point = point; }
    double clickOffsetX() const { return press_ ? press_->clickOffset.x : 0; }
    void setClickOffsetX(double x) { press().clickOffset.x = x; }
    double clickOffsetY() const { return press_ ? press_->clickOffset.y : 0; }
    void setClickOffsetY(double y) { press().clickOffset.y = y; }

    /// Frame, stacking number, title, editable state and the instrument with its settings and property; nothing of a
    /// selection or gesture.
    ObjectPtr copy() override;
    void encodeWithCoder(Encoder& encoder) override;
    bool initWithCoder(Decoder& decoder) override;

    /// The resize handle: 12 by 12 points inside the bottom right corner; at least 10 by 10 points remain.
    static constexpr double handleSide = 12;
    static constexpr double leastSide = 10;
    Rect resizeHandle() const;
    PointerShape pointerShapeAt(Point point) const override;
    /// While it is edited.
    bool dragsScroll() const override { return editable_; }
    void mouseDown(const EventPtr& event) override;
    void mouseDragged(const EventPtr& event) override;
    void mouseUp(const EventPtr& event) override;
    /// The widget stands for its instrument; only a canvas takes events itself.
    View* hitTest(Point point) override;
    bool keepsWithinFrame() const override { return true; }
    /// White paper under a canvas.
    void drawRect(DrawingContext& context, const Rect& dirty) override;
    /// The selection look and the resize handle.
    void drawOverlay(DrawingContext& context, const Rect& dirty) override;

    /// Whether the pasteboard holds the type of widgets, and the collection that it holds, each time made anew; nothing
    /// where the data is none.
    static bool canReadFromPasteboard(const Pasteboard& pasteboard);
    static std::optional<std::vector<std::shared_ptr<ZORWidgetHostView>>> readFromPasteboard(
        const Pasteboard& pasteboard);

private:
    /// A resizing by the handle from its press on, in the parent's coordinates.
    struct Resizing {
        Point start;
        Size sizeAtStart;
    };
    /// What few widgets have, so that the others stay small.
    struct Press {
        Point point;
        Point clickOffset;
        std::optional<Resizing> resizing;
    };

    Press& press();
    static std::shared_ptr<ZORWidgetHostView> hosting(const Rect& rect, const std::shared_ptr<View>& target);
    bool hostsCanvas() const;
    bool isHandlePress(const Event& event) const;
    bool isTopmostAt(Point locationInWindow) const;
    Point pointInParent(const Event& event) const;

    std::optional<std::string> title_;
    std::int64_t hash_;
    std::int64_t zOrder_ = 0;
    Point mouseDownRelativeOffset_;
    std::unique_ptr<Press> press_;
    bool selected_ = false;
    bool allowResize_ = false;
    bool editable_ = false;
    bool inLiveResize_ = false;
};

}  // namespace zor

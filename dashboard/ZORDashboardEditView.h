#pragma once

#include <utility>

#include "dashboard/WidgetRange.h"
#include "host/instruments/ZORImageView.h"

namespace zor {

/// The canvas of one dashboard. Its children are the widgets; child order is stacking order, first = bottom.
class ZORDashboardEditView : public ZORImageView {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }

    ZORDashboardEditView() = default;
    static std::shared_ptr<ZORDashboardEditView> initWithFrame(const Rect& frame);
    bool initWithCoder(Decoder& decoder) override;
    void encodeWithCoder(Encoder& encoder) override;
    /// Copies every widget too; the copies keep the editable state of their own.
    ObjectPtr copy() override;

    /// The dashboard is being edited: widgets are editable and the grid may show.
    bool editMode() const { return editMode_; }
    /// Hands the flag to every widget and switches the grid on, whatever the flag is.
    void setEditMode(bool editMode);
    /// Only takes effect in edit mode.
    bool drawGridLines() const { return drawGridLines_; }
    void setDrawGridLines(bool draw) { drawGridLines_ = draw; }
    /// Grid spacing in points, at least 1.
    double step() const { return step_; }
    void setStep(double step) { step_ = step; }

    /// The widgets in stacking order.
    WidgetRange widgets() const { return WidgetRange(subviews()); }
    /// On top, then numbers every widget with its 1-based position. A view that is no widget is not taken.
    void addSubview(const std::shared_ptr<View>& widget) override;
    /// Placeholders that stand for widgets of unknown classes, and anything else that is no widget, stay out.
    bool mayRestore(const View& child) const override { return child.isKindOf(ZORWidgetHostView::staticClass()); }
    /// Adds them one after the other and numbers once, which leaves what adding each by itself would leave.
    void addSubviews(const std::vector<std::shared_ptr<ZORWidgetHostView>>& widgets);

    void drawRect(DrawingContext& context, const Rect& dirty) override;
    /// Fits the image into the parent's bounds first, keeping its aspect ratio.
    void setImage(const std::shared_ptr<Image>& image) override;

    std::string kind() const override { return {}; }
    bool isCanvas() const override { return true; }
    double minWidth() const override;
    double minHeight() const override;
    bool isFlipped() const override { return true; }
    bool acceptsFirstResponder() const override { return true; }
    bool dragsScroll() const override { return editMode_; }
    void keyDown(const EventPtr& event) override;
    const SettingList& widgetProperties() const override { return ZORImageView::widgetProperties(); }
    bool showPositionProperties() const override { return false; }
    std::string description() const { return "Edit View"; }
    /// True once: a file may give many dashboards the same canvas, each of which would go through all its widgets.
    bool claim() { return !std::exchange(claimed_, true); }

private:
    void initCommon() { step_ = 20.0; }
    void numberWidgets();
    void drawGrid(DrawingContext& context) const;
    void forwardCopy(const ObjectPtr& sender) { forward("copy:", sender); }
    void forwardPaste(const ObjectPtr& sender) { forward("paste:", sender); }
    void forward(std::string_view action, const ObjectPtr& sender);

    bool editMode_ = false;
    bool drawGridLines_ = false;
    bool claimed_ = false;
    double step_ = 20.0;
};

}  // namespace zor

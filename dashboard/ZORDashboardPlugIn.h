#pragma once

#include <optional>
#include <vector>

#include "dashboard/ZORDashboardEditView.h"
#include "host/foundation/UndoManager.h"
#include "host/station/SiteWindowController.h"
#include "host/station/ZORPropertyPanelController.h"
#include "host/views/Controls.h"
#include "host/views/ScrollView.h"
#include "host/views/ShapeLayer.h"

namespace zor {

using WidgetList = std::vector<std::shared_ptr<ZORWidgetHostView>>;

/// One dashboard: a named instrument panel bound to one station. Owns the canvas, the editor's state, the undo history
/// and the property panel. Each family of operations has a source file of its own beside this header.
class ZORDashboardPlugIn : public ZORPlugIn {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }
    ~ZORDashboardPlugIn() override;

    /// A size with a zero side is computed from the widgets; empty where the base class declines.
    static std::shared_ptr<ZORDashboardPlugIn> initWithAgent(
        const std::shared_ptr<Agent>& agent, const std::shared_ptr<SiteWindowController>& siteWindowController,
        std::optional<WidgetList> widgets = {}, Size size = {});
    bool initWithCoder(Decoder& decoder) override;
    void encodeWithCoder(Encoder& encoder) override;
    std::shared_ptr<ZORPlugIn> copyWithZone() override;

    // Fields
    std::shared_ptr<ZORPropertyPanelController> propertyPanelController() const { return propertyPanelController_; }
    void setPropertyPanelController(std::shared_ptr<ZORPropertyPanelController> controller);
    std::shared_ptr<ZORDashboardEditView> editView() const { return editView_; }
    /// A view that is loaded shows the new canvas in the old one's place.
    void setEditView(std::shared_ptr<ZORDashboardEditView> canvas);
    Rect editFrame() const { return editFrame_; }
    void setEditFrame(Rect frame) { editFrame_ = frame; }
    double clickOffsetX() const { return clickOffset_.x; }
    void setClickOffsetX(double x) { clickOffset_.x = x; }
    double clickOffsetY() const { return clickOffset_.y; }
    void setClickOffsetY(double y) { clickOffset_.y = y; }
    /// In the order of their selection; the canvas's container may stand among them.
    const WidgetList& selectedObjects() const { return selectedObjects_; }
    void setSelectedObjects(WidgetList objects) { selectedObjects_ = std::move(objects); }
    Point mouseDownPoint() const { return mouseDownPoint_; }
    void setMouseDownPoint(Point point) { mouseDownPoint_ = point; }
    Point currentDraggedPoint() const { return currentDraggedPoint_; }
    void setCurrentDraggedPoint(Point point) { currentDraggedPoint_ = point; }
    Point mouseMovePoint() const { return mouseMovePoint_; }
    void setMouseMovePoint(Point point) { mouseMovePoint_ = point; }
    Point resizeClickPoint() const { return resizeClickPoint_; }
    void setResizeClickPoint(Point point) { resizeClickPoint_ = point; }
    EventPtr lastMouseEvent() const { return lastMouseEvent_; }
    void setLastMouseEvent(EventPtr event) { lastMouseEvent_ = std::move(event); }
    bool lastMouseClickWasRight() const { return lastMouseClickWasRight_; }
    void setLastMouseClickWasRight(bool right) { lastMouseClickWasRight_ = right; }
    bool didDrag() const { return didDrag_; }
    void setDidDrag(bool did) { didDrag_ = did; }
    bool drawSelectionBox() const { return drawSelectionBox_; }
    void setDrawSelectionBox(bool draw) { drawSelectionBox_ = draw; }
    bool resizeMode() const { return resizeMode_; }
    void setResizeMode(bool mode) { resizeMode_ = mode; }
    /// As handed to the initialiser, possibly absent; hosting places them on the canvas again.
    const std::optional<WidgetList>& widgets() const { return widgets_; }
    void setWidgets(std::optional<WidgetList> widgets) { widgets_ = std::move(widgets); }
    std::shared_ptr<UndoManager> undoManager() const { return undoManager_; }
    void setUndoManager(std::shared_ptr<UndoManager> manager) { undoManager_ = std::move(manager); }
    std::shared_ptr<ShapeLayer> shapeLayer() const { return shapeLayer_; }
    void setShapeLayer(std::shared_ptr<ShapeLayer> layer) { shapeLayer_ = std::move(layer); }
    std::optional<WidgetList> currentWidgets() const { return currentWidgets_; }
    void setCurrentWidgets(std::optional<WidgetList> widgets) { currentWidgets_ = std::move(widgets); }
    std::shared_ptr<TextField> mouseCoordinateView() const { return mouseCoordinateView_; }
    void setMouseCoordinateView(std::shared_ptr<TextField> label) { mouseCoordinateView_ = std::move(label); }
    /// Frame snapshot entries: {"objectHash": integer, "frame": rectangle text}.
    std::vector<Value> selectedObjectFrames() const { return selectedObjectFrames_; }
    void setSelectedObjectFrames(std::vector<Value> frames) { selectedObjectFrames_ = std::move(frames); }

    // Life cycle and notification
    void didLoad() override { ZORPlugIn::didLoad(); }
    void willUnload() override { ZORPlugIn::willUnload(); }
    void viewWillAppear() override { ZORPlugIn::viewWillAppear(); }
    void viewWillDisappear() override;
    void registerForNotification();
    void unregisterForNotification();
    void topOfTheMinuteNotification(const struct Notification& notification);

    // Hosting
    void awakeFromNib() override;
    void setupLayoutConstraints(const std::shared_ptr<View>& hostView, const std::shared_ptr<View>& targetView);
    /// The canvas found in the view's subtree; a later child that is itself a canvas wins over one found deeper inside
    /// an earlier child.
    static std::shared_ptr<ZORDashboardEditView> dashboardEditViewFromView(const std::shared_ptr<View>& view);

    // Snapshots and printing: empty pointers where the toolkit fails
    std::shared_ptr<const Bytes> pdfRepresentation();
    /// One pixel per point of the canvas, whatever the scale.
    std::shared_ptr<const Bytes> pngImageWithScale(double scale);
    void printDocument();

    // Descriptions
    std::string name() const override { return "Dashboard"; }
    std::string textDescription() const override;
    std::string htmlDescription() const override;
    std::optional<std::string> xmlDescription() const override { return {}; }
    std::optional<std::string> jsonDescription() const override { return {}; }
    std::shared_ptr<Image> icon() const override;
    Value group() const override { return "Dashboard"; }
    bool isRenamable() const override { return true; }
    bool isDeletable() const override { return true; }
    void showHelp() override;

    // Edit mode, export and duplicate
    void editDashboard(const ObjectPtr& sender);
    void exitEditMode(const ObjectPtr& sender);
    void exportDashboard(const ObjectPtr& sender);
    void duplicatePlugIn(const ObjectPtr& sender) override;

    // Selection and hit testing; points in canvas coordinates
    void selectObject(const std::shared_ptr<ZORWidgetHostView>& widget);
    void unselectObject(const std::shared_ptr<ZORWidgetHostView>& widget);
    void unselectAllObjects();
    void selectAllObjects();
    /// Stores the point in the click offsets, whatever it finds.
    std::shared_ptr<ZORWidgetHostView> objectUnderPoint(Point point);
    std::shared_ptr<ZORWidgetHostView> objectUnderMouse(const EventPtr& event);

    // Gestures and keys
    void mouseDown(const EventPtr& event) override;
    void mouseDragged(const EventPtr& event) override;
    void mouseUp(const EventPtr& event) override;
    void rightMouseDown(const EventPtr& event) override;
    void keyDown(const EventPtr& event) override;
    void createRubberBand();
    /// Width and height may be negative.
    void moveRubberBand(const Rect& rect);
    void destroyRubberBand();

    // Property panel
    void showPropertyPanel();
    void hidePropertyPanel();

    // Editing commands
    void addTextLabel(const ObjectPtr& sender);
    void addDateTimeLabel(const ObjectPtr& sender);
    void addBox(const ObjectPtr& sender);
    void addImage(const ObjectPtr& sender);
    void addLED(const ObjectPtr& sender);
    void addMapView(const ObjectPtr& sender);
    void addWebView(const ObjectPtr& sender);
    void addPlot(const ObjectPtr& sender);
    void addLevelIndicator(const ObjectPtr& sender);
    void addRoundGauge(const ObjectPtr& sender);
    void addLinearGauge(const ObjectPtr& sender);
    void alignTopEdges(const ObjectPtr& sender);
    void alignLeftEdges(const ObjectPtr& sender);
    void alignBottomEdges(const ObjectPtr& sender);
    void alignRightEdges(const ObjectPtr& sender);
    /// 1 = top, 2 = left, 3 = bottom, 4 = right; any other mode moves nothing.
    void alignEdges(std::uint32_t mode);
    void bringToFront(const ObjectPtr& sender);
    void sendToBack(const ObjectPtr& sender);
    void duplicateObject(const ObjectPtr& sender);
    void deleteObject(const ObjectPtr& sender);
    /// The action "copy:"; a dashboard is itself copied by copyWithZone.
    void copySelection(const ObjectPtr& sender);
    void paste(const ObjectPtr& sender);
    void undo(const ObjectPtr& sender);
    void redo(const ObjectPtr& sender);
    void selectAll(const ObjectPtr& sender);
    std::shared_ptr<Menu> menu() override;

protected:
    bool initDashboard(const std::shared_ptr<Agent>& agent,
                       const std::shared_ptr<SiteWindowController>& siteWindowController,
                       std::optional<WidgetList> widgets, Size size);

private:
    std::shared_ptr<View> canvasContainer() const;
    std::shared_ptr<ZORWidgetHostView> container() const;
    static std::shared_ptr<ZORWidgetHostView> sharedWidget(ZORWidgetHostView& widget) {
        return std::static_pointer_cast<ZORWidgetHostView>(widget.shared_from_this());
    }
    bool isListed(const ZORWidgetHostView& widget) const;
    /// selectObject or unselectObject for each in turn, in time linear in their number.
    void selectObjects(const WidgetList& widgets);
    void unselectObjects(const WidgetList& widgets);
    Point canvasPoint(const EventPtr& event) const;
    Point relativeToPlugInView(Point point);
    void becomeFirstResponder();
    void showCoordinateLabel();
    void setCoordinateText(Point point);
    void pressTwice();
    void pressOnce(bool extend);
    void pressOnEmptyCanvas(bool extend);
    void click(const std::shared_ptr<ZORWidgetHostView>& widget, bool extend);
    void registerDragUndo(std::vector<Value> snapshots);
    void beginDrag();
    void moveSelection();
    void updateRubberBand(bool extend);
    void nudgeSelection(int keyCode, bool byStep);
    void addEditingItems(Menu& menu, const EventPtr& event);
    /// The last in stacking order, and the one with the highest number, under a point.
    std::shared_ptr<ZORWidgetHostView> topmostWidgetAt(Point point) const;
    std::shared_ptr<ZORWidgetHostView> highestWidgetAt(Point point) const;
    const ZORWidgetHostView* lowestWidget() const;
    const ZORWidgetHostView* topmostWidget() const;
    template <typename Factory>
    void insertWidget(Size size, Factory&& factory);
    void addAndSelect(const WidgetList& widgets);
    static void writeExport(const std::string& path, const std::shared_ptr<ZORDashboardEditView>& canvas,
                            const std::string& title, const std::optional<std::string>& agentName);
    /// Drawn from a hosted copy, so that nothing of the live dashboard changes.
    std::shared_ptr<const Bytes> picture(std::shared_ptr<const Bytes> (View::*render)(const Rect&));

    std::shared_ptr<ZORPropertyPanelController> propertyPanelController_;
    std::shared_ptr<ZORDashboardEditView> editView_;
    Rect editFrame_;
    Point clickOffset_;
    WidgetList selectedObjects_;
    Point mouseDownPoint_;
    Point currentDraggedPoint_;
    Point mouseMovePoint_;
    Point resizeClickPoint_;
    EventPtr lastMouseEvent_;
    bool lastMouseClickWasRight_ = false;
    bool didDrag_ = false;
    bool drawSelectionBox_ = false;
    bool resizeMode_ = false;
    std::optional<WidgetList> widgets_;
    std::shared_ptr<UndoManager> undoManager_ = std::make_shared<UndoManager>();
    std::shared_ptr<ShapeLayer> shapeLayer_;
    std::optional<WidgetList> currentWidgets_;
    std::shared_ptr<TextField> mouseCoordinateView_;
    std::vector<Value> selectedObjectFrames_;
};

/// Orders views by their stacking numbers: -1, 0 or 1.
int compareViews(const View& a, const View& b);
/// Where a duplicate or a pasted copy lies: 10 points to the right of its source and 10 higher.
Rect frameOfCopy(const Rect& frame);

}  // namespace zor

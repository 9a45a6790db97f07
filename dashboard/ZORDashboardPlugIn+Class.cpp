// What the class says of itself: names by which menus, archives and scripts reach it.

#include "dashboard/ZORDashboardPlugIn.h"
#include "host/foundation/ClassBuilder.h"

namespace zor {

namespace {

ObjectPtr makeDashboard(std::span<const Value> arguments) {
    auto argument = [&](std::size_t index) { return index < arguments.size() ? arguments[index] : Value(); };
    return ZORDashboardPlugIn::initWithAgent(
        argument(0).as<Agent>(), argument(1).as<SiteWindowController>(),
        ValueConversion<std::optional<WidgetList>>::orDefault(argument(2)), argument(3).size().value_or(Size{}));
}

}  // namespace

const ClassRecord& ZORDashboardPlugIn::staticClass() {
    using D = ZORDashboardPlugIn;
    static const ClassRecord& record =
        ClassBuilder<D>("ZORDashboardPlugIn", &ZORPlugIn::staticClass())
            .creatable()
            .initializer(makeDashboard)
            .action("editDashboard:", &D::editDashboard)
            .action("exitEditMode:", &D::exitEditMode)
            .action("exportDashboard:", &D::exportDashboard)
            .action("duplicatePlugIn:", &D::duplicatePlugIn)
            .action("selectAllObjects", &D::selectAllObjects)
            .action("unselectAllObjects", &D::unselectAllObjects)
            .action("addTextLabel:", &D::addTextLabel)
            .action("addDateTimeLabel:", &D::addDateTimeLabel)
            .action("addBox:", &D::addBox)
            .action("addImage:", &D::addImage)
            .action("addLED:", &D::addLED)
            .action("addMapView:", &D::addMapView)
            .action("addWebView:", &D::addWebView)
            .action("addPlot:", &D::addPlot)
            .action("addLevelIndicator:", &D::addLevelIndicator)
            .action("addRoundGauge:", &D::addRoundGauge)
            .action("addLinearGauge:", &D::addLinearGauge)
            .action("alignTopEdges:", &D::alignTopEdges)
            .action("alignLeftEdges:", &D::alignLeftEdges)
            .action("alignBottomEdges:", &D::alignBottomEdges)
            .action("alignRightEdges:", &D::alignRightEdges)
            .action("alignEdges:", &D::alignEdges)
            .action("bringToFront:", &D::bringToFront)
            .action("sendToBack:", &D::sendToBack)
            .action("duplicateObject:", &D::duplicateObject)
            .action("deleteObject:", &D::deleteObject)
            .action("copy:", &D::copySelection)
            .action("paste:", &D::paste)
            .action("undo:", &D::undo)
            .action("redo:", &D::redo)
            .action("selectAll:", &D::selectAll)
            .action("menu", &D::menu)
            .action("printDocument", &D::printDocument)
            .action("pdfRepresentation", &D::pdfRepresentation)
            .action("pngImageWithScale:", &D::pngImageWithScale)
            .action("showPropertyPanel", &D::showPropertyPanel)
            .action("hidePropertyPanel", &D::hidePropertyPanel)
            .property("propertyPanelController", &D::propertyPanelController, &D::setPropertyPanelController)
            .property("editView", &D::editView, &D::setEditView)
            .property("editFrame", &D::editFrame, &D::setEditFrame)
            .property("clickOffsetX", &D::clickOffsetX, &D::setClickOffsetX)
            .property("clickOffsetY", &D::clickOffsetY, &D::setClickOffsetY)
            .property("selectedObjects", &D::selectedObjects, &D::setSelectedObjects)
            .property("mouseDownPoint", &D::mouseDownPoint, &D::setMouseDownPoint)
            .property("currentDraggedPoint", &D::currentDraggedPoint, &D::setCurrentDraggedPoint)
            .property("mouseMovePoint", &D::mouseMovePoint, &D::setMouseMovePoint)
            .property("resizeClickPoint", &D::resizeClickPoint, &D::setResizeClickPoint)
            .property("lastMouseEvent", &D::lastMouseEvent, &D::setLastMouseEvent)
            .property("lastMouseClickWasRight", &D::lastMouseClickWasRight, &D::setLastMouseClickWasRight)
            .property("didDrag", &D::didDrag, &D::setDidDrag)
            .property("drawSelectionBox", &D::drawSelectionBox, &D::setDrawSelectionBox)
            .property("resizeMode", &D::resizeMode, &D::setResizeMode)
            .property("widgets", &D::widgets, &D::setWidgets)
            .property("undoManager", &D::undoManager, &D::setUndoManager)
            .property("shapeLayer", &D::shapeLayer, &D::setShapeLayer)
            .property("currentWidgets", &D::currentWidgets, &D::setCurrentWidgets)
            .property("mouseCoordinateView", &D::mouseCoordinateView, &D::setMouseCoordinateView)
            .property("selectedObjectFrames", &D::selectedObjectFrames, &D::setSelectedObjectFrames)
            .registered();
    return record;
}

}  // namespace zor

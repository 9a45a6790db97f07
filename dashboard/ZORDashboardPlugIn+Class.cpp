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

#include "tests/dashboard/DashboardSupport.h"

namespace zor {
namespace {

using test::box;
using test::dashboardOf;

class DashboardFields : public ::testing::Test {
protected:
    Value got(std::string_view name) const { return dashboard->valueForKey(name); }
    /// Through the class record and back.
    Value set(std::string_view name, const Value& value) {
        EXPECT_TRUE(dashboard->setValueForKey(name, value)) << name;
        return got(name);
    }

    std::shared_ptr<ZORWidgetHostView> widget = box({0, 0, 10, 10});
    std::shared_ptr<ZORDashboardPlugIn> dashboard = dashboardOf({widget});
};

TEST_F(DashboardFields, NumbersAndFlagsAreReadAndSetByName) {
    EXPECT_EQ(set("clickOffsetX", 12.5), Value(12.5));
    EXPECT_EQ(set("clickOffsetY", -3.0), Value(-3.0));
    EXPECT_EQ(dashboard->clickOffsetX(), 12.5);
    EXPECT_EQ(dashboard->clickOffsetY(), -3);
    for (const auto* flag : {"lastMouseClickWasRight", "didDrag", "drawSelectionBox", "resizeMode"}) {
        EXPECT_EQ(got(flag), Value(false)) << flag;
        EXPECT_EQ(set(flag, true), Value(true));
    }
}

TEST_F(DashboardFields, PointsAndFramesAreReadAndSetByName) {
    for (const auto* point : {"mouseDownPoint", "currentDraggedPoint", "mouseMovePoint", "resizeClickPoint"}) {
        EXPECT_EQ(got(point), Value(Point{})) << point;
        EXPECT_EQ(set(point, Point{3, 4}), Value(Point{3, 4}));
    }
    EXPECT_EQ(set("editFrame", Rect{1, 2, 3, 4}), Value(Rect{1, 2, 3, 4}));
}

TEST_F(DashboardFields, ObjectsAreReadByName) {
    EXPECT_EQ(got("editView"), Value(dashboard->editView()));
    EXPECT_EQ(got("undoManager"), Value(dashboard->undoManager()));
    EXPECT_EQ(got("selectedObjects"), Value(Value::Array{}));
    EXPECT_EQ(set("selectedObjects", Value::Array{widget}), Value(Value::Array{widget}));
    for (const auto* absent :
         {"propertyPanelController", "lastMouseEvent", "shapeLayer", "mouseCoordinateView", "currentWidgets"}) {
        EXPECT_TRUE(got(absent).isAbsent()) << absent;
    }
}

TEST_F(DashboardFields, EveryCommandIsAnAction) {
    for (const auto* action : {"editDashboard:",
                               "exitEditMode:",
                               "exportDashboard:",
                               "duplicatePlugIn:",
                               "addTextLabel:",
                               "addDateTimeLabel:",
                               "addBox:",
                               "addImage:",
                               "addLED:",
                               "addMapView:",
                               "addWebView:",
                               "addPlot:",
                               "addLevelIndicator:",
                               "addRoundGauge:",
                               "addLinearGauge:",
                               "alignTopEdges:",
                               "alignLeftEdges:",
                               "alignBottomEdges:",
                               "alignRightEdges:",
                               "bringToFront:",
                               "sendToBack:",
                               "duplicateObject:",
                               "deleteObject:",
                               "copy:",
                               "paste:",
                               "undo:",
                               "redo:",
                               "selectAll:"}) {
        EXPECT_TRUE(dashboard->respondsTo(action)) << action;
    }
}

}  // namespace
}  // namespace zor

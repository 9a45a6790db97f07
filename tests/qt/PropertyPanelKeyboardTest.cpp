// The property panel without a mouse.

#include <QAbstractButton>
#include <QButtonGroup>
#include <QComboBox>
#include <algorithm>
#include <set>

#include "tests/qt/PropertyPanelFixture.h"

namespace zor {
namespace {

using test::PropertyPanelTest;

/// By the name of the kind of the instrument.
class PropertyPanelByKeyboard : public PropertyPanelTest, public testing::WithParamInterface<const char*> {
protected:
    static bool takesTab(const QWidget& field) {
        const auto* button = qobject_cast<const QAbstractButton*>(&field);
        // Of buttons that exclude each other, Tab goes to the one that is down; arrows go to the others.
        const bool isPassedOver = button && button->group() && button->group()->exclusive() && !button->isChecked();
        return field.isVisible() && field.isEnabled() && (field.focusPolicy() & Qt::TabFocus) && !field.focusProxy() &&
               !isPassedOver;
    }
};

TEST_P(PropertyPanelByKeyboard, TabReachesEveryField) {
    open(ZORWidgetHostView::widgetOfKind(GetParam(), {10, 20, 200, 40}, agent));
    // So that there is something to revert.
    type(part<QLineEdit>("frameWidth"), "250");
    std::set<const QWidget*> reached;
    part<NumberField>("frameXCoordinate").setFocus();
    for (QWidget* field = window().focusWidget(); reached.insert(field).second; field = window().focusWidget()) {
        press(*field, Qt::Key_Tab);
    }
    for (const QWidget* field : window().findChildren<QWidget*>()) {
        if (!takesTab(*field)) continue;
        EXPECT_TRUE(reached.contains(field))
            << field->metaObject()->className() << " " << field->accessibleName().toStdString();
    }
    for (const auto& setting : widget->properties()) {
        EXPECT_TRUE(std::ranges::any_of(reached, [&](const QWidget* field) {
            return editor(setting.name.c_str()).isAncestorOf(field);
        })) << setting.name;
    }
    EXPECT_TRUE(reached.contains(&revert()));
}

INSTANTIATE_TEST_SUITE_P(OfEveryKind, PropertyPanelByKeyboard,
                         testing::Values("textField", "dateTimeField", "box", "imageView", "led", "mapView", "webView",
                                         "plotView", "levelIndicator", "roundGauge", "linearGauge"),
                         [](const auto& kind) { return std::string(kind.param); });

TEST_F(PropertyPanelTest, SpaceAndReturnTurnASwitch) {
    open(ZORWidgetHostView::textFieldWithRect({10, 20, 200, 40}));
    auto& turned = part<QAbstractButton>("useProperty");
    const auto isOn = [&] { return widget->targetView()->valueForKey("useProperty"); };
    ASSERT_EQ(isOn(), Value(true));
    press(turned, Qt::Key_Space, " ");
    letGo(turned, Qt::Key_Space);
    EXPECT_EQ(isOn(), Value(false));
    press(turned, Qt::Key_Return);
    EXPECT_EQ(isOn(), Value(true));
}

TEST_F(PropertyPanelTest, ArrowsAlign) {
    open(ZORWidgetHostView::textFieldWithRect({10, 20, 200, 40}));
    window().activateWindow();
    QApplication::processEvents();
    auto& left = part<QAbstractButton>("alignment");
    left.setFocus();
    press(left, Qt::Key_Right);
    EXPECT_EQ(widget->targetView()->valueForKey("alignment"), Value("center"));
    press(*window().focusWidget(), Qt::Key_Right);
    EXPECT_EQ(widget->targetView()->valueForKey("alignment"), Value("right"));
}

TEST_F(PropertyPanelTest, ArrowsChoose) {
    open(ZORWidgetHostView::plotViewWithRect({10, 20, 200, 100}, agent));
    auto& list = part<QComboBox>("period");
    const int first = list.currentIndex();
    const Value before = widget->targetView()->valueForKey("period");
    press(list, first + 1 < list.count() ? Qt::Key_Down : Qt::Key_Up);
    EXPECT_NE(widget->targetView()->valueForKey("period"), before);
}

TEST_F(PropertyPanelTest, EscapeClosesIt) {
    open(ZORWidgetHostView::boxWithRect({1, 2, 30, 40}));
    press(part<NumberField>("frameXCoordinate"), Qt::Key_Escape);
    EXPECT_FALSE(controller->isVisible());
}

}  // namespace
}  // namespace zor

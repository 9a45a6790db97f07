#pragma once
// A property panel for one widget, with fields that are found by their settings' names.

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <stdexcept>

#include "host/instruments/ZORTextFieldView.h"
#include "host/instruments/ZORWidgetHostView.h"
#include "host/station/ZORPropertyPanelController.h"
#include "qt/QtWindowPeer.h"
#include "qt/panel/Fields.h"
#include "qt/panel/PropertyPanel.h"

namespace zor::test {

class PropertyPanelTest : public testing::Test {
protected:
    ~PropertyPanelTest() override { controller.reset(); }

    void open(const std::shared_ptr<ZORWidgetHostView>& shown) {
        widget = shown;
        if (controller) {
            controller->setTargetObject(widget->targetView());
            controller->setProperties(&widget->properties());
        } else {
            controller = ZORPropertyPanelController::initWithAgent(agent, widget->targetView(), &widget->properties());
            controller->window()->setFrame({100, 300, 320, 300});
        }
        controller->reload();
        if (!controller->isVisible()) controller->showWindow();
        QApplication::processEvents();
    }
    QWidget& window() { return *QtWindowPeer::widgetOf(controller->window().get()); }
    SettingEditor& editor(const char* name) {
        auto* found = window().findChild<QWidget*>(name);
        EXPECT_NE(found, nullptr) << name;
        return *static_cast<SettingEditor*>(found);
    }
    template <typename T>
    T& part(const char* name) {
        auto* found = editor(name).findChild<T*>();
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    /// Replaces the text of a field as typing does, letter by letter.
    static void type(QLineEdit& field, const QString& text) {
        field.selectAll();
        press(field, Qt::Key_Delete);
        for (const QChar letter : text) press(field, 0, letter);
        QApplication::processEvents();
    }
    static void press(QWidget& target, int key, const QString& text = {}) {
        QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(&target, &down);
    }
    static void letGo(QWidget& target, int key) {
        QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier);
        QApplication::sendEvent(&target, &up);
    }
    static void leave(QWidget& field) {
        QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
        QApplication::sendEvent(&field, &out);
    }
    QString reason(const char* name) {
        const auto* label = editor(name).parentWidget()->findChild<QLabel*>("reason");
        return label->isHidden() ? QString() : label->text();
    }
    QPushButton& revert() {
        for (auto* button : window().findChildren<QPushButton*>()) {
            if (button->text() == "&Revert") return *button;
        }
        throw std::runtime_error("there is no Revert");
    }
    ZORTextFieldView& text() { return dynamic_cast<ZORTextFieldView&>(*widget->targetView()); }

    std::shared_ptr<Agent> agent = Agent::withName("Garden");
    std::shared_ptr<ZORWidgetHostView> widget;
    std::shared_ptr<ZORPropertyPanelController> controller;
};

}  // namespace zor::test

#include "qt/QtWindowPeer.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QScreen>

#include "qt/QtConversions.h"

namespace zor {

namespace {

std::shared_ptr<Window> windowOfSize(double width, double height) {
    auto window = std::make_shared<Window>();
    window->setContentView(std::make_shared<View>(Rect{0, 0, width, height}));
    return window;
}

}  // namespace

TEST(QtWindowPeer, AWindowOfItsOwnIsAFloatingToolWindow) {
    const auto window = windowOfSize(200, 100);
    window->setTitle("Properties");
    EXPECT_EQ(QtWindowPeer::widgetOf(window.get()), nullptr);
    window->show();
    ViewTreeWidget* widget = QtWindowPeer::widgetOf(window.get());
    ASSERT_NE(widget, nullptr);
    EXPECT_TRUE(widget->isVisible());
    EXPECT_EQ(widget->windowType(), Qt::Tool);
    EXPECT_EQ(widget->windowTitle(), "Properties");
    EXPECT_EQ(widget->size(), QSize(200, 100));
    window->close();
    EXPECT_FALSE(widget->isVisible());
}

TEST(QtWindowPeer, FramesHaveTheirOriginAtTheBottomLeft) {
    const int height = QApplication::primaryScreen()->geometry().height();
    const auto window = windowOfSize(200, 100);
    window->setFrame({50, 60, 200, 100});
    window->show();
    ViewTreeWidget* widget = QtWindowPeer::widgetOf(window.get());
    EXPECT_EQ(widget->pos(), QPoint(50, height - 60 - 100));
    window->setFrame({70, 80, 220, 120});
    EXPECT_EQ(widget->pos(), QPoint(70, height - 80 - 120));
    EXPECT_EQ(widget->size(), QSize(220, 120));
    EXPECT_EQ(window->contentView()->frame(), (Rect{0, 0, 220, 120}));
    // The person moves it.
    widget->move(10, 20);
    EXPECT_EQ(window->frame(), (Rect{10, height - 20.0 - 120, 220, 120}));
}

TEST(QtWindowPeer, ThePersonClosesIt) {
    const auto window = windowOfSize(200, 100);
    window->show();
    QtWindowPeer::widgetOf(window.get())->close();
    EXPECT_FALSE(window->isVisible());
}

TEST(QtWindowPeer, ASheetBlocksItsWindowAlone) {
    ViewTreeWidget widget;
    const auto window = windowOfSize(400, 300);
    window->setPeer(std::make_shared<QtWindowPeer>(*window, widget));
    window->show();
    EXPECT_TRUE(widget.isVisible());
    const auto sheet = windowOfSize(200, 100);
    int code = -1;
    window->beginSheet(sheet, [&](int result) { code = result; });
    ViewTreeWidget* shown = QtWindowPeer::widgetOf(sheet.get());
    ASSERT_NE(shown, nullptr);
    EXPECT_TRUE(shown->isVisible());
    EXPECT_EQ(shown->parentWidget(), &widget);
    EXPECT_EQ(shown->windowModality(), Qt::WindowModal);
    EXPECT_EQ(shown->size(), QSize(200, 100));
    window->endSheet(sheet, 2);
    EXPECT_EQ(code, 2);
    EXPECT_FALSE(shown->isVisible());

    window->beginSheet(sheet, [&](int result) { code = result; });
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(QtWindowPeer::widgetOf(sheet.get()), &escape);
    EXPECT_EQ(code, 0);
    EXPECT_EQ(window->attachedSheet(), nullptr);
}

TEST(QtWindowPeer, TheWidgetOfTheApplicationMayGoFirst) {
    auto widget = std::make_unique<ViewTreeWidget>();
    const auto window = windowOfSize(400, 300);
    window->setPeer(std::make_shared<QtWindowPeer>(*window, *widget));
    window->show();
    widget.reset();
    window->contentView()->setNeedsDisplay(true);
    window->setTitle("Garden");
    window->close();
    window->show();
    EXPECT_EQ(QtWindowPeer::widgetOf(window.get()), nullptr);
}

}  // namespace zor

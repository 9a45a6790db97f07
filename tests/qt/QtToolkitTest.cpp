#include "qt/QtToolkit.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QMenu>
#include <QScreen>
#include <QTimer>
#include <thread>

#include "host/foundation/ClassBuilder.h"
#include "host/foundation/MainQueue.h"
#include "host/views/Menu.h"
#include "qt/MainQueueRunner.h"
#include "qt/QtMenus.h"
#include "qt/QtWindowPeer.h"

namespace zor {

namespace {

class Target : public Object {
public:
    static const ClassRecord& staticClass() {
        static const ClassRecord& record = ClassBuilder<Target>("QtTestTarget", &Object::staticClass())
                                               .action("duplicateObject:", &Target::duplicateObject)
                                               .registered();
        return record;
    }
    const ClassRecord& classRecord() const override { return staticClass(); }
    void duplicateObject(const ObjectPtr&) { ++performed; }

    int performed = 0;
};

}  // namespace

TEST(QtPasteboard, KeepsSeveralTypes) {
    Pasteboard& pasteboard = Toolkit::current().generalPasteboard();
    pasteboard.clearContents();
    EXPECT_TRUE(pasteboard.dataForType(widgetPasteType).empty());
    const Bytes widgets{0, 1, 2, 0xFF, 0};
    pasteboard.setDataForType(widgets, widgetPasteType);
    pasteboard.setDataForType({'a'}, "application/x-other");
    EXPECT_EQ(pasteboard.dataForType(widgetPasteType), widgets);
    EXPECT_EQ(pasteboard.dataForType("application/x-other"), Bytes{'a'});
    EXPECT_THAT(pasteboard.types(), testing::UnorderedElementsAre(widgetPasteType, "application/x-other"));
    pasteboard.clearContents();
    EXPECT_TRUE(pasteboard.types().empty());
}

TEST(QtMenus, ItemsPerformTheirActions) {
    const auto target = std::make_shared<Target>();
    const auto menu = std::make_shared<Menu>("Context");
    menu->addItem("Cut & Copy", "duplicateObject:", "", target);
    menu->addSeparator();
    menu->addItem("Gone", "duplicateObject:", "d", std::make_shared<Target>());
    const std::unique_ptr<QMenu> shown(makeQtMenu(menu, nullptr));
    const auto actions = shown->actions();
    ASSERT_EQ(actions.size(), 3);
    EXPECT_EQ(actions[0]->text(), "Cut && Copy");
    EXPECT_TRUE(actions[1]->isSeparator());
    EXPECT_FALSE(actions[2]->isEnabled());
    EXPECT_EQ(actions[2]->shortcut(), QKeySequence("Ctrl+D"));
    actions[0]->trigger();
    EXPECT_EQ(target->performed, 1);
}

TEST(QtMenus, PopUpWhereTheEventWas) {
    ViewTreeWidget widget;
    widget.resize(300, 200);
    const auto window = std::make_shared<Window>();
    const auto view = std::make_shared<View>(Rect{0, 0, 300, 200});
    window->setContentView(view);
    window->setPeer(std::make_shared<QtWindowPeer>(*window, widget));
    window->show();
    const auto menu = std::make_shared<Menu>();
    const auto event = Event::mouse(EventType::rightMouseDown, {40, 30}, 0, 1);
    Toolkit::current().popUpContextMenu(menu, event, view.get());
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    menu->addItem("Delete", "deleteObject:", "", {});
    Toolkit::current().popUpContextMenu(menu, event, view.get());
    QWidget* shown = QApplication::activePopupWidget();
    ASSERT_NE(shown, nullptr);
    EXPECT_EQ(shown->pos(), widget.mapToGlobal(QPoint(40, 30)));
    shown->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

TEST(QtToolkit, ThePointersOriginIsAtTheBottomLeft) {
    QCursor::setPos(30, 40);
    const int height = QApplication::primaryScreen()->geometry().height();
    EXPECT_EQ(Toolkit::current().mouseLocation(), (Point{30, height - 40.0}));
}

TEST(QtToolkit, HelpIsTheApplications) {
    QtToolkit toolkit;
    toolkit.openHelp("dashboard");
    std::string opened;
    toolkit.setHelpOpener([&](const std::string& anchor) { opened = anchor; });
    toolkit.openHelp("dashboards");
    EXPECT_EQ(opened, "dashboards");
}

TEST(QtToolkit, AnInterfaceThatCannotBeLoadedIsNamed) {
    const auto loaded = Toolkit::current().loadInterface("/tmp/selection.ui", {});
    ASSERT_FALSE(loaded);
    EXPECT_THAT(loaded.error().message, testing::HasSubstr("/tmp/selection.ui"));
}

TEST(MainQueueRunner, RunsTheWorkOfOtherThreads) {
    MainQueueRunner runner;
    bool onMain = false;
    std::atomic<bool> finished = false;
    std::thread worker([&] {
        MainQueue::shared().sync([&] { onMain = MainQueue::shared().isMainThread(); });
        finished = true;
    });
    while (!finished) QApplication::processEvents(QEventLoop::AllEvents, 20);
    worker.join();
    EXPECT_TRUE(onMain);
}

TEST(MainQueueRunner, WorkWithoutEndLeavesTheOtherEventsTheirTurn) {
    MainQueueRunner runner;
    constexpr int muchTooOften = 10000;
    int runs = 0;
    bool hasEnded = false;
    // As requests of the web that come as fast as they are answered.
    std::function<void()> again = [&] {
        if (!hasEnded && ++runs < muchTooOften) MainQueue::shared().post(again);
    };
    MainQueue::shared().post(again);
    QTimer::singleShot(0, [&] { hasEnded = true; });
    while (!hasEnded) QApplication::processEvents();
    EXPECT_LT(runs, muchTooOften);
}

}  // namespace zor

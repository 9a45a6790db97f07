#include "qt/MainQueueRunner.h"

#include <QCoreApplication>
#include <QEvent>

#include "host/foundation/MainQueue.h"

namespace zor {

namespace {

QEvent::Type workWaits() {
    static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
    return type;
}

}  // namespace

MainQueueRunner::MainQueueRunner() {
    MainQueue::shared().attach([this] { QCoreApplication::postEvent(this, new QEvent(workWaits())); });
    // What was posted before woke nobody.
    QCoreApplication::postEvent(this, new QEvent(workWaits()));
}

MainQueueRunner::~MainQueueRunner() {
    MainQueue::shared().attach({});
}

bool MainQueueRunner::event(QEvent* event) {
    if (event->type() != workWaits()) return QObject::event(event);
    // Qt goes on to what is posted meanwhile before it looks at anything else: work that always waits again would keep
    // the signal to quit, the mouse and the timers from their turn. A timer comes once in a round of the loop.
    if (!turn_.isActive()) turn_.start(0, this);
    return true;
}

void MainQueueRunner::timerEvent(QTimerEvent*) {
    turn_.stop();
    MainQueue::shared().run();
}

}  // namespace zor

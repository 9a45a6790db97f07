#include "qt/MainQueueRunner.h"

#include <QCoreApplication>
#include <QEvent>

#include "host/foundation/MainQueue.h"

namespace zor {

MainQueueRunner::MainQueueRunner() {
    MainQueue::shared().attach([this] { QCoreApplication::postEvent(this, new QEvent(QEvent::User)); });
    // What was posted before woke nobody.
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

MainQueueRunner::~MainQueueRunner() {
    MainQueue::shared().attach({});
}

void MainQueueRunner::customEvent(QEvent*) {
    // Qt goes on to what is posted meanwhile before it looks at anything else: work that always waits again would keep
    // the signal to quit, the mouse and the timers from their turn. A timer comes once in a round of the loop.
    if (!turn_.isActive()) turn_.start(0, this);
}

void MainQueueRunner::timerEvent(QTimerEvent*) {
    turn_.stop();
    MainQueue::shared().run();
}

}  // namespace zor

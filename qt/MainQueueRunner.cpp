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
    MainQueue::shared().run();
    return true;
}

}  // namespace zor

#pragma once

#include <QBasicTimer>
#include <QObject>

namespace zor {

/// Runs the main queue's work in Qt's event loop, however much there is in turns with everything else. Make it on the
/// main thread once the application object is there.
class MainQueueRunner : public QObject {
public:
    MainQueueRunner();
    /// The queue's work waits from then on.
    ~MainQueueRunner() override;

protected:
    /// Work waits.
    void customEvent(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    QBasicTimer turn_;
};

}  // namespace zor

#pragma once

#include <QTimer>
#include <functional>
#include <memory>

#include "host/views/Event.h"
#include "host/views/ScrollView.h"

namespace zor {

/// Scrolls what a drag began in while the pointer is at the edge of the viewport or beyond, the faster the farther. The
/// drag is told again after each step, since the page has moved below the pointer. Rests while there is nothing to do.
class AutoScroller {
public:
    explicit AutoScroller(std::function<void(const EventPtr&)> dragAgain);

    /// A press on `view`, which may be absent.
    void begin(View* view);
    /// A drag of that press.
    void follow(const EventPtr& drag);
    void end();

private:
    void step();
    /// What one step scrolls by at the place of the drag.
    Point advance() const;

    std::function<void(const EventPtr&)> dragAgain_;
    std::weak_ptr<ScrollView> scrollView_;
    EventPtr drag_;
    QTimer timer_;
};

}  // namespace zor

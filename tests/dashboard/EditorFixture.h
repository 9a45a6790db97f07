#pragma once

#include "tests/dashboard/HostedDashboard.h"

namespace zor::test {

/// A dashboard in edit mode with three widgets of 80 by 60 that do not touch, from the lowest to the highest.
class EditorTest : public HostedDashboard {
protected:
    EditorTest() { hostForEditing({a, b, c}); }

    std::shared_ptr<ZORWidgetHostView> a = box({100, 100, 80, 60});
    std::shared_ptr<ZORWidgetHostView> b = box({300, 100, 80, 60});
    std::shared_ptr<ZORWidgetHostView> c = box({100, 300, 80, 60});
    /// On each of them, away from its resize handle, and on none.
    const Point onA{120, 120};
    const Point onB{320, 120};
    const Point onC{120, 320};
    const Point nowhere{600, 400};
};

}  // namespace zor::test

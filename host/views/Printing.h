#pragma once

#include <memory>

#include "host/foundation/Object.h"

namespace zor {

class View;

enum class PaperOrientation { portrait, landscape };
enum class Pagination { automatic, fit, clip };

struct PrintSettings {
    PaperOrientation orientation = PaperOrientation::portrait;
    Pagination horizontal = Pagination::automatic;
    Pagination vertical = Pagination::automatic;
};

/// One printing of a view.
struct PrintOperation {
    std::shared_ptr<View> view;
    PrintSettings settings;
    std::weak_ptr<Object> delegate;

    /// Shows the toolkit's print sheet on the view's window and prints when the person agrees.
    void runModalForWindow(class Window* window);
};

}  // namespace zor

#pragma once
// Native scroll bars over the scroll views of a view tree.

#include <memory>
#include <vector>

#include "host/views/ScrollView.h"

class QWidget;

namespace zor {

/// Keeps a pair of scroll bars at the right and bottom edges of every scroll view of a tree, each shown only while the
/// document is larger than the viewport in its direction.
class ScrollerOverlays {
public:
    /// The bars become children of the widget that shows the tree.
    explicit ScrollerOverlays(QWidget& parent);
    ~ScrollerOverlays();

    /// Finds the scroll views that have come or gone and puts every bar in its place. `root` may be absent.
    void follow(View* root);

private:
    class Pair;

    QWidget& parent_;
    std::vector<std::unique_ptr<Pair>> pairs_;
};

}  // namespace zor

#pragma once

#include <QTextBrowser>

namespace zor {

/// The help book: one page with anchors.
class HelpWindow : public QTextBrowser {
public:
    HelpWindow();
    /// Opens the book there; an empty or unknown anchor shows its beginning.
    void showAnchor(const QString& anchor);
};

}  // namespace zor

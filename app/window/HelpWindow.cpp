#include "app/window/HelpWindow.h"

#include <QShortcut>

namespace zor {

HelpWindow::HelpWindow() {
    setWindowTitle(tr("Station Help"));
    setOpenExternalLinks(false);
    setFrameShape(QFrame::NoFrame);
    document()->setDocumentMargin(28);
    setSource(QUrl("qrc:/help/help.html"));
    resize(720, 760);
    auto* close = new QShortcut(QKeySequence::Close, this);
    connect(close, &QShortcut::activated, this, &QWidget::hide);
}

void HelpWindow::showAnchor(const QString& anchor) {
    show();
    raise();
    activateWindow();
    if (anchor.isEmpty()) {
        scrollToAnchor("station");
    } else {
        scrollToAnchor(anchor);
    }
}

}  // namespace zor

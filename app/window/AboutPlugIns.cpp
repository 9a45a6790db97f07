#include "app/window/AboutPlugIns.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "app/window/Desktop.h"
#include "app/window/SiteWindow.h"

namespace zor {

namespace {

QString description(const ZORPlugIn& plugIn) {
    return QString::fromStdString(plugIn.htmlDescription()) + "<p>" +
           QString::fromStdString(plugIn.textDescription()).toHtmlEscaped() + "</p><p><small>" +
           QString::fromStdString(plugIn.bundleIdentifier()).toHtmlEscaped() + "</small></p>";
}

}  // namespace

void showAboutPlugIns(SiteWindow& window) {
    QDialog dialog(&window);
    dialog.setWindowTitle(QObject::tr("About Plug-ins"));
    auto* text = new QTextBrowser(&dialog);
    text->setFrameShape(QFrame::NoFrame);
    QString html;
    for (const auto& plugIn : window.document().entryPlugIns()) html += description(*plugIn);
    for (const auto& problem : window.desktop().plugIns().problems()) {
        html += "<p>" + QString::fromStdString(problem).toHtmlEscaped() + "</p>";
    }
    text->setHtml(html);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, &dialog);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(text);
    layout->addWidget(buttons);
    dialog.resize(520, 300);
    dialog.exec();
}

}  // namespace zor

#include "qt/PlainText.h"

#include <QLabel>
#include <QMessageBox>
#include <QTextDocument>

namespace zor {

QString plainToolTip(const QString& text) {
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal) : text;
}

void showTextsPlainly(QMessageBox& box) {
    // The box's own format leaves the informative text out.
    box.setTextFormat(Qt::PlainText);
    for (auto* label : box.findChildren<QLabel*>()) label->setTextFormat(Qt::PlainText);
}

}  // namespace zor

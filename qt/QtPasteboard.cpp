#include "qt/QtPasteboard.h"

#include <QClipboard>
#include <QGuiApplication>

#include "qt/QtConversions.h"

namespace zor {

void QtPasteboard::clearContents() {
    QGuiApplication::clipboard()->clear();
}

void QtPasteboard::setDataForType(Bytes data, std::string_view type) {
    // The clipboard takes its contents as a whole: what is there under other types from this pasteboard is kept.
    QClipboard& clipboard = *QGuiApplication::clipboard();
    auto* const contents = new QMimeData;
    if (contents_ && clipboard.mimeData() == contents_) {
        for (const QString& format : contents_->formats()) contents->setData(format, contents_->data(format));
    }
    contents->setData(toQt(type),
                      QByteArray(reinterpret_cast<const char*>(data.data()), static_cast<qsizetype>(data.size())));
    clipboard.setMimeData(contents);
    contents_ = contents;
}

Bytes QtPasteboard::dataForType(std::string_view type) const {
    const QMimeData* contents = QGuiApplication::clipboard()->mimeData();
    const QByteArray data = contents ? contents->data(toQt(type)) : QByteArray();
    return {data.begin(), data.end()};
}

std::vector<std::string> QtPasteboard::types() const {
    std::vector<std::string> types;
    if (const QMimeData* contents = QGuiApplication::clipboard()->mimeData()) {
        for (const QString& format : contents->formats()) types.push_back(format.toStdString());
    }
    return types;
}

}  // namespace zor

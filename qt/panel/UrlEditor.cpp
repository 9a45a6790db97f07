#include <QHBoxLayout>
#include <QUrl>

#include "qt/QtConversions.h"
#include "qt/panel/Editors.h"
#include "qt/panel/Fields.h"

namespace zor {

namespace {

/// An address that a page can be loaded from, or why the text is none. "example.org" means https.
Result<std::string> addressFrom(const QString& text) {
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty()) return std::string();
    const QUrl url(trimmed.contains("://") ? trimmed : "https://" + trimmed, QUrl::StrictMode);
    if (!url.isValid()) return Error{"is no address"};
    const bool isFile = url.scheme() == "file";
    if (!isFile && url.scheme() != "http" && url.scheme() != "https") {
        return Error{"must begin with https://, http:// or file://"};
    }
    if (isFile ? url.path().isEmpty() : url.host().isEmpty()) return Error{"names no place"};
    return url.toString(QUrl::FullyEncoded).toStdString();
}

/// Offers an address when it is complete, with Return or when the keyboard leaves: half a name must not be loaded.
class UrlEditor final : public SettingEditor {
public:
    explicit UrlEditor(const PanelContext& context) : SettingEditor(context), field_(new LineField(this)) {
        auto* layout = new QHBoxLayout(this);
        layout->setContentsMargins({});
        layout->addWidget(field_);
        setFocusProxy(field_);
        field_->setPlaceholderText("https://");
        connect(field_, &QLineEdit::textEdited, this, [this](const QString& text) { judge(text); });
        connect(field_, &QLineEdit::returnPressed, this, [this] { take(); });
        field_->setLeftObserver([this] {
            take();
            settle();
        });
    }

private:
    void display(const Value& value) override { field_->setText(toQt(value.asString())); }

    void judge(const QString& text) {
        const auto address = addressFrom(text);
        if (address) {
            offer(value());
        } else {
            refuse(toQt(address.error().message));
        }
    }

    void take() {
        const auto address = addressFrom(field_->text());
        if (address && *address != value().asString() && offer(*address)) settle();
    }

    LineField* field_;
};

}  // namespace

SettingEditor* makeUrlEditor(const PanelContext& context) {
    return new UrlEditor(context);
}

}  // namespace zor

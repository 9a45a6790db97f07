#include <QHBoxLayout>

#include "qt/QtConversions.h"
#include "qt/panel/Editors.h"
#include "qt/panel/Fields.h"

namespace zor {

namespace {

class TextEditor final : public SettingEditor {
public:
    explicit TextEditor(const PanelContext& context) : SettingEditor(context), field_(new LineField(this)) {
        auto* layout = new QHBoxLayout(this);
        layout->setContentsMargins({});
        layout->addWidget(field_);
        setFocusProxy(field_);
        connect(field_, &QLineEdit::textEdited, this, [this](const QString& text) { offer(text.toStdString()); });
        field_->setLeftObserver([this] { settle(); });
    }

private:
    void display(const Value& value) override {
        const QString text = toQt(value.asString());
        if (field_->text() != text) field_->setText(text);
    }

    LineField* field_;
};

}  // namespace

SettingEditor* makeTextEditor(const PanelContext& context) {
    return new TextEditor(context);
}

}  // namespace zor

#include "qt/panel/SettingRow.h"

#include <QBoxLayout>
#include <QLabel>
#include <QVariant>

#include "qt/QtConversions.h"

namespace zor {

namespace {

constexpr int labelWidth = 96;

/// On light and on dark ground.
QColor alarmInk(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() > 127 ? QColor(0xc4, 0x1e, 0x16) : QColor(0xff, 0x7b, 0x72);
}

}  // namespace

SettingRow::SettingRow(const Setting& setting, const PanelContext& context, Arrangement arrangement)
    : editor_(makeSettingEditor(setting, context)), reason_(new QLabel(this)) {
    auto* label = new QLabel(toQt(setting.label), this);
    label->setBuddy(editor_);
    label->setWordWrap(true);
    label->setObjectName("settingLabel");
    editor_->setObjectName(toQt(setting.name));
    QWidget* field = editor_->focusProxy() ? editor_->focusProxy() : editor_;
    if (field->accessibleName().isEmpty()) field->setAccessibleName(toQt(setting.label));
    reason_->setObjectName("reason");
    reason_->setWordWrap(true);
    reason_->setTextFormat(Qt::PlainText);
    reason_->hide();

    auto* column = new QVBoxLayout;
    column->setSpacing(2);
    column->addWidget(editor_);
    column->addWidget(reason_);
    const bool isBeside = arrangement == Arrangement::labelBeside;
    auto* layout = new QBoxLayout(isBeside ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom, this);
    layout->setContentsMargins({});
    layout->setSpacing(isBeside ? 8 : 2);
    if (isBeside) {
        label->setFixedWidth(labelWidth);
        label->setMinimumHeight(26);
        layout->addWidget(label, 0, Qt::AlignTop);
    } else {
        layout->addWidget(label);
    }
    layout->addLayout(column, isBeside ? 1 : 0);
    // Beside a row that tells a reason, the others stay at the top.
    if (!isBeside) layout->addStretch();
    editor_->setReasonObserver([this](const QString& reason) { showReason(reason); });
}

void SettingRow::showReason(const QString& reason) {
    QPalette palette = reason_->palette();
    palette.setColor(QPalette::WindowText, alarmInk(this->palette()));
    reason_->setPalette(palette);
    QString sentence = reason;
    if (!sentence.isEmpty()) sentence[0] = sentence[0].toUpper();
    reason_->setText(sentence);
    reason_->setVisible(!reason.isEmpty());
    editor_->setProperty("refused", !reason.isEmpty());
}

}  // namespace zor

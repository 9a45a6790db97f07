#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <array>

#include "host/instruments/DateFormat.h"
#include "qt/QtConversions.h"
#include "qt/panel/Editors.h"

namespace zor {

namespace {

constexpr std::array usualFormats{"EEEE, d MMMM yyyy", "d MMM yyyy HH:mm", "yyyy-MM-dd HH:mm", "M/d/yyyy h:mm a",
                                  "HH:mm:ss",          "HH:mm",            "h:mm a",           "EEEE",
                                  "d MMMM"};

QString example(const std::string& format) {
    const auto date = localDateParts(now());
    return date ? toQt(formatDate(format, *date)) : QString();
}

/// A format that is chosen or typed, and what it makes of this moment.
class DateFormatEditor final : public SettingEditor {
public:
    explicit DateFormatEditor(const PanelContext& context)
        : SettingEditor(context), box_(new QComboBox(this)), example_(new QLabel(this)) {
        box_->setEditable(true);
        box_->setInsertPolicy(QComboBox::NoInsert);
        box_->setCompleter(nullptr);
        box_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        for (const char* format : usualFormats) box_->addItem(format);
        example_->setObjectName("example");
        example_->setTextFormat(Qt::PlainText);
        example_->setMinimumWidth(1);
        example_->setWordWrap(true);
        auto* layout = new QVBoxLayout(this);
        layout->setContentsMargins({});
        layout->setSpacing(2);
        layout->addWidget(box_);
        layout->addWidget(example_);
        setFocusProxy(box_);
        connect(box_, &QComboBox::editTextChanged, this, [this](const QString& text) { take(text); });
        connect(box_->lineEdit(), &QLineEdit::editingFinished, this, [this] { settle(); });
    }

    void refreshExamples() override { example_->setText(example(value().asString())); }

private:
    void display(const Value& value) override {
        box_->setEditText(toQt(value.asString()));
        refreshExamples();
    }

    void take(const QString& text) {
        const std::string format = text.toStdString();
        if (format == value().asString()) return;
        if (example(format).trimmed().isEmpty()) return refuse(tr("shows nothing; try HH:mm"));
        if (offer(format)) refreshExamples();
    }

    QComboBox* box_;
    QLabel* example_;
};

}  // namespace

SettingEditor* makeDateFormatEditor(const PanelContext& context) {
    return new DateFormatEditor(context);
}

}  // namespace zor

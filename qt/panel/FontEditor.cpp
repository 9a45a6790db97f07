#include <QComboBox>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QToolButton>
#include <QVBoxLayout>

#include "host/foundation/Font.h"
#include "qt/QtConversions.h"
#include "qt/panel/Editors.h"
#include "qt/panel/Fields.h"

namespace zor {

namespace {

/// What dashboards ask for before any other; the toolkit draws its nearest relative where it is not installed.
const QString usualFamily = QStringLiteral("Helvetica Neue");

/// Everything that can be chosen, the plug-ins' own fonts included.
QStringList families() {
    QStringList names = QFontDatabase::families();
    names.removeIf([](const QString& name) { return QFontDatabase::isPrivateFamily(name); });
    if (!names.contains(usualFamily)) names.append(usualFamily);
    names.sort(Qt::CaseInsensitive);
    return names;
}

class FontEditor final : public SettingEditor {
public:
    explicit FontEditor(const PanelContext& context)
        : SettingEditor(context), family_(new QComboBox(this)), size_(new NumberField(this)) {
        family_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        family_->addItems(families());
        family_->setAccessibleName(tr("Font Family"));
        size_->setRange(1, 2000);
        size_->setUnit("pt");
        size_->setAccessibleName(tr("Font Size"));
        bold_ = addStyle("B", tr("Bold"), [](QFont& font) { font.setBold(true); });
        italic_ = addStyle("I", tr("Italic"), [](QFont& font) { font.setItalic(true); });

        auto* details = new QHBoxLayout;
        details->setSpacing(4);
        details->addWidget(size_, 1);
        details->addWidget(bold_);
        details->addWidget(italic_);
        auto* layout = new QVBoxLayout(this);
        layout->setContentsMargins({});
        layout->setSpacing(4);
        layout->addWidget(family_);
        layout->addLayout(details);
        setFocusProxy(family_);

        connect(family_, &QComboBox::activated, this, [this] {
            change([this](Font& font) { font.family = family_->currentText().toStdString(); });
        });
        size_->setObserver([this](std::optional<double> size) {
            if (!size) return refuse(tr("the size must be a number"));
            change([size](Font& font) { font.size = *size; });
        });
        size_->setLeftObserver([this] { settle(); });
        connect(bold_, &QAbstractButton::clicked, this, [this](bool on) { change([on](Font& f) { f.bold = on; }); });
        connect(italic_, &QAbstractButton::clicked, this,
                [this](bool on) { change([on](Font& f) { f.italic = on; }); });
    }

private:
    template <typename Style>
    QToolButton* addStyle(const QString& letter, const QString& name, Style style) {
        auto* button = new QToolButton(this);
        button->setText(letter);
        button->setCheckable(true);
        button->setToolTip(name);
        button->setAccessibleName(name);
        button->setFocusPolicy(Qt::StrongFocus);
        button->setFixedSize(28, 26);
        QFont font = button->font();
        style(font);
        button->setFont(font);
        return button;
    }

    template <typename Change>
    void change(Change apply) {
        Font font = ValueConversion<Font>::orDefault(value());
        apply(font);
        offer(ValueConversion<Font>::to(font));
    }

    void display(const Value& value) override {
        const Font font = ValueConversion<Font>::orDefault(value);
        const QString family = toQt(font.family);
        if (family_->findText(family) < 0) family_->insertItem(0, family);
        family_->setCurrentIndex(family_->findText(family));
        size_->setNumber(font.size);
        bold_->setChecked(font.bold);
        italic_->setChecked(font.italic);
    }

    QString reasonFor(const Value&, const QString&) const override { return tr("the size must be from 1 to 2000 pt"); }

    QComboBox* family_;
    NumberField* size_;
    QToolButton* bold_;
    QToolButton* italic_;
};

}  // namespace

SettingEditor* makeFontEditor(const PanelContext& context) {
    return new FontEditor(context);
}

}  // namespace zor

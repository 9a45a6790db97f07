#include <QColor>
#include <QHBoxLayout>
#include <cmath>

#include "qt/QtConversions.h"
#include "qt/panel/ColorWell.h"
#include "qt/panel/Editors.h"
#include "qt/panel/Fields.h"

namespace zor {

namespace {

/// "#rrggbb", "#rgb", "#rrggbbaa" or a name such as "orange"; opaque where the text says nothing of it.
std::optional<Color> colorFromText(const QString& text) {
    const QString trimmed = text.trimmed();
    if (const auto color = Color::fromText(trimmed.toStdString())) return color;
    // Eight digits in another order are not meant here.
    const QColor named = trimmed.size() > 7 && trimmed.startsWith('#') ? QColor() : QColor(trimmed);
    if (!named.isValid()) return {};
    return Color{static_cast<std::uint8_t>(named.red()), static_cast<std::uint8_t>(named.green()),
                 static_cast<std::uint8_t>(named.blue()), static_cast<std::uint8_t>(named.alpha())};
}

class ColorEditor final : public SettingEditor {
public:
    explicit ColorEditor(const PanelContext& context)
        : SettingEditor(context),
          well_(new ColorWell(this)),
          text_(new LineField(this)),
          opacity_(new NumberField(this)) {
        auto* layout = new QHBoxLayout(this);
        layout->setContentsMargins({});
        layout->setSpacing(4);
        layout->addWidget(well_);
        layout->addWidget(text_, 1);
        layout->addWidget(opacity_);
        setFocusProxy(well_);
        text_->setAccessibleName(tr("Color"));
        text_->setMinimumWidth(text_->fontMetrics().horizontalAdvance("#dddddd") + 14);
        opacity_->setAccessibleName(tr("Opacity"));
        opacity_->setToolTip(tr("Opacity"));
        opacity_->setRange(0, 100);
        opacity_->setUnit("%");
        opacity_->setButtonSymbols(QAbstractSpinBox::NoButtons);
        opacity_->setFixedWidth(opacity_->fontMetrics().horizontalAdvance("1000 %") + 14);
        well_->setObserver([this](Color color) {
            offer(color.text());
            settle();
        });
        connect(text_, &QLineEdit::textEdited, this, [this](const QString& text) { takeText(text); });
        text_->setLeftObserver([this] { settle(); });
        opacity_->setObserver([this](std::optional<double> percent) { takeOpacity(percent); });
        opacity_->setLeftObserver([this] { settle(); });
    }

private:
    Color current() const { return Color::fromText(value().asString()).value_or(Color::clear()); }

    void display(const Value&) override {
        showColor();
        text_->setText(toQt(current().text()).left(7));
        opacity_->setNumber(std::round(current().alpha / 2.55));
    }

    void showColor() { well_->setColor(current()); }

    void takeText(const QString& text) {
        auto color = colorFromText(text);
        if (!color) return refuse(tr("must be a color such as #0a6ed1 or orange"));
        // Six digits say nothing of the opacity, which stays.
        if (color->alpha == 255 && current().alpha > 0) color->alpha = current().alpha;
        if (offer(color->text())) showColor();
    }

    void takeOpacity(std::optional<double> percent) {
        if (!percent || *percent < 0 || *percent > 100) return refuse(tr("the opacity must be from 0 to 100 %"));
        Color color = current();
        color.alpha = 255;
        if (offer(color.withAlpha(*percent / 100).text())) showColor();
    }

    ColorWell* well_;
    LineField* text_;
    NumberField* opacity_;
};

}  // namespace

SettingEditor* makeColorEditor(const PanelContext& context) {
    return new ColorEditor(context);
}

}  // namespace zor

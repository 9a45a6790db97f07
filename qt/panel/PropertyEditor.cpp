#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <QStyleOptionComboBox>
#include <QStylePainter>

#include "host/station/ValueFormats.h"
#include "qt/PlainText.h"
#include "qt/QtConversions.h"
#include "qt/panel/Editors.h"
#include "qt/panel/PropertyChooser.h"

namespace zor {

namespace {

/// Looks like a box to choose from, with a name at the left and a value at the right.
class PropertyButton final : public QPushButton {
public:
    using QPushButton::QPushButton;

    void setTexts(const QString& title, const QString& detail) {
        if (title == title_ && detail == detail_) return;
        title_ = title;
        detail_ = detail;
        setAccessibleDescription(title + ' ' + detail);
        update();
    }
    QSize sizeHint() const override {
        QStyleOptionComboBox option;
        option.initFrom(this);
        return style()->sizeFromContents(QStyle::CT_ComboBox, &option, {80, fontMetrics().height()}, this);
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent*) override {
        QStylePainter painter(this);
        QStyleOptionComboBox option;
        option.initFrom(this);
        if (isDown()) option.state |= QStyle::State_Sunken;
        option.editable = false;
        painter.drawComplexControl(QStyle::CC_ComboBox, option);
        QRect area = style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
        area.adjust(3, 0, -4, 0);
        const QColor ink = palette().color(QPalette::ButtonText);
        QColor soft = ink;
        soft.setAlphaF(0.6F);
        const int detailWidth = fontMetrics().horizontalAdvance(detail_);
        const QRect titleArea = area.adjusted(0, 0, detail_.isEmpty() ? 0 : -detailWidth - 8, 0);
        painter.setPen(ink);
        painter.drawText(titleArea, Qt::AlignVCenter | Qt::AlignLeft,
                         fontMetrics().elidedText(title_, Qt::ElideRight, titleArea.width()));
        painter.setPen(soft);
        painter.drawText(area, Qt::AlignVCenter | Qt::AlignRight, detail_);
    }
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Down) {
            return click();
        }
        QPushButton::keyPressEvent(event);
    }

private:
    QString title_;
    QString detail_;
};

class PropertyEditor final : public SettingEditor {
public:
    explicit PropertyEditor(const PanelContext& context) : SettingEditor(context), button_(new PropertyButton(this)) {
        auto* layout = new QHBoxLayout(this);
        layout->setContentsMargins({});
        layout->addWidget(button_);
        setFocusProxy(button_);
        connect(button_, &QPushButton::clicked, this, [this] { openList(); });
    }

    void refreshExamples() override {
        const auto name = value().string();
        if (!name) return button_->setTexts(tr("None"), {});
        const auto property =
            ask(context().agent, [&](const Agent& agent) { return agent.properties().find(*name); });
        if (property) {
            button_->setTexts(toQt(property->displayName()),
                              toQt(property->stringForFormat(valueWithShortUnitFormat)));
        } else {
            button_->setTexts(toQt(*name), toQt(missingValueText));
        }
        button_->setToolTip(
            plainToolTip(property ? toQt(*name) : tr("This station has no “%1”.").arg(toQt(*name))));
    }

private:
    void display(const Value&) override { refreshExamples(); }

    void openList() {
        auto* list = new PropertyChooser(this, context().agent, value().string());
        list->setObserver([this](const PropertyChooser::Choice& name) {
            if (offer(name ? Value(*name) : Value())) refreshExamples();
        });
        list->openBelow(*button_);
    }

    PropertyButton* button_;
};

}  // namespace

SettingEditor* makePropertyEditor(const PanelContext& context) {
    return new PropertyEditor(context);
}

}  // namespace zor

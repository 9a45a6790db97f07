#include <QAbstractButton>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QVariantAnimation>

#include "qt/panel/Editors.h"

namespace zor {

namespace {

/// A knob that slides in its track.
class Switch final : public QAbstractButton {
public:
    explicit Switch(QWidget* parent) : QAbstractButton(parent) {
        setCheckable(true);
        setFocusPolicy(Qt::StrongFocus);
        setFixedSize(trackWidth + 2 * focusRoom, trackHeight + 2 * focusRoom);
        slide_.setDuration(120);
        slide_.setEasingCurve(QEasingCurve::InOutQuad);
        connect(&slide_, &QVariantAnimation::valueChanged, this, [this](const QVariant& place) {
            place_ = place.toDouble();
            update();
        });
        connect(this, &QAbstractButton::toggled, this, [this](bool on) {
            slide_.stop();
            if (!isVisible()) return showAt(on);
            slide_.setStartValue(place_);
            slide_.setEndValue(on ? 1.0 : 0.0);
            slide_.start();
        });
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QRectF track(focusRoom, focusRoom, trackWidth, trackHeight);
        painter.setPen(Qt::NoPen);
        const QColor on = palette().color(QPalette::Highlight);
        // Of the ink, so that it shows on light and on dark ground.
        QColor off = palette().color(QPalette::WindowText);
        off.setAlphaF(0.3F);
        painter.setBrush(off);
        painter.drawRoundedRect(track, trackHeight / 2.0, trackHeight / 2.0);
        painter.setOpacity(place_);
        painter.setBrush(on);
        painter.drawRoundedRect(track, trackHeight / 2.0, trackHeight / 2.0);
        painter.setOpacity(1);
        const double radius = trackHeight / 2.0 - 2;
        const double travel = trackWidth - trackHeight;
        const QPointF knob(track.left() + trackHeight / 2.0 + travel * place_, track.center().y());
        painter.setBrush(QColor(0, 0, 0, 50));
        painter.drawEllipse(knob + QPointF(0, 0.7), radius + 0.5, radius + 0.5);
        painter.setBrush(Qt::white);
        painter.drawEllipse(knob, radius, radius);
        if (!hasFocus()) return;
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(on, 1.5));
        painter.drawRoundedRect(track.adjusted(-2, -2, 2, 2), trackHeight / 2.0 + 2, trackHeight / 2.0 + 2);
    }

    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
        QAbstractButton::keyPressEvent(event);
    }

private:
    static constexpr int trackWidth = 34;
    static constexpr int trackHeight = 20;
    static constexpr int focusRoom = 3;

    void showAt(bool on) {
        place_ = on;
        update();
    }

    QVariantAnimation slide_;
    double place_ = 0;
};

class SwitchEditor final : public SettingEditor {
public:
    explicit SwitchEditor(const PanelContext& context) : SettingEditor(context), switch_(new Switch(this)) {
        auto* layout = new QHBoxLayout(this);
        layout->setContentsMargins({});
        layout->addWidget(switch_);
        layout->addStretch();
        setFocusProxy(switch_);
        connect(switch_, &QAbstractButton::clicked, this, [this](bool on) {
            if (!offer(on)) switch_->setChecked(!on);
        });
    }

private:
    void display(const Value& value) override { switch_->setChecked(value.asBool()); }

    Switch* switch_;
};

}  // namespace

SettingEditor* makeSwitchEditor(const PanelContext& context) {
    return new SwitchEditor(context);
}

}  // namespace zor

#include "qt/panel/ColorWell.h"

#include <QColorDialog>
#include <QFrame>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QSlider>
#include <array>

#include "qt/QtConversions.h"

namespace zor {

namespace {

constexpr int columns = 8;
/// Greys, then hues in a light, a plain and a deep row.
constexpr std::array<std::uint32_t, 4 * columns> paletteColors = {
    0xffffff, 0xf5f5f7, 0xd2d2d7, 0xaeaeb2, 0x8e8e93, 0x6e6e73, 0x3a3a3c, 0x000000,  //
    0xffb3ae, 0xffd59e, 0xfff0a3, 0xb8e6c1, 0xa8e4ef, 0xaed4ff, 0xd4c3f5, 0xf7bfdc,  //
    0xff3b30, 0xff9500, 0xffcc00, 0x34c759, 0x30b0c7, 0x0a6ed1, 0x7d4fd6, 0xe0448f,  //
    0x9e1f17, 0xa85f00, 0x8f7300, 0x1b7a35, 0x15687a, 0x073f7a, 0x472a85, 0x8a1f52,
};

/// The colour over a board that shows through it.
void paintSwatch(QPainter& painter, const QRectF& rect, double radius, Color color) {
    QPainterPath outline;
    outline.addRoundedRect(rect, radius, radius);
    painter.save();
    painter.setClipPath(outline);
    if (color.alpha < 255) {
        painter.fillRect(rect, Qt::white);
        constexpr int side = 6;
        for (int row = 0; row * side < rect.height(); ++row) {
            for (int column = row % 2; column * side < rect.width(); column += 2) {
                painter.fillRect(QRectF(rect.left() + column * side, rect.top() + row * side, side, side),
                                 QColor(0xc8, 0xc8, 0xcc));
            }
        }
    }
    painter.fillRect(rect, toQt(color));
    painter.restore();
}

class Swatch final : public QAbstractButton {
public:
    Swatch(QWidget* parent, Color color) : QAbstractButton(parent), color_(color) {
        setFixedSize(24, 24);
        setFocusPolicy(Qt::StrongFocus);
        setAccessibleName(toQt(color.text()).left(7));
        setToolTip(accessibleName());
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QRectF area = QRectF(rect()).adjusted(2.5, 2.5, -2.5, -2.5);
        paintSwatch(painter, area, 4, color_);
        painter.setPen(QPen(QColor(128, 128, 128, 110), 1));
        painter.drawRoundedRect(area, 4, 4);
        if (!hasFocus() && !underMouse()) return;
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawRoundedRect(area.adjusted(-1.5, -1.5, 1.5, 1.5), 5.5, 5.5);
    }
    void enterEvent(QEnterEvent*) override { update(); }
    void leaveEvent(QEvent*) override { update(); }
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
        QAbstractButton::keyPressEvent(event);
    }

private:
    Color color_;
};

Color opaque(Color color, std::uint8_t alpha) {
    color.alpha = alpha;
    return color;
}

}  // namespace

ColorWell::ColorWell(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setToolTip(tr("Choose a color"));
    connect(this, &QAbstractButton::clicked, this, [this] { openPalette(); });
}

void ColorWell::setColor(Color color) {
    color_ = color;
    update();
}

void ColorWell::choose(Color color) {
    setColor(color);
    if (observer_) observer_(color);
}

void ColorWell::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
    paintSwatch(painter, area, 5, color_);
    painter.setPen(hasFocus() ? QPen(palette().color(QPalette::Highlight), 2) : QPen(QColor(128, 128, 128, 140), 1));
    painter.drawRoundedRect(area, 5, 5);
}

void ColorWell::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Down) {
        return click();
    }
    QAbstractButton::keyPressEvent(event);
}

void ColorWell::openPalette() {
    auto* popup = new QFrame(this, Qt::Popup);
    popup->setAttribute(Qt::WA_DeleteOnClose);
    popup->setFrameShape(QFrame::StyledPanel);
    auto* grid = new QGridLayout(popup);
    grid->setContentsMargins(10, 10, 10, 10);
    grid->setSpacing(2);
    auto* opacity = new QSlider(Qt::Horizontal, popup);
    QWidget* current = nullptr;
    for (std::size_t index = 0; index < paletteColors.size(); ++index) {
        const Color color = Color::rgb(paletteColors[index]);
        auto* swatch = new Swatch(popup, color);
        grid->addWidget(swatch, static_cast<int>(index) / columns, static_cast<int>(index) % columns);
        if (opaque(color_, 255) == color) current = swatch;
        connect(swatch, &QAbstractButton::clicked, popup, [this, popup, opacity, color] {
            // Whoever picks a colour where there was none wants to see it.
            const int percent = opacity->value() > 0 ? opacity->value() : 100;
            choose(color.withAlpha(percent / 100.0));
            popup->close();
        });
    }
    constexpr int below = static_cast<int>(paletteColors.size()) / columns;
    auto* label = new QLabel(tr("Opacity"), popup);
    label->setBuddy(opacity);
    opacity->setAccessibleName(tr("Opacity"));
    opacity->setRange(0, 100);
    opacity->setValue(static_cast<int>(color_.alpha / 2.55 + 0.5));
    connect(opacity, &QSlider::valueChanged, popup,
            [this](int percent) { choose(opaque(color_, 255).withAlpha(percent / 100.0)); });
    auto* more = new QPushButton(tr("More Colors..."), popup);
    more->setAutoDefault(false);
    connect(more, &QPushButton::clicked, popup, [this, popup] {
        popup->close();
        openDialog();
    });
    grid->setRowMinimumHeight(below, 8);
    grid->addWidget(label, below + 1, 0, 1, 2);
    grid->addWidget(opacity, below + 1, 2, 1, columns - 2);
    grid->addWidget(more, below + 2, 0, 1, columns);
    popup->adjustSize();
    popup->move(mapToGlobal(QPoint(0, height() + 2)));
    popup->show();
    (current ? current : grid->itemAtPosition(0, 0)->widget())->setFocus(Qt::PopupFocusReason);
}

void ColorWell::openDialog() {
    auto* dialog = new QColorDialog(toQt(color_), window());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setOptions(QColorDialog::ShowAlphaChannel);
    const auto take = [this](const QColor& chosen) {
        choose({static_cast<std::uint8_t>(chosen.red()), static_cast<std::uint8_t>(chosen.green()),
                static_cast<std::uint8_t>(chosen.blue()), static_cast<std::uint8_t>(chosen.alpha())});
    };
    connect(dialog, &QColorDialog::currentColorChanged, this, take);
    connect(dialog, &QDialog::rejected, this, [this, before = color_] { choose(before); });
    dialog->open();
}

}  // namespace zor

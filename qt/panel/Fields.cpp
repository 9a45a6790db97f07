#include "qt/panel/Fields.h"

#include <QLocale>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <limits>

namespace zor {

namespace {

/// As many digits as tell neighbouring settings apart; a person reads them.
constexpr int digitsShown = 8;

}  // namespace

void LineField::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    // A menu of the field's own takes the keyboard only for a while.
    if (event->reason() != Qt::PopupFocusReason && left_) left_();
}

NumberField::NumberField(QWidget* parent)
    : QAbstractSpinBox(parent),
      minimum_(-std::numeric_limits<double>::infinity()),
      maximum_(std::numeric_limits<double>::infinity()) {
    setFocusPolicy(Qt::StrongFocus);
    connect(lineEdit(), &QLineEdit::textEdited, this, [this] {
        if (observer_) observer_(number());
    });
}

void NumberField::setRange(double minimum, double maximum) {
    minimum_ = minimum;
    maximum_ = maximum;
    step_ = maximum - minimum <= 1 ? 0.05 : maximum - minimum <= 20 ? 0.25 : 1;
}

void NumberField::setUnit(const QString& unit) {
    unit_ = unit.isEmpty() ? QString() : QChar(QChar::Nbsp) + unit;
}

void NumberField::setNumber(double number) {
    lineEdit()->setText(QString::number(number, 'g', digitsShown) + unit_);
    lineEdit()->setCursorPosition(0);
}

std::optional<double> NumberField::number() const {
    QString text = lineEdit()->text();
    if (!unit_.isEmpty() && text.endsWith(unit_.mid(1))) text.chop(unit_.size() - 1);
    text = text.trimmed().replace(u',', u'.').replace(QChar(0x2212), u'-');
    bool isNumber = false;
    const double number = QLocale::c().toDouble(text, &isNumber);
    return isNumber && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

void NumberField::stepBy(int steps) {
    const auto before = number();
    if (!before) return;
    const double after = std::clamp(*before + steps * step_, minimum_, maximum_);
    setNumber(after);
    lineEdit()->selectAll();
    if (observer_) observer_(after);
}

QSize NumberField::sizeHint() const {
    const int width = fontMetrics().horizontalAdvance(QStringLiteral("-0000.00") + unit_) + 34;
    return {width, QAbstractSpinBox::sizeHint().height()};
}

void NumberField::focusOutEvent(QFocusEvent* event) {
    QAbstractSpinBox::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason && left_) left_();
}

void NumberField::wheelEvent(QWheelEvent* event) {
    // The wheel that scrolls the panel must not change what happens to pass below the pointer.
    if (hasFocus()) return QAbstractSpinBox::wheelEvent(event);
    event->ignore();
}

}  // namespace zor

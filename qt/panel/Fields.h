#pragma once
// The fields that the editors are put together from.

#include <QAbstractSpinBox>
#include <QLineEdit>
#include <functional>
#include <optional>

namespace zor {

/// A line of text that tells when the keyboard leaves it.
class LineField final : public QLineEdit {
public:
    using QLineEdit::QLineEdit;
    void setLeftObserver(std::function<void()> observer) { left_ = std::move(observer); }

protected:
    void focusOutEvent(QFocusEvent* event) override;

private:
    std::function<void()> left_;
};

/// A number with its unit, which the arrow keys and the wheel step. It holds whatever is typed: the editor says what is
/// wrong with it.
class NumberField final : public QAbstractSpinBox {
public:
    explicit NumberField(QWidget* parent = nullptr);
    /// Told the number that the person has typed or stepped to, or none where the text is no number.
    void setObserver(std::function<void(std::optional<double>)> observer) { observer_ = std::move(observer); }
    void setLeftObserver(std::function<void()> observer) { left_ = std::move(observer); }
    /// Stepping ends at the range; typing does not.
    void setRange(double minimum, double maximum);
    void setUnit(const QString& unit);
    void setNumber(double number);
    std::optional<double> number() const;

    void stepBy(int steps) override;
    QValidator::State validate(QString&, int&) const override { return QValidator::Acceptable; }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    StepEnabled stepEnabled() const override { return StepUpEnabled | StepDownEnabled; }
    void focusOutEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    std::function<void(std::optional<double>)> observer_;
    std::function<void()> left_;
    double minimum_;
    double maximum_;
    double step_ = 1;
    QString unit_;
};

}  // namespace zor

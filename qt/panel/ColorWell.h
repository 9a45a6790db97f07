#pragma once

#include <QAbstractButton>
#include <functional>

#include "host/foundation/Color.h"

namespace zor {

/// A swatch that opens a palette with an opacity and the way to every other colour.
class ColorWell final : public QAbstractButton {
public:
    explicit ColorWell(QWidget* parent = nullptr);
    void setObserver(std::function<void(Color)> observer) { observer_ = std::move(observer); }
    Color color() const { return color_; }
    void setColor(Color color);
    QSize sizeHint() const override { return {40, 24}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void choose(Color color);
    void openPalette();
    void openDialog();

    std::function<void(Color)> observer_;
    Color color_;
};

}  // namespace zor

#pragma once
// Fills long lines and jagged areas many times as fast as a general painter does.

#include <QColor>
#include <QPointF>
#include <QRect>
#include <functional>
#include <span>
#include <vector>

class QPainter;

namespace zor {

/// How much the areas added so far cover of each pixel that can show. The winding number decides what lies inside;
/// where areas overlap within one pixel their shares add up, but a pixel is never covered more than whole. Main thread
/// only.
class PixelCoverage {
public:
    /// Those pixels of the painter's image that its clip lets through and that lie in `bounds`, which is in pixels of
    /// the image, too.
    PixelCoverage(const QPainter& painter, const QRectF& bounds);

    /// Whether the painter paints on an image, without which there are no pixels.
    static bool isPossible(const QPainter& painter);

    /// The area within the corners, in pixels of the image.
    void addArea(std::span<const QPointF> corners);

    /// The premultiplied color of a row of pixels.
    using RowColor = std::function<QRgb(int)>;
    /// Paints what has been covered, at once: a translucent color does not add up where areas overlap.
    void paint(QPainter& painter, const RowColor& colorOfRow) const;

private:
    /// The columns of a row at which coverage changes; `first` above `last` where it nowhere does.
    struct Changes {
        int first;
        int last;
    };

    void addEdge(QPointF from, QPointF to);
    void addWithin(QPointF top, QPointF bottom, double sign);
    void addToRow(int row, double height, double left, double right);
    bool paintRow(int row, QRgb color, QRgb* out) const;

    QRect pixels_;
    int stride_;
    /// Of each pixel, by how much it is covered more than its neighbour to the left.
    std::vector<float> steps_;
    std::vector<Changes> changes_;
};

}  // namespace zor

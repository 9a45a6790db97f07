#include "qt/PixelCoverage.h"

#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace zor {

namespace {

/// So many rows are painted at once, few enough to stay in the processor's cache.
constexpr int rowsPerBand = 16;
/// Less does not show; sums of shares are off by less than this.
constexpr float leastShare = 1.0F / 512;

/// The color with a share of its opacity, in 256ths.
QRgb faded(QRgb color, std::uint32_t share) {
    const std::uint32_t redAndBlue = ((color & 0x00ff00ff) * share + 0x00800080) >> 8 & 0x00ff00ff;
    const std::uint32_t alphaAndGreen = ((color >> 8 & 0x00ff00ff) * share + 0x00800080) & 0xff00ff00;
    return redAndBlue | alphaAndGreen;
}

QRgb covered(QRgb color, float winding) {
    const float share = std::min(std::abs(winding), 1.0F);
    return share < leastShare ? 0 : faded(color, static_cast<std::uint32_t>(share * 256 + 0.5F));
}

const QImage* imageOf(const QPainter& painter) {
    const QPaintEngine* engine = painter.paintEngine();
    if (engine->type() != QPaintEngine::Raster || engine->paintDevice()->devType() != QInternal::Image) return nullptr;
    return static_cast<const QImage*>(engine->paintDevice());
}

QRect shownPixels(const QPainter& painter) {
    const QImage* image = imageOf(painter);
    if (!image) return {};
    if (!painter.hasClipping()) return image->rect();
    return painter.deviceTransform().mapRect(painter.clipBoundingRect()).toAlignedRect() & image->rect();
}

}  // namespace

bool PixelCoverage::isPossible(const QPainter& painter) {
    return imageOf(painter);
}

PixelCoverage::PixelCoverage(const QPainter& painter, const QRectF& bounds)
    : pixels_((bounds & QRectF(shownPixels(painter))).toAlignedRect()),
      // What an edge in the last column leaves to its right has room, too.
      stride_(pixels_.width() + 2),
      steps_(static_cast<std::size_t>(stride_) * static_cast<std::size_t>(pixels_.height())),
      changes_(static_cast<std::size_t>(pixels_.height()), {stride_, -1}) {}

void PixelCoverage::addArea(std::span<const QPointF> corners) {
    if (corners.empty() || pixels_.isEmpty()) return;
    const QPointF origin = pixels_.topLeft();
    QPointF from = corners.back() - origin;
    for (const QPointF corner : corners) {
        const QPointF to = corner - origin;
        addEdge(from, to);
        from = to;
    }
}

void PixelCoverage::addEdge(QPointF from, QPointF to) {
    const bool isDown = from.y() < to.y();
    const QPointF top = isDown ? from : to, bottom = isDown ? to : from;
    const double width = pixels_.width(), height = pixels_.height();
    const double first = std::max(top.y(), 0.0), last = std::min(bottom.y(), height);
    if (!(first < last) || std::min(top.x(), bottom.x()) >= width) return;
    const double slope = (bottom.x() - top.x()) / (bottom.y() - top.y());
    // What is left of the pixels covers as much of them as if it were on their edge.
    const auto at = [&](double y) { return QPointF(std::clamp(top.x() + slope * (y - top.y()), 0.0, width), y); };
    const double sign = isDown ? 1 : -1;
    if (std::min(top.x(), bottom.x()) >= 0 && std::max(top.x(), bottom.x()) <= width) {
        return addWithin(at(first), at(last), sign);
    }
    const auto crossing = [&](double x) {
        const double y = top.y() + (x - top.x()) / slope;
        return std::isfinite(y) ? std::clamp(y, first, last) : first;
    };
    std::array<double, 4> cuts{first, crossing(0), crossing(width), last};
    std::ranges::sort(cuts);
    for (std::size_t part = 1; part < cuts.size(); ++part) addWithin(at(cuts[part - 1]), at(cuts[part]), sign);
}

void PixelCoverage::addWithin(QPointF top, QPointF bottom, double sign) {
    const double height = bottom.y() - top.y();
    if (!(height > 0)) return;
    const double slope = (bottom.x() - top.x()) / height;
    const int lastRow = std::min(static_cast<int>(bottom.y()), pixels_.height() - 1);
    double y = top.y(), x = top.x();
    for (int row = static_cast<int>(y); row <= lastRow; ++row) {
        const double nextY = std::min(row + 1.0, bottom.y());
        const double nextX = row == lastRow ? bottom.x() : x + slope * (nextY - y);
        addToRow(row, sign * (nextY - y), std::min(x, nextX), std::max(x, nextX));
        y = nextY;
        x = nextX;
    }
}

/// Pixels right of the edge are covered by its height, those that it crosses by the area to its right.
void PixelCoverage::addToRow(int row, double height, double left, double right) {
    const int first = static_cast<int>(left), last = std::max(first, static_cast<int>(std::ceil(right)) - 1);
    auto& changes = changes_[static_cast<std::size_t>(row)];
    changes.first = std::min(changes.first, first);
    changes.last = std::max(changes.last, last + 1);
    float* steps = steps_.data() + static_cast<std::ptrdiff_t>(row) * stride_ + first;
    if (first == last) {
        const double behind = (left + right) / 2 - first;
        steps[0] += static_cast<float>(height * (1 - behind));
        steps[1] += static_cast<float>(height * behind);
        return;
    }
    const double perPixel = height / (right - left);
    double passed = 0, shareBefore = 0;
    for (int column = first; column <= last; ++column) {
        const double begin = std::max(left, static_cast<double>(column)), end = std::min(right, column + 1.0);
        const double within = perPixel * (end - begin);
        const double share = passed + within * (column + 1 - (begin + end) / 2);
        *steps++ += static_cast<float>(share - shareBefore);
        shareBefore = share;
        passed += within;
    }
    *steps += static_cast<float>(height - shareBefore);
}

void PixelCoverage::paint(QPainter& painter, const RowColor& colorOfRow) const {
    if (pixels_.isEmpty()) return;
    painter.save();
    painter.setWorldTransform(painter.deviceTransform().inverted() * painter.worldTransform());
    QImage band(pixels_.width(), std::min(pixels_.height(), rowsPerBand), QImage::Format_ARGB32_Premultiplied);
    for (int top = 0; top < pixels_.height(); top += rowsPerBand) {
        const int count = std::min(rowsPerBand, pixels_.height() - top);
        bool shows = false;
        for (int row = 0; row < count; ++row) {
            const QRgb color = colorOfRow(pixels_.y() + top + row);
            shows |= paintRow(top + row, color, reinterpret_cast<QRgb*>(band.scanLine(row)));
        }
        if (shows) painter.drawImage(pixels_.x(), pixels_.y() + top, band, 0, 0, pixels_.width(), count);
    }
    painter.restore();
}

/// Whether anything shows in the row, whose pixels are all set.
bool PixelCoverage::paintRow(int row, QRgb color, QRgb* out) const {
    const auto [first, last] = changes_[static_cast<std::size_t>(row)];
    const int width = pixels_.width(), end = std::min(last + 1, width);
    if (first >= end) {
        std::fill_n(out, width, 0);
        return false;
    }
    const float* steps = steps_.data() + static_cast<std::ptrdiff_t>(row) * stride_;
    std::fill_n(out, first, 0);
    float winding = 0;
    QRgb pixel = 0;
    for (int column = first; column < end; ++column) {
        // Long stretches do not change.
        if (steps[column] != 0) {
            winding += steps[column];
            pixel = covered(color, winding);
        }
        out[column] = pixel;
    }
    std::fill(out + end, out + width, pixel);
    return true;
}

}  // namespace zor

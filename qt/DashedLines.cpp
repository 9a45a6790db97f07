#include "qt/DashedLines.h"

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>
#include <span>
#include <unordered_map>

#include "qt/QtConversions.h"

namespace zor {

namespace {

/// Of a side of what is painted; no screen is as large.
constexpr int mostPixels = 1 << 15;

/// A line parallel to an axis: from where to where along that axis, and where across it.
struct Line {
    bool isLevel;
    double from, to, across;

    bool isBeside(const Line& other) const {
        return isLevel == other.isLevel && from == other.from && to == other.to;
    }
};

/// Separate lines, each to the right or downwards, in pixels; nothing for another path.
std::optional<std::vector<Line>> parallelLines(const Path& path, const QTransform& device) {
    const auto& elements = path.elements();
    if (elements.size() % 2 == 1) return {};
    std::vector<Line> lines;
    lines.reserve(elements.size() / 2);
    for (std::size_t index = 0; index < elements.size(); index += 2) {
        const auto &first = elements[index], &second = elements[index + 1];
        if (first.verb != Path::Verb::move || second.verb != Path::Verb::line) return {};
        const QPointF from = device.map(toQt(first.points[0])), to = device.map(toQt(second.points[0]));
        const bool isLevel = first.points[0].y == second.points[0].y;
        if (!isLevel && first.points[0].x != second.points[0].x) return {};
        const Line line = isLevel ? Line{true, from.x(), to.x(), from.y()} : Line{false, from.y(), to.y(), from.x()};
        if (!(line.from < line.to)) return {};
        lines.push_back(line);
    }
    return lines;
}

/// How much is covered of each pixel of a range that shows.
class Coverage {
public:
    Coverage(int first, int count) : first_(first), shares_(static_cast<std::size_t>(count), 0.0) {}

    void add(double from, double to) {
        const double end = std::min(to, first_ + static_cast<double>(shares_.size()));
        for (double at = std::max(from, first_); at < end;) {
            const double next = std::min(std::floor(at) + 1, end);
            double& share = shares_[static_cast<std::size_t>(at - first_)];
            share = std::min(1.0, share + next - at);
            at = next;
        }
    }

    /// The dashes of a line; `lengths` are those of dashes and gaps in turn, `phase` what is left out of them.
    void addDashes(double from, double to, std::span<const double> lengths, double phase) {
        const double period = std::accumulate(lengths.begin(), lengths.end(), 0.0);
        const double offset = phase - period * std::floor(phase / period);
        const double before = std::max(0.0, std::floor((first_ - from) / period));
        const double end = std::min(to, first_ + static_cast<double>(shares_.size()));
        double at = from - offset + before * period;
        for (std::size_t part = 0; at < end; part = (part + 1) % lengths.size()) {
            const double next = at + lengths[part];
            if (part % 2 == 0) add(std::max(at, from), std::min(next, end));
            at = next;
        }
    }

    const std::vector<double>& shares() const { return shares_; }

private:
    double first_;
    std::vector<double> shares_;
};

/// Covers each pixel by the product of its column's and its row's share.
void paintRows(QPainter& painter, QPoint corner, const Coverage& columns, const Coverage& rows, const QColor& color) {
    std::unordered_map<int, QImage> images;
    const auto imageOf = [&](int share) -> const QImage& {
        QImage& image = images[share];
        if (!image.isNull()) return image;
        image = QImage(static_cast<int>(columns.shares().size()), 1, QImage::Format_ARGB32_Premultiplied);
        auto* pixel = reinterpret_cast<QRgb*>(image.scanLine(0));
        for (const double column : columns.shares()) {
            const int alpha = static_cast<int>(std::lround(column * share));
            *pixel++ = qPremultiply(qRgba(color.red(), color.green(), color.blue(), alpha));
        }
        return image;
    };
    int y = corner.y();
    for (const double row : rows.shares()) {
        const int share = static_cast<int>(std::lround(row * 255));
        if (share > 0) painter.drawImage(QPoint(corner.x(), y), imageOf(share));
        ++y;
    }
}

}  // namespace

bool drawDashedLines(QPainter& painter, const Path& path, const Stroke& stroke) {
    const QTransform device = painter.deviceTransform();
    const double scale = device.m11();
    const bool isPlain = device.type() <= QTransform::TxScale && scale > 0 && scale == device.m22();
    // Translucent lines would show where they cross.
    if (!isPlain || !painter.hasClipping() || stroke.cap != LineCap::butt || stroke.color.alpha < 255) return false;
    const QRect clip = device.mapRect(painter.clipBoundingRect()).toAlignedRect();
    if (std::max(clip.width(), clip.height()) > mostPixels) return false;
    const auto lines = parallelLines(path, device);
    if (!lines) return false;

    std::vector<double> lengths;
    // An odd pattern is the other way round the second time.
    for (std::size_t times = 0; times < 1 + stroke.dash.size() % 2; ++times) {
        for (const double length : stroke.dash) lengths.push_back(length * scale);
    }
    const double half = stroke.width * scale / 2;
    painter.save();
    painter.setWorldTransform(device.inverted() * painter.worldTransform());
    for (auto line = lines->begin(); line != lines->end();) {
        Coverage columns(clip.x(), clip.width()), rows(clip.y(), clip.height());
        Coverage &along = line->isLevel ? columns : rows, &across = line->isLevel ? rows : columns;
        const Line first = *line;
        along.addDashes(first.from, first.to, lengths, stroke.dashPhase * scale);
        for (; line != lines->end() && line->isBeside(first); ++line) {
            across.add(line->across - half, line->across + half);
        }
        paintRows(painter, clip.topLeft(), columns, rows, toQt(stroke.color));
    }
    painter.restore();
    return true;
}

}  // namespace zor

#include "qt/LevelGradient.h"

#include <QPainter>
#include <QPolygonF>
#include <algorithm>
#include <cmath>
#include <vector>

#include "qt/PixelCoverage.h"
#include "qt/QtConversions.h"

namespace zor {

namespace {

bool isOfStraightLines(const Path& path) {
    return std::ranges::none_of(path.elements(),
                                [](const Path::Element& element) { return element.verb == Path::Verb::curve; });
}

/// The path's points on the device, one list for each subpath.
std::vector<QPolygonF> areasOf(const Path& path, const QTransform& device) {
    std::vector<QPolygonF> areas;
    for (const Path::Element& element : path.elements()) {
        if (element.verb == Path::Verb::close) continue;
        if (element.verb == Path::Verb::move || areas.empty()) areas.emplace_back();
        areas.back().append(device.map(toQt(element.points[0])));
    }
    return areas;
}

/// Sorted, at least one.
class Colors {
public:
    explicit Colors(const std::vector<GradientStop>& stops) : stops_(stops) {
        for (GradientStop& stop : stops_) stop.location = std::clamp(stop.location, 0.0, 1.0);
        std::ranges::stable_sort(stops_, {}, &GradientStop::location);
    }

    /// Premultiplied; the first and the last color go on beyond them.
    QRgb at(double location) const {
        const auto next = std::ranges::upper_bound(stops_, location, {}, &GradientStop::location);
        if (next == stops_.begin()) return premultiplied(stops_.front());
        if (next == stops_.end()) return premultiplied(stops_.back());
        const auto& before = *(next - 1);
        const double share = (location - before.location) / (next->location - before.location);
        const QRgb from = premultiplied(before), to = premultiplied(*next);
        const auto mixed = [&](int (*part)(QRgb)) {
            return static_cast<int>(std::lround(std::lerp(part(from), part(to), share)));
        };
        return qRgba(mixed(qRed), mixed(qGreen), mixed(qBlue), mixed(qAlpha));
    }

private:
    static QRgb premultiplied(const GradientStop& stop) { return qPremultiply(toQt(stop.color).rgba()); }

    std::vector<GradientStop> stops_;
};

}  // namespace

bool fillWithLevelGradient(QPainter& painter, const Path& path, const Gradient& gradient) {
    const QTransform device = painter.deviceTransform();
    const bool isLevel = gradient.kind == Gradient::Kind::linear && gradient.start.x == gradient.end.x &&
                         gradient.start.y != gradient.end.y && device.type() <= QTransform::TxScale;
    if (!isLevel || gradient.stops.empty() || !PixelCoverage::isPossible(painter) || !isOfStraightLines(path)) {
        return false;
    }
    const std::vector<QPolygonF> areas = areasOf(path, device);
    QRectF bounds;
    for (const QPolygonF& area : areas) bounds |= area.boundingRect();
    PixelCoverage coverage(painter, bounds);
    for (const QPolygonF& area : areas) coverage.addArea(area);

    const double start = device.map(toQt(gradient.start)).y(), end = device.map(toQt(gradient.end)).y();
    const Colors colors(gradient.stops);
    coverage.paint(painter, [&](int row) { return colors.at((row + 0.5 - start) / (end - start)); });
    return true;
}

}  // namespace zor

#include "host/instruments/ZORMapView.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "host/foundation/ClassBuilder.h"
#include "host/instruments/InstrumentDrawing.h"
#include "host/station/ValueFormats.h"

namespace zor {

namespace {

constexpr Color land = Color::rgb(0xeef3ee);
constexpr Color graticule = Color::rgb(0xcbd8d0);

/// The smallest of the usual steps of a map's grid that lies at least `points` apart.
double gridStep(double pointsPerDegree, double points) {
    constexpr std::array<double, 16> steps{0.001, 0.002, 0.005, 0.01, 0.02, 0.05, 0.1, 0.25,
                                           0.5,   1,     2,     5,    10,   15,   30,  45};
    const auto fitting = std::ranges::find_if(steps, [&](double step) { return step * pointsPerDegree >= points; });
    return fitting == steps.end() ? 90 : *fitting;
}

void addGridLines(Path& path, const Rect& bounds, double degrees, double pointsPerDegree, bool vertical) {
    const double step = gridStep(pointsPerDegree, 56);
    const double spacing = step * pointsPerDegree;
    const double center = vertical ? bounds.center().x : bounds.center().y;
    const double length = vertical ? bounds.width : bounds.height;
    // Degrees grow to the right and upwards.
    const double beyond = (degrees / step - std::floor(degrees / step)) * spacing;
    const double reference = vertical ? center - beyond : center + beyond;
    for (double at = reference - std::floor(reference / spacing) * spacing; at < length; at += spacing) {
        if (vertical) {
            path.addSegment({at, 0}, {at, bounds.height});
        } else {
            path.addSegment({0, at}, {bounds.width, at});
        }
    }
}

/// A drop whose tip stands on the place.
Path markerPath(Point tip, double height) {
    const double radius = height * 0.34;
    const Point head{tip.x, tip.y - height + radius};
    Path path;
    path.arc(head, radius, 150, 390);
    path.lineTo(tip).close();
    return path;
}

}  // namespace

const ClassRecord& ZORMapView::staticClass() {
    using Self = ZORMapView;
    static const ClassRecord& record = ClassBuilder<Self>("ZORMapView", &ZORInstrumentView::staticClass())
                                           .creatable()
                                           .property("latitude", &Self::latitude, &Self::setLatitude)
                                           .property("longitude", &Self::longitude, &Self::setLongitude)
                                           .property("zoom", &Self::zoom, &Self::setZoom)
                                           .registered();
    return record;
}

const SettingList& ZORMapView::settings() const {
    static const SettingList list = SettingsBuilder(staticClass(), ZORInstrumentView::settings())
                                        .number("latitude", "Latitude", -90, 90, "°")
                                        .number("longitude", "Longitude", -180, 180, "°")
                                        .number("zoom", "Zoom", 0, 20)
                                        .build();
    return list;
}

void ZORMapView::drawGraticule(DrawingContext& context) const {
    const double pointsPerDegree = 256 * std::exp2(zoom_) / 360;
    // A degree of latitude grows towards the poles as Mercator's map draws it; the poles themselves have no place
    // there.
    const double stretch = 1 / std::max(0.05, std::cos(latitude_ * std::numbers::pi / 180));
    Path lines;
    addGridLines(lines, bounds(), longitude_, pointsPerDegree, true);
    addGridLines(lines, bounds(), latitude_, pointsPerDegree * stretch, false);
    context.strokePath(lines, {.color = graticule, .width = 1});
}

void ZORMapView::drawRect(DrawingContext& context, const Rect&) {
    if (!isVisibleArea(bounds())) return;
    const double side = std::min(bounds().width, bounds().height);
    const double radius = std::min(8.0, side * 0.1);
    context.save();
    context.clipToPath(Path::roundedRect(bounds(), radius));
    context.fillRect(bounds(), land);
    drawGraticule(context);
    context.restore();
    drawCard(context, bounds(), radius, Color::clear(), palette::hairline);

    const double height = std::min(36.0, side * 0.4);
    const Point place = bounds().center();
    context.fillPath(markerPath(place, height), palette::accent);
    context.fillPath(Path::circle({place.x, place.y - height * 0.66}, height * 0.13), palette::paper);

    // A map too small for a legible label has none.
    const double margin = 8;
    const Rect label{margin, bounds().height - 22 - margin, bounds().width - 2 * margin, 22};
    if (label.width < 80 || label.y < place.y + margin) return;
    const std::string text = textOfCoordinates(latitude_, longitude_);
    drawCard(context, label, 6, palette::paper.withAlpha(0.85), Color::clear());
    drawFittedText(context, text, insetRect(label, 6, 2), {.size = 12}, palette::ink);
}

std::string textOfCoordinates(double latitude, double longitude) {
    const auto degrees = [](double value) {
        return formatValue(std::abs(value), baseUnit(Quantity::none), plainValueFormat, 3) + "° ";
    };
    return degrees(latitude) + (latitude < 0 ? "S, " : "N, ") + degrees(longitude) + (longitude < 0 ? "W" : "E");
}

}  // namespace zor

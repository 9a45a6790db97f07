#pragma once

#include <string>

#include "host/instruments/InstrumentSettings.h"
#include "host/instruments/ZORInstrumentView.h"

namespace zor {

/// A place on the earth: its degrees of latitude and longitude as a grid, a marker and its coordinates.
class ZORMapView : public ZORInstrumentView {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }
    using ZORInstrumentView::ZORInstrumentView;

    std::string kind() const override { return "mapView"; }
    const SettingList& settings() const override;

    /// Degrees, north positive.
    double latitude() const { return latitude_; }
    void setLatitude(double degrees) { store(latitude_, bounded(degrees, -90, 90)); }
    /// Degrees, east positive.
    double longitude() const { return longitude_; }
    void setLongitude(double degrees) { store(longitude_, bounded(degrees, -180, 180)); }
    /// The earth's girth is 256 × 2^zoom points, as web maps count it; 0 to 20.
    double zoom() const { return zoom_; }
    void setZoom(double zoom) { store(zoom_, bounded(zoom, 0, 20)); }

    void drawRect(DrawingContext& context, const Rect& dirty) override;

private:
    void drawGraticule(DrawingContext& context) const;

    double latitude_ = 0;
    double longitude_ = 0;
    double zoom_ = 8;
};

/// "47.377° N, 8.540° E".
std::string textOfCoordinates(double latitude, double longitude);

}  // namespace zor

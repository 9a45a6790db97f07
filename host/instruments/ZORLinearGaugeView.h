#pragma once

#include "host/instruments/ScaledInstrumentView.h"

namespace zor {

/// An upright gauge in the manner of a thermometer: the unit above, the value below, a scale beside the column.
class ZORLinearGaugeView : public ScaledInstrumentView {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }
    using ScaledInstrumentView::ScaledInstrumentView;

    std::string kind() const override { return "linearGauge"; }
    /// The value without its unit, "--" without one.
    std::optional<std::string> text() const override;
    void drawRect(DrawingContext& context, const Rect& dirty) override;

private:
    void drawColumn(DrawingContext& context, const Rect& column) const;
    void drawScale(DrawingContext& context, const std::vector<ScaleMark>& scale, const Rect& area, double left,
                   double fontSize) const;
};

}  // namespace zor

#pragma once

#include "host/instruments/ScaledInstrumentView.h"

namespace zor {

/// A horizontal bar, filled up to the value, over a scale.
class ZORLevelIndicatorView : public ScaledInstrumentView {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }
    using ScaledInstrumentView::ScaledInstrumentView;

    std::string kind() const override { return "levelIndicator"; }
    void drawRect(DrawingContext& context, const Rect& dirty) override;

private:
    void drawBar(DrawingContext& context, const Rect& bar) const;
    void drawScale(DrawingContext& context, const Rect& bar, double fontSize) const;
};

}  // namespace zor

#pragma once

#include "host/foundation/Color.h"
#include "host/instruments/InstrumentSettings.h"
#include "host/instruments/ZORInstrumentView.h"

namespace zor {

/// A coloured area with a border, on which other instruments are grouped.
class ZORBoxView : public ZORInstrumentView {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }
    using ZORInstrumentView::ZORInstrumentView;

    std::string kind() const override { return "box"; }
    const SettingList& settings() const override;

    static constexpr double largestBorderWidth = 100;
    static constexpr double largestCornerRadius = 1000;
    Color fillColor() const { return fillColor_; }
    void setFillColor(Color color) { store(fillColor_, color); }
    Color borderColor() const { return borderColor_; }
    void setBorderColor(Color color) { store(borderColor_, color); }
    /// Points, drawn inside the box.
    double borderWidth() const { return borderWidth_; }
    void setBorderWidth(double width) { store(borderWidth_, bounded(width, 0, largestBorderWidth)); }
    /// Points; more than the box can hold makes round ends.
    double cornerRadius() const { return cornerRadius_; }
    void setCornerRadius(double radius) { store(cornerRadius_, bounded(radius, 0, largestCornerRadius)); }

    void drawRect(DrawingContext& context, const Rect& dirty) override;

private:
    Color fillColor_ = Color::rgb(0xf5f5f7);
    Color borderColor_ = Color::rgb(0xd2d2d7);
    double borderWidth_ = 1;
    double cornerRadius_ = 12;
};

}  // namespace zor

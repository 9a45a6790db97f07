#pragma once

#include "host/instruments/Thresholds.h"
#include "host/instruments/ZORInstrumentView.h"

namespace zor {

/// A round light: dark without a value, and with one in the colour that the value has reached.
class ZORLEDView : public LinkedInstrumentView {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }
    using LinkedInstrumentView::LinkedInstrumentView;

    std::string kind() const override { return "led"; }
    const SettingList& settings() const override;

    /// Without a value.
    Color offColor() const { return offColor_; }
    void setOffColor(Color color) { store(offColor_, color); }
    /// With a value that has reached no threshold.
    Color onColor() const { return onColor_; }
    void setOnColor(Color color) { store(onColor_, color); }
    /// In the unit shown.
    Thresholds thresholds() const { return thresholds_; }
    void setThresholds(Thresholds thresholds) { store(thresholds_, sortedThresholds(std::move(thresholds))); }
    /// The colour it has now.
    Color lightColor() const;

    void drawRect(DrawingContext& context, const Rect& dirty) override;

private:
    Color offColor_ = Color::rgb(0xc7c7cc);
    Color onColor_ = Color::rgb(0x30b155);
    Thresholds thresholds_;
};

}  // namespace zor

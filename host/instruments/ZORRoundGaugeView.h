#pragma once

#include "host/instruments/GaugeDrawing.h"
#include "host/instruments/ScaledInstrumentView.h"

namespace zor {

/// A dial with a needle; for a direction, a compass whose needle points to where the wind comes from. The circle is
/// centred in a frame that is no square.
class ZORRoundGaugeView : public ScaledInstrumentView {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }
    ZORRoundGaugeView() { setFaceColor(Color::white()); }

    std::string kind() const override { return "roundGauge"; }
    const SettingList& settings() const override;
    /// The value without its unit, or the compass point; "--" without a value.
    std::optional<std::string> text() const override;
    double minWidth() const override { return 60; }
    double minHeight() const override { return 60; }

    /// Empty for the property's own name.
    std::string caption() const { return caption_; }
    void setCaption(std::string caption) { store(caption_, std::move(caption)); }
    /// Family and style of the value; its size follows the gauge's.
    Font valueFont() const { return valueFont_; }
    void setValueFont(Font font);
    Color needleColor() const { return needleColor_; }
    void setNeedleColor(Color color) { store(needleColor_, color); }
    /// Without its rim it is flat and blends with a card of its colour.
    bool drawsRim() const { return drawsRim_; }
    void setDrawsRim(bool draws) { store(drawsRim_, draws); }
    /// Whether it is a compass now: for a direction, also one that is named but not there.
    bool isCompass() const;

    void drawRect(DrawingContext& context, const Rect& dirty) override;

private:
    std::string captionShown() const;
    std::vector<DialContent::Mark> dialMarks() const;
    std::vector<DialContent::Band> dialBands() const;

    std::string caption_;
    Font valueFont_{.family = "Helvetica Neue", .size = 24, .bold = true};
    Color needleColor_ = Color::rgb(0xe5383b);
    bool drawsRim_ = true;
};

}  // namespace zor

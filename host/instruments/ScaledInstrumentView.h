#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/instruments/Inks.h"
#include "host/instruments/InstrumentSettings.h"
#include "host/instruments/Thresholds.h"
#include "host/instruments/ZORInstrumentView.h"

namespace zor {

/// A labelled mark of a scale.
struct ScaleMark {
    /// In the unit shown.
    double value = 0;
    /// 0 at the scale's minimum, 1 at its maximum.
    double fraction = 0;
    std::string label;
    bool operator==(const ScaleMark&) const = default;
};

/// A value on a straight scale between two ends. Unless a person sets the ends, they suit the property's quantity.
class ScaledInstrumentView : public LinkedInstrumentView {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }
    using LinkedInstrumentView::LinkedInstrumentView;

    const SettingList& settings() const override;

    /// The ends in the unit shown. Setting one keeps the other as it is shown and ends the automatic range. A maximum
    /// that is not above the minimum makes a scale without marks, at whose start every value stands.
    double minimum() const { return range().least; }
    void setMinimum(double minimum);
    double maximum() const { return range().greatest; }
    void setMaximum(double maximum);
    bool automaticRange() const { return automaticRange_; }
    void setAutomaticRange(bool automatic) { store(automaticRange_, automatic); }
    /// With a value that has reached no threshold.
    Color barColor() const { return barColor_; }
    void setBarColor(Color color) { store(barColor_, color); }
    /// What it stands on; its marks and texts are light on a dark one.
    Color faceColor() const { return faceColor_; }
    void setFaceColor(Color color) { store(faceColor_, color); }
    /// In the unit shown.
    Thresholds thresholds() const { return thresholds_; }
    void setThresholds(Thresholds thresholds) { store(thresholds_, sortedThresholds(std::move(thresholds))); }

protected:
    /// From 0 at the minimum to 1 at the maximum; what lies beyond stays there.
    double fractionOf(double value) const;
    /// Where the value stands, from 0 to 1; nothing without one.
    std::optional<double> currentFraction() const;
    /// The colour of the value; the bar's own without one.
    Color currentColor() const;
    /// The marks on a scale `length` points long, ascending: as many as have room, where a mark takes `extent` points
    /// of it; at most eleven, none where not even two have room.
    std::vector<ScaleMark> marks(double length, const std::function<double(const ScaleMark&)>& extent) const;
    /// Colours that can be read on the face.
    Inks inks() const { return inksOn(faceColor_); }
    void drawFace(DrawingContext& context) const;
    /// Of the property, or of a plain number.
    const Unit& unitShown() const;

private:
    struct Range {
        double least = 0;
        double greatest = 100;
    };
    Range range() const { return automaticRange_ ? usualRange() : range_; }
    Range usualRange() const;
    std::vector<ScaleMark> marksInSteps(int mostSteps) const;

    Range range_;
    bool automaticRange_ = true;
    Color barColor_ = Color::rgb(0x0a6ed1);
    Color faceColor_ = Color::clear();
    Thresholds thresholds_;
};

}  // namespace zor

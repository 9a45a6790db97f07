#pragma once

#include "host/foundation/Color.h"
#include "host/instruments/PlotTime.h"
#include "host/instruments/ZORInstrumentView.h"
#include "host/station/Agent.h"

namespace zor {

/// The history of a property over a span of time: axes, units, grid, gaps where data is missing.
class ZORPlotView : public LinkedInstrumentView {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }
    using LinkedInstrumentView::LinkedInstrumentView;
    ~ZORPlotView() override;

    std::string kind() const override { return "plotView"; }
    const SettingList& settings() const override;
    double minWidth() const override { return 60; }
    double minHeight() const override { return 40; }

    /// Where the history comes from; held weakly and not archived. Without one of its own the plot takes that of the
    /// plug-in above it.
    std::shared_ptr<Agent> agent() const { return agent_.lock(); }
    void setAgent(const std::shared_ptr<Agent>& agent);
    /// Any code is kept; one that is no PlotPeriod shows today.
    std::uint32_t period() const { return period_; }
    void setPeriod(std::uint32_t code) { store(period_, code); }
    Color lineColor() const { return lineColor_; }
    void setLineColor(Color color) { store(lineColor_, color); }
    /// Points, from 0.25 to 20.
    double lineWidth() const { return lineWidth_; }
    void setLineWidth(double width);
    bool drawsGrid() const { return drawsGrid_; }
    void setDrawsGrid(bool draws) { store(drawsGrid_, draws); }
    /// Whether the area below the line is tinted.
    bool fillsArea() const { return fillsArea_; }
    void setFillsArea(bool fills) { store(fillsArea_, fills); }
    /// Title, unit and current value above the curve.
    bool drawsHeader() const { return drawsHeader_; }
    void setDrawsHeader(bool draws) { store(drawsHeader_, draws); }
    bool drawsBorder() const { return drawsBorder_; }
    void setDrawsBorder(bool draws) { store(drawsBorder_, draws); }
    /// Points, up to 100; 0 for what suits the plot's size.
    double fontSize() const { return fontSize_; }
    void setFontSize(double size);
    Color backgroundColor() const { return backgroundColor_; }
    void setBackgroundColor(Color color) { store(backgroundColor_, color); }

    void drawRect(DrawingContext& context, const Rect& dirty) override;
    void viewDidMoveToWindow() override;
    bool initWithCoder(Decoder& decoder) override;

protected:
    void copyStateTo(ZORInstrumentView& copy) const override;
    /// Its own agent, else that above it.
    std::shared_ptr<Agent> station() const override;

private:
    std::shared_ptr<History> history() const;
    /// In the unit shown.
    std::vector<Sample> samplesWithin(const TimeSpan& span) const;
    /// While it shows in a window, it follows the passing of time and what its history fetches.
    void observe(bool observing);

    std::weak_ptr<Agent> agent_;
    std::uint32_t period_ = static_cast<std::uint32_t>(PlotPeriod::today);
    Color lineColor_ = Color::rgb(0x0a6ed1);
    Color backgroundColor_ = Color::white();
    double lineWidth_ = 1.6;
    bool drawsGrid_ = true;
    bool fillsArea_ = true;
    bool drawsHeader_ = true;
    bool drawsBorder_ = true;
    double fontSize_ = 0;
    bool observing_ = false;
};

}  // namespace zor

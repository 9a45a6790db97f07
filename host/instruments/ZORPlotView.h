#pragma once

#include "host/foundation/Color.h"
#include "host/instruments/ZORInstrumentView.h"
#include "host/station/Agent.h"

namespace zor {

/// Four-character codes of the spans of history that a plot shows; the first character is the most significant byte.
enum class PlotPeriod : std::uint32_t {
    /// "pdtd": from local midnight to the next.
    today = 0x70647464,
    /// "pdyd": yesterday and today.
    twoDays = 0x70647964,
    /// "pd24": the last 24 hours.
    last24Hours = 0x70643234,
    /// "pd7d": the last 7 days.
    last7Days = 0x70643764,
    /// "pd30": the last 30 days.
    last30Days = 0x70643330,
    /// "pd1y": the last 365 days.
    lastYear = 0x70643179,
};

/// The history of a property over a span of time: axes, units, grid, gaps where data is missing.
class ZORPlotView : public LinkedInstrumentView {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }
    using LinkedInstrumentView::LinkedInstrumentView;

    std::string kind() const override { return "plotView"; }
    const SettingList& settings() const override;

    /// Where the history comes from; held weakly. Without one of its own it takes that of the plug-in above it.
    std::shared_ptr<Agent> agent() const { return agent_.lock(); }
    void setAgent(const std::shared_ptr<Agent>& agent);
    /// Any code is kept; one that is no PlotPeriod shows today.
    std::uint32_t period() const { return period_; }
    void setPeriod(std::uint32_t code);
    Color lineColor() const { return lineColor_; }
    void setLineColor(Color color);
    double lineWidth() const { return lineWidth_; }
    void setLineWidth(double width);
    bool drawsGrid() const { return drawsGrid_; }
    void setDrawsGrid(bool draws);

    void drawRect(DrawingContext& context, const Rect& dirty) override;

protected:
    void copyStateTo(ZORInstrumentView& copy) const override;

private:
    std::weak_ptr<Agent> agent_;
    std::uint32_t period_ = static_cast<std::uint32_t>(PlotPeriod::today);
    Color lineColor_ = Color::rgb(0x0a6ed1);
    double lineWidth_ = 1.6;
    bool drawsGrid_ = true;
};

}  // namespace zor

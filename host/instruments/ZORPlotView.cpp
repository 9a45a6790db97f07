#include "host/instruments/ZORPlotView.h"

#include <utility>

#include "host/foundation/ClassBuilder.h"
#include "host/foundation/Coder.h"
#include "host/foundation/NotificationCenter.h"
#include "host/instruments/InstrumentDrawing.h"
#include "host/instruments/InstrumentSettings.h"
#include "host/instruments/PlotDrawing.h"
#include "host/station/ValueFormats.h"

namespace zor {

namespace {

constexpr double thinnestLine = 0.25;
constexpr double thickestLine = 20;
constexpr double largestFontSizeOfPlots = 100;

Value codeOf(PlotPeriod period) {
    return static_cast<std::int64_t>(period);
}

}  // namespace

const ClassRecord& ZORPlotView::staticClass() {
    using Self = ZORPlotView;
    static const ClassRecord& record =
        ClassBuilder<Self>("ZORPlotView", &LinkedInstrumentView::staticClass())
            .creatable()
            .property("agent", &Self::agent, &Self::setAgent)
            .property("period", &Self::period, &Self::setPeriod)
            .property("lineColor", &Self::lineColor, &Self::setLineColor)
            .property("lineWidth", &Self::lineWidth, &Self::setLineWidth)
            .property("drawsGrid", &Self::drawsGrid, &Self::setDrawsGrid)
            .property("fillsArea", &Self::fillsArea, &Self::setFillsArea)
            .property("drawsHeader", &Self::drawsHeader, &Self::setDrawsHeader)
            .property("drawsBorder", &Self::drawsBorder, &Self::setDrawsBorder)
            .property("fontSize", &Self::fontSize, &Self::setFontSize)
            .property("backgroundColor", &Self::backgroundColor, &Self::setBackgroundColor)
            .registered();
    return record;
}

const SettingList& ZORPlotView::settings() const {
    static const SettingList list = SettingsBuilder(staticClass(), LinkedInstrumentView::settings())
                                        .choice("period", "Period", SettingKind::choice,
                                                {{codeOf(PlotPeriod::today), "Today"},
                                                 {codeOf(PlotPeriod::twoDays), "Yesterday and Today"},
                                                 {codeOf(PlotPeriod::last24Hours), "Last 24 Hours"},
                                                 {codeOf(PlotPeriod::last7Days), "Last 7 Days"},
                                                 {codeOf(PlotPeriod::last30Days), "Last 30 Days"},
                                                 {codeOf(PlotPeriod::lastYear), "Last Year"}})
                                        .add("lineColor", "Line Color", SettingKind::color)
                                        .number("lineWidth", "Line Width", thinnestLine, thickestLine, "pt")
                                        .add("fillsArea", "Fill Area", SettingKind::boolean)
                                        .add("drawsGrid", "Grid", SettingKind::boolean)
                                        .add("drawsHeader", "Header", SettingKind::boolean)
                                        .add("drawsBorder", "Border", SettingKind::boolean)
                                        .number("fontSize", "Font Size", 0, largestFontSizeOfPlots, "pt")
                                        .add("backgroundColor", "Background Color", SettingKind::color)
                                        .build();
    return list;
}

ZORPlotView::~ZORPlotView() {
    observe(false);
}

void ZORPlotView::setAgent(const std::shared_ptr<Agent>& agent) {
    agent_ = agent;
    setNeedsDisplay(true);
}

void ZORPlotView::setLineWidth(double width) {
    store(lineWidth_, bounded(width, thinnestLine, thickestLine));
}

void ZORPlotView::setFontSize(double size) {
    store(fontSize_, bounded(size, 0, largestFontSizeOfPlots));
}

void ZORPlotView::drawRect(DrawingContext& context, const Rect&) {
    if (!isVisibleArea(bounds())) return;
    const TimeSpan span = spanOfPeriod(period_, stationTime());
    const PlotContent content{
        .title = property() ? property()->displayName() : propertyName().value_or(""),
        .value = property() ? property()->stringForFormat(valueWithShortUnitFormat) : std::string(missingValueText),
        .unit = property() ? property()->unit() : baseUnit(Quantity::none),
        .span = span,
        .samples = samplesWithin(span),
    };
    drawPlot(context, bounds(), content,
             {.lineColor = lineColor_,
              .lineWidth = lineWidth_,
              .drawsGrid = drawsGrid_,
              .fillsArea = fillsArea_,
              .drawsHeader = drawsHeader_,
              .drawsBorder = drawsBorder_,
              .background = backgroundColor_,
              .fontSize = fontSize_});
}

std::shared_ptr<Agent> ZORPlotView::station() const {
    const auto own = agent();
    return own ? own : agentAbove();
}

std::shared_ptr<History> ZORPlotView::history() const {
    return ask(station(), [](const Agent& agent) { return agent.history(); });
}

std::vector<Sample> ZORPlotView::samplesWithin(const TimeSpan& span) const {
    if (!property()) return {};
    auto samples =
        ask(history(), [&](History& past) { return past.samples(property()->propertyName(), span.from, span.to); });
    for (auto& sample : samples) sample.value = fromBase(sample.value, property()->unit());
    return samples;
}

void ZORPlotView::viewDidMoveToWindow() {
    LinkedInstrumentView::viewDidMoveToWindow();
    observe(window() != nullptr);
}

void ZORPlotView::observe(bool observing) {
    if (std::exchange(observing_, observing) == observing) return;
    auto& center = NotificationCenter::defaultCenter();
    if (!observing) {
        center.removeObserver(this, kHistoryDidFetchNotification, nullptr);
        center.removeObserver(this, kAppTimerOneMinuteNotification, nullptr);
        return;
    }
    center.addObserver(this, kHistoryDidFetchNotification, nullptr, [this](const Notification& notification) {
        if (notification.sender == history().get()) setNeedsDisplay(true);
    });
    center.addObserver(this, kAppTimerOneMinuteNotification, nullptr,
                       [this](const Notification&) { setNeedsDisplay(true); });
}

bool ZORPlotView::initWithCoder(Decoder& decoder) {
    if (!LinkedInstrumentView::initWithCoder(decoder)) return false;
    // A code that this version does not offer is kept all the same.
    if (const auto period = decoder.decodeValueIfPresent("period")) (void)setValueForKey("period", *period);
    return true;
}

void ZORPlotView::copyStateTo(ZORInstrumentView& copy) const {
    LinkedInstrumentView::copyStateTo(copy);
    dynamic_cast<ZORPlotView&>(copy).agent_ = agent_;
}

}  // namespace zor

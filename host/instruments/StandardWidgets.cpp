#include "host/instruments/StandardWidgets.h"

#include <algorithm>
#include <array>
#include <string>

#include "host/instruments/StandardSelection.h"
#include "host/instruments/ZORBoxView.h"
#include "host/instruments/ZORDateTimeFieldView.h"
#include "host/instruments/ZORPlotView.h"
#include "host/instruments/ZORRoundGaugeView.h"
#include "host/instruments/ZORTextFieldView.h"
#include "host/instruments/ZORWidgetHostView.h"

namespace zor {

namespace {

constexpr double margin = 20;
constexpr double gap = 20;
constexpr int columns = 4;
/// A gauge's side, and the width of a column.
constexpr double columnWidth = 260;
constexpr double headingHeight = 36;
constexpr double displayHeight = 116;
constexpr double plotHeight = 220;
constexpr double displayPadding = 18;

constexpr Color temperatureColor = Color::rgb(0xe8590c);
constexpr Color windColor = Color::rgb(0x0c8599);
constexpr Color waterColor = Color::rgb(0x1971c2);
constexpr Color pressureColor = Color::rgb(0x6741d9);
constexpr Color otherColor = Color::rgb(0x2f9e44);

constexpr Color displayFace = Color::rgb(0x10171f);
constexpr Color displayEdge = Color::rgb(0x2b3a48);
constexpr Color displayCaption = Color::rgb(0x8fa3b8);

/// The two custom fonts in turn, each in its own light.
struct DisplayLook {
    std::string_view family;
    double size;
    Color light;
};
constexpr std::array displayLooks = {DisplayLook{"LCDPHONE", 44, Color::rgb(0x8ce99a)},
                                     DisplayLook{"Crysta", 52, Color::rgb(0x74d7ff)}};

Color colorOf(Quantity quantity) {
    switch (quantity) {
        case Quantity::temperature:
            return temperatureColor;
        case Quantity::speed:
        case Quantity::direction:
            return windColor;
        case Quantity::humidity:
        case Quantity::rain:
        case Quantity::rainRate:
            return waterColor;
        case Quantity::pressure:
            return pressureColor;
        default:
            return otherColor;
    }
}

/// Without what goes without saying: "Outdoor" in front and a remark in brackets behind.
std::string shortName(const Property& property) {
    constexpr std::string_view outdoor = "Outdoor ";
    std::string name = property.displayName();
    if (name.starts_with(outdoor)) name.erase(0, outdoor.size());
    if (const auto bracket = name.find(" ("); bracket != std::string::npos) name.erase(bracket);
    return name;
}

/// The width of several columns with the gaps between them.
double widthOfColumns(double count) {
    return count * columnWidth + (count - 1) * gap;
}

class StandardDashboard {
public:
    explicit StandardDashboard(Agent& agent)
        : agent_(std::dynamic_pointer_cast<Agent>(agent.weak_from_this().lock())),
          name_(agent.name()),
          selection_(StandardSelection::of(agent)) {}

    std::vector<std::shared_ptr<View>> build() {
        if (selection_.gauges.empty() && selection_.displays.empty()) return {};
        addHeading();
        addGauges();
        addDisplays();
        addPlots();
        return std::move(widgets_);
    }

private:
    using WidgetPtr = std::shared_ptr<ZORWidgetHostView>;

    template <typename Instrument>
    Instrument& add(const WidgetPtr& widget) {
        widgets_.push_back(widget);
        return dynamic_cast<Instrument&>(*widget->targetView());
    }

    /// The station's name, and the clock at the right.
    void addHeading() {
        const double clockWidth = widthOfColumns(1.5);
        const double nameWidth = widthOfColumns(columns) - clockWidth - gap;
        auto& name =
            add<ZORTextFieldView>(ZORWidgetHostView::textFieldWithRect({margin, y_, nameWidth, headingHeight}));
        name.setUseProperty(false);
        name.setStringToDraw(name_);
        name.setFont({.size = 28, .bold = true});
        auto& clock = add<ZORDateTimeFieldView>(
            ZORWidgetHostView::dateTimeFieldWithRect({margin + nameWidth + gap, y_, clockWidth, headingHeight}));
        clock.setFont({.size = 17});
        clock.setTextColor(Color::rgb(0x6e6e73));
        clock.setAlignment(TextAlignment::right);
        endRow(headingHeight);
    }

    /// What the gauges leave of their row takes the first plot.
    void addGauges() {
        const auto& gauges = selection_.gauges;
        if (gauges.empty()) return;
        double x = margin;
        for (const auto& property : gauges) {
            addGauge({x, y_, columnWidth, columnWidth}, property);
            x += columnWidth + gap;
        }
        const double rest = columns - static_cast<double>(gauges.size());
        if (rest > 0) {
            addPlot({x, y_, widthOfColumns(rest), columnWidth}, selection_.plots.front());
            selection_.plots.erase(selection_.plots.begin());
        }
        endRow(columnWidth);
    }

    void addGauge(const Rect& rect, const std::shared_ptr<Property>& property) {
        auto& gauge = add<ZORRoundGaugeView>(ZORWidgetHostView::roundGaugeWithRect(rect));
        gauge.setProperty(property);
        gauge.setCaption(shortName(*property));
        gauge.setBarColor(colorOf(property->quantity()));
    }

    void addDisplays() {
        const auto& displays = selection_.displays;
        if (displays.empty()) return;
        Rect rect{margin, y_, shareOfRow(displays.size()), displayHeight};
        for (std::size_t index = 0; index < displays.size(); ++index) {
            addDisplay(rect, displays[index], displayLooks[index % displayLooks.size()]);
            rect.x += rect.width + gap;
        }
        endRow(displayHeight);
    }

    /// A dark box with a caption above the value.
    void addDisplay(const Rect& rect, const std::shared_ptr<Property>& property, const DisplayLook& look) {
        auto& box = add<ZORBoxView>(ZORWidgetHostView::boxWithRect(rect));
        box.setFillColor(displayFace);
        box.setBorderColor(displayEdge);
        box.setBorderWidth(2);
        box.setCornerRadius(14);

        const Rect inner = insetRect(rect, displayPadding, displayPadding * 0.75);
        constexpr double captionHeight = 20;
        auto& caption = addLabel({inner.x, inner.y, inner.width, captionHeight}, property, {.size = 14});
        caption.setUseProperty(false);
        caption.setStringToDraw(shortName(*property));
        caption.setTextColor(displayCaption);

        auto& value = addLabel({inner.x, inner.y + captionHeight, inner.width, inner.height - captionHeight}, property,
                               {.family = std::string(look.family), .size = look.size});
        value.setTextColor(look.light);
        value.setAlignment(TextAlignment::right);
    }

    ZORTextFieldView& addLabel(const Rect& rect, const std::shared_ptr<Property>& property, const Font& font) {
        auto& label = add<ZORTextFieldView>(ZORWidgetHostView::textFieldWithRect(rect));
        label.setProperty(property);
        label.setFont(font);
        return label;
    }

    /// At most two beside each other.
    void addPlots() {
        const auto count = std::min<std::size_t>(selection_.plots.size(), 2);
        if (count == 0) return;
        Rect rect{margin, y_, shareOfRow(count), plotHeight};
        for (std::size_t index = 0; index < count; ++index) {
            addPlot(rect, selection_.plots[index]);
            rect.x += rect.width + gap;
        }
        endRow(plotHeight);
    }

    void addPlot(const Rect& rect, const std::shared_ptr<Property>& property) {
        auto& plot = add<ZORPlotView>(ZORWidgetHostView::plotViewWithRect(rect, agent_));
        plot.setProperty(property);
        plot.setLineColor(colorOf(property->quantity()));
    }

    /// The width of each of so many equal parts of a row.
    static double shareOfRow(std::size_t count) {
        const auto parts = static_cast<double>(count);
        return (widthOfColumns(columns) - (parts - 1) * gap) / parts;
    }

    void endRow(double height) { y_ += height + gap; }

    std::shared_ptr<Agent> agent_;
    std::string name_;
    StandardSelection selection_;
    std::vector<std::shared_ptr<View>> widgets_;
    double y_ = margin;
};

}  // namespace

std::vector<std::shared_ptr<View>> standardWidgets(Agent& agent) {
    return StandardDashboard(agent).build();
}

}  // namespace zor

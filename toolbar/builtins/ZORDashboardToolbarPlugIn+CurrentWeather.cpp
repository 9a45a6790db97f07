#include <optional>

#include "host/instruments/ZORTextFieldView.h"
#include "host/station/PropertyKeys.h"
#include "host/station/ValueFormats.h"
#include "host/views/Toolkit.h"
#include "toolbar/ZORDashboardToolbarPlugIn.h"

namespace zor {

namespace {

constexpr double leftMargin = 10.0;
constexpr double topMargin = 12.0;
constexpr double valueColumn = 140.0;
constexpr double valueWidth = 120.0;
constexpr Size temperatureBox{320.0, 96.0};
constexpr double rowFontSize = 16.0;

Size sizeOf(std::string_view text, const Font& font) { return Toolkit::current().sizeOfText(text, font); }

/// Lays the rows out from the top; a row that is not added leaves the cursor where it was.
class Layout {
public:
    explicit Layout(std::shared_ptr<Agent> agent) : agent_(std::move(agent)) {}

    std::shared_ptr<Property> property(std::initializer_list<std::string_view> keys) const {
        return ask(agent_, [&](const Agent& station) { return station.properties().objectForAnyKey(keys); });
    }

    void addHeading(std::string_view text) {
        const Font font = Font::named("Helvetica Neue", 28);
        const Size size = sizeOf(text, font);
        cursor_ = {leftMargin, topMargin, 1.1 * size.width, 1.1 * size.height};
        addLabel(text, font).setAlignment(TextAlignment::left);
    }

    void addTemperature(const std::shared_ptr<Property>& temperature) {
        cursor_ = {leftMargin, cursor_.y + 1.2 * cursor_.height, temperatureBox.width, temperatureBox.height};
        if (!temperature) return;
        addValue(temperature, Font::named("Helvetica Neue", 0.8 * cursor_.height))
            .setAlignment(TextAlignment::center);
    }

    void addFeelsLike(const std::shared_ptr<Property>& heatIndex) {
        if (!heatIndex) return;
        constexpr std::string_view text = "Feels like";
        const Font font = Font::named("Helvetica Neue", 24);
        const Size size = sizeOf(text, font);
        cursor_ = {leftMargin, cursor_.y + 1.1 * cursor_.height, 1.1 * size.width, 1.1 * size.height};
        addLabel(text, font);
        cursor_.x += cursor_.width;
        cursor_.width = valueWidth;
        addValue(heatIndex, font).setAlignment(TextAlignment::left);
    }

    void addRow(std::string_view text, const std::shared_ptr<Property>& value,
                std::optional<std::string_view> widest = {}) {
        if (!value) return;
        const Font font = Font::named("Helvetica Neue", rowFontSize);
        const Font bold = Font::named("Helvetica Neue Bold", rowFontSize);
        const Size size = sizeOf(text, font);
        cursor_ = {leftMargin, cursor_.y + 1.5 * cursor_.height, 2.0 * size.width, 1.1 * size.height};
        addLabel(text, font);
        cursor_.x = valueColumn;
        cursor_.width = widest ? sizeOf(*widest, bold).width : valueWidth;
        addValue(value, bold).setAlignment(TextAlignment::left);
    }

    WidgetList takeWidgets() { return std::move(widgets_); }

private:
    ZORTextFieldView& addField(const Font& font) {
        auto widget = ZORWidgetHostView::textFieldWithRect(cursor_);
        auto& field = static_cast<ZORTextFieldView&>(*widget->targetView());
        field.setFont(font);
        widgets_.push_back(std::move(widget));
        return field;
    }

    ZORTextFieldView& addLabel(std::string_view text, const Font& font) {
        auto& field = addField(font);
        field.setUseProperty(false);
        field.setStringToDraw(std::string(text));
        return field;
    }

    ZORTextFieldView& addValue(const std::shared_ptr<Property>& property, const Font& font) {
        auto& field = addField(font);
        field.setUseProperty(true);
        field.setProperty(property);
        field.setPropertyFormat(std::string(valueWithShortUnitFormat));
        return field;
    }

    std::shared_ptr<Agent> agent_;
    Rect cursor_;
    WidgetList widgets_;
};

}  // namespace

std::shared_ptr<ZORDashboardPlugIn> ZORDashboardToolbarPlugIn::currentWeatherPlugIn() {
    Layout layout(agent());
    layout.addHeading("Current Conditions");
    layout.addTemperature(
        layout.property({kOutdoorTemperature, kTemperature, "temperature1", kIndoorTemperature}));
    layout.addFeelsLike(layout.property({kOutdoorHeatIndex, kHeatIndex}));
    layout.addRow("Dew Point:", layout.property({kOutdoorDewPoint, kDewPoint}), "XXX XX");
    layout.addRow("Humidity:", layout.property({kOutdoorHumidity, kHumidity}));
    layout.addRow("Precip Rate:", layout.property({kRainRate}));
    layout.addRow("Pressure:", layout.property({kBarometricPressureRelative, kBarometricPressureAbsolute}));

    auto dashboard = ZORDashboardPlugIn::initWithAgent(agent(), siteWindowController(), layout.takeWidgets());
    if (!dashboard) return {};
    dashboard->setTitle("Current Weather");
    dashboard->view();
    return dashboard;
}

}  // namespace zor

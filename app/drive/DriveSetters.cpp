#include "app/drive/DriveSession.h"

namespace zor {

void setProperty(Property& property, const Fields& description, Seconds receivedAt) {
    const Unit* unit = &property.unit();
    if (const auto shortName = description.optionalString("unit")) {
        unit = unitWithShortName(*shortName, property.quantity());
        if (!unit) description.refuse("unit", "there is no unit \"" + *shortName + "\" for this property");
    }
    std::optional<double> value;
    if (description.has("value")) value = description.number("value");
    property.setUnit(*unit);
    // What no station can measure becomes no value, as with any driver.
    property.setValue(value ? std::optional(toBase(*value, *unit)) : std::nullopt, receivedAt);
}

Json DriveSession::set(const Fields& line) {
    const Json& target = line.raw("target");
    line.string("key");
    line.raw("value");
    if (target.is_number()) {
        const auto found = widgetsById_.find(line.integer("target"));
        const auto widget = found == widgetsById_.end() ? nullptr : found->second.lock();
        if (!widget) line.refuse("target", "there is no widget with that id");
        setWidget(line, *widget);
    } else if (target == "canvas") {
        setCanvas(line, *canvasFor(line));
    } else if (target == "dashboard") {
        setDashboard(line, *dashboardFor(line));
    } else if (target == "agent") {
        setAgent(line);
    } else {
        line.refuse("target", "must be a widget's id, canvas, dashboard or agent");
    }
    return Json::object();
}

void DriveSession::setWidget(const Fields& line, ZORWidgetHostView& widget) {
    const std::string key = line.string("key");
    if (key == "frame") {
        widget.setFrame(line.rect("value"));
    } else if (key == "zOrder") {
        widget.setZOrder(line.integer("value"));
    } else if (key == "title") {
        widget.setTitle(line.optionalString("value"));
    } else if (key == "editable") {
        widget.setEditable(line.boolean("value"));
    } else if (key == "inLiveResize") {
        widget.setInLiveResize(line.boolean("value"));
    } else if (key == "property") {
        const auto client = std::dynamic_pointer_cast<PropertyClient>(widget.targetView());
        if (!client) line.refuse("key", "this widget shows no property");
        if (const auto name = line.optionalString("value")) {
            client->linkProperty(*name, document_->agent()->properties().find(*name));
        } else {
            client->setProperty({});
        }
    } else {
        const auto instrument = widget.instrument();
        const auto& settings = widget.properties();
        const bool known =
            instrument && std::ranges::any_of(settings, [&](const auto& each) { return each.name == key; });
        if (!known) line.refuse("key", "this widget has no setting \"" + key + "\"");
        const auto status = applySetting(*instrument, settings, key, valueFrom(line.raw("value")));
        if (!status) line.refuse("value", status.error().message);
    }
}

void DriveSession::setCanvas(const Fields& line, ZORImageView& canvas) {
    const std::string key = line.string("key");
    if (key == "editMode" || key == "drawGridLines") {
        canvas.setValueForKey(key, line.boolean("value"));
    } else if (key == "step") {
        const double step = line.number("value");
        if (!(step >= 1)) line.refuse("value", "a step must be at least 1");
        canvas.setValueForKey(key, step);
    } else if (key == "frame") {
        canvas.setFrame(line.rect("value"));
    } else if (key == "image") {
        std::shared_ptr<Image> image;
        if (line.has("value")) {
            const Size size = line.size("value");
            if (!(size.width > 0 && size.height > 0)) line.refuse("value", "an image is wider and higher than 0");
            image = Image::plain(size);
        }
        canvas.setImage(std::move(image));
    } else {
        line.refuse("key", "a canvas has no setting \"" + key + "\"");
    }
}

void DriveSession::setDashboard(const Fields& line, ZORPlugIn& plugIn) {
    const std::string key = line.string("key");
    if (key != "title") line.refuse("key", "a dashboard has no setting \"" + key + "\"");
    plugIn.setTitle(line.optionalString("value"));
}

void DriveSession::setAgent(const Fields& line) {
    const std::string key = line.string("key");
    const auto property = document_ ? document_->agent()->properties().find(key) : nullptr;
    if (!property) line.refuse("key", "the agent has no property \"" + key + "\"");
    setProperty(*property, line.object("value"), document_->agent()->now());
}

}  // namespace zor

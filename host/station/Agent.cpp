#include "host/station/Agent.h"

#include <algorithm>
#include <utility>

#include "host/foundation/ClassBuilder.h"
#include "host/foundation/Coder.h"
#include "host/foundation/NotificationCenter.h"
#include "host/station/PropertyKeys.h"
#include "host/station/SiteWindowController.h"

namespace zor {

namespace {

/// Setting of every driver: seconds after which a value counts as too old.
constexpr std::string_view valueLifetimeSetting = "valueLifetime";

/// A widget's instrument, or the view itself where that shows a property; none for any other view.
std::shared_ptr<PropertyClient> propertyClient(const std::shared_ptr<View>& view) {
    if (!view) return {};
    if (auto client = std::dynamic_pointer_cast<PropertyClient>(view)) return client;
    return std::dynamic_pointer_cast<PropertyClient>(view->valueForKey("targetView").asObject());
}

/// Every view below that may show a property.
void collectViews(const View& view, std::vector<std::shared_ptr<View>>& views) {
    for (const auto& child : view.subviews()) {
        views.push_back(child);
        collectViews(*child, views);
    }
}

}  // namespace

std::shared_ptr<Property> PropertyDictionary::find(std::string_view key) const {
    const auto found = places_.find(key);
    return found == places_.end() ? nullptr : properties_[found->second];
}

std::shared_ptr<Property> PropertyDictionary::objectForAnyKey(std::initializer_list<std::string_view> keys) const {
    for (const auto key : keys) {
        if (auto property = find(key)) return property;
    }
    return {};
}

void PropertyDictionary::add(std::shared_ptr<Property> property) {
    if (!property) return;
    // Not by the name of one that is about to leave.
    const auto present = places_.extract(property->propertyName());
    const std::size_t place = present ? present.mapped() : properties_.size();
    if (!present) properties_.emplace_back();
    properties_[place] = std::move(property);
    places_.emplace(properties_[place]->propertyName(), place);
}

void PropertyDictionary::clear() {
    places_.clear();
    properties_.clear();
}

const ClassRecord& Agent::staticClass() {
    static const ClassRecord& record = ClassBuilder<Agent>("ZORAgent", &Object::staticClass())
                                           .creatable()
                                           .property("name", &Agent::name, &Agent::setName)
                                           .registered();
    return record;
}

Agent::Agent() : history_(std::make_shared<History>(time_)), derived_(history_) {
    NotificationCenter::defaultCenter().addObserver(this, kAppTimerOneMinuteNotification, nullptr,
                                                    [this](const Notification&) { noticeAges(); });
}

Agent::~Agent() {
    NotificationCenter::defaultCenter().removeObserver(this, kAppTimerOneMinuteNotification, nullptr);
}

std::shared_ptr<Agent> Agent::withName(std::string name) {
    auto agent = std::make_shared<Agent>();
    agent->setName(std::move(name));
    return agent;
}

std::shared_ptr<Property> Agent::addProperty(std::string_view key, std::string_view displayName, Quantity quantity) {
    if (auto present = properties_.find(key)) return present;
    auto property = newProperty(key, displayName, quantity);
    announceProperties();
    return property;
}

void Agent::linkPropertiesToWidgets(const std::vector<std::shared_ptr<View>>& widgets) {
    for (const auto& widget : widgets) {
        const auto client = propertyClient(widget);
        if (!client) continue;
        if (const auto name = client->propertyName()) client->linkProperty(*name, properties_.find(*name));
    }
}

std::vector<std::shared_ptr<View>> Agent::dashboardWidgets() {
    return widgetsMaker_ ? widgetsMaker_(*this) : std::vector<std::shared_ptr<View>>{};
}

void Agent::setDashboardWidgetsMaker(std::function<std::vector<std::shared_ptr<View>>(Agent&)> maker) {
    widgetsMaker_ = std::move(maker);
}

void Agent::takeReading(Reading reading) {
    // Nothing may be derived from what cannot be, and nothing of it be remembered.
    for (auto& measurement : reading.measurements) {
        const auto property = properties_.find(measurement.key);
        const auto quantity = property ? property->quantity() : namingOfProperty(measurement.key).quantity;
        if (measurement.value && !isPlausible(*measurement.value, quantity)) measurement.value.reset();
    }
    derived_.complete(reading);
    history_->append(reading);
    bool added = false;
    for (const auto& measurement : reading.measurements) {
        auto property = properties_.find(measurement.key);
        if (!property) {
            const auto naming = namingOfProperty(measurement.key);
            property = newProperty(measurement.key, naming.displayName, naming.quantity);
            added = true;
        }
        property->setValue(measurement.value, reading.time);
    }
    if (added) announceProperties();
}

void Agent::setConfiguration(AgentConfiguration configuration) {
    configuration_ = std::move(configuration);
    setUnitSystem(configuration_.unitSystem);
    for (const auto& property : properties_.all()) property->setLifetime(valueLifetime());
}

void Agent::setUnitSystem(UnitSystem system) {
    configuration_.unitSystem = system;
    for (const auto& property : properties_.all()) property->setUnit(unitForQuantity(property->quantity(), system));
}

void Agent::setSiteWindowController(const std::shared_ptr<SiteWindowController>& controller) {
    siteWindowController_ = controller;
}

void Agent::encodeWithCoder(Encoder& encoder) {
    Object::encodeWithCoder(encoder);
    encoder.encodeValue("name", name_);
    encoder.encodeValue("driver", configuration_.driver);
    encoder.encodeValue("settings", configuration_.settings);
    encoder.encodeValue("unitSystem", nameOfUnitSystem(configuration_.unitSystem));
    encoder.encodeObjects("properties", properties_.all());
}

bool Agent::initWithCoder(Decoder& decoder) {
    if (!Object::initWithCoder(decoder)) return false;
    name_ = decoder.decodeString("name").value_or("");
    configuration_.driver = decoder.decodeString("driver").value_or(configuration_.driver);
    configuration_.settings = decoder.decodeValue("settings").asDictionary();
    configuration_.unitSystem = unitSystemNamed(decoder.decodeString("unitSystem").value_or(""));
    for (const auto& property : decoder.decodeObjects<Property>("properties")) {
        adopt(property);
    }
    return true;
}

std::shared_ptr<Property> Agent::newProperty(std::string_view key, std::string_view displayName, Quantity quantity) {
    auto property = std::make_shared<Property>(std::string(key), std::string(displayName), quantity);
    property->setUnit(unitForQuantity(quantity, configuration_.unitSystem));
    adopt(property);
    return property;
}

void Agent::adopt(const std::shared_ptr<Property>& property) {
    property->setStationTime(time_);
    property->setLifetime(valueLifetime());
    properties_.add(property);
}

void Agent::announceProperties() {
    linkWaitingInstruments();
    const auto observer = propertiesObserver_;
    if (observer) observer();
}

void Agent::linkWaitingInstruments() {
    const auto controller = siteWindowController();
    if (!controller) return;
    std::vector<std::shared_ptr<View>> views;
    for (const auto& plugIn : controller->plugIns()) {
        if (plugIn->isViewLoaded()) collectViews(*plugIn->view(), views);
    }
    std::erase_if(views, [](const auto& view) {
        const auto client = propertyClient(view);
        return !client || client->property();
    });
    linkPropertiesToWidgets(views);
}

void Agent::noticeAges() {
    // An observer may take new readings.
    const auto properties = properties_.all();
    for (const auto& property : properties) property->noticeAge();
}

Seconds Agent::valueLifetime() const {
    const auto found = configuration_.settings.find(valueLifetimeSetting);
    return found == configuration_.settings.end() ? 0 : found->second.number().value_or(0);
}

}  // namespace zor

#pragma once

#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/station/DerivedValues.h"
#include "host/station/History.h"
#include "host/station/Property.h"

namespace zor {

class SiteWindowController;
class View;

/// A station's properties by name, in the order in which they were added.
class PropertyDictionary {
public:
    /// Empty where there is none.
    std::shared_ptr<Property> find(std::string_view key) const;
    /// The property of the first key that is present, or none.
    std::shared_ptr<Property> objectForAnyKey(std::initializer_list<std::string_view> keys) const;
    const std::vector<std::shared_ptr<Property>>& all() const { return properties_; }
    /// Replaces a property of the same name.
    void add(std::shared_ptr<Property> property);
    void clear();

private:
    std::vector<std::shared_ptr<Property>> properties_;
    /// Places in the list by name, which is the property's own: a file may bring any number of them.
    std::map<std::string_view, std::size_t> places_;
};

/// How a site reaches its station; stored with the Site Document.
struct AgentConfiguration {
    /// As sources are named: "simulated", "weewx".
    std::string driver = "simulated";
    /// The driver's own settings, and for every driver "valueLifetime": the seconds after which a value is too old.
    Value::Dictionary settings;
    UnitSystem unitSystem = UnitSystem::metric;
};

/// A weather station as the plug-ins see it.
class Agent : public Object {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }

    Agent();
    ~Agent() override;
    static std::shared_ptr<Agent> withName(std::string name);

    std::string name() const { return name_; }
    void setName(std::string name) { name_ = std::move(name); }
    const PropertyDictionary& properties() const { return properties_; }
    /// Adds a property and announces it, so that instruments that hold its name are linked. The answer is the property
    /// of that key, also where there was one.
    std::shared_ptr<Property> addProperty(std::string_view key, std::string_view displayName, Quantity quantity);
    /// Links each widget's instrument to the live property of the name that it stores; a name that the agent lacks is
    /// kept and shows no value. Entries that are no widgets are passed over.
    void linkPropertiesToWidgets(const std::vector<std::shared_ptr<View>>& widgets);
    /// A set of ready-made widgets that suit the station, laid out from (0, 0) up; empty without a maker.
    std::vector<std::shared_ptr<View>> dashboardWidgets();
    void setDashboardWidgetsMaker(std::function<std::vector<std::shared_ptr<View>>(Agent&)> maker);

    /// Main thread. Completes the reading with derived values, adds properties that are new, stores values, appends
    /// to the history.
    void takeReading(Reading reading);
    const std::shared_ptr<History>& history() const { return history_; }
    /// The station's own time, in seconds since 1970: what clocks show and what "today" is.
    Seconds now() const { return time_->now(); }
    /// No clock is the computer's.
    void setClock(std::function<Seconds()> clock) { time_->setClock(std::move(clock)); }

    const AgentConfiguration& configuration() const { return configuration_; }
    void setConfiguration(AgentConfiguration configuration);
    /// Shows every property in the system's units.
    void setUnitSystem(UnitSystem system);

    std::shared_ptr<SiteWindowController> siteWindowController() const { return siteWindowController_.lock(); }
    void setSiteWindowController(const std::shared_ptr<SiteWindowController>& controller);
    /// Called when properties were added, once for a reading.
    void setPropertiesObserver(std::function<void()> observer) { propertiesObserver_ = std::move(observer); }

    /// Name, configuration and the properties without their values.
    void encodeWithCoder(Encoder& encoder) override;
    bool initWithCoder(Decoder& decoder) override;

private:
    std::shared_ptr<Property> newProperty(std::string_view key, std::string_view displayName, Quantity quantity);
    /// Among its own, with the station's time and its values' lifetime.
    void adopt(const std::shared_ptr<Property>& property);
    void announceProperties();
    /// Links what holds a name and has no live property, in every view that has been made.
    void linkWaitingInstruments();
    void noticeAges();
    Seconds valueLifetime() const;

    std::string name_;
    PropertyDictionary properties_;
    AgentConfiguration configuration_;
    const std::shared_ptr<StationTime> time_ = std::make_shared<StationTime>();
    std::shared_ptr<History> history_;
    DerivedValues derived_;
    std::function<std::vector<std::shared_ptr<View>>(Agent&)> widgetsMaker_;
    std::function<void()> propertiesObserver_;
    std::weak_ptr<SiteWindowController> siteWindowController_;
};

}  // namespace zor

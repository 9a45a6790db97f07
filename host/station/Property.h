#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/foundation/Object.h"
#include "host/station/Reading.h"
#include "host/station/StationTime.h"
#include "host/station/Units.h"

namespace zor {

/// Told when a property's value, unit or freshness changed. Observes one property at a time.
class PropertyObserver {
public:
    virtual ~PropertyObserver() = default;
    virtual void propertyDidChange() = 0;

private:
    friend class Property;
    /// Among the property's observers, so that thousands leave in linear time.
    std::size_t place_ = 0;
};

/// One named measurement of a station.
class Property : public Object {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }

    Property() = default;
    Property(std::string name, std::string displayName, Quantity quantity);

    const std::string& propertyName() const { return name_; }
    bool hasName(std::string_view name) const { return name_ == name; }
    std::string displayName() const { return displayName_; }
    Quantity quantity() const { return quantity_; }
    const Unit& unit() const { return *unit_; }
    /// A unit of another quantity is ignored.
    void setUnit(const Unit& unit);

    /// In the base unit; nothing where there is none or it is too old. What is not plausible becomes no value.
    std::optional<double> value() const;
    std::optional<double> valueInUnit() const;
    Seconds receivedAt() const { return receivedAt_; }
    void setValue(std::optional<double> baseValue, Seconds receivedAt);
    /// What its value's age is judged by; without one, the computer's time.
    void setStationTime(std::shared_ptr<const StationTime> time) { time_ = std::move(time); }
    /// Seconds after which a value counts as too old; 0 for never.
    void setLifetime(Seconds lifetime);
    bool isStale() const;
    /// Tells the observers, once, that a value has become too old; the agent asks every minute.
    void noticeAge();

    /// The value as text by the name of a format (see ValueFormats.h); "--" without a value.
    std::string stringForFormat(std::string_view format) const;

    /// Observers are told in the order in which they came, each once. They may add and remove observers, themselves
    /// included, while they are told; one that is added then is not told before the next change.
    void addObserver(PropertyObserver* observer);
    void removeObserver(PropertyObserver* observer);
    void notifyObservers();

    void encodeWithCoder(Encoder& encoder) override;
    bool initWithCoder(Decoder& decoder) override;

private:
    Seconds present() const { return time_ ? time_->now() : now(); }
    std::string unitName() const;
    void setUnitName(const std::string& shortName);
    void setValueInUnit(std::optional<double> value);
    std::string text() const;
    bool isObservedBy(const PropertyObserver& observer) const {
        return observer.place_ < observers_.size() && observers_[observer.place_] == &observer;
    }
    void closeGaps();

    std::string name_;
    std::string displayName_;
    Quantity quantity_ = Quantity::none;
    const Unit* unit_ = &baseUnit(Quantity::none);
    std::optional<double> value_;
    Seconds receivedAt_ = 0;
    std::shared_ptr<const StationTime> time_;
    Seconds lifetime_ = 0;
    bool noticedAge_ = false;
    /// Those that left are gaps, until there are as many gaps as observers and nobody is being told.
    std::vector<PropertyObserver*> observers_;
    std::size_t gaps_ = 0;
    int notifying_ = 0;
};

/// What shows a property: every instrument that answers "setProperty:".
class PropertyClient {
public:
    virtual ~PropertyClient() = default;
    virtual std::shared_ptr<Property> property() const = 0;
    /// An empty pointer unlinks and forgets the name.
    virtual void setProperty(const std::shared_ptr<Property>& property) = 0;
    /// The name that is stored, also where the agent lacks it; nothing where there is none.
    virtual std::optional<std::string> propertyName() const = 0;
    /// Keeps the name and links to the property of that name where `property` is given.
    virtual void linkProperty(const std::string& name, const std::shared_ptr<Property>& property) = 0;
};

}  // namespace zor

#include "host/station/Property.h"

#include <algorithm>
#include <utility>

#include "host/foundation/ClassBuilder.h"
#include "host/foundation/Coder.h"
#include "host/station/ValueFormats.h"

namespace zor {

const ClassRecord& Property::staticClass() {
    static const ClassRecord& record = ClassBuilder<Property>("ZORProperty", &Object::staticClass())
                                           .creatable()
                                           .property("propertyName", &Property::propertyName)
                                           .property("displayName", &Property::displayName)
                                           .property("unit", &Property::unitName, &Property::setUnitName)
                                           .property("value", &Property::valueInUnit, &Property::setValueInUnit)
                                           .property("text", &Property::text)
                                           .registered();
    return record;
}

Property::Property(std::string name, std::string displayName, Quantity quantity)
    : name_(std::move(name)), displayName_(std::move(displayName)), quantity_(quantity), unit_(&baseUnit(quantity)) {}

void Property::setUnit(const Unit& unit) {
    if (unit.quantity != quantity_ || unit_ == &unit) return;
    unit_ = &unit;
    notifyObservers();
}

std::optional<double> Property::value() const {
    return isStale() ? std::nullopt : value_;
}

std::optional<double> Property::valueInUnit() const {
    const auto base = value();
    return base ? std::optional(fromBase(*base, *unit_)) : std::nullopt;
}

void Property::setValue(std::optional<double> baseValue, Seconds receivedAt) {
    if (baseValue && !isPlausible(*baseValue, quantity_)) baseValue.reset();
    const bool wasStale = isStale();
    const auto before = value_;
    value_ = baseValue;
    receivedAt_ = receivedAt;
    noticedAge_ = isStale();
    if (value_ != before || wasStale || noticedAge_) notifyObservers();
}

void Property::setLifetime(Seconds lifetime) {
    lifetime_ = lifetime;
    noticeAge();
}

bool Property::isStale() const {
    return value_ && lifetime_ > 0 && present() - receivedAt_ > lifetime_;
}

void Property::noticeAge() {
    const bool stale = isStale();
    if (std::exchange(noticedAge_, stale) != stale) notifyObservers();
}

std::string Property::stringForFormat(std::string_view format) const {
    return formatValue(valueInUnit(), *unit_, format);
}

void Property::addObserver(PropertyObserver* observer) {
    if (isObservedBy(*observer)) return;
    observer->place_ = observers_.size();
    observers_.push_back(observer);
}

void Property::removeObserver(PropertyObserver* observer) {
    if (!isObservedBy(*observer)) return;
    observers_[observer->place_] = nullptr;
    ++gaps_;
    closeGaps();
}

void Property::closeGaps() {
    // Whoever tells right now goes by position.
    if (notifying_ > 0 || 2 * gaps_ < observers_.size()) return;
    std::erase(observers_, nullptr);
    gaps_ = 0;
    for (std::size_t place = 0; place < observers_.size(); ++place) observers_[place]->place_ = place;
}

void Property::notifyObservers() {
    const auto keepAlive = weak_from_this().lock();
    ++notifying_;
    // Who is added while others are told is up to date already.
    const auto count = observers_.size();
    for (std::size_t index = 0; index < count; ++index) {
        if (auto* observer = observers_[index]) observer->propertyDidChange();
    }
    --notifying_;
    closeGaps();
}

void Property::encodeWithCoder(Encoder& encoder) {
    Object::encodeWithCoder(encoder);
    encoder.encodeValue("name", name_);
    encoder.encodeValue("displayName", displayName_);
    encoder.encodeValue("quantity", nameOfQuantity(quantity_));
    encoder.encodeValue("unit", unit_->shortName);
}

bool Property::initWithCoder(Decoder& decoder) {
    if (!Object::initWithCoder(decoder)) return false;
    name_ = decoder.decodeString("name").value_or("");
    displayName_ = decoder.decodeString("displayName").value_or(name_);
    quantity_ = quantityNamed(decoder.decodeString("quantity").value_or(""));
    const auto* unit = unitWithShortName(decoder.decodeString("unit").value_or(""), quantity_);
    unit_ = unit ? unit : &baseUnit(quantity_);
    return !name_.empty();
}

std::string Property::unitName() const {
    return std::string(unit_->shortName);
}

void Property::setUnitName(const std::string& shortName) {
    if (const auto* unit = unitWithShortName(shortName, quantity_)) setUnit(*unit);
}

void Property::setValueInUnit(std::optional<double> value) {
    setValue(value ? std::optional(toBase(*value, *unit_)) : std::nullopt, present());
}

std::string Property::text() const {
    return stringForFormat(valueWithShortUnitFormat);
}

}  // namespace zor

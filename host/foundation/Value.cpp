#include "host/foundation/Value.h"

#include <array>
#include <cmath>

#include "host/foundation/Object.h"

namespace zor {

namespace {

template <typename T>
const T& emptyOf() {
    static const T empty{};
    return empty;
}

/// The numbers of an array that holds exactly that many, and nothing else.
template <std::size_t count>
std::optional<std::array<double, count>> numbersIn(const Value& value) {
    const auto& entries = value.asArray();
    if (entries.size() != count) return {};
    std::array<double, count> numbers;
    for (std::size_t index = 0; index < count; ++index) {
        const auto number = entries[index].number();
        if (!number) return {};
        numbers[index] = *number;
    }
    return numbers;
}

}  // namespace

Value::Value(std::shared_ptr<const Bytes> value) {
    if (value) state_ = std::move(value);
}

Value::Value(std::shared_ptr<const Array> value) {
    if (value) state_ = std::move(value);
}

Value::Value(std::shared_ptr<const Dictionary> value) {
    if (value) state_ = std::move(value);
}

Value::Value(ObjectPtr value) {
    if (value) state_ = std::move(value);
}

Value::Value(Point value) : Value(Array{value.x, value.y}) {}

Value::Value(Size value) : Value(Array{value.width, value.height}) {}

Value::Value(const Rect& value) : Value(Array{value.x, value.y, value.width, value.height}) {}

bool Value::isData() const {
    return std::holds_alternative<std::shared_ptr<const Bytes>>(state_);
}

bool Value::isArray() const {
    return std::holds_alternative<std::shared_ptr<const Array>>(state_);
}

bool Value::isDictionary() const {
    return std::holds_alternative<std::shared_ptr<const Dictionary>>(state_);
}

bool Value::asBool() const {
    return asReal() != 0;
}

std::int64_t Value::asInteger() const {
    if (const auto* integer = std::get_if<std::int64_t>(&state_)) return *integer;
    // Every real below 2^63 fits; 2^63 itself is the first that does not.
    const double real = asReal();
    const bool fits = real >= -0x1p63 && real < 0x1p63 && std::trunc(real) == real;
    return fits ? static_cast<std::int64_t>(real) : 0;
}

double Value::asReal() const {
    if (const auto* boolean = std::get_if<bool>(&state_)) return *boolean ? 1 : 0;
    return number().value_or(0);
}

const std::string& Value::asString() const {
    const auto* text = std::get_if<std::string>(&state_);
    return text ? *text : emptyOf<std::string>();
}

Date Value::asDate() const {
    const auto* date = std::get_if<Date>(&state_);
    return date ? *date : Date{};
}

const Bytes& Value::asData() const {
    const auto* data = std::get_if<std::shared_ptr<const Bytes>>(&state_);
    return data ? **data : emptyOf<Bytes>();
}

const Value::Array& Value::asArray() const {
    const auto* array = std::get_if<std::shared_ptr<const Array>>(&state_);
    return array ? **array : emptyOf<Array>();
}

const Value::Dictionary& Value::asDictionary() const {
    const auto* dictionary = std::get_if<std::shared_ptr<const Dictionary>>(&state_);
    return dictionary ? **dictionary : emptyOf<Dictionary>();
}

const ObjectPtr& Value::asObject() const {
    const auto* object = std::get_if<ObjectPtr>(&state_);
    return object ? *object : emptyOf<ObjectPtr>();
}

std::shared_ptr<const Bytes> Value::sharedData() const {
    const auto* data = std::get_if<std::shared_ptr<const Bytes>>(&state_);
    return data ? *data : nullptr;
}

std::shared_ptr<const Value::Array> Value::sharedArray() const {
    const auto* array = std::get_if<std::shared_ptr<const Array>>(&state_);
    return array ? *array : nullptr;
}

std::shared_ptr<const Value::Dictionary> Value::sharedDictionary() const {
    const auto* dictionary = std::get_if<std::shared_ptr<const Dictionary>>(&state_);
    return dictionary ? *dictionary : nullptr;
}

std::optional<double> Value::number() const {
    if (const auto* integer = std::get_if<std::int64_t>(&state_)) return static_cast<double>(*integer);
    if (const auto* real = std::get_if<double>(&state_)) return *real;
    return {};
}

std::optional<std::string> Value::string() const {
    return isString() ? std::optional(asString()) : std::nullopt;
}

std::optional<Point> Value::point() const {
    const auto numbers = numbersIn<2>(*this);
    return numbers ? std::optional(Point{(*numbers)[0], (*numbers)[1]}) : std::nullopt;
}

std::optional<Size> Value::size() const {
    const auto numbers = numbersIn<2>(*this);
    return numbers ? std::optional(Size{(*numbers)[0], (*numbers)[1]}) : std::nullopt;
}

std::optional<Rect> Value::rect() const {
    const auto numbers = numbersIn<4>(*this);
    if (!numbers) return {};
    return Rect{(*numbers)[0], (*numbers)[1], (*numbers)[2], (*numbers)[3]};
}

const Value& Value::operator[](std::string_view key) const {
    const auto& entries = asDictionary();
    const auto found = entries.find(key);
    return found == entries.end() ? emptyOf<Value>() : found->second;
}

bool Value::operator==(const Value& other) const {
    // Shared content is compared by what it holds; one and the same content needs no look inside.
    if (state_ == other.state_) return true;
    if (state_.index() != other.state_.index()) return false;
    if (isData()) return asData() == other.asData();
    if (isArray()) return asArray() == other.asArray();
    return isDictionary() && asDictionary() == other.asDictionary();
}

}  // namespace zor

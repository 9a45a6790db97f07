#pragma once
// A dynamically typed value: what archives hold, what named properties give and take.

#include <concepts>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "host/foundation/Geometry.h"

namespace zor {

class Object;
using ObjectPtr = std::shared_ptr<Object>;
using Bytes = std::vector<std::uint8_t>;

/// The null placeholder object, as opposed to an absent value.
struct Null {
    bool operator==(const Null&) const = default;
};

/// A moment in seconds since 2001-01-01 00:00 UTC.
struct Date {
    double secondsSinceReference = 0;
    bool operator==(const Date&) const = default;
};

/// Immutable and cheap to copy: containers and data are shared, never duplicated.
class Value {
public:
    using Array = std::vector<Value>;
    using Dictionary = std::map<std::string, Value, std::less<>>;

    Value() = default;
    Value(Null) : state_(Null{}) {}
    /// Exactly a boolean, so that no pointer becomes one.
    template <std::same_as<bool> B>
    Value(B value) : state_(value) {}
    Value(int value) : state_(std::int64_t{value}) {}
    Value(std::int64_t value) : state_(value) {}
    Value(double value) : state_(value) {}
    Value(Date value) : state_(value) {}
    Value(std::string value) : state_(std::move(value)) {}
    Value(std::string_view value) : state_(std::string(value)) {}
    Value(const char* value) : state_(std::string(value)) {}
    Value(Bytes value) : state_(std::make_shared<const Bytes>(std::move(value))) {}
    /// An empty pointer gives the absent value, here and for containers and objects.
    Value(std::shared_ptr<const Bytes> value);
    Value(Array value) : state_(std::make_shared<const Array>(std::move(value))) {}
    Value(std::shared_ptr<const Array> value);
    Value(Dictionary value) : state_(std::make_shared<const Dictionary>(std::move(value))) {}
    Value(std::shared_ptr<const Dictionary> value);
    Value(ObjectPtr value);
    template <typename T>
    requires std::is_base_of_v<Object, T> Value(std::shared_ptr<T> value) : Value(ObjectPtr(std::move(value))) {}
    /// Geometry travels as an array of numbers: [x, y], [w, h], [x, y, w, h].
    Value(Point value);
    Value(Size value);
    Value(const Rect& value);

    bool isAbsent() const { return std::holds_alternative<std::monostate>(state_); }
    bool isNull() const { return std::holds_alternative<Null>(state_); }
    bool isBool() const { return std::holds_alternative<bool>(state_); }
    bool isInteger() const { return std::holds_alternative<std::int64_t>(state_); }
    bool isReal() const { return std::holds_alternative<double>(state_); }
    bool isNumber() const { return isInteger() || isReal(); }
    bool isString() const { return std::holds_alternative<std::string>(state_); }
    bool isDate() const { return std::holds_alternative<Date>(state_); }
    bool isData() const;
    bool isArray() const;
    bool isDictionary() const;
    bool isObject() const { return std::holds_alternative<ObjectPtr>(state_); }

    /// Each answers zero, false, empty or absent for a value of another kind. Numbers and booleans convert; a real
    /// becomes an integer where it is whole and fits.
    bool asBool() const;
    std::int64_t asInteger() const;
    double asReal() const;
    const std::string& asString() const;
    Date asDate() const;
    const Bytes& asData() const;
    const Array& asArray() const;
    const Dictionary& asDictionary() const;
    const ObjectPtr& asObject() const;
    /// The content itself, not a copy; empty for a value of another kind.
    std::shared_ptr<const Bytes> sharedData() const;
    std::shared_ptr<const Array> sharedArray() const;
    std::shared_ptr<const Dictionary> sharedDictionary() const;
    /// An integer or a real, not a boolean.
    std::optional<double> number() const;
    std::optional<std::string> string() const;
    std::optional<Point> point() const;
    std::optional<Size> size() const;
    std::optional<Rect> rect() const;
    template <typename T>
    std::shared_ptr<T> as() const {
        return std::dynamic_pointer_cast<T>(asObject());
    }

    /// The entry of a dictionary, or absent.
    const Value& operator[](std::string_view key) const;

    /// Objects are equal where they are the same object; an integer never equals a real.
    bool operator==(const Value& other) const;

private:
    std::variant<std::monostate, Null, bool, std::int64_t, double, Date, std::string, std::shared_ptr<const Bytes>,
                 std::shared_ptr<const Array>, std::shared_ptr<const Dictionary>, ObjectPtr>
        state_;
};

}  // namespace zor

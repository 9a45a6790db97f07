#pragma once
// Between C++ types and dynamic values, for named properties and actions.

#include <concepts>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/foundation/Object.h"
#include "host/foundation/Value.h"

namespace zor {

/// `to` always succeeds; `from` gives nothing where the value is of another kind.
template <typename T>
struct ValueConversion;

namespace detail {
template <typename T>
struct WithDefault {
    static T orDefault(const Value& value) { return ValueConversion<T>::from(value).value_or(T{}); }
};
}  // namespace detail

template <>
struct ValueConversion<Value> : detail::WithDefault<Value> {
    static Value to(const Value& value) { return value; }
    static std::optional<Value> from(const Value& value) { return value; }
};

template <>
struct ValueConversion<bool> : detail::WithDefault<bool> {
    static Value to(bool value) { return value; }
    static std::optional<bool> from(const Value& value) {
        return value.isBool() ? std::optional(value.asBool()) : std::nullopt;
    }
};

template <std::integral T>
struct ValueConversion<T> : detail::WithDefault<T> {
    static Value to(T value) { return static_cast<std::int64_t>(value); }
    static std::optional<T> from(const Value& value) {
        if (!value.isInteger() || !std::in_range<T>(value.asInteger())) return std::nullopt;
        return static_cast<T>(value.asInteger());
    }
};

template <std::floating_point T>
struct ValueConversion<T> : detail::WithDefault<T> {
    static Value to(T value) { return static_cast<double>(value); }
    static std::optional<T> from(const Value& value) {
        const auto number = value.number();
        return number ? std::optional(static_cast<T>(*number)) : std::nullopt;
    }
};

template <>
struct ValueConversion<std::string> : detail::WithDefault<std::string> {
    static Value to(const std::string& value) { return value; }
    static std::optional<std::string> from(const Value& value) { return value.string(); }
};

namespace detail {
/// Shared content is handed on, not copied; an absent value is an empty pointer.
template <typename Content, std::shared_ptr<const Content> (Value::*content)() const>
struct SharedContent : WithDefault<std::shared_ptr<const Content>> {
    static Value to(const std::shared_ptr<const Content>& value) { return value; }
    static std::optional<std::shared_ptr<const Content>> from(const Value& value) {
        auto shared = (value.*content)();
        return shared || value.isAbsent() ? std::optional(std::move(shared)) : std::nullopt;
    }
};
}  // namespace detail

template <>
struct ValueConversion<std::shared_ptr<const Bytes>> : detail::SharedContent<Bytes, &Value::sharedData> {};

template <>
struct ValueConversion<std::shared_ptr<const Value::Array>> : detail::SharedContent<Value::Array, &Value::sharedArray> {
};

template <>
struct ValueConversion<Point> : detail::WithDefault<Point> {
    static Value to(Point value) { return value; }
    static std::optional<Point> from(const Value& value) { return value.point(); }
};

template <>
struct ValueConversion<Size> : detail::WithDefault<Size> {
    static Value to(Size value) { return value; }
    static std::optional<Size> from(const Value& value) { return value.size(); }
};

template <>
struct ValueConversion<Rect> : detail::WithDefault<Rect> {
    static Value to(const Rect& value) { return value; }
    static std::optional<Rect> from(const Value& value) { return value.rect(); }
};

/// Absent both ways.
template <typename T>
struct ValueConversion<std::optional<T>> : detail::WithDefault<std::optional<T>> {
    static Value to(const std::optional<T>& value) { return value ? ValueConversion<T>::to(*value) : Value(); }
    static std::optional<std::optional<T>> from(const Value& value) {
        std::optional<std::optional<T>> result;
        if (value.isAbsent()) {
            result.emplace();
        } else if (auto inner = ValueConversion<T>::from(value)) {
            result.emplace(std::move(*inner));
        }
        return result;
    }
};

/// An absent value is an empty pointer; an object of another class is refused.
template <std::derived_from<Object> T>
struct ValueConversion<std::shared_ptr<T>> : detail::WithDefault<std::shared_ptr<T>> {
    static Value to(const std::shared_ptr<T>& value) { return Value(value); }
    static std::optional<std::shared_ptr<T>> from(const Value& value) {
        if (value.isAbsent()) return std::shared_ptr<T>();
        auto object = value.as<T>();
        return object ? std::optional(std::move(object)) : std::nullopt;
    }
};

template <typename T>
struct ValueConversion<std::vector<T>> : detail::WithDefault<std::vector<T>> {
    static Value to(const std::vector<T>& values) {
        Value::Array array;
        array.reserve(values.size());
        for (const auto& value : values) array.push_back(ValueConversion<T>::to(value));
        return array;
    }
    static std::optional<std::vector<T>> from(const Value& value) {
        if (!value.isArray()) return std::nullopt;
        std::vector<T> result;
        for (const auto& entry : value.asArray()) {
            auto converted = ValueConversion<T>::from(entry);
            if (!converted) return std::nullopt;
            result.push_back(std::move(*converted));
        }
        return result;
    }
};

}  // namespace zor

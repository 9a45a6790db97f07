#pragma once
// What an object sees of an archive: values by key.

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/foundation/Object.h"

namespace zor {

class Encoder {
public:
    virtual ~Encoder() = default;

    virtual void encodeBool(std::string_view key, bool value) = 0;
    virtual void encodeInteger(std::string_view key, std::int64_t value) = 0;
    virtual void encodeDouble(std::string_view key, double value) = 0;
    /// Rectangles, points and sizes are stored as text with the shortest digits that read back the same.
    virtual void encodeRect(std::string_view key, const Rect& value) = 0;
    virtual void encodePoint(std::string_view key, Point value) = 0;
    virtual void encodeSize(std::string_view key, Size value) = 0;
    /// Any value, absent included; an object met before is stored once and referenced.
    virtual void encodeValue(std::string_view key, const Value& value) = 0;

    template <typename T>
    void encodeObjects(std::string_view key, const std::vector<std::shared_ptr<T>>& objects) {
        encodeValue(key, Value(Value::Array(objects.begin(), objects.end())));
    }
};

class Decoder {
public:
    virtual ~Decoder() = default;

    virtual bool containsValueForKey(std::string_view key) const = 0;
    /// Zero, false or absent where the key is missing or holds another kind; integers serve as booleans and reals.
    virtual bool decodeBool(std::string_view key) = 0;
    virtual std::int64_t decodeInteger(std::string_view key) = 0;
    virtual double decodeDouble(std::string_view key) = 0;
    virtual Rect decodeRect(std::string_view key) = 0;
    virtual Point decodePoint(std::string_view key) = 0;
    virtual Size decodeSize(std::string_view key) = 0;
    virtual Value decodeValue(std::string_view key) = 0;
    /// Nothing where the key is missing.
    virtual std::optional<Value> decodeValueIfPresent(std::string_view key) {
        return containsValueForKey(key) ? std::optional(decodeValue(key)) : std::nullopt;
    }
    /// The reader's side of the archive: what the caller put there, such as the site window controller; may be absent.
    virtual ObjectPtr context(std::string_view name) const = 0;

    std::optional<std::string> decodeString(std::string_view key) { return decodeValue(key).string(); }
    template <typename T>
    std::shared_ptr<T> decodeObject(std::string_view key) {
        return decodeValue(key).as<T>();
    }
    /// The objects of that class in the array under the key, in order; others are left out.
    template <typename T>
    std::vector<std::shared_ptr<T>> decodeObjects(std::string_view key) {
        std::vector<std::shared_ptr<T>> objects;
        const auto array = decodeValueIfPresent(key);
        if (!array) return objects;
        for (const auto& entry : array->asArray()) {
            if (auto object = entry.as<T>()) objects.push_back(std::move(object));
        }
        return objects;
    }
};

}  // namespace zor

#include "app/drive/Json.h"

#include <cmath>

namespace zor {

Json jsonFrom(double number) {
    constexpr double exact = 9007199254740992.0;
    if (std::trunc(number) == number && std::abs(number) < exact && !(number == 0 && std::signbit(number))) {
        return static_cast<std::int64_t>(number);
    }
    return number;
}

Json jsonFrom(Point point) { return Json::array({jsonFrom(point.x), jsonFrom(point.y)}); }

Json jsonFrom(const Rect& rect) {
    return Json::array({jsonFrom(rect.x), jsonFrom(rect.y), jsonFrom(rect.width), jsonFrom(rect.height)});
}

Json jsonFrom(const Value& value) {
    if (value.isBool()) return value.asBool();
    if (value.isInteger()) return value.asInteger();
    if (value.isReal()) return jsonFrom(value.asReal());
    if (value.isString()) return value.asString();
    if (value.isArray()) {
        Json array = Json::array();
        for (const auto& entry : value.asArray()) array.push_back(jsonFrom(entry));
        return array;
    }
    if (value.isDictionary()) {
        Json object = Json::object();
        for (const auto& [key, entry] : value.asDictionary()) object[key] = jsonFrom(entry);
        return object;
    }
    return nullptr;
}

Value valueFrom(const Json& json) {
    if (json.is_boolean()) return json.get<bool>();
    if (json.is_number_integer() && !json.is_number_unsigned()) return json.get<std::int64_t>();
    if (json.is_number_unsigned()) {
        const auto number = json.get<std::uint64_t>();
        if (std::in_range<std::int64_t>(number)) return static_cast<std::int64_t>(number);
        return static_cast<double>(number);
    }
    if (json.is_number()) return json.get<double>();
    if (json.is_string()) return json.get<std::string>();
    if (json.is_array()) {
        Value::Array array;
        for (const auto& entry : json) array.push_back(valueFrom(entry));
        return array;
    }
    if (json.is_object()) {
        Value::Dictionary dictionary;
        for (const auto& [key, entry] : json.items()) dictionary[key] = valueFrom(entry);
        return dictionary;
    }
    return {};
}

Json jsonFromLine(const std::string& line) {
    constexpr int deepest = 100;
    bool isTooDeep = false;
    Json json = Json::parse(
        line,
        [&isTooDeep](int depth, Json::parse_event_t, Json&) {
            isTooDeep = isTooDeep || depth > deepest;
            return !isTooDeep;
        },
        false);
    if (isTooDeep) throw LineError{"line", "is nested too deeply"};
    return json;
}

std::string lineOf(const Json& json) { return json.dump(-1, ' ', false, Json::error_handler_t::replace); }

void Fields::refuse(const std::string& key, const std::string& fault) const { throw LineError{path_ + key, fault}; }

const Json& Fields::raw(const char* key) const {
    if (!object_.contains(key)) refuse(key, "is missing");
    return object_[key];
}

std::string Fields::string(const char* key) const {
    const Json& json = raw(key);
    if (!json.is_string()) refuse(key, "must be a text");
    return json.get<std::string>();
}

std::optional<std::string> Fields::optionalString(const char* key) const {
    return has(key) ? std::optional(string(key)) : std::nullopt;
}

double Fields::number(const char* key) const {
    const Json& json = raw(key);
    if (!json.is_number()) refuse(key, "must be a number");
    return json.get<double>();
}

std::int64_t Fields::integer(const char* key) const {
    const Value value = valueFrom(raw(key));
    if (value.isInteger()) return value.asInteger();
    if (value.isReal() && std::trunc(value.asReal()) == value.asReal() && std::abs(value.asReal()) < 9e15) {
        return static_cast<std::int64_t>(value.asReal());
    }
    refuse(key, "must be a whole number");
}

std::int64_t Fields::integer(const char* key, std::int64_t fallback) const {
    return names(key) ? integer(key) : fallback;
}

bool Fields::boolean(const char* key) const {
    const Json& json = raw(key);
    if (!json.is_boolean()) refuse(key, "must be true or false");
    return json.get<bool>();
}

std::vector<double> Fields::numbers(const char* key, std::size_t count, const char* shape) const {
    const Json& json = raw(key);
    const std::string fault = std::string("must be ") + shape;
    if (!json.is_array() || json.size() != count) refuse(key, fault);
    std::vector<double> numbers;
    for (const auto& entry : json) {
        if (!entry.is_number()) refuse(key, fault);
        numbers.push_back(entry.get<double>());
    }
    return numbers;
}

Point Fields::point(const char* key) const {
    const auto n = numbers(key, 2, "[x, y]");
    return {n[0], n[1]};
}

Size Fields::size(const char* key) const {
    const auto n = numbers(key, 2, "[width, height]");
    return {n[0], n[1]};
}

Rect Fields::rect(const char* key) const {
    const auto n = numbers(key, 4, "[x, y, width, height]");
    return {n[0], n[1], n[2], n[3]};
}

std::vector<std::string> Fields::strings(const char* key) const {
    const Json& json = raw(key);
    if (!json.is_array()) refuse(key, "must be a list of texts");
    std::vector<std::string> texts;
    for (const auto& entry : json) {
        if (!entry.is_string()) refuse(key, "must be a list of texts");
        texts.push_back(entry.get<std::string>());
    }
    return texts;
}

Fields Fields::object(const char* key) const {
    const Json& json = raw(key);
    if (!json.is_object()) refuse(key, "must be an object");
    return Fields(json, path_ + key + ".");
}

std::vector<Fields> Fields::objects(const char* key) const {
    const Json& json = raw(key);
    if (!json.is_array()) refuse(key, "must be a list of objects");
    std::vector<Fields> all;
    for (std::size_t index = 0; index < json.size(); ++index) {
        const std::string name = std::string(key) + "[" + std::to_string(index) + "]";
        if (!json[index].is_object()) refuse(name, "must be an object");
        all.emplace_back(json[index], path_ + name + ".");
    }
    return all;
}

std::vector<std::string> Fields::keys() const {
    std::vector<std::string> names;
    for (const auto& [key, value] : object_.items()) names.push_back(key);
    return names;
}

}  // namespace zor

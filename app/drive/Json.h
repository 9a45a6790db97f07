#pragma once
// JSON for scripts: one object per line in, one out.

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "host/foundation/Result.h"
#include "host/foundation/Value.h"

namespace zor {

using Json = nlohmann::ordered_json;

/// Numbers read back as the same 64-bit float; objects and absent values become null.
Json jsonFrom(const Value& value);
Json jsonFrom(double number);
Json jsonFrom(Point point);
Json jsonFrom(const Rect& rect);
/// null becomes an absent value.
Value valueFrom(const Json& json);
/// What a line holds, or a discarded value where it is not JSON. Throws LineError where lists and objects are nested so
/// deeply that working on them could use up the stack.
Json jsonFromLine(const std::string& line);
/// One line without its end; text that is not UTF-8 is mended.
std::string lineOf(const Json& json);

/// A line that cannot be carried out: what is wrong with which key. Caught where lines are answered.
struct LineError {
    std::string key;
    std::string fault;
};

/// The keys of a line or of an object inside it, read with their kinds checked. Every failure throws LineError with
/// the key's path.
class Fields {
public:
    explicit Fields(const Json& object, std::string path = {}) : object_(object), path_(std::move(path)) {}

    bool has(const char* key) const { return object_.contains(key) && !object_[key].is_null(); }
    /// Present, null included.
    bool names(const char* key) const { return object_.contains(key); }
    const Json& raw(const char* key) const;
    std::string string(const char* key) const;
    std::optional<std::string> optionalString(const char* key) const;
    double number(const char* key) const;
    std::int64_t integer(const char* key) const;
    std::int64_t integer(const char* key, std::int64_t fallback) const;
    bool boolean(const char* key) const;
    Point point(const char* key) const;
    Size size(const char* key) const;
    Rect rect(const char* key) const;
    std::vector<std::string> strings(const char* key) const;
    /// An object, or an array of objects, below the key.
    Fields object(const char* key) const;
    std::vector<Fields> objects(const char* key) const;
    std::vector<std::string> keys() const;

    [[noreturn]] void refuse(const std::string& key, const std::string& fault) const;

private:
    std::vector<double> numbers(const char* key, std::size_t count, const char* shape) const;

    const Json& object_;
    std::string path_;
};

}  // namespace zor

#pragma once
// The root of every class that the registry knows: archived, asked for named properties, sent named actions.

#include <concepts>
#include <memory>
#include <span>
#include <string_view>
#include <type_traits>

#include "host/foundation/ClassRecord.h"
#include "host/foundation/Value.h"

namespace zor {

class Encoder;
class Decoder;

class Object : public std::enable_shared_from_this<Object> {
public:
    Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object() = default;

    static const ClassRecord& staticClass();
    /// The record of the object's own class.
    virtual const ClassRecord& classRecord() const { return staticClass(); }
    bool isKindOf(const ClassRecord& record) const { return classRecord().isKindOf(record); }

    /// Writes the object's values by key; an override runs its base class's first.
    virtual void encodeWithCoder(Encoder&) {}
    /// Fills a freshly made object from an archive; false gives nothing in the object's place.
    virtual bool initWithCoder(Decoder&) { return true; }
    /// An independent copy of a copyable class, otherwise empty.
    virtual ObjectPtr copy() { return {}; }

    /// The value of a named property, absent where the class declares none of that name.
    Value valueForKey(std::string_view name) const;
    /// Whether the class declares that property with a setter which took the value.
    bool setValueForKey(std::string_view name, const Value& value);
    /// Whether the class declares the action.
    bool respondsTo(std::string_view action) const { return classRecord().action(action) != nullptr; }
    /// Performs the action and gives its result; absent where the class declares none of that name.
    Value perform(std::string_view action, std::span<const Value> arguments = {});
    Value performWithSender(std::string_view action, const ObjectPtr& sender);

protected:
    template <typename T>
    std::shared_ptr<T> sharedAs() {
        return std::static_pointer_cast<T>(shared_from_this());
    }
};

/// Asks an object that may be absent: its answer, or the zero answer of the same kind.
/// Telling an absent object something does nothing.
template <typename Pointer, typename Question>
auto ask(const Pointer& object, Question&& question) {
    using Answer = std::remove_cvref_t<decltype(question(*object))>;
    if constexpr (std::is_void_v<Answer>) {
        if (object) question(*object);
    } else {
        return object ? Answer(question(*object)) : Answer{};
    }
}

}  // namespace zor

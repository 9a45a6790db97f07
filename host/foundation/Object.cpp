#include "host/foundation/Object.h"

#include "host/foundation/ClassBuilder.h"

namespace zor {

const ClassRecord& Object::staticClass() {
    static const ClassRecord& record = ClassBuilder<Object>("Object", nullptr).registered();
    return record;
}

Value Object::valueForKey(std::string_view name) const {
    const auto* property = classRecord().property(name);
    return property ? property->get(*this) : Value();
}

bool Object::setValueForKey(std::string_view name, const Value& value) {
    const auto* property = classRecord().property(name);
    return property && property->set && property->set(*this, value);
}

Value Object::perform(std::string_view action, std::span<const Value> arguments) {
    const auto* record = classRecord().action(action);
    return record ? record->perform(*this, arguments) : Value();
}

Value Object::performWithSender(std::string_view action, const ObjectPtr& sender) {
    const Value argument(sender);
    return perform(action, {&argument, 1});
}

}  // namespace zor

// A module whose classes register while it is loaded.

#include "host/foundation/ClassBuilder.h"

namespace {

using namespace zor;

class StaticPlugIn : public Object {
public:
    static const ClassRecord& staticClass() {
        static const ClassRecord& record = ClassBuilder<StaticPlugIn>("StaticPlugIn", &Object::staticClass())
                                               .creatable()
                                               .property("greeting", &StaticPlugIn::greeting)
                                               .registered();
        return record;
    }
    const ClassRecord& classRecord() const override { return staticClass(); }
    std::string greeting() const { return "hello from the module"; }
};

class StaticDocument : public StaticPlugIn {
public:
    static const ClassRecord& staticClass() {
        static const ClassRecord& record =
            ClassBuilder<StaticDocument>("StaticDocument", &StaticPlugIn::staticClass()).creatable().registered();
        return record;
    }
    const ClassRecord& classRecord() const override { return staticClass(); }
};

[[maybe_unused]] const bool registered = StaticDocument::staticClass().isCreatable();

}  // namespace

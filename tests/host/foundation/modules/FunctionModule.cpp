// A module that registers its classes when it is asked to.

#include "host/foundation/ClassBuilder.h"

namespace {

using namespace zor;

class FunctionPlugIn : public Object {};

}  // namespace

extern "C" void zorRegisterClasses() {
    ClassBuilder<FunctionPlugIn>("FunctionPlugIn", &Object::staticClass()).creatable().registered();
    ClassBuilder<FunctionPlugIn>("FunctionDocument", &Object::staticClass()).creatable().registered();
}

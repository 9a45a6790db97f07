#pragma once

namespace zor {

class Object;

/// Deletes an object. Objects that hold one another in a long chain are deleted one after the other instead of one
/// inside the other, so that no file can make a chain whose end exhausts the stack.
struct FlatDelete {
    void operator()(Object* object) const;
};

}  // namespace zor

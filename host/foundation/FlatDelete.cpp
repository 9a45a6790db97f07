#include "host/foundation/FlatDelete.h"

#include <vector>

#include "host/foundation/Object.h"

namespace zor {

namespace {

/// Deeper inside of each other than any sensible structure nests, objects wait for their turn.
constexpr int deepestInside = 1000;

/// Plain data, so that objects which outlive their thread's locals still find it.
thread_local int level = 0;
thread_local std::vector<Object*>* waiting = nullptr;

}  // namespace

void FlatDelete::operator()(Object* object) const {
    if (level == deepestInside) {
        waiting->push_back(object);
        return;
    }
    const bool isOutermost = level == 0;
    std::vector<Object*> own;
    if (isOutermost) waiting = &own;
    ++level;
    delete object;
    while (isOutermost && !own.empty()) {
        Object* next = own.back();
        own.pop_back();
        delete next;
    }
    --level;
}

}  // namespace zor

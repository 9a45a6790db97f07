#include "host/views/ControlColors.h"

namespace zor {

namespace {

ControlColors& shared() {
    static ControlColors colors;
    return colors;
}

}  // namespace

const ControlColors& ControlColors::current() {
    return shared();
}

void ControlColors::setCurrent(const ControlColors& colors) {
    shared() = colors;
}

}  // namespace zor

#include "host/views/Toolkit.h"

#include <cstdlib>

#include "host/foundation/Log.h"

namespace zor {

namespace {

std::unique_ptr<Toolkit>& installed() {
    static std::unique_ptr<Toolkit> toolkit;
    return toolkit;
}

}  // namespace

Toolkit& Toolkit::current() {
    if (!installed()) {
        logLine("Toolkit: none is installed");
        std::abort();
    }
    return *installed();
}

void Toolkit::install(std::unique_ptr<Toolkit> toolkit) {
    installed() = std::move(toolkit);
}

}  // namespace zor

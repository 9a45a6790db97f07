#include "host/station/ZORKit.h"

#include <string>

#include "host/foundation/Log.h"
#include "host/views/Toolkit.h"

namespace zor::ZORKit {

void activateFont(std::string_view name, const std::shared_ptr<Bundle>& bundle) {
    const auto file = bundle ? bundle->pathForResource(name, "ttf") : std::nullopt;
    const Status activated =
        file ? Toolkit::current().activateFont(*file) : Status(Error{"the bundle has no such font"});
    if (!activated) logLine("font " + std::string(name) + ": " + activated.error().message);
}

}  // namespace zor::ZORKit

#include "host/station/ZORHelpManager.h"

#include "host/views/Toolkit.h"

namespace zor {

ZORHelpManager& ZORHelpManager::sharedHelpManager() {
    static ZORHelpManager manager;
    return manager;
}

void ZORHelpManager::openHelpAnchor(std::string_view anchor) {
    lastAnchor_ = anchor;
    Toolkit::current().openHelp(anchor);
}

}  // namespace zor

#include "host/station/StationClasses.h"

#include "host/station/SiteDocument.h"
#include "host/station/ZORPropertyPanelController.h"

namespace zor {

void registerStationClasses() {
    Agent::staticClass();
    Property::staticClass();
    SiteDocument::staticClass();
    SiteWindowController::staticClass();
    WindowController::staticClass();
    ZORPlugIn::staticClass();
    ZORPropertyPanelController::staticClass();
}

}  // namespace zor

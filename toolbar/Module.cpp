// The way into the loadable module: the host calls this once, when it has loaded the bundle.

#include "toolbar/ZORDashboardListView.h"
#include "toolbar/ZORDashboardPreviewView.h"

extern "C" __attribute__((visibility("default"))) void zorRegisterClasses() {
    zor::ZORDashboardEditView::staticClass();
    zor::ZORDashboardPlugIn::staticClass();
    zor::ZORDashboardToolbarPlugIn::staticClass();
    zor::ZORDashboardListView::staticClass();
    zor::ZORDashboardPreviewView::staticClass();
}

#include "host/instruments/InstrumentClasses.h"

#include "host/foundation/FoundationClasses.h"
#include "host/instruments/ZORBoxView.h"
#include "host/instruments/ZORDateTimeFieldView.h"
#include "host/instruments/ZORImageView.h"
#include "host/instruments/ZORLEDView.h"
#include "host/instruments/ZORLevelIndicatorView.h"
#include "host/instruments/ZORLinearGaugeView.h"
#include "host/instruments/ZORMapView.h"
#include "host/instruments/ZORPlotView.h"
#include "host/instruments/ZORRoundGaugeView.h"
#include "host/instruments/ZORTextFieldView.h"
#include "host/instruments/ZORWebView.h"
#include "host/instruments/ZORWidgetHostView.h"
#include "host/station/StationClasses.h"
#include "host/views/ViewsClasses.h"

namespace zor {

void registerInstrumentClasses() {
    registerFoundationClasses();
    registerViewsClasses();
    registerStationClasses();
    ZORWidgetHostView::staticClass();
    ZORTextFieldView::staticClass();
    ZORDateTimeFieldView::staticClass();
    ZORBoxView::staticClass();
    ZORImageView::staticClass();
    ZORLEDView::staticClass();
    ZORMapView::staticClass();
    ZORWebView::staticClass();
    ZORPlotView::staticClass();
    ZORLevelIndicatorView::staticClass();
    ZORRoundGaugeView::staticClass();
    ZORLinearGaugeView::staticClass();
}

}  // namespace zor

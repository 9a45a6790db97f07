#include "host/instruments/ZORBoxView.h"

#include "host/foundation/ClassBuilder.h"
#include "host/instruments/InstrumentDrawing.h"

namespace zor {

const ClassRecord& ZORBoxView::staticClass() {
    using Self = ZORBoxView;
    static const ClassRecord& record = ClassBuilder<Self>("ZORBoxView", &ZORInstrumentView::staticClass())
                                           .creatable()
                                           .property("fillColor", &Self::fillColor, &Self::setFillColor)
                                           .property("borderColor", &Self::borderColor, &Self::setBorderColor)
                                           .property("borderWidth", &Self::borderWidth, &Self::setBorderWidth)
                                           .property("cornerRadius", &Self::cornerRadius, &Self::setCornerRadius)
                                           .registered();
    return record;
}

const SettingList& ZORBoxView::settings() const {
    static const SettingList list = SettingsBuilder(staticClass(), ZORInstrumentView::settings())
                                        .add("fillColor", "Fill Color", SettingKind::color)
                                        .add("borderColor", "Border Color", SettingKind::color)
                                        .number("borderWidth", "Border Width", 0, largestBorderWidth, "pt")
                                        .number("cornerRadius", "Corner Radius", 0, largestCornerRadius, "pt")
                                        .build();
    return list;
}

void ZORBoxView::drawRect(DrawingContext& context, const Rect&) {
    if (isVisibleArea(bounds())) drawCard(context, bounds(), cornerRadius_, fillColor_, borderColor_, borderWidth_);
}

}  // namespace zor

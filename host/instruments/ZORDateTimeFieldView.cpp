#include "host/instruments/ZORDateTimeFieldView.h"

#include "host/foundation/ClassBuilder.h"
#include "host/instruments/DateFormat.h"
#include "host/instruments/InstrumentSettings.h"
#include "host/station/ValueFormats.h"

namespace zor {

const ClassRecord& ZORDateTimeFieldView::staticClass() {
    using Self = ZORDateTimeFieldView;
    static const ClassRecord& record = ClassBuilder<Self>("ZORDateTimeFieldView", &TextInstrumentView::staticClass())
                                           .creatable()
                                           .property("dateFormat", &Self::dateFormat, &Self::setDateFormat)
                                           .registered();
    return record;
}

ZORDateTimeFieldView::ZORDateTimeFieldView() {
    setFont({.size = 14});
    setUseProperty(false);
}

const SettingList& ZORDateTimeFieldView::settings() const {
    static const SettingList list = SettingsBuilder(staticClass(), TextInstrumentView::settings())
                                        .add("dateFormat", "Date Format", SettingKind::dateFormat)
                                        .build();
    return list;
}

std::optional<std::string> ZORDateTimeFieldView::text() const {
    std::optional<Seconds> moment = stationTime();
    if (useProperty() && lastPropertyName()) {
        // A property starts at the reference time, before it has ever been received.
        moment = property() && property()->receivedAt() > 0 ? std::optional(property()->receivedAt()) : std::nullopt;
    }
    const auto date = moment ? localDateParts(*moment) : std::nullopt;
    return date ? formatDate(dateFormat_, *date) : std::string(missingValueText);
}

}  // namespace zor

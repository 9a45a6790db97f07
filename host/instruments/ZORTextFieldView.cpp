#include "host/instruments/ZORTextFieldView.h"

#include "host/foundation/ClassBuilder.h"
#include "host/instruments/InstrumentSettings.h"

namespace zor {

namespace {

std::vector<std::pair<Value, std::string>> formatChoices() {
    std::vector<std::pair<Value, std::string>> choices;
    for (const auto& format : valueFormats()) choices.emplace_back(format.name, format.displayName);
    return choices;
}

}  // namespace

const ClassRecord& ZORTextFieldView::staticClass() {
    using Self = ZORTextFieldView;
    static const ClassRecord& record = ClassBuilder<Self>("ZORTextFieldView", &TextInstrumentView::staticClass())
                                           .creatable()
                                           .property("stringToDraw", &Self::stringToDraw, &Self::setStringToDraw)
                                           .property("propertyFormat", &Self::propertyFormat, &Self::setPropertyFormat)
                                           .registered();
    return record;
}

const SettingList& ZORTextFieldView::settings() const {
    static const SettingList list = SettingsBuilder(staticClass(), TextInstrumentView::settings())
                                        .add("stringToDraw", "Text", SettingKind::text)
                                        .choice("propertyFormat", "Format", SettingKind::numberFormat, formatChoices())
                                        .build();
    return list;
}

std::optional<std::string> ZORTextFieldView::text() const {
    if (useProperty() && property()) return property()->stringForFormat(propertyFormat_);
    const bool wasLinked = lastPropertyName().has_value();
    if (useProperty() && (wasLinked || stringToDraw_.empty())) return std::string(missingValueText);
    return stringToDraw_;
}

}  // namespace zor

#include "host/instruments/TextInstrumentView.h"

#include "host/foundation/ClassBuilder.h"
#include "host/instruments/InstrumentDrawing.h"
#include "host/instruments/InstrumentSettings.h"

namespace zor {

const ClassRecord& TextInstrumentView::staticClass() {
    using Self = TextInstrumentView;
    static const ClassRecord& record = ClassBuilder<Self>("TextInstrumentView", &LinkedInstrumentView::staticClass())
                                           .property("font", &Self::font, &Self::setFont)
                                           .property("alignment", &Self::alignment, &Self::setAlignment)
                                           .property("textColor", &Self::textColor, &Self::setTextColor)
                                           .property("useProperty", &Self::useProperty, &Self::setUseProperty)
                                           .registered();
    return record;
}

const SettingList& TextInstrumentView::settings() const {
    static const SettingList list = SettingsBuilder(staticClass(), LinkedInstrumentView::settings())
                                        .add("useProperty", "Show Property", SettingKind::boolean)
                                        .font("font", "Font", &TextInstrumentView::setFont)
                                        .add("alignment", "Alignment", SettingKind::alignment)
                                        .add("textColor", "Text Color", SettingKind::color)
                                        .build();
    return list;
}

void TextInstrumentView::setFont(Font font) {
    if (!isUsableFont(font)) return;
    store(font_, std::move(font));
}

void TextInstrumentView::drawRect(DrawingContext& context, const Rect&) {
    if (!isVisibleArea(bounds())) return;
    drawFittedText(context, text().value_or(std::string()), bounds(), font_, textColor_, alignment_);
}

}  // namespace zor

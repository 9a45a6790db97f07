#include "host/instruments/ZORTextFieldView.h"

#include <algorithm>

#include "host/foundation/ClassBuilder.h"
#include "host/instruments/InstrumentDrawing.h"
#include "host/instruments/InstrumentSettings.h"
#include "host/views/Toolkit.h"

namespace zor {

namespace {

std::vector<std::pair<Value, std::string>> formatChoices() {
    std::vector<std::pair<Value, std::string>> choices;
    for (const auto& format : valueFormats()) choices.emplace_back(format.name, format.displayName);
    return choices;
}

/// Between a number and its unit, as a part of the unit's font size.
constexpr double unitGap = 0.25;

double shareOfRoomBefore(TextAlignment alignment) {
    switch (alignment) {
        case TextAlignment::left:
            return 0;
        case TextAlignment::center:
            return 0.5;
        case TextAlignment::right:
            return 1;
    }
    return 0;
}

/// Two texts on one line, aligned as one, in their fonts or as much smaller as the rectangle demands.
void drawNumberWithUnit(DrawingContext& context, std::string_view number, Font numberFont, std::string_view unit,
                        Font unitFont, const Rect& rect, Color color, TextAlignment alignment) {
    auto& toolkit = Toolkit::current();
    const auto widthOfBoth = [&] {
        return toolkit.sizeOfText(number, numberFont).width + unitGap * unitFont.size +
               toolkit.sizeOfText(unit, unitFont).width;
    };
    const auto ascentOf = [&](const Font& font) { return toolkit.metricsOfFont(font).ascent; };
    const auto descentOf = [&](const Font& font) { return toolkit.metricsOfFont(font).descent; };
    const auto ascent = [&] { return std::max(ascentOf(numberFont), ascentOf(unitFont)); };
    const auto height = [&] { return ascent() + std::max(descentOf(numberFont), descentOf(unitFont)); };
    if (!(height() > 0)) return;
    const double share = std::min({1.0, rect.width / widthOfBoth(), rect.height / height()});
    numberFont.size *= share;
    unitFont.size *= share;

    const double width = widthOfBoth();
    const double left = rect.x + (rect.width - width) * shareOfRoomBefore(alignment);
    const double baseline = rect.center().y - height() / 2 + ascent();
    const auto draw = [&](std::string_view text, const Font& font, TextAlignment side) {
        const Rect line{left, baseline - ascentOf(font), width, ascentOf(font) + descentOf(font)};
        context.drawText(text, line, font, color, side);
    };
    draw(number, numberFont, TextAlignment::left);
    draw(unit, unitFont, TextAlignment::right);
}

}  // namespace

const ClassRecord& ZORTextFieldView::staticClass() {
    using Self = ZORTextFieldView;
    static const ClassRecord& record = ClassBuilder<Self>("ZORTextFieldView", &TextInstrumentView::staticClass())
                                           .creatable()
                                           .property("stringToDraw", &Self::stringToDraw, &Self::setStringToDraw)
                                           .property("propertyFormat", &Self::propertyFormat, &Self::setPropertyFormat)
                                           .property("separateUnit", &Self::separateUnit, &Self::setSeparateUnit)
                                           .property("unitFont", &Self::unitFont, &Self::setUnitFont)
                                           .registered();
    return record;
}

const SettingList& ZORTextFieldView::settings() const {
    static const SettingList list = SettingsBuilder(staticClass(), TextInstrumentView::settings())
                                        .add("stringToDraw", "Text", SettingKind::text)
                                        .choice("propertyFormat", "Format", SettingKind::numberFormat, formatChoices())
                                        .add("separateUnit", "Unit in Its Own Font", SettingKind::boolean)
                                        .font("unitFont", "Unit Font", &ZORTextFieldView::setUnitFont)
                                        .build();
    return list;
}

std::optional<std::string> ZORTextFieldView::text() const {
    if (useProperty() && property()) return property()->stringForFormat(propertyFormat_);
    const bool wasLinked = lastPropertyName().has_value();
    if (useProperty() && (wasLinked || stringToDraw_.empty())) return std::string(missingValueText);
    return stringToDraw_;
}

void ZORTextFieldView::setUnitFont(Font font) {
    if (isUsableFont(font)) store(unitFont_, std::move(font));
}

bool ZORTextFieldView::showsSeparateUnit() const {
    return separateUnit_ && useProperty() && currentValue() && propertyFormat_ == valueWithShortUnitFormat &&
           !property()->unit().shortName.empty();
}

void ZORTextFieldView::drawRect(DrawingContext& context, const Rect& dirty) {
    if (!showsSeparateUnit()) return TextInstrumentView::drawRect(context, dirty);
    if (!isVisibleArea(bounds())) return;
    drawNumberWithUnit(context, property()->stringForFormat(plainValueFormat), font(), property()->unit().shortName,
                       unitFont_, bounds(), textColor(), alignment());
}

}  // namespace zor

#pragma once

#include "host/instruments/TextInstrumentView.h"
#include "host/station/ValueFormats.h"

namespace zor {

/// A line of text: a fixed one, or the value of its property.
class ZORTextFieldView : public TextInstrumentView {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }
    using TextInstrumentView::TextInstrumentView;

    std::string kind() const override { return "textField"; }
    const SettingList& settings() const override;
    /// The fixed text where no property is used. Otherwise the property's value, "--" without one; a field that never
    /// was linked shows its fixed text until then, so that a new label reads as one.
    std::optional<std::string> text() const override;

    std::string stringToDraw() const { return stringToDraw_; }
    void setStringToDraw(std::string text) { store(stringToDraw_, std::move(text)); }
    /// The name of a value format (ValueFormats.h).
    std::string propertyFormat() const { return propertyFormat_; }
    void setPropertyFormat(std::string format) { store(propertyFormat_, std::move(format)); }
    /// Whether a value's short unit has a font of its own, on the number's line.
    bool separateUnit() const { return separateUnit_; }
    void setSeparateUnit(bool separate) { store(separateUnit_, separate); }
    /// Made smaller together with the text's.
    Font unitFont() const { return unitFont_; }
    void setUnitFont(Font font);

    void drawRect(DrawingContext& context, const Rect& dirty) override;

private:
    bool showsSeparateUnit() const;

    std::string stringToDraw_ = "Label";
    std::string propertyFormat_{valueWithShortUnitFormat};
    bool separateUnit_ = false;
    Font unitFont_{.family = "Helvetica Neue", .size = 14};
};

}  // namespace zor

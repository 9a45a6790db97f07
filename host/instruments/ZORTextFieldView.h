#pragma once

#include "host/foundation/Color.h"
#include "host/foundation/Font.h"
#include "host/instruments/ZORInstrumentView.h"
#include "host/views/DrawingContext.h"

namespace zor {

/// A line of text: a fixed one, or the value of its property.
class ZORTextFieldView : public LinkedInstrumentView {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }
    using LinkedInstrumentView::LinkedInstrumentView;

    std::string kind() const override { return "textField"; }
    const SettingList& settings() const override;
    std::optional<std::string> text() const override;

    Font font() const { return font_; }
    void setFont(Font font);
    TextAlignment alignment() const { return alignment_; }
    void setAlignment(TextAlignment alignment);
    /// Whether it shows the property's value rather than the fixed text.
    bool useProperty() const { return useProperty_; }
    void setUseProperty(bool use);
    std::string stringToDraw() const { return stringToDraw_; }
    void setStringToDraw(std::string text);
    /// The name of a value format (ValueFormats.h).
    std::string propertyFormat() const { return propertyFormat_; }
    void setPropertyFormat(std::string format);
    Color textColor() const { return textColor_; }
    void setTextColor(Color color);

    void drawRect(DrawingContext& context, const Rect& dirty) override;

private:
    Font font_{.family = "Helvetica Neue", .size = 24};
    TextAlignment alignment_ = TextAlignment::left;
    Color textColor_ = Color::rgb(0x1d1d1f);
    std::string stringToDraw_ = "Label";
    std::string propertyFormat_ = "unitStringValueWithUnitShort";
    bool useProperty_ = true;
};

}  // namespace zor

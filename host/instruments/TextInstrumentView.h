#pragma once

#include "host/foundation/Color.h"
#include "host/foundation/Font.h"
#include "host/instruments/ZORInstrumentView.h"
#include "host/views/DrawingContext.h"

namespace zor {

/// An instrument that is one line of text, vertically centred, made smaller where its frame is too small for it.
class TextInstrumentView : public LinkedInstrumentView {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }
    using LinkedInstrumentView::LinkedInstrumentView;

    const SettingList& settings() const override;

    Font font() const { return font_; }
    /// A font without family or of a size that is not usable is ignored.
    void setFont(Font font);
    TextAlignment alignment() const { return alignment_; }
    void setAlignment(TextAlignment alignment) { store(alignment_, alignment); }
    Color textColor() const { return textColor_; }
    void setTextColor(Color color) { store(textColor_, color); }
    /// Whether it shows its property rather than what it shows by itself.
    bool useProperty() const { return useProperty_; }
    void setUseProperty(bool use) { store(useProperty_, use); }

    void drawRect(DrawingContext& context, const Rect& dirty) override;

private:
    Font font_{.family = "Helvetica Neue", .size = 24};
    TextAlignment alignment_ = TextAlignment::left;
    Color textColor_ = Color::rgb(0x1d1d1f);
    bool useProperty_ = true;
};

}  // namespace zor

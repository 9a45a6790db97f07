#pragma once

#include "host/instruments/TextInstrumentView.h"

namespace zor {

/// The time of day, or the time at which its property was last received.
class ZORDateTimeFieldView : public TextInstrumentView {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }
    /// Smaller than a text field, since a whole date is long, and showing the clock.
    ZORDateTimeFieldView();

    std::string kind() const override { return "dateTimeField"; }
    const SettingList& settings() const override;
    /// Where a property is used: when it was received, also where that is long ago; "--" where it never was. A field
    /// that never was linked shows the clock.
    std::optional<std::string> text() const override;

    /// A pattern of Unicode date field letters (DateFormat.h).
    std::string dateFormat() const { return dateFormat_; }
    void setDateFormat(std::string pattern) { store(dateFormat_, std::move(pattern)); }

private:
    std::string dateFormat_ = "EEEE, d MMMM yyyy HH:mm";
};

}  // namespace zor

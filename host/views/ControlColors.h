#pragma once

#include "host/foundation/Color.h"

namespace zor {

/// What controls and forms are drawn with. A toolkit sets them to the colours of the windows around, light or dark;
/// until then they are light ones.
struct ControlColors {
    /// Behind a form.
    Color ground = Color::rgb(0xF3F4F7);
    /// Behind a list.
    Color field = Color::white();
    /// Of a button.
    Color face = Color::white();
    Color edge = Color::rgb(0xCDD0D7);
    Color text = Color::rgb(0x1E2229);
    /// Of what stands back behind the text.
    Color quiet = Color::rgb(0x6B7280);
    /// Of what is selected, and of the button that Return clicks.
    Color accent = Color::rgb(0x2F6FDE);
    Color onAccent = Color::white();

    static const ControlColors& current();
    /// Whoever sets them has what is shown drawn again.
    static void setCurrent(const ControlColors& colors);
};

}  // namespace zor

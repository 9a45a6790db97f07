#pragma once

#include "host/foundation/Color.h"

namespace zor {

/// Colours that can be read on a ground.
struct Inks {
    Color ink;
    Color secondary;
    /// For lines that should be felt rather than seen.
    Color hairline;
    /// The empty part of a bar.
    Color track;
};

/// Whether light inks are read better on it; what shows through is taken for white paper.
bool isDark(Color ground);
/// Dark inks on a light or see-through ground, light ones with a tint of it on a dark ground.
Inks inksOn(Color ground);

}  // namespace zor

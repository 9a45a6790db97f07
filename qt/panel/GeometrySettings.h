#pragma once

#include "host/station/Settings.h"

namespace zor {

/// Place and size of a widget on its canvas, in points.
const SettingList& geometrySettings();

}  // namespace zor

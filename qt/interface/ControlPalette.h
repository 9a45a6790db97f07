#pragma once

namespace zor {

/// From now on the host's controls have the colours of the application's palette, also after it changes. Needs a
/// QGuiApplication; more calls change nothing.
void followApplicationPalette();

}  // namespace zor

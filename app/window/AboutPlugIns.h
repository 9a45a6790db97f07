#pragma once

namespace zor {

class SiteWindow;

/// Shows the plug-ins of the window's document with their own descriptions, and those that could not be loaded.
void showAboutPlugIns(SiteWindow& window);

}  // namespace zor

#pragma once

#include <memory>

namespace zor {

class SiteWindow;
class ZORPlugIn;

/// Shows a dashboard of the site in a window of its own as well, in which the keys of the site window's menus work.
void openSeparateWindow(SiteWindow& site, const std::shared_ptr<ZORPlugIn>& dashboard);

}  // namespace zor

#pragma once
// Texts and pictures that plug-ins take from their bundle.

#include <memory>
#include <string>
#include <string_view>

#include "host/foundation/Image.h"

namespace zor {

class ZORPlugIn;

/// "<tr><th colspan=2 align=center>NAME - Version V (N)</th></tr>" with the bundle's "CFBundleShortVersionString" and
/// version number; the platform's "(null)" where the class has no bundle.
std::string htmlVersionRow(const ZORPlugIn& plugIn, std::string_view name);
/// The PNG resource of that name in the plug-in's bundle at its own size, or none.
std::shared_ptr<Image> imageResource(const ZORPlugIn& plugIn, std::string_view name);

}  // namespace zor

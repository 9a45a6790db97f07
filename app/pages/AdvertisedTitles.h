#pragma once

#include <string_view>
#include <vector>

#include "app/pages/Advertisement.h"

namespace zor {

/// For every byte of an advertisement: whether it belongs to the title or identifier of a listed plug-in, and so is
/// text and no markup.
///
/// A plug-in writes titles between its markup as they are, and a title may look like markup. Where a link leads to a
/// listed plug-in, its title is known exactly: what follows the link's tag, whatever it says. Elsewhere a title with a
/// "<" counts wherever it occurs outside those links, unless the plug-in has its link and the title is nothing but
/// tags: "<h2>" then stands for the advertisement's own headings far more likely than for the title.
std::vector<bool> titleBytes(std::string_view html, const AdvertisementSource& source);

}  // namespace zor

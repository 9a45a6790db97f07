#pragma once

#include <span>

#include "app/SiteSession.h"
#include "app/drive/Json.h"

namespace zor {

/// What an import of the data into the site would do, asked of the very objects that would do it and adding nothing:
/// {"agent", "readable", "fault", "title", "exportedBy", "warns", "canvas", "widgets", "renamedClasses": {old: new},
/// "unknownClasses": [name…], "unlinked": [{"kind", "title", "frame", "property", "nearest": [name…]}…]}. What cannot
/// be read has a fault and no canvas.
Json importJson(std::span<const std::uint8_t> data, const SiteSession& site);

}  // namespace zor

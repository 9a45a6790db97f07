#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "app/pages/Advertisement.h"

namespace zor {

inline const std::string askedBase = "/plugins/p/81-7-0";

/// What the page shows of an advertisement for `askedBase` of a plug-in at "/plugins/p".
inline std::string shown(std::string_view html, std::vector<ListedPlugIn> plugIns = {}) {
    return Advertisement::parse(html, {askedBase, "/plugins/p", std::move(plugIns)}).html();
}

}  // namespace zor

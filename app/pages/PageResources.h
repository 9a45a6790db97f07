#pragma once

#include <string_view>

namespace zor {

/// What the pages refer to: their style, for light and dark and any width, and the icon, an SVG picture.
extern const std::string_view pageStyleSheet;
extern const std::string_view pageIcon;

}  // namespace zor

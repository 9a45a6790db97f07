#pragma once

#include <string>
#include <string_view>

#include "host/foundation/Font.h"

namespace zor {

/// The text with its lines broken at spaces so that none is wider than `width` points, as the toolkit measures it. The
/// indent of a line is repeated on what it is broken into; a single word that is too wide stays whole.
std::string textBrokenToWidth(std::string_view text, const Font& font, double width);

}  // namespace zor

#pragma once
// The look that the instruments share, and text that never leaves its rectangle.

#include <string>
#include <string_view>

#include "host/views/DrawingContext.h"

namespace zor {

namespace palette {
inline constexpr Color ink = Color::rgb(0x1d1d1f);
inline constexpr Color secondaryInk = Color::rgb(0x6e6e73);
inline constexpr Color hairline = Color::rgb(0xd2d2d7);
inline constexpr Color ground = Color::rgb(0xf5f5f7);
inline constexpr Color accent = Color::rgb(0x0a6ed1);
inline constexpr Color paper = Color::white();
}  // namespace palette

/// Whether an area of this size is worth drawing at all: not empty, not beyond what is drawn.
bool isVisibleArea(const Rect& bounds);

/// The text with its line breaks as spaces.
std::string singleLine(std::string_view text);
/// The font at its own size or at the largest smaller one at which one line of the text fits into the room; of size 0
/// where nothing fits.
Font fontFittingText(std::string_view text, const Font& font, Size room);
/// One line, as large as its font allows and its rectangle holds, vertically centred.
void drawFittedText(DrawingContext& context, std::string_view text, const Rect& rect, const Font& font, Color color,
                    TextAlignment alignment = TextAlignment::center);

/// A filled rounded area with its border inside the rectangle; width and radius give way where the area is small.
void drawCard(DrawingContext& context, const Rect& rect, double radius, Color fill, Color border,
              double borderWidth = 1);

}  // namespace zor

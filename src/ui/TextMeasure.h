// How wide a text is in the font the dialog and its pop-ups draw with. X-Plane's UI font is
// proportional, so a count of characters says little: "WATER_RUDDER" is wider than "file_name".
#pragma once

#include <cstddef>
#include <string_view>

namespace drav {

// Pixels, rounded up. Measured by the simulator when it can (XPLMMeasureString, through the
// optional SDK), else the character count times the font's nominal width.
int TextWidth(std::string_view text);

// The longest beginning of `text` that fits in `width` pixels (0 for a width of 0 or less).
std::size_t FittingLength(std::string_view text, int width);

// The widest item of a pop-up list as the pop-up shows it (an item's leading "(" is not drawn).
int WidestItemWidth(std::string_view list);

}  // namespace drav

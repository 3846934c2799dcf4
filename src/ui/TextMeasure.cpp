#include "ui/TextMeasure.h"

#include <XPLMGraphics.h>

#include <algorithm>
#include <cmath>

#include "base/OptionalXplmApi.h"
#include "ui/ItemList.h"

namespace drav {

int TextWidth(std::string_view text) {
  if (text.empty()) return 0;
  if (CurrentOptionalXplmApi().XPLMMeasureString != nullptr) {
    const float width =
        CurrentOptionalXplmApi().XPLMMeasureString(xplmFont_Basic, text.data(), static_cast<int>(text.size()));
    return static_cast<int>(std::ceil(width));
  }
  int charWidth = 8;
  XPLMGetFontDimensions(xplmFont_Basic, &charWidth, nullptr, nullptr);
  return static_cast<int>(text.size()) * std::max(1, charWidth);
}

// Widths only grow as characters are added, so the longest fitting beginning is found by halving.
std::size_t FittingLength(std::string_view text, int width) {
  std::size_t fits = 0;
  std::size_t tooLong = text.size() + 1;
  while (tooLong - fits > 1) {
    const std::size_t middle = fits + (tooLong - fits) / 2;
    if (TextWidth(text.substr(0, middle)) <= width) {
      fits = middle;
    } else {
      tooLong = middle;
    }
  }
  return fits;
}

int WidestItemWidth(std::string_view list) {
  int widest = 0;
  for (std::string_view item : SplitItems(list)) {
    if (item.starts_with('(')) item.remove_prefix(1);
    widest = std::max(widest, TextWidth(item));
  }
  return widest;
}

}  // namespace drav

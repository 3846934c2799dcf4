// How a function row shows a DRAV.INI value that names a command or dataref itself: one extra item
// of the row's pop-up, marked as custom and cut to fit. Picking that item keeps the value as it is;
// picking any other writes the other, as every pick does.
#pragma once

#include <string>
#include <string_view>

namespace drav {

// "custom: " and as much of the value as fits `width` pixels with it, "..." marking a cut. The
// item never holds the list's separator, so a value with one cannot split the list.
std::string CustomRowItem(std::string_view value, int width);
bool IsCustomRowItem(std::string_view item);

// The item after every row's functions that opens a field to type a value into.
inline constexpr const char* kTypeValueItem = "type a command or dataref...";

// The row's list with the custom item after the others, and that item's index.
struct CustomRowList {
  std::string list;
  int selected = 0;
};
CustomRowList WithCustomRowItem(std::string_view list, std::string_view value, int width);

}  // namespace drav

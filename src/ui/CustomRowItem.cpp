#include "ui/CustomRowItem.h"

#include <algorithm>

#include "ui/ItemList.h"
#include "ui/TextMeasure.h"

namespace drav {

namespace {

constexpr std::string_view kMarker = "custom: ";
constexpr std::string_view kCut = "...";

}  // namespace

std::string CustomRowItem(std::string_view value, int width) {
  std::string text(value);
  std::replace(text.begin(), text.end(), ';', ',');
  std::string item(kMarker);
  if (TextWidth(std::string(kMarker) + text) <= width) return item + text;
  const int room = width - TextWidth(kMarker) - TextWidth(kCut);
  item.append(text, 0, FittingLength(text, room));
  item += kCut;
  return item;
}

bool IsCustomRowItem(std::string_view item) { return item.substr(0, kMarker.size()) == kMarker; }

CustomRowList WithCustomRowItem(std::string_view list, std::string_view value, int width) {
  CustomRowList row;
  row.list.assign(list);
  if (!row.list.empty() && row.list.back() != ';') row.list += ';';
  row.selected = static_cast<int>(SplitItems(row.list).size());
  row.list += CustomRowItem(value, width);
  row.list += ';';
  return row;
}

}  // namespace drav

#include "ui/ItemList.h"

#include <cctype>

#include "ui/FunctionPickLists.h"

namespace drav {

std::vector<std::string_view> SplitItems(std::string_view list) {
  std::vector<std::string_view> items;
  std::size_t start = 0;
  while (start < list.size()) {
    std::size_t end = list.find(kItemSeparator, start);
    if (end == std::string_view::npos) end = list.size();
    items.push_back(list.substr(start, end - start));
    start = end + 1;
  }
  return items;
}

ItemSpan LocateItem(std::string_view list, int index) {
  if (index < 0) return {list.size(), 0};
  std::size_t start = 0;
  for (int skipped = 0; skipped < index; ++skipped) {
    std::size_t separator = list.find(kItemSeparator, start);
    if (separator == std::string_view::npos) return {list.size(), 0};
    start = separator + 1;
  }
  if (start >= list.size()) return {list.size(), 0};
  std::size_t end = list.find(kItemSeparator, start);
  if (end == std::string_view::npos) end = list.size();
  return {start, end - start};
}

std::string_view ItemAt(std::string_view list, int index) {
  ItemSpan span = LocateItem(list, index);
  return list.substr(span.start, span.length);
}

int FindItemBeginningWith(std::string_view list, std::string_view value) {
  int index = 0;
  for (std::string_view item : SplitItems(list)) {
    if (item.starts_with(value)) return index;
    ++index;
  }
  return 0;
}

bool IsNoSelectionItem(std::string_view item) {
  std::string_view expected = kNoSelectionItem;
  if (item.size() != expected.size()) return false;
  for (std::size_t i = 0; i < item.size(); ++i) {
    auto lower = [](char c) { return std::tolower(static_cast<unsigned char>(c)); };
    if (lower(item[i]) != lower(expected[i])) return false;
  }
  return true;
}

}  // namespace drav

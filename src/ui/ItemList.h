// Pop-up item lists: one text of items, each followed by ";". The index of an item is its position
// in the text, counted from 0. The helpers work on views of the text and never copy it.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace drav {

// The items in order; a last item without its ";" still counts.
std::vector<std::string_view> SplitItems(std::string_view list);

// Item `index`, or an empty view when the list has no such item.
std::string_view ItemAt(std::string_view list, int index);

// Where item `index` lies in the text (offset, length); {list size, 0} when there is no such item.
struct ItemSpan {
  std::size_t start = 0;
  std::size_t length = 0;
};
ItemSpan LocateItem(std::string_view list, int index);

// The first item that begins with `value`, else 0 (an empty value therefore selects item 0).
int FindItemBeginningWith(std::string_view list, std::string_view value);

// True for "No Selection" in any case: picking it stores an empty value.
bool IsNoSelectionItem(std::string_view item);

}  // namespace drav

// A pilot's use of the plug-in's pop-up list widgets: reading the items a pop-up offers and the one
// it shows, and picking an item by clicking the pop-up, finding the item in the menu it opens (a
// plug-in window, paged with Page Down when the list is long) and clicking that.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/SimHost.h"

namespace dravsim {

// The pop-up's message and property for the current item.
inline constexpr int kPopupItemProperty = 1800;

struct PopupItem {
  std::string text;  // as shown: without the leading "(" of a disabled item
  bool enabled = true;
  bool separator = false;
};

// Items of a ";"-separated list (each item followed by ";"; a last item without one counts too).
std::vector<PopupItem> SplitPopupItems(std::string_view list);

// The text of the item the pop-up shows (property 1800), or empty when the index is outside the
// list.
std::string ShownPopupItem(const sim::WidgetSnapshot& popup);

// Picks item `index` as a pilot would. Empty on success, else why it could not be done.
std::optional<std::string> PickPopupItem(sim::SimHost& host, void* popup, std::size_t index);

}  // namespace dravsim

// The geometry of the pick menu, kept free of windows and drawing so that it can be reasoned about
// and tested alone: which items a list holds, how they fall into columns, where the menu sits on
// the screen, how paging moves and which item a click lands on.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace drav {

struct PickMenuItem {
  std::string text;        // as shown: a leading "(" is dropped
  bool enabled = true;     // false for "(" items and separators
  bool separator = false;  // an item "-": a rule, not a text
  int width = 0;           // the text measured in the menu's font, when the caller measured it
};

// Splits a pop-up list into menu items.
std::vector<PickMenuItem> ParsePickMenuItems(std::string_view list);

struct PickMenuMetrics {
  int charWidth = 8;
  int fontHeight = 12;
  int screenWidth = 1024;
  int screenHeight = 768;
};

// A rectangle in offsets from the menu's top left corner: x grows to the right, y downwards.
struct MenuCell {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
};

struct PickMenuLayout {
  std::vector<MenuCell> cells;  // one per item, in item order
  std::vector<int> column;      // the column of each item
  int pageSize = 0;             // items in the first column: one page of scrolling
  int columns = 0;
  int columnWidth = 0;
  int width = 0;
  int height = 0;
};

// A column takes items until their total height would pass the screen height minus this margin.
inline constexpr int kMenuScreenMargin = 50;
// Horizontal room around an item's text inside its column.
inline constexpr int kMenuTextInset = 8;

int SeparatorHeight(const PickMenuMetrics& metrics);
PickMenuLayout LayoutPickMenu(const std::vector<PickMenuItem>& items, const PickMenuMetrics& metrics);

// The menu's place on the screen, in the simulator's coordinates (origin at the bottom left).
struct ScreenRect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
};

// Puts the current item at (anchorLeft, anchorTop), then shifts the menu to stay on the screen: at
// least 10 pixels from the left, right and bottom edges and 30 from the top (the menu bar).
ScreenRect PlacePickMenu(const PickMenuLayout& layout, int currentIndex, int anchorLeft, int anchorTop,
                         const PickMenuMetrics& metrics);

// Paging by whole first columns. Page Up stops at 0; Page Down moves only when the new first item
// still exists.
int PageUp(int scrollOffset, int pageSize);
int PageDown(int scrollOffset, int pageSize, int itemCount);

// The cell under (x, y) for a menu at `menu`, or -1. Cells keep their place while scrolling: cell i
// shows item i + scroll offset.
int CellAt(const PickMenuLayout& layout, const ScreenRect& menu, int x, int y);
// The item a click at (x, y) picks: the item shown in the cell under the pointer when it exists and
// is enabled, else -1.
int PickedIndex(const std::vector<PickMenuItem>& items, const PickMenuLayout& layout, const ScreenRect& menu,
                int scrollOffset, int x, int y);

// The screen rectangle of cell `cell`.
ScreenRect CellRect(const PickMenuLayout& layout, const ScreenRect& menu, int cell);

}  // namespace drav

#include "ui/PickMenuLayout.h"

#include <algorithm>

#include "ui/ItemList.h"

namespace drav {

namespace {

constexpr int kEdgeGap = 10;
constexpr int kMenuBarGap = 30;

int ItemHeight(const PickMenuItem& item, const PickMenuMetrics& metrics) {
  return item.separator ? SeparatorHeight(metrics) : metrics.fontHeight;
}

// In pixels. The nominal width per character is kept as a floor, so that a measured text (in a
// proportional font, narrower when lower case) never makes the column smaller than it always was.
int WidestText(const std::vector<PickMenuItem>& items, int charWidth) {
  int widest = 0;
  for (const PickMenuItem& item : items) {
    widest = std::max({widest, static_cast<int>(item.text.size()) * charWidth, item.width});
  }
  return widest;
}

}  // namespace

std::vector<PickMenuItem> ParsePickMenuItems(std::string_view list) {
  std::vector<PickMenuItem> items;
  for (std::string_view text : SplitItems(list)) {
    PickMenuItem item;
    if (text == "-") {
      item.separator = true;
      item.enabled = false;
    } else if (text.starts_with('(')) {
      item.text = std::string(text.substr(1));
      item.enabled = false;
    } else {
      item.text = std::string(text);
    }
    items.push_back(std::move(item));
  }
  return items;
}

int SeparatorHeight(const PickMenuMetrics& metrics) { return std::max(2, metrics.fontHeight / 2); }

PickMenuLayout LayoutPickMenu(const std::vector<PickMenuItem>& items, const PickMenuMetrics& metrics) {
  PickMenuLayout layout;
  layout.columnWidth = WidestText(items, std::max(1, metrics.charWidth)) + 2 * kMenuTextInset;
  const int columnLimit = metrics.screenHeight - kMenuScreenMargin;
  int column = 0;
  int y = 0;
  for (const PickMenuItem& item : items) {
    const int height = ItemHeight(item, metrics);
    // A column always takes its first item, however small the screen.
    if (y > 0 && y + height > columnLimit) {
      ++column;
      y = 0;
    }
    if (column == 0) ++layout.pageSize;
    layout.cells.push_back({column * layout.columnWidth, y, layout.columnWidth, height});
    layout.column.push_back(column);
    y += height;
    layout.height = std::max(layout.height, y);
  }
  layout.columns = items.empty() ? 0 : column + 1;
  layout.width = layout.columns * layout.columnWidth;
  return layout;
}

ScreenRect PlacePickMenu(const PickMenuLayout& layout, int currentIndex, int anchorLeft, int anchorTop,
                         const PickMenuMetrics& metrics) {
  MenuCell current;
  if (currentIndex >= 0 && currentIndex < static_cast<int>(layout.cells.size())) {
    current = layout.cells[static_cast<std::size_t>(currentIndex)];
  }
  ScreenRect menu;
  menu.left = anchorLeft - current.x;
  menu.top = anchorTop + current.y;
  // Right before left and bottom before top: on a screen too small for the menu, its top left
  // corner (the first items) stays visible.
  menu.left -= std::max(0, menu.left + layout.width - (metrics.screenWidth - kEdgeGap));
  menu.left = std::max(menu.left, kEdgeGap);
  menu.top += std::max(0, kEdgeGap - (menu.top - layout.height));
  menu.top = std::min(menu.top, metrics.screenHeight - kMenuBarGap);
  menu.right = menu.left + layout.width;
  menu.bottom = menu.top - layout.height;
  return menu;
}

int PageUp(int scrollOffset, int pageSize) { return std::max(0, scrollOffset - pageSize); }

int PageDown(int scrollOffset, int pageSize, int itemCount) {
  const int next = scrollOffset + pageSize;
  return next < itemCount ? next : scrollOffset;
}

ScreenRect CellRect(const PickMenuLayout& layout, const ScreenRect& menu, int cell) {
  if (cell < 0 || cell >= static_cast<int>(layout.cells.size())) return {};
  const MenuCell& c = layout.cells[static_cast<std::size_t>(cell)];
  return {menu.left + c.x, menu.top - c.y, menu.left + c.x + c.width, menu.top - c.y - c.height};
}

int CellAt(const PickMenuLayout& layout, const ScreenRect& menu, int x, int y) {
  for (int cell = 0; cell < static_cast<int>(layout.cells.size()); ++cell) {
    const ScreenRect r = CellRect(layout, menu, cell);
    if (x >= r.left && x < r.right && y <= r.top && y > r.bottom) return cell;
  }
  return -1;
}

int PickedIndex(const std::vector<PickMenuItem>& items, const PickMenuLayout& layout, const ScreenRect& menu,
                int scrollOffset, int x, int y) {
  const int cell = CellAt(layout, menu, x, y);
  if (cell < 0) return -1;
  const int index = cell + scrollOffset;
  if (index < 0 || index >= static_cast<int>(items.size())) return -1;
  return items[static_cast<std::size_t>(index)].enabled ? index : -1;
}

}  // namespace drav

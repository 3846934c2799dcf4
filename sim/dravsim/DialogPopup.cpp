#include "dravsim/DialogPopup.h"

#include <XPLMGraphics.h>

#include <algorithm>
#include <set>

namespace dravsim {
namespace {

constexpr unsigned char kPageDownKey = 0x22;  // xplm_VK_NEXT
constexpr int kKeyDownFlag = 8;                // xplm_DownFlag
// Far more pages than any list has; a menu that keeps changing is not paged for ever.
constexpr int kMaxPages = 64;

struct Point {
  int x = 0;
  int y = 0;
};

std::set<void*> WindowsOnScreen(const sim::DisplayList& screen) {
  std::set<void*> windows;
  for (const sim::DisplayItem& item : screen.items) {
    if (item.kind == sim::DisplayItemKind::Window) windows.insert(item.handle);
  }
  return windows;
}

// The front-most window that was not on screen before the click: the menu.
const sim::DisplayItem* FindMenu(const sim::DisplayList& screen, const std::set<void*>& before) {
  for (auto it = screen.items.rbegin(); it != screen.items.rend(); ++it) {
    if (it->kind == sim::DisplayItemKind::Window && before.count(it->handle) == 0) return &*it;
  }
  return nullptr;
}

std::vector<std::string> TextsOf(const sim::DisplayItem& item) {
  std::vector<std::string> texts;
  for (const sim::DrawnText& text : item.texts) texts.push_back(text.text);
  return texts;
}

// The `occurrence`-th drawn text equal to `wanted` that the pilot can click: inside the menu and on
// the screen. Columns past the screen's edge are drawn but cannot be reached.
std::optional<Point> FindClickable(const sim::DisplayList& screen, const sim::DisplayItem& menu,
                                   const std::string& wanted, std::size_t occurrence) {
  int charHeight = 0;
  XPLMGetFontDimensions(xplmFont_Basic, nullptr, &charHeight, nullptr);
  const sim::ScreenRect whole{0, screen.screenHeight, screen.screenWidth, 0};
  std::size_t seen = 0;
  for (const sim::DrawnText& text : menu.texts) {
    if (text.text != wanted) continue;
    const Point point{text.x + 2, text.y + charHeight / 2};
    if (!menu.geometry.Contains(point.x, point.y) || !whole.Contains(point.x, point.y)) continue;
    if (seen++ == occurrence) return point;
  }
  return std::nullopt;
}

}  // namespace

std::vector<PopupItem> SplitPopupItems(std::string_view list) {
  std::vector<PopupItem> items;
  while (!list.empty()) {
    const std::size_t end = list.find(';');
    std::string_view text = list.substr(0, end);
    PopupItem item;
    if (text.starts_with('(')) {
      item.enabled = false;
      text.remove_prefix(1);
    }
    item.separator = text == "-";
    item.text = std::string(text);
    items.push_back(std::move(item));
    if (end == std::string_view::npos) break;
    list.remove_prefix(end + 1);
  }
  return items;
}

std::string ShownPopupItem(const sim::WidgetSnapshot& popup) {
  const std::vector<PopupItem> items = SplitPopupItems(popup.descriptor);
  const std::intptr_t index = popup.Property(kPopupItemProperty);
  if (index < 0 || static_cast<std::size_t>(index) >= items.size()) return "";
  return items[static_cast<std::size_t>(index)].text;
}

std::optional<std::string> PickPopupItem(sim::SimHost& host, void* popup, std::size_t index) {
  const auto snapshot = host.DescribeWidget(popup);
  if (!snapshot) return "the pop-up does not exist";
  if (!snapshot->visible) return "the pop-up is hidden";
  const std::vector<PopupItem> items = SplitPopupItems(snapshot->descriptor);
  if (index >= items.size()) {
    return "the pop-up has " + std::to_string(items.size()) + " item(s)";
  }
  const PopupItem& wanted = items[index];
  if (!wanted.enabled || wanted.separator) return "item \"" + wanted.text + "\" cannot be picked";
  std::size_t occurrence = 0;  // the same text earlier in the list
  for (std::size_t i = 0; i < index; ++i) occurrence += items[i].text == wanted.text ? 1 : 0;

  const sim::ScreenRect& g = snapshot->geometry;
  const std::set<void*> before = WindowsOnScreen(host.DrawScreen());
  if (!host.ClickAt((g.left + g.right) / 2, (g.top + g.bottom) / 2)) return "the click missed the pop-up";
  std::vector<std::string> lastTexts;
  for (int page = 0; page < kMaxPages; ++page) {
    const sim::DisplayList screen = host.DrawScreen();
    const sim::DisplayItem* menu = FindMenu(screen, before);
    if (menu == nullptr) return "the pop-up opened no menu";
    if (const auto point = FindClickable(screen, *menu, wanted.text, occurrence)) {
      host.ClickAt(point->x, point->y);
      const auto after = host.DescribeWidget(popup);
      if (after && after->Property(kPopupItemProperty) == static_cast<std::intptr_t>(index)) {
        return std::nullopt;
      }
      return "the pop-up did not take the pick";
    }
    std::vector<std::string> texts = TextsOf(*menu);
    if (page > 0 && texts == lastTexts) break;  // Page Down no longer changes the menu
    lastTexts = std::move(texts);
    host.SendKey(0, kKeyDownFlag, kPageDownKey);
  }
  return "item \"" + wanted.text + "\" is not shown in the menu";
}

}  // namespace dravsim

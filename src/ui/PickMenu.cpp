#include "ui/PickMenu.h"

#include <XPLMDisplay.h>
#include <XPLMGraphics.h>

#include <GL/gl.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <utility>
#include <vector>

#include "base/OptionalXplmApi.h"
#include "ui/InterfaceTexture.h"
#include "ui/MenuColours.h"
#include "ui/PickMenuLayout.h"
#include "ui/TextMeasure.h"
#include "ui/UiState.h"

namespace drav {

namespace {

// The SDK's virtual key codes for Page Up and Page Down (XPLM_VK_PRIOR, XPLM_VK_NEXT).
constexpr unsigned char kKeyPageUp = 0x21;
constexpr unsigned char kKeyPageDown = 0x22;
constexpr float kHighlightAlpha = 0.25f;

// Only ever touched on the simulator's main thread.
std::unique_ptr<PickMenuWindow>& OpenMenu() { return CurrentUiState().pickMenu; }

PickMenuWindow& MenuOf(void* refcon) { return *static_cast<PickMenuWindow*>(refcon); }

PickMenuMetrics CurrentMetrics() {
  PickMenuMetrics metrics;
  XPLMGetFontDimensions(xplmFont_Basic, &metrics.charWidth, &metrics.fontHeight, nullptr);
  XPLMGetScreenSize(&metrics.screenWidth, &metrics.screenHeight);
  return metrics;
}

void SetColour(int slot, float alpha = 1.0f) {
  const MenuColour colour = GetMenuColour(slot);
  glColor4f(colour.red, colour.green, colour.blue, alpha);
}

void FillRect(const ScreenRect& r) {
  glBegin(GL_QUADS);
  glVertex2i(r.left, r.bottom);
  glVertex2i(r.left, r.top);
  glVertex2i(r.right, r.top);
  glVertex2i(r.right, r.bottom);
  glEnd();
}

void HorizontalLine(int left, int right, int y) {
  glBegin(GL_LINES);
  glVertex2i(left, y);
  glVertex2i(right, y);
  glEnd();
}

// Before the interface texture existed the box was drawn flat, with a lit and a dark border.
void DrawFlatBox(const ScreenRect& box) {
  SetFlatDrawing();
  SetColour(kMenuBackground);
  FillRect(box);
  glLineWidth(1.0f);
  SetColour(kMenuLite);
  glBegin(GL_LINES);
  glVertex2i(box.left, box.bottom);
  glVertex2i(box.left, box.top);
  glVertex2i(box.left, box.top);
  glVertex2i(box.right, box.top);
  glEnd();
  SetColour(kMenuDark);
  glBegin(GL_LINES);
  glVertex2i(box.right, box.top);
  glVertex2i(box.right, box.bottom);
  glVertex2i(box.right, box.bottom);
  glVertex2i(box.left, box.bottom);
  glEnd();
}

void DrawSeparator(const ScreenRect& cell) {
  const int middle = (cell.top + cell.bottom) / 2;
  glLineWidth(1.0f);
  SetColour(kMenuLite);
  HorizontalLine(cell.left + 2, cell.right - 2, middle + 1);
  SetColour(kMenuDark);
  HorizontalLine(cell.left + 2, cell.right - 2, middle);
}

void DrawItemText(const PickMenuItem& item, const ScreenRect& cell, const PickMenuMetrics& metrics) {
  const MenuColour colour = GetMenuColour(item.enabled ? kMenuText : kMenuTextDisabled);
  float rgb[3] = {colour.red, colour.green, colour.blue};
  const int baseline = (cell.top + cell.bottom) / 2 - metrics.fontHeight / 2 + 2;
  // Older SDK headers take the text as char*: hand over a writable copy so that the plug-in builds
  // against either declaration.
  char text[256];
  const std::size_t length = std::min(item.text.size(), sizeof text - 1);
  std::memcpy(text, item.text.data(), length);
  text[length] = '\0';
  XPLMDrawString(rgb, cell.left + kMenuTextInset, baseline, text, nullptr, xplmFont_Basic);
}

void DrawMenu(XPLMWindowID /*window*/, void* refcon) {
  const PickMenuWindow& menu = MenuOf(refcon);
  if (HasInterfaceTexture()) {
    DrawInterfacePiece(kMenuBoxPiece, menu.place.left, menu.place.bottom, menu.place.right, menu.place.top);
  } else {
    DrawFlatBox(menu.place);
  }
  SetFlatDrawing();
  const int cells = static_cast<int>(menu.layout.cells.size());
  const int count = static_cast<int>(menu.items.size());
  for (int cell = 0; cell < cells && cell + menu.scrollOffset < count; ++cell) {
    const PickMenuItem& item = menu.items[static_cast<std::size_t>(cell + menu.scrollOffset)];
    const ScreenRect rect = CellRect(menu.layout, menu.place, cell);
    if (item.separator) {
      DrawSeparator(rect);
      continue;
    }
    if (item.enabled && cell == menu.hoverCell) {
      SetColour(kMenuHilite, kHighlightAlpha);
      FillRect(rect);
    }
    DrawItemText(item, rect, menu.metrics);
  }
}

void CloseMenu() {
  std::unique_ptr<PickMenuWindow> menu = std::move(OpenMenu());
  if (menu == nullptr) return;
  // Only the keyboard the menu took is given back: another window may have it by now.
  if (menu->scrolling && XPLMHasKeyboardFocus(menu->window) != 0) XPLMTakeKeyboardFocus(nullptr);
  XPLMDestroyWindow(menu->window);
}

void HandleKey(XPLMWindowID /*window*/, char /*key*/, XPLMKeyFlags flags, char virtualKey, void* refcon,
               int losingFocus) {
  PickMenuWindow& menu = MenuOf(refcon);
  if (losingFocus != 0 || !menu.scrolling) return;
  if ((flags & xplm_DownFlag) == 0) return;
  const int count = static_cast<int>(menu.items.size());
  switch (static_cast<unsigned char>(virtualKey)) {
    case kKeyPageUp:
      menu.scrollOffset = PageUp(menu.scrollOffset, menu.layout.pageSize);
      break;
    case kKeyPageDown:
      menu.scrollOffset = PageDown(menu.scrollOffset, menu.layout.pageSize, count);
      break;
    default:
      break;
  }
}

int HandleMouse(XPLMWindowID /*window*/, int x, int y, XPLMMouseStatus status, void* menuRefcon) {
  PickMenuWindow& menu = MenuOf(menuRefcon);
  if (status != xplm_MouseUp) {
    menu.hoverCell = CellAt(menu.layout, menu.place, x, y);
    return 1;
  }
  const int index = PickedIndex(menu.items, menu.layout, menu.place, menu.scrollOffset, x, y);
  const PickMenuAnswer answer = menu.answer;
  void* refcon = menu.refcon;
  // The menu is gone before the answer runs, so that the answer may open another one.
  CloseMenu();
  if (answer != nullptr) answer(refcon, index);
  return 1;
}

XPLMCursorStatus HandleCursor(XPLMWindowID /*window*/, int x, int y, void* refcon) {
  PickMenuWindow& menu = MenuOf(refcon);
  menu.hoverCell = CellAt(menu.layout, menu.place, x, y);
  return xplm_CursorDefault;
}

int HandleWheel(XPLMWindowID /*window*/, int /*x*/, int /*y*/, int /*wheel*/, int /*clicks*/, void* /*refcon*/) {
  return 1;
}

}  // namespace

bool OpenPickMenu(int anchorLeft, int anchorTop, const char* items, int currentIndex, bool scrolling,
                  PickMenuAnswer answer, void* refcon) {
  CloseMenu();
  auto menu = std::make_unique<PickMenuWindow>();
  menu->items = ParsePickMenuItems(items != nullptr ? items : "");
  for (PickMenuItem& item : menu->items) item.width = TextWidth(item.text);
  if (menu->items.empty()) return false;
  menu->metrics = CurrentMetrics();
  menu->layout = LayoutPickMenu(menu->items, menu->metrics);
  menu->place = PlacePickMenu(menu->layout, currentIndex, anchorLeft, anchorTop, menu->metrics);
  menu->scrolling = scrolling;
  menu->answer = answer;
  menu->refcon = refcon;

  XPLMCreateWindow_t params{};
  params.structSize = sizeof params;
  params.left = menu->place.left;
  params.top = menu->place.top;
  params.right = menu->place.right;
  params.bottom = menu->place.bottom;
  params.visible = 1;
  params.drawWindowFunc = DrawMenu;
  params.handleMouseClickFunc = HandleMouse;
  params.handleKeyFunc = HandleKey;
  params.handleCursorFunc = HandleCursor;
  params.handleMouseWheelFunc = HandleWheel;
  params.refcon = menu.get();
  // A simulator without the 2.x window call gets no menu rather than a plug-in that fails to load.
  if (CurrentOptionalXplmApi().XPLMCreateWindowEx == nullptr) return false;
  menu->window = CurrentOptionalXplmApi().XPLMCreateWindowEx(&params);
  if (menu->window == nullptr) return false;
  if (scrolling) XPLMTakeKeyboardFocus(menu->window);
  OpenMenu() = std::move(menu);
  return true;
}

bool IsPickMenuOpen() { return OpenMenu() != nullptr; }

void CancelPickMenu(void* refcon) {
  if (OpenMenu() != nullptr && OpenMenu()->refcon == refcon) CloseMenu();
}

}  // namespace drav

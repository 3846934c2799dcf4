// The pick menu of the pop-up list widget: a plain window with every item of a list, in columns,
// that answers with the item picked (or -1) and then goes away. One menu is open at a time.
#pragma once

#include <XPLMDisplay.h>

#include <vector>

#include "ui/PickMenuLayout.h"

namespace drav {

// Receives the picked index, or -1 when the click picked nothing.
using PickMenuAnswer = void (*)(void* refcon, int index);

// The open menu (UiState::pickMenu while one is open). Its window's callbacks get it as their
// reference constant.
struct PickMenuWindow {
  XPLMWindowID window = nullptr;
  std::vector<PickMenuItem> items;
  PickMenuLayout layout;
  ScreenRect place;
  PickMenuMetrics metrics;
  int scrollOffset = 0;
  int hoverCell = -1;
  bool scrolling = false;
  PickMenuAnswer answer = nullptr;
  void* refcon = nullptr;  // the answer's
};

// Opens the menu with the current item at (anchorLeft, anchorTop). With `scrolling` the menu takes
// the keyboard for Page Up and Page Down. An open menu is cancelled first. False when the list has
// no items or the window could not be made.
bool OpenPickMenu(int anchorLeft, int anchorTop, const char* items, int currentIndex, bool scrolling,
                  PickMenuAnswer answer, void* refcon);

bool IsPickMenuOpen();

// Closes the open menu without answering, when it answers `refcon` (the widget is going away).
void CancelPickMenu(void* refcon);

}  // namespace drav

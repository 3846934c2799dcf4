// The pop-up list widget: a button that shows the current item of a list and opens the pick menu
// when clicked. The simulator's widget library has no drop-down list, so this is a custom widget.
#pragma once

#include <XPWidgetDefs.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

namespace drav {

// What each pop-up shows, kept so that drawing neither reads the descriptor nor allocates. How much
// of the text fits is measured again only when the pop-up's width or its item changes.
struct PopupShownItem {
  intptr_t index = -1;
  std::string text;
  int fittedWidth = -1;
  std::size_t fittedLength = 0;
};

struct PopupListState {
  bool scrollingMenus = false;  // one scrolling flag for every pop-up
  std::map<XPWidgetID, PopupShownItem> shownItems;
};

// Property: index of the current item, counted from 0.
inline constexpr XPWidgetPropertyID kPopupCurrentItemProperty = 1800;
// Properties kept by the widget: offset and length of the current item's text in the descriptor.
inline constexpr XPWidgetPropertyID kPopupItemStartProperty = 1801;
inline constexpr XPWidgetPropertyID kPopupItemLengthProperty = 1802;
// Message sent up the chain when an item is picked: param1 the pop-up, param2 the index. It is sent
// even when the picked item was already the current one.
inline constexpr XPWidgetMessage kPopupItemPickedMessage = 1800;

// `items` is the descriptor: items each followed by ";". An item beginning with "(" is shown without
// it and cannot be picked; an item "-" is a separator. `scrolling` lets the menu page with Page Up
// and Page Down; it is one setting for all pop-ups, and the latest creation decides it.
XPWidgetID CreatePopupList(int left, int top, int right, int bottom, int visible, const char* items,
                           XPWidgetID container, int scrolling);

// The width a pop-up needs to show a text of that many pixels whole, beside its arrow. A narrower
// pop-up shows as much of the text as fits.
int PopupWidthFor(int textWidth);
// The inverse: how wide a text a pop-up of that width shows whole (0 at least).
int PopupTextRoom(int popupWidth);

// A widget's whole descriptor (for a pop-up: its item list).
std::string WidgetDescriptor(XPWidgetID widget);

// The widget's message function (exposed for tests that drive it directly).
int PopupListMessage(XPWidgetMessage message, XPWidgetID widget, intptr_t param1, intptr_t param2);

}  // namespace drav

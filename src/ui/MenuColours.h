// The six colours of the pick menu, taken from the simulator's menu colour datarefs so that the menu
// looks like the simulator's own, and dimmed like them by the cockpit lighting when a dataref is
// missing.
#pragma once

#include <XPLMDataAccess.h>

namespace drav {

enum MenuColourSlot : int {
  kMenuDark = 0,
  kMenuBackground = 1,
  kMenuHilite = 2,
  kMenuLite = 3,
  kMenuText = 4,
  kMenuTextDisabled = 5,
};
inline constexpr int kMenuColourSlots = 6;

struct MenuColour {
  float red = 0.0f;
  float green = 0.0f;
  float blue = 0.0f;
};

// The colour datarefs, looked up at the first use after the plug-in started (they belong to one
// simulator session).
struct MenuColourLookups {
  bool done = false;
  XPLMDataRef slots[kMenuColourSlots] = {};
  XPLMDataRef lightRed = nullptr;
  XPLMDataRef lightGreen = nullptr;
  XPLMDataRef lightBlue = nullptr;
};

// The slot's colour now. Slots outside 0..5 read as the text colour.
MenuColour GetMenuColour(int slot);

}  // namespace drav

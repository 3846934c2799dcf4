#include "ui/MenuColours.h"

#include <XPLMDataAccess.h>

#include "ui/UiState.h"

namespace drav {

namespace {

struct ColourSlotSource {
  const char* dataref;
  MenuColour fallback;
};

constexpr float kByte = 1.0f / 256.0f;

// X-Plane 12 publishes no menu background colour (older versions did) and has nothing in its place,
// so there the background is always the fallback, dimmed like the simulator's own.
const ColourSlotSource kColourSlots[kMenuColourSlots] = {
    {"sim/graphics/colors/menu_dark_rgb", {33 * kByte, 41 * kByte, 44 * kByte}},
    {"sim/graphics/colors/menu_bkgnd_rgb", {53 * kByte, 64 * kByte, 68 * kByte}},
    {"sim/graphics/colors/menu_hilite_rgb", {65 * kByte, 83 * kByte, 89 * kByte}},
    {"sim/graphics/colors/menu_lite_rgb", {65 * kByte, 83 * kByte, 89 * kByte}},
    {"sim/graphics/colors/menu_text_rgb", {0.8f, 0.8f, 0.8f}},
    {"sim/graphics/colors/menu_text_disabled_rgb", {0.4f, 0.4f, 0.4f}},
};

const MenuColourLookups& Lookups() {
  MenuColourLookups& lookups = CurrentUiState().menuColours;
  if (!lookups.done) {
    for (int slot = 0; slot < kMenuColourSlots; ++slot) {
      lookups.slots[slot] = XPLMFindDataRef(kColourSlots[slot].dataref);
    }
    lookups.lightRed = XPLMFindDataRef("sim/graphics/misc/cockpit_light_level_r");
    lookups.lightGreen = XPLMFindDataRef("sim/graphics/misc/cockpit_light_level_g");
    lookups.lightBlue = XPLMFindDataRef("sim/graphics/misc/cockpit_light_level_b");
    lookups.done = true;
  }
  return lookups;
}

// A missing light level leaves the fallback undimmed.
float LightLevel(XPLMDataRef level) { return level != nullptr ? XPLMGetDataf(level) : 1.0f; }

}  // namespace

MenuColour GetMenuColour(int slot) {
  if (slot < 0 || slot >= kMenuColourSlots) slot = kMenuText;
  const MenuColourLookups& lookups = Lookups();
  if (XPLMDataRef colour = lookups.slots[slot]; colour != nullptr) {
    float rgb[3] = {0.0f, 0.0f, 0.0f};
    XPLMGetDatavf(colour, rgb, 0, 3);
    return {rgb[0], rgb[1], rgb[2]};
  }
  const MenuColour& fallback = kColourSlots[slot].fallback;
  return {fallback.red * LightLevel(lookups.lightRed), fallback.green * LightLevel(lookups.lightGreen),
          fallback.blue * LightLevel(lookups.lightBlue)};
}

}  // namespace drav

#include "functions/AutopilotModeDatarefs.h"

#include <XPLMDataAccess.h>
#include <XPLMUtilities.h>

#include <cstddef>
#include <iterator>

#include "functions/AutopilotStateWord.h"
#include "functions/FunctionState.h"
#include "functions/PublishedDatarefRegistry.h"

namespace drav {

namespace {

constexpr int kNoKeyStroke = -1;

constexpr const char* kAirspeedMode = "sim/cockpit/autopilot/airspeed_mode";
constexpr const char* kHeadingMode = "sim/cockpit/autopilot/heading_mode";
constexpr const char* kAltitudeMode = "sim/cockpit/autopilot/altitude_mode";

struct ModeDatarefRow {
  const char* path;
  int stateMask;               // the mode is on when any of these state-word bits is set
  const char* fallbackSource;  // simulators without the state word: this mode dataref ...
  int fallbackValue;           // ... holds this value while the mode is on
  int keyStroke;               // the simulator's key that toggles the mode
};

constexpr ModeDatarefRow kModeDatarefs[] = {
    {"drav/autopilot/autothrottle", 0x1, kAirspeedMode, 11, xplm_key_otto_atr},
    {"drav/autopilot/heading_hold", 0x2, kHeadingMode, 13, xplm_key_otto_hdg},
    {"drav/autopilot/wing_leveler", 0x4, kHeadingMode, 15, xplm_key_otto_lev},
    {"drav/autopilot/asi_hold", 0x8, kAirspeedMode, 12, xplm_key_otto_asi},
    {"drav/autopilot/vvi_climb", 0x10, kAltitudeMode, 18, xplm_key_otto_vvi},
    {"drav/autopilot/alt_hold", 0x20, kAltitudeMode, 17, xplm_key_otto_alt},
    // The simulator has no key for flight-level change: it is toggled through the state word.
    {"drav/autopilot/level_change", 0x40, kAltitudeMode, 0, kNoKeyStroke},
    // Armed or engaged, either bit counts as on.
    {"drav/autopilot/hnav", 0x300, kHeadingMode, 16, xplm_key_otto_hnav},
    {"drav/autopilot/vnav", 0xC00, kAltitudeMode, 19, xplm_key_otto_vnav},
};
static_assert(std::size(kModeDatarefs) == kModeDatarefCount);

int ReadMode(void* refcon) {
  const ModeSource& source = *static_cast<const ModeSource*>(refcon);
  const ModeDatarefRow& mode = kModeDatarefs[source.row];
  if (AutopilotStateWordExists()) return (ReadAutopilotStateWord() & mode.stateMask) != 0 ? 1 : 0;
  const XPLMDataRef fallback = source.fallback;
  return fallback != nullptr && XPLMGetDatai(fallback) == mode.fallbackValue ? 1 : 0;
}

// The value written does not choose on or off: every write is one press of the mode's button.
void WriteMode(void* refcon, int requested) {
  const ModeDatarefRow& mode = kModeDatarefs[static_cast<const ModeSource*>(refcon)->row];
  if (mode.stateMask == kAutothrottleBit && AutothrottleAlreadyAs(requested)) return;
  if (mode.keyStroke != kNoKeyStroke) {
    XPLMCommandKeyStroke(static_cast<XPLMCommandKeyID>(mode.keyStroke));
  } else {
    ToggleAutopilotModes(mode.stateMask);
  }
}

}  // namespace

void PublishModeDatarefs() {
  ModeDatarefSources& modes = CurrentFunctionState().modes;
  for (std::size_t row = 0; row < kModeDatarefCount; ++row) {
    ModeSource& source = modes[row];
    source.row = row;
    source.fallback = XPLMFindDataRef(kModeDatarefs[row].fallbackSource);
    RegisterIntDataref(kModeDatarefs[row].path, ReadMode, WriteMode, &source);
  }
}

}  // namespace drav

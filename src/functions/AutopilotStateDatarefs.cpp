#include "functions/AutopilotStateDatarefs.h"

#include <XPLMDataAccess.h>

#include <iterator>

#include "functions/AutopilotStateWord.h"
#include "functions/PublishedDatarefRegistry.h"

namespace drav {

namespace {

struct StateFlagRow {
  const char* name;  // the path below "drav/autopilot_state/"
  int bit;
};

// Bits 17 and 18 are published too, though not announced: the catalogue has functions for them
// (AP_STATE_VNAV_ARMED, AP_STATE_VNAV_ENGAGED) that would otherwise bind to nothing, and on a
// simulator whose state word lacks those bits they simply read 0, as an unbound function would.
constexpr StateFlagRow kStateFlags[] = {
    {"auto_throttle_engage", 0},
    {"heading_hold_engage", 1},
    {"wing_leveler_engage", 2},
    {"airspeed_hold_with_pitch_engage", 3},
    {"vvi_climb_engage", 4},
    {"altitude_hold_armed", 5},
    {"flight_level_change_engage", 6},
    {"pitch_sync_engage", 7},
    {"fms_armed", 8},
    {"fms_engaged", 9},
    {"glideslope_armed", 10},
    {"glideslope_engaged", 11},
    {"fms_vnav_armed", 12},
    {"fms_vnav_engaged", 13},
    {"altitude_hold_engaged", 14},
    {"horizontal_toga_engaged", 15},
    {"vertical_toga_engaged", 16},
    {"vnav_armed", 17},
    {"vnav_engaged", 18},
};
constexpr std::size_t kStateFlagCount = std::size(kStateFlags);
static_assert(kAnnouncedAutopilotStateCount <= kStateFlagCount);

constexpr const char* kStatePathPrefix = "drav/autopilot_state/";

int StateMask(std::size_t row) { return 1 << kStateFlags[row].bit; }

int ReadStateFlag(void* refcon) {
  const std::size_t row = RowOf(refcon);
  if (row >= kStateFlagCount) return 0;
  return (ReadAutopilotStateWord() & StateMask(row)) != 0 ? 1 : 0;
}

// A write toggles the bit, like the mode datarefs; the auto-throttle bit is a switch position.
void WriteStateFlag(void* refcon, int requested) {
  const std::size_t row = RowOf(refcon);
  if (row >= kStateFlagCount) return;
  if (StateMask(row) == kAutothrottleBit && AutothrottleAlreadyAs(requested)) return;
  ToggleAutopilotModes(StateMask(row));
}

}  // namespace

std::size_t AutopilotStateCount() { return kStateFlagCount; }

std::string AutopilotStatePath(std::size_t bit) {
  if (bit >= kStateFlagCount) return {};
  return std::string(kStatePathPrefix) + kStateFlags[bit].name;
}

void PublishAutopilotStateDatarefs() {
  for (std::size_t row = 0; row < kStateFlagCount; ++row) {
    RegisterIntDataref(AutopilotStatePath(row).c_str(), ReadStateFlag, WriteStateFlag, RowRefcon(row));
  }
}

}  // namespace drav

// "drav/autopilot/autothrottle" ... "drav/autopilot/vnav": one on/off integer per autopilot mode.
// Reading tells whether the mode is on; writing presses the mode's button (a toggle), except for the
// auto-throttle switch, which is left alone when it already is as written.
#pragma once

#include <XPLMDataAccess.h>

#include <array>
#include <cstddef>

namespace drav {

inline constexpr std::size_t kModeDatarefCount = 9;

// One mode dataref's row and the older dataref it falls back on, looked up at start. Its accessors
// get it as their reference constant.
struct ModeSource {
  std::size_t row = 0;
  XPLMDataRef fallback = nullptr;
};
using ModeDatarefSources = std::array<ModeSource, kModeDatarefCount>;

// Looks up the older mode datarefs (the state word is looked up by the caller first) and registers
// the mode datarefs.
void PublishModeDatarefs();

}  // namespace drav

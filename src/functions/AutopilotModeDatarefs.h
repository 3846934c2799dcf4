// "drav/autopilot/autothrottle" ... "drav/autopilot/vnav": one on/off integer per autopilot mode.
// Reading tells whether the mode is on; writing presses the mode's button (a toggle), except for the
// auto-throttle switch, which is left alone when it already is as written.
#pragma once

namespace drav {

// Looks up the older mode datarefs (the state word is looked up by the caller first) and registers
// the mode datarefs.
void PublishModeDatarefs();

}  // namespace drav

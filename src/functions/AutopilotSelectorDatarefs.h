// "drav/autopilot/asi_is_mach", the knots/Mach selector of the speed target, and
// "drav/autopilot_knob/alt_knob", the step of the altitude knob (1: 10 feet, else 100 feet).
#pragma once

#include "functions/PublishedDatarefRegistry.h"

namespace drav {

// What the selector datarefs keep between calls; their accessors get it as their reference
// constant. A fresh one per start: the speed datarefs are looked up on their first use in that
// simulator, and the altitude knob starts at 0.
struct SelectorDatarefState {
  LazyDataref speedIsMach{"sim/cockpit/autopilot/airspeed_is_mach"};
  LazyDataref speedTarget{"sim/cockpit/autopilot/airspeed"};
  LazyDataref densityRatio{"sim/weather/sigma"};
  LazyDataref speedOfSound{"sim/weather/speed_sound_ms"};
  int altKnob = 0;
};

inline constexpr const char* kAltKnobDataref = "drav/autopilot_knob/alt_knob";

// Registers both datarefs.
void PublishAutopilotSelectorDatarefs();

// The speed-target conversion factor: knots per Mach at speed of sound `speedOfSoundMs` (m/s) and
// air density ratio `sigma` (the square root of sigma limited to 0.01 .. 1).
double KnotsPerMach(double speedOfSoundMs, double sigma);

}  // namespace drav

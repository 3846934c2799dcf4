// "drav/autopilot/asi_is_mach", the knots/Mach selector of the speed target, and
// "drav/autopilot_knob/alt_knob", the step of the altitude knob (1: 10 feet, else 100 feet).
#pragma once

namespace drav {

inline constexpr const char* kAltKnobDataref = "drav/autopilot_knob/alt_knob";

// Registers both datarefs. Each start is a fresh load of the plug-in, so the speed datarefs are
// looked up again on their next use and the altitude knob starts at 0 again.
void PublishAutopilotSelectorDatarefs();

// The speed-target conversion factor: knots per Mach at speed of sound `speedOfSoundMs` (m/s) and
// air density ratio `sigma` (the square root of sigma limited to 0.01 .. 1).
double KnotsPerMach(double speedOfSoundMs, double sigma);

}  // namespace drav

// Display text of the avionic functions: the value of the function's dataref in its format, and
// the way back from a text to the simulator.
#pragma once

#include <cstdint>

namespace drav {

struct AvionicFunction;

// Recomputes function.text from the simulator (format 9: from the panels' display brightness).
void FormatAvionicDisplay(AvionicFunction& function);
// Writes the value that function.text shows to the simulator (format 9: to every panel's brightness).
void ApplyAvionicDisplay(AvionicFunction& function);
// Exchanges the two texts and applies both (the standby/active swap of the radios).
void SwapAvionicDisplays(AvionicFunction& a, AvionicFunction& b);

// The display brightness level shared by every panel, 1..15 (DisplayBrightness.h reads it from the
// panels and sends it to them).
std::int32_t GetDisplayBrightnessLevel();
void SetDisplayBrightnessLevel(std::int32_t level);

}  // namespace drav

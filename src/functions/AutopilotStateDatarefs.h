// "drav/autopilot_state/<name>": one integer per bit of the simulator's autopilot state word.
#pragma once

#include <cstddef>
#include <string>

namespace drav {

// Bits 0 to 16 are the ones announced to the DataRefEditor; all bits of the name table are published.
inline constexpr std::size_t kAnnouncedAutopilotStateCount = 17;

// Registers one dataref per named state bit (the state word is looked up by the caller first).
void PublishAutopilotStateDatarefs();

std::size_t AutopilotStateCount();
// "drav/autopilot_state/" and the name of bit `bit`; empty past the table.
std::string AutopilotStatePath(std::size_t bit);

}  // namespace drav

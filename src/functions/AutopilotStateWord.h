// The simulator's autopilot state word ("sim/cockpit/autopilot/autopilot_state"): one bit per mode.
// Writing bits to it toggles those modes in the simulator.
#pragma once

namespace drav {

inline constexpr int kAutothrottleBit = 0x1;

// Looks the state word up again; the handle is kept until the next call.
void LookUpAutopilotStateWord();
bool AutopilotStateWordExists();
int ReadAutopilotStateWord();  // 0 without the state word
// Writes the bits of `modes` to the state word, so the simulator toggles them; nothing without it.
void ToggleAutopilotModes(int modes);

// The auto-throttle arm is a latching switch on the panels, so a write to it carries the wanted
// position rather than a press: true when the state word already shows the auto-throttle the way
// `requested` asks (1 = on, 0 = off), and the write is to be dropped. False without the state word,
// which cannot tell, and for any other value.
bool AutothrottleAlreadyAs(int requested);

}  // namespace drav

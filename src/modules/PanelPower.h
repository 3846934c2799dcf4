// Whether the panel's displays and lights have electrical power. Without it every module blanks its
// outputs, so the panels go dark with the aircraft.
#pragma once

namespace drav {

// Display modules ask with checkAvionics true (they also need the avionics bus), light-only
// modules with false. Main thread only: it reads simulator data.
bool HasPanelPower(bool checkAvionics);

// Forgets the dataref handles so that the next HasPanelPower looks them up again: a fresh simulator
// (plug-in restart, each test) invalidates the old ones.
void ResetPanelPowerLookups();

}  // namespace drav

// Whether the panel's displays and lights have electrical power. Without it every module blanks its
// outputs, so the panels go dark with the aircraft.
#pragma once

#include "XPLMDataAccess.h"

namespace drav {

// The simulator's data the test reads, looked up once per plug-in start (ModuleState).
struct PowerDatarefs {
  bool lookedUp = false;
  XPLMDataRef electricalFailure = nullptr;
  XPLMDataRef batteryVolts = nullptr;
  XPLMDataRef batteryOn = nullptr;
  XPLMDataRef avionicsOn = nullptr;
  XPLMDataRef generatorOn = nullptr;
  XPLMDataRef engineType = nullptr;
  XPLMDataRef engineCount = nullptr;
  XPLMDataRef engineN1 = nullptr;
};

// Display modules ask with checkAvionics true (they also need the avionics bus), light-only
// modules with false. Main thread only: it reads simulator data.
bool HasPanelPower(bool checkAvionics);

}  // namespace drav

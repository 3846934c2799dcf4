// The part of the plug-in's state that belongs to the configuration floor, owned by the plug-in's context
// (plugin/PluginContext.h) and reached through CurrentConfigState().
#pragma once

#include "base/ContextSlot.h"
#include "config/AircraftProfile.h"
#include "config/UnitNumbers.h"

namespace drav {

class ModuleManager;

struct ConfigState {
  AircraftProfileState profile;
  // The device layer numbers its units by it while the plug-in runs.
  IniUnitNumberMemory unitNumbers;
  // The modules that loading binds; null: the plug-in's own (a test may give its own).
  ModuleManager* assignmentManager = nullptr;
};

inline ConfigState& CurrentConfigState() { return ContextSlot<ConfigState>::Current(); }

}  // namespace drav

// The part of the plug-in's state that belongs to the modules, owned by the plug-in's context
// (plugin/PluginContext.h) and reached through CurrentModuleState().
//
// The device layer's read threads reach the manager and the queue only through the receiver, which
// was given them when it was made; they never read the slot.
#pragma once

#include <cstdint>

#include "base/ContextSlot.h"
#include "modules/CommandTables.h"
#include "modules/DeviceInput.h"
#include "modules/GFRadioModule.h"
#include "modules/GearPanel.h"
#include "modules/InputEventQueue.h"
#include "modules/ModuleManager.h"
#include "modules/ModulePanelDirectory.h"
#include "modules/PanelPower.h"

namespace drav {

struct ModuleState {
  // Before the manager: its radios point into them.
  SharedRadioFunctionLists radioLists;
  ModuleManager manager;
  ModulePanelDirectory panelDirectory{manager};
  InputEventQueue inputQueue;
  // After what it hands the input to, so that it leaves the device layer before they go.
  DeviceInputReceiver deviceInput{manager, inputQueue};

  CommandTables commands;
  PowerDatarefs power;
  GearDatarefs gear;
  // Whether the assignments of every model have been loaded from DRAV.INI since the start or the
  // last aircraft load.
  bool modulesInitialised = false;
  // The GF-MCPPro take-over flag as the modules last saw it: one value for every unit.
  std::int32_t seenMcpProTakeover = 0;
};

inline ModuleState& CurrentModuleState() { return ContextSlot<ModuleState>::Current(); }

}  // namespace drav

// The part of the plug-in's state that belongs to the plug-in floor (menu, splash window, takeover datarefs, flight loops), owned by the plug-in's context
// (plugin/PluginContext.h) and reached through CurrentPluginState().
#pragma once

#include "base/ContextSlot.h"
#include "modules/ModuleManager.h"
#include "modules/ModulePanelDirectory.h"
#include "plugin/PluginCommands.h"
#include "plugin/SplashWindow.h"
#include "plugin/TakeoverDatarefs.h"

namespace drav {

struct PluginState {
  // How the function layer reaches the radios and counts units: through the plug-in's manager.
  // Handed to the function layer's state at start.
  ModulePanelDirectory panelDirectory{TheModuleManager()};
  bool panelsRunning = false;  // between the device layer's start at enable and its stop
  SplashWindowState splash;
  TakeoverDatarefHandles takeoverDatarefs{};
  RegisteredPluginCommands registeredCommands{};
};

inline PluginState& CurrentPluginState() { return ContextSlot<PluginState>::Current(); }

}  // namespace drav

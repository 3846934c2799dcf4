// The part of the plug-in's state that belongs to the plug-in floor (the panels' running flag, the
// splash window, the takeover datarefs, the commands), owned by the plug-in's context
// (plugin/PluginContext.h) and reached through CurrentPluginState().
#pragma once

#include "base/ContextSlot.h"
#include "plugin/PluginCommands.h"
#include "plugin/SplashWindow.h"
#include "plugin/TakeoverDatarefs.h"

namespace drav {

struct PluginState {
  bool panelsRunning = false;  // between the device layer's start at enable and its stop
  SplashWindowState splash;
  TakeoverDatarefHandles takeoverDatarefs{};
  RegisteredPluginCommands registeredCommands{};
};

inline PluginState& CurrentPluginState() { return ContextSlot<PluginState>::Current(); }

}  // namespace drav

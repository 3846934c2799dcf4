// The part of the plug-in's state that belongs to the base floor (log, settings, host facts), owned by the plug-in's context
// (plugin/PluginContext.h) and reached through CurrentBaseState().
#pragma once

#include <string>
#include <vector>

#include "base/ContextSlot.h"
#include "base/HostState.h"

namespace drav {

struct BaseState {
  HostFlags host;
  // The Log.txt lines already told about DRAV.INI values that name nothing (Log.cpp); main thread
  // only.
  std::vector<std::string> toldValues;
};

inline BaseState& CurrentBaseState() { return ContextSlot<BaseState>::Current(); }

}  // namespace drav

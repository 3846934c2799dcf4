// The part of the plug-in's state that belongs to the base floor (log, settings, host facts), owned by the plug-in's context
// (plugin/PluginContext.h) and reached through CurrentBaseState().
#pragma once

#include "base/ContextSlot.h"
#include "base/HostState.h"

namespace drav {

struct BaseState {
  HostFlags host;
};

inline BaseState& CurrentBaseState() { return ContextSlot<BaseState>::Current(); }

}  // namespace drav

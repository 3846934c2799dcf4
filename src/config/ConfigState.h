// The part of the plug-in's state that belongs to the configuration floor, owned by the plug-in's context
// (plugin/PluginContext.h) and reached through CurrentConfigState().
#pragma once

#include "base/ContextSlot.h"

namespace drav {

struct ConfigState {
};

inline ConfigState& CurrentConfigState() { return ContextSlot<ConfigState>::Current(); }

}  // namespace drav

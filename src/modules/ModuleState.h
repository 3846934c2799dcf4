// The part of the plug-in's state that belongs to the modules, owned by the plug-in's context
// (plugin/PluginContext.h) and reached through CurrentModuleState().
#pragma once

#include "base/ContextSlot.h"

namespace drav {

struct ModuleState {
};

inline ModuleState& CurrentModuleState() { return ContextSlot<ModuleState>::Current(); }

}  // namespace drav

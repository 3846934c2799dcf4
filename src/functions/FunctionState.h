// The part of the plug-in's state that belongs to the function layer, owned by the plug-in's context
// (plugin/PluginContext.h) and reached through CurrentFunctionState().
#pragma once

#include "base/ContextSlot.h"

namespace drav {

struct FunctionState {
};

inline FunctionState& CurrentFunctionState() { return ContextSlot<FunctionState>::Current(); }

}  // namespace drav

// The part of the plug-in's state that belongs to the Assign Functions dialog and its pick lists, owned by the plug-in's context
// (plugin/PluginContext.h) and reached through CurrentUiState().
#pragma once

#include "base/ContextSlot.h"

namespace drav {

struct UiState {
};

inline UiState& CurrentUiState() { return ContextSlot<UiState>::Current(); }

}  // namespace drav

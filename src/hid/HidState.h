// The part of the plug-in's state that belongs to the device layer, owned by the plug-in's context
// (plugin/PluginContext.h) and reached through CurrentHidState().
#pragma once

#include "base/ContextSlot.h"

namespace drav {

struct HidState {
};

inline HidState& CurrentHidState() { return ContextSlot<HidState>::Current(); }

}  // namespace drav

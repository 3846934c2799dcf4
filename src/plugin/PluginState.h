// The part of the plug-in's state that belongs to the plug-in floor (menu, splash window, takeover datarefs, flight loops), owned by the plug-in's context
// (plugin/PluginContext.h) and reached through CurrentPluginState().
#pragma once

#include "base/ContextSlot.h"

namespace drav {

struct PluginState {
};

inline PluginState& CurrentPluginState() { return ContextSlot<PluginState>::Current(); }

}  // namespace drav

// The Drav plug-in's entry points, as dravsim hands them to the simulator. Kept apart from the
// interpreter so that tests can run scenarios against a plug-in of their own.
#pragma once

#include "host/SimHost.h"

namespace dravsim {

sim::PluginEntryPoints DravPluginEntryPoints();

}  // namespace dravsim

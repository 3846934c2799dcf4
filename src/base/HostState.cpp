#include "base/HostState.h"

#include "base/BaseState.h"

namespace drav {

SimulatorVersions& CurrentSimulatorVersions() { return CurrentBaseState().versions; }

HostFlags& CurrentHostFlags() { return CurrentBaseState().host; }

}  // namespace drav

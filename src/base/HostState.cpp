#include "base/HostState.h"

#include "base/BaseState.h"

namespace drav {

SimulatorVersions gSimulatorVersions;

void ResetHostState() {
  gSimulatorVersions = {};
}

HostFlags& CurrentHostFlags() { return CurrentBaseState().host; }

}  // namespace drav

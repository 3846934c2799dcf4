#include "base/HostState.h"

#include "base/BaseState.h"

namespace drav {

SimulatorVersions gSimulatorVersions;
int SplashTickCount = 0;
XPLMDataRef gMetricPressDataref = nullptr;

void ResetHostState() {
  gSimulatorVersions = {};
  SplashTickCount = 0;
  gMetricPressDataref = nullptr;
}

HostFlags& CurrentHostFlags() { return CurrentBaseState().host; }

}  // namespace drav

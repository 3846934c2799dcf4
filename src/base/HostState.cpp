#include "base/HostState.h"

namespace drav {

SimulatorVersions gSimulatorVersions;
int ModulesInitialised = 0;
int X737Mode = 0;
int X737McpDirect = 0;
int McpProDisabled = 0;
int EfisDisabled = 0;

void ResetHostState() {
  gSimulatorVersions = {};
  ModulesInitialised = 0;
  X737Mode = 0;
  X737McpDirect = 0;
  McpProDisabled = 0;
  EfisDisabled = 0;
}

}  // namespace drav

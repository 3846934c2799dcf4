// Process-wide state of the plug-in host: the simulator's version, the lifecycle counter and the
// flags that other plug-ins and the x737 messages switch. Written and read on the main thread only.
#pragma once

namespace drav {

struct SimulatorVersions {
  int xplaneVersion = 0;  // such as 12000; some behaviour differs below 900
  int xplmVersion = 0;
  int hostId = 0;
};

extern SimulatorVersions gSimulatorVersions;

// 1 once the assignments of every module type have been loaded from DRAV.INI.
extern int ModulesInitialised;

// Switched by the x737 aircraft's messages: its autopilot is driven through its own datarefs and
// commands, and the GF-MCPPro gets x737 defaults.
extern int X737Mode;
extern int X737McpDirect;

// Switched by other plug-ins through "merrow/drav/mcppro_disabled" and "merrow/drav/efis_disabled":
// non-zero leaves the GF-MCPPro (or GF-EFIS) to them.
extern int McpProDisabled;
extern int EfisDisabled;

// A plug-in that is started again in the same process (after a stop) begins from a fresh load.
void ResetHostState();

}  // namespace drav

// What the plug-in knows of its host while it runs: the simulator's version and the flags that
// other plug-ins and the x737 messages switch. Part of the plug-in's state (BaseState).
#pragma once

namespace drav {

struct SimulatorVersions {
  int xplaneVersion = 0;  // such as 12000; some behaviour differs below 900
  int xplmVersion = 0;
  int hostId = 0;
};

// The simulator the running plug-in was started in, asked at start.
SimulatorVersions& CurrentSimulatorVersions();


// The flags the plug-in is switched by while it runs, part of its state (BaseState): every start
// begins with all of them off.
struct HostFlags {
  // Switched by the x737 aircraft's messages: its autopilot is driven through its own datarefs and
  // commands, and the GF-MCPPro gets x737 defaults.
  int x737Mode = 0;
  int x737McpDirect = 0;
  // Switched by other plug-ins through "merrow/drav/mcppro_disabled" and "merrow/drav/efis_disabled":
  // non-zero leaves the GF-MCPPro (or GF-EFIS) to them. A panel's input thread reads its flag
  // through a pointer its module took when it was made, never through the context.
  int mcpProDisabled = 0;
  int efisDisabled = 0;
};

// The running plug-in's flags.
HostFlags& CurrentHostFlags();


}  // namespace drav

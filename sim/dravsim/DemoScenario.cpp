#include "dravsim/DemoScenario.h"

namespace dravsim {

// Grows with the product: panels join it once virtual units can be plugged in.
std::string_view DemoScenarioText() {
  return R"SCN(# The built-in demo: the Drav plug-in inside the simulator host.
echo "== A pilot's DRAV.INI switches the plug-in's log on =="
ini
[DEBUG]
DebugEnabled=1
end

echo "== X-Plane loads the plug-in: XPluginStart builds the menu and the splash window, =="
echo "== XPluginEnable starts the device layer and registers the three flight loops =="
boot
expect log "+++ LOGGING STARTED +++"
expect log "Drav plugin 2.63 (MR)."
expect dataref merrow/drav/mcppro_disabled = 0
expect dataref merrow/drav/efis_disabled = 0

echo "== Half a second later the first update tick loads the assignments =="
echo "== and writes the splash text =="
run 0.5
expect window "Drav cockpit panels for X-Plane - the Drav developers - 2026 - 2.63 (MR)"

echo "== The splash window closes on the seventh tick, 3.5 seconds after enable =="
run 3
expect no-window

echo "== Another plug-in takes the GF-MCPPro over through the plug-in's dataref, =="
echo "== then gives it back =="
write-dataref merrow/drav/mcppro_disabled = 1
expect dataref merrow/drav/mcppro_disabled = 1
expect log "MCPPro has been disabled by another plugin."
write-dataref merrow/drav/mcppro_disabled = 0
expect log "MCPPro has been enabled by another plugin."

echo "== X-Plane loads the user's aircraft: the next half-second tick reloads every assignment =="
plane-loaded
run 0.5

echo "== X-Plane quits: XPluginDisable, then XPluginStop =="
disable
stop
expect log "--- LOGGING STOPPED ---"
expect no-window
)SCN";
}

}  // namespace dravsim

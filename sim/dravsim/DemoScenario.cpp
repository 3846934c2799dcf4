#include "dravsim/DemoScenario.h"

namespace dravsim {

// Grows with the product: panels join it once virtual units can be plugged in.
std::string_view DemoScenarioText() {
  return R"SCN(# The built-in demo: the Drav plug-in inside the simulator host.
echo "== A pilot's DRAV.INI switches the plug-in's log on =="
ini
[DEBUG]
DebugEnabled=1
[GF46_1]
Function1=COM1_ACTIVE
Function2=NAV1_STANDBY
Function3=XPDR
[GFP8_1]
Function1=LANDING_LTS
Function2=TAXI_LTS
end

echo "== Two panels are plugged in: a GF-46 radio and a GF-P8 button box =="
plug GF-46 as radio
plug GF-P8 as buttons

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

expect units GF-46 1
expect units GF-P8 1
expect display radio 1 "COM1"
expect display radio 2 "118.50"
show

echo "== The pilot presses the GF-P8's first button: the landing lights come on, its LED follows =="
press buttons 1
release buttons 1
frame
expect dataref sim/cockpit/electrical/landing_lights_on = 1
expect leds buttons 0x01

echo "== Tuning COM1 with the radio's inner ring, then stepping to the next mode =="
turn radio 2 2
frame
expect dataref sim/cockpit/radios/com1_freq_hz = 11855
press radio 1
release radio 1
frame
expect display radio 1 "NV1S"
show

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

#include "dravsim/DemoScenario.h"

#include "base/Version.h"

namespace dravsim {

// A short flight with four panels, shown after each step. Every step also checks what it shows,
// so the demo doubles as an end-to-end test (it runs in the test suite). The version comes from the
// build, so that the demo follows it.
std::string_view DemoScenarioText() {
  return R"SCN(# The built-in demo: the Drav plug-in inside the simulator host.
echo "== The pilot's DRAV.INI: a radio stack in COM1 and NAV1 modes, a button box for the lights =="
ini
[DEBUG]
DebugEnabled=1
[GF166_1]
Function1=COM1_DUAL
Function2=NAV1_DUAL
[GFP8_1]
Function1=LANDING_LTS
Function2=TAXI_LTS
Function3=BEACON_LTS
Function4=NAV_LTS
end
echo "== A cold and dark aircraft: battery and avionics off =="
dataref sim/cockpit/electrical/battery_on = 0
dataref sim/cockpit/electrical/avionics_on = 0

echo "== Four panels are plugged in: a GF-166 radio, a GF-P8 button box, a GF-MCP autopilot panel =="
echo "== and a GF-LGT gear module =="
plug GF-166 as radio
plug GF-P8 as buttons
plug GF-MCP as autopilot
plug GF-LGT as gear

echo "== X-Plane loads the plug-in: XPluginStart builds the menu and the splash window, =="
echo "== XPluginEnable starts the device layer and registers the three flight loops =="
boot
expect log "+++ LOGGING STARTED +++"
expect log "Drav plugin )SCN" DRAV_VERSION R"SCN( (MR)."
run 1.1
expect window "Drav cockpit panels for X-Plane - the Drav developers - 2026 - )SCN" DRAV_VERSION R"SCN( (MR)"
expect units GF-166 1
expect units GF-P8 1
expect units GF-MCP 1
expect units GF-LGT 1
echo "== Without power the displays stay dark =="
expect display radio 1 "      "
show

echo "== Start-up: battery and avionics on; the panels come alive =="
dataref sim/cockpit/electrical/battery_on = 1
dataref sim/cockpit/electrical/avionics_on = 1
run 1.1
expect display radio 1 "C.118.50"
expect display radio 2 " 121.50"
expect display autopilot 2 "000"
show

echo "== Beacon and navigation lights on the button box =="
press buttons 3
release buttons 3
press buttons 4
release buttons 4
frame
run 0.5
expect dataref sim/cockpit/electrical/beacon_lights_on = 1
expect dataref sim/cockpit/electrical/nav_lights_on = 1
expect leds buttons 0x0C
show buttons

echo "== Tuning: the standby frequency to 119.10 with both rings, then swapped in =="
turn radio 1 -2
turn radio 2 -16
frame
expect dataref sim/cockpit/radios/com1_stdby_freq_hz = 11910
run 0.5
expect display radio 2 " 119.10"
show radio
press radio 1                          # the swap button
release radio 1
frame
run 0.5
expect dataref sim/cockpit/radios/com1_freq_hz = 11910
expect dataref sim/cockpit/radios/com1_stdby_freq_hz = 11850
expect display radio 1 "C.119.10"
show radio

echo "== Taxi and landing lights, and the take-off roll =="
press buttons 1
release buttons 1
press buttons 2
release buttons 2
frame
run 0.5
expect leds buttons 0x0F
show buttons

echo "== Airborne: gear up. The gear lights go dark once the wheels are in =="
dataref sim/flightmodel/failures/onground_any = 0
switch gear 1 on
frame
expect dataref sim/cockpit/switches/gear_handle_status = 0
dataref sim/aircraft/parts/acf_gear_deploy = 0.5
run 0.5
show gear
dataref sim/aircraft/parts/acf_gear_deploy = 0
run 0.5
expect leds gear 0x03
show gear

echo "== The autopilot: heading 270, altitude 6000 ft, then A/P CMD =="
turn autopilot B -90                   # ninety degrees left of north
turn autopilot E 60
press autopilot 8
release autopilot 8
frame
run 0.5
expect dataref sim/cockpit/autopilot/heading_mag = 270
expect dataref sim/cockpit/autopilot/altitude = 6000
expect dataref sim/cockpit/autopilot/autopilot_mode = 2
expect display autopilot 2 "270"
expect display autopilot 5 " 06000"
expect leds autopilot 0x80
show autopilot

echo "== Approach: gear down, in transit, then three green =="
switch gear 1 off
frame
expect dataref sim/cockpit/switches/gear_handle_status = 1
dataref sim/aircraft/parts/acf_gear_deploy = 0.5
run 0.5
expect leds gear 0x57
show gear
dataref sim/aircraft/parts/acf_gear_deploy = 1
run 0.5
expect leds gear 0xAB
show gear

echo "== Another plug-in takes the GF-MCPPro over through the plug-in's dataref, then gives it back =="
write-dataref merrow/drav/mcppro_disabled = 1
expect log "MCPPro has been disabled by another plugin."
write-dataref merrow/drav/mcppro_disabled = 0
expect log "MCPPro has been enabled by another plugin."

echo "== Landed. X-Plane quits: XPluginDisable, then XPluginStop =="
disable
stop
expect log "--- LOGGING STOPPED ---"
)SCN";
}

}  // namespace dravsim

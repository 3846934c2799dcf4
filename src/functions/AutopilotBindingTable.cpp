// The autopilot functions that bind by X737Mode. The drav/autopilot datarefs toggle their mode on
// every write, whatever value is written, so these functions act as mode toggles; their on and off
// values matter only for the light.
#include "functions/AutopilotBindingTable.h"

namespace drav {

namespace {

constexpr AutopilotVariant Switch(const char* path, std::int32_t onValue = 1, std::int32_t offValue = 0) {
  return {AutopilotBuild::kSwitch, path, nullptr, onValue, offValue};
}
constexpr AutopilotVariant SwitchPair(const char* path, const char* secondPath) {
  return {AutopilotBuild::kSwitchPair, path, secondPath, 1, 0};
}
constexpr AutopilotVariant kNothing{AutopilotBuild::kNothing, nullptr, nullptr, 0, 0};
constexpr AutopilotVariant kCommands{AutopilotBuild::kCommandTable, nullptr, nullptr, 0, 0};

constexpr AutopilotBindingRow kAutopilotBindings[] = {
    {kFnAP_MASTER, Switch("sim/cockpit/autopilot/autopilot_mode", 2, 0),
     Switch("x737/systems/MCP/LED_FDA_MA_on", 2, 0)},
    // AP_DISENGAGE: the x737 reports "engaged", so its light is lit while that flag reads 0.
    {kFnAP_DISENGAGE, kCommands, Switch("x737/systems/afds/APengaged", 0, 1)},
    {kFnAP_FLIGHT_DIR, Switch("sim/cockpit/autopilot/autopilot_mode"), Switch("x737/systems/afds/fdA_status")},
    {kFnAP_AUTOTHROTTLE, Switch("drav/autopilot/autothrottle"), Switch("x737/systems/athr/athr_armed")},
    {kFnAP_THRUST_N1, kNothing, Switch("x737/systems/MCP/LED_N1_on")},
    {kFnAP_LNAV, Switch("drav/autopilot/hnav"), Switch("x737/systems/MCP/LED_LNAV_on")},
    {kFnAP_VNAV, Switch("drav/autopilot/vnav"), Switch("x737/systems/MCP/LED_VNAV_on")},
    {kFnAP_FLCH, Switch("drav/autopilot/level_change"), Switch("x737/systems/MCP/LED_LVLCHG_on")},
    // AP_ALT_HOLD lights while "drav/autopilot/alt_hold" reads 1, like every other mode. That
    // dataref mirrors the state word's altitude-hold-armed bit; lighting on 0 instead would show
    // ALT HOLD whenever it is not armed, with the autopilot switched off too, which tells the pilot
    // nothing. Writes toggle the mode either way.
    {kFnAP_ALT_HOLD, Switch("drav/autopilot/alt_hold"), Switch("x737/systems/MCP/LED_ALTHLD_on")},
    // AP_APPR_HOLD: the approach is flown with both lateral and vertical navigation engaged.
    {kFnAP_APPR_HOLD, SwitchPair("drav/autopilot/hnav", "drav/autopilot/vnav"), Switch("x737/systems/MCP/LED_APP_on")},
    {kFnAP_IAS_HOLD, kNothing, Switch("x737/systems/MCP/LED_MCPSPD_on")},
    {kFnAP_IAS_MACH_SEL, Switch("drav/autopilot/asi_is_mach"), Switch("x737/systems/afds/CHANGEOVER_toggle")},
    {kFnAP_HDG_HOLD, Switch("drav/autopilot/heading_hold"), Switch("x737/systems/MCP/LED_HDG_on")},
    {kFnAP_VS_HOLD, Switch("drav/autopilot/vvi_climb"), Switch("x737/systems/MCP/LED_VVI_on")},
};

}  // namespace

std::span<const AutopilotBindingRow> AutopilotBindingRows() { return kAutopilotBindings; }

const AutopilotBindingRow* FindAutopilotBinding(FunctionId id) {
  for (const AutopilotBindingRow& row : kAutopilotBindings) {
    if (row.id == id) return &row;
  }
  return nullptr;
}

}  // namespace drav

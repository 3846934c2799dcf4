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
    {88, Switch("sim/cockpit/autopilot/autopilot_mode", 2, 0), Switch("x737/systems/MCP/LED_FDA_MA_on", 2, 0)},
    // AP_DISENGAGE: the x737 reports "engaged", so its light is lit while that flag reads 0.
    {89, kCommands, Switch("x737/systems/afds/APengaged", 0, 1)},
    {90, Switch("sim/cockpit/autopilot/autopilot_mode"), Switch("x737/systems/afds/fdA_status")},
    {91, Switch("drav/autopilot/autothrottle"), Switch("x737/systems/athr/athr_armed")},
    {92, kNothing, Switch("x737/systems/MCP/LED_N1_on")},
    {93, Switch("drav/autopilot/hnav"), Switch("x737/systems/MCP/LED_LNAV_on")},
    {94, Switch("drav/autopilot/vnav"), Switch("x737/systems/MCP/LED_VNAV_on")},
    {95, Switch("drav/autopilot/level_change"), Switch("x737/systems/MCP/LED_LVLCHG_on")},
    // AP_ALT_HOLD lights while "drav/autopilot/alt_hold" reads 1, like every other mode. That
    // dataref mirrors the state word's altitude-hold-armed bit; lighting on 0 instead would show
    // ALT HOLD whenever it is not armed, with the autopilot switched off too, which tells the pilot
    // nothing. Writes toggle the mode either way.
    {96, Switch("drav/autopilot/alt_hold"), Switch("x737/systems/MCP/LED_ALTHLD_on")},
    // AP_APPR_HOLD: the approach is flown with both lateral and vertical navigation engaged.
    {97, SwitchPair("drav/autopilot/hnav", "drav/autopilot/vnav"), Switch("x737/systems/MCP/LED_APP_on")},
    {98, kNothing, Switch("x737/systems/MCP/LED_MCPSPD_on")},
    {99, Switch("drav/autopilot/asi_is_mach"), Switch("x737/systems/afds/CHANGEOVER_toggle")},
    {102, Switch("drav/autopilot/heading_hold"), Switch("x737/systems/MCP/LED_HDG_on")},
    {104, Switch("drav/autopilot/vvi_climb"), Switch("x737/systems/MCP/LED_VVI_on")},
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

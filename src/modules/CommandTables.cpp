#include "modules/CommandTables.h"

#include "base/OptionalXplmApi.h"
#include "modules/ModuleState.h"

namespace drav {


const std::array<CommandPairNames, kEngineStartCommandCount> kEngineStartCommandNames = {{
    {"sim/starters/engage_starter_1", "sim/starters/engage_starter_1"},
    {"sim/starters/engage_starter_2", "sim/starters/engage_starter_2"},
    {"sim/igniters/igniter_contin_on_1", "sim/igniters/igniter_contin_off_1"},
    {"sim/igniters/igniter_contin_on_2", "sim/igniters/igniter_contin_off_2"},
    {"sim/igniters/igniter_arm_on_1", "sim/igniters/igniter_arm_off_1"},
    {"sim/igniters/igniter_arm_on_2", "sim/igniters/igniter_arm_off_2"},
    {"sim/magnetos/magnetos_left_1", "sim/magnetos/magnetos_left_1"},
    {"sim/magnetos/magnetos_left_2", "sim/magnetos/magnetos_left_2"},
    {"sim/magnetos/magnetos_both_1", "sim/magnetos/magnetos_both_1"},
    {"sim/magnetos/magnetos_both_2", "sim/magnetos/magnetos_both_2"},
    {"sim/magnetos/magnetos_right_1", "sim/magnetos/magnetos_right_1"},
    {"sim/magnetos/magnetos_right_2", "sim/magnetos/magnetos_right_2"},
    {"sim/engines/mixture_min", "sim/engines/mixture_min"},
    {"sim/engines/mixture_max", "sim/engines/mixture_max"},
}};

const std::array<const char*, kAnnunciatorCommandCount> kAnnunciatorCommandNames = {
    "sim/annunciator/clear_master_warning",
    "sim/annunciator/clear_master_caution",
    "sim/annunciator/clear_master_accept",
};

// Row 10's "on" command really is spelt LNAVL_ON by the aircraft, unlike its siblings.
const std::array<CommandTripleNames, kX737McpCommandCount> kX737McpCommandNames = {{
    {"x737/mcp/FD_A_ON", "x737/mcp/FD_A_OFF", "x737/mcp/FD_A_TOGGLE"},
    {"x737/mcp/ATHR_ARM_ON", "x737/mcp/ATHR_ARM_OFF", "x737/mcp/ATHR_ARM_TOGGLE"},
    {"x737/mcp/N1_MODE_ON", "x737/mcp/N1_MODE_OFF", "x737/mcp/N1_MODE_TOGGLE"},
    {"x737/mcp/MCPSPD_MODE_ON", "x737/mcp/MCPSPD_MODE_OFF", "x737/mcp/MCPSPD_MODE_TOGGLE"},
    {"x737/mcp/CHANGEOVER", "x737/mcp/CHANGEOVER", "x737/mcp/CHANGEOVER"},
    {"x737/mcp/VNAV_ON", "x737/mcp/VNAV_OFF", "x737/mcp/VNAV_TOGGLE"},
    {"x737/mcp/SPDINTV_ON", "x737/mcp/SPDINTV_OFF", "x737/mcp/SPDINTV_TOGGLE"},
    {"x737/mcp/LVLCHANGE_ON", "x737/mcp/LVLCHANGE_OFF", "x737/mcp/LVLCHANGE_TOGGLE"},
    {"x737/mcp/HDGSEL_ON", "x737/mcp/HDGSEL_OFF", "x737/mcp/HDGSEL_TOGGLE"},
    {"x737/mcp/LNAVL_ON", "x737/mcp/LNAV_OFF", "x737/mcp/LNAV_TOGGLE"},
    {"x737/mcp/VORLOC_ON", "x737/mcp/VORLOC_OFF", "x737/mcp/VORLOC_TOGGLE"},
    {"x737/mcp/APP_ON", "x737/mcp/APP_OFF", "x737/mcp/APP_TOGGLE"},
    {"x737/mcp/ALTHLD_ON", "x737/mcp/ALTHLD_OFF", "x737/mcp/ALTHLD_TOGGLE"},
    {"x737/mcp/ALTINTV_ON", "x737/mcp/ALTINTV_OFF", "x737/mcp/ALTINTV_TOGGLE"},
    {"x737/mcp/VS_ON", "x737/mcp/VS_OFF", "x737/mcp/VS_TOGGLE"},
    {"x737/mcp/CMDA_ON", "x737/mcp/CMDA_OFF", "x737/mcp/CMDA_TOGGLE"},
    {"x737/mcp/CMDB_ON", "x737/mcp/CMDB_OFF", "x737/mcp/CMDB_TOGGLE"},
    {"x737/mcp/AP_DISCONNECT_ON", "x737/mcp/AP_DISCONNECT_OFF", "x737/mcp/AP_DISCONNECT_TOGGLE"},
    {"x737/mcp/FD_B_ON", "x737/mcp/FD_B_OFF", "x737/mcp/FD_B_TOGGLE"},
    {"x737/mcp/TOGA_ON", "x737/mcp/TOGA_OFF", "x737/mcp/TOGA_TOGGLE"},
}};

namespace {
CommandTables& Tables() { return CurrentModuleState().commands; }
}  // namespace

const CommandTables& TheCommandTables() { return Tables(); }

void ResolveEngineAndAnnunciatorCommands() {
  CommandTables& tables = Tables();
  for (int row = 0; row < kEngineStartCommandCount; ++row) {
    tables.engineStart[row].press = FindOptionalCommand(kEngineStartCommandNames[row].press);
    tables.engineStart[row].release = FindOptionalCommand(kEngineStartCommandNames[row].release);
  }
  for (int row = 0; row < kAnnunciatorCommandCount; ++row) {
    tables.annunciators[row] = FindOptionalCommand(kAnnunciatorCommandNames[row]);
  }
}

void ResolveX737McpCommands() {
  CommandTables& tables = Tables();
  for (int row = 0; row < kX737McpCommandCount; ++row) {
    tables.x737Mcp[row].on = FindOptionalCommand(kX737McpCommandNames[row].on);
  }
  for (int row = 0; row < kX737McpCommandCount; ++row) {
    tables.x737Mcp[row].off = FindOptionalCommand(kX737McpCommandNames[row].off);
  }
  for (int row = 0; row < kX737McpCommandCount; ++row) {
    tables.x737Mcp[row].toggle = FindOptionalCommand(kX737McpCommandNames[row].toggle);
  }
}

}  // namespace drav

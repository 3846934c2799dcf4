#include "plugin/PluginCommands.h"

#include <array>
#include <cstdint>

#include "base/OptionalXplmApi.h"
#include "plugin/PluginActions.h"
#include "plugin/PluginState.h"

namespace drav {

// The prefix is the one of the plug-in's published datarefs ("merrow/drav/mcppro_disabled").
const PluginCommand kPluginCommands[kPluginCommandCount] = {
    {"merrow/drav/assign_dialog_open", "Drav: open the Assign Functions dialog", OpenAssignFunctions},
    {"merrow/drav/assign_dialog_close", "Drav: close the Assign Functions dialog", CloseAssignFunctions},
    {"merrow/drav/assign_dialog_toggle", "Drav: open or close the Assign Functions dialog",
     ToggleAssignFunctions},
    {"merrow/drav/reload_ini", "Drav: reload DRAV.INI (settings, debug switches, assignments)",
     ReloadConfiguration},
    {"merrow/drav/rescan_panels", "Drav: look for the panels again", RescanPanels},
};

namespace {

// The action runs once, when the key or button goes down; holding it does not repeat the action.
// The refcon is the row of the command table.
int HandlePluginCommand(XPLMCommandRef /*command*/, XPLMCommandPhase phase, void* refcon) {
  if (phase == xplm_CommandBegin) kPluginCommands[reinterpret_cast<std::uintptr_t>(refcon)].action();
  return 1;  // another plug-in listening to the same command still hears it
}

void* RowRefcon(int row) { return reinterpret_cast<void*>(static_cast<std::uintptr_t>(row)); }

}  // namespace

void RegisterPluginCommands() {
  RegisteredPluginCommands& registered = CurrentPluginState().registeredCommands;
  const OptionalXplmApi& api = CurrentOptionalXplmApi();
  if (api.XPLMCreateCommand == nullptr || api.XPLMRegisterCommandHandler == nullptr) return;
  for (int row = 0; row < kPluginCommandCount; ++row) {
    if (registered[row] != nullptr) continue;
    XPLMCommandRef command = api.XPLMCreateCommand(kPluginCommands[row].name, kPluginCommands[row].description);
    if (command == nullptr) continue;
    api.XPLMRegisterCommandHandler(command, HandlePluginCommand, 1, RowRefcon(row));
    registered[row] = command;
  }
}

void UnregisterPluginCommands() {
  RegisteredPluginCommands& registered = CurrentPluginState().registeredCommands;
  const OptionalXplmApi& api = CurrentOptionalXplmApi();
  for (int row = 0; row < kPluginCommandCount; ++row) {
    if (registered[row] == nullptr) continue;
    if (api.XPLMUnregisterCommandHandler != nullptr) {
      api.XPLMUnregisterCommandHandler(registered[row], HandlePluginCommand, 1, RowRefcon(row));
    }
    registered[row] = nullptr;
  }
}

}  // namespace drav

#include "host/PluginActions.h"

#include "config/Assignments.h"
#include "host/HostState.h"
#include "host/Log.h"
#include "host/Plugin.h"
#include "host/PluginMenu.h"
#include "host/Settings.h"
#include "modules/ModuleManager.h"
#include "ui/AssignDialog.h"

namespace drav {

void OpenAssignFunctions() { OpenAssignDialog(kAssignDialogSize, kAssignDialogSize); }

void CloseAssignFunctions() { CloseAssignDialog(); }

void ToggleAssignFunctions() {
  if (IsAssignDialogOpen()) {
    CloseAssignFunctions();
  } else {
    OpenAssignFunctions();
  }
}

void ReloadConfiguration() {
  ReadDebugSwitches();  // first, so that the reload itself is logged when logging was just switched on
  ReadGlobalSettings();
  LogLine("DRAV.INI reloaded");
  // Before the first refresh tick nothing is loaded yet, and that tick reads the file anyway.
  if (PanelsRunning() && ModulesInitialised == 1) {
    LoadAllAssignments();
    TheModuleManager().RefreshAll();
  }
  RefreshAssignDialog();
}

}  // namespace drav

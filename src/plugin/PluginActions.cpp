#include "plugin/PluginActions.h"

#include "config/Assignments.h"
#include "base/HostState.h"
#include "base/Log.h"
#include "plugin/Plugin.h"
#include "plugin/PluginMenu.h"
#include "base/Settings.h"
#include "modules/ModuleManager.h"
#include "modules/ModuleState.h"
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
  if (PanelsRunning() && CurrentModuleState().modulesInitialised) {
    LoadAllAssignments();
    TheModuleManager().RefreshAll();
  }
  RefreshAssignDialog();
}

}  // namespace drav

#include "host/Plugin.h"

#include <XPLMDataAccess.h>
#include <XPLMUtilities.h>

#include <cstdio>

#include "functions/CustomDatarefs.h"
#include "hid/DeviceLayerControl.h"
#include "hid/GFDev.h"
#include "host/CommandTables.h"
#include "host/FlightLoops.h"
#include "host/HostState.h"
#include "host/Log.h"
#include "host/Messages.h"
#include "host/OptionalXplmApi.h"
#include "host/PluginMenu.h"
#include "host/Settings.h"
#include "host/SplashWindow.h"
#include "host/TakeoverDatarefs.h"
#include "modules/DeviceInput.h"
#include "modules/ModuleManager.h"
#include "functions/DisplayBrightness.h"
#include "modules/GearPanel.h"
#include "ui/AssignDialog.h"
#include "modules/PanelPower.h"

namespace drav {

namespace {

constexpr const char* kPluginName = "DRAV";
constexpr const char* kPluginSignature = "merrow.projects.drav";
constexpr const char* kPluginDescription = "Drav plugin 2.63 (MR).";
constexpr std::size_t kEntryBufferSize = 256;  // the simulator's name, signature, description buffers

void* gModuleInstance = nullptr;  // the DLL's instance handle on Windows (PluginExports.cpp)

}  // namespace

void SetModuleInstance(void* instance) { gModuleInstance = instance; }

int PluginStart(char* outName, char* outSignature, char* outDescription) {
  ResetHostState();
  ClearCommandTables();
  ResetPanelPowerLookups();
  ResetGearLightLookups();  // a restart in the same process looks the gear datarefs up again
  ResetDisplayBrightnessLevel();
  XPLMGetVersions(&gSimulatorVersions.xplaneVersion, &gSimulatorVersions.xplmVersion,
                  &gSimulatorVersions.hostId);
  std::snprintf(outName, kEntryBufferSize, "%s", kPluginName);
  std::snprintf(outSignature, kEntryBufferSize, "%s", kPluginSignature);
  std::snprintf(outDescription, kEntryBufferSize, "%s", kPluginDescription);
  BuildPluginMenu();
  PublishCustomDatarefs();
  gMetricPressDataref = XPLMFindDataRef("sim/physics/metric_press");
  RegisterTakeoverDatarefs();
  ReadDebugSwitches();  // before the first log line, so the log works from the first line on
  InitLogPath();
  LogLine("+++ LOGGING STARTED +++");
  LogLine(kPluginDescription);
  ReadGlobalSettings();
  CreateSplashWindow();
  return 1;
}

void PluginStop() {
  LogLine("--- LOGGING STOPPED ---");
  CloseAssignDialog();  // its widgets belong to this load; a later start must find it closed
  DestroySplashWindow();
  UnregisterTakeoverDatarefs();
}

int PluginEnable() {
  GFDev_Start(gModuleInstance);
  GFDev_SetUnitReturnHandler(ShowReturnedUnit);
  TheModuleManager().CreateModules();
  SplashTickCount = 0;
  GFDev_RegisterInputCallback(OnDeviceInput);
  if (gDebug.DebugDeviceInfo != 0) TheModuleManager().LogDeviceInformation();
  RegisterFlightLoops();
  if (LoadOptionalXplmApi()) ResolveEngineAndAnnunciatorCommands();
  if (ModulesInitialised == 1) TheModuleManager().RefreshAll();
  return 1;
}

void PluginDisable() {
  UnregisterFlightLoops();
  TheModuleManager().ClearAll();
  GFDev_Stop();
}

void PluginReceiveMessage(int from, int message, void* param) { HandleMessage(from, message, param); }

}  // namespace drav

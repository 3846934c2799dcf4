#include "plugin/Plugin.h"

#include <XPLMDataAccess.h>
#include <XPLMUtilities.h>

#include <cstdio>
#include <memory>
#include <string>

#include "functions/CustomDatarefs.h"
#include "hid/DeviceLayerControl.h"
#include "hid/GFDev.h"
#include "modules/CommandTables.h"
#include "plugin/FlightLoops.h"
#include "base/HostState.h"
#include "base/Log.h"
#include "plugin/Messages.h"
#include "base/OptionalXplmApi.h"
#include "plugin/PluginCommands.h"
#include "plugin/PluginMenu.h"
#include "base/Settings.h"
#include "base/Version.h"
#include "plugin/SplashWindow.h"
#include "plugin/TakeoverDatarefs.h"
#include "modules/DeviceInput.h"
#include "modules/ModuleManager.h"
#include "modules/ModuleRegistry.h"
#include "modules/ModuleState.h"
#include "hid/ModuleTypes.h"
#include "functions/FunctionState.h"
#include "ui/AssignDialog.h"
#include "config/Assignments.h"
#include "config/UnitNumbers.h"
#include "plugin/PluginActions.h"
#include "plugin/PluginContext.h"
#include "plugin/PluginState.h"

namespace drav {

namespace {

constexpr const char* kPluginName = "DRAV";
constexpr const char* kPluginSignature = "merrow.projects.drav";
constexpr const char* kPluginDescription = "Drav plugin " DRAV_VERSION " (MR).";
constexpr std::size_t kEntryBufferSize = 256;  // the simulator's name, signature, description buffers

// The DLL's instance handle on Windows (PluginExports.cpp): a fact of the process, set by the
// loader before XPluginStart and the same for every start, so it lives outside the context.
void* gModuleInstance = nullptr;

// Everything the plug-in keeps, from XPluginStart to XPluginStop: the one owner of its state. The
// pointer itself is the only thing outside it.
std::unique_ptr<PluginContext> gContext;

bool& PanelsRunningFlag() { return CurrentPluginState().panelsRunning; }

// The device layer and the module objects for the units it finds.
void StartPanels() {
  GFDev_SetUnitNumberMemory(&TheUnitNumberMemory());
  GFDev_Start(gModuleInstance);
  GFDev_SetUnitReturnHandler(ShowArrivedUnit);
  TheModuleManager().CreateModules();
  ReceiveDeviceInput();
  if (CurrentDebugSwitches().DebugDeviceInfo != 0) TheModuleManager().LogDeviceInformation();
  PanelsRunningFlag() = true;
}

void StopPanels() {
  PanelsRunningFlag() = false;
  GFDev_Stop();
}

// One Log.txt line for the whole set, so that a cockpit of many panels still tells it in one: each
// unit by model and by the number its DRAV.INI section carries (counted from 1). A number kept
// free for a unit that is away has a module but no unit.
void ReportUnitsFound() {
  std::string units;
  for (std::uint32_t type = kFirstModuleType; type <= kLastModuleType; ++type) {
    const std::int32_t count = TheModuleManager().UnitCount(type);
    for (std::int32_t unit = 0; unit < count; ++unit) {
      if (GFDev_UnitPath(type, unit).empty()) continue;
      units += units.empty() ? "" : ", ";
      units += std::string(ModelName(type)) + " Unit " + std::to_string(unit + 1);
    }
  }
  if (units.empty()) {
    SimLogLine("no panel found (see docs/troubleshooting.md).");
  } else {
    SimLogFormat("panels found: %s.", units.c_str());
  }
}

// What the simulator holds of this load (commands, datarefs, windows, widgets) is given back before
// the context goes: their callbacks read it.
void WithdrawFromSimulator() {
  UnregisterPluginCommands();  // X-Plane disables first; nothing is left registered after a stop regardless
  CloseAssignDialog();  // its widgets belong to this load; a later start must find it closed
  DestroySplashWindow();
  UnregisterTakeoverDatarefs();
  WithdrawCustomDatarefs();
}

}  // namespace

bool PanelsRunning() { return PanelsRunningFlag(); }

void RescanPanels() {
  if (!PanelsRunningFlag()) return;
  LogLine("Rescanning the panels");
  // The dialog lists the units: it comes back with the new list.
  const bool dialogWasOpen = IsAssignDialogOpen();
  CloseAssignDialog();
  StopPanels();
  StartPanels();
  ReportUnitsFound();
  // Before the first refresh tick the assignments are not loaded yet; that tick loads them all.
  if (CurrentModuleState().modulesInitialised) {
    LoadAllAssignments();
    TheModuleManager().RefreshAll();
  }
  if (dialogWasOpen) OpenAssignFunctions();
}

void SetModuleInstance(void* instance) { gModuleInstance = instance; }

int PluginStart(char* outName, char* outSignature, char* outDescription) {
  // A start without a stop before it begins from nothing all the same.
  if (gContext != nullptr) WithdrawFromSimulator();
  gContext.reset();
  gContext = std::make_unique<PluginContext>();
  CurrentFunctionState().panelDirectory = &CurrentModuleState().panelDirectory;
  SimulatorVersions& versions = CurrentSimulatorVersions();
  XPLMGetVersions(&versions.xplaneVersion, &versions.xplmVersion, &versions.hostId);
  std::snprintf(outName, kEntryBufferSize, "%s", kPluginName);
  std::snprintf(outSignature, kEntryBufferSize, "%s", kPluginSignature);
  std::snprintf(outDescription, kEntryBufferSize, "%s", kPluginDescription);
  BuildPluginMenu();
  PublishCustomDatarefs();
  CurrentFunctionState().metricPress = XPLMFindDataRef("sim/physics/metric_press");
  RegisterTakeoverDatarefs();
  SimLogFormat("starting %s", kPluginDescription);
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
  WithdrawFromSimulator();
  gContext.reset();
}

int PluginEnable() {
  StartPanels();
  ReportUnitsFound();
  CurrentPluginState().splash.ticks = 0;
  RegisterFlightLoops();
  if (LoadOptionalXplmApi()) ResolveEngineAndAnnunciatorCommands();
  RegisterPluginCommands();
  if (CurrentModuleState().modulesInitialised) TheModuleManager().RefreshAll();
  return 1;
}

void PluginDisable() {
  UnregisterPluginCommands();
  UnregisterFlightLoops();
  TheModuleManager().ClearAll();
  StopPanels();
}

void PluginReceiveMessage(int from, int message, void* param) { HandleMessage(from, message, param); }

}  // namespace drav

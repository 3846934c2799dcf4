#include "plugin/FlightLoops.h"

#include <XPLMPlugin.h>
#include <XPLMProcessing.h>

#include "config/Assignments.h"
#include "functions/CustomDatarefs.h"
#include "hid/DeviceLayerControl.h"
#include "base/HostState.h"
#include "base/Log.h"
#include "base/Settings.h"
#include "plugin/PluginState.h"
#include "plugin/SplashWindow.h"
#include "plugin/TakeoverDatarefs.h"
#include "modules/InputEventQueue.h"
#include "modules/ModuleManager.h"
#include "modules/ModuleRegistry.h"
#include "modules/ModuleState.h"

namespace drav {

namespace {
constexpr int kSplashTicks = 6;  // the window lives through six ticks and goes on the seventh
}

float InputFlightLoop(float, float, int, void*) {
  // Units plugged in or out since the last frame join or leave before their input is handled.
  GFDev_ProcessDeviceChanges();
  // A unit whose input found the queue full last frame is heard again now that it was drained.
  GFDev_RedeliverRefusedInput();
  // Most frames carry no input: the queue's count answers that before the modules are reached.
  InputEventQueue& queue = TheInputQueue();
  if (queue.pending.load(std::memory_order_acquire) == 0) return kInputInterval;
  // Displays and lights answer an input in the same frame instead of waiting for the next tick.
  if (DrainQueue(queue, TheModuleManager())) TheModuleManager().RefreshAll();
  return kInputInterval;
}

float UpdateFlightLoop(float, float, int, void*) {
  if (!CurrentModuleState().modulesInitialised) {
    LoadAllAssignments();
    CurrentModuleState().modulesInitialised = true;
    SetSplashText();
  } else {
    TheModuleManager().RefreshAll();
  }
  int& splashTicks = CurrentPluginState().splash.ticks;
  if (splashTicks == kSplashTicks && SplashWindowExists()) {
    DestroySplashWindow();
    return kUpdateInterval;
  }
  if (splashTicks < kSplashTicks) ++splashTicks;
  return kUpdateInterval;
}

float AnnounceFlightLoop(float, float, int, void*) {
  if (CurrentSettings().ShowCustomDatarefs != 0) AnnounceCustomDatarefs();
  AnnounceDataref(kMcpProDisabledDataref);
  AnnounceDataref(kEfisDisabledDataref);
  return 0.0f;  // once only
}

namespace {

// A unit seen for the first time since the enable gets its module now. Its functions are loaded the
// way an aircraft load loads every unit's; before the first load, that load binds it with the rest.
void AddArrivedUnit(std::uint32_t moduleType, std::uint32_t unit) {
  ModuleManager& manager = TheModuleManager();
  {
    const GFDevInputHold hold;  // the input thread reads the container being grown
    if (!manager.AddModuleFor(moduleType, unit)) return;
  }
  SimLogFormat("panel plugged in: %s Unit %u.", ModelName(moduleType), static_cast<unsigned>(unit) + 1);
  GF_Abstract_Module* module = nullptr;
  if (!CurrentModuleState().modulesInitialised || manager.FindModule(moduleType, unit, &module) != 1) return;
  LoadUnitAssignments(moduleType, unit);
  module->UpdateOutputs();
}

}  // namespace

void ShowArrivedUnit(std::uint32_t moduleType, std::int32_t unit) {
  if (unit < 0) return;
  GF_Abstract_Module* module = nullptr;
  if (TheModuleManager().FindModule(moduleType, static_cast<std::uint32_t>(unit), &module) != 1) {
    AddArrivedUnit(moduleType, static_cast<std::uint32_t>(unit));
    return;
  }
  if (!CurrentModuleState().modulesInitialised) return;
  module->Register(static_cast<std::uint16_t>(unit));
  module->SetDisplay();
}

void RegisterFlightLoops() {
  XPLMRegisterFlightLoopCallback(UpdateFlightLoop, kUpdateInterval, nullptr);
  XPLMRegisterFlightLoopCallback(InputFlightLoop, kInputInterval, nullptr);
  XPLMRegisterFlightLoopCallback(AnnounceFlightLoop, kAnnounceDelay, nullptr);
}

void UnregisterFlightLoops() {
  XPLMUnregisterFlightLoopCallback(InputFlightLoop, nullptr);
  XPLMUnregisterFlightLoopCallback(UpdateFlightLoop, nullptr);
  XPLMUnregisterFlightLoopCallback(AnnounceFlightLoop, nullptr);
}

}  // namespace drav

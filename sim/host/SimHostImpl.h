// The state of the simulator behind the SDK functions: one instance per Reset, owned by SimHost.
#pragma once

#include <XPLMUtilities.h>

#include <cstdint>
#include <filesystem>

#include "host/CommandRegistry.h"
#include "host/DatarefStore.h"
#include "host/DrawRecorder.h"
#include "host/EventLog.h"
#include "host/FlightLoopScheduler.h"
#include "host/MenuRegistry.h"
#include "host/PluginRegistry.h"
#include "host/SlotTable.h"
#include "host/WidgetTree.h"
#include "host/WindowRegistry.h"

namespace sim {

inline constexpr int kDefaultXPlaneVersion = 12000;
inline constexpr const char* kDefaultUserAircraft = "Aircraft/Laminar Research/Cessna 172 SP/Cessna_172SP.acf";
inline constexpr int kXplmVersion = 400;
// A screen X-Plane runs at, small enough that windows placed for it fit any real screen.
inline constexpr int kDefaultScreenWidth = 1024;
inline constexpr int kDefaultScreenHeight = 768;

// Who took the last mouse down, so drags and the release follow it.
enum class MouseOwner { None, Window, Widget };

struct SimHostImpl {
  // Handles carry the generation, so those of an earlier simulator are recognised as bad.
  explicit SimHostImpl(std::uint16_t handleGeneration)
      : generation(handleGeneration),
        datarefs(events, handleGeneration),
        commands(events, handleGeneration),
        plugins(events),
        menus(handleGeneration),
        windows(handleGeneration),
        widgets(handleGeneration),
        probes(HandleKind::Probe, handleGeneration) {}

  std::uint16_t generation;
  EventLog events;
  DatarefStore datarefs;
  CommandRegistry commands;
  PluginRegistry plugins;
  FlightLoopScheduler flightLoops;
  MenuRegistry menus;
  WindowRegistry windows;
  WidgetTree widgets;
  DrawRecorder drawing;  // OpenGL and the SDK's drawing calls
  SlotTable<bool> probes;  // alive flags: probes exist, but there is no terrain to hit

  std::filesystem::path root;
  // The user's aircraft file, from root: X-Plane always has one loaded.
  std::filesystem::path userAircraft = kDefaultUserAircraft;
  std::int64_t frame = 0;
  int xplaneVersion = kDefaultXPlaneVersion;
  bool systemSymbolsAvailable = true;
  int screenWidth = kDefaultScreenWidth;
  int screenHeight = kDefaultScreenHeight;
  MouseOwner mouseOwner = MouseOwner::None;
  XPLMError_f errorCallback = nullptr;  // kept; the simulator reports no errors
};

}  // namespace sim

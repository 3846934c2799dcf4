// The state of the simulator behind the SDK functions: one instance per Reset, owned by SimHost.
#pragma once

#include <XPLMUtilities.h>

#include <cstdint>
#include <filesystem>

#include "host/CommandRegistry.h"
#include "host/DatarefStore.h"
#include "host/EventLog.h"
#include "host/FlightLoopScheduler.h"
#include "host/MenuRegistry.h"
#include "host/PluginRegistry.h"
#include "host/SlotTable.h"
#include "host/WindowRegistry.h"

namespace sim {

inline constexpr int kDefaultXPlaneVersion = 12000;
inline constexpr int kXplmVersion = 400;

struct SimHostImpl {
  // Handles carry the generation, so those of an earlier simulator are recognised as bad.
  explicit SimHostImpl(std::uint16_t handleGeneration)
      : generation(handleGeneration),
        datarefs(events, handleGeneration),
        commands(events, handleGeneration),
        plugins(events),
        menus(handleGeneration),
        windows(handleGeneration),
        probes(HandleKind::Probe, handleGeneration) {}

  std::uint16_t generation;
  EventLog events;
  DatarefStore datarefs;
  CommandRegistry commands;
  PluginRegistry plugins;
  FlightLoopScheduler flightLoops;
  MenuRegistry menus;
  WindowRegistry windows;
  SlotTable<bool> probes;  // alive flags: probes exist, but there is no terrain to hit

  std::filesystem::path root;
  std::int64_t frame = 0;
  int xplaneVersion = kDefaultXPlaneVersion;
  bool systemSymbolsAvailable = true;
  XPLMError_f errorCallback = nullptr;  // kept; the simulator reports no errors
};

}  // namespace sim

// A cockpit for measurements: the real plug-in, enabled in a fresh simulator (a temporary X-Plane
// folder), with virtual units plugged and every control of every unit bound to a function in
// DRAV.INI. The benchmarks and the allocation tests run their bodies inside it, between the
// plug-in's first refresh tick and its shutdown.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "hid/backend/VirtualHidBackend.h"

namespace drav::bench {

struct CockpitUnits {
  const char* model;  // as the scenario language names it: "GF-P8"
  std::uint32_t moduleType;
  int count;
};

// One unit of every model that has a module (the full cockpit) ...
std::span<const CockpitUnits> FullCockpit();
// ... and a large one: 32 GF-P8 and 16 GF-46.
std::span<const CockpitUnits> LargeCockpit();

// What the controls are bound to: catalogue functions, or commands and datarefs named in DRAV.INI
// itself (every button, switch, light, knob and display that takes one; the radios' modes, the
// levers and the gear panels keep their catalogue functions, as custom values do not reach them).
enum class CockpitBindings { kCatalogue, kCustom };

// The DRAV.INI that binds every control of these units (the keys the loader reads, each with a
// function of the control's kind).
std::string CockpitIni(std::span<const CockpitUnits> units, CockpitBindings bindings = CockpitBindings::kCatalogue);

struct Cockpit {
  VirtualHidBackend& panels;
  // The virtual path of unit `index` (0-based, in plug order) of a model.
  std::string PathOf(std::uint32_t moduleType, int index) const;
  std::span<const CockpitUnits> units;
};

// Boots the plug-in with the units plugged and the INI written, runs one simulated second (the
// assignments are loaded at the first refresh tick), then calls body. False when the set-up
// scenario reported an error or a failure (the body did not run).
bool RunInCockpit(std::span<const CockpitUnits> units, const std::function<void(Cockpit&)>& body,
                  std::string* output = nullptr, CockpitBindings bindings = CockpitBindings::kCatalogue);

// Simulated frames: the clock advances 1/60 s and every due flight loop runs, as in the simulator.
void RunFrames(int frames);

}  // namespace drav::bench

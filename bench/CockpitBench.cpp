// The plug-in's hot paths in a running cockpit (the real plug-in in the simulator host, virtual
// units, every control bound): the refresh of every module, the read thread's path from an input
// report to a queued event, the main thread's path from that event to the dataref write and the
// light report, and the load of every assignment.
#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <fstream>
#include <string>

#include "config/Assignments.h"
#include "base/IniFile.h"
#include "hid/DeviceClasses.h"
#include "hid/GFDev.h"
#include "plugin/FlightLoops.h"
#include "modules/DeviceInput.h"
#include "modules/InputEventQueue.h"
#include "modules/ModuleManager.h"
#include "host/SimHost.h"
#include "support/CockpitRig.h"

namespace {

using namespace drav;
using drav::bench::Cockpit;
using drav::bench::RunInCockpit;

constexpr std::uint32_t kGFP8 = 2;

void SkipUnlessRan(benchmark::State& state, bool ran) {
  if (!ran) state.SkipWithError("the cockpit did not boot");
}

using CockpitOf = std::span<const bench::CockpitUnits> (*)();
constexpr auto kCatalogue = bench::CockpitBindings::kCatalogue;
constexpr auto kCustom = bench::CockpitBindings::kCustom;

void BM_RefreshAll(benchmark::State& state, CockpitOf units, bench::CockpitBindings bindings) {
  const bool ran = RunInCockpit(
      units(),
      [&](Cockpit&) {
        const ModuleManager& manager = TheModuleManager();
        for (auto _ : state) manager.RefreshAll();
      },
      nullptr, bindings);
  SkipUnlessRan(state, ran);
}
BENCHMARK_CAPTURE(BM_RefreshAll, full_cockpit, &bench::FullCockpit, kCatalogue)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_RefreshAll, large_cockpit, &bench::LargeCockpit, kCatalogue)->Unit(benchmark::kMicrosecond);
// The same cockpits with every control that takes one bound to a command or dataref by name.
BENCHMARK_CAPTURE(BM_RefreshAll, full_cockpit_custom, &bench::FullCockpit, kCustom)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_RefreshAll, large_cockpit_custom, &bench::LargeCockpit, kCustom)->Unit(benchmark::kMicrosecond);

// A frame in which the pilot touches nothing, in a full cockpit: the every-frame loop, and every
// thirtieth frame the refresh tick (the plug-in's half-second update), so the figure is the mean
// cost per frame of a cockpit at rest.
constexpr int kFramesPerRefresh = 30;

void BM_IdleCockpitFrame(benchmark::State& state, bench::CockpitBindings bindings) {
  const bool ran = RunInCockpit(
      bench::FullCockpit(),
      [&](Cockpit&) {
        int frame = 0;
        for (auto _ : state) {
          InputFlightLoop(1.0f / 60.0f, 1.0f / 60.0f, frame, nullptr);
          if (++frame % kFramesPerRefresh == 0) UpdateFlightLoop(0.5f, 0.5f, frame, nullptr);
        }
      },
      nullptr, bindings);
  SkipUnlessRan(state, ran);
}
BENCHMARK_CAPTURE(BM_IdleCockpitFrame, catalogue, kCatalogue);
BENCHMARK_CAPTURE(BM_IdleCockpitFrame, custom, kCustom);

// The read thread's work for one GF-P8 report: decode it against the unit's last state and hand
// the record through the layer's input gate to the plug-in's callback, which decodes the change
// and queues one event. The button's bit changes with every report, so every report yields an
// event; the queue is emptied (untimed) before it can fill.
void BM_InputReportToQueuedEvent(benchmark::State& state) {
  const bool ran = RunInCockpit(bench::FullCockpit(), [&](Cockpit&) {
    const DeviceClass& p8 = *FindDeviceClass(kGFP8);
    LastInputState last;
    std::array<std::array<std::uint8_t, 2>, 2> reports{{{0, 0x01}, {0, 0x00}}};
    InputEventQueue& queue = TheInputQueue();
    InputEvent event;
    std::int64_t queued = 0;
    int next = 0;
    for (auto _ : state) {
      const auto& report = reports[next];
      next ^= 1;
      if (p8.decodeInput(report.data(), report.size(), last) == InputDecode::Deliver) {
        GFDev_DeliverInput(kGFP8, 0, last.bytes.data());
      }
      if (queue.pending.load(std::memory_order_relaxed) >= kInputQueueCapacity / 2) {
        state.PauseTiming();
        while (TakeInputEvent(queue, &event)) ++queued;
        state.ResumeTiming();
      }
    }
    while (TakeInputEvent(queue, &event)) ++queued;
    state.counters["events_per_report"] =
        benchmark::Counter(static_cast<double>(queued) / static_cast<double>(state.iterations()));
  });
  SkipUnlessRan(state, ran);
}
BENCHMARK(BM_InputReportToQueuedEvent);

// The main thread's work for one button event: the every-frame loop takes it, the GF-P8 module
// runs the landing-light function, and the refresh that follows queues the unit's new light
// report. The button goes down and up in turn and every press toggles the lights, so the figure
// is the mean of a press (dataref write and light report) and a release (refresh only).
void BM_QueuedEventToDatarefAndLights(benchmark::State& state) {
  const bool ran = RunInCockpit(bench::FullCockpit(), [&](Cockpit& cockpit) {
    const DeviceClass& p8 = *FindDeviceClass(kGFP8);
    LastInputState last;
    std::array<InputEvent, 2> events{};
    const std::array<std::array<std::uint8_t, 2>, 2> reports{{{0, 0x01}, {0, 0x00}}};
    InputEventQueue& queue = TheInputQueue();
    for (int i = 0; i < 2; ++i) {  // the two events the read thread would queue
      p8.decodeInput(reports[i].data(), reports[i].size(), last);
      DeliverDeviceInput(TheModuleManager(), queue, kGFP8, 0, last.bytes.data());
      TakeInputEvent(queue, &events[i]);
    }
    int next = 0;
    std::int64_t frames = 0;
    for (auto _ : state) {
      const InputEvent& event = events[next];
      next ^= 1;
      PushInputEvent(queue, event.moduleType, event.unit, event.control, event.value);
      InputFlightLoop(0.0f, 0.0f, 0, nullptr);
      if (++frames % 4096 == 0) {  // the virtual unit records every report it gets
        state.PauseTiming();
        cockpit.panels.ClearSent();
        state.ResumeTiming();
      }
    }
  });
  SkipUnlessRan(state, ran);
}
BENCHMARK(BM_QueuedEventToDatarefAndLights)->Unit(benchmark::kMicrosecond);

// The user's aircraft carries a DRAV.INI of its own: `sections` says whether it holds every unit's
// section (each key is then read from it) or none (each key is still asked of both files).
void GiveAircraftProfile(const Cockpit& cockpit, bool sections) {
  sim::SimHost& host = sim::SimHost::Current();
  host.SetUserAircraft("Aircraft/Bench/bench.acf");
  std::ofstream(host.UserAircraftFile().parent_path() / kConfigFileName, std::ios::binary)
      << (sections ? bench::CockpitIni(cockpit.units) : std::string("[CONFIG]\n"));
}

// Every unit's section read key by key from DRAV.INI, and every unit re-registered. Argument 0: the
// aircraft has no DRAV.INI; 1: one without unit sections; 2: one with every unit's section.
void BM_LoadAllAssignments(benchmark::State& state) {
  const bool ran = RunInCockpit(bench::FullCockpit(), [&](Cockpit& cockpit) {
    if (state.range(0) > 0) GiveAircraftProfile(cockpit, state.range(0) == 2);
    for (auto _ : state) {
      LoadAllAssignments();
      state.PauseTiming();
      cockpit.panels.ClearSent();
      state.ResumeTiming();
    }
  });
  SkipUnlessRan(state, ran);
}
BENCHMARK(BM_LoadAllAssignments)->Arg(0)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

}  // namespace

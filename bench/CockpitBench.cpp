// The plug-in's hot paths in a running cockpit (the real plug-in in the simulator host, virtual
// units, every control bound): the refresh of every module, the read thread's path from an input
// report to a queued event, the main thread's path from that event to the dataref write and the
// light report, and the load of every assignment.
#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>

#include "config/Assignments.h"
#include "hid/DeviceClasses.h"
#include "hid/GFDev.h"
#include "plugin/FlightLoops.h"
#include "modules/DeviceInput.h"
#include "modules/InputEventQueue.h"
#include "modules/ModuleManager.h"
#include "support/CockpitRig.h"

namespace {

using namespace drav;
using drav::bench::Cockpit;
using drav::bench::RunInCockpit;

constexpr std::uint32_t kGFP8 = 2;

void SkipUnlessRan(benchmark::State& state, bool ran) {
  if (!ran) state.SkipWithError("the cockpit did not boot");
}

void BM_RefreshAll(benchmark::State& state, std::span<const bench::CockpitUnits> (*units)()) {
  const bool ran = RunInCockpit(units(), [&](Cockpit&) {
    const ModuleManager& manager = TheModuleManager();
    for (auto _ : state) manager.RefreshAll();
  });
  SkipUnlessRan(state, ran);
}
BENCHMARK_CAPTURE(BM_RefreshAll, full_cockpit, &bench::FullCockpit)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_RefreshAll, large_cockpit, &bench::LargeCockpit)->Unit(benchmark::kMicrosecond);

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

// Every unit's section read key by key from DRAV.INI, and every unit re-registered.
void BM_LoadAllAssignments(benchmark::State& state) {
  const bool ran = RunInCockpit(bench::FullCockpit(), [&](Cockpit& cockpit) {
    for (auto _ : state) {
      LoadAllAssignments();
      state.PauseTiming();
      cockpit.panels.ClearSent();
      state.ResumeTiming();
    }
  });
  SkipUnlessRan(state, ran);
}
BENCHMARK(BM_LoadAllAssignments)->Unit(benchmark::kMillisecond);

}  // namespace

// The device layer's every-frame and start-up costs: the idle input loop, and enumeration among
// devices that are not panels.
#include <benchmark/benchmark.h>

#include <chrono>
#include <memory>
#include <thread>
#include <string>

#include "hid/DeviceLayerControl.h"
#include "hid/GFDev.h"
#include "hid/ModelTable.h"
#include "plugin/FlightLoops.h"
#include "modules/InputEventQueue.h"
#include "support/CountingBackend.h"

namespace {

using namespace drav;

// A frame with no input and no plug event: what the plug-in costs the simulator every frame while
// the pilot touches nothing. The quiet backend answers the every-frame question as the Linux one
// does; the virtual panels (tests, dravsim) take a lock for it.
void BM_InputFlightLoopIdle(benchmark::State& state, bool virtualPanels) {
  if (virtualPanels) {
    InstallHidBackend(std::make_unique<VirtualHidBackend>());
  } else {
    InstallHidBackend(std::make_unique<bench::QuietBackend>());
  }
  GFDev_Start(nullptr);
  for (auto _ : state) {
    float next = InputFlightLoop(0.0f, 0.0f, 0, nullptr);
    benchmark::DoNotOptimize(next);
  }
  GFDev_Stop();
  InstallHidBackend(nullptr);
}
BENCHMARK_CAPTURE(BM_InputFlightLoopIdle, change_queue_backend, false);
BENCHMARK_CAPTURE(BM_InputFlightLoopIdle, virtual_panels, true);

VirtualUnitSpec ForeignDevice(int index) {
  VirtualUnitSpec spec;
  spec.vendorId = 0x1234;  // another vendor: a keyboard, a mouse, a joystick ...
  spec.productId = static_cast<std::uint16_t>(0xC000 + index);
  spec.capabilities = HidCapabilities{8, 8, 8};
  return spec;
}

VirtualUnitSpec Panel(std::uint32_t moduleType) {
  VirtualUnitSpec spec;
  spec.productId = FindPanelModel(moduleType)->productId;
  spec.capabilities = HidCapabilities{8, 8, 8};
  return spec;
}

// Start-up with 20 foreign HID devices and two panels present. Counters: opens of each foreign
// device (the goal is one: read its ids, close it) and of each panel (one to read its ids, then
// the handles the unit keeps while it runs).
void BM_EnumerateAmongForeignDevices(benchmark::State& state) {
  auto owned = std::make_unique<bench::CountingBackend>();
  bench::CountingBackend& backend = *owned;
  InstallHidBackend(std::move(owned));
  for (int i = 0; i < 20; ++i) backend.Panels().Plug("/dev/foreign" + std::to_string(i), ForeignDevice(i));
  backend.Panels().Plug("/dev/p8", Panel(2));
  backend.Panels().Plug("/dev/mcp", Panel(6));
  for (auto _ : state) {
    state.PauseTiming();
    backend.ClearCounts();
    state.ResumeTiming();
    GFDev_Start(nullptr);
    state.PauseTiming();
    GFDev_Stop();
    state.ResumeTiming();
  }
  backend.ClearCounts();
  GFDev_Start(nullptr);
  std::this_thread::sleep_for(std::chrono::milliseconds(50));  // the write threads open their own
  double foreignOpens = 0;
  for (int i = 0; i < 20; ++i) foreignOpens += backend.OpensOf("/dev/foreign" + std::to_string(i));
  state.counters["opens_per_foreign_device"] = foreignOpens / 20;
  state.counters["opens_per_panel"] = (backend.OpensOf("/dev/p8") + backend.OpensOf("/dev/mcp")) / 2.0;
  GFDev_Stop();
  InstallHidBackend(nullptr);
}
BENCHMARK(BM_EnumerateAmongForeignDevices)->Unit(benchmark::kMicrosecond);

}  // namespace

// A running cockpit in steady state costs the simulator no heap allocation per frame, idle or
// busy, and an idle cockpit sends its units nothing: every report would cost a USB transfer and
// the units' firmware time, for lights that did not change.
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <thread>

#include "CountingNew.h"
#include "XPLMDataAccess.h"
#include "functions/CustomBindings.h"
#include "hid/DeviceClasses.h"
#include "hid/DeviceLayerControl.h"
#include "hid/GFDev.h"
#include "plugin/FlightLoops.h"
#include "host/SimHost.h"
#include "modules/InputEventQueue.h"
#include "modules/ModuleManager.h"
#include "support/CockpitRig.h"

namespace drav {
namespace {

using alloc::AllocationCounter;
using bench::Cockpit;
using bench::RunInCockpit;

constexpr std::uint32_t kGFP8 = 2;
constexpr int kFramesPerSecond = 60;
constexpr int kFramesPerRefresh = 30;  // the update loop's half second

// One frame as the simulator drives the plug-in: the input loop every frame, the refresh loop
// every half second. Called directly, so that the simulator host's own bookkeeping is not counted.
void PluginFrame(int frame) {
  InputFlightLoop(1.0f / kFramesPerSecond, 1.0f / kFramesPerSecond, frame, nullptr);
  if (frame % kFramesPerRefresh == 0) UpdateFlightLoop(0.5f, 0.5f, frame, nullptr);
}

// What a GF-P8's read thread does with one switch report, done on this thread.
void DeliverP8Switches(LastInputState& last, std::uint8_t switches) {
  const std::array<std::uint8_t, 2> report{0, switches};
  if (FindDeviceClass(kGFP8)->decodeInput(report.data(), report.size(), last) == InputDecode::Deliver) {
    GFDev_DeliverInput(kGFP8, 0, last.bytes.data());
  }
}

std::size_t SentToAnyUnit(const Cockpit& cockpit) {
  std::size_t sent = 0;
  for (const bench::CockpitUnits& model : cockpit.units) {
    for (int unit = 0; unit < model.count; ++unit) {
      sent += cockpit.panels.Sent(cockpit.PathOf(model.moduleType, unit)).size();
    }
  }
  return sent;
}

// Explicit calls of the allocation functions: an optimising compiler may leave out a new-expression
// whose memory is never used, which is not what this test is about.
void AllocateAndFree() { ::operator delete(::operator new(32)); }

TEST(CountingAllocator, CountsTheAllocationsOfThisThreadOnly) {
  std::atomic<bool> go{false};
  std::size_t otherThreadCount = 0;
  std::thread other([&] {  // made before counting: starting a thread allocates on its creator
    while (!go.load()) std::this_thread::yield();
    AllocationCounter counter;
    AllocateAndFree();
    otherThreadCount = counter.Count();
  });
  AllocationCounter counter;
  AllocateAndFree();
  AllocateAndFree();
  go.store(true);
  other.join();
  const std::size_t ours = counter.Count();  // before a failing check allocates its message
  EXPECT_EQ(otherThreadCount, 1u);
  EXPECT_EQ(ours, 2u) << "only this thread's two allocations count here";
}

TEST(SteadyStateFrames, IdleFramesAllocateNothing) {
  std::size_t allocations = 1;
  ASSERT_TRUE(RunInCockpit(bench::FullCockpit(), [&](Cockpit&) {
    for (int frame = 0; frame < kFramesPerSecond; ++frame) PluginFrame(frame);  // settle
    AllocationCounter counter;
    for (int frame = 0; frame < 10 * kFramesPerSecond; ++frame) PluginFrame(frame);
    allocations = counter.Count();
  }));
  EXPECT_EQ(allocations, 0u) << "allocations in ten idle seconds";
}

// Controls bound to commands and datarefs by name read their lights and displays through handles
// found when they were built: a frame does no look-up and no string work for them either.
TEST(SteadyStateFrames, IdleFramesOfACustomCockpitAllocateNothing) {
  std::size_t allocations = 1;
  FunctionId firstButton = kNada;
  ASSERT_TRUE(RunInCockpit(
      bench::FullCockpit(),
      [&](Cockpit&) {
        GF_Abstract_Module* p8 = nullptr;
        if (TheModuleManager().FindModule(kGFP8, 0, &p8) == 1 && p8 != nullptr) firstButton = p8->GetAssignedFunction('1');
        for (int frame = 0; frame < kFramesPerSecond; ++frame) PluginFrame(frame);  // settle
        AllocationCounter counter;
        for (int frame = 0; frame < 10 * kFramesPerSecond; ++frame) PluginFrame(frame);
        allocations = counter.Count();
      },
      nullptr, bench::CockpitBindings::kCustom));
  EXPECT_TRUE(IsCustomFunction(firstButton)) << "the cockpit's controls must hold custom bindings";
  EXPECT_EQ(allocations, 0u) << "allocations in ten idle seconds";
}

TEST(SteadyStateFrames, BusyFramesAllocateNothing) {
  std::size_t allocations = 1;
  std::size_t hostEvents = 0;
  std::size_t hostAllocationsPerEvent = 0;
  std::size_t sent = 0;
  ASSERT_TRUE(RunInCockpit(bench::FullCockpit(), [&](Cockpit& cockpit) {
    LastInputState last;
    // A first second of presses and releases, so that everything made on first use exists.
    for (int frame = 0; frame < kFramesPerSecond; ++frame) {
      DeliverP8Switches(last, frame % 2 == 0 ? 0x01 : 0x00);
      PluginFrame(frame);
    }
    ASSERT_TRUE(GFDev_WaitForOutputIdle(std::chrono::seconds(2)));
    cockpit.panels.ClearSent();
    sim::SimHost& host = sim::SimHost::Current();
    // The simulator host (not X-Plane) logs every dataref write as a text for the scenarios, which
    // costs it allocations of its own: measured here on two writes of the same dataref.
    host.ClearEvents();
    XPLMDataRef landingLights = XPLMFindDataRef("sim/cockpit/electrical/landing_lights_on");
    const int lightsBefore = XPLMGetDatai(landingLights);
    AllocationCounter hostCounter;
    XPLMSetDatai(landingLights, 1 - lightsBefore);
    XPLMSetDatai(landingLights, lightsBefore);
    ASSERT_EQ(host.Events().size(), 2u);
    hostAllocationsPerEvent = hostCounter.Count() / 2;
    host.ClearEvents();
    AllocationCounter counter;
    // The landing-light button goes down and up in turn, one event a frame; every press toggles
    // the lights: a dataref write and a light report.
    for (int frame = 0; frame < 10 * kFramesPerSecond; ++frame) {
      DeliverP8Switches(last, frame % 2 == 0 ? 0x01 : 0x00);
      PluginFrame(frame);
      // Emptying the log keeps its capacity, so the log itself does not grow.
      hostEvents += host.Events().size();
      host.ClearEvents();
    }
    allocations = counter.Count();
    ASSERT_TRUE(GFDev_WaitForOutputIdle(std::chrono::seconds(2)));
    sent = cockpit.panels.Sent(cockpit.PathOf(kGFP8, 0)).size();
  }));
  EXPECT_GT(hostEvents, 0u) << "the presses must have written the dataref";
  EXPECT_EQ(allocations, hostEvents * hostAllocationsPerEvent)
      << "allocations beyond the host's own log, in ten busy seconds";
  EXPECT_GT(sent, 0u) << "the presses must have lit the unit, or the frames were not busy";
}

class IdleCockpitOutput : public ::testing::TestWithParam<std::span<const bench::CockpitUnits> (*)()> {};

TEST_P(IdleCockpitOutput, SendsNothingForASimulatedMinute) {
  std::size_t sent = 1;
  std::size_t sentAfterChange = 0;
  ASSERT_TRUE(RunInCockpit(GetParam()(), [&](Cockpit& cockpit) {
    bench::RunFrames(kFramesPerSecond);  // the first refreshes after loading
    ASSERT_TRUE(GFDev_WaitForOutputIdle(std::chrono::seconds(2)));
    cockpit.panels.ClearSent();
    bench::RunFrames(60 * kFramesPerSecond);
    ASSERT_TRUE(GFDev_WaitForOutputIdle(std::chrono::seconds(2)));
    sent = SentToAnyUnit(cockpit);
    // The same cockpit does answer a change, so the silence above is not a dead link.
    LastInputState last;
    DeliverP8Switches(last, 0x01);
    bench::RunFrames(1);
    ASSERT_TRUE(GFDev_WaitForOutputIdle(std::chrono::seconds(2)));
    sentAfterChange = SentToAnyUnit(cockpit);
  }));
  EXPECT_EQ(sent, 0u) << "reports sent by an idle cockpit in one simulated minute";
  EXPECT_GT(sentAfterChange, 0u);
}

INSTANTIATE_TEST_SUITE_P(Cockpits, IdleCockpitOutput,
                         ::testing::Values(&bench::FullCockpit, &bench::LargeCockpit),
                         [](const auto& info) { return info.index == 0 ? "Full" : "Large"; });

}  // namespace
}  // namespace drav

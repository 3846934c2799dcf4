#include "modules/ModuleManager.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ModuleTestSupport.h"
#include "hid/GFDev.h"
#include "modules/DeviceInput.h"

namespace drav {
namespace {

using drav_modules_test::DecoderModule;
using drav_modules_test::ScriptedRecord;
using drav_modules_test::TestModule;
using drav_modules_test::WalkLog;
using P8Like = TestModule<kModuleGFP8>;
using Gf46Like = TestModule<kModuleGF46>;

// What the fake device layer reports as present.
std::int32_t gP8Units = 0;
std::int32_t gGf46Units = 0;
std::int32_t gDioUnits = 0;
std::int32_t gAtcUnits = 0;

std::int32_t P8Count() { return gP8Units; }
std::int32_t Gf46Count() { return gGf46Units; }
std::int32_t DioCount() { return gDioUnits; }
std::int32_t AtcCount() { return gAtcUnits; }

const PanelModel kNotAModel{static_cast<ModuleType>(25), "GF-25", "GF25", "GF25_%d", 0x0025, 4, {}};

const ModelDescriptor kDio{&kPanelModelRows[kModuleGFDIO], &DioCount, &MakeModuleVector<DecoderModule>, nullptr};
const ModelDescriptor kGf46{&kPanelModelRows[kModuleGF46], &Gf46Count, &MakeModuleVector<Gf46Like>, nullptr};
const ModelDescriptor kAtc{&kPanelModelRows[kModuleGFATC], &AtcCount, nullptr, nullptr};  // a model without class
const ModelDescriptor kP8{&kPanelModelRows[kModuleGFP8], &P8Count, &MakeModuleVector<P8Like>, nullptr};
const ModelDescriptor kTwentyFive{&kNotAModel, &P8Count, &MakeModuleVector<P8Like>, nullptr};  // ignored

// Deliberately not in type order: the walks go by type number, not by table order.
const ModelDescriptor* const kTestModels[] = {&kDio, &kGf46, &kAtc, &kP8, &kTwentyFive};

class ModuleManagerTest : public ::testing::Test {
 protected:
  void SetUp() override {
    gP8Units = gGf46Units = gDioUnits = gAtcUnits = 0;
    WalkLog().clear();
  }

  template <class T>
  T* Find(std::uint32_t type, std::uint32_t unit) {
    GF_Abstract_Module* module = nullptr;
    if (manager.FindModule(type, unit, &module) != 1) return nullptr;
    return static_cast<T*>(module);
  }

  void Sized(std::int32_t p8, std::int32_t gf46, std::int32_t dio) {
    gP8Units = p8;
    gGf46Units = gf46;
    gDioUnits = dio;
    manager.CreateModules();
  }

  ModuleManager manager{kTestModels};
};

TEST_F(ModuleManagerTest, GrowingKeepsTheExistingObjectsAndAddsFreshOnes) {
  Sized(1, 0, 0);
  P8Like* first = Find<P8Like>(kModuleGFP8, 0);
  first->marker = 42;
  Sized(3, 0, 0);
  ASSERT_EQ(manager.UnitCount(kModuleGFP8), 3);
  EXPECT_EQ(Find<P8Like>(kModuleGFP8, 0), first);
  EXPECT_EQ(first->marker, 42);
  EXPECT_EQ(Find<P8Like>(kModuleGFP8, 1)->marker, 0);
  EXPECT_EQ(Find<P8Like>(kModuleGFP8, 2)->marker, 0);
  EXPECT_EQ(P8Like::live, 3);  // no object made on the way is left over
}

// A unit that joins mid-flight gets its object while the others are in use: nobody moves (a bound
// function may hold a module's address) and nobody loses state; a number kept free for an absent
// unit leaves a gap filled with a fresh object.
TEST_F(ModuleManagerTest, AMidFlightNewcomerMovesNobody) {
  Sized(1, 0, 0);
  P8Like* first = Find<P8Like>(kModuleGFP8, 0);
  first->marker = 7;
  ASSERT_TRUE(manager.AddModuleFor(kModuleGFP8, 2));
  EXPECT_EQ(manager.UnitCount(kModuleGFP8), 3);
  EXPECT_EQ(Find<P8Like>(kModuleGFP8, 0), first);
  EXPECT_EQ(first->marker, 7);
  for (std::uint32_t unit = 3; unit < static_cast<std::uint32_t>(kMaxUnitsPerModel); ++unit) {
    ASSERT_TRUE(manager.AddModuleFor(kModuleGFP8, unit));
  }
  EXPECT_EQ(Find<P8Like>(kModuleGFP8, 0), first);
  EXPECT_FALSE(manager.AddModuleFor(kModuleGFP8, kMaxUnitsPerModel));
  EXPECT_FALSE(manager.AddModuleFor(kModuleGFATC, 0));  // no class, no object
  ASSERT_TRUE(manager.AddModuleFor(kModuleGFP8, 1));  // already there: nothing changes
  EXPECT_EQ(manager.UnitCount(kModuleGFP8), kMaxUnitsPerModel);
}

TEST_F(ModuleManagerTest, ShrinkingDestroysTheLastObjectsOnly) {
  Sized(0, 3, 0);
  for (std::uint32_t unit = 0; unit < 3; ++unit) Find<Gf46Like>(kModuleGF46, unit)->marker = 10 + unit;
  Sized(0, 2, 0);
  ASSERT_EQ(manager.UnitCount(kModuleGF46), 2);
  EXPECT_EQ(Find<Gf46Like>(kModuleGF46, 0)->marker, 10);
  EXPECT_EQ(Find<Gf46Like>(kModuleGF46, 1)->marker, 11);
  EXPECT_EQ(Gf46Like::live, 2);
  Sized(0, 0, 0);
  EXPECT_EQ(Gf46Like::live, 0);
}

TEST_F(ModuleManagerTest, FindModuleAnswersOnlyForExistingUnits) {
  gAtcUnits = 5;
  Sized(2, 0, 0);
  GF_Abstract_Module* module = nullptr;
  EXPECT_EQ(manager.FindModule(kModuleGFP8, 1, &module), 1);
  EXPECT_EQ(module, Find<P8Like>(kModuleGFP8, 1));
  EXPECT_NE(module, Find<P8Like>(kModuleGFP8, 0));

  const std::pair<std::uint32_t, std::uint32_t> missing[] = {
      {kModuleGFP8, 2}, {kModuleGFATC, 0}, {0, 0}, {20, 0}, {25, 0}, {kModuleGFP8, 0xFFFF'FFFFu}};
  for (const auto& [type, unit] : missing) {
    module = reinterpret_cast<GF_Abstract_Module*>(0x1);
    EXPECT_EQ(manager.FindModule(type, unit, &module), -1) << type << ":" << unit;
    EXPECT_EQ(module, nullptr);
  }
  EXPECT_EQ(manager.FindModule(kModuleGFP8, 0, nullptr), 1);
  EXPECT_EQ(manager.UnitCount(kModuleGFATC), 0);
  EXPECT_EQ(manager.UnitCount(0), 0);
  EXPECT_EQ(manager.UnitCount(20), 0);
}

TEST_F(ModuleManagerTest, UnbelievableCountsAreBounded) {
  Sized(-4, 1000, 0);
  EXPECT_EQ(manager.UnitCount(kModuleGFP8), 0);
  EXPECT_EQ(manager.UnitCount(kModuleGF46), kMaxUnitsPerModel);
  Sized(0, 0, 0);
}

TEST_F(ModuleManagerTest, WalksGoByTypeThenUnitAscending) {
  Sized(2, 1, 1);
  for (std::uint32_t type : {kModuleGFP8, kModuleGF46, kModuleGFDIO}) {
    for (std::uint32_t unit = 0; unit < static_cast<std::uint32_t>(manager.UnitCount(type)); ++unit) {
      GF_Abstract_Module* module = nullptr;
      manager.FindModule(type, unit, &module);
      module->unit = static_cast<std::uint16_t>(unit);
    }
  }

  manager.RefreshAll();
  manager.ClearAll();
  const std::vector<std::string> expected = {"Update 2:0", "Update 2:1", "Update 8:0", "Update 19:0",
                                             "Clear 2:0",  "Clear 2:1",  "Clear 8:0",  "Clear 19:0"};
  EXPECT_EQ(WalkLog(), expected);
}

TEST_F(ModuleManagerTest, DrainHandsEventsToTheirModulesAndDropsOrphans) {
  Sized(2, 0, 0);
  InputEventQueue queue;
  PushInputEvent(queue, kModuleGFP8, 1, 2, 1);
  PushInputEvent(queue, kModuleGFP8, 7, 2, 1);   // no such unit
  PushInputEvent(queue, kModuleGFATC, 0, 0, 1);  // no such class
  PushInputEvent(queue, kModuleGFP8, 1, 2, 0);

  EXPECT_TRUE(DrainQueue(queue, manager));
  const std::vector<InputEvent> expected = {{kModuleGFP8, 0, 2, 1}, {kModuleGFP8, 0, 2, 0}};
  EXPECT_EQ(Find<P8Like>(kModuleGFP8, 1)->handled, expected);  // unit field not registered: 0
  EXPECT_TRUE(Find<P8Like>(kModuleGFP8, 0)->handled.empty());
  EXPECT_EQ(queue.pending.load(), 0);

  PushInputEvent(queue, kModuleGFP8, 9, 0, 1);
  EXPECT_TRUE(DrainQueue(queue, manager));  // only an orphan: still processed
  EXPECT_FALSE(DrainQueue(queue, manager));
}

// ---- the input callback ---------------------------------------------------------------------

class DeviceInputTest : public ModuleManagerTest {
 protected:
  int Deliver(std::uint32_t type, std::uint16_t unit, const void* record) {
    return DeliverDeviceInput(manager, queue, type, unit, record);
  }
  std::vector<InputEvent> Queued() {
    std::vector<InputEvent> events;
    DrainQueue(queue, [&events](const InputEvent& event) { events.push_back(event); });
    return events;
  }
  InputEventQueue queue;
};

TEST_F(DeviceInputTest, DecodedChangeIsQueuedWithTypeAndUnit) {
  Sized(2, 0, 0);
  const ScriptedRecord record{3, -2};
  EXPECT_EQ(Deliver(kModuleGFP8, 1, &record), 1);
  EXPECT_EQ(Queued(), (std::vector<InputEvent>{{kModuleGFP8, 1, 3, -2}}));
}

TEST_F(DeviceInputTest, NothingIsQueuedWithoutRecordModuleOrChange) {
  Sized(1, 0, 0);
  const ScriptedRecord press{0, 1};
  const ScriptedRecord noChange{-1, 0};
  EXPECT_EQ(Deliver(kModuleGFP8, 0, nullptr), 1);
  EXPECT_EQ(Deliver(kModuleGFP8, 1, &press), 1);   // unit beyond the last enable
  EXPECT_EQ(Deliver(kModuleGFATC, 0, &press), 1);  // type without class
  EXPECT_EQ(Deliver(0, 0, &press), 1);
  EXPECT_EQ(Deliver(kModuleGFP8, 0, &noChange), 1);
  EXPECT_EQ(queue.pending.load(), 0);
  EXPECT_EQ(Find<P8Like>(kModuleGFP8, 0)->getButtonCalls, 1);  // only the no-change record
}

TEST_F(DeviceInputTest, AFullQueueRefusesTheRecordBeforeTheDecoderSeesIt) {
  Sized(1, 0, 0);
  for (std::int32_t i = 0; i < kInputQueueCapacity; ++i) PushInputEvent(queue, kModuleGFP8, 0, 7, i);
  const ScriptedRecord press{0, 1};
  EXPECT_EQ(Deliver(kModuleGFP8, 0, &press), kGFDevInputRefused);
  EXPECT_EQ(Find<P8Like>(kModuleGFP8, 0)->getButtonCalls, 0) << "a refused change must stay undecoded";
  InputEvent oldest;
  ASSERT_TRUE(TakeInputEvent(queue, &oldest));
  EXPECT_EQ(Deliver(kModuleGFP8, 0, &press), 1);
  EXPECT_EQ(Find<P8Like>(kModuleGFP8, 0)->getButtonCalls, 1);
  EXPECT_EQ(queue.pending.load(), kInputQueueCapacity);
}

TEST_F(DeviceInputTest, ModelWithItsOwnDecoderNeverReachesGetButton) {
  Sized(0, 0, 1);
  const ScriptedRecord record{4, 1};
  Deliver(kModuleGFDIO, 0, &record);
  EXPECT_EQ(Queued(), (std::vector<InputEvent>{{kModuleGFDIO, 0, 1004, 1}}));
  auto* dio = Find<DecoderModule>(kModuleGFDIO, 0);
  EXPECT_EQ(dio->decodeInputCalls, 1);
  EXPECT_EQ(dio->getButtonCalls, 0);
}

// The plug-in's receiver, connected to the device layer as the plug-in connects it at enable.
TEST_F(DeviceInputTest, PluginReceiverIgnoresInputBeforeAnyModuleExists) {
  ReceiveDeviceInput();
  const ScriptedRecord press{0, 1};
  EXPECT_TRUE(GFDev_DeliverInput(kModuleGFP8, 31, &press));
  EXPECT_TRUE(GFDev_DeliverInput(kModuleGFP8, 0, nullptr));
  EXPECT_EQ(TheInputQueue().pending.load(), 0);
}

// A receiver leaves the layer when it goes, so that no read thread calls into a manager and a
// queue that are gone; what the layer delivers afterwards reaches no one and is not refused.
TEST_F(DeviceInputTest, AReceiverLeavesTheDeviceLayerWhenItGoes) {
  Sized(1, 0, 0);
  for (std::int32_t i = 0; i < kInputQueueCapacity; ++i) PushInputEvent(queue, kModuleGFP8, 0, 7, i);
  const ScriptedRecord press{0, 1};
  {
    DeviceInputReceiver receiver(manager, queue);
    receiver.Connect();
    EXPECT_FALSE(GFDev_DeliverInput(kModuleGFP8, 0, &press)) << "the full queue refuses it";
  }
  EXPECT_TRUE(GFDev_DeliverInput(kModuleGFP8, 0, &press));
  EXPECT_EQ(Find<P8Like>(kModuleGFP8, 0)->getButtonCalls, 0);
}

}  // namespace
}  // namespace drav

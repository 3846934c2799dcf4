// The device input receiver between the device threads and the modules: what it queues, what it
// refuses (no record, no module, no change, a full queue) and that it leaves the layer when it goes.
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

const ModelDescriptor kDio{RegisteredPanelModel(kModuleGFDIO), &DioCount, &MakeModuleVector<DecoderModule>, nullptr};
const ModelDescriptor kGf46{RegisteredPanelModel(kModuleGF46), &Gf46Count, &MakeModuleVector<Gf46Like>, nullptr};
const ModelDescriptor kAtc{RegisteredPanelModel(kModuleGFATC), &AtcCount, nullptr, nullptr};  // a model without class
const ModelDescriptor kP8{RegisteredPanelModel(kModuleGFP8), &P8Count, &MakeModuleVector<P8Like>, nullptr};
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

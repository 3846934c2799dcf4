#include "modules/GFP8_Module.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "LightBoxTestSupport.h"
#include "hid/InputRecords.h"

namespace drav {
namespace {

using lightboxtest::LightBoxTest;

std::int32_t Decode(GFP8_Module& module, std::uint8_t switches, std::int32_t* value) {
  const GFP8InputRecord record{switches};
  return module.GetButton(&record, value);
}

// ---- decoding -----------------------------------------------------------------------------------

TEST(GFP8DecodeTest, TwoButtonsPressedTogetherAreReportedOneRecordAtATime) {
  GFP8_Module module;
  std::int32_t value = -7;
  EXPECT_EQ(Decode(module, 0b0010'0100, &value), 2);
  EXPECT_EQ(value, 1);
  EXPECT_EQ(module.PrevSwitchVals(), 0b0000'0100);  // bit 5 is still pending

  value = -7;
  EXPECT_EQ(Decode(module, 0b0010'0100, &value), 5);  // the same record again yields the other one
  EXPECT_EQ(value, 1);

  value = -7;
  EXPECT_EQ(Decode(module, 0b0010'0100, &value), -1);
  EXPECT_EQ(value, -7);  // nothing to report: value untouched
}

TEST(GFP8DecodeTest, PressAndReleaseOfButtonThree) {
  GFP8_Module module;
  std::int32_t value = 0;
  EXPECT_EQ(Decode(module, 0b100, &value), 2);
  EXPECT_EQ(value, 1);
  EXPECT_EQ(Decode(module, 0, &value), 2);
  EXPECT_EQ(value, 0);
  EXPECT_EQ(Decode(module, 0, &value), -1);
}

TEST(GFP8DecodeTest, NullRecordReportsNothing) {
  GFP8_Module module;
  std::int32_t value = 3;
  EXPECT_EQ(module.GetButton(nullptr, &value), -1);
  EXPECT_EQ(value, 3);
}

TEST(GFP8DecodeTest, CopyKeepsTheDecodingStateAndBindings) {
  GFP8_Module original;
  std::int32_t value = 0;
  Decode(original, 0b1000'0001, &value);  // bit 0 recorded, bit 7 pending
  GFP8_Module copy(original);
  EXPECT_EQ(copy.PrevSwitchVals(), 0b0000'0001);
  EXPECT_EQ(Decode(copy, 0b1000'0001, &value), 7);
  EXPECT_EQ(original.PrevSwitchVals(), 0b0000'0001);  // the original is not affected
}

// Register resets the decoding state on the main thread while reports are decoded on the input
// thread. Under TSan this must stay clean, and every reported change must describe the record it
// came from.
TEST(GFP8DecodeTest, RegisterWhileDecodingIsSafe) {
  GFP8_Module module;
  std::atomic<bool> stop{false};
  std::atomic<int> decoded{0};
  int reports = 0;
  int mismatches = 0;
  std::thread input([&] {
    std::uint8_t switches = 0;
    while (!stop.load()) {
      switches ^= 0x01;
      std::int32_t value = -1;
      const std::int32_t control = Decode(module, switches, &value);
      ++decoded;
      if (control == -1) continue;
      ++reports;
      if (control != 0 || value != (switches & 0x01)) ++mismatches;
    }
  });
  while (decoded.load() < 2000) module.Register(0);
  stop = true;
  input.join();
  EXPECT_GT(reports, 0);
  EXPECT_EQ(mismatches, 0);
}

// ---- input handling and lights ------------------------------------------------------------------

class GFP8ModuleTest : public LightBoxTest {};

TEST_F(GFP8ModuleTest, ButtonTogglesItsLightSwitchOncePerPressAndTheLightFollows) {
  Set(lightboxtest::kLandingLightsPath, 0);
  GFP8_Module module;
  module.Register(0);
  module.AssignFunction('3', lightboxtest::kLandingLts, -1, -1);
  EXPECT_EQ(module.GetAssignedFunction('3'), lightboxtest::kLandingLts);

  module.HandleInput(2, 1);
  module.HandleInput(2, 0);  // the release does not toggle back
  EXPECT_EQ(Get(lightboxtest::kLandingLightsPath), 1);
  module.UpdateOutputs();
  EXPECT_EQ(module.LastIndicators(), 0b0000'0100);

  module.HandleInput(2, 1);
  EXPECT_EQ(Get(lightboxtest::kLandingLightsPath), 0);
  module.UpdateOutputs();
  EXPECT_EQ(module.LastIndicators(), 0);
}

TEST_F(GFP8ModuleTest, LightFollowsTheSimulatorNotOnlyThePanel) {
  GFP8_Module module;
  module.Register(0);
  module.AssignFunction('8', lightboxtest::kLandingLts, -1, -1);
  Set(lightboxtest::kLandingLightsPath, 1);  // switched on in the cockpit
  module.UpdateOutputs();
  EXPECT_EQ(module.LastIndicators(), 0b1000'0000);
}

TEST_F(GFP8ModuleTest, LightsAreDarkWithoutPowerAndComeBackWithIt) {
  Set(lightboxtest::kLandingLightsPath, 1);
  GFP8_Module module;
  module.Register(0);
  module.AssignFunction('1', lightboxtest::kLandingLts, -1, -1);
  DarkAircraft();
  module.UpdateOutputs();
  EXPECT_EQ(module.LastIndicators(), 0);

  Set("sim/cockpit/electrical/battery_on", 1);
  module.UpdateOutputs();
  EXPECT_EQ(module.LastIndicators(), 0b1);
}

TEST_F(GFP8ModuleTest, UnknownKeysAndUnboundControlsDoNothing) {
  GFP8_Module module;
  module.Register(0);
  module.AssignFunction('9', lightboxtest::kLandingLts, -1, -1);
  module.AssignFunction('0', lightboxtest::kLandingLts, -1, -1);
  for (std::uint8_t key : {'1', '8', '9', 'A', 'Z'}) EXPECT_EQ(module.GetAssignedFunction(key), 0) << key;

  module.HandleInput(0, 1);   // unbound
  module.HandleInput(8, 1);   // not a control of the model
  module.HandleInput(-1, 1);
  EXPECT_EQ(Get(lightboxtest::kLandingLightsPath), 0);
}

TEST_F(GFP8ModuleTest, RebindingToNadaUnbindsTheButton) {
  GFP8_Module module;
  module.AssignFunction('2', lightboxtest::kLandingLts, -1, -1);
  module.AssignFunction('2', 0, -1, -1);
  EXPECT_EQ(module.GetAssignedFunction('2'), 0);
  module.HandleInput(1, 1);
  EXPECT_EQ(Get(lightboxtest::kLandingLightsPath), 0);
}

TEST_F(GFP8ModuleTest, TraceLinesUseTheModelsTexts) {
  TraceAll();
  Set(lightboxtest::kLandingLightsPath, 0);
  GFP8_Module module;
  module.Register(0);
  module.AssignFunction('2', lightboxtest::kLandingLts, -1, -1);
  std::int32_t value = 0;
  Decode(module, 0b10, &value);
  module.HandleInput(1, 1);
  module.SetDisplay();

  EXPECT_TRUE(Logged("GFP8_Module::Register - PrevSwitchVals = 0000000000000000"));
  EXPECT_TRUE(Logged("GFP8_Module::GetButton - BtnState = 0100000000000000"));
  EXPECT_TRUE(Logged("GFP8_Module::HandleInput -  Button = 1, Value = 1"));
  EXPECT_TRUE(Logged("GFP8_Module::SetDisplay - Indicators = 0100000000000000"));
}

TEST_F(GFP8ModuleTest, NoTraceWhenTheSwitchesAreOff) {
  gDebug.DebugEnabled = 1;
  InitLogPath();
  GFP8_Module module;
  module.Register(0);
  std::int32_t value = 0;
  Decode(module, 0b1, &value);
  module.HandleInput(0, 1);
  EXPECT_TRUE(LogLines().empty());
}

}  // namespace
}  // namespace drav

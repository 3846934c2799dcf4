#include "modules/GFT8_Module.h"

#include <gtest/gtest.h>

#include "LightBoxTestSupport.h"
#include "hid/InputRecords.h"

namespace drav {
namespace {

using lightboxtest::LightBoxTest;

std::int32_t Decode(GFT8_Module& module, std::uint8_t switches, std::int32_t* value) {
  const GFT8InputRecord record{switches};
  return module.GetButton(&record, value);
}

TEST(GFT8DecodeTest, SwitchesThrownTogetherAreReportedLowestFirst) {
  GFT8_Module module;
  std::int32_t value = 0;
  EXPECT_EQ(Decode(module, 0b1100'0000, &value), 6);
  EXPECT_EQ(value, 1);
  // Switch 8 went back off before its change was reported: it was never on as far as anyone
  // knows, so there is nothing to report for it.
  value = 9;
  EXPECT_EQ(Decode(module, 0b0100'0000, &value), -1);
  EXPECT_EQ(value, 9);
  EXPECT_EQ(Decode(module, 0b0000'0000, &value), 6);
  EXPECT_EQ(value, 0);
  EXPECT_EQ(Decode(module, 0, &value), -1);
}

TEST(GFT8DecodeTest, OnlyTheTwoWiredReversedFunctionsAreInverted) {
  EXPECT_TRUE(GFT8_Module::IsInvertedSwitchFunction(lightboxtest::kLandingGear));
  EXPECT_TRUE(GFT8_Module::IsInvertedSwitchFunction(lightboxtest::kApDisengage));
  EXPECT_FALSE(GFT8_Module::IsInvertedSwitchFunction(lightboxtest::kLandingLts));
  EXPECT_FALSE(GFT8_Module::IsInvertedSwitchFunction(0));
}

class GFT8ModuleTest : public LightBoxTest {};

TEST_F(GFT8ModuleTest, SwitchSetsItsFunctionOnAndOffNotToggling) {
  Set(lightboxtest::kLandingLightsPath, 0);
  GFT8_Module module;
  module.AssignFunction('4', lightboxtest::kLandingLts, -1, -1);
  module.Register(0);

  module.HandleInput(3, 1);
  module.HandleInput(3, 1);  // a repeated "on" stays on
  EXPECT_EQ(Get(lightboxtest::kLandingLightsPath), 1);
  module.UpdateOutputs();
  EXPECT_EQ(module.LastIndicators(), 0b1000);

  module.HandleInput(3, 0);
  EXPECT_EQ(Get(lightboxtest::kLandingLightsPath), 0);
}

TEST_F(GFT8ModuleTest, LandingGearSwitchUpRaisesTheGear) {
  GFT8_Module module;
  module.AssignFunction('1', lightboxtest::kLandingGear, -1, -1);
  module.Register(0);

  module.HandleInput(0, 1);  // switch up
  EXPECT_EQ(Get(lightboxtest::kGearHandlePath), 0);
  module.HandleInput(0, 0);  // switch down
  EXPECT_EQ(Get(lightboxtest::kGearHandlePath), 1);
}

// No unit is plugged, so every switch reads off at registration: each bound function is set to
// off, the inverted ones to on, before any input arrives.
TEST_F(GFT8ModuleTest, RegisterSynchronisesEverySwitchWithItsPosition) {
  Set(lightboxtest::kLandingLightsPath, 1);
  Set(lightboxtest::kGearHandlePath, 0);
  GFT8_Module module;
  module.AssignFunction('1', lightboxtest::kLandingGear, -1, -1);
  module.AssignFunction('2', lightboxtest::kLandingLts, -1, -1);

  module.Register(0);
  EXPECT_EQ(Get(lightboxtest::kLandingLightsPath), 0);
  EXPECT_EQ(Get(lightboxtest::kGearHandlePath), 1);
  EXPECT_EQ(module.PrevSwitchVals(), 0);
}

TEST_F(GFT8ModuleTest, RegisterWithoutBindingsWritesNothing) {
  GFT8_Module module;
  Host().ClearEvents();
  module.Register(0);
  EXPECT_TRUE(Host().Events().empty());
}

TEST_F(GFT8ModuleTest, TraceLinesUseTheModelsTextsAndTheGFP8DecodeLabel) {
  TraceAll();
  GFT8_Module module;
  module.AssignFunction('1', lightboxtest::kLandingLts, -1, -1);
  module.Register(0);
  std::int32_t value = 0;
  Decode(module, 0b1, &value);
  module.HandleInput(0, 1);
  module.UpdateOutputs();

  EXPECT_TRUE(Logged("GFT8_Module::Register - PrevSwitchVals = 0000000000000000"));
  EXPECT_TRUE(Logged("GFP8_Module::GetButton - BtnState = 1000000000000000"));
  EXPECT_TRUE(Logged("GFT8_Module::HandleInput -  Button = 0, Value = 1"));
  EXPECT_TRUE(Logged("GFT8_Module::SetDisplay - Indicators = 1000000000000000"));
}

TEST_F(GFT8ModuleTest, KeysOutsideOneToEightAreIgnored) {
  GFT8_Module module;
  module.AssignFunction('9', lightboxtest::kLandingLts, -1, -1);
  module.AssignFunction('A', lightboxtest::kLandingLts, -1, -1);
  EXPECT_EQ(module.GetAssignedFunction('9'), 0);
  EXPECT_EQ(module.GetAssignedFunction('A'), 0);
  EXPECT_EQ(module.GetAssignedFunction('Z'), 0);
}

}  // namespace
}  // namespace drav

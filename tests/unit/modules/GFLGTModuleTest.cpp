#include "modules/GFLGT_Module.h"

#include <gtest/gtest.h>

#include "GFLGTTestSupport.h"
#include "hid/InputRecords.h"

namespace drav {
namespace {

using geartest::GearModuleTest;
using lightboxtest::kGearHandlePath;
using lightboxtest::kLandingGear;
using lightboxtest::kLandingLightsPath;
using lightboxtest::kLandingLts;

constexpr std::uint8_t kLeverBit = 0x01;
constexpr std::uint8_t kFlapsUp = 0x02;
constexpr std::uint8_t kFlapsDown = 0x04;

std::int32_t Decode(GFLGT_Module& module, std::int16_t wheel, std::uint8_t switches, std::int32_t* value) {
  const GFLGTInputRecord record{wheel, switches};
  return module.GetButton(&record, value);
}

// ---- decoding -----------------------------------------------------------------------------------

TEST(GFLGTDecodeTest, WheelComesBeforeRockerAndLever) {
  GFLGT_Module module;
  std::int32_t value = 0;
  EXPECT_EQ(Decode(module, -3, kFlapsDown | kLeverBit, &value), 2);
  EXPECT_EQ(value, -3);
  EXPECT_EQ(module.GearPosition(), 0);  // the lever was not looked at
  EXPECT_EQ(Decode(module, 0, kFlapsDown | kLeverBit, &value), 1);
  EXPECT_EQ(value, 1);
  EXPECT_EQ(Decode(module, 0, kLeverBit, &value), 0);
  EXPECT_EQ(value, 1);
}

TEST(GFLGTDecodeTest, HeldRockerReportsEveryRecordAndUpWinsOverDown) {
  GFLGT_Module module;
  std::int32_t value = 0;
  for (int record = 0; record < 3; ++record) {
    value = 0;
    EXPECT_EQ(Decode(module, 0, kFlapsDown, &value), 1);
    EXPECT_EQ(value, 1);
  }
  EXPECT_EQ(Decode(module, 0, kFlapsUp | kFlapsDown, &value), 1);
  EXPECT_EQ(value, -1);
}

TEST(GFLGTDecodeTest, LeverReportsOnlyWhenItMoves) {
  GFLGT_Module module;
  std::int32_t value = 0;
  EXPECT_EQ(Decode(module, 0, kLeverBit, &value), 0);
  EXPECT_EQ(value, 1);
  value = 77;
  EXPECT_EQ(Decode(module, 0, kLeverBit, &value), -1);
  EXPECT_EQ(value, 77);
  EXPECT_EQ(Decode(module, 0, 0, &value), 0);
  EXPECT_EQ(value, -1);
  EXPECT_EQ(module.GearPosition(), -1);
  EXPECT_EQ(module.GetButton(nullptr, &value), -1);
}

// ---- registration and handling ------------------------------------------------------------------

TEST_F(GearModuleTest, LGTRegisterPutsTheGearWhereTheLeverIs) {
  Set(kGearHandlePath, 0);
  GFLGT_Module module;
  module.AssignFunction('L', kLandingGear, -1, -1);
  module.Register(0);  // no device: lever bit 0 clear, the lever is down
  EXPECT_EQ(module.GearPosition(), -1);
  EXPECT_EQ(Get(kGearHandlePath), 1);

  std::int32_t value = 0;
  ASSERT_EQ(Decode(module, 0, kLeverBit, &value), 0);
  ASSERT_EQ(value, 1);
  module.HandleInput(0, value);
  EXPECT_EQ(Get(kGearHandlePath), 0);
}

TEST_F(GearModuleTest, LGTLandingGearIsOneCallWhateverTheValue) {
  GFLGT_Module module;
  module.AssignFunction('L', kLandingGear, -1, -1);
  Host().ClearEvents();
  module.HandleInput(0, 1);
  const std::size_t oneCall = Host().Events().size();
  EXPECT_EQ(Get(kGearHandlePath), 0);
  Host().ClearEvents();
  module.HandleInput(0, 5);
  EXPECT_EQ(Host().Events().size(), oneCall);
  module.HandleInput(0, 0);  // below 1: down
  EXPECT_EQ(Get(kGearHandlePath), 1);
}

TEST_F(GearModuleTest, LGTRockerStepsOncePerUnitInItsDirection) {
  GFLGT_Module module;
  module.AssignFunction('S', geartest::kFlapsUpDown, -1, -1);
  Host().ClearEvents();
  module.HandleInput(1, -1);
  const std::size_t oneStep = Host().Events().size();
  ASSERT_GT(oneStep, 0u);
  Host().ClearEvents();
  module.HandleInput(1, -3);
  EXPECT_EQ(Host().Events().size(), 3 * oneStep);

  // Direction: another switch function on the rocker shows On for down, Off for up.
  module.AssignFunction('S', kLandingLts, -1, -1);
  module.HandleInput(1, 1);
  EXPECT_EQ(Get(kLandingLightsPath), 1);
  module.HandleInput(1, -1);
  EXPECT_EQ(Get(kLandingLightsPath), 0);
}

TEST_F(GearModuleTest, LGTWheelTrimsByCountTimesGain) {
  GFLGT_Module module;
  module.AssignFunction('W', geartest::kElevTrim, -1, -1);
  module.SetWheelGain(3);
  module.HandleInput(2, 2);
  EXPECT_NEAR(Get(geartest::kElevTrimPath), 6 * 0.005, 1e-5);
  module.HandleInput(2, -1);
  EXPECT_NEAR(Get(geartest::kElevTrimPath), 3 * 0.005, 1e-5);
}

TEST_F(GearModuleTest, LGTUnboundWheelDropsItsEvents) {
  GFLGT_Module module;
  module.AssignFunction('W', geartest::kElevTrim, -1, -1);
  module.AssignFunction('W', kLandingLts, -1, -1);  // a switch function makes no wheel
  EXPECT_EQ(module.wheel, nullptr);
  module.HandleInput(2, 4);
  module.HandleInput(9, 4);  // no such control
  EXPECT_EQ(Get(geartest::kElevTrimPath), 0);
  EXPECT_EQ(Get(kLandingLightsPath), 0);
}

TEST_F(GearModuleTest, LGTKeysAreWLSOnly) {
  GFLGT_Module module;
  module.AssignFunction('W', geartest::kElevTrim, -1, -1);
  module.AssignFunction('L', kLandingGear, -1, -1);
  module.AssignFunction('S', geartest::kFlapsUpDown, -1, -1);
  module.AssignFunction('G', geartest::kAileronTrim, -1, -1);
  EXPECT_EQ(module.GetAssignedFunction('W'), geartest::kElevTrim);
  EXPECT_EQ(module.GetAssignedFunction('L'), kLandingGear);
  EXPECT_EQ(module.GetAssignedFunction('S'), geartest::kFlapsUpDown);
  EXPECT_EQ(module.GetAssignedFunction('G'), 0);
  EXPECT_EQ(module.GetAssignedFunction('1'), 0);
}

// ---- gear lights --------------------------------------------------------------------------------

TEST_F(GearModuleTest, LGTLightsInFlightFollowEachLegsRatio) {
  GFLGT_Module module;
  module.Register(0);
  InFlight(1.0, 0.5, 0.0);
  module.SetDisplay();
  EXPECT_EQ(module.LastIndicators(), 0x80 | 0x04);

  InFlight(0.98, 0.021, 0.02);  // the limits: 0.98 is down, 0.02 is up
  module.SetDisplay();
  EXPECT_EQ(module.LastIndicators(), 0x80 | 0x04);
  InFlight(0.97, 1.0, 0.5);
  module.SetDisplay();
  EXPECT_EQ(module.LastIndicators(), 0x40 | 0x08 | 0x10);
}

TEST_F(GearModuleTest, LGTLightsOnTheGroundFollowTheHandle) {
  GFLGT_Module module;
  module.Register(0);
  Set(geartest::kDeployPath, 0.0);  // ratios do not count on the ground
  module.SetDisplay();
  EXPECT_EQ(module.LastIndicators(), 0x80 | 0x08 | 0x20);
  Set(kGearHandlePath, 0);
  module.SetDisplay();
  EXPECT_EQ(module.LastIndicators(), 0x40 | 0x04 | 0x10);
}

TEST_F(GearModuleTest, LGTFailedLegShowsOnlyItsTransitLight) {
  GFLGT_Module module;
  module.Register(0);
  Set(geartest::kFailure2Path, 6);  // the second failure belongs to gear 3
  module.SetDisplay();
  EXPECT_EQ(module.LastIndicators(), 0x80 | 0x08 | 0x10);
  Set(geartest::kFailure2Path, 5);  // other failure states do not count
  Set(geartest::kFailure3Path, 6);  // and the third to gear 2
  module.SetDisplay();
  EXPECT_EQ(module.LastIndicators(), 0x80 | 0x04 | 0x20);
}

TEST_F(GearModuleTest, LGTFixedGearIsDarkUnlessALegFailed) {
  GFLGT_Module module;
  module.Register(0);
  Set(geartest::kRetractPath, 0);
  module.SetDisplay();
  EXPECT_EQ(module.LastIndicators(), 0);
  Set(geartest::kFailure1Path, 6);
  module.SetDisplay();
  EXPECT_EQ(module.LastIndicators(), 0x40);
}

TEST_F(GearModuleTest, LGTLightsAreDarkWithoutPowerAndClearForgetsThem) {
  GFLGT_Module module;
  module.Register(0);
  module.UpdateOutputs();
  EXPECT_EQ(module.LastIndicators(), 0xA8);
  DarkAircraft();
  module.UpdateOutputs();
  EXPECT_EQ(module.LastIndicators(), 0);
  Set("sim/cockpit/electrical/battery_on", 1);
  module.UpdateOutputs();
  EXPECT_EQ(module.LastIndicators(), 0xA8);
  module.ClearDisplay();
  EXPECT_EQ(module.LastIndicators(), 0);
}

// Older simulators keep the ratios further into a longer array.
TEST_F(GearModuleTest, DeployRatiosMoveWithTheSimulatorVersion) {
  ASSERT_TRUE(Host().AddDataref({geartest::kDeployPath, sim::DatarefType::FloatArray, 80, true}));
  Set(geartest::kOnGroundPath, 0);
  SetDeploy(67, 1.0, 1.0, 1.0);
  SetDeploy(52, 0.5, 0.5, 0.5);
  GFLGT_Module module;
  module.Register(0);

  gSimulatorVersions.xplaneVersion = 799;
  module.SetDisplay();
  EXPECT_EQ(module.LastIndicators(), 0xA8);
  gSimulatorVersions.xplaneVersion = 699;
  module.SetDisplay();
  EXPECT_EQ(module.LastIndicators(), 0x54);
  gSimulatorVersions.xplaneVersion = 800;
  module.SetDisplay();
  EXPECT_EQ(module.LastIndicators(), 0);
}

// ---- trace lines --------------------------------------------------------------------------------

TEST_F(GearModuleTest, LGTTraceLinesUseTheModelsTexts) {
  TraceAll();
  GFLGT_Module module;
  module.Register(0);
  std::int32_t value = 0;
  Decode(module, -2, kFlapsDown | kLeverBit, &value);
  module.HandleInput(2, -2);
  module.SetDisplay();

  EXPECT_TRUE(Logged("GFLGT_Module::Register - SwitchState = 0000000000000000"));
  EXPECT_TRUE(Logged("GFLGT_Module::GetButton -  Wheel = -2"));
  EXPECT_TRUE(Logged("GFLGT_Module::GetButton - BtnState = 1010000000000000"));
  EXPECT_TRUE(Logged("GFLGT_Module::HandleInput -  ControlID = 2, Value = -2"));
  EXPECT_TRUE(Logged("GFLGT_Module::SetDisplay - Indicators = 0001010100000000"));
}

}  // namespace
}  // namespace drav

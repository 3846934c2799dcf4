#include "modules/GFLGT2_Module.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

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
constexpr std::uint8_t kRight = 0x04;
constexpr std::uint8_t kLeft = 0x08;
constexpr std::uint8_t kFlapsDown = 0x10;
constexpr std::uint8_t kFlapsUp = 0x20;

// The fuel selector dataref's values for left, right and both.
constexpr double kTankLeft = 1;
constexpr double kTankRight = 3;
constexpr double kTankBoth = 4;

std::int32_t Decode(GFLGT2_Module& module, std::int16_t a, std::int16_t b, std::int16_t c, std::uint8_t switches,
                    std::int32_t* value) {
  const GFLGT2InputRecord record{{a, b, c}, switches};
  return module.GetButton(&record, value);
}

// A module whose lever position is known (up), so that lever reports do not mask what is tested.
GFLGT2_Module LeverUpModule() {
  GFLGT2_Module module;
  std::int32_t value = 0;
  Decode(module, 0, 0, 0, kLeverBit, &value);
  return module;
}

// ---- decoding -----------------------------------------------------------------------------------

TEST(GFLGT2DecodeTest, WheelsInOrderAndWheelCCountsBackwards) {
  GFLGT2_Module module;
  std::int32_t value = 0;
  EXPECT_EQ(Decode(module, 1, 2, 3, kLeverBit, &value), 4);
  EXPECT_EQ(value, 1);
  EXPECT_EQ(Decode(module, 0, -2, 3, kLeverBit, &value), 5);
  EXPECT_EQ(value, -2);
  EXPECT_EQ(Decode(module, 0, 0, 2, kLeverBit, &value), 6);
  EXPECT_EQ(value, -2);
  EXPECT_EQ(Decode(module, 0, 0, -32768, 0, &value), 6);
  EXPECT_EQ(value, 32768);  // negated without overflow
  EXPECT_EQ(module.GearPosition(), 0);
}

TEST(GFLGT2DecodeTest, LeverComesBeforeTheRocker) {
  GFLGT2_Module module;
  std::int32_t value = 0;
  EXPECT_EQ(Decode(module, 0, 0, 0, kLeverBit | kFlapsUp, &value), 0);
  EXPECT_EQ(value, 1);
  EXPECT_EQ(Decode(module, 0, 0, 0, kLeverBit | kFlapsUp, &value), 1);
  EXPECT_EQ(value, -1);
  EXPECT_EQ(Decode(module, 0, 0, 0, kLeverBit | kFlapsDown, &value), 1);
  EXPECT_EQ(value, 1);
  EXPECT_EQ(Decode(module, 0, 0, 0, kLeverBit | kFlapsDown | kFlapsUp, &value), 1);
  EXPECT_EQ(value, -1);
}

TEST(GFLGT2DecodeTest, SelectorContactsReportChangesOnly) {
  GFLGT2_Module module = LeverUpModule();
  std::int32_t value = 0;
  EXPECT_EQ(Decode(module, 0, 0, 0, kLeverBit | kRight, &value), 2);
  EXPECT_EQ(value, 1);
  value = 55;
  EXPECT_EQ(Decode(module, 0, 0, 0, kLeverBit | kRight, &value), -1);
  EXPECT_EQ(value, 55);
  // Right to left in one record: the right contact opening first, then the left closing.
  EXPECT_EQ(Decode(module, 0, 0, 0, kLeverBit | kLeft, &value), 2);
  EXPECT_EQ(value, 0);
  EXPECT_EQ(Decode(module, 0, 0, 0, kLeverBit | kLeft, &value), 3);
  EXPECT_EQ(value, 1);
  EXPECT_EQ(module.PrevSwitchVals() & (kLeft | kRight), kLeft);
}

TEST(GFLGT2DecodeTest, ContactChangesWaitWhileTheRockerIsHeld) {
  GFLGT2_Module module = LeverUpModule();
  std::int32_t value = 0;
  EXPECT_EQ(Decode(module, 0, 0, 0, kLeverBit | kFlapsDown | kRight, &value), 1);
  EXPECT_EQ(module.PrevSwitchVals() & kRight, 0);
  EXPECT_EQ(Decode(module, 0, 0, 0, kLeverBit | kRight, &value), 2);
  EXPECT_EQ(value, 1);
}

TEST(GFLGT2DecodeTest, CopiesKeepTheDecodingState) {
  GFLGT2_Module module = LeverUpModule();
  std::int32_t value = 0;
  Decode(module, 0, 0, 0, kLeverBit | kLeft, &value);
  GFLGT2_Module copy = module;
  EXPECT_EQ(copy.GearPosition(), 1);
  EXPECT_EQ(copy.PrevSwitchVals() & kLeft, kLeft);
  EXPECT_EQ(Decode(copy, 0, 0, 0, kLeverBit | kLeft, &value), -1);
}

// The input thread decodes while the main thread re-registers the unit: every lever report must
// still be a real change of position (TSan checks the shared decoding state).
TEST_F(GearModuleTest, LGT2DecodingRacesRegisterSafely) {
  GFLGT2_Module module;
  std::atomic<bool> stop{false};
  std::atomic<int> badReports{0};
  std::thread input([&] {
    std::int32_t value = 0;
    for (int i = 0; !stop.load(); ++i) {
      const std::uint8_t lever = (i & 1) != 0 ? kLeverBit : 0;
      const std::int32_t control = Decode(module, 0, 0, 0, lever, &value);
      if (control == 0 && value != (lever != 0 ? 1 : -1)) ++badReports;
    }
  });
  for (int i = 0; i < 200; ++i) module.Register(0);
  stop = true;
  input.join();
  EXPECT_EQ(badReports.load(), 0);
}

// ---- registration and handling ------------------------------------------------------------------

TEST_F(GearModuleTest, LGT2RegisterSyncsGearAndSelector) {
  Set(kGearHandlePath, 0);
  Set(geartest::kFuelSelectorPath, kTankLeft);
  GFLGT2_Module module;
  module.AssignFunction('J', kLandingGear, -1, -1);
  module.AssignFunction('L', geartest::kFuelFeedLeft, -1, -1);
  module.AssignFunction('M', geartest::kFuelFeedAll, -1, -1);
  module.AssignFunction('N', geartest::kFuelFeedRight, -1, -1);
  module.Register(0);  // no device: lever down, no contact closed, so both tanks
  EXPECT_EQ(module.GearPosition(), -1);
  EXPECT_EQ(module.PrevSwitchVals(), 0);
  EXPECT_EQ(Get(kGearHandlePath), 1);
  EXPECT_EQ(Get(geartest::kFuelSelectorPath), kTankBoth);
}

TEST_F(GearModuleTest, LGT2SelectorContactsFeedTheirTanks) {
  GFLGT2_Module module;
  module.AssignFunction('L', geartest::kFuelFeedLeft, -1, -1);
  module.AssignFunction('M', geartest::kFuelFeedAll, -1, -1);
  module.AssignFunction('N', geartest::kFuelFeedRight, -1, -1);
  module.HandleInput(2, 1);
  EXPECT_EQ(Get(geartest::kFuelSelectorPath), kTankRight);
  module.HandleInput(2, 0);  // right to both
  EXPECT_EQ(Get(geartest::kFuelSelectorPath), kTankBoth);
  module.HandleInput(3, 1);
  EXPECT_EQ(Get(geartest::kFuelSelectorPath), kTankLeft);
  module.HandleInput(3, 0);
  EXPECT_EQ(Get(geartest::kFuelSelectorPath), kTankBoth);
}

TEST_F(GearModuleTest, LGT2GearAndRockerBehaveAsOnTheLGT) {
  GFLGT2_Module module;
  module.AssignFunction('J', kLandingGear, -1, -1);
  module.AssignFunction('K', kLandingLts, -1, -1);
  module.HandleInput(0, 1);
  EXPECT_EQ(Get(kGearHandlePath), 0);
  module.HandleInput(0, -1);
  EXPECT_EQ(Get(kGearHandlePath), 1);
  module.HandleInput(1, 1);
  EXPECT_EQ(Get(kLandingLightsPath), 1);
  module.HandleInput(1, -1);
  EXPECT_EQ(Get(kLandingLightsPath), 0);
}

TEST_F(GearModuleTest, LGT2WheelsUseTheirOwnGains) {
  GFLGT2_Module module;
  module.AssignFunction('G', geartest::kAileronTrim, -1, -1);
  module.AssignFunction('H', geartest::kElevTrim, -1, -1);
  module.AssignFunction('I', geartest::kRudderTrim, -1, -1);
  module.SetWheelGain(0, 2);
  module.SetWheelGain(1, 4);
  module.SetWheelGain(2, 3);
  module.SetWheelGain(3, 9);  // no fourth wheel: ignored

  std::int32_t value = 0;
  ASSERT_EQ(Decode(module, 0, 0, 2, 0, &value), 6);
  module.HandleInput(6, value);  // rudder: event -2, gain 3
  EXPECT_NEAR(Get(geartest::kRudderTrimPath), -6 * 0.001, 1e-6);
  module.HandleInput(4, 5);
  EXPECT_NEAR(Get(geartest::kAileronTrimPath), 10 * 0.001, 1e-6);
  module.HandleInput(5, -1);
  EXPECT_NEAR(Get(geartest::kElevTrimPath), -4 * 0.005, 1e-6);
}

TEST_F(GearModuleTest, LGT2ReverseFixesNegateOnlyTheirOwnWheel) {
  GFLGT2_Module module;
  module.AssignFunction('G', geartest::kAileronTrim, -1, -1);
  module.AssignFunction('H', geartest::kElevTrim, -1, -1);
  module.AssignFunction('I', geartest::kRudderTrim, -1, -1);
  module.SetWheelGain(2, 3);

  gSettings.GFLGT2RudderReverseFix = 1;
  module.HandleInput(6, -2);
  EXPECT_NEAR(Get(geartest::kRudderTrimPath), 6 * 0.001, 1e-6);
  module.HandleInput(4, 1);
  module.HandleInput(5, 1);
  EXPECT_NEAR(Get(geartest::kAileronTrimPath), 0.001, 1e-6);
  EXPECT_NEAR(Get(geartest::kElevTrimPath), 0.005, 1e-6);

  gSettings = GlobalSettings{};
  gSettings.GFLGT2AileronReverseFix = 1;
  gSettings.GFLGT2ElevatorReverseFix = 1;
  module.HandleInput(4, 2);
  module.HandleInput(5, 2);
  EXPECT_NEAR(Get(geartest::kAileronTrimPath), -0.001, 1e-6);
  EXPECT_NEAR(Get(geartest::kElevTrimPath), -0.005, 1e-6);
}

TEST_F(GearModuleTest, LGT2KeysGToN) {
  GFLGT2_Module module;
  module.AssignFunction('G', geartest::kAileronTrim, -1, -1);
  module.AssignFunction('K', geartest::kFlapsUpDown, -1, -1);
  module.AssignFunction('N', geartest::kFuelFeedRight, -1, -1);
  module.AssignFunction('O', geartest::kFuelFeedRight, -1, -1);
  module.AssignFunction('I', kLandingLts, -1, -1);  // no avionic object: wheel C stays unbound
  EXPECT_EQ(module.GetAssignedFunction('G'), geartest::kAileronTrim);
  EXPECT_EQ(module.GetAssignedFunction('K'), geartest::kFlapsUpDown);
  EXPECT_EQ(module.GetAssignedFunction('N'), geartest::kFuelFeedRight);
  EXPECT_EQ(module.GetAssignedFunction('I'), 0);
  EXPECT_EQ(module.GetAssignedFunction('O'), 0);
  EXPECT_EQ(module.GetAssignedFunction('F'), 0);
  module.HandleInput(6, 3);  // dropped
  module.HandleInput(7, 3);  // no such control
  EXPECT_EQ(Get(geartest::kRudderTrimPath), 0);
}

// ---- gear lights --------------------------------------------------------------------------------

TEST_F(GearModuleTest, LGT2LightsOnTheGroundAndWithAFailure) {
  GFLGT2_Module module;
  module.Register(0);
  module.SetDisplay();
  EXPECT_EQ(module.LastIndicators(), 0x54);
  Set(geartest::kFailure2Path, 6);
  module.SetDisplay();
  EXPECT_EQ(module.LastIndicators(), 0x58);
}

TEST_F(GearModuleTest, LGT2LandingLightsReverseFixSwapsEachPair) {
  gSettings.GFLGT2LandingLightsReverseFix = 1;
  GFLGT2_Module module;
  module.Register(0);
  module.SetDisplay();
  EXPECT_EQ(module.LastIndicators(), 0x20 | 0x80 | 0x08);
  InFlight(0.5, 0.0, 1.0);
  module.SetDisplay();
  EXPECT_EQ(module.LastIndicators(), 0x10 | 0x08);
}

TEST_F(GearModuleTest, LGT2LightsInFlightAndWithoutPower) {
  GFLGT2_Module module;
  module.Register(0);
  InFlight(0.5, 1.0, 0.01);
  module.UpdateOutputs();
  EXPECT_EQ(module.LastIndicators(), 0x20 | 0x40);
  DarkAircraft();
  module.UpdateOutputs();
  EXPECT_EQ(module.LastIndicators(), 0);
}

// ---- trace lines --------------------------------------------------------------------------------

TEST_F(GearModuleTest, LGT2TraceLinesUseTheModelsTexts) {
  TraceAll();
  GFLGT2_Module module;
  module.Register(0);
  std::int32_t value = 0;
  Decode(module, 1, -2, 3, kLeverBit | kRight, &value);
  module.HandleInput(6, -3);
  module.SetDisplay();

  EXPECT_TRUE(Logged("GFLGT2_Module::Register - PrevSwitchVals = 0000000000000000"));
  EXPECT_TRUE(Logged("GFLGT2_Module::GetButton -  Wheel A = 1, Wheel B = -2, Wheel C = 3"));
  EXPECT_TRUE(Logged("GFLGT2_Module::GetButton - BtnState = 1010000000000000"));
  EXPECT_TRUE(Logged("GFLGT2_Module::HandleInput -  ControlID = 6, Value = -3"));
  EXPECT_TRUE(Logged("GFLGT2_Module::SetDisplay - Indicators = 0010101000000000"));
}

}  // namespace
}  // namespace drav

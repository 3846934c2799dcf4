#include "modules/GFEFIS_Module.h"

#include <gtest/gtest.h>

#include "LightBoxTestSupport.h"
#include "functions/FunctionCatalogue.h"
#include "base/HostState.h"
#include "hid/InputRecords.h"

namespace drav {
namespace {

using lightboxtest::LightBoxTest;

constexpr const char* kRangePath = "sim/cockpit/switches/EFIS_map_range_selector";
constexpr const char* kSubmodePath = "sim/cockpit/switches/EFIS_map_submode";
constexpr const char* kBarometerPath = "sim/cockpit/misc/barometer_setting";

std::uint8_t Selectors(std::uint8_t mode, std::uint8_t range) { return static_cast<std::uint8_t>(mode | (range << 4)); }

std::int32_t Decode(GFEFIS_Module& module, const GFEFISInputRecord& record, std::int32_t* value) {
  return module.GetButton(&record, value);
}

// No unit is plugged: Register reads everything as 0, which is mode APP and range 10 NM.
class GFEFISModuleTest : public LightBoxTest {
 protected:
  void TearDown() override {
    EfisDisabled = 0;
    LightBoxTest::TearDown();
  }
  static void Bind(GFEFIS_Module& module, std::uint8_t key, const char* name) {
    module.AssignFunction(key, FindFunctionId(name), -1, -1);
  }
};

TEST_F(GFEFISModuleTest, SelectorIsReportedBeforeAnEncoderOfTheSameRecord) {
  GFEFIS_Module module;
  module.Register(0);
  std::int32_t value = -7;
  EXPECT_EQ(Decode(module, {0, 0, 0, Selectors(0, 2)}, &value), 22);
  EXPECT_EQ(value, 2);
  // Range 2 -> 3 while encoder A turns: only the range; the count of that record is gone.
  EXPECT_EQ(Decode(module, {5, 0, 0, Selectors(0, 3)}, &value), 23);
  EXPECT_EQ(value, 3);
  EXPECT_EQ(Decode(module, {0, 0, 0, Selectors(0, 3)}, &value), -1);
  EXPECT_EQ(value, 0);  // cleared even when nothing is reported
  EXPECT_EQ(module.RangeSelector(), 3);
}

TEST_F(GFEFISModuleTest, DecodingOrderIsModeRangeEncoderAEncoderBThenSwitches) {
  GFEFIS_Module module;
  module.Register(0);
  std::int32_t value = 0;
  // Mode and range change together: the mode first, the range from the next record.
  EXPECT_EQ(Decode(module, {1, -2, 0x0300, Selectors(2, 5)}, &value), 18);
  EXPECT_EQ(value, 2);
  EXPECT_EQ(Decode(module, {1, -2, 0x0300, Selectors(2, 5)}, &value), 25);
  EXPECT_EQ(value, 5);
  EXPECT_EQ(Decode(module, {1, -2, 0x0300, Selectors(2, 5)}, &value), kEFISDialControlA);
  EXPECT_EQ(value, 1);
  EXPECT_EQ(Decode(module, {0, -2, 0x0300, Selectors(2, 5)}, &value), kEFISDialControlB);
  EXPECT_EQ(value, -2);
  EXPECT_EQ(Decode(module, {0, 0, 0x0300, Selectors(2, 5)}, &value), 8);
  EXPECT_EQ(value, 1);
  EXPECT_EQ(Decode(module, {0, 0, 0x0300, Selectors(2, 5)}, &value), 9);
  EXPECT_EQ(Decode(module, {0, 0, 0x8300, Selectors(2, 5)}, &value), 15);
  EXPECT_EQ(Decode(module, {0, 0, 0x8200, Selectors(2, 5)}, &value), 8);
  EXPECT_EQ(value, 0);
  EXPECT_EQ(Decode(module, {0, 0, 0x8200, Selectors(2, 5)}, &value), -1);
}

TEST_F(GFEFISModuleTest, RegisterSetsTheSelectorPositionsFromThePanel) {
  Set(kRangePath, 4);
  Set(kSubmodePath, 3);
  GFEFIS_Module module;
  Bind(module, 16, "EFIS_ND_MODE_APP");
  Bind(module, 20, "EFIS_ND_RANGE_10NM");
  Bind(module, 8, "EFIS_ADF_SEL1");
  Host().ClearEvents();
  module.Register(0);
  EXPECT_EQ(Get(kRangePath), 0);
  EXPECT_EQ(Get(kSubmodePath), 0);
  // Neither pointer input is set: nothing is written for the pointer switches.
  for (const std::string& event : Host().Events()) EXPECT_EQ(event.find("EFIS_dme_1_selector"), std::string::npos);
}

TEST_F(GFEFISModuleTest, SelectorPositionsAndStandardButtonSetWithForcedOn) {
  GFEFIS_Module module;
  Bind(module, 23, "EFIS_ND_RANGE_80NM");
  Bind(module, 14, "ALTIMETER_SET_STD");
  module.Register(0);
  module.HandleInput(23, 3);
  EXPECT_EQ(Get(kRangePath), 3);

  // The standard button sets 29.92 when pressed and again when released.
  Set(kBarometerPath, 30.10);
  module.HandleInput(14, 1);
  EXPECT_NEAR(Get(kBarometerPath), 29.92, 1e-4);
  Set(kBarometerPath, 30.10);
  module.HandleInput(14, 0);
  EXPECT_NEAR(Get(kBarometerPath), 29.92, 1e-4);

  // Positions without a record (mode above 3, range above 6) do nothing.
  module.HandleInput(27, 7);
  module.HandleInput(35, 15);
  EXPECT_EQ(Get(kRangePath), 3);
}

TEST_F(GFEFISModuleTest, EncoderTurnsItsBoundFunctionAndAnUnboundOneIsSafe) {
  GFEFIS_Module module;
  Bind(module, kEFISDialKeyA, "DECISION_HEIGHT");
  Bind(module, kEFISDialKeyB, "NADA");
  EXPECT_EQ(module.GetAssignedFunction(kEFISDialKeyA), lightboxtest::kDecisionHeight);
  EXPECT_EQ(module.GetAssignedFunction(kEFISDialKeyB), 0);
  EXPECT_EQ(module.dialFunctions[1], nullptr);
  Set(lightboxtest::kDecisionHeightPath, 200);
  module.HandleInput(kEFISDialControlA, 3);
  EXPECT_NE(Get(lightboxtest::kDecisionHeightPath), 200);
  module.HandleInput(kEFISDialControlB, 3);
}

TEST_F(GFEFISModuleTest, KeysOutsideTheControlsAreIgnored) {
  GFEFIS_Module module;
  Bind(module, 26, "EFIS_ND_RANGE_640NM");
  Bind(module, 27, "EFIS_ND_RANGE_80NM");
  Bind(module, 30, "DECISION_HEIGHT");
  EXPECT_EQ(module.GetAssignedFunction(26), FindFunctionId("EFIS_ND_RANGE_640NM"));
  EXPECT_EQ(module.GetAssignedFunction(27), 0);
  EXPECT_EQ(module.GetAssignedFunction(30), 0);
  EXPECT_EQ(module.GetAssignedFunction(255), 0);
  module.HandleInput(-1, 1);
  module.HandleInput(1000, 1);
}

TEST_F(GFEFISModuleTest, TakenOverPanelIsLeftAloneUntilHandedBack) {
  GFEFIS_Module module;
  Bind(module, kEFISDialKeyA, "DECISION_HEIGHT");
  Bind(module, 23, "EFIS_ND_RANGE_80NM");
  module.Register(0);

  EfisDisabled = 1;
  EXPECT_EQ(module.GetAssignedFunction(kEFISDialKeyA), 0);
  Bind(module, 23, "NADA");  // ignored
  std::int32_t value = 42;
  EXPECT_EQ(Decode(module, {2, 0, 1, Selectors(0, 3)}, &value), -1);
  EXPECT_EQ(value, 42);
  module.HandleInput(23, 3);
  EXPECT_EQ(Get(kRangePath), 0);
  Set(kRangePath, 5);
  module.Register(0);  // ignored: would set range 10 NM
  EXPECT_EQ(Get(kRangePath), 5);

  // Handed back: no new registration, the change made meanwhile comes with the next record.
  EfisDisabled = 0;
  EXPECT_EQ(module.GetAssignedFunction(23), FindFunctionId("EFIS_ND_RANGE_80NM"));
  EXPECT_EQ(Decode(module, {0, 0, 0, Selectors(0, 3)}, &value), 23);
  EXPECT_EQ(value, 3);
}

TEST_F(GFEFISModuleTest, ClearDisplayForgetsInputsButKeepsSelectorPositions) {
  GFEFIS_Module module;
  module.Register(0);
  std::int32_t value = 0;
  EXPECT_EQ(Decode(module, {0, 0, 0, Selectors(1, 4)}, &value), 17);
  EXPECT_EQ(Decode(module, {0, 0, 0, Selectors(1, 4)}, &value), 24);
  EXPECT_EQ(Decode(module, {0, 0, 0x0004, Selectors(1, 4)}, &value), 2);

  module.ClearDisplay();
  EXPECT_EQ(module.PrevSwitchVals(), 0);
  EXPECT_EQ(module.PrevSelectorVals(), 0);
  EXPECT_EQ(module.ModeSelector(), 1);
  EXPECT_EQ(module.RangeSelector(), 4);
  // The held button is reported again, the unchanged selectors are not.
  EXPECT_EQ(Decode(module, {0, 0, 0x0004, Selectors(1, 4)}, &value), 2);
  EXPECT_EQ(value, 1);
}

TEST_F(GFEFISModuleTest, CopyKeepsBindingsAndDecodingState) {
  GFEFIS_Module module;
  Bind(module, kEFISDialKeyA, "DECISION_HEIGHT");
  Bind(module, 5, "EFIS_SYM_TCAS");
  std::int32_t value = 0;
  EXPECT_EQ(Decode(module, {0, 0, 0, Selectors(3, 0)}, &value), 19);
  GFEFIS_Module copy(module);
  EXPECT_EQ(copy.ModeSelector(), 3);
  EXPECT_EQ(copy.GetAssignedFunction(kEFISDialKeyA), lightboxtest::kDecisionHeight);
  EXPECT_EQ(copy.GetAssignedFunction(5), FindFunctionId("EFIS_SYM_TCAS"));
  EXPECT_EQ(Decode(copy, {0, 0, 0, Selectors(3, 0)}, &value), -1);
}

TEST_F(GFEFISModuleTest, DebugLinesHaveTheirExactTexts) {
  TraceAll();
  GFEFIS_Module module;
  module.Register(0);
  std::int32_t value = 0;
  Decode(module, {3, -1, 0x0005, 0x21}, &value);
  EXPECT_TRUE(Logged("GFEFIS_Module::Register - PrevSwitchVals = 0000000000000000"));
  EXPECT_TRUE(Logged("GFEFIS_Module::Register - PrevSelectorVals = 0000000000000000"));
  EXPECT_TRUE(Logged("GFEFIS_Module::GetButton - Selectors = 1000010000000000"));
  EXPECT_TRUE(Logged("GFEFIS_Module::GetButton -  Dial A = 3, Dial B = -1"));
  EXPECT_TRUE(Logged("GFEFIS_Module::GetButton - BtnState = 1010000000000000"));
}

}  // namespace
}  // namespace drav

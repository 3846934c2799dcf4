#include "modules/GFRP48_Module.h"

#include <gtest/gtest.h>

#include "LightBoxTestSupport.h"
#include "hid/InputRecords.h"

namespace drav {
namespace {

using lightboxtest::LightBoxTest;

std::int32_t Decode(GFRP48_Module& module, GFRP48InputRecord record, std::int32_t* value) {
  return module.GetButton(&record, value);
}

GFRP48InputRecord Dials(std::int16_t a, std::int16_t b, std::int16_t c, std::int16_t d, std::uint8_t buttons = 0) {
  return GFRP48InputRecord{{a, b, c, d}, buttons};
}

// ---- decoding -----------------------------------------------------------------------------------

TEST(GFRP48DecodeTest, FirstMovedEncoderWinsAndTheOthersAreDropped) {
  GFRP48_Module module;
  std::int32_t value = 0;
  EXPECT_EQ(Decode(module, Dials(2, 0, -1, 0), &value), 8);
  EXPECT_EQ(value, 2);
  EXPECT_EQ(Decode(module, Dials(0, 0, -1, 5), &value), 10);
  EXPECT_EQ(value, -1);
  EXPECT_EQ(Decode(module, Dials(0, 0, 0, -3), &value), 11);
  EXPECT_EQ(value, -3);
  EXPECT_EQ(Decode(module, Dials(0, 4, 0, 0), &value), 9);
  EXPECT_EQ(value, 4);
}

TEST(GFRP48DecodeTest, ButtonsWaitWhileAnEncoderMoves) {
  GFRP48_Module module;
  std::int32_t value = 0;
  EXPECT_EQ(Decode(module, Dials(0, 0, 1, 0, 0b1), &value), 10);
  EXPECT_EQ(module.PrevSwitchVals(), 0);  // the button was not looked at
  EXPECT_EQ(Decode(module, Dials(0, 0, 0, 0, 0b1), &value), 0);
  EXPECT_EQ(value, 1);
  value = 99;
  EXPECT_EQ(Decode(module, Dials(0, 0, 0, 0, 0b1), &value), -1);
  EXPECT_EQ(value, 99);
}

TEST(GFRP48DecodeTest, ButtonBankReportsOneChangePerRecord) {
  GFRP48_Module module;
  std::int32_t value = 0;
  EXPECT_EQ(Decode(module, Dials(0, 0, 0, 0, 0b1001'0000), &value), 4);
  EXPECT_EQ(Decode(module, Dials(0, 0, 0, 0, 0b1001'0000), &value), 7);
  EXPECT_EQ(Decode(module, Dials(0, 0, 0, 0, 0b0000'0000), &value), 4);
  EXPECT_EQ(value, 0);
}

// ---- handling -----------------------------------------------------------------------------------

class GFRP48ModuleTest : public LightBoxTest {
 protected:
  void SetUp() override {
    LightBoxTest::SetUp();
    Set(lightboxtest::kCom1StandbyPath, 12150);
  }
};

TEST_F(GFRP48ModuleTest, EncoderTunesTheFineFrequencyInItsDirection) {
  GFRP48_Module module;
  module.Register(0);
  module.AssignFunction('B', lightboxtest::kCom1StandbyFine, -1, -1);
  EXPECT_EQ(module.GetAssignedFunction('B'), lightboxtest::kCom1StandbyFine);

  module.HandleInput(9, 1);
  EXPECT_EQ(Get(lightboxtest::kCom1StandbyPath), 12152);  // 121.525: one 25 kHz channel up
  module.HandleInput(9, -2);
  EXPECT_EQ(Get(lightboxtest::kCom1StandbyPath), 12147);
}

TEST_F(GFRP48ModuleTest, ReverseFixNegatesEncodersButNotButtons) {
  gSettings.GRP48ReverseFix = 1;
  Set(lightboxtest::kLandingLightsPath, 0);
  GFRP48_Module module;
  module.Register(0);
  module.AssignFunction('B', lightboxtest::kCom1StandbyFine, -1, -1);
  module.AssignFunction('1', lightboxtest::kLandingLts, -1, -1);

  module.HandleInput(9, 1);
  EXPECT_EQ(Get(lightboxtest::kCom1StandbyPath), 12147);
  module.HandleInput(0, 1);
  EXPECT_EQ(Get(lightboxtest::kLandingLightsPath), 1);
}

// The decision height steps by 10 ft only for the GF-RP48 and GF-EFIS: the module passes its type.
TEST_F(GFRP48ModuleTest, EncoderAdjustsAsTheGFRP48) {
  Set(lightboxtest::kDecisionHeightPath, 200);
  GFRP48_Module module;
  module.AssignFunction('D', lightboxtest::kDecisionHeight, -1, -1);
  module.HandleInput(11, 3);
  EXPECT_EQ(Get(lightboxtest::kDecisionHeightPath), 230);
}

TEST_F(GFRP48ModuleTest, UnboundOrUnbuildableEncoderDropsItsEvents) {
  GFRP48_Module module;
  module.HandleInput(8, 5);  // nothing bound
  module.AssignFunction('A', lightboxtest::kCom1StandbyFine, -1, -1);
  module.AssignFunction('A', lightboxtest::kLandingLts, -1, -1);  // a switch function makes no dial
  EXPECT_EQ(module.GetAssignedFunction('A'), 0);
  module.HandleInput(8, 5);
  module.HandleInput(12, 5);  // not a control of the model
  EXPECT_EQ(Get(lightboxtest::kCom1StandbyPath), 12150);
  EXPECT_EQ(Get(lightboxtest::kLandingLightsPath), 0);
}

TEST_F(GFRP48ModuleTest, KeysNameButtonsAndDialsOnly) {
  GFRP48_Module module;
  module.AssignFunction('1', lightboxtest::kLandingLts, -1, -1);
  module.AssignFunction('C', lightboxtest::kCom1StandbyFine, -1, -1);
  module.AssignFunction('E', lightboxtest::kCom1StandbyFine, -1, -1);
  module.AssignFunction('9', lightboxtest::kLandingLts, -1, -1);
  EXPECT_EQ(module.GetAssignedFunction('1'), lightboxtest::kLandingLts);
  EXPECT_EQ(module.GetAssignedFunction('C'), lightboxtest::kCom1StandbyFine);
  EXPECT_EQ(module.GetAssignedFunction('E'), 0);
  EXPECT_EQ(module.GetAssignedFunction('9'), 0);
  EXPECT_EQ(module.GetAssignedFunction('Z'), 0);
  EXPECT_EQ(module.dialFunctions[2]->functionId, lightboxtest::kCom1StandbyFine);
}

TEST_F(GFRP48ModuleTest, ButtonLightsFollowTheirFunctions) {
  Set(lightboxtest::kLandingLightsPath, 0);
  GFRP48_Module module;
  module.Register(0);
  module.AssignFunction('6', lightboxtest::kLandingLts, -1, -1);
  module.HandleInput(5, 1);
  module.HandleInput(5, 0);
  module.UpdateOutputs();
  EXPECT_EQ(module.LastIndicators(), 0b10'0000);
  DarkAircraft();
  module.UpdateOutputs();
  EXPECT_EQ(module.LastIndicators(), 0);
}

TEST_F(GFRP48ModuleTest, TraceLinesUseTheModelsTexts) {
  TraceAll();
  GFRP48_Module module;
  module.Register(0);
  std::int32_t value = 0;
  Decode(module, Dials(2, 0, -1, 0, 0b1), &value);
  Decode(module, Dials(0, 0, 0, 0, 0b1), &value);
  module.HandleInput(8, 2);

  EXPECT_TRUE(Logged("GFRP48_Module::Register - PrevSwitchVals = 0000000000000000"));
  EXPECT_TRUE(Logged("GFRP48_Module::GetButton -  Dial A = 2, Dial B = 0, Dial C = -1, Dial D = 0"));
  EXPECT_TRUE(Logged("GFRP48_Module::GetButton - BtnState = 1000000000000000"));
  EXPECT_TRUE(Logged("GFRP48_Module::HandleInput - Button = 8, Value = 2"));
  // The button byte is traced only for the record in which no encoder moved.
  int buttonTraces = 0;
  for (const std::string& line : LogLines()) buttonTraces += line.rfind("GFRP48_Module::GetButton - BtnState", 0) == 0;
  EXPECT_EQ(buttonTraces, 1);
}

}  // namespace
}  // namespace drav

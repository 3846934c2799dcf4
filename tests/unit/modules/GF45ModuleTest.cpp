// The GF-45 radio stack: decoding its two rings, tuning through them, the multi-function lists,
// what reaches its two displays (only changes, blanks without power) and its trace lines.
#include "modules/GF45_Module.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "RadioModuleTestSupport.h"
#include "hid/InputRecords.h"

namespace drav::radiotest {
namespace {

class GF45ModuleTest : public RadioModuleTest {
 protected:
  GF45ModuleTest() : RadioModuleTest(kModuleGF45, "GF-45") {}

  void SetUp() override {
    RadioModuleTest::SetUp();
    radio.Register(0);
  }

  static std::int32_t Decode(GF45_Module& module, std::int16_t dial1, std::int16_t dial2, std::int32_t* value) {
    const GF45InputRecord record{dial1, dial2};
    return module.GetButton(&record, value);
  }

  GF45_Module radio;
};

// ---- decoding ----------------------------------------------------------------------------------

TEST_F(GF45ModuleTest, ReportsOneRingPerRecordDial1First) {
  std::int32_t value = 99;
  EXPECT_EQ(Decode(radio, 0, -3, &value), 1);
  EXPECT_EQ(value, -3);

  EXPECT_EQ(Decode(radio, 2, -5, &value), 0);  // both moved: Dial 1 only, Dial 2's count is lost
  EXPECT_EQ(value, 2);

  value = 99;
  EXPECT_EQ(Decode(radio, 0, 0, &value), -1);
  EXPECT_EQ(value, 99);  // nothing to report leaves the value alone

  EXPECT_EQ(radio.GetButton(nullptr, &value), -1);
}

// ---- tuning ------------------------------------------------------------------------------------

TEST_F(GF45ModuleTest, RingsTuneCom1InnerKilohertzOuterMegahertz) {
  radio.SelectFunction(kCom1Active);
  ASSERT_EQ(radio.GetCurrentFunction(), kCom1Active);

  radio.HandleInput(1, -3);  // 118.500 - 3 x 25 kHz
  EXPECT_EQ(Value(kCom1Path), 11842);
  radio.HandleInput(0, 2);  // 118.425 -> 120.425
  EXPECT_EQ(Value(kCom1Path), 12042);
}

TEST_F(GF45ModuleTest, CourseOuterRingMovesByHundredsOnlyOnTheGf45) {
  SetValue(kAdfCardPath, 300);
  radio.SelectFunction(kAdf1Card);
  radio.HandleInput(0, 1);
  EXPECT_EQ(Value(kAdfCardPath), 360);  // step 100, clamped: the GF-45's own layout
}

TEST_F(GF45ModuleTest, WithoutASelectionTheRingsDoNothingAndLogNothing) {
  EnableTraces();
  radio.SelectFunction(kNav1Nav2Toggle);  // a function without a display object selects nothing
  EXPECT_EQ(radio.single, nullptr);
  EXPECT_EQ(radio.GetCurrentFunction(), 0);

  radio.HandleInput(1, 4);
  EXPECT_EQ(Value(kCom1Path), 11850);
  const auto lines = LogLines();
  EXPECT_TRUE(std::none_of(lines.begin(), lines.end(),
                           [](const std::string& line) { return line.find("HandleInput") != std::string::npos; }));
}

// ---- lists -------------------------------------------------------------------------------------

TEST_F(GF45ModuleTest, InstrumentListOpensOnTheAltimeterAndStopsAtItsEnds) {
  radio.SelectFunction(kFuncInstList);
  ASSERT_NE(radio.list, nullptr);
  EXPECT_EQ(radio.source, 1);
  EXPECT_EQ(radio.GetCurrentFunction(), kFuncInstList);
  EXPECT_EQ(radio.list->currentIndex, 1);
  EXPECT_EQ(radio.list->functions[1]->functionId, kAltimeter);

  radio.HandleInput(0, -2);
  EXPECT_EQ(radio.list->currentIndex, 0);
  radio.HandleInput(0, 40);
  EXPECT_EQ(radio.list->currentIndex, 5);
}

TEST_F(GF45ModuleTest, AutopilotListStopsAtItsFifthEntry) {
  radio.SelectFunction(kFuncApList);
  EXPECT_EQ(radio.list->currentIndex, 0);
  radio.HandleInput(0, 4);
  EXPECT_EQ(radio.list->currentIndex, 4);
  radio.HandleInput(0, 1);
  EXPECT_EQ(radio.list->currentIndex, 4);
}

TEST_F(GF45ModuleTest, Dial2AdjustsTheListsCurrentEntry) {
  radio.SelectFunction(kFuncInstList);  // ALTIMETER
  radio.HandleInput(1, 1);
  EXPECT_NEAR(Value(kAltimeterPath), 29.93, 1e-4);
}

TEST_F(GF45ModuleTest, TwoUnitsInTheSameListShareItsPosition) {
  GF45_Module other;
  other.Register(1);
  radio.SelectFunction(kFuncInstList);
  other.SelectFunction(kFuncInstList);
  radio.HandleInput(0, 2);
  EXPECT_EQ(other.list, radio.list);
  EXPECT_EQ(other.list->currentIndex, 3);

  other.SelectFunction(kFuncInstList);  // rebuilding keeps a valid position
  EXPECT_EQ(radio.list->currentIndex, 3);
}

TEST_F(GF45ModuleTest, EveryAssignmentSelectsAndEveryKeyAnswersTheCurrentFunction) {
  radio.AssignFunction('Z', kCom1Standby, 4, 5);
  EXPECT_EQ(radio.GetCurrentFunction(), kCom1Standby);
  EXPECT_EQ(radio.GetAssignedFunction('1'), kCom1Standby);
  EXPECT_EQ(radio.GetAssignedFunction('Z'), kCom1Standby);
  radio.AssignFunction('1', 0, -1, -1);
  EXPECT_EQ(radio.GetAssignedFunction('Z'), 0);
}

// ---- displays ----------------------------------------------------------------------------------

TEST_F(GF45ModuleTest, SendsTagAndValueOnlyWhenTheyChange) {
  radio.SelectFunction(kCom1Active);
  ClearSent();
  radio.SetDisplay();
  EXPECT_EQ(Display(1), "COM1");
  EXPECT_EQ(Display(2), "118.50");
  EXPECT_EQ(SentCount(), 2u);

  ClearSent();
  radio.UpdateOutputs();
  EXPECT_EQ(SentCount(), 0u);

  SetValue(kCom1Path, 12475);
  radio.UpdateOutputs();
  EXPECT_EQ(SentCount(), 1u);  // the tag did not change
  EXPECT_EQ(Display(2), "124.75");
}

TEST_F(GF45ModuleTest, WithoutAvionicsPowerEveryCallBlanksBothDisplays) {
  radio.SelectFunction(kCom1Active);
  radio.SetDisplay();
  SetValue(kAvionicsOnPath, 0);
  ClearSent();
  radio.SetDisplay();
  radio.UpdateOutputs();
  EXPECT_EQ(SentCount(), 4u);
  EXPECT_EQ(Display(1), "    ");
  EXPECT_EQ(Display(2), "     ");

  SetValue(kAvionicsOnPath, 1);  // power back: everything is sent again
  ClearSent();
  radio.SetDisplay();
  EXPECT_EQ(Display(1), "COM1");
  EXPECT_EQ(Display(2), "118.50");
}

TEST_F(GF45ModuleTest, UpdateOutputsLeavesAUnitWithoutSelectionAlone) {
  SetValue(kAvionicsOnPath, 0);
  ClearSent();
  radio.UpdateOutputs();
  EXPECT_EQ(SentCount(), 0u);  // not even the blanking
}

TEST_F(GF45ModuleTest, ClearDisplayBlanksAndForgetsSoTheNextRefreshResends) {
  radio.SelectFunction(kCom1Active);
  radio.SetDisplay();
  ClearSent();
  radio.ClearDisplay();
  EXPECT_EQ(Display(1), "    ");
  EXPECT_EQ(Display(2), "     ");
  ClearSent();
  radio.UpdateOutputs();
  EXPECT_EQ(Display(1), "COM1");
  EXPECT_EQ(Display(2), "118.50");
}

TEST_F(GF45ModuleTest, ACopyKeepsItsSelectionAndWhatItSent) {
  radio.SelectFunction(kCom1Active);
  radio.SetDisplay();
  GF45_Module copy(radio);
  EXPECT_EQ(copy.GetCurrentFunction(), kCom1Active);
  EXPECT_STREQ(copy.lastValue.LastText(), "118.50");
  ClearSent();
  copy.SetDisplay();
  EXPECT_EQ(SentCount(), 0u);
}

// ---- trace lines -------------------------------------------------------------------------------

TEST_F(GF45ModuleTest, TraceLinesHaveTheirExactTexts) {
  EnableTraces();
  std::int32_t value = 0;
  Decode(radio, -1, 3, &value);
  radio.SelectFunction(kCom1Active);
  radio.HandleInput(1, 2);
  radio.SetDisplay();
  radio.SelectFunction(kFuncInstList);
  radio.SetDisplay();

  const std::vector<std::string> expected = {
      "GF45_Module::GetButton -  Dial 1 = -1, Dial 2 = 3",
      "GF45_Module::HandleInput - Button = 1, Value= 2",
      "GF45_Module::SetDisplay -  Alpha Display = COM1",
      "GF45_Module::SetDisplay -  Freq Display = 118.55",
      "GF45_Module::SetDisplay -  char_display = ALTI",
      "GF45_Module::SetDisplay -  char_freqval =  29.92",
  };
  EXPECT_EQ(LogLines(), expected);
}

TEST_F(GF45ModuleTest, EachTraceNeedsItsOwnSwitch) {
  gDebug.DebugEnabled = 1;
  std::int32_t value = 0;
  Decode(radio, 1, 0, &value);
  radio.SelectFunction(kCom1Active);
  radio.HandleInput(0, 1);
  radio.SetDisplay();
  EXPECT_TRUE(LogLines().empty());
}

}  // namespace
}  // namespace drav::radiotest

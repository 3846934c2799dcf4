// The executor's rules: how each action changes a record's state, what a dataref switch writes,
// which command buttons and key strokes a command function sends, and how the light is refreshed.
#include <gtest/gtest.h>

#include "FunctionTestSupport.h"

namespace drav::functiontest {
namespace {

constexpr FunctionId kBatteryMaster = 156;
constexpr FunctionId kApDisengage = 89;
constexpr FunctionId kApHdgHold = 102;
constexpr FunctionId kApApprHold = 97;
constexpr FunctionId kEfisNdModeMap = 124;
constexpr FunctionId kEng1Start = 253;
constexpr FunctionId kFlapsUpDown = 424;
constexpr FunctionId kElevTrimNoseUp = 428;

const Events kBatteryOn{"dataref-write sim/cockpit/electrical/battery_on 1"};
const Events kBatteryOff{"dataref-write sim/cockpit/electrical/battery_on 0"};

// ---- dataref switches -------------------------------------------------------------------------

class DatarefSwitchActions : public FunctionTest {
 protected:
  void SetUp() override {
    FunctionTest::SetUp();
    SetValue("sim/cockpit/electrical/battery_on", 0);
    battery = Build(kBatteryMaster);
    ASSERT_EQ(GetFunctionState(battery), 0);
  }
  SwitchFunction battery;
};

TEST_F(DatarefSwitchActions, OnAndOffWriteTheirValueWhateverTheState) {
  EXPECT_EQ(Run(battery, kActionOn), kBatteryOn);
  EXPECT_EQ(Run(battery, kActionOn), kBatteryOn) << "a switch reports its position again";
  EXPECT_EQ(GetFunctionState(battery), 1);
  EXPECT_EQ(Run(battery, kActionOff), kBatteryOff);
  EXPECT_EQ(GetFunctionState(battery), 0);
}

TEST_F(DatarefSwitchActions, APressTogglesAndTheReleaseIsIgnored) {
  EXPECT_EQ(Run(battery, kActionToggle), kBatteryOn);
  EXPECT_TRUE(Run(battery, kActionRelease).empty());
  EXPECT_EQ(GetFunctionState(battery), 1) << "the release must not switch it off";
  EXPECT_EQ(Run(battery, kActionToggle), kBatteryOff);
  EXPECT_TRUE(Run(battery, kActionRelease).empty());
  EXPECT_EQ(GetFunctionState(battery), 0);
}

TEST_F(DatarefSwitchActions, ToggleStartsFromTheStateTheSimulatorReported) {
  SetValue("sim/cockpit/electrical/battery_on", 1);
  EXPECT_EQ(Refreshed(battery), 1);
  EXPECT_EQ(Run(battery, kActionToggle), kBatteryOff);
}

TEST_F(DatarefSwitchActions, SetTakesTheStateFromTheValue) {
  EXPECT_EQ(Run(battery, kActionSet, 1), kBatteryOn);
  EXPECT_EQ(Run(battery, kActionSet, 0), kBatteryOff);
  // A selector reports its position number: any position that reports is selected.
  EXPECT_EQ(Run(battery, kActionSet, 10), kBatteryOn);
  EXPECT_EQ(GetFunctionState(battery), 1);
}

TEST_F(DatarefSwitchActions, ForceOnWritesTheOnValueEvenForOff) {
  EXPECT_EQ(Run(battery, kActionOff, 0, 1), kBatteryOn);
  EXPECT_EQ(GetFunctionState(battery), 0);
}

TEST_F(DatarefSwitchActions, UnknownActionsDoNothing) {
  EXPECT_TRUE(Run(battery, 5).empty());
  EXPECT_TRUE(Run(battery, -1).empty());
  EXPECT_EQ(GetFunctionState(battery), 0);
}

TEST_F(DatarefSwitchActions, AClearedOrDisabledRecordNeitherActsNorRefreshes) {
  SwitchFunction cleared = battery;
  ClearFunction(cleared);
  EXPECT_TRUE(Run(cleared, kActionOn).empty());

  SwitchFunction disabled = battery;
  disabled.enabled = 0;
  EXPECT_TRUE(Run(disabled, kActionOn).empty());
  SetValue("sim/cockpit/electrical/battery_on", 1);
  EXPECT_EQ(Refreshed(disabled), 0);
  EXPECT_EQ(Refreshed(cleared), 0);
  EXPECT_EQ(Refreshed(battery), 1);
}

TEST_F(FunctionTest, SetWithForceOnWritesTheMapPositionEvenWhenAlreadySelected) {
  SetValue("sim/cockpit/switches/EFIS_map_submode", 2);
  SwitchFunction map = Build(kEfisNdModeMap);
  ASSERT_EQ(GetFunctionState(map), 1);
  EXPECT_EQ(Run(map, kActionSet, 1, 1), Events{"dataref-write sim/cockpit/switches/EFIS_map_submode 2"});
}

TEST_F(FunctionTest, BindingsOnMissingDatarefsNeverWriteAndStayDark) {
  SwitchFunction heading = Build(kApHdgHold);  // drav/autopilot/heading_hold is not published
  ASSERT_EQ(GetFunctionId(heading), kApHdgHold);
  EXPECT_TRUE(Run(heading, kActionOn).empty());
  EXPECT_TRUE(Run(heading, kActionToggle).empty());
  EXPECT_TRUE(Run(heading, kActionSet, 1, 1).empty());
  EXPECT_EQ(Refreshed(heading), 0);
}

// ---- two bindings ------------------------------------------------------------------------------

class ApproachHold : public FunctionTest {
 protected:
  void SetUp() override {
    FunctionTest::SetUp();
    AddIntDataref("drav/autopilot/hnav");
    AddIntDataref("drav/autopilot/vnav");
    approach = Build(kApApprHold);
    ASSERT_EQ(approach.bindingCount, 2);
  }
  std::int32_t LightFor(int hnav, int vnav) {
    SetValue("drav/autopilot/hnav", hnav);
    SetValue("drav/autopilot/vnav", vnav);
    return Refreshed(approach);
  }
  SwitchFunction approach;
};

TEST_F(ApproachHold, LightsAsTheAndOfBothBindings) {
  EXPECT_EQ(LightFor(0, 0), 0);
  EXPECT_EQ(LightFor(1, 0), 0);
  EXPECT_EQ(LightFor(0, 1), 0);
  EXPECT_EQ(LightFor(1, 1), 1);
}

TEST_F(ApproachHold, WritesBothBindingsInOrder) {
  EXPECT_EQ(Run(approach, kActionOn),
            (Events{"dataref-write drav/autopilot/hnav 1", "dataref-write drav/autopilot/vnav 1"}));
  EXPECT_EQ(Run(approach, kActionOff),
            (Events{"dataref-write drav/autopilot/hnav 0", "dataref-write drav/autopilot/vnav 0"}));
}

TEST_F(FunctionTest, APairWithOneMissingDatarefStillWritesTheOtherButNeverLights) {
  AddIntDataref("drav/autopilot/hnav");
  SwitchFunction approach = Build(kApApprHold);
  EXPECT_EQ(Run(approach, kActionOn), Events{"dataref-write drav/autopilot/hnav 1"});
  SetValue("drav/autopilot/hnav", 1);
  EXPECT_EQ(Refreshed(approach), 0);
}

// ---- command buttons and key strokes ----------------------------------------------------------

TEST_F(FunctionTest, DisengagePressSendsDisconnectAndReleaseSendsButtonZero) {
  SwitchFunction disengage = Build(kApDisengage);
  ASSERT_EQ(disengage.kind, kSimCommand);
  EXPECT_EQ(Run(disengage, kActionToggle), (Events{"button-press 59", "button-release 59"}));
  EXPECT_EQ(GetFunctionState(disengage), 1);
  EXPECT_EQ(Run(disengage, kActionRelease), (Events{"button-press 0", "button-release 0"}));
  EXPECT_EQ(GetFunctionState(disengage), 0);
  EXPECT_EQ(Run(disengage, kActionToggle), (Events{"button-press 59", "button-release 59"}))
      << "every press disconnects again";
}

class HeldStarter : public FunctionTest {
 protected:
  void SetUp() override {
    FunctionTest::SetUp();
    starter = Build(kEng1Start);
    ASSERT_EQ(starter.holdCommand, 1);
    ASSERT_EQ(GetFunctionState(starter), 0);
  }
  SwitchFunction starter;
};

TEST_F(HeldStarter, AButtonHoldsTheStarterUntilItIsLetGo) {
  EXPECT_EQ(Run(starter, kActionToggle), Events{"button-press 2"});
  EXPECT_EQ(Run(starter, kActionRelease), Events{"button-release 2"});
  EXPECT_EQ(GetFunctionState(starter), 0);
}

TEST_F(HeldStarter, ASwitchHoldsTheStarterWhileItIsOn) {
  EXPECT_EQ(Run(starter, kActionOn), Events{"button-press 2"});
  EXPECT_EQ(Refreshed(starter), 1) << "the state stays what the execution left";
  EXPECT_EQ(Run(starter, kActionOff), Events{"button-release 2"});
}

TEST_F(FunctionTest, APairSendsTheCodeOfTheNewState) {
  SwitchFunction flaps = Build(kFlapsUpDown);
  EXPECT_EQ(Run(flaps, kActionOn), (Events{"button-press 47", "button-release 47"}));
  EXPECT_EQ(Run(flaps, kActionOff), (Events{"button-press 48", "button-release 48"}));
  EXPECT_TRUE(Run(flaps, kActionRelease).empty()) << "without actOnRelease a release does nothing";
  // Only 0 and 1 name a code; a selector position above 1 counts as on.
  EXPECT_EQ(Run(flaps, kActionSet, 2), (Events{"button-press 47", "button-release 47"}));
}

TEST_F(FunctionTest, ASingleKeyStrokeIsSentOnEveryExecution) {
  SwitchFunction trim = Build(kElevTrimNoseUp);
  EXPECT_EQ(Run(trim, kActionToggle), Events{"keystroke 72"});
  EXPECT_EQ(Run(trim, kActionToggle), Events{"keystroke 72"});
  EXPECT_EQ(Run(trim, kActionOff), Events{"keystroke 72"});
}

TEST_F(FunctionTest, AKeyStrokeWithALightActsByKeyAndLightsByDataref) {
  SwitchFunction ident = Build(153);
  EXPECT_EQ(Run(ident, kActionToggle), Events{"keystroke 93"}) << "the ident dataref is never written";
  const std::int32_t stateAfterPress = GetFunctionState(ident);
  EXPECT_EQ(stateAfterPress, 1);
  SetValue("sim/cockpit/radios/transponder_id", 0);
  EXPECT_EQ(Refreshed(ident), 0) << "the light follows the dataref, not the press";
  SetValue("sim/cockpit/radios/transponder_id", 1);
  EXPECT_EQ(Refreshed(ident), 1);
}

}  // namespace
}  // namespace drav::functiontest

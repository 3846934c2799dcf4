// The factory: which ids build what, the shared avionic objects, the multi-function lists and the
// X737Mode variants chosen at build time.
#include <XPLMDataAccess.h>
#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <string>

#include "FunctionTestSupport.h"
#include "functions/FunctionCatalogue.h"

namespace drav::functiontest {
namespace {

FunctionId IdOf(const std::string& name) {
  const FunctionId id = FindFunctionId(name.c_str());
  EXPECT_NE(id, kNada) << name << " is not in the catalogue";
  return id;
}

// A display pointer the factory must leave alone.
AvionicFunction gSentinel;

// The switch ids for which no object is ever built, by name.
std::set<FunctionId> SwitchIdsWithoutObject() {
  std::set<FunctionId> ids;
  for (const char* name : {"COM1_NAV1_TOGGLE", "COM2_NAV2_TOGGLE", "ADF_XPDR_TOGGLE", "XPDR_VFR_SET",
                           "AILERON_TRIM_LEFT", "AILERON_TRIM_RIGHT", "RUDDER_TRIM_LEFT", "RUDDER_TRIM_RIGHT",
                           "WCP_LEFT_STARTER_ENERGISED", "WCP_RIGHT_STARTER_ENERGISED"}) {
    ids.insert(IdOf(name));
  }
  for (int engine = 1; engine <= 8; ++engine) {
    const std::string n = std::to_string(engine);
    if (engine >= 3) ids.insert(IdOf("ENG_" + n + "_INVERTER"));
    for (const char* family : {"COWL_FLAPS", "CARB_HEAT", "MAGNETO", "MAGNETO_LEFT", "MAGNETO_RIGHT", "MAGNETO_OFF"}) {
      ids.insert(IdOf("ENG_" + n + "_" + family));
    }
  }
  return ids;
}

// Ids above the avionic group bound that are displays: bound to a button they build nothing.
const std::set<FunctionId> kDisplayIdsAboveTheBound{113, 114, 115, 173, 174, 175, 427, 430, 433, 436, 439};

// ---- which ids build what ---------------------------------------------------------------------

TEST_F(FunctionTest, EverySwitchIdBuildsExactlyWhenItHasAnObject) {
  const std::set<FunctionId> withoutObject = SwitchIdsWithoutObject();
  EXPECT_EQ(withoutObject.size(), 64u);
  const std::set<FunctionId> onlyWithX737{IdOf("AP_THRUST_N1"), IdOf("AP_IAS_HOLD")};
  for (FunctionId id = kMaxAvionic + 1; id < kMaxSubsystem; ++id) {
    const SwitchFunction record = Build(id);
    const bool expectNothing =
        withoutObject.count(id) + onlyWithX737.count(id) + kDisplayIdsAboveTheBound.count(id) > 0;
    EXPECT_EQ(GetFunctionId(record), expectNothing ? kNada : id) << id << " " << GetFunctionName(id);
    EXPECT_EQ(record.kind != kNoKind, !expectNothing) << id;
  }
}

TEST_F(FunctionTest, BoundariesAndLeversBuildNothing) {
  for (FunctionId id : {kMaxAvionic, kMaxSubsystem, kFirstLever, FunctionId{639}, FunctionId{640}, FunctionId{-5}}) {
    AvionicFunction* display = &gSentinel;
    SwitchFunction record;
    CreateFunction(id, &display, record, 0, kRadioGF45);
    EXPECT_EQ(display, &gSentinel) << id;
    EXPECT_EQ(GetFunctionId(record), kNada) << id;
    EXPECT_EQ(record.kind, kNoKind) << id;
    EXPECT_EQ(GetFunctionId(Build(id, 0, kRadioGF45)), kNada) << id;
  }
}

TEST_F(FunctionTest, NadaEmptiesTheDisplaySlot) {
  AvionicFunction* display = &gSentinel;
  SwitchFunction record;
  CreateFunction(kNada, &display, record, 0, kRadioGF45);
  EXPECT_EQ(display, nullptr);
  EXPECT_EQ(GetFunctionId(record), kNada);
}

TEST_F(FunctionTest, AnAvionicIdOnAButtonBecomesAModuleSelect) {
  const SwitchFunction record = Build(IdOf("NAV2_STANDBY"), 3, kRadioGF166);
  EXPECT_EQ(record.kind, kModuleSelect);
  EXPECT_EQ(GetFunctionId(record), 22);
  EXPECT_EQ(record.targetFunction, 22);
  EXPECT_EQ(record.targetUnit, 3);
  EXPECT_EQ(record.targetModuleKind, kRadioGF166);
}

TEST_F(FunctionTest, AnAvionicIdWithoutObjectLeavesTheDisplaySlotAlone) {
  AvionicFunction* display = &gSentinel;
  SwitchFunction record;
  CreateFunction(IdOf("MAP_RANGE"), &display, record, 0, kRadioGF166);
  EXPECT_EQ(display, &gSentinel);
  EXPECT_EQ(GetFunctionId(record), kNada);
}

// ---- the shared avionic objects ---------------------------------------------------------------

AvionicFunction* RequestDisplay(FunctionId id) {
  AvionicFunction* display = nullptr;
  SwitchFunction scratch;
  CreateFunction(id, &display, scratch, 0, kRadioGF45);
  return display;
}

TEST_F(FunctionTest, TwoRequestsShareOneObjectAndTheLastRequestWins) {
  AvionicFunction* first = RequestDisplay(IdOf("AP_SPEED_ADJ"));
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(first, SharedAvionicFunction(65));
  EXPECT_EQ(first->dataref, XPLMFindDataRef("sim/cockpit/autopilot/airspeed"));
  EXPECT_STREQ(first->tag, "SPD ");
  EXPECT_EQ(first->format, 5);
  EXPECT_EQ(GetAvionicFunctionId(*first), 65);

  AddIntDataref("x737/systems/athr/MCPSPD_spd");
  X737Mode = 1;
  AvionicFunction* second = RequestDisplay(65);
  EXPECT_EQ(second, first);
  EXPECT_EQ(first->dataref, XPLMFindDataRef("x737/systems/athr/MCPSPD_spd"));
}

TEST_F(FunctionTest, OnlyAvionicIdsHaveASharedObject) {
  EXPECT_EQ(SharedAvionicFunction(kNada), nullptr);
  EXPECT_EQ(SharedAvionicFunction(76), nullptr);  // MAP_RANGE
  EXPECT_EQ(SharedAvionicFunction(156), nullptr);
  EXPECT_EQ(SharedAvionicFunction(700), nullptr);
  EXPECT_NE(SharedAvionicFunction(439), nullptr);  // AUTO_BRAKE is a display above the bound
  EXPECT_NE(SharedAvionicFunction(9), SharedAvionicFunction(10));
}

TEST_F(FunctionTest, PrevAndNextHaveObjectsOfTheirOwn) {
  AvionicFunction* dual = RequestDisplay(IdOf("COM1_DUAL"));
  AvionicFunction* prev = RequestDisplay(IdOf("PREV"));
  AvionicFunction* next = RequestDisplay(IdOf("NEXT"));
  ASSERT_NE(dual, nullptr);
  EXPECT_NE(prev, dual);
  EXPECT_NE(next, dual);
  EXPECT_NE(prev, next);
  EXPECT_STREQ(prev->tag, "PREV");
  EXPECT_EQ(GetAvionicFunctionId(*prev), 25);
  EXPECT_STREQ(next->tag, "NEXT");
  EXPECT_EQ(GetAvionicFunctionId(*next), 26);
  EXPECT_EQ(next->dataref, XPLMFindDataRef("sim/cockpit/radios/com1_freq_hz"));
  // Another unit's COM1_DUAL is unaffected by the stepping.
  EXPECT_STREQ(dual->tag, "CM1D");
  EXPECT_EQ(GetAvionicFunctionId(*dual), 11);
}

TEST_F(FunctionTest, CreateAvionicFunctionBoundsTheTagAndFindsTheDataref) {
  AvionicFunction object;
  CreateAvionicFunction(object, "ABCDEFGHIJKLMN", 4, 9, "sim/cockpit/misc/barometer_setting");
  EXPECT_STREQ(object.tag, "ABCDEFGHI");
  EXPECT_EQ(object.format, 4);
  EXPECT_EQ(GetAvionicFunctionId(object), 9);
  EXPECT_NE(object.dataref, nullptr);
  EXPECT_TRUE(object.isFloat);
  // Built objects are formatted at once: format 4 shows the integer part of 29.92 as a frequency.
  EXPECT_STREQ(object.text, "000.29");

  CreateAvionicFunction(object, "XPDR", 2, 24, "sim/cockpit/radios/transponder_code");
  EXPECT_STREQ(object.tag, "XPDR");
  EXPECT_FALSE(object.isFloat);

  CreateAvionicFunction(object, nullptr, 9, 70, "");
  EXPECT_STREQ(object.tag, "");
  EXPECT_EQ(object.dataref, nullptr);
  EXPECT_FALSE(object.isFloat);
}

TEST_F(FunctionTest, TheDisplayBrightnessIsNotADataref) {
  AvionicFunction* brightness = RequestDisplay(IdOf("DISP_BRIGHTNESS"));
  ASSERT_NE(brightness, nullptr);
  EXPECT_EQ(brightness->dataref, nullptr);
  EXPECT_EQ(brightness->format, 9);
}

TEST_F(FunctionTest, TheSpeedCompanionTellsMachFromKnotsInBothModes) {
  AvionicFunction* speed = RequestDisplay(65);
  SetValue("sim/cockpit/autopilot/airspeed_is_mach", 1);
  EXPECT_EQ(ReadBinding(speed->auxBinding), 1);

  AddIntDataref("x737/systems/athr/MCPSPD_ismach");
  X737Mode = 1;
  speed = RequestDisplay(65);
  EXPECT_EQ(ReadBinding(speed->auxBinding), 0) << "now the aircraft's flag";
  SetValue("x737/systems/athr/MCPSPD_ismach", 1);
  EXPECT_EQ(ReadBinding(speed->auxBinding), 1);
}

TEST_F(FunctionTest, TheAltitudeCompanionIsKeptWhenBuiltForTheX737) {
  AddIntDataref("drav/autopilot_knob/alt_knob");
  AvionicFunction* altitude = RequestDisplay(IdOf("AP_ALTITUDE_ADJ"));
  const XPLMDataRef knob = XPLMFindDataRef("drav/autopilot_knob/alt_knob");
  EXPECT_EQ(altitude->auxBinding.dataref, knob);

  AddIntDataref("x737/systems/afds/ALTHLD_baroalt");
  X737Mode = 1;
  altitude = RequestDisplay(66);
  EXPECT_EQ(altitude->dataref, XPLMFindDataRef("x737/systems/afds/ALTHLD_baroalt"));
  EXPECT_EQ(altitude->auxBinding.dataref, knob);
}

// ---- multi-function lists ---------------------------------------------------------------------

TEST_F(FunctionTest, TheInstrumentListOpensOnTheAltimeter) {
  MultiFunctionList list;
  BuildMultiFunctionList(list, kFuncInst);
  EXPECT_EQ(list.listId, kFuncInst);
  EXPECT_EQ(list.currentIndex, 1);
  const FunctionId slots[] = {70, 68, 63, 61, 62, 4};
  for (int slot = 0; slot < kMultiFunctionSlots; ++slot) {
    ASSERT_NE(list.functions[slot], nullptr) << slot;
    EXPECT_EQ(list.functions[slot], SharedAvionicFunction(slots[slot])) << slot;
    EXPECT_EQ(GetAvionicFunctionId(*list.functions[slot]), slots[slot]) << slot;
  }
}

TEST_F(FunctionTest, TheAutopilotListFillsFiveSlotsAndLeavesTheSixth) {
  MultiFunctionList list;
  list.functions[5] = &gSentinel;
  BuildMultiFunctionList(list, kFuncAp);
  EXPECT_EQ(list.currentIndex, 0);
  const FunctionId slots[] = {64, 63, 65, 66, 67};
  for (int slot = 0; slot < 5; ++slot) EXPECT_EQ(list.functions[slot], SharedAvionicFunction(slots[slot])) << slot;
  EXPECT_EQ(list.functions[5], &gSentinel);
}

TEST_F(FunctionTest, ARebuiltListKeepsItsPosition) {
  MultiFunctionList list;
  list.currentIndex = 4;
  BuildMultiFunctionList(list, kFuncInst);
  EXPECT_EQ(list.currentIndex, 4);
  list.currentIndex = 6;
  BuildMultiFunctionList(list, kFuncAp);
  EXPECT_EQ(list.currentIndex, 0);
}

TEST_F(FunctionTest, AnyOtherListIdFillsNothing) {
  MultiFunctionList list;
  BuildMultiFunctionList(list, 9);
  EXPECT_EQ(list.listId, 9);
  EXPECT_EQ(list.currentIndex, 0);
  for (AvionicFunction* slot : list.functions) EXPECT_EQ(slot, nullptr);
}

// ---- X737Mode at build time -------------------------------------------------------------------

TEST_F(FunctionTest, ThrustAndSpeedHoldExistOnlyForTheX737) {
  AddIntDataref("x737/systems/MCP/LED_N1_on");
  EXPECT_EQ(GetFunctionId(Build(92)), kNada);
  X737Mode = 1;
  SwitchFunction thrust = Build(92);
  EXPECT_EQ(GetFunctionId(thrust), 92);
  EXPECT_EQ(Run(thrust, kActionOn), Events{"dataref-write x737/systems/MCP/LED_N1_on 1"});
  EXPECT_EQ(GetFunctionId(Build(98)), 98);
}

TEST_F(FunctionTest, AltitudeHoldLightsWhileItsFlagReadsOne) {
  AddIntDataref("drav/autopilot/alt_hold");
  SwitchFunction altHold = Build(IdOf("AP_ALT_HOLD"));
  EXPECT_EQ(GetFunctionState(altHold), 0);
  EXPECT_EQ(Run(altHold, kActionOn), Events{"dataref-write drav/autopilot/alt_hold 1"});
  SetValue("drav/autopilot/alt_hold", 1);
  EXPECT_EQ(Refreshed(altHold), 1);
  SetValue("drav/autopilot/alt_hold", 0);
  EXPECT_EQ(Refreshed(altHold), 0);
}

TEST_F(FunctionTest, TheX737DisengageLightsWhileItsAutopilotIsDisengaged) {
  AddIntDataref("x737/systems/afds/APengaged");
  SetValue("x737/systems/afds/APengaged", 1);
  X737Mode = 1;
  SwitchFunction disengage = Build(89);
  EXPECT_EQ(disengage.kind, kDatarefSwitch);
  EXPECT_EQ(GetFunctionState(disengage), 0);
  EXPECT_EQ(Run(disengage, kActionToggle), Events{"dataref-write x737/systems/afds/APengaged 0"});
  SetValue("x737/systems/afds/APengaged", 0);
  EXPECT_EQ(Refreshed(disengage), 1);
}

TEST_F(FunctionTest, TheApproachHoldIsOneBindingForTheX737) {
  AddIntDataref("x737/systems/MCP/LED_APP_on");
  X737Mode = 1;
  SwitchFunction approach = Build(97);
  EXPECT_EQ(approach.bindingCount, 1);
  EXPECT_EQ(Run(approach, kActionOn), Events{"dataref-write x737/systems/MCP/LED_APP_on 1"});
}

}  // namespace
}  // namespace drav::functiontest

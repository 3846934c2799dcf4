#include "modules/GFSECM_Module.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "LightBoxTestSupport.h"
#include "functions/FunctionCatalogue.h"
#include "hid/InputRecords.h"

namespace drav {
namespace {

using lightboxtest::LightBoxTest;

constexpr const char* kBatteryPath = "sim/cockpit/electrical/battery_on";
constexpr const char* kRangePath = "sim/cockpit/switches/EFIS_map_range_selector";

// rotary, gear, flaps, cowl flaps, switches
GFSECMInputRecord Record(std::uint8_t key, std::uint8_t gear = 0, std::uint8_t flaps = 0, std::uint8_t cowl = 0,
                         std::uint16_t switches = 0) {
  return GFSECMInputRecord{key, gear, flaps, cowl, switches};
}

struct Event {
  std::int32_t control;
  std::int32_t value;
  bool operator==(const Event&) const = default;
};

Event Decode(GFSECM_Module& module, const GFSECMInputRecord& record) {
  std::int32_t value = -99;
  const std::int32_t control = module.GetButton(&record, &value);
  return {control, control < 0 ? -99 : value};
}

class GFSECMModuleTest : public LightBoxTest {
 protected:
  static void Bind(GFSECM_Module& module, std::uint8_t key, const char* name) {
    module.AssignFunction(key, FindFunctionId(name), -1, -1);
  }
  // The module starts with the key at `key` as if the panel had reported it.
  static void StartAt(GFSECM_Module& module, std::uint8_t key) {
    module.Register(0);
    Decode(module, Record(key));
  }
  static std::vector<std::string> ButtonEvents() {
    std::vector<std::string> events;
    for (const std::string& event : Host().Events()) {
      if (event.rfind("button-", 0) == 0) events.push_back(event);
    }
    return events;
  }
};

TEST_F(GFSECMModuleTest, KeyIntoStartFromBothAndBack) {
  GFSECM_Module module;
  StartAt(module, 4);
  EXPECT_EQ(Decode(module, Record(5)), (Event{kSECMStartControl, 1}));
  EXPECT_EQ(Decode(module, Record(5)), (Event{-1, -99}));
  EXPECT_EQ(Decode(module, Record(4)), (Event{kSECMStartControl, 0}));
}

TEST_F(GFSECMModuleTest, KeyPositionsReportPositionMinusOne) {
  GFSECM_Module module;
  StartAt(module, 2);
  EXPECT_EQ(Decode(module, Record(3)), (Event{16, 2}));
  EXPECT_EQ(Decode(module, Record(1)), (Event{14, 0}));
  // Start reached from elsewhere than BOTH (a fast turn): the position's usual value.
  EXPECT_EQ(Decode(module, Record(5)), (Event{18, 4}));
  EXPECT_EQ(Decode(module, Record(2)), (Event{15, 1}));
}

TEST_F(GFSECMModuleTest, SwitchComesBeforeGearInTheSameRecord) {
  GFSECM_Module module;
  StartAt(module, 1);
  const GFSECMInputRecord both = Record(1, 1, 0, 0, 1u << 3);
  EXPECT_EQ(Decode(module, both), (Event{3, 1}));
  EXPECT_EQ(Decode(module, both), (Event{kSECMGearControl, 1}));
  EXPECT_EQ(Decode(module, both), (Event{-1, -99}));
  EXPECT_EQ(Decode(module, Record(1, 0, 0, 0, 1u << 3)), (Event{kSECMGearControl, 0}));
  EXPECT_EQ(Decode(module, Record(1, 0, 0, 0, 1u << 3)), (Event{-1, -99}));
}

TEST_F(GFSECMModuleTest, CowlFlapsComeBeforeGearAndSwitchBitsAboveElevenAreIgnored) {
  GFSECM_Module module;
  StartAt(module, 1);
  EXPECT_EQ(Decode(module, Record(1, 1, 0, 1, 0xF000)), (Event{kSECMCowlFlapsControl, 1}));
  EXPECT_EQ(Decode(module, Record(1, 1, 0, 1, 0xF000)), (Event{kSECMGearControl, 1}));
  EXPECT_EQ(Decode(module, Record(1, 1, 0, 0, 0xF000)), (Event{kSECMCowlFlapsControl, 0}));
}

TEST_F(GFSECMModuleTest, FlapsRockerRepeatsWhileHeld) {
  GFSECM_Module module;
  StartAt(module, 1);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(Decode(module, Record(1, 0, 2)), (Event{kSECMFlapsControl, 1}));
  EXPECT_EQ(Decode(module, Record(1, 0, 1)), (Event{kSECMFlapsControl, -1}));
  EXPECT_EQ(Decode(module, Record(1, 0, 0)), (Event{-1, -99}));
  // A key movement wins over a held rocker.
  EXPECT_EQ(Decode(module, Record(2, 0, 2)), (Event{15, 1}));
}

TEST_F(GFSECMModuleTest, FlapsStepsRunOneCallEach) {
  GFSECM_Module module;
  Bind(module, 19, "FLAPS_UP_DOWN");
  module.Register(0);
  Host().ClearEvents();
  module.HandleInput(kSECMFlapsControl, 1);
  const std::vector<std::string> down = ButtonEvents();
  Host().ClearEvents();
  module.HandleInput(kSECMFlapsControl, -2);
  const std::vector<std::string> up = ButtonEvents();
  ASSERT_FALSE(down.empty());
  ASSERT_FALSE(up.empty());
  EXPECT_EQ(up.size(), 2 * down.size());
  EXPECT_NE(up.front(), down.front());  // Off and On are different buttons
  Host().ClearEvents();
  module.HandleInput(kSECMFlapsControl, 0);
  EXPECT_TRUE(ButtonEvents().empty());
}

TEST_F(GFSECMModuleTest, GearLeverOffMeansGearDown) {
  GFSECM_Module module;
  Bind(module, 13, "LANDING_GEAR");
  module.Register(0);
  module.HandleInput(kSECMGearControl, 1);
  EXPECT_EQ(Get(lightboxtest::kGearHandlePath), 0);
  module.HandleInput(kSECMGearControl, 0);
  EXPECT_EQ(Get(lightboxtest::kGearHandlePath), 1);
}

TEST_F(GFSECMModuleTest, KeyPositionsSetTheirFunctionEvenForValueZero) {
  GFSECM_Module module;
  Bind(module, 14, "EFIS_ND_RANGE_80NM");
  Bind(module, 16, "EFIS_ND_RANGE_640NM");
  module.Register(0);
  module.HandleInput(16, 2);
  EXPECT_EQ(Get(kRangePath), 6);
  module.HandleInput(14, 0);  // position OFF reports 0: still selected
  EXPECT_EQ(Get(kRangePath), 3);
}

TEST_F(GFSECMModuleTest, SwitchesAndStartGoOnAndOff) {
  GFSECM_Module module;
  Bind(module, 0, "BATTERY_MASTER");
  Bind(module, 11, "LANDING_LTS");
  module.Register(0);
  module.HandleInput(0, 1);
  module.HandleInput(11, 1);
  EXPECT_EQ(Get(kBatteryPath), 1);
  EXPECT_EQ(Get(lightboxtest::kLandingLightsPath), 1);
  module.HandleInput(11, 0);
  EXPECT_EQ(Get(lightboxtest::kLandingLightsPath), 0);
  module.HandleInput(20, 1);  // no such control
  module.HandleInput(-1, 1);
}

// No unit is plugged: every switch reads off, the gear lever down, the key unknown.
TEST_F(GFSECMModuleTest, RegisterSynchronisesSwitchesAndGearButNotAnUnknownKey) {
  Set(lightboxtest::kLandingLightsPath, 1);
  Set(lightboxtest::kGearHandlePath, 0);
  Set(kRangePath, 5);
  GFSECM_Module module;
  Bind(module, 11, "LANDING_LTS");
  Bind(module, 13, "LANDING_GEAR");
  Bind(module, 14, "EFIS_ND_RANGE_80NM");
  module.Register(0);
  EXPECT_EQ(Get(lightboxtest::kLandingLightsPath), 0);
  EXPECT_EQ(Get(lightboxtest::kGearHandlePath), 1);
  EXPECT_EQ(Get(kRangePath), 5);
  EXPECT_EQ(module.State().rotary, 0);
}

TEST_F(GFSECMModuleTest, ClearDisplayMakesEveryInputReportAgain) {
  GFSECM_Module module;
  StartAt(module, 3);
  EXPECT_EQ(Decode(module, Record(3, 0, 0, 0, 0x0001)), (Event{0, 1}));
  module.ClearDisplay();
  EXPECT_EQ(Decode(module, Record(3, 0, 0, 0, 0x0001)), (Event{0, 1}));
  EXPECT_EQ(Decode(module, Record(3, 0, 0, 0, 0x0001)), (Event{16, 2}));
}

TEST_F(GFSECMModuleTest, KeysAndCopy) {
  GFSECM_Module module;
  Bind(module, 19, "FLAPS_UP_DOWN");
  Bind(module, 20, "BATTERY_MASTER");
  EXPECT_EQ(module.GetAssignedFunction(19), FindFunctionId("FLAPS_UP_DOWN"));
  EXPECT_EQ(module.GetAssignedFunction(20), 0);
  StartAt(module, 4);
  GFSECM_Module copy(module);
  EXPECT_EQ(copy.GetAssignedFunction(19), FindFunctionId("FLAPS_UP_DOWN"));
  EXPECT_EQ(Decode(copy, Record(5)), (Event{kSECMStartControl, 1}));
}

TEST_F(GFSECMModuleTest, DebugLinesHaveTheirExactTexts) {
  TraceAll();
  GFSECM_Module module;
  module.Register(0);
  Decode(module, Record(5, 1, 2, 1, 0x0801));
  for (const char* label : {"Selector", "GearState", "WingFlapsState", "CowlFlapsState", "SwitchState"}) {
    EXPECT_TRUE(Logged(std::string("GFSECM_Module::Register - ") + label + " = 0000000000000000")) << label;
  }
  EXPECT_TRUE(Logged("GFSECM_Module::GetButton - Selector = 1010000000000000"));
  EXPECT_TRUE(Logged("GFSECM_Module::GetButton - GearState = 1000000000000000"));
  EXPECT_TRUE(Logged("GFSECM_Module::GetButton - WingFlapsState = 0100000000000000"));
  EXPECT_TRUE(Logged("GFSECM_Module::GetButton - CowlFlapsState = 1000000000000000"));
  EXPECT_TRUE(Logged("GFSECM_Module::GetButton - SwitchState = 1000000000010000"));
}

}  // namespace
}  // namespace drav

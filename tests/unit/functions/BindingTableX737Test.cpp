// The autopilot functions whose dataref depends on whether the x737 aircraft drives the autopilot.
// Each variant is checked with the other variant's dataref present too, so that binding the wrong
// one shows up as a write to the wrong path.
#include <cstdlib>
#include <ostream>
#include <string>
#include <vector>

#include "BindingTableFixture.h"

namespace drav::tabletest {
namespace {

struct AutopilotRow {
  FunctionId id;
  const char* name;
  const char* plainPath;  // nullptr: something else is built without X737Mode (tested on its own)
  double plainOn;
  double plainOff;
  const char* x737Path;
  double x737On;
  double x737Off;
};

void PrintTo(const AutopilotRow& row, std::ostream* out) { *out << row.id << " " << row.name; }

const std::vector<AutopilotRow>& AutopilotRows() {
  static const std::vector<AutopilotRow> rows = {
      {88, "AP_MASTER", "sim/cockpit/autopilot/autopilot_mode", 2, 0, "x737/systems/MCP/LED_FDA_MA_on", 2, 0},
      {89, "AP_DISENGAGE", nullptr, 0, 0, "x737/systems/afds/APengaged", 0, 1},
      {90, "AP_FLIGHT_DIR", "sim/cockpit/autopilot/autopilot_mode", 1, 0, "x737/systems/afds/fdA_status", 1, 0},
      {91, "AP_AUTOTHROTTLE", "drav/autopilot/autothrottle", 1, 0, "x737/systems/athr/athr_armed", 1, 0},
      {92, "AP_THRUST_N1", nullptr, 0, 0, "x737/systems/MCP/LED_N1_on", 1, 0},
      {93, "AP_LNAV", "drav/autopilot/hnav", 1, 0, "x737/systems/MCP/LED_LNAV_on", 1, 0},
      {94, "AP_VNAV", "drav/autopilot/vnav", 1, 0, "x737/systems/MCP/LED_VNAV_on", 1, 0},
      {95, "AP_FLCH", "drav/autopilot/level_change", 1, 0, "x737/systems/MCP/LED_LVLCHG_on", 1, 0},
      {96, "AP_ALT_HOLD", nullptr, 0, 0, "x737/systems/MCP/LED_ALTHLD_on", 1, 0},
      {97, "AP_APPR_HOLD", nullptr, 0, 0, "x737/systems/MCP/LED_APP_on", 1, 0},
      {98, "AP_IAS_HOLD", nullptr, 0, 0, "x737/systems/MCP/LED_MCPSPD_on", 1, 0},
      {99, "AP_IAS_MACH_SEL", "drav/autopilot/asi_is_mach", 1, 0, "x737/systems/afds/CHANGEOVER_toggle", 1, 0},
      {102, "AP_HDG_HOLD", "drav/autopilot/heading_hold", 1, 0, "x737/systems/MCP/LED_HDG_on", 1, 0},
      {104, "AP_VS_HOLD", "drav/autopilot/vvi_climb", 1, 0, "x737/systems/MCP/LED_VVI_on", 1, 0},
  };
  return rows;
}

std::vector<AutopilotRow> RowsWithPlainDataref() {
  std::vector<AutopilotRow> rows;
  for (const AutopilotRow& row : AutopilotRows()) {
    if (row.plainPath != nullptr) rows.push_back(row);
  }
  return rows;
}

std::string AutopilotTestName(const ::testing::TestParamInfo<AutopilotRow>& info) { return info.param.name; }

bool IsSimPath(const char* path) { return std::string(path).starts_with("sim/"); }

class AutopilotTest : public BindingTableTest {
 protected:
  // The drav/ and x737/ datarefs of a row, as the system and the aircraft would publish them.
  static void PublishBoth(const AutopilotRow& row) {
    if (row.plainPath != nullptr && !IsSimPath(row.plainPath)) AddDataref(row.plainPath, Cell::Int);
    AddDataref(row.x737Path, Cell::Int);
  }
};

class AutopilotRowTest : public AutopilotTest, public ::testing::WithParamInterface<AutopilotRow> {};

class WithoutX737 : public AutopilotRowTest {};

TEST_P(WithoutX737, BindsTheSimulatorOrOwnDataref) {
  const AutopilotRow& row = GetParam();
  if (!IsSimPath(row.plainPath)) {
    SwitchFunction unpublished = Build(row.id);
    EXPECT_EQ(GetFunctionId(unpublished), row.id);
    ExpectInert(unpublished);
  }
  PublishBoth(row);
  ExpectSwitchRow({row.id, row.name, row.plainPath, Cell::Int, 0, 1, row.plainOn, row.plainOff, Compare::Equal});
}

INSTANTIATE_TEST_SUITE_P(Table, WithoutX737, ::testing::ValuesIn(RowsWithPlainDataref()), AutopilotTestName);

class WithX737 : public AutopilotRowTest {};

TEST_P(WithX737, BindsTheAircraftDataref) {
  const AutopilotRow& row = GetParam();
  X737Mode = 1;
  SwitchFunction aircraftNotLoaded = Build(row.id);
  EXPECT_EQ(GetFunctionId(aircraftNotLoaded), row.id);
  ExpectInert(aircraftNotLoaded);

  PublishBoth(row);
  ExpectSwitchRow({row.id, row.name, row.x737Path, Cell::Int, 0, 1, row.x737On, row.x737Off, Compare::Equal});
}

INSTANTIATE_TEST_SUITE_P(Table, WithX737, ::testing::ValuesIn(AutopilotRows()), AutopilotTestName);

// ---- the rows that differ without X737Mode -----------------------------------------------------

const AutopilotRow& RowOf(FunctionId id) {
  for (const AutopilotRow& row : AutopilotRows()) {
    if (row.id == id) return row;
  }
  ADD_FAILURE() << "no row " << id;
  return AutopilotRows().front();
}

class AutopilotWithoutX737 : public AutopilotTest {};

TEST_F(AutopilotWithoutX737, ThrustN1AndIasHoldBuildNothing) {
  for (FunctionId id : {92, 98}) {
    SCOPED_TRACE(id);
    PublishBoth(RowOf(id));
    SwitchFunction record = Build(id);
    EXPECT_EQ(GetFunctionId(record), 0);
    ExpectInert(record);
  }
}

// The written values of the own alt_hold dataref are the implementer's choice; only the path and
// the two states being told apart are fixed.
int WrittenValue(const Events& events, const std::string& path) {
  const std::string prefix = "dataref-write " + path + " ";
  if (events.size() != 1 || !events[0].starts_with(prefix)) {
    ADD_FAILURE() << "expected one write to " << path;
    return -1;
  }
  return std::atoi(events[0].c_str() + prefix.size());
}

TEST_F(AutopilotWithoutX737, AltHoldBindsOwnDatarefWithDistinctStates) {
  const std::string path = "drav/autopilot/alt_hold";
  PublishBoth(RowOf(96));
  AddDataref(path, Cell::Int);
  SwitchFunction altHold = Build(96);
  ASSERT_EQ(GetFunctionId(altHold), 96);
  const int onValue = WrittenValue(Run(altHold, kActionOn), path);
  const int offValue = WrittenValue(Run(altHold, kActionOff), path);
  EXPECT_NE(onValue, offValue);

  ASSERT_TRUE(host().SetDatarefValue(path, -1, -1, onValue));
  EXPECT_EQ(Refreshed(altHold), 1);
  ASSERT_TRUE(host().SetDatarefValue(path, -1, -1, offValue));
  EXPECT_EQ(Refreshed(altHold), 0);
}

class ApproachHoldPair : public AutopilotTest {
 protected:
  static constexpr const char* kHnav = "drav/autopilot/hnav";
  static constexpr const char* kVnav = "drav/autopilot/vnav";

  static std::int32_t LightFor(SwitchFunction& record, int hnav, int vnav) {
    EXPECT_TRUE(host().SetDatarefValue(kHnav, -1, -1, hnav));
    EXPECT_TRUE(host().SetDatarefValue(kVnav, -1, -1, vnav));
    return Refreshed(record);
  }
};

TEST_F(ApproachHoldPair, WritesBothModesInOrder) {
  PublishBoth(RowOf(97));
  AddDataref(kHnav, Cell::Int);
  AddDataref(kVnav, Cell::Int);
  SwitchFunction approach = Build(97);
  ASSERT_EQ(GetFunctionId(approach), 97);
  EXPECT_EQ(approach.bindingCount, 2);
  EXPECT_EQ(Run(approach, kActionOn),
            (Events{"dataref-write drav/autopilot/hnav 1", "dataref-write drav/autopilot/vnav 1"}));
  EXPECT_EQ(Run(approach, kActionOff),
            (Events{"dataref-write drav/autopilot/hnav 0", "dataref-write drav/autopilot/vnav 0"}));
}

TEST_F(ApproachHoldPair, LightsOnlyWhileBothModesAreOn) {
  AddDataref(kHnav, Cell::Int);
  AddDataref(kVnav, Cell::Int);
  SwitchFunction approach = Build(97);
  EXPECT_EQ(LightFor(approach, 1, 1), 1);
  EXPECT_EQ(LightFor(approach, 1, 0), 0);
  EXPECT_EQ(LightFor(approach, 0, 1), 0);
  EXPECT_EQ(LightFor(approach, 0, 0), 0);
}

TEST_F(ApproachHoldPair, IsInertUntilBothModesArePublished) {
  SwitchFunction approach = Build(97);
  EXPECT_EQ(GetFunctionId(approach), 97);
  ExpectInert(approach);
}

// ---- the flag is read when a function is built ---------------------------------------------------

class X737FlagTiming : public AutopilotTest {};

TEST_F(X737FlagTiming, ABuiltFunctionKeepsItsBindingUntilRebuilt) {
  PublishBoth(RowOf(102));
  SwitchFunction heading = Build(102);
  X737Mode = 1;
  EXPECT_EQ(Run(heading, kActionOn), Events{"dataref-write drav/autopilot/heading_hold 1"});

  heading = Build(102);
  EXPECT_EQ(Run(heading, kActionOn), Events{"dataref-write x737/systems/MCP/LED_HDG_on 1"});

  X737Mode = 0;
  EXPECT_EQ(Run(heading, kActionOff), Events{"dataref-write x737/systems/MCP/LED_HDG_on 0"});
}

TEST_F(X737FlagTiming, DisengageBecomesADatarefSwitchOnlyWithTheFlag) {
  PublishBoth(RowOf(89));
  SwitchFunction plain = Build(89);
  EXPECT_EQ(plain.kind, kSimCommand);
  X737Mode = 1;
  ASSERT_TRUE(host().SetDatarefValue("x737/systems/afds/APengaged", -1, -1, 1));
  SwitchFunction aircraft = Build(89);
  EXPECT_EQ(aircraft.kind, kDatarefSwitch);
  EXPECT_EQ(GetFunctionState(aircraft), 0) << "dark while the aircraft's autopilot is engaged";
  EXPECT_EQ(Run(aircraft, kActionToggle), Events{"dataref-write x737/systems/afds/APengaged 0"});
  EXPECT_TRUE(Run(aircraft, kActionRelease).empty()) << "the aircraft's disengage does not act on release";
}

}  // namespace
}  // namespace drav::tabletest

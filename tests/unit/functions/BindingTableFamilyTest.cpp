// The function families: engine n binds element n-1 of the family's array, the ALL member binds
// the whole range in one write, and the few families with their own values or ranges keep them.
#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

#include "BindingTableFixture.h"

namespace drav::tabletest {
namespace {

constexpr int kEngines = 8;
constexpr int kWcpEngines = 4;

const std::string kAnnunciators = "sim/cockpit/warnings/annunciators/";

// "ENG_3_FUEL_PUMP" from prefix "ENG_", member "3", suffix "_FUEL_PUMP".
std::string MemberName(const std::string& prefix, const std::string& member, const std::string& suffix) {
  return prefix + member + suffix;
}

// Members 1..8 then ALL, ids rising from firstId; member n binds element n-1, ALL binds 0..7.
void AddEngineFamily(std::vector<SwitchRow>& rows, FunctionId firstId, const std::string& prefix,
                     const std::string& suffix, const std::string& path, Cell cell, double on = 1, double off = 0) {
  for (int engine = 1; engine <= kEngines; ++engine) {
    rows.push_back({firstId + engine - 1, MemberName(prefix, std::to_string(engine), suffix), path, cell, engine - 1, 1,
                    on, off, Compare::Equal});
  }
  rows.push_back({firstId + kEngines, MemberName(prefix, "ALL", suffix), path, cell, 0, kEngines, on, off,
                  Compare::Equal});
}

// The four-engine annunciators of the GF-WCP: WCP_ENGN1_... to WCP_ENGN4_..., element n-1.
void AddWcpFamily(std::vector<SwitchRow>& rows, FunctionId firstId, const std::string& suffix,
                  const std::string& path, double on = 1, double off = 0) {
  for (int engine = 1; engine <= kWcpEngines; ++engine) {
    rows.push_back({firstId + engine - 1, "WCP_ENGN" + std::to_string(engine) + "_" + suffix, path, Cell::IntArray,
                    engine - 1, 1, on, off, Compare::Equal});
  }
}

std::vector<SwitchRow> MakeFamilyRows() {
  std::vector<SwitchRow> rows;
  AddEngineFamily(rows, 244, "ENG_", "_FUEL_RUN_CUTOFF", "sim/flightmodel/engine/ENGN_mixt", Cell::FloatArray);
  AddEngineFamily(rows, 262, "ENG_", "_FUEL_PUMP", "sim/cockpit/engine/fuel_pump_on", Cell::IntArray);
  AddEngineFamily(rows, 271, "ENG_", "_IGNITER", "sim/cockpit/engine/igniters_on", Cell::IntArray);
  AddEngineFamily(rows, 280, "ENG_", "_GENERATOR", "sim/cockpit/electrical/generator_on", Cell::IntArray);
  AddEngineFamily(rows, 316, "ENG_", "_FADEC", "sim/cockpit/engine/fadec_on", Cell::IntArray);
  AddEngineFamily(rows, 325, "ENG_", "_GOVERNOR", "sim/cockpit2/engine/actuators/governor_on", Cell::IntArray);
  AddEngineFamily(rows, 334, "ENG_", "_ANTI_ICE_ENGINE_AIR", "sim/cockpit/switches/anti_ice_engine_air",
                  Cell::FloatArray);
  AddEngineFamily(rows, 343, "ENG_", "_AFTERBURNER_ENABLED", "sim/cockpit2/engine/actuators/afterburner_enabled",
                  Cell::IntArray);
  AddEngineFamily(rows, 352, "ENG_", "_AUTO_IGNITE_ON", "sim/cockpit2/engine/actuators/auto_ignite_on",
                  Cell::IntArray);
  AddEngineFamily(rows, 361, "ENG_", "_PRIMER_ON", "sim/cockpit2/engine/actuators/primer_on", Cell::IntArray);
  AddEngineFamily(rows, 370, "ENG_", "_FIRE_EXTINGUISHER_ON", "sim/cockpit2/engine/actuators/fire_extinguisher_on",
                  Cell::IntArray);
  AddEngineFamily(rows, 379, "SYS_", "_BATTERY", "sim/cockpit/electrical/battery_array_on", Cell::IntArray);

  // Only two inverters; their ALL member covers exactly those two elements.
  const std::string inverter = "sim/cockpit/engine/inverter_on";
  rows.push_back({289, "ENG_1_INVERTER", inverter, Cell::IntArray, 0, 1, 1, 0, Compare::Equal});
  rows.push_back({290, "ENG_2_INVERTER", inverter, Cell::IntArray, 1, 1, 1, 0, Compare::Equal});
  rows.push_back({297, "ENG_ALL_INVERTER", inverter, Cell::IntArray, 0, 2, 1, 0, Compare::Equal});

  // Cowl flaps "on" means closed: on writes 0, off writes 1.
  rows.push_back({306, "ENG_ALL_COWL_FLAPS", "sim/flightmodel/engine/ENGN_cowl", Cell::FloatArray, 0, kEngines, 0, 1,
                  Compare::Equal});
  rows.push_back({315, "ENG_ALL_CARB_HEAT", "sim/cockpit2/engine/actuators/carb_heat_ratio", Cell::FloatArray, 0,
                  kEngines, 1, 0, Compare::Equal});

  // The magneto positions of all engines at once: both 3, left 1, right 2, off 0.
  const std::string ignition = "sim/cockpit/engine/ignition_on";
  rows.push_back({396, "ENG_ALL_MAGNETO", ignition, Cell::IntArray, 0, kEngines, 3, 0, Compare::Equal});
  rows.push_back({405, "ENG_ALL_MAGNETO_LEFT", ignition, Cell::IntArray, 0, kEngines, 1, 0, Compare::Equal});
  rows.push_back({414, "ENG_ALL_MAGNETO_RIGHT", ignition, Cell::IntArray, 0, kEngines, 2, 0, Compare::Equal});
  rows.push_back({423, "ENG_ALL_MAGNETO_OFF", ignition, Cell::IntArray, 0, kEngines, 0, 0, Compare::Equal});

  for (int light = 1; light <= 16; ++light) {
    const std::string number = (light < 10 ? "0" : "") + std::to_string(light);
    rows.push_back({187 + light, "LANDING_LIGHTS_SWITCH" + number, "sim/cockpit2/switches/landing_lights_switch",
                    Cell::FloatArray, light - 1, 1, 1, 0, Compare::Equal});
  }

  // Three names of one engine share the generator-off annunciator.
  AddWcpFamily(rows, 488, "ALT_WARN", kAnnunciators + "generator_off");
  AddWcpFamily(rows, 492, "AUTO_FEATHER", kAnnunciators + "auto_feather_arm");
  AddWcpFamily(rows, 496, "AUX_FUEL_PUMP", "sim/cockpit/engine/fuel_pump_on");
  AddWcpFamily(rows, 500, "BLEED_AIR_FAIL", kAnnunciators + "bleed_air_fail");
  AddWcpFamily(rows, 504, "BLEED_AIR_OFF", kAnnunciators + "bleed_air_off");
  AddWcpFamily(rows, 508, "DC_GEN", kAnnunciators + "generator_off");
  AddWcpFamily(rows, 512, "ENG_FIRE", kAnnunciators + "engine_fires");
  AddWcpFamily(rows, 516, "FUEL_PRESS_LOW", kAnnunciators + "fuel_pressure_low");
  AddWcpFamily(rows, 520, "GEN_OFF", kAnnunciators + "generator_off");
  AddWcpFamily(rows, 524, "ICE_VANE", kAnnunciators + "ice_vane_fail");
  AddWcpFamily(rows, 528, "IGNITER_ON", kAnnunciators + "igniter_on");
  AddWcpFamily(rows, 532, "OIL_PRESS_LOW", kAnnunciators + "oil_pressure_low");
  AddWcpFamily(rows, 536, "STARTER_ENERGISED", "sim/cockpit2/engine/actuators/ignition_key", 4, 3);
  AddWcpFamily(rows, 562, "OIL_TEMP_HIGH", kAnnunciators + "oil_temperature_high");
  AddWcpFamily(rows, 566, "CHIP_DETECT", kAnnunciators + "chip_detected");
  AddWcpFamily(rows, 570, "REVERSER_DEPLOYED", kAnnunciators + "reverser_on");
  AddWcpFamily(rows, 574, "AFTERBURNER_ON", kAnnunciators + "burner_on");
  AddWcpFamily(rows, 578, "N1_LOW", kAnnunciators + "N1_low");
  AddWcpFamily(rows, 582, "N1_HIGH", kAnnunciators + "N1_high");
  AddWcpFamily(rows, 586, "REVERSER_NOT_READY", kAnnunciators + "reverser_not_ready");
  AddWcpFamily(rows, 590, "ICE_VANE_EXTENDED", kAnnunciators + "ice_vane_extend");

  for (int tank = 1; tank <= 9; ++tank) {
    rows.push_back({593 + tank, "WCP_FUEL_TANK" + std::to_string(tank) + "_TRANSFER", kAnnunciators + "fuel_transfer",
                    Cell::IntArray, tank - 1, 1, 1, 0, Compare::Equal});
  }
  return rows;
}

const std::vector<SwitchRow>& FamilyRows() {
  static const std::vector<SwitchRow> rows = MakeFamilyRows();
  return rows;
}

class FamilyMember : public SwitchRowTest {};

TEST_P(FamilyMember, WritesItsElementsAndLightsFromTheFirst) { ExpectSwitchRow(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Table, FamilyMember, ::testing::ValuesIn(FamilyRows()), RowTestName);

TEST(FamilyRows, NameEachIdOnce) {
  std::vector<FunctionId> ids;
  for (const SwitchRow& row : FamilyRows()) ids.push_back(row.id);
  std::sort(ids.begin(), ids.end());
  EXPECT_EQ(std::adjacent_find(ids.begin(), ids.end()), ids.end());
  EXPECT_EQ(ids.size(), 226u);
}

// ---- the autopilot state flags -----------------------------------------------------------------

const char* const kAutopilotStates[] = {
    "auto_throttle_engage",
    "heading_hold_engage",
    "wing_leveler_engage",
    "airspeed_hold_with_pitch_engage",
    "vvi_climb_engage",
    "altitude_hold_armed",
    "flight_level_change_engage",
    "pitch_sync_engage",
    "fms_armed",
    "fms_engaged",
    "glideslope_armed",
    "glideslope_engaged",
    "fms_vnav_armed",
    "fms_vnav_engaged",
    "altitude_hold_engaged",
    "horizontal_toga_engaged",
    "vertical_toga_engaged",
    "vnav_armed",
    "vnav_engaged",
};

std::vector<SwitchRow> MakeAutopilotStateRows() {
  std::vector<SwitchRow> rows;
  FunctionId id = 440;
  for (const char* state : kAutopilotStates) {
    std::string upper = state;
    std::transform(upper.begin(), upper.end(), upper.begin(), [](unsigned char c) { return std::toupper(c); });
    rows.push_back({id++, "AP_STATE_" + upper, std::string("drav/autopilot_state/") + state, Cell::Int, 0, 1, 1, 0,
                    Compare::Equal});
  }
  return rows;
}

class AutopilotStateFlag : public SwitchRowTest {};

TEST_P(AutopilotStateFlag, IsInertUntilPublishedThenAnOrdinarySwitch) {
  const SwitchRow& row = GetParam();
  SwitchFunction unpublished = Build(row.id);
  EXPECT_EQ(GetFunctionId(unpublished), row.id);
  ExpectInert(unpublished);

  AddDataref(row.path, Cell::Int);
  ExpectSwitchRow(row);
}

INSTANTIATE_TEST_SUITE_P(Table, AutopilotStateFlag, ::testing::ValuesIn(MakeAutopilotStateRows()), RowTestName);

TEST(AutopilotStateRows, EndAtTheLastStateFunction) {
  const std::vector<SwitchRow> rows = MakeAutopilotStateRows();
  ASSERT_EQ(rows.size(), 19u);
  EXPECT_EQ(rows.back().id, 458);
  EXPECT_EQ(rows.front().path, "drav/autopilot_state/auto_throttle_engage");
}

// ---- shared definitions seen side by side --------------------------------------------------------

class SharedDefinition : public BindingTableTest {};

TEST_F(SharedDefinition, EngineThreeFuelPumpTouchesOnlyItsElement) {
  SwitchFunction pump3 = Build(264);
  EXPECT_EQ(Run(pump3, kActionOn), Events{"dataref-write sim/cockpit/engine/fuel_pump_on[2] 1"});
  EXPECT_EQ(host().GetDatarefValue("sim/cockpit/engine/fuel_pump_on", 1), 0.0);
  EXPECT_EQ(host().GetDatarefValue("sim/cockpit/engine/fuel_pump_on", 3), 0.0);
}

TEST_F(SharedDefinition, TheThreeGeneratorAnnunciatorsOfAnEngineLightTogether) {
  SwitchFunction altWarn = Build(489);
  SwitchFunction dcGen = Build(509);
  SwitchFunction genOff = Build(521);
  ASSERT_TRUE(host().SetDatarefValue(kAnnunciators + "generator_off", 1, 1, 1));
  EXPECT_EQ(Refreshed(altWarn), 1);
  EXPECT_EQ(Refreshed(dcGen), 1);
  EXPECT_EQ(Refreshed(genOff), 1);
  ASSERT_TRUE(host().SetDatarefValue(kAnnunciators + "generator_off", 1, 1, 0));
  EXPECT_EQ(Refreshed(altWarn) + Refreshed(dcGen) + Refreshed(genOff), 0);
}

TEST_F(SharedDefinition, AuxFuelPumpAnnunciatorFollowsTheEnginePump) {
  SwitchFunction enginePump = Build(263);
  SwitchFunction auxPump = Build(497);
  Run(enginePump, kActionOn);
  EXPECT_EQ(Refreshed(auxPump), 1);
  Run(enginePump, kActionOff);
  EXPECT_EQ(Refreshed(auxPump), 0);
}

}  // namespace
}  // namespace drav::tabletest

// The avionic (display and encoder) functions: each id's shared object carries its tag and display
// format and reads the right simulator value, with the x737 aircraft's values where they apply.
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "BindingTableFixture.h"

namespace drav::tabletest {
namespace {

constexpr const char* kAdf1 = "sim/cockpit/radios/adf1_freq_hz";
constexpr const char* kAdf1Standby = "sim/cockpit/radios/adf1_stdby_freq_hz";
constexpr const char* kAdf2 = "sim/cockpit/radios/adf2_freq_hz";
constexpr const char* kAdf2Standby = "sim/cockpit/radios/adf2_stdby_freq_hz";
constexpr const char* kCom1 = "sim/cockpit/radios/com1_freq_hz";
constexpr const char* kCom1Standby = "sim/cockpit/radios/com1_stdby_freq_hz";
constexpr const char* kCom2 = "sim/cockpit/radios/com2_freq_hz";
constexpr const char* kCom2Standby = "sim/cockpit/radios/com2_stdby_freq_hz";
constexpr const char* kDme = "sim/cockpit/radios/dme_freq_hz";
constexpr const char* kDmeStandby = "sim/cockpit/radios/dme_stdby_freq_hz";
constexpr const char* kNav1 = "sim/cockpit/radios/nav1_freq_hz";
constexpr const char* kNav1Standby = "sim/cockpit/radios/nav1_stdby_freq_hz";
constexpr const char* kNav2 = "sim/cockpit/radios/nav2_freq_hz";
constexpr const char* kNav2Standby = "sim/cockpit/radios/nav2_stdby_freq_hz";
constexpr const char* kTransponder = "sim/cockpit/radios/transponder_code";

struct AvionicRow {
  FunctionId id;
  const char* name;
  const char* tag;
  std::int32_t format;
  const char* path;
  bool isFloat;  // X-Plane's type of the path (the system's own course datarefs are float)
};

void PrintTo(const AvionicRow& row, std::ostream* out) { *out << row.id << " " << row.name; }

const std::vector<AvionicRow>& AvionicRows() {
  static const std::vector<AvionicRow> rows = {
      {1, "ADF1_ACTIVE", "ADF1", 1, kAdf1, false},
      {2, "ADF1_STANDBY", "AD1S", 1, kAdf1Standby, false},
      {3, "ADF1_DUAL", "AD1D", 1, kAdf1, false},
      {4, "ADF1_CARD", "ADFH", 1, "sim/cockpit/radios/adf1_cardinal_dir", true},
      {5, "ADF2_ACTIVE", "ADF2", 1, kAdf2, false},
      {6, "ADF2_STANDBY", "AD2S", 1, kAdf2Standby, false},
      {7, "ADF2_DUAL", "AD2D", 1, kAdf2, false},
      {8, "ADF2_CARD", "AD2H", 1, "sim/cockpit/radios/adf2_cardinal_dir", true},
      {9, "COM1_ACTIVE", "COM1", 4, kCom1, false},
      {10, "COM1_STANDBY", "CM1S", 4, kCom1Standby, false},
      {11, "COM1_DUAL", "CM1D", 4, kCom1, false},
      {12, "COM2_ACTIVE", "COM2", 4, kCom2, false},
      {13, "COM2_STANDBY", "CM2S", 4, kCom2Standby, false},
      {14, "COM2_DUAL", "CM2D", 4, kCom2, false},
      {15, "DME_ACTIVE", "DMEA ", 4, kDme, false},
      {16, "DME_STANDBY", "DMES", 4, kDmeStandby, false},
      {17, "DME_DUAL", "DMED", 4, kDme, false},
      {18, "NAV1_ACTIVE", "NAV1", 4, kNav1, false},
      {19, "NAV1_STANDBY", "NV1S", 4, kNav1Standby, false},
      {20, "NAV1_DUAL", "NV1D", 4, kNav1, false},
      {21, "NAV2_ACTIVE", "NAV2", 4, kNav2, false},
      {22, "NAV2_STANDBY", "NV2S", 4, kNav2Standby, false},
      {23, "NAV2_DUAL", "NV2D", 4, kNav2, false},
      {24, "XPDR", "XPDR", 2, kTransponder, false},
      {29, "XPDR_DIGIT_1", "XPDRD1", 2, kTransponder, false},
      {30, "XPDR_DIGIT_2", "XPDRD2", 2, kTransponder, false},
      {31, "XPDR_DIGIT_3", "XPDRD3", 2, kTransponder, false},
      {32, "XPDR_DIGIT_4", "XPDRD4", 2, kTransponder, false},
      {33, "ADF1_ACTIVE_COARSE", "ADF1_1", 1, kAdf1, false},
      {34, "ADF1_ACTIVE_FINE", "ADF1_2", 1, kAdf1, false},
      {35, "ADF1_STANDBY_COARSE", "AD1S_1", 1, kAdf1Standby, false},
      {36, "ADF1_STANDBY_FINE", "AD1S_2", 1, kAdf1Standby, false},
      {37, "ADF2_ACTIVE_COARSE", "ADF2_1", 1, kAdf2, false},
      {38, "ADF2_ACTIVE_FINE", "ADF2_2", 1, kAdf2, false},
      {39, "ADF2_STANDBY_COARSE", "AD2S_1", 1, kAdf2Standby, false},
      {40, "ADF2_STANDBY_FINE", "AD2S_2", 1, kAdf2Standby, false},
      {41, "COM1_ACTIVE_COARSE", "COM1_1", 4, kCom1, false},
      {42, "COM1_ACTIVE_FINE", "COM1_2", 4, kCom1, false},
      {43, "COM1_STANDBY_COARSE", "CM1S_1", 4, kCom1Standby, false},
      {44, "COM1_STANDBY_FINE", "CM1S_2", 4, kCom1Standby, false},
      {45, "COM2_ACTIVE_COARSE", "COM2_1", 4, kCom2, false},
      {46, "COM2_ACTIVE_FINE", "COM2_2", 4, kCom2, false},
      {47, "COM2_STANDBY_COARSE", "CM2S_1", 4, kCom2Standby, false},
      {48, "COM2_STANDBY_FINE", "CM2S_2", 4, kCom2Standby, false},
      {49, "DME_ACTIVE_COARSE", "DMEA_1", 4, kDme, false},
      {50, "DME_ACTIVE_FINE", "DMEA_2", 4, kDme, false},
      {51, "DME_STANDBY_COARSE", "DMES_1", 4, kDmeStandby, false},
      {52, "DME_STANDBY_FINE", "DMES_2", 4, kDmeStandby, false},
      {53, "NAV1_ACTIVE_COARSE", "NAV1_1", 4, kNav1, false},
      {54, "NAV1_ACTIVE_FINE", "NAV1_2", 4, kNav1, false},
      {55, "NAV1_STANDBY_COARSE", "NV1S_1", 4, kNav1Standby, false},
      {56, "NAV1_STANDBY_FINE", "NV1S_2", 4, kNav1Standby, false},
      // NAV2's active pair comes fine first; the tags follow the names, not the id order.
      {57, "NAV2_ACTIVE_FINE", "NAV2_2", 4, kNav2, false},
      {58, "NAV2_ACTIVE_COARSE", "NAV2_1", 4, kNav2, false},
      {59, "NAV2_STANDBY_COARSE", "NV2S_1", 4, kNav2Standby, false},
      {60, "NAV2_STANDBY_FINE", "NV2S_2", 4, kNav2Standby, false},
      {61, "OBS1", "OBS1", 1, "drav/autopilot/nav1_obs", true},
      {62, "OBS2", "OBS2", 1, "drav/autopilot/nav2_obs", true},
      {63, "AP_HEADING_ADJ", "HDG ", 1, "drav/autopilot/heading_crs", true},
      {64, "AP_NAV_COURSE_ADJ", "CRS ", 1, "drav/autopilot/nav1_obs", true},
      {65, "AP_SPEED_ADJ", "SPD ", 5, "sim/cockpit/autopilot/airspeed", true},
      {66, "AP_ALTITUDE_ADJ", "ALT ", 3, "sim/cockpit/autopilot/altitude", true},
      {67, "AP_VERT_SPEED_ADJ", " VS ", 3, "sim/cockpit/autopilot/vertical_velocity", true},
      {68, "ALTIMETER", "ALTI", 8, "sim/cockpit/misc/barometer_setting", true},
      {69, "COCKPIT_LTS", "CKPT", 6, "sim/cockpit/electrical/cockpit_lights", true},
      {71, "HUD_BRIGHTNESS", "HBRT", 6, "sim/cockpit/electrical/HUD_brightness", true},
      {72, "INST_BRIGHTNESS", "IBRT", 6, "sim/cockpit/electrical/instrument_brightness", true},
      {73, "INSTRUMENT_BRIGHTNESS_LEVEL", "IBLV", 6, "sim/cockpit/electrical/instrument_brightness", true},
      {74, "PANEL_BRIGHTNESS_LEVEL", "PBLV", 6, "sim/cockpit/electrical/cockpit_lights", true},
      {75, "DECISION_HEIGHT", " DH ", 2, "sim/cockpit/misc/radio_altimeter_minimum", true},
      {77, "APU_SWITCH", " APU", 0, "sim/cockpit/engine/APU_switch", false},
      {78, "BLEED_AIR_MODE", "BLDA", 0, "sim/cockpit/pressure/bleed_air_mode", false},
      {79, "TRANSPONDER_MODE", "XPDM", 0, "sim/cockpit/radios/transponder_mode", false},
      {80, "NAV_COM_ADF_MODE", "NAVM", 0, "sim/cockpit/radios/nav_com_adf_mode", false},
      {81, "HSI_SELECTOR", "HSIS", 0, "sim/cockpit/switches/HSI_selector", false},
      {113, "EFIS_ND_MODE_SEL", "NDM ", 0, "sim/cockpit/switches/EFIS_map_mode", false},
      {114, "EFIS_ND_SUB_MODE_SEL", "NDSM", 0, "sim/cockpit/switches/EFIS_map_submode", false},
      {115, "EFIS_ND_RANGE_SEL", "NDRG", 7, "sim/cockpit/switches/EFIS_map_range_selector", false},
      {173, "FUEL_FEED", "FUEL", 1, "sim/cockpit/engine/fuel_tank_selector", false},
      {174, "FUEL_TRANSFER_FROM", "FT F", 1, "sim/cockpit/engine/fuel_tank_transfer_from", false},
      {175, "FUEL_TRANSFER_TO", "FT T", 1, "sim/cockpit/engine/fuel_tank_transfer", false},
      {427, "ELEV_TRIM", "ELVT", 12, "sim/flightmodel/controls/elv_trim", true},
      {430, "AILERON_TRIM", "AILT", 12, "sim/flightmodel/controls/ail_trim", true},
      {433, "RUDDER_TRIM", "RURT", 12, "sim/flightmodel/controls/rud_trim", true},
      {436, "ROTOR_TRIM", "RORT", 12, "sim/flightmodel/controls/rot_trim", true},
      {439, "AUTO_BRAKE", "ABRK", 0, "sim/cockpit/switches/auto_brake_settings", false},
  };
  return rows;
}

std::string AvionicTestName(const ::testing::TestParamInfo<AvionicRow>& info) { return info.param.name; }

bool IsOwnPath(const char* path) { return std::string(path).starts_with("drav/"); }

// A value no default of the simulator holds, so reading it proves which dataref is bound.
double DistinctiveValue(bool isFloat) { return isFloat ? 123.25 : 4321; }

class AvionicTest : public BindingTableTest {
 protected:
  static XPLMDataRef Find(const char* path) { return XPLMFindDataRef(path); }

  static void ExpectReads(AvionicFunction& function, const char* path, bool isFloat) {
    const double value = DistinctiveValue(isFloat);
    ASSERT_TRUE(host().SetDatarefValue(path, -1, -1, value)) << path;
    EXPECT_EQ(GetAvionicValue(function), static_cast<float>(value)) << path;
  }
};

class AvionicRowTest : public AvionicTest, public ::testing::WithParamInterface<AvionicRow> {};

TEST_P(AvionicRowTest, CarriesItsTagFormatAndDataref) {
  const AvionicRow& row = GetParam();
  if (IsOwnPath(row.path)) AddDataref(row.path, Cell::Float);
  host().ClearEvents();
  AvionicFunction* function = BuildAvionic(row.id);
  ASSERT_NE(function, nullptr);
  EXPECT_TRUE(host().Events().empty()) << "building a display only reads the simulator";
  EXPECT_EQ(std::string(function->tag), row.tag);
  EXPECT_EQ(function->format, row.format);
  EXPECT_EQ(GetAvionicFunctionId(*function), row.id);
  EXPECT_EQ(function->dataref, Find(row.path));
  EXPECT_EQ(function->isFloat, row.isFloat);
  ExpectReads(*function, row.path, row.isFloat);
}

TEST_P(AvionicRowTest, IsOneSharedObjectPerId) {
  const AvionicRow& row = GetParam();
  AvionicFunction* first = BuildAvionic(row.id);
  EXPECT_EQ(BuildAvionic(row.id), first);
  EXPECT_EQ(SharedAvionicFunction(row.id), first);
}

INSTANTIATE_TEST_SUITE_P(Table, AvionicRowTest, ::testing::ValuesIn(AvionicRows()), AvionicTestName);

// ---- values without a dataref ----------------------------------------------------------------------

TEST_F(AvionicTest, DisplayBrightnessHasNoDataref) {
  AvionicFunction* brightness = BuildAvionic(70);
  ASSERT_NE(brightness, nullptr);
  EXPECT_EQ(std::string(brightness->tag), "DBRT");
  EXPECT_EQ(brightness->format, 9);
  EXPECT_EQ(GetAvionicFunctionId(*brightness), 70);
  EXPECT_EQ(brightness->dataref, nullptr);
  EXPECT_FALSE(brightness->isFloat);
  EXPECT_EQ(GetAvionicValue(*brightness), 0.0f);
}

TEST_F(AvionicTest, CoursesReadNothingUntilPublished) {
  for (FunctionId id : {61, 62, 63, 64}) {
    SCOPED_TRACE(id);
    AvionicFunction* course = BuildAvionic(id);
    ASSERT_NE(course, nullptr);
    EXPECT_EQ(course->dataref, nullptr);
    EXPECT_FALSE(course->isFloat);
    EXPECT_EQ(GetAvionicValue(*course), 0.0f);
  }
}

TEST_F(AvionicTest, PrevAndNextShowTheFirstComFrequency) {
  for (const auto& [id, tag] : {std::pair<FunctionId, const char*>{25, "PREV"}, {26, "NEXT"}}) {
    SCOPED_TRACE(tag);
    AvionicFunction* step = BuildAvionic(id);
    ASSERT_NE(step, nullptr);
    EXPECT_EQ(std::string(step->tag), tag);
    EXPECT_EQ(step->format, 4);
    EXPECT_EQ(step->dataref, Find(kCom1));
    const FunctionId stepId = GetAvionicFunctionId(*step);
    EXPECT_TRUE(stepId == 25 || stepId == 26) << stepId;
  }
}

// ---- the x737 aircraft's autopilot values -----------------------------------------------------

struct AircraftValue {
  FunctionId id;
  const char* tag;
  std::int32_t format;
  const char* plainPath;
  const char* x737Path;
};

constexpr AircraftValue kAircraftValues[] = {
    {63, "HDG ", 1, "drav/autopilot/heading_crs", "x737/systems/afds/HDG_magnhdg"},
    {65, "SPD ", 5, "sim/cockpit/autopilot/airspeed", "x737/systems/athr/MCPSPD_spd"},
    {66, "ALT ", 3, "sim/cockpit/autopilot/altitude", "x737/systems/afds/ALTHLD_baroalt"},
    {67, " VS ", 3, "sim/cockpit/autopilot/vertical_velocity", "x737/systems/afds/VS_vvi"},
};

TEST_F(AvionicTest, X737ModeReadsTheAircraftsAutopilotValues) {
  AddDataref("drav/autopilot/heading_crs", Cell::Float);
  for (const AircraftValue& value : kAircraftValues) AddDataref(value.x737Path, Cell::Float);
  X737Mode = 1;
  for (const AircraftValue& value : kAircraftValues) {
    SCOPED_TRACE(value.x737Path);
    AvionicFunction* function = BuildAvionic(value.id);
    ASSERT_NE(function, nullptr);
    EXPECT_EQ(std::string(function->tag), value.tag);
    EXPECT_EQ(function->format, value.format);
    EXPECT_EQ(GetAvionicFunctionId(*function), value.id);
    EXPECT_EQ(function->dataref, Find(value.x737Path));
    EXPECT_TRUE(function->isFloat);
    ExpectReads(*function, value.x737Path, true);
  }
}

TEST_F(AvionicTest, X737ModeWithoutTheAircraftReadsNothing) {
  AddDataref("drav/autopilot/heading_crs", Cell::Float);
  X737Mode = 1;
  for (const AircraftValue& value : kAircraftValues) {
    SCOPED_TRACE(value.x737Path);
    AvionicFunction* function = BuildAvionic(value.id);
    ASSERT_NE(function, nullptr);
    EXPECT_EQ(function->dataref, nullptr) << "no fallback to " << value.plainPath;
    EXPECT_EQ(GetAvionicValue(*function), 0.0f);
  }
}

TEST_F(AvionicTest, EachRequestRebindsTheSharedObjectByTheFlagOfThatMoment) {
  AddDataref("x737/systems/afds/VS_vvi", Cell::Float);
  X737Mode = 1;
  AvionicFunction* verticalSpeed = BuildAvionic(67);
  ASSERT_NE(verticalSpeed, nullptr);
  EXPECT_EQ(verticalSpeed->dataref, Find("x737/systems/afds/VS_vvi"));
  X737Mode = 0;
  EXPECT_EQ(verticalSpeed->dataref, Find("x737/systems/afds/VS_vvi")) << "kept until requested again";
  EXPECT_EQ(BuildAvionic(67), verticalSpeed);
  EXPECT_EQ(verticalSpeed->dataref, Find("sim/cockpit/autopilot/vertical_velocity"));
}

// ---- the second, on/off binding of speed and altitude ----------------------------------------

void ExpectOnOffIntBinding(const DatarefBinding& binding) {
  EXPECT_EQ(binding.onValue, 1.0f);
  EXPECT_EQ(binding.offValue, 0.0f);
  EXPECT_EQ(binding.compareMode, kCompareEqual);
  EXPECT_EQ(binding.valueType, kIntScalar);
}

TEST_F(AvionicTest, SpeedKnowsWhetherTheTargetIsMach) {
  const char* isMach = "sim/cockpit/autopilot/airspeed_is_mach";
  AvionicFunction* speed = BuildAvionic(65);
  ASSERT_NE(speed, nullptr);
  ExpectOnOffIntBinding(speed->auxBinding);
  EXPECT_EQ(speed->auxBinding.dataref, Find(isMach));
  ASSERT_TRUE(host().SetDatarefValue(isMach, -1, -1, 1));
  EXPECT_EQ(ReadBinding(speed->auxBinding), 1);
  ASSERT_TRUE(host().SetDatarefValue(isMach, -1, -1, 0));
  EXPECT_EQ(ReadBinding(speed->auxBinding), 0);
}

TEST_F(AvionicTest, X737SpeedAsksTheAircraftWhetherItIsMach) {
  const char* isMach = "x737/systems/athr/MCPSPD_ismach";
  AddDataref(isMach, Cell::Int);
  X737Mode = 1;
  AvionicFunction* speed = BuildAvionic(65);
  ASSERT_NE(speed, nullptr);
  ExpectOnOffIntBinding(speed->auxBinding);
  EXPECT_EQ(speed->auxBinding.dataref, Find(isMach));
  ASSERT_TRUE(host().SetDatarefValue(isMach, -1, -1, 1));
  EXPECT_EQ(ReadBinding(speed->auxBinding), 1);
}

TEST_F(AvionicTest, AltitudeStepFollowsTheOwnKnobFlag) {
  const char* knob = "drav/autopilot_knob/alt_knob";
  AvionicFunction* altitude = BuildAvionic(66);
  ASSERT_NE(altitude, nullptr);
  EXPECT_EQ(altitude->auxBinding.dataref, nullptr) << "the knob flag is not published yet";

  AddDataref(knob, Cell::Int);
  altitude = BuildAvionic(66);
  ExpectOnOffIntBinding(altitude->auxBinding);
  EXPECT_EQ(altitude->auxBinding.dataref, Find(knob));
  ASSERT_TRUE(host().SetDatarefValue(knob, -1, -1, 1));
  EXPECT_EQ(ReadBinding(altitude->auxBinding), 1);
}

TEST_F(AvionicTest, X737AltitudeLeavesTheKnobBindingAsItWas) {
  const char* knob = "drav/autopilot_knob/alt_knob";
  AddDataref(knob, Cell::Int);
  AddDataref("x737/systems/afds/ALTHLD_baroalt", Cell::Float);
  AvionicFunction* altitude = BuildAvionic(66);
  ASSERT_NE(altitude, nullptr);
  ASSERT_EQ(altitude->auxBinding.dataref, Find(knob));

  X737Mode = 1;
  altitude = BuildAvionic(66);
  EXPECT_EQ(altitude->dataref, Find("x737/systems/afds/ALTHLD_baroalt"));
  EXPECT_EQ(altitude->auxBinding.dataref, Find(knob));
  ExpectOnOffIntBinding(altitude->auxBinding);
}

// ---- what the factory does around the table -----------------------------------------------------

TEST_F(AvionicTest, RadioTogglesBuildASelectionEvenForAnAvionicSlot) {
  for (FunctionId id : {27, 28}) {
    SCOPED_TRACE(id);
    AvionicFunction* slot = nullptr;
    SwitchFunction record;
    ClearFunction(record);
    CreateFunction(id, &slot, record, 1, kRadioGF166);
    EXPECT_EQ(record.kind, kModuleSelect);
    EXPECT_EQ(GetFunctionId(record), id);
    EXPECT_EQ(record.targetFunction, id);
    EXPECT_EQ(record.targetUnit, 1);
    EXPECT_EQ(record.targetModuleKind, kRadioGF166);
  }
}

TEST_F(AvionicTest, AnAvionicIdOnAButtonSelectsItOnARadio) {
  for (FunctionId id : {1, 9, 57, 81}) {
    SCOPED_TRACE(id);
    SwitchFunction record;
    ClearFunction(record);
    CreateFunction(id, nullptr, record, 2, kRadioGF46);
    EXPECT_EQ(record.kind, kModuleSelect);
    EXPECT_EQ(GetFunctionId(record), id);
    EXPECT_EQ(record.targetFunction, id);
    EXPECT_EQ(record.targetUnit, 2);
    EXPECT_EQ(record.targetModuleKind, kRadioGF46);
    EXPECT_TRUE(Run(record, kActionToggle).empty()) << "no radio is connected";
  }
}

TEST_F(AvionicTest, NadaClearsTheAvionicSlot) {
  AvionicFunction* slot = BuildAvionic(9);
  ASSERT_NE(slot, nullptr);
  SwitchFunction record;
  ClearFunction(record);
  CreateFunction(0, &slot, record, -1, 2);
  EXPECT_EQ(slot, nullptr);
  EXPECT_EQ(GetFunctionId(record), 0);
}

}  // namespace
}  // namespace drav::tabletest

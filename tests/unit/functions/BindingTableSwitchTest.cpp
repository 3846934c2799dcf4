// Single-binding switch functions: for every row, what switching it on and off writes to the
// simulator (value, int or float, element range) and which dataref values light its control.
#include <algorithm>
#include <string>
#include <vector>

#include "BindingTableFixture.h"

namespace drav::tabletest {
namespace {

SwitchRow IntRow(FunctionId id, const char* name, const char* path, double on, double off,
                 Compare compare = Compare::Equal) {
  return SwitchRow{id, name, path, Cell::Int, 0, 1, on, off, compare};
}

SwitchRow FloatRow(FunctionId id, const char* name, const char* path, double on, double off) {
  return SwitchRow{id, name, path, Cell::Float, 0, 1, on, off, Compare::Equal};
}

SwitchRow IntArray(FunctionId id, const char* name, const char* path, int first, int count, double on, double off) {
  return SwitchRow{id, name, path, Cell::IntArray, first, count, on, off, Compare::Equal};
}

SwitchRow FloatArray(FunctionId id, const char* name, const char* path, int first, int count, double on,
                     double off) {
  return SwitchRow{id, name, path, Cell::FloatArray, first, count, on, off, Compare::Equal};
}

// Ids listed together in one row (170/478, 181/315, 182/288, 183/270, 437/465, 469/482) appear
// once each: every one of them must behave as the shared definition.
const std::vector<SwitchRow>& SingleBindingRows() {
  static const std::vector<SwitchRow> rows = {
    IntRow(116, "EFIS_SYM_WXR", "sim/cockpit/switches/EFIFS_shows_weather", 1, 0),
    IntRow(117, "EFIS_SYM_TCAS", "sim/cockpit/switches/EFIS_shows_tcas", 1, 0),
    IntRow(118, "EFIS_SYM_ARPT", "sim/cockpit/switches/EFIS_shows_airports", 1, 0),
    IntRow(119, "EFIS_SYM_WPT", "sim/cockpit/switches/EFIS_shows_waypoints", 1, 0),
    IntRow(120, "EFIS_SYM_VOR", "sim/cockpit/switches/EFIS_shows_VORs", 1, 0),
    IntRow(121, "EFIS_SYM_NDB", "sim/cockpit/switches/EFIS_shows_NDBs", 1, 0),
    IntRow(122, "EFIS_ND_MODE_APP", "sim/cockpit/switches/EFIS_map_submode", 0, 0),
    IntRow(123, "EFIS_ND_MODE_VOR", "sim/cockpit/switches/EFIS_map_submode", 1, 0),
    IntRow(124, "EFIS_ND_MODE_MAP", "sim/cockpit/switches/EFIS_map_submode", 2, 0),
    IntRow(125, "EFIS_ND_MODE_PLAN", "sim/cockpit/switches/EFIS_map_submode", 4, 0),
    IntRow(126, "EFIS_ND_RANGE_10NM", "sim/cockpit/switches/EFIS_map_range_selector", 0, 0),
    IntRow(127, "EFIS_ND_RANGE_20NM", "sim/cockpit/switches/EFIS_map_range_selector", 1, 0),
    IntRow(128, "EFIS_ND_RANGE_40NM", "sim/cockpit/switches/EFIS_map_range_selector", 2, 0),
    IntRow(129, "EFIS_ND_RANGE_80NM", "sim/cockpit/switches/EFIS_map_range_selector", 3, 0),
    IntRow(130, "EFIS_ND_RANGE_160NM", "sim/cockpit/switches/EFIS_map_range_selector", 4, 0),
    IntRow(131, "EFIS_ND_RANGE_320NM", "sim/cockpit/switches/EFIS_map_range_selector", 5, 0),
    IntRow(132, "EFIS_ND_RANGE_640NM", "sim/cockpit/switches/EFIS_map_range_selector", 6, 0),
    IntRow(133, "EFIS_VOR_SEL1", "sim/cockpit/switches/EFIS_dme_1_selector", 2, 1),
    IntRow(134, "EFIS_ADF_SEL1", "sim/cockpit/switches/EFIS_dme_1_selector", 0, 1),
    IntRow(135, "EFIS_VOR_SEL2", "sim/cockpit/switches/EFIS_dme_2_selector", 2, 1),
    IntRow(136, "EFIS_ADF_SEL2", "sim/cockpit/switches/EFIS_dme_2_selector", 0, 1),
    IntRow(137, "EICAS_DSP_ENG", "sim/cockpit/switches/ECAM_mode", 0, 0),
    IntRow(138, "EICAS_DSP_FUEL", "sim/cockpit/switches/ECAM_mode", 1, 1),
    IntRow(139, "EICAS_DSP_STAT", "sim/cockpit/switches/ECAM_mode", 2, 2),
    IntRow(140, "EICAS_DSP_HYD", "sim/cockpit/switches/ECAM_mode", 3, 3),
    IntRow(141, "EICAS_DSP_FAIL", "sim/cockpit/switches/ECAM_mode", 4, 4),
    IntRow(142, "AUDPNL_COM1_IDENT", "sim/cockpit2/radios/actuators/audio_com_selection", 6, 0),
    IntRow(143, "AUDPNL_COM2_IDENT", "sim/cockpit2/radios/actuators/audio_com_selection", 7, 0),
    IntRow(144, "AUDPNL_NAV1_IDENT", "sim/cockpit2/radios/actuators/audio_nav_selection", 0, 9),
    IntRow(145, "AUDPNL_NAV2_IDENT", "sim/cockpit2/radios/actuators/audio_nav_selection", 1, 9),
    IntRow(146, "AUDPNL_MKR_IDENT", "sim/cockpit2/radios/actuators/audio_marker_enabled", 1, 0),
    IntRow(147, "AUDPNL_ADF_IDENT", "sim/cockpit2/radios/actuators/audio_nav_selection", 2, 9),
    IntRow(148, "AUDPNL_ADF2_IDENT", "sim/cockpit2/radios/actuators/audio_nav_selection", 3, 9),
    IntRow(149, "AUDPNL_DME_IDENT", "sim/cockpit2/radios/actuators/audio_dme_enabled", 1, 0),
    IntRow(155, "XPDR_STBY", "sim/cockpit/radios/transponder_mode", 2, 1),
    IntRow(156, "BATTERY_MASTER", "sim/cockpit/electrical/battery_on", 1, 0),
    IntRow(157, "AVIONICS_MASTER", "sim/cockpit/electrical/avionics_on", 1, 0),
    FloatRow(158, "PANEL_LTS", "sim/cockpit/electrical/cockpit_lights", 1, 0),
    IntRow(159, "STROBE_LTS", "sim/cockpit/electrical/strobe_lights_on", 1, 0),
    IntRow(160, "LANDING_LTS", "sim/cockpit/electrical/landing_lights_on", 1, 0),
    IntRow(161, "NAV_LTS", "sim/cockpit/electrical/nav_lights_on", 1, 0),
    IntRow(162, "BEACON_LTS", "sim/cockpit/electrical/beacon_lights_on", 1, 0),
    IntRow(163, "TAXI_LTS", "sim/cockpit/electrical/taxi_light_on", 1, 0),
    IntRow(164, "DE_ICE", "sim/cockpit/switches/anti_ice_on", 1, 0),
    IntRow(165, "PITOT_HEAT", "sim/cockpit/switches/pitot_heat_on", 1, 0),
    IntRow(166, "HUD_POWER", "sim/cockpit/electrical/HUD_on", 1, 0),
    IntRow(167, "DUMP_FUEL", "sim/cockpit/switches/dumping_fuel", 1, 0),
    IntRow(168, "AP_YAW_DAMPER", "sim/cockpit/switches/yaw_damper_on", 1, 0),
    IntRow(169, "AUTO_FEATHER", "sim/cockpit/switches/auto_feather_mode", 1, 0),
    IntRow(170, "PROP_SYNC", "sim/cockpit/switches/prop_sync_on", 1, 0),
    IntRow(478, "WCP_PROP_SYNC_ON", "sim/cockpit/switches/prop_sync_on", 1, 0),
    IntRow(171, "DRAG_CHUTE", "sim/cockpit/switches/parachute_on", 1, 0),
    IntRow(172, "ARRESTOR_HOOK", "sim/cockpit/switches/arresting_gear", 1, 0),
    IntRow(176, "RMI_LEFT_SELECTOR", "sim/cockpit/switches/RMI_l_vor_adf_selector", 1, 0),
    IntRow(177, "RMI_RIGHT_SELECTOR", "sim/cockpit/switches/RMI_r_vor_adf_selector", 1, 0),
    IntRow(178, "METRIC_PRESSURE", "sim/physics/metric_press", 1, 0),
    IntRow(179, "METRIC_TEMPERATURE", "sim/physics/metric_temp", 1, 0),
    FloatArray(181, "CARB_HEAT", "sim/cockpit2/engine/actuators/carb_heat_ratio", 0, 8, 1, 0),
    FloatArray(315, "ENG_ALL_CARB_HEAT", "sim/cockpit2/engine/actuators/carb_heat_ratio", 0, 8, 1, 0),
    IntArray(182, "ALTERNATOR_MASTER", "sim/cockpit/electrical/generator_on", 0, 8, 1, 0),
    IntArray(288, "ENG_ALL_GENERATOR", "sim/cockpit/electrical/generator_on", 0, 8, 1, 0),
    IntArray(183, "FUEL_PUMP", "sim/cockpit/engine/fuel_pump_on", 0, 8, 1, 0),
    IntArray(270, "ENG_ALL_FUEL_PUMP", "sim/cockpit/engine/fuel_pump_on", 0, 8, 1, 0),
    IntRow(184, "ART_STAB", "sim/cockpit/switches/art_stab_on", 1, 0),
    FloatArray(186, "PANEL_BRIGHTNESS", "sim/cockpit2/switches/panel_brightness_ratio", 0, 1, 1, 0),
    FloatArray(187, "LANDING_LIGHTS_SWITCH_ALL", "sim/cockpit2/switches/landing_lights_switch", 0, 16, 1, 0),
    IntRow(204, "ANTI_ICE_INLET_HEAT", "sim/cockpit/switches/anti_ice_inlet_heat", 1, 0),
    IntRow(205, "ANTI_ICE_PROP_HEAT", "sim/cockpit/switches/anti_ice_prop_heat", 1, 0),
    IntRow(206, "ANTI_ICE_WINDOW_HEAT", "sim/cockpit/switches/anti_ice_window_heat", 1, 0),
    IntRow(207, "PITOT_HEAT2", "sim/cockpit/switches/pitot_heat_on2", 1, 0),
    IntRow(208, "ANTI_ICE_AOA_HEAT", "sim/cockpit/switches/anti_ice_AOA_heat", 1, 0),
    IntRow(209, "ANTI_ICE_SURF_HEAT", "sim/cockpit/switches/anti_ice_surf_heat", 1, 0),
    IntRow(210, "ANTI_ICE_SURF_BOOT", "sim/cockpit/switches/anti_ice_surf_boot", 1, 0),
    IntRow(211, "ANTI_ICE_AUTO_IGNITE", "sim/cockpit/switches/anti_ice_auto_ignite", 1, 0),
    IntRow(212, "ICE_DETECT", "sim/cockpit/switches/ice_detect", 1, 0),
    IntRow(213, "PRE_ROTATE_LEVEL", "sim/cockpit/switches/pre_rotate_level", 1, 0),
    IntRow(214, "JATO_ON", "sim/cockpit/switches/jato_on", 1, 0),
    IntRow(215, "PUFFERS_ON", "sim/cockpit/switches/puffers_on", 1, 0),
    IntRow(216, "WATER_SCOOP", "sim/cockpit/switches/water_scoop", 1, 0),
    IntRow(217, "CANOPY_OPEN", "sim/cockpit/switches/canopy_req", 1, 0),
    IntRow(218, "TOT_ENER_AUDIO", "sim/cockpit/switches/tot_ener_audio", 1, 0),
    IntRow(219, "ARGUS_MODE", "sim/cockpit/switches/argus_mode", 1, 0),
    IntRow(220, "NO_SMOKING", "sim/cockpit/switches/no_smoking", 1, 0),
    IntRow(221, "FASTEN_SEAT_BELTS", "sim/cockpit/switches/fasten_seat_belts", 1, 0),
    IntRow(222, "CLUTCH_ENGAGE", "sim/cockpit/engine/clutch_engage", 1, 0),
    IntRow(223, "APU_GENERATOR_SWITCH", "sim/cockpit/electrical/generator_apu_on", 1, 0),
    IntRow(224, "FUEL_FEED_OFF", "sim/cockpit/engine/fuel_tank_selector", 0, 0),
    IntRow(225, "FUEL_FEED_LEFT", "sim/cockpit/engine/fuel_tank_selector", 1, 1),
    IntRow(226, "FUEL_FEED_CENTRE", "sim/cockpit/engine/fuel_tank_selector", 2, 2),
    IntRow(227, "FUEL_FEED_RIGHT", "sim/cockpit/engine/fuel_tank_selector", 3, 3),
    IntRow(228, "FUEL_FEED_ALL", "sim/cockpit/engine/fuel_tank_selector", 4, 4),
    IntRow(229, "APU_SWITCH_OFF", "sim/cockpit/engine/APU_switch", 0, 0),
    IntRow(230, "APU_SWITCH_ON", "sim/cockpit/engine/APU_switch", 1, 1),
    IntRow(231, "APU_SWITCH_START", "sim/cockpit/engine/APU_switch", 2, 2),
    IntRow(232, "AP_FLIGHT_DIR_OFF", "sim/cockpit/autopilot/autopilot_mode", 0, 0),
    IntRow(233, "AP_FLIGHT_DIR_ON", "sim/cockpit/autopilot/autopilot_mode", 1, 1),
    IntRow(234, "AP_FLIGHT_DIR_AUTO", "sim/cockpit/autopilot/autopilot_mode", 2, 2),
    IntRow(235, "HSI_IS_ARC", "sim/cockpit2/switches/HSI_is_arc", 1, 0),
    IntRow(236, "ELECTRIC_HYDRAULIC_PUMP", "sim/cockpit2/switches/electric_hydraulic_pump_on", 1, 0),
    IntRow(237, "NAV1_FLIP", "sim/cockpit2/radios/actuators/nav1_right_is_selected", 1, 0),
    IntRow(238, "NAV2_FLIP", "sim/cockpit2/radios/actuators/nav2_right_is_selected", 1, 0),
    IntRow(239, "COM1_FLIP", "sim/cockpit2/radios/actuators/com1_right_is_selected", 1, 0),
    IntRow(240, "COM2_FLIP", "sim/cockpit2/radios/actuators/com2_right_is_selected", 1, 0),
    IntRow(241, "ADF1_FLIP", "sim/cockpit2/radios/actuators/adf1_right_is_selected", 1, 0),
    IntRow(242, "ADF2_FLIP", "sim/cockpit2/radios/actuators/adf2_right_is_selected", 1, 0),
    IntRow(243, "DME_FLIP", "sim/cockpit2/radios/actuators/dme_right_is_selected", 1, 0),
    IntRow(437, "LANDING_GEAR", "sim/cockpit/switches/gear_handle_status", 1, 0),
    IntRow(465, "WCP_GEAR_DOWN", "sim/cockpit/switches/gear_handle_status", 1, 0),
    FloatRow(438, "PARKING_BRAKE", "sim/flightmodel/controls/parkbrake", 1, 0),
    IntRow(459, "WCP_AP_FAIL", "sim/cockpit/warnings/annunciators/autopilot", 1, 0),
    IntRow(460, "WCP_AP_TRIM_FAIL", "sim/cockpit/warnings/annunciators/autopilot_trim_fail", 1, 0),
    IntRow(461, "WCP_DOOR_UNLOCK", "sim/cockpit/warnings/annunciators/cabin_door_open", 1, 0),
    IntRow(462, "WCP_FUEL_LOW", "sim/cockpit/warnings/annunciators/fuel_quantity", 1, 0),
    IntRow(463, "WCP_FUEL_PRESS_LOW", "sim/cockpit/warnings/annunciators/fuel_pressure", 1, 0, Compare::AtLeast),
    IntRow(464, "WCP_FUEL_SELECT_OFF", "sim/cockpit/engine/fuel_tank_selector", 0, 2),
    IntRow(466, "WCP_GEAR_UNSAFE", "sim/cockpit/warnings/annunciators/gear_unsafe", 1, 0),
    IntRow(467, "WCP_GPS_NAV", "sim/cockpit/switches/HSI_selector", 2, 0),
    IntRow(468, "WCP_GPWS", "sim/cockpit2/annunciators/GPWS", 1, 0),
    IntRow(469, "WCP_LOW_VACUUM", "sim/cockpit/warnings/annunciators/low_vacuum", 1, 0),
    IntRow(482, "WCP_VACUUM_LOW_RESVR", "sim/cockpit/warnings/annunciators/low_vacuum", 1, 0),
    IntRow(470, "WCP_INVERTER", "sim/cockpit/warnings/annunciators/inverter", 1, 0, Compare::AtLeast),
    IntRow(471, "WCP_LAMP_TEST", "sim/cockpit/warnings/annunciator_test_pressed", 1, 0),
    IntRow(472, "WCP_LDG_TAXI_LIGHT", "sim/cockpit/warnings/annunciators/landing_taxi_lite", 1, 0),
    IntRow(473, "WCP_MASTER_CAUTION", "sim/cockpit/warnings/annunciators/master_caution", 1, 0),
    IntRow(474, "WCP_MASTER_WARNING", "sim/cockpit/warnings/annunciators/master_warning", 1, 0),
    IntRow(475, "WCP_MASTER_ACCEPT", "sim/cockpit/warnings/annunciators/master_accept", 1, 0),
    IntRow(476, "WCP_OIL_PRESS_LOW", "sim/cockpit/warnings/annunciators/oil_pressure", 1, 0, Compare::AtLeast),
    IntRow(477, "WCP_PITOT_HEAT", "sim/cockpit/warnings/annunciators/pitot_heat_off", 1, 0),
    IntRow(479, "WCP_SPEED_BRAKE", "sim/cockpit/warnings/annunciators/speedbrake", 1, 0),
    IntRow(483, "WCP_VOLTAGE_LOW", "sim/cockpit/warnings/annunciators/low_voltage", 1, 0),
    IntRow(484, "WCP_STALL_WARNING", "sim/flightmodel/failures/stallwarning", 1, 0),
    IntRow(485, "WCP_GEAR_WARNING", "sim/cockpit2/annunciators/gear_warning", 1, 0),
    IntRow(486, "WCP_NO_SMOKING_WARNING", "sim/cockpit2/annunciators/no_smoking", 1, 0, Compare::AtLeast),
    IntRow(487, "WCP_FASTEN_SEATBELT_WARNING", "sim/cockpit2/annunciators/fasten_seatbelt", 1, 0, Compare::AtLeast),
    IntRow(540, "WCP_AUTOPILOT_DISCONNECT", "sim/cockpit/warnings/annunciators/autopilot_disconnect", 1, 0),
    IntRow(541, "WCP_HYDRAULIC_PRESSURE", "sim/cockpit/warnings/annunciators/hydraulic_pressure", 1, 0),
    IntRow(542, "WCP_ICE_DETECT", "sim/cockpit/warnings/annunciators/ice", 1, 0),
    IntRow(543, "WCP_LOW_ROTOR_RPM", "sim/cockpit/warnings/annunciators/lo_rotor", 1, 0),
    IntRow(544, "WCP_HIGH_ROTOR_RPM", "sim/cockpit/warnings/annunciators/hi_rotor", 1, 0),
    IntRow(545, "WCP_TRANSONIC_SPEED", "sim/cockpit/warnings/annunciators/transonic", 1, 0),
    IntRow(546, "WCP_SLATS_DEPLOYED", "sim/cockpit/warnings/annunciators/slats", 1, 0),
    IntRow(547, "WCP_FLIGHT_DIRECTOR_ON", "sim/cockpit/warnings/annunciators/flight_director", 1, 0),
    IntRow(548, "WCP_YAW_DAMPER_ON", "sim/cockpit/warnings/annunciators/yaw_damper", 1, 0),
    IntRow(549, "WCP_HVAC_FAIL", "sim/cockpit/warnings/annunciators/hvac", 1, 0),
    IntRow(550, "WCP_BATTERY_CHARGE_HIGH", "sim/cockpit/warnings/annunciators/battery_charge_hi", 1, 0),
    IntRow(551, "WCP_CABIN_ALTITUDE_HIGH", "sim/cockpit/warnings/annunciators/cabin_altitude_12500", 1, 0),
    IntRow(552, "WCP_ELECTRICAL_TRIM_OFF", "sim/cockpit/warnings/annunciators/electric_trim_off", 1, 0),
    IntRow(553, "WCP_CROSSFEED_ON", "sim/cockpit/warnings/annunciators/crossfeed_on", 1, 0),
    IntRow(554, "WCP_EXTERNAL_POWER_ON", "sim/cockpit/warnings/annunciators/external_power_on", 1, 0),
    IntRow(555, "WCP_PASSENGER_OXYGEN_ON", "sim/cockpit/warnings/annunciators/passenger_oxy_on", 1, 0),
    IntRow(556, "WCP_AUTOPILOT_TRIM_DOWN", "sim/cockpit/warnings/annunciators/autopilot_trim_down", 1, 0),
    IntRow(557, "WCP_AUTOPILOT_TRIM_UP", "sim/cockpit/warnings/annunciators/autopilot_trim_up", 1, 0),
    IntRow(558, "WCP_AUTOPILOT_BANK_LIMIT", "sim/cockpit/warnings/annunciators/autopilot_bank_limit", 1, 0),
    IntRow(559, "WCP_AUTOPILOT_SOFT_RIDE", "sim/cockpit/warnings/annunciators/autopilot_soft_ride", 1, 0),
    IntArray(560, "WCP_INVERTER_1_OFF", "sim/cockpit/warnings/annunciators/inverter_off", 0, 1, 1, 0),
    IntArray(561, "WCP_INVERTER_2_OFF", "sim/cockpit/warnings/annunciators/inverter_off", 1, 1, 1, 0),
    IntRow(603, "WCP_INVERTERS_FAIL", "sim/cockpit/warnings/annunciators/no_inverters", 1, 0),
    IntRow(604, "WCP_OIL_TEMPERATURE_HIGH", "sim/cockpit/warnings/annunciators/oil_temperature", 1, 0, Compare::AtLeast),
    IntRow(605, "WCP_GENERATOR_OFF", "sim/cockpit/warnings/annunciators/generator", 1, 0, Compare::AtLeast),
    IntRow(606, "WCP_CHIP_DETECT", "sim/cockpit/warnings/annunciators/chip_detect", 1, 0, Compare::AtLeast),
    IntRow(607, "WCP_ENGINE_FIRE", "sim/cockpit/warnings/annunciators/engine_fire", 1, 0, Compare::AtLeast),
    IntRow(608, "WCP_AUTO_IGNITION", "sim/cockpit/warnings/annunciators/auto_ignition", 1, 0, Compare::AtLeast),
    IntRow(609, "WCP_REVERSER_DEPLOYED", "sim/cockpit/warnings/annunciators/reverse", 1, 0, Compare::AtLeast),
    IntRow(610, "WCP_AFTERBURNERS_ON", "sim/cockpit/warnings/annunciators/afterburners_on", 1, 0, Compare::AtLeast),
    IntRow(84, "AP_NAV2_HOLD", "sim/cockpit/autopilot/approach_selector", 21, 0),
    FloatRow(87, "SPEED_BRAKE", "sim/flightmodel/controls/sbrkrqst", 1, 0),
    IntRow(103, "AP_NAV1_HOLD", "sim/cockpit/autopilot/approach_selector", 20, 0),
    IntRow(100, "AP_BC_HOLD", "sim/cockpit/autopilot/backcourse_on", 1, 0),
    IntRow(101, "AP_GPS_HOLD", "sim/cockpit/autopilot/heading_mode", 14, 0),
    IntRow(105, "AP_WING_LEVELER", "drav/autopilot/wing_leveler", 1, 0),
    IntRow(106, "MCPPRO_ALT_KNOB", "drav/autopilot_knob/alt_knob", 1, 0),
    IntRow(107, "AP_CMD_A", "x737/systems/MCP/LED_CMDA_on", 1, 0),
    IntRow(108, "AP_CMD_B", "x737/systems/MCP/LED_CMDB_on", 1, 0),
    IntRow(109, "AP_ALTINV", "x737/systems/afds/ALTINTV", 1, 0),
    IntRow(110, "AP_SPDINV", "x737/systems/afds/SPDINTV", 1, 0),
    IntRow(111, "AP_VORLOC", "x737/systems/MCP/LED_VORLOC_on", 1, 0),
    IntRow(112, "AP_RIGHT_FLIGHT_DIR", "x737/systems/MCP/LED_FDB_MA_on", 1, 0),
    FloatRow(180, "ALTIMETER_SET_STD", "sim/cockpit/misc/barometer_setting", 29.92, 29.92),
    FloatRow(185, "INSTRUMENT_BRIGHTNESS", "sim/cockpit/electrical/instrument_brightness", 1.0, 0.0),
  };
  return rows;
}

bool IsOwnOrAircraftPath(const std::string& path) {
  return path.starts_with("drav/") || path.starts_with("x737/");
}

class SingleBindingRow : public SwitchRowTest {};

TEST_P(SingleBindingRow, WritesItsValuesAndLightsByItsRule) {
  const SwitchRow& row = GetParam();
  if (IsOwnOrAircraftPath(row.path)) {
    // Until the system or the aircraft publishes the dataref the function is there but inert.
    SwitchFunction record = Build(row.id);
    EXPECT_EQ(GetFunctionId(record), row.id);
    ExpectInert(record);
    AddDataref(row.path, row.cell);
  }
  ExpectSwitchRow(row);
}

INSTANTIATE_TEST_SUITE_P(Table, SingleBindingRow, ::testing::ValuesIn(SingleBindingRows()), RowTestName);

TEST(SingleBindingRows, CoverEverySwitchOfTheTableOnce) {
  std::vector<FunctionId> ids;
  for (const SwitchRow& row : SingleBindingRows()) ids.push_back(row.id);
  std::sort(ids.begin(), ids.end());
  EXPECT_EQ(std::adjacent_find(ids.begin(), ids.end()), ids.end());
  EXPECT_EQ(ids.size(), 179u);
}

// ---- the selector positions and forceOn ------------------------------------------------------

class SelectorPositions : public BindingTableTest {};

TEST_F(SelectorPositions, RangeFortyWritesItsPositionOnlyWhenOnOrForced) {
  SwitchFunction range40 = Build(128);
  EXPECT_EQ(Run(range40, kActionOn), Events{"dataref-write sim/cockpit/switches/EFIS_map_range_selector 2"});
  EXPECT_EQ(Run(range40, kActionOff), Events{"dataref-write sim/cockpit/switches/EFIS_map_range_selector 0"});
  EXPECT_EQ(Run(range40, kActionOff, 0, 1), Events{"dataref-write sim/cockpit/switches/EFIS_map_range_selector 2"});
}

TEST_F(SelectorPositions, MapModeIsWrittenAgainWhenThePositionReportsAgain) {
  SwitchFunction map = Build(124);
  EXPECT_EQ(Run(map, kActionSet, 1, 1), Events{"dataref-write sim/cockpit/switches/EFIS_map_submode 2"});
  EXPECT_EQ(GetFunctionState(map), 1);
  EXPECT_EQ(Run(map, kActionSet, 1, 1), Events{"dataref-write sim/cockpit/switches/EFIS_map_submode 2"});
  EXPECT_EQ(Run(map, kActionSet, 0, 1), Events{"dataref-write sim/cockpit/switches/EFIS_map_submode 2"});
}

TEST_F(SelectorPositions, EqualOnAndOffSelectThePositionWhicheverWayTheyRun) {
  SwitchFunction centre = Build(226);
  const Events select{"dataref-write sim/cockpit/engine/fuel_tank_selector 2"};
  EXPECT_EQ(Run(centre, kActionToggle), select);
  EXPECT_EQ(Run(centre, kActionToggle), select);
  ASSERT_TRUE(host().SetDatarefValue("sim/cockpit/engine/fuel_tank_selector", -1, -1, 2));
  EXPECT_EQ(Refreshed(centre), 1);
  ASSERT_TRUE(host().SetDatarefValue("sim/cockpit/engine/fuel_tank_selector", -1, -1, 3));
  EXPECT_EQ(Refreshed(centre), 0);
}

TEST_F(SelectorPositions, StandardAltimeterAlwaysSetsTwentyNineNinetyTwo) {
  ASSERT_TRUE(host().SetDatarefValue("sim/cockpit/misc/barometer_setting", -1, -1, 30.12));
  SwitchFunction standard = Build(180);
  EXPECT_EQ(GetFunctionState(standard), 0) << "built dark while the altimeter is not at standard";
  EXPECT_EQ(Run(standard, kActionOff), Events{"dataref-write sim/cockpit/misc/barometer_setting 29.92"});
  EXPECT_EQ(Refreshed(standard), 1);
}

// ---- a switch on a push button -------------------------------------------------------------------

class SwitchOnButton : public BindingTableTest {};

TEST_F(SwitchOnButton, PressTogglesAndReleaseIsIgnored) {
  ASSERT_TRUE(host().SetDatarefValue("sim/cockpit/electrical/landing_lights_on", -1, -1, 0));
  SwitchFunction landing = Build(160);
  EXPECT_EQ(Run(landing, kActionToggle), Events{"dataref-write sim/cockpit/electrical/landing_lights_on 1"});
  EXPECT_TRUE(Run(landing, kActionRelease).empty());
  EXPECT_EQ(Refreshed(landing), 1);
  EXPECT_EQ(Run(landing, kActionToggle), Events{"dataref-write sim/cockpit/electrical/landing_lights_on 0"});
  EXPECT_EQ(Refreshed(landing), 0);
}

TEST_F(SwitchOnButton, BuildingReadsTheLightBeforeTheFirstInput) {
  ASSERT_TRUE(host().SetDatarefValue("sim/cockpit/electrical/battery_on", -1, -1, 1));
  EXPECT_EQ(GetFunctionState(Build(156)), 1);
  ASSERT_TRUE(host().SetDatarefValue("sim/cockpit/electrical/battery_on", -1, -1, 0));
  EXPECT_EQ(GetFunctionState(Build(156)), 0);
}

}  // namespace
}  // namespace drav::tabletest

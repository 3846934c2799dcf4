// The single-binding switch functions, one row per definition, sorted by first id. Columns: ids,
// then path, value type, first element, element count, on value, off value, read rule (and the
// builder where the values are not whole numbers).
#include "functions/SwitchBindingTable.h"

#include "functions/DatarefBinding.h"

namespace drav {

namespace {

constexpr std::int32_t kInt = kIntScalar;
constexpr std::int32_t kFlt = kFloatScalar;
constexpr std::int32_t kIntA = kIntArray;
constexpr std::int32_t kFltA = kFloatArray;
constexpr std::int32_t kEq = kReadEqual;
constexpr std::int32_t kAtLeast = kReadAtLeast;
constexpr bool kFloatBuilder = true;

// A row whose on and off values are equal (the positions of the fuel feed, APU, flight director
// and EICAS selectors, and the standard altimeter setting) writes the same value whatever the
// state: the position is selected whenever it runs, and its light shows whether the dataref holds
// that value.
//
// EFIS_SYM_WXR keeps the misspelt "EFIFS_shows_weather": it is the path every simulator version
// publishes, while the correctly spelt one exists only from version 11 on. The paths are those of
// the simulators before X-Plane 12; where X-Plane 12 dropped, froze or renamed one, the function
// uses what it offers instead (SimulatorEquivalents).
constexpr SwitchBindingRow kSwitchBindings[] = {
    {{84}, {"sim/cockpit/autopilot/approach_selector", kInt, 0, 1, 21, 0, kEq}},  // AP_NAV2_HOLD
    {{87}, {"sim/flightmodel/controls/sbrkrqst", kFlt, 0, 1, 1, 0, kEq}},  // SPEED_BRAKE
    {{100}, {"sim/cockpit/autopilot/backcourse_on", kInt, 0, 1, 1, 0, kEq}},  // AP_BC_HOLD
    {{101}, {"sim/cockpit/autopilot/heading_mode", kInt, 0, 1, 14, 0, kEq}},  // AP_GPS_HOLD
    {{103}, {"sim/cockpit/autopilot/approach_selector", kInt, 0, 1, 20, 0, kEq}},  // AP_NAV1_HOLD
    {{105}, {"drav/autopilot/wing_leveler", kInt, 0, 1, 1, 0, kEq}},  // AP_WING_LEVELER
    {{106}, {"drav/autopilot_knob/alt_knob", kInt, 0, 1, 1, 0, kEq}},  // MCPPRO_ALT_KNOB
    {{107}, {"x737/systems/MCP/LED_CMDA_on", kInt, 0, 1, 1, 0, kEq}},  // AP_CMD_A
    {{108}, {"x737/systems/MCP/LED_CMDB_on", kInt, 0, 1, 1, 0, kEq}},  // AP_CMD_B
    {{109}, {"x737/systems/afds/ALTINTV", kInt, 0, 1, 1, 0, kEq}},  // AP_ALTINV
    {{110}, {"x737/systems/afds/SPDINTV", kInt, 0, 1, 1, 0, kEq}},  // AP_SPDINV
    {{111}, {"x737/systems/MCP/LED_VORLOC_on", kInt, 0, 1, 1, 0, kEq}},  // AP_VORLOC
    {{112}, {"x737/systems/MCP/LED_FDB_MA_on", kInt, 0, 1, 1, 0, kEq}},  // AP_RIGHT_FLIGHT_DIR
    {{116}, {"sim/cockpit/switches/EFIFS_shows_weather", kInt, 0, 1, 1, 0, kEq}},  // EFIS_SYM_WXR
    {{117}, {"sim/cockpit/switches/EFIS_shows_tcas", kInt, 0, 1, 1, 0, kEq}},  // EFIS_SYM_TCAS
    {{118}, {"sim/cockpit/switches/EFIS_shows_airports", kInt, 0, 1, 1, 0, kEq}},  // EFIS_SYM_ARPT
    {{119}, {"sim/cockpit/switches/EFIS_shows_waypoints", kInt, 0, 1, 1, 0, kEq}},  // EFIS_SYM_WPT
    {{120}, {"sim/cockpit/switches/EFIS_shows_VORs", kInt, 0, 1, 1, 0, kEq}},  // EFIS_SYM_VOR
    {{121}, {"sim/cockpit/switches/EFIS_shows_NDBs", kInt, 0, 1, 1, 0, kEq}},  // EFIS_SYM_NDB
    {{122}, {"sim/cockpit/switches/EFIS_map_submode", kInt, 0, 1, 0, 0, kEq}},  // EFIS_ND_MODE_APP
    {{123}, {"sim/cockpit/switches/EFIS_map_submode", kInt, 0, 1, 1, 0, kEq}},  // EFIS_ND_MODE_VOR
    {{124}, {"sim/cockpit/switches/EFIS_map_submode", kInt, 0, 1, 2, 0, kEq}},  // EFIS_ND_MODE_MAP
    {{125}, {"sim/cockpit/switches/EFIS_map_submode", kInt, 0, 1, 4, 0, kEq}},  // EFIS_ND_MODE_PLAN
    {{126}, {"sim/cockpit/switches/EFIS_map_range_selector", kInt, 0, 1, 0, 0, kEq}},  // EFIS_ND_RANGE_10NM
    {{127}, {"sim/cockpit/switches/EFIS_map_range_selector", kInt, 0, 1, 1, 0, kEq}},  // EFIS_ND_RANGE_20NM
    {{128}, {"sim/cockpit/switches/EFIS_map_range_selector", kInt, 0, 1, 2, 0, kEq}},  // EFIS_ND_RANGE_40NM
    {{129}, {"sim/cockpit/switches/EFIS_map_range_selector", kInt, 0, 1, 3, 0, kEq}},  // EFIS_ND_RANGE_80NM
    {{130}, {"sim/cockpit/switches/EFIS_map_range_selector", kInt, 0, 1, 4, 0, kEq}},  // EFIS_ND_RANGE_160NM
    {{131}, {"sim/cockpit/switches/EFIS_map_range_selector", kInt, 0, 1, 5, 0, kEq}},  // EFIS_ND_RANGE_320NM
    {{132}, {"sim/cockpit/switches/EFIS_map_range_selector", kInt, 0, 1, 6, 0, kEq}},  // EFIS_ND_RANGE_640NM
    {{133}, {"sim/cockpit/switches/EFIS_dme_1_selector", kInt, 0, 1, 2, 1, kEq}},  // EFIS_VOR_SEL1
    {{134}, {"sim/cockpit/switches/EFIS_dme_1_selector", kInt, 0, 1, 0, 1, kEq}},  // EFIS_ADF_SEL1
    {{135}, {"sim/cockpit/switches/EFIS_dme_2_selector", kInt, 0, 1, 2, 1, kEq}},  // EFIS_VOR_SEL2
    {{136}, {"sim/cockpit/switches/EFIS_dme_2_selector", kInt, 0, 1, 0, 1, kEq}},  // EFIS_ADF_SEL2
    {{137}, {"sim/cockpit/switches/ECAM_mode", kInt, 0, 1, 0, 0, kEq}},  // EICAS_DSP_ENG
    {{138}, {"sim/cockpit/switches/ECAM_mode", kInt, 0, 1, 1, 1, kEq}},  // EICAS_DSP_FUEL
    {{139}, {"sim/cockpit/switches/ECAM_mode", kInt, 0, 1, 2, 2, kEq}},  // EICAS_DSP_STAT
    {{140}, {"sim/cockpit/switches/ECAM_mode", kInt, 0, 1, 3, 3, kEq}},  // EICAS_DSP_HYD
    {{141}, {"sim/cockpit/switches/ECAM_mode", kInt, 0, 1, 4, 4, kEq}},  // EICAS_DSP_FAIL
    {{142}, {"sim/cockpit2/radios/actuators/audio_com_selection", kInt, 0, 1, 6, 0, kEq}},  // AUDPNL_COM1_IDENT
    {{143}, {"sim/cockpit2/radios/actuators/audio_com_selection", kInt, 0, 1, 7, 0, kEq}},  // AUDPNL_COM2_IDENT
    {{144}, {"sim/cockpit2/radios/actuators/audio_nav_selection", kInt, 0, 1, 0, 9, kEq}},  // AUDPNL_NAV1_IDENT
    {{145}, {"sim/cockpit2/radios/actuators/audio_nav_selection", kInt, 0, 1, 1, 9, kEq}},  // AUDPNL_NAV2_IDENT
    {{146}, {"sim/cockpit2/radios/actuators/audio_marker_enabled", kInt, 0, 1, 1, 0, kEq}},  // AUDPNL_MKR_IDENT
    {{147}, {"sim/cockpit2/radios/actuators/audio_nav_selection", kInt, 0, 1, 2, 9, kEq}},  // AUDPNL_ADF_IDENT
    {{148}, {"sim/cockpit2/radios/actuators/audio_nav_selection", kInt, 0, 1, 3, 9, kEq}},  // AUDPNL_ADF2_IDENT
    {{149}, {"sim/cockpit2/radios/actuators/audio_dme_enabled", kInt, 0, 1, 1, 0, kEq}},  // AUDPNL_DME_IDENT
    {{155}, {"sim/cockpit/radios/transponder_mode", kInt, 0, 1, 2, 1, kEq}},  // XPDR_STBY
    {{156}, {"sim/cockpit/electrical/battery_on", kInt, 0, 1, 1, 0, kEq}},  // BATTERY_MASTER
    {{157}, {"sim/cockpit/electrical/avionics_on", kInt, 0, 1, 1, 0, kEq}},  // AVIONICS_MASTER
    {{158}, {"sim/cockpit/electrical/cockpit_lights", kFlt, 0, 1, 1, 0, kEq}},  // PANEL_LTS
    {{159}, {"sim/cockpit/electrical/strobe_lights_on", kInt, 0, 1, 1, 0, kEq}},  // STROBE_LTS
    {{160}, {"sim/cockpit/electrical/landing_lights_on", kInt, 0, 1, 1, 0, kEq}},  // LANDING_LTS
    {{161}, {"sim/cockpit/electrical/nav_lights_on", kInt, 0, 1, 1, 0, kEq}},  // NAV_LTS
    {{162}, {"sim/cockpit/electrical/beacon_lights_on", kInt, 0, 1, 1, 0, kEq}},  // BEACON_LTS
    {{163}, {"sim/cockpit/electrical/taxi_light_on", kInt, 0, 1, 1, 0, kEq}},  // TAXI_LTS
    {{164}, {"sim/cockpit/switches/anti_ice_on", kInt, 0, 1, 1, 0, kEq}},  // DE_ICE
    {{165}, {"sim/cockpit/switches/pitot_heat_on", kInt, 0, 1, 1, 0, kEq}},  // PITOT_HEAT
    {{166}, {"sim/cockpit/electrical/HUD_on", kInt, 0, 1, 1, 0, kEq}},  // HUD_POWER
    {{167}, {"sim/cockpit/switches/dumping_fuel", kInt, 0, 1, 1, 0, kEq}},  // DUMP_FUEL
    {{168}, {"sim/cockpit/switches/yaw_damper_on", kInt, 0, 1, 1, 0, kEq}},  // AP_YAW_DAMPER
    {{169}, {"sim/cockpit/switches/auto_feather_mode", kInt, 0, 1, 1, 0, kEq}},  // AUTO_FEATHER
    {{170, 478}, {"sim/cockpit/switches/prop_sync_on", kInt, 0, 1, 1, 0, kEq}},  // PROP_SYNC, WCP_PROP_SYNC_ON
    {{171}, {"sim/cockpit/switches/parachute_on", kInt, 0, 1, 1, 0, kEq}},  // DRAG_CHUTE
    {{172}, {"sim/cockpit/switches/arresting_gear", kInt, 0, 1, 1, 0, kEq}},  // ARRESTOR_HOOK
    {{176}, {"sim/cockpit/switches/RMI_l_vor_adf_selector", kInt, 0, 1, 1, 0, kEq}},  // RMI_LEFT_SELECTOR
    {{177}, {"sim/cockpit/switches/RMI_r_vor_adf_selector", kInt, 0, 1, 1, 0, kEq}},  // RMI_RIGHT_SELECTOR
    {{178}, {"sim/physics/metric_press", kInt, 0, 1, 1, 0, kEq}},  // METRIC_PRESSURE
    {{179}, {"sim/physics/metric_temp", kInt, 0, 1, 1, 0, kEq}},  // METRIC_TEMPERATURE
    // ALTIMETER_SET_STD
    {{180}, {"sim/cockpit/misc/barometer_setting", kFlt, 0, 1, 29.92f, 29.92f, kEq, kFloatBuilder}},
    // CARB_HEAT, ENG_ALL_CARB_HEAT
    {{181, 315}, {"sim/cockpit2/engine/actuators/carb_heat_ratio", kFltA, 0, 8, 1, 0, kEq}},
    // ALTERNATOR_MASTER, ENG_ALL_GENERATOR
    {{182, 288}, {"sim/cockpit/electrical/generator_on", kIntA, 0, 8, 1, 0, kEq}},
    {{183, 270}, {"sim/cockpit/engine/fuel_pump_on", kIntA, 0, 8, 1, 0, kEq}},  // FUEL_PUMP, ENG_ALL_FUEL_PUMP
    {{184}, {"sim/cockpit/switches/art_stab_on", kInt, 0, 1, 1, 0, kEq}},  // ART_STAB
    // INSTRUMENT_BRIGHTNESS
    {{185}, {"sim/cockpit/electrical/instrument_brightness", kFlt, 0, 1, 1.0f, 0.0f, kEq, kFloatBuilder}},
    {{186}, {"sim/cockpit2/switches/panel_brightness_ratio", kFltA, 0, 1, 1, 0, kEq}},  // PANEL_BRIGHTNESS
    {{187}, {"sim/cockpit2/switches/landing_lights_switch", kFltA, 0, 16, 1, 0, kEq}},  // LANDING_LIGHTS_SWITCH_ALL
    {{204}, {"sim/cockpit/switches/anti_ice_inlet_heat", kInt, 0, 1, 1, 0, kEq}},  // ANTI_ICE_INLET_HEAT
    {{205}, {"sim/cockpit/switches/anti_ice_prop_heat", kInt, 0, 1, 1, 0, kEq}},  // ANTI_ICE_PROP_HEAT
    {{206}, {"sim/cockpit/switches/anti_ice_window_heat", kInt, 0, 1, 1, 0, kEq}},  // ANTI_ICE_WINDOW_HEAT
    {{207}, {"sim/cockpit/switches/pitot_heat_on2", kInt, 0, 1, 1, 0, kEq}},  // PITOT_HEAT2
    {{208}, {"sim/cockpit/switches/anti_ice_AOA_heat", kInt, 0, 1, 1, 0, kEq}},  // ANTI_ICE_AOA_HEAT
    {{209}, {"sim/cockpit/switches/anti_ice_surf_heat", kInt, 0, 1, 1, 0, kEq}},  // ANTI_ICE_SURF_HEAT
    {{210}, {"sim/cockpit/switches/anti_ice_surf_boot", kInt, 0, 1, 1, 0, kEq}},  // ANTI_ICE_SURF_BOOT
    {{211}, {"sim/cockpit/switches/anti_ice_auto_ignite", kInt, 0, 1, 1, 0, kEq}},  // ANTI_ICE_AUTO_IGNITE
    {{212}, {"sim/cockpit/switches/ice_detect", kInt, 0, 1, 1, 0, kEq}},  // ICE_DETECT
    {{213}, {"sim/cockpit/switches/pre_rotate_level", kInt, 0, 1, 1, 0, kEq}},  // PRE_ROTATE_LEVEL
    {{214}, {"sim/cockpit/switches/jato_on", kInt, 0, 1, 1, 0, kEq}},  // JATO_ON
    {{215}, {"sim/cockpit/switches/puffers_on", kInt, 0, 1, 1, 0, kEq}},  // PUFFERS_ON
    {{216}, {"sim/cockpit/switches/water_scoop", kInt, 0, 1, 1, 0, kEq}},  // WATER_SCOOP
    {{217}, {"sim/cockpit/switches/canopy_req", kInt, 0, 1, 1, 0, kEq}},  // CANOPY_OPEN
    {{218}, {"sim/cockpit/switches/tot_ener_audio", kInt, 0, 1, 1, 0, kEq}},  // TOT_ENER_AUDIO
    {{219}, {"sim/cockpit/switches/argus_mode", kInt, 0, 1, 1, 0, kEq}},  // ARGUS_MODE
    {{220}, {"sim/cockpit/switches/no_smoking", kInt, 0, 1, 1, 0, kEq}},  // NO_SMOKING
    {{221}, {"sim/cockpit/switches/fasten_seat_belts", kInt, 0, 1, 1, 0, kEq}},  // FASTEN_SEAT_BELTS
    {{222}, {"sim/cockpit/engine/clutch_engage", kInt, 0, 1, 1, 0, kEq}},  // CLUTCH_ENGAGE
    {{223}, {"sim/cockpit/electrical/generator_apu_on", kInt, 0, 1, 1, 0, kEq}},  // APU_GENERATOR_SWITCH
    {{224}, {"sim/cockpit/engine/fuel_tank_selector", kInt, 0, 1, 0, 0, kEq}},  // FUEL_FEED_OFF
    {{225}, {"sim/cockpit/engine/fuel_tank_selector", kInt, 0, 1, 1, 1, kEq}},  // FUEL_FEED_LEFT
    {{226}, {"sim/cockpit/engine/fuel_tank_selector", kInt, 0, 1, 2, 2, kEq}},  // FUEL_FEED_CENTRE
    {{227}, {"sim/cockpit/engine/fuel_tank_selector", kInt, 0, 1, 3, 3, kEq}},  // FUEL_FEED_RIGHT
    {{228}, {"sim/cockpit/engine/fuel_tank_selector", kInt, 0, 1, 4, 4, kEq}},  // FUEL_FEED_ALL
    {{229}, {"sim/cockpit/engine/APU_switch", kInt, 0, 1, 0, 0, kEq}},  // APU_SWITCH_OFF
    {{230}, {"sim/cockpit/engine/APU_switch", kInt, 0, 1, 1, 1, kEq}},  // APU_SWITCH_ON
    {{231}, {"sim/cockpit/engine/APU_switch", kInt, 0, 1, 2, 2, kEq}},  // APU_SWITCH_START
    {{232}, {"sim/cockpit/autopilot/autopilot_mode", kInt, 0, 1, 0, 0, kEq}},  // AP_FLIGHT_DIR_OFF
    {{233}, {"sim/cockpit/autopilot/autopilot_mode", kInt, 0, 1, 1, 1, kEq}},  // AP_FLIGHT_DIR_ON
    {{234}, {"sim/cockpit/autopilot/autopilot_mode", kInt, 0, 1, 2, 2, kEq}},  // AP_FLIGHT_DIR_AUTO
    {{235}, {"sim/cockpit2/switches/HSI_is_arc", kInt, 0, 1, 1, 0, kEq}},  // HSI_IS_ARC
    {{236}, {"sim/cockpit2/switches/electric_hydraulic_pump_on", kInt, 0, 1, 1, 0, kEq}},  // ELECTRIC_HYDRAULIC_PUMP
    {{237}, {"sim/cockpit2/radios/actuators/nav1_right_is_selected", kInt, 0, 1, 1, 0, kEq}},  // NAV1_FLIP
    {{238}, {"sim/cockpit2/radios/actuators/nav2_right_is_selected", kInt, 0, 1, 1, 0, kEq}},  // NAV2_FLIP
    {{239}, {"sim/cockpit2/radios/actuators/com1_right_is_selected", kInt, 0, 1, 1, 0, kEq}},  // COM1_FLIP
    {{240}, {"sim/cockpit2/radios/actuators/com2_right_is_selected", kInt, 0, 1, 1, 0, kEq}},  // COM2_FLIP
    {{241}, {"sim/cockpit2/radios/actuators/adf1_right_is_selected", kInt, 0, 1, 1, 0, kEq}},  // ADF1_FLIP
    {{242}, {"sim/cockpit2/radios/actuators/adf2_right_is_selected", kInt, 0, 1, 1, 0, kEq}},  // ADF2_FLIP
    {{243}, {"sim/cockpit2/radios/actuators/dme_right_is_selected", kInt, 0, 1, 1, 0, kEq}},  // DME_FLIP
    {{437, 465}, {"sim/cockpit/switches/gear_handle_status", kInt, 0, 1, 1, 0, kEq}},  // LANDING_GEAR, WCP_GEAR_DOWN
    {{438}, {"sim/flightmodel/controls/parkbrake", kFlt, 0, 1, 1, 0, kEq}},  // PARKING_BRAKE
    {{459}, {"sim/cockpit/warnings/annunciators/autopilot", kInt, 0, 1, 1, 0, kEq}},  // WCP_AP_FAIL
    {{460}, {"sim/cockpit/warnings/annunciators/autopilot_trim_fail", kInt, 0, 1, 1, 0, kEq}},  // WCP_AP_TRIM_FAIL
    {{461}, {"sim/cockpit/warnings/annunciators/cabin_door_open", kInt, 0, 1, 1, 0, kEq}},  // WCP_DOOR_UNLOCK
    {{462}, {"sim/cockpit/warnings/annunciators/fuel_quantity", kInt, 0, 1, 1, 0, kEq}},  // WCP_FUEL_LOW
    {{463}, {"sim/cockpit/warnings/annunciators/fuel_pressure", kInt, 0, 1, 1, 0, kAtLeast}},  // WCP_FUEL_PRESS_LOW
    {{464}, {"sim/cockpit/engine/fuel_tank_selector", kInt, 0, 1, 0, 2, kEq}},  // WCP_FUEL_SELECT_OFF
    {{466}, {"sim/cockpit/warnings/annunciators/gear_unsafe", kInt, 0, 1, 1, 0, kEq}},  // WCP_GEAR_UNSAFE
    {{467}, {"sim/cockpit/switches/HSI_selector", kInt, 0, 1, 2, 0, kEq}},  // WCP_GPS_NAV
    {{468}, {"sim/cockpit2/annunciators/GPWS", kInt, 0, 1, 1, 0, kEq}},  // WCP_GPWS
    // WCP_LOW_VACUUM, WCP_VACUUM_LOW_RESVR
    {{469, 482}, {"sim/cockpit/warnings/annunciators/low_vacuum", kInt, 0, 1, 1, 0, kEq}},
    {{470}, {"sim/cockpit/warnings/annunciators/inverter", kInt, 0, 1, 1, 0, kAtLeast}},  // WCP_INVERTER
    {{471}, {"sim/cockpit/warnings/annunciator_test_pressed", kInt, 0, 1, 1, 0, kEq}},  // WCP_LAMP_TEST
    {{472}, {"sim/cockpit/warnings/annunciators/landing_taxi_lite", kInt, 0, 1, 1, 0, kEq}},  // WCP_LDG_TAXI_LIGHT
    {{473}, {"sim/cockpit/warnings/annunciators/master_caution", kInt, 0, 1, 1, 0, kEq}},  // WCP_MASTER_CAUTION
    {{474}, {"sim/cockpit/warnings/annunciators/master_warning", kInt, 0, 1, 1, 0, kEq}},  // WCP_MASTER_WARNING
    {{475}, {"sim/cockpit/warnings/annunciators/master_accept", kInt, 0, 1, 1, 0, kEq}},  // WCP_MASTER_ACCEPT
    {{476}, {"sim/cockpit/warnings/annunciators/oil_pressure", kInt, 0, 1, 1, 0, kAtLeast}},  // WCP_OIL_PRESS_LOW
    {{477}, {"sim/cockpit/warnings/annunciators/pitot_heat_off", kInt, 0, 1, 1, 0, kEq}},  // WCP_PITOT_HEAT
    {{479}, {"sim/cockpit/warnings/annunciators/speedbrake", kInt, 0, 1, 1, 0, kEq}},  // WCP_SPEED_BRAKE
    {{483}, {"sim/cockpit/warnings/annunciators/low_voltage", kInt, 0, 1, 1, 0, kEq}},  // WCP_VOLTAGE_LOW
    {{484}, {"sim/flightmodel/failures/stallwarning", kInt, 0, 1, 1, 0, kEq}},  // WCP_STALL_WARNING
    {{485}, {"sim/cockpit2/annunciators/gear_warning", kInt, 0, 1, 1, 0, kEq}},  // WCP_GEAR_WARNING
    {{486}, {"sim/cockpit2/annunciators/no_smoking", kInt, 0, 1, 1, 0, kAtLeast}},  // WCP_NO_SMOKING_WARNING
    // WCP_FASTEN_SEATBELT_WARNING
    {{487}, {"sim/cockpit2/annunciators/fasten_seatbelt", kInt, 0, 1, 1, 0, kAtLeast}},
    // WCP_AUTOPILOT_DISCONNECT
    {{540}, {"sim/cockpit/warnings/annunciators/autopilot_disconnect", kInt, 0, 1, 1, 0, kEq}},
    // WCP_HYDRAULIC_PRESSURE
    {{541}, {"sim/cockpit/warnings/annunciators/hydraulic_pressure", kInt, 0, 1, 1, 0, kEq}},
    {{542}, {"sim/cockpit/warnings/annunciators/ice", kInt, 0, 1, 1, 0, kEq}},  // WCP_ICE_DETECT
    {{543}, {"sim/cockpit/warnings/annunciators/lo_rotor", kInt, 0, 1, 1, 0, kEq}},  // WCP_LOW_ROTOR_RPM
    {{544}, {"sim/cockpit/warnings/annunciators/hi_rotor", kInt, 0, 1, 1, 0, kEq}},  // WCP_HIGH_ROTOR_RPM
    {{545}, {"sim/cockpit/warnings/annunciators/transonic", kInt, 0, 1, 1, 0, kEq}},  // WCP_TRANSONIC_SPEED
    {{546}, {"sim/cockpit/warnings/annunciators/slats", kInt, 0, 1, 1, 0, kEq}},  // WCP_SLATS_DEPLOYED
    {{547}, {"sim/cockpit/warnings/annunciators/flight_director", kInt, 0, 1, 1, 0, kEq}},  // WCP_FLIGHT_DIRECTOR_ON
    {{548}, {"sim/cockpit/warnings/annunciators/yaw_damper", kInt, 0, 1, 1, 0, kEq}},  // WCP_YAW_DAMPER_ON
    {{549}, {"sim/cockpit/warnings/annunciators/hvac", kInt, 0, 1, 1, 0, kEq}},  // WCP_HVAC_FAIL
    // WCP_BATTERY_CHARGE_HIGH
    {{550}, {"sim/cockpit/warnings/annunciators/battery_charge_hi", kInt, 0, 1, 1, 0, kEq}},
    // WCP_CABIN_ALTITUDE_HIGH
    {{551}, {"sim/cockpit/warnings/annunciators/cabin_altitude_12500", kInt, 0, 1, 1, 0, kEq}},
    // WCP_ELECTRICAL_TRIM_OFF
    {{552}, {"sim/cockpit/warnings/annunciators/electric_trim_off", kInt, 0, 1, 1, 0, kEq}},
    {{553}, {"sim/cockpit/warnings/annunciators/crossfeed_on", kInt, 0, 1, 1, 0, kEq}},  // WCP_CROSSFEED_ON
    {{554}, {"sim/cockpit/warnings/annunciators/external_power_on", kInt, 0, 1, 1, 0, kEq}},  // WCP_EXTERNAL_POWER_ON
    // WCP_PASSENGER_OXYGEN_ON
    {{555}, {"sim/cockpit/warnings/annunciators/passenger_oxy_on", kInt, 0, 1, 1, 0, kEq}},
    // WCP_AUTOPILOT_TRIM_DOWN
    {{556}, {"sim/cockpit/warnings/annunciators/autopilot_trim_down", kInt, 0, 1, 1, 0, kEq}},
    {{557}, {"sim/cockpit/warnings/annunciators/autopilot_trim_up", kInt, 0, 1, 1, 0, kEq}},  // WCP_AUTOPILOT_TRIM_UP
    // WCP_AUTOPILOT_BANK_LIMIT
    {{558}, {"sim/cockpit/warnings/annunciators/autopilot_bank_limit", kInt, 0, 1, 1, 0, kEq}},
    // WCP_AUTOPILOT_SOFT_RIDE
    {{559}, {"sim/cockpit/warnings/annunciators/autopilot_soft_ride", kInt, 0, 1, 1, 0, kEq}},
    {{560}, {"sim/cockpit/warnings/annunciators/inverter_off", kIntA, 0, 1, 1, 0, kEq}},  // WCP_INVERTER_1_OFF
    {{561}, {"sim/cockpit/warnings/annunciators/inverter_off", kIntA, 1, 1, 1, 0, kEq}},  // WCP_INVERTER_2_OFF
    {{603}, {"sim/cockpit/warnings/annunciators/no_inverters", kInt, 0, 1, 1, 0, kEq}},  // WCP_INVERTERS_FAIL
    // WCP_OIL_TEMPERATURE_HIGH
    {{604}, {"sim/cockpit/warnings/annunciators/oil_temperature", kInt, 0, 1, 1, 0, kAtLeast}},
    {{605}, {"sim/cockpit/warnings/annunciators/generator", kInt, 0, 1, 1, 0, kAtLeast}},  // WCP_GENERATOR_OFF
    {{606}, {"sim/cockpit/warnings/annunciators/chip_detect", kInt, 0, 1, 1, 0, kAtLeast}},  // WCP_CHIP_DETECT
    {{607}, {"sim/cockpit/warnings/annunciators/engine_fire", kInt, 0, 1, 1, 0, kAtLeast}},  // WCP_ENGINE_FIRE
    {{608}, {"sim/cockpit/warnings/annunciators/auto_ignition", kInt, 0, 1, 1, 0, kAtLeast}},  // WCP_AUTO_IGNITION
    {{609}, {"sim/cockpit/warnings/annunciators/reverse", kInt, 0, 1, 1, 0, kAtLeast}},  // WCP_REVERSER_DEPLOYED
    // WCP_AFTERBURNERS_ON
    {{610}, {"sim/cockpit/warnings/annunciators/afterburners_on", kInt, 0, 1, 1, 0, kAtLeast}},
};

}  // namespace

std::span<const SwitchBindingRow> SwitchBindingRows() { return kSwitchBindings; }

// A linear search: it runs only when a function is built, never per frame.
const SwitchBinding* FindSwitchBinding(FunctionId id) {
  if (id == kNada) return nullptr;
  for (const SwitchBindingRow& row : kSwitchBindings) {
    if (row.ids[0] == id || row.ids[1] == id) return &row.binding;
  }
  return nullptr;
}

}  // namespace drav

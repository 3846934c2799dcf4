// The single-binding switch functions, one row per definition, in catalogue order. Columns: ids,
// then path, value type, first element, element count, on value, off value, read rule (and the
// builder where the values are not whole numbers).
#include "functions/SwitchBindingTable.h"

#include <array>
#include <iterator>

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
    {{kFnAP_NAV2_HOLD}, {"sim/cockpit/autopilot/approach_selector", kInt, 0, 1, 21, 0, kEq}},
    {{kFnSPEED_BRAKE}, {"sim/flightmodel/controls/sbrkrqst", kFlt, 0, 1, 1, 0, kEq}},
    {{kFnAP_BC_HOLD}, {"sim/cockpit/autopilot/backcourse_on", kInt, 0, 1, 1, 0, kEq}},
    {{kFnAP_GPS_HOLD}, {"sim/cockpit/autopilot/heading_mode", kInt, 0, 1, 14, 0, kEq}},
    {{kFnAP_NAV1_HOLD}, {"sim/cockpit/autopilot/approach_selector", kInt, 0, 1, 20, 0, kEq}},
    {{kFnAP_WING_LEVELER}, {"drav/autopilot/wing_leveler", kInt, 0, 1, 1, 0, kEq}},
    {{kFnMCPPRO_ALT_KNOB}, {"drav/autopilot_knob/alt_knob", kInt, 0, 1, 1, 0, kEq}},
    {{kFnAP_CMD_A}, {"x737/systems/MCP/LED_CMDA_on", kInt, 0, 1, 1, 0, kEq}},
    {{kFnAP_CMD_B}, {"x737/systems/MCP/LED_CMDB_on", kInt, 0, 1, 1, 0, kEq}},
    {{kFnAP_ALTINV}, {"x737/systems/afds/ALTINTV", kInt, 0, 1, 1, 0, kEq}},
    {{kFnAP_SPDINV}, {"x737/systems/afds/SPDINTV", kInt, 0, 1, 1, 0, kEq}},
    {{kFnAP_VORLOC}, {"x737/systems/MCP/LED_VORLOC_on", kInt, 0, 1, 1, 0, kEq}},
    {{kFnAP_RIGHT_FLIGHT_DIR}, {"x737/systems/MCP/LED_FDB_MA_on", kInt, 0, 1, 1, 0, kEq}},
    {{kFnEFIS_SYM_WXR}, {"sim/cockpit/switches/EFIFS_shows_weather", kInt, 0, 1, 1, 0, kEq}},
    {{kFnEFIS_SYM_TCAS}, {"sim/cockpit/switches/EFIS_shows_tcas", kInt, 0, 1, 1, 0, kEq}},
    {{kFnEFIS_SYM_ARPT}, {"sim/cockpit/switches/EFIS_shows_airports", kInt, 0, 1, 1, 0, kEq}},
    {{kFnEFIS_SYM_WPT}, {"sim/cockpit/switches/EFIS_shows_waypoints", kInt, 0, 1, 1, 0, kEq}},
    {{kFnEFIS_SYM_VOR}, {"sim/cockpit/switches/EFIS_shows_VORs", kInt, 0, 1, 1, 0, kEq}},
    {{kFnEFIS_SYM_NDB}, {"sim/cockpit/switches/EFIS_shows_NDBs", kInt, 0, 1, 1, 0, kEq}},
    {{kFnEFIS_ND_MODE_APP}, {"sim/cockpit/switches/EFIS_map_submode", kInt, 0, 1, 0, 0, kEq}},
    {{kFnEFIS_ND_MODE_VOR}, {"sim/cockpit/switches/EFIS_map_submode", kInt, 0, 1, 1, 0, kEq}},
    {{kFnEFIS_ND_MODE_MAP}, {"sim/cockpit/switches/EFIS_map_submode", kInt, 0, 1, 2, 0, kEq}},
    {{kFnEFIS_ND_MODE_PLAN}, {"sim/cockpit/switches/EFIS_map_submode", kInt, 0, 1, 4, 0, kEq}},
    {{kFnEFIS_ND_RANGE_10NM}, {"sim/cockpit/switches/EFIS_map_range_selector", kInt, 0, 1, 0, 0, kEq}},
    {{kFnEFIS_ND_RANGE_20NM}, {"sim/cockpit/switches/EFIS_map_range_selector", kInt, 0, 1, 1, 0, kEq}},
    {{kFnEFIS_ND_RANGE_40NM}, {"sim/cockpit/switches/EFIS_map_range_selector", kInt, 0, 1, 2, 0, kEq}},
    {{kFnEFIS_ND_RANGE_80NM}, {"sim/cockpit/switches/EFIS_map_range_selector", kInt, 0, 1, 3, 0, kEq}},
    {{kFnEFIS_ND_RANGE_160NM}, {"sim/cockpit/switches/EFIS_map_range_selector", kInt, 0, 1, 4, 0, kEq}},
    {{kFnEFIS_ND_RANGE_320NM}, {"sim/cockpit/switches/EFIS_map_range_selector", kInt, 0, 1, 5, 0, kEq}},
    {{kFnEFIS_ND_RANGE_640NM}, {"sim/cockpit/switches/EFIS_map_range_selector", kInt, 0, 1, 6, 0, kEq}},
    {{kFnEFIS_VOR_SEL1}, {"sim/cockpit/switches/EFIS_dme_1_selector", kInt, 0, 1, 2, 1, kEq}},
    {{kFnEFIS_ADF_SEL1}, {"sim/cockpit/switches/EFIS_dme_1_selector", kInt, 0, 1, 0, 1, kEq}},
    {{kFnEFIS_VOR_SEL2}, {"sim/cockpit/switches/EFIS_dme_2_selector", kInt, 0, 1, 2, 1, kEq}},
    {{kFnEFIS_ADF_SEL2}, {"sim/cockpit/switches/EFIS_dme_2_selector", kInt, 0, 1, 0, 1, kEq}},
    {{kFnEICAS_DSP_ENG}, {"sim/cockpit/switches/ECAM_mode", kInt, 0, 1, 0, 0, kEq}},
    {{kFnEICAS_DSP_FUEL}, {"sim/cockpit/switches/ECAM_mode", kInt, 0, 1, 1, 1, kEq}},
    {{kFnEICAS_DSP_STAT}, {"sim/cockpit/switches/ECAM_mode", kInt, 0, 1, 2, 2, kEq}},
    {{kFnEICAS_DSP_HYD}, {"sim/cockpit/switches/ECAM_mode", kInt, 0, 1, 3, 3, kEq}},
    {{kFnEICAS_DSP_FAIL}, {"sim/cockpit/switches/ECAM_mode", kInt, 0, 1, 4, 4, kEq}},
    {{kFnAUDPNL_COM1_IDENT}, {"sim/cockpit2/radios/actuators/audio_com_selection", kInt, 0, 1, 6, 0, kEq}},
    {{kFnAUDPNL_COM2_IDENT}, {"sim/cockpit2/radios/actuators/audio_com_selection", kInt, 0, 1, 7, 0, kEq}},
    {{kFnAUDPNL_NAV1_IDENT}, {"sim/cockpit2/radios/actuators/audio_nav_selection", kInt, 0, 1, 0, 9, kEq}},
    {{kFnAUDPNL_NAV2_IDENT}, {"sim/cockpit2/radios/actuators/audio_nav_selection", kInt, 0, 1, 1, 9, kEq}},
    {{kFnAUDPNL_MKR_IDENT}, {"sim/cockpit2/radios/actuators/audio_marker_enabled", kInt, 0, 1, 1, 0, kEq}},
    {{kFnAUDPNL_ADF_IDENT}, {"sim/cockpit2/radios/actuators/audio_nav_selection", kInt, 0, 1, 2, 9, kEq}},
    {{kFnAUDPNL_ADF2_IDENT}, {"sim/cockpit2/radios/actuators/audio_nav_selection", kInt, 0, 1, 3, 9, kEq}},
    {{kFnAUDPNL_DME_IDENT}, {"sim/cockpit2/radios/actuators/audio_dme_enabled", kInt, 0, 1, 1, 0, kEq}},
    {{kFnXPDR_STBY}, {"sim/cockpit/radios/transponder_mode", kInt, 0, 1, 2, 1, kEq}},
    {{kFnBATTERY_MASTER}, {"sim/cockpit/electrical/battery_on", kInt, 0, 1, 1, 0, kEq}},
    {{kFnAVIONICS_MASTER}, {"sim/cockpit/electrical/avionics_on", kInt, 0, 1, 1, 0, kEq}},
    {{kFnPANEL_LTS}, {"sim/cockpit/electrical/cockpit_lights", kFlt, 0, 1, 1, 0, kEq}},
    {{kFnSTROBE_LTS}, {"sim/cockpit/electrical/strobe_lights_on", kInt, 0, 1, 1, 0, kEq}},
    {{kFnLANDING_LTS}, {"sim/cockpit/electrical/landing_lights_on", kInt, 0, 1, 1, 0, kEq}},
    {{kFnNAV_LTS}, {"sim/cockpit/electrical/nav_lights_on", kInt, 0, 1, 1, 0, kEq}},
    {{kFnBEACON_LTS}, {"sim/cockpit/electrical/beacon_lights_on", kInt, 0, 1, 1, 0, kEq}},
    {{kFnTAXI_LTS}, {"sim/cockpit/electrical/taxi_light_on", kInt, 0, 1, 1, 0, kEq}},
    {{kFnDE_ICE}, {"sim/cockpit/switches/anti_ice_on", kInt, 0, 1, 1, 0, kEq}},
    {{kFnPITOT_HEAT}, {"sim/cockpit/switches/pitot_heat_on", kInt, 0, 1, 1, 0, kEq}},
    {{kFnHUD_POWER}, {"sim/cockpit/electrical/HUD_on", kInt, 0, 1, 1, 0, kEq}},
    {{kFnDUMP_FUEL}, {"sim/cockpit/switches/dumping_fuel", kInt, 0, 1, 1, 0, kEq}},
    {{kFnAP_YAW_DAMPER}, {"sim/cockpit/switches/yaw_damper_on", kInt, 0, 1, 1, 0, kEq}},
    {{kFnAUTO_FEATHER}, {"sim/cockpit/switches/auto_feather_mode", kInt, 0, 1, 1, 0, kEq}},
    {{kFnPROP_SYNC, kFnWCP_PROP_SYNC_ON}, {"sim/cockpit/switches/prop_sync_on", kInt, 0, 1, 1, 0, kEq}},
    {{kFnDRAG_CHUTE}, {"sim/cockpit/switches/parachute_on", kInt, 0, 1, 1, 0, kEq}},
    {{kFnARRESTOR_HOOK}, {"sim/cockpit/switches/arresting_gear", kInt, 0, 1, 1, 0, kEq}},
    {{kFnRMI_LEFT_SELECTOR}, {"sim/cockpit/switches/RMI_l_vor_adf_selector", kInt, 0, 1, 1, 0, kEq}},
    {{kFnRMI_RIGHT_SELECTOR}, {"sim/cockpit/switches/RMI_r_vor_adf_selector", kInt, 0, 1, 1, 0, kEq}},
    {{kFnMETRIC_PRESSURE}, {"sim/physics/metric_press", kInt, 0, 1, 1, 0, kEq}},
    {{kFnMETRIC_TEMPERATURE}, {"sim/physics/metric_temp", kInt, 0, 1, 1, 0, kEq}},
    {{kFnALTIMETER_SET_STD}, {"sim/cockpit/misc/barometer_setting", kFlt, 0, 1, 29.92f, 29.92f, kEq, kFloatBuilder}},
    {{kFnCARB_HEAT, kFnENG_ALL_CARB_HEAT}, {"sim/cockpit2/engine/actuators/carb_heat_ratio", kFltA, 0, 8, 1, 0, kEq}},
    {{kFnALTERNATOR_MASTER, kFnENG_ALL_GENERATOR}, {"sim/cockpit/electrical/generator_on", kIntA, 0, 8, 1, 0, kEq}},
    {{kFnFUEL_PUMP, kFnENG_ALL_FUEL_PUMP}, {"sim/cockpit/engine/fuel_pump_on", kIntA, 0, 8, 1, 0, kEq}},
    {{kFnART_STAB}, {"sim/cockpit/switches/art_stab_on", kInt, 0, 1, 1, 0, kEq}},
    {{kFnINSTRUMENT_BRIGHTNESS},
     {"sim/cockpit/electrical/instrument_brightness", kFlt, 0, 1, 1.0f, 0.0f, kEq, kFloatBuilder}},
    {{kFnPANEL_BRIGHTNESS}, {"sim/cockpit2/switches/panel_brightness_ratio", kFltA, 0, 1, 1, 0, kEq}},
    {{kFnLANDING_LIGHTS_SWITCH_ALL}, {"sim/cockpit2/switches/landing_lights_switch", kFltA, 0, 16, 1, 0, kEq}},
    {{kFnANTI_ICE_INLET_HEAT}, {"sim/cockpit/switches/anti_ice_inlet_heat", kInt, 0, 1, 1, 0, kEq}},
    {{kFnANTI_ICE_PROP_HEAT}, {"sim/cockpit/switches/anti_ice_prop_heat", kInt, 0, 1, 1, 0, kEq}},
    {{kFnANTI_ICE_WINDOW_HEAT}, {"sim/cockpit/switches/anti_ice_window_heat", kInt, 0, 1, 1, 0, kEq}},
    {{kFnPITOT_HEAT2}, {"sim/cockpit/switches/pitot_heat_on2", kInt, 0, 1, 1, 0, kEq}},
    {{kFnANTI_ICE_AOA_HEAT}, {"sim/cockpit/switches/anti_ice_AOA_heat", kInt, 0, 1, 1, 0, kEq}},
    {{kFnANTI_ICE_SURF_HEAT}, {"sim/cockpit/switches/anti_ice_surf_heat", kInt, 0, 1, 1, 0, kEq}},
    {{kFnANTI_ICE_SURF_BOOT}, {"sim/cockpit/switches/anti_ice_surf_boot", kInt, 0, 1, 1, 0, kEq}},
    {{kFnANTI_ICE_AUTO_IGNITE}, {"sim/cockpit/switches/anti_ice_auto_ignite", kInt, 0, 1, 1, 0, kEq}},
    {{kFnICE_DETECT}, {"sim/cockpit/switches/ice_detect", kInt, 0, 1, 1, 0, kEq}},
    {{kFnPRE_ROTATE_LEVEL}, {"sim/cockpit/switches/pre_rotate_level", kInt, 0, 1, 1, 0, kEq}},
    {{kFnJATO_ON}, {"sim/cockpit/switches/jato_on", kInt, 0, 1, 1, 0, kEq}},
    {{kFnPUFFERS_ON}, {"sim/cockpit/switches/puffers_on", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWATER_SCOOP}, {"sim/cockpit/switches/water_scoop", kInt, 0, 1, 1, 0, kEq}},
    {{kFnCANOPY_OPEN}, {"sim/cockpit/switches/canopy_req", kInt, 0, 1, 1, 0, kEq}},
    {{kFnTOT_ENER_AUDIO}, {"sim/cockpit/switches/tot_ener_audio", kInt, 0, 1, 1, 0, kEq}},
    {{kFnARGUS_MODE}, {"sim/cockpit/switches/argus_mode", kInt, 0, 1, 1, 0, kEq}},
    {{kFnNO_SMOKING}, {"sim/cockpit/switches/no_smoking", kInt, 0, 1, 1, 0, kEq}},
    {{kFnFASTEN_SEAT_BELTS}, {"sim/cockpit/switches/fasten_seat_belts", kInt, 0, 1, 1, 0, kEq}},
    {{kFnCLUTCH_ENGAGE}, {"sim/cockpit/engine/clutch_engage", kInt, 0, 1, 1, 0, kEq}},
    {{kFnAPU_GENERATOR_SWITCH}, {"sim/cockpit/electrical/generator_apu_on", kInt, 0, 1, 1, 0, kEq}},
    {{kFnFUEL_FEED_OFF}, {"sim/cockpit/engine/fuel_tank_selector", kInt, 0, 1, 0, 0, kEq}},
    {{kFnFUEL_FEED_LEFT}, {"sim/cockpit/engine/fuel_tank_selector", kInt, 0, 1, 1, 1, kEq}},
    {{kFnFUEL_FEED_CENTRE}, {"sim/cockpit/engine/fuel_tank_selector", kInt, 0, 1, 2, 2, kEq}},
    {{kFnFUEL_FEED_RIGHT}, {"sim/cockpit/engine/fuel_tank_selector", kInt, 0, 1, 3, 3, kEq}},
    {{kFnFUEL_FEED_ALL}, {"sim/cockpit/engine/fuel_tank_selector", kInt, 0, 1, 4, 4, kEq}},
    {{kFnAPU_SWITCH_OFF}, {"sim/cockpit/engine/APU_switch", kInt, 0, 1, 0, 0, kEq}},
    {{kFnAPU_SWITCH_ON}, {"sim/cockpit/engine/APU_switch", kInt, 0, 1, 1, 1, kEq}},
    {{kFnAPU_SWITCH_START}, {"sim/cockpit/engine/APU_switch", kInt, 0, 1, 2, 2, kEq}},
    {{kFnAP_FLIGHT_DIR_OFF}, {"sim/cockpit/autopilot/autopilot_mode", kInt, 0, 1, 0, 0, kEq}},
    {{kFnAP_FLIGHT_DIR_ON}, {"sim/cockpit/autopilot/autopilot_mode", kInt, 0, 1, 1, 1, kEq}},
    {{kFnAP_FLIGHT_DIR_AUTO}, {"sim/cockpit/autopilot/autopilot_mode", kInt, 0, 1, 2, 2, kEq}},
    {{kFnHSI_IS_ARC}, {"sim/cockpit2/switches/HSI_is_arc", kInt, 0, 1, 1, 0, kEq}},
    {{kFnELECTRIC_HYDRAULIC_PUMP}, {"sim/cockpit2/switches/electric_hydraulic_pump_on", kInt, 0, 1, 1, 0, kEq}},
    {{kFnNAV1_FLIP}, {"sim/cockpit2/radios/actuators/nav1_right_is_selected", kInt, 0, 1, 1, 0, kEq}},
    {{kFnNAV2_FLIP}, {"sim/cockpit2/radios/actuators/nav2_right_is_selected", kInt, 0, 1, 1, 0, kEq}},
    {{kFnCOM1_FLIP}, {"sim/cockpit2/radios/actuators/com1_right_is_selected", kInt, 0, 1, 1, 0, kEq}},
    {{kFnCOM2_FLIP}, {"sim/cockpit2/radios/actuators/com2_right_is_selected", kInt, 0, 1, 1, 0, kEq}},
    {{kFnADF1_FLIP}, {"sim/cockpit2/radios/actuators/adf1_right_is_selected", kInt, 0, 1, 1, 0, kEq}},
    {{kFnADF2_FLIP}, {"sim/cockpit2/radios/actuators/adf2_right_is_selected", kInt, 0, 1, 1, 0, kEq}},
    {{kFnDME_FLIP}, {"sim/cockpit2/radios/actuators/dme_right_is_selected", kInt, 0, 1, 1, 0, kEq}},
    {{kFnLANDING_GEAR, kFnWCP_GEAR_DOWN}, {"sim/cockpit/switches/gear_handle_status", kInt, 0, 1, 1, 0, kEq}},
    {{kFnPARKING_BRAKE}, {"sim/flightmodel/controls/parkbrake", kFlt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_AP_FAIL}, {"sim/cockpit/warnings/annunciators/autopilot", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_AP_TRIM_FAIL}, {"sim/cockpit/warnings/annunciators/autopilot_trim_fail", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_DOOR_UNLOCK}, {"sim/cockpit/warnings/annunciators/cabin_door_open", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_FUEL_LOW}, {"sim/cockpit/warnings/annunciators/fuel_quantity", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_FUEL_PRESS_LOW}, {"sim/cockpit/warnings/annunciators/fuel_pressure", kInt, 0, 1, 1, 0, kAtLeast}},
    {{kFnWCP_FUEL_SELECT_OFF}, {"sim/cockpit/engine/fuel_tank_selector", kInt, 0, 1, 0, 2, kEq}},
    {{kFnWCP_GEAR_UNSAFE}, {"sim/cockpit/warnings/annunciators/gear_unsafe", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_GPS_NAV}, {"sim/cockpit/switches/HSI_selector", kInt, 0, 1, 2, 0, kEq}},
    {{kFnWCP_GPWS}, {"sim/cockpit2/annunciators/GPWS", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_LOW_VACUUM, kFnWCP_VACUUM_LOW_RESVR},
     {"sim/cockpit/warnings/annunciators/low_vacuum", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_INVERTER}, {"sim/cockpit/warnings/annunciators/inverter", kInt, 0, 1, 1, 0, kAtLeast}},
    {{kFnWCP_LAMP_TEST}, {"sim/cockpit/warnings/annunciator_test_pressed", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_LDG_TAXI_LIGHT}, {"sim/cockpit/warnings/annunciators/landing_taxi_lite", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_MASTER_CAUTION}, {"sim/cockpit/warnings/annunciators/master_caution", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_MASTER_WARNING}, {"sim/cockpit/warnings/annunciators/master_warning", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_MASTER_ACCEPT}, {"sim/cockpit/warnings/annunciators/master_accept", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_OIL_PRESS_LOW}, {"sim/cockpit/warnings/annunciators/oil_pressure", kInt, 0, 1, 1, 0, kAtLeast}},
    {{kFnWCP_PITOT_HEAT}, {"sim/cockpit/warnings/annunciators/pitot_heat_off", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_SPEED_BRAKE}, {"sim/cockpit/warnings/annunciators/speedbrake", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_VOLTAGE_LOW}, {"sim/cockpit/warnings/annunciators/low_voltage", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_STALL_WARNING}, {"sim/flightmodel/failures/stallwarning", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_GEAR_WARNING}, {"sim/cockpit2/annunciators/gear_warning", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_NO_SMOKING_WARNING}, {"sim/cockpit2/annunciators/no_smoking", kInt, 0, 1, 1, 0, kAtLeast}},
    {{kFnWCP_FASTEN_SEATBELT_WARNING}, {"sim/cockpit2/annunciators/fasten_seatbelt", kInt, 0, 1, 1, 0, kAtLeast}},
    {{kFnWCP_AUTOPILOT_DISCONNECT}, {"sim/cockpit/warnings/annunciators/autopilot_disconnect", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_HYDRAULIC_PRESSURE}, {"sim/cockpit/warnings/annunciators/hydraulic_pressure", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_ICE_DETECT}, {"sim/cockpit/warnings/annunciators/ice", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_LOW_ROTOR_RPM}, {"sim/cockpit/warnings/annunciators/lo_rotor", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_HIGH_ROTOR_RPM}, {"sim/cockpit/warnings/annunciators/hi_rotor", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_TRANSONIC_SPEED}, {"sim/cockpit/warnings/annunciators/transonic", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_SLATS_DEPLOYED}, {"sim/cockpit/warnings/annunciators/slats", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_FLIGHT_DIRECTOR_ON}, {"sim/cockpit/warnings/annunciators/flight_director", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_YAW_DAMPER_ON}, {"sim/cockpit/warnings/annunciators/yaw_damper", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_HVAC_FAIL}, {"sim/cockpit/warnings/annunciators/hvac", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_BATTERY_CHARGE_HIGH}, {"sim/cockpit/warnings/annunciators/battery_charge_hi", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_CABIN_ALTITUDE_HIGH}, {"sim/cockpit/warnings/annunciators/cabin_altitude_12500", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_ELECTRICAL_TRIM_OFF}, {"sim/cockpit/warnings/annunciators/electric_trim_off", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_CROSSFEED_ON}, {"sim/cockpit/warnings/annunciators/crossfeed_on", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_EXTERNAL_POWER_ON}, {"sim/cockpit/warnings/annunciators/external_power_on", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_PASSENGER_OXYGEN_ON}, {"sim/cockpit/warnings/annunciators/passenger_oxy_on", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_AUTOPILOT_TRIM_DOWN}, {"sim/cockpit/warnings/annunciators/autopilot_trim_down", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_AUTOPILOT_TRIM_UP}, {"sim/cockpit/warnings/annunciators/autopilot_trim_up", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_AUTOPILOT_BANK_LIMIT}, {"sim/cockpit/warnings/annunciators/autopilot_bank_limit", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_AUTOPILOT_SOFT_RIDE}, {"sim/cockpit/warnings/annunciators/autopilot_soft_ride", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_INVERTER_1_OFF}, {"sim/cockpit/warnings/annunciators/inverter_off", kIntA, 0, 1, 1, 0, kEq}},
    {{kFnWCP_INVERTER_2_OFF}, {"sim/cockpit/warnings/annunciators/inverter_off", kIntA, 1, 1, 1, 0, kEq}},
    {{kFnWCP_INVERTERS_FAIL}, {"sim/cockpit/warnings/annunciators/no_inverters", kInt, 0, 1, 1, 0, kEq}},
    {{kFnWCP_OIL_TEMPERATURE_HIGH}, {"sim/cockpit/warnings/annunciators/oil_temperature", kInt, 0, 1, 1, 0, kAtLeast}},
    {{kFnWCP_GENERATOR_OFF}, {"sim/cockpit/warnings/annunciators/generator", kInt, 0, 1, 1, 0, kAtLeast}},
    {{kFnWCP_CHIP_DETECT}, {"sim/cockpit/warnings/annunciators/chip_detect", kInt, 0, 1, 1, 0, kAtLeast}},
    {{kFnWCP_ENGINE_FIRE}, {"sim/cockpit/warnings/annunciators/engine_fire", kInt, 0, 1, 1, 0, kAtLeast}},
    {{kFnWCP_AUTO_IGNITION}, {"sim/cockpit/warnings/annunciators/auto_ignition", kInt, 0, 1, 1, 0, kAtLeast}},
    {{kFnWCP_REVERSER_DEPLOYED}, {"sim/cockpit/warnings/annunciators/reverse", kInt, 0, 1, 1, 0, kAtLeast}},
    {{kFnWCP_AFTERBURNERS_ON}, {"sim/cockpit/warnings/annunciators/afterburners_on", kInt, 0, 1, 1, 0, kAtLeast}},
};

}  // namespace

std::span<const SwitchBindingRow> SwitchBindingRows() { return kSwitchBindings; }

// A linear search: it runs only when a function is built, never per frame.
namespace {

// The first row naming each id, worked out by the compiler: an aircraft load looks up several
// hundred ids, and a search through the table was a visible part of it.
constexpr auto kFirstRowOfId = [] {
  std::array<std::int16_t, kFunctionCount> rows{};
  rows.fill(-1);
  for (std::size_t row = 0; row < std::size(kSwitchBindings); ++row) {
    for (const FunctionId id : kSwitchBindings[row].ids) {
      if (id > kNada && id < kFunctionCount && rows[id] < 0) rows[id] = static_cast<std::int16_t>(row);
    }
  }
  return rows;
}();

}  // namespace

const SwitchBinding* FindSwitchBinding(FunctionId id) {
  if (id <= kNada || id >= kFunctionCount) return nullptr;
  const std::int16_t row = kFirstRowOfId[static_cast<std::size_t>(id)];
  return row < 0 ? nullptr : &kSwitchBindings[row].binding;
}

}  // namespace drav

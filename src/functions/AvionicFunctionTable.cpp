// The avionic functions, in catalogue order. Columns: function, tag, display format, dataref, the
// dataref used instead while X737Mode is set, and the on/off companion dataref without and with
// X737Mode.
#include "functions/AvionicFunctionTable.h"

#include <array>

namespace drav {

namespace {

constexpr const char* kSame = nullptr;  // the X737Mode path is the ordinary one
constexpr const char* kNone = nullptr;  // no companion binding

constexpr const char* kAdf1 = "sim/cockpit/radios/adf1_freq_hz";
constexpr const char* kAdf1Stby = "sim/cockpit/radios/adf1_stdby_freq_hz";
constexpr const char* kAdf2 = "sim/cockpit/radios/adf2_freq_hz";
constexpr const char* kAdf2Stby = "sim/cockpit/radios/adf2_stdby_freq_hz";
constexpr const char* kCom1 = "sim/cockpit/radios/com1_freq_hz";
constexpr const char* kCom1Stby = "sim/cockpit/radios/com1_stdby_freq_hz";
constexpr const char* kCom2 = "sim/cockpit/radios/com2_freq_hz";
constexpr const char* kCom2Stby = "sim/cockpit/radios/com2_stdby_freq_hz";
constexpr const char* kDme = "sim/cockpit/radios/dme_freq_hz";
constexpr const char* kDmeStby = "sim/cockpit/radios/dme_stdby_freq_hz";
constexpr const char* kNav1 = "sim/cockpit/radios/nav1_freq_hz";
constexpr const char* kNav1Stby = "sim/cockpit/radios/nav1_stdby_freq_hz";
constexpr const char* kNav2 = "sim/cockpit/radios/nav2_freq_hz";
constexpr const char* kNav2Stby = "sim/cockpit/radios/nav2_stdby_freq_hz";
constexpr const char* kXpdrCode = "sim/cockpit/radios/transponder_code";

// PREV and NEXT have objects of their own, with their own ids. A GF-166 asks for one while it
// steps its mode; were they to re-initialise COM1_DUAL's shared object instead, a second unit that
// shows COM1_DUAL would afterwards hold an object tagged PREV or NEXT whose id the adjustment no
// longer recognises, until COM1_DUAL happened to be requested again.
constexpr AvionicFunctionRow kAvionicFunctions[] = {
    {kFnADF1_ACTIVE, "ADF1", 1, kAdf1, kSame, kNone, kNone},
    {kFnADF1_STANDBY, "AD1S", 1, kAdf1Stby, kSame, kNone, kNone},
    {kFnADF1_DUAL, "AD1D", 1, kAdf1, kSame, kNone, kNone},
    {kFnADF1_CARD, "ADFH", 1, "sim/cockpit/radios/adf1_cardinal_dir", kSame, kNone, kNone},
    {kFnADF2_ACTIVE, "ADF2", 1, kAdf2, kSame, kNone, kNone},
    {kFnADF2_STANDBY, "AD2S", 1, kAdf2Stby, kSame, kNone, kNone},
    {kFnADF2_DUAL, "AD2D", 1, kAdf2, kSame, kNone, kNone},
    {kFnADF2_CARD, "AD2H", 1, "sim/cockpit/radios/adf2_cardinal_dir", kSame, kNone, kNone},
    {kFnCOM1_ACTIVE, "COM1", 4, kCom1, kSame, kNone, kNone},
    {kFnCOM1_STANDBY, "CM1S", 4, kCom1Stby, kSame, kNone, kNone},
    {kFnCOM1_DUAL, "CM1D", 4, kCom1, kSame, kNone, kNone},
    {kFnCOM2_ACTIVE, "COM2", 4, kCom2, kSame, kNone, kNone},
    {kFnCOM2_STANDBY, "CM2S", 4, kCom2Stby, kSame, kNone, kNone},
    {kFnCOM2_DUAL, "CM2D", 4, kCom2, kSame, kNone, kNone},
    {kFnDME_ACTIVE, "DMEA ", 4, kDme, kSame, kNone, kNone},
    {kFnDME_STANDBY, "DMES", 4, kDmeStby, kSame, kNone, kNone},
    {kFnDME_DUAL, "DMED", 4, kDme, kSame, kNone, kNone},
    {kFnNAV1_ACTIVE, "NAV1", 4, kNav1, kSame, kNone, kNone},
    {kFnNAV1_STANDBY, "NV1S", 4, kNav1Stby, kSame, kNone, kNone},
    {kFnNAV1_DUAL, "NV1D", 4, kNav1, kSame, kNone, kNone},
    {kFnNAV2_ACTIVE, "NAV2", 4, kNav2, kSame, kNone, kNone},
    {kFnNAV2_STANDBY, "NV2S", 4, kNav2Stby, kSame, kNone, kNone},
    {kFnNAV2_DUAL, "NV2D", 4, kNav2, kSame, kNone, kNone},
    {kFnXPDR, "XPDR", 2, kXpdrCode, kSame, kNone, kNone},
    {kFnPREV, "PREV", 4, kCom1, kSame, kNone, kNone},
    {kFnNEXT, "NEXT", 4, kCom1, kSame, kNone, kNone},
    {kFnXPDR_DIGIT_1, "XPDRD1", 2, kXpdrCode, kSame, kNone, kNone},
    {kFnXPDR_DIGIT_2, "XPDRD2", 2, kXpdrCode, kSame, kNone, kNone},
    {kFnXPDR_DIGIT_3, "XPDRD3", 2, kXpdrCode, kSame, kNone, kNone},
    {kFnXPDR_DIGIT_4, "XPDRD4", 2, kXpdrCode, kSame, kNone, kNone},
    {kFnADF1_ACTIVE_COARSE, "ADF1_1", 1, kAdf1, kSame, kNone, kNone},
    {kFnADF1_ACTIVE_FINE, "ADF1_2", 1, kAdf1, kSame, kNone, kNone},
    {kFnADF1_STANDBY_COARSE, "AD1S_1", 1, kAdf1Stby, kSame, kNone, kNone},
    {kFnADF1_STANDBY_FINE, "AD1S_2", 1, kAdf1Stby, kSame, kNone, kNone},
    {kFnADF2_ACTIVE_COARSE, "ADF2_1", 1, kAdf2, kSame, kNone, kNone},
    {kFnADF2_ACTIVE_FINE, "ADF2_2", 1, kAdf2, kSame, kNone, kNone},
    {kFnADF2_STANDBY_COARSE, "AD2S_1", 1, kAdf2Stby, kSame, kNone, kNone},
    {kFnADF2_STANDBY_FINE, "AD2S_2", 1, kAdf2Stby, kSame, kNone, kNone},
    {kFnCOM1_ACTIVE_COARSE, "COM1_1", 4, kCom1, kSame, kNone, kNone},
    {kFnCOM1_ACTIVE_FINE, "COM1_2", 4, kCom1, kSame, kNone, kNone},
    {kFnCOM1_STANDBY_COARSE, "CM1S_1", 4, kCom1Stby, kSame, kNone, kNone},
    {kFnCOM1_STANDBY_FINE, "CM1S_2", 4, kCom1Stby, kSame, kNone, kNone},
    {kFnCOM2_ACTIVE_COARSE, "COM2_1", 4, kCom2, kSame, kNone, kNone},
    {kFnCOM2_ACTIVE_FINE, "COM2_2", 4, kCom2, kSame, kNone, kNone},
    {kFnCOM2_STANDBY_COARSE, "CM2S_1", 4, kCom2Stby, kSame, kNone, kNone},
    {kFnCOM2_STANDBY_FINE, "CM2S_2", 4, kCom2Stby, kSame, kNone, kNone},
    {kFnDME_ACTIVE_COARSE, "DMEA_1", 4, kDme, kSame, kNone, kNone},
    {kFnDME_ACTIVE_FINE, "DMEA_2", 4, kDme, kSame, kNone, kNone},
    {kFnDME_STANDBY_COARSE, "DMES_1", 4, kDmeStby, kSame, kNone, kNone},
    {kFnDME_STANDBY_FINE, "DMES_2", 4, kDmeStby, kSame, kNone, kNone},
    {kFnNAV1_ACTIVE_COARSE, "NAV1_1", 4, kNav1, kSame, kNone, kNone},
    {kFnNAV1_ACTIVE_FINE, "NAV1_2", 4, kNav1, kSame, kNone, kNone},
    {kFnNAV1_STANDBY_COARSE, "NV1S_1", 4, kNav1Stby, kSame, kNone, kNone},
    {kFnNAV1_STANDBY_FINE, "NV1S_2", 4, kNav1Stby, kSame, kNone, kNone},
    // NAV2's active pair is fine before coarse, unlike every other radio.
    {kFnNAV2_ACTIVE_FINE, "NAV2_2", 4, kNav2, kSame, kNone, kNone},
    {kFnNAV2_ACTIVE_COARSE, "NAV2_1", 4, kNav2, kSame, kNone, kNone},
    {kFnNAV2_STANDBY_COARSE, "NV2S_1", 4, kNav2Stby, kSame, kNone, kNone},
    {kFnNAV2_STANDBY_FINE, "NV2S_2", 4, kNav2Stby, kSame, kNone, kNone},
    {kFnOBS1, "OBS1", 1, "drav/autopilot/nav1_obs", kSame, kNone, kNone},
    {kFnOBS2, "OBS2", 1, "drav/autopilot/nav2_obs", kSame, kNone, kNone},
    {kFnAP_HEADING_ADJ, "HDG ", 1, "drav/autopilot/heading_crs", "x737/systems/afds/HDG_magnhdg", kNone, kNone},
    {kFnAP_NAV_COURSE_ADJ, "CRS ", 1, "drav/autopilot/nav1_obs", kSame, kNone, kNone},
    // The companion tells knots from Mach.
    {kFnAP_SPEED_ADJ, "SPD ", 5, "sim/cockpit/autopilot/airspeed", "x737/systems/athr/MCPSPD_spd",
     "sim/cockpit/autopilot/airspeed_is_mach", "x737/systems/athr/MCPSPD_ismach"},
    // The companion is the knob's 10-foot step; the x737 has no such knob and keeps what was there.
    {kFnAP_ALTITUDE_ADJ, "ALT ", 3, "sim/cockpit/autopilot/altitude", "x737/systems/afds/ALTHLD_baroalt",
     "drav/autopilot_knob/alt_knob", kNone},
    {kFnAP_VERT_SPEED_ADJ, " VS ", 3, "sim/cockpit/autopilot/vertical_velocity", "x737/systems/afds/VS_vvi", kNone,
     kNone},
    {kFnALTIMETER, "ALTI", 8, "sim/cockpit/misc/barometer_setting", kSame, kNone, kNone},
    {kFnCOCKPIT_LTS, "CKPT", 6, "sim/cockpit/electrical/cockpit_lights", kSame, kNone, kNone},
    // The panels' own display brightness, not a simulator value.
    {kFnDISP_BRIGHTNESS, "DBRT", 9, "", kSame, kNone, kNone},
    {kFnHUD_BRIGHTNESS, "HBRT", 6, "sim/cockpit/electrical/HUD_brightness", kSame, kNone, kNone},
    {kFnINST_BRIGHTNESS, "IBRT", 6, "sim/cockpit/electrical/instrument_brightness", kSame, kNone, kNone},
    {kFnINSTRUMENT_BRIGHTNESS_LEVEL, "IBLV", 6, "sim/cockpit/electrical/instrument_brightness", kSame, kNone, kNone},
    {kFnPANEL_BRIGHTNESS_LEVEL, "PBLV", 6, "sim/cockpit/electrical/cockpit_lights", kSame, kNone, kNone},
    {kFnDECISION_HEIGHT, " DH ", 2, "sim/cockpit/misc/radio_altimeter_minimum", kSame, kNone, kNone},
    {kFnAPU_SWITCH, " APU", 0, "sim/cockpit/engine/APU_switch", kSame, kNone, kNone},
    {kFnBLEED_AIR_MODE, "BLDA", 0, "sim/cockpit/pressure/bleed_air_mode", kSame, kNone, kNone},
    {kFnTRANSPONDER_MODE, "XPDM", 0, "sim/cockpit/radios/transponder_mode", kSame, kNone, kNone},
    {kFnNAV_COM_ADF_MODE, "NAVM", 0, "sim/cockpit/radios/nav_com_adf_mode", kSame, kNone, kNone},
    {kFnHSI_SELECTOR, "HSIS", 0, "sim/cockpit/switches/HSI_selector", kSame, kNone, kNone},
    {kFnEFIS_ND_MODE_SEL, "NDM ", 0, "sim/cockpit/switches/EFIS_map_mode", kSame, kNone, kNone},
    {kFnEFIS_ND_SUB_MODE_SEL, "NDSM", 0, "sim/cockpit/switches/EFIS_map_submode", kSame, kNone, kNone},
    {kFnEFIS_ND_RANGE_SEL, "NDRG", 7, "sim/cockpit/switches/EFIS_map_range_selector", kSame, kNone, kNone},
    {kFnFUEL_FEED, "FUEL", 1, "sim/cockpit/engine/fuel_tank_selector", kSame, kNone, kNone},
    {kFnFUEL_TRANSFER_FROM, "FT F", 1, "sim/cockpit/engine/fuel_tank_transfer_from", kSame, kNone, kNone},
    {kFnFUEL_TRANSFER_TO, "FT T", 1, "sim/cockpit/engine/fuel_tank_transfer", kSame, kNone, kNone},
    {kFnELEV_TRIM, "ELVT", 12, "sim/flightmodel/controls/elv_trim", kSame, kNone, kNone},
    {kFnAILERON_TRIM, "AILT", 12, "sim/flightmodel/controls/ail_trim", kSame, kNone, kNone},
    {kFnRUDDER_TRIM, "RURT", 12, "sim/flightmodel/controls/rud_trim", kSame, kNone, kNone},
    {kFnROTOR_TRIM, "RORT", 12, "sim/flightmodel/controls/rot_trim", kSame, kNone, kNone},
    {kFnAUTO_BRAKE, "ABRK", 0, "sim/cockpit/switches/auto_brake_settings", kSame, kNone, kNone},
};

// Row position by id, computed once at compile time so that a lookup is one index.
constexpr auto kRowIndexById = [] {
  std::array<std::int16_t, kFunctionCount> index{};
  index.fill(-1);
  for (std::size_t row = 0; row < std::size(kAvionicFunctions); ++row) {
    index[static_cast<std::size_t>(kAvionicFunctions[row].id)] = static_cast<std::int16_t>(row);
  }
  return index;
}();

}  // namespace

std::span<const AvionicFunctionRow> AvionicFunctionRows() { return kAvionicFunctions; }

std::int32_t AvionicFunctionRowIndex(FunctionId id) {
  if (id < 0 || id >= kFunctionCount) return -1;
  return kRowIndexById[static_cast<std::size_t>(id)];
}

}  // namespace drav

// The avionic functions, in id order. Columns: id, tag, display format, dataref, the dataref used
// instead while X737Mode is set, and the on/off companion dataref without and with X737Mode.
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
    {1, "ADF1", 1, kAdf1, kSame, kNone, kNone},
    {2, "AD1S", 1, kAdf1Stby, kSame, kNone, kNone},
    {3, "AD1D", 1, kAdf1, kSame, kNone, kNone},
    {4, "ADFH", 1, "sim/cockpit/radios/adf1_cardinal_dir", kSame, kNone, kNone},
    {5, "ADF2", 1, kAdf2, kSame, kNone, kNone},
    {6, "AD2S", 1, kAdf2Stby, kSame, kNone, kNone},
    {7, "AD2D", 1, kAdf2, kSame, kNone, kNone},
    {8, "AD2H", 1, "sim/cockpit/radios/adf2_cardinal_dir", kSame, kNone, kNone},
    {9, "COM1", 4, kCom1, kSame, kNone, kNone},
    {10, "CM1S", 4, kCom1Stby, kSame, kNone, kNone},
    {11, "CM1D", 4, kCom1, kSame, kNone, kNone},
    {12, "COM2", 4, kCom2, kSame, kNone, kNone},
    {13, "CM2S", 4, kCom2Stby, kSame, kNone, kNone},
    {14, "CM2D", 4, kCom2, kSame, kNone, kNone},
    {15, "DMEA ", 4, kDme, kSame, kNone, kNone},
    {16, "DMES", 4, kDmeStby, kSame, kNone, kNone},
    {17, "DMED", 4, kDme, kSame, kNone, kNone},
    {18, "NAV1", 4, kNav1, kSame, kNone, kNone},
    {19, "NV1S", 4, kNav1Stby, kSame, kNone, kNone},
    {20, "NV1D", 4, kNav1, kSame, kNone, kNone},
    {21, "NAV2", 4, kNav2, kSame, kNone, kNone},
    {22, "NV2S", 4, kNav2Stby, kSame, kNone, kNone},
    {23, "NV2D", 4, kNav2, kSame, kNone, kNone},
    {24, "XPDR", 2, kXpdrCode, kSame, kNone, kNone},
    {25, "PREV", 4, kCom1, kSame, kNone, kNone},
    {26, "NEXT", 4, kCom1, kSame, kNone, kNone},
    {29, "XPDRD1", 2, kXpdrCode, kSame, kNone, kNone},
    {30, "XPDRD2", 2, kXpdrCode, kSame, kNone, kNone},
    {31, "XPDRD3", 2, kXpdrCode, kSame, kNone, kNone},
    {32, "XPDRD4", 2, kXpdrCode, kSame, kNone, kNone},
    {33, "ADF1_1", 1, kAdf1, kSame, kNone, kNone},
    {34, "ADF1_2", 1, kAdf1, kSame, kNone, kNone},
    {35, "AD1S_1", 1, kAdf1Stby, kSame, kNone, kNone},
    {36, "AD1S_2", 1, kAdf1Stby, kSame, kNone, kNone},
    {37, "ADF2_1", 1, kAdf2, kSame, kNone, kNone},
    {38, "ADF2_2", 1, kAdf2, kSame, kNone, kNone},
    {39, "AD2S_1", 1, kAdf2Stby, kSame, kNone, kNone},
    {40, "AD2S_2", 1, kAdf2Stby, kSame, kNone, kNone},
    {41, "COM1_1", 4, kCom1, kSame, kNone, kNone},
    {42, "COM1_2", 4, kCom1, kSame, kNone, kNone},
    {43, "CM1S_1", 4, kCom1Stby, kSame, kNone, kNone},
    {44, "CM1S_2", 4, kCom1Stby, kSame, kNone, kNone},
    {45, "COM2_1", 4, kCom2, kSame, kNone, kNone},
    {46, "COM2_2", 4, kCom2, kSame, kNone, kNone},
    {47, "CM2S_1", 4, kCom2Stby, kSame, kNone, kNone},
    {48, "CM2S_2", 4, kCom2Stby, kSame, kNone, kNone},
    {49, "DMEA_1", 4, kDme, kSame, kNone, kNone},
    {50, "DMEA_2", 4, kDme, kSame, kNone, kNone},
    {51, "DMES_1", 4, kDmeStby, kSame, kNone, kNone},
    {52, "DMES_2", 4, kDmeStby, kSame, kNone, kNone},
    {53, "NAV1_1", 4, kNav1, kSame, kNone, kNone},
    {54, "NAV1_2", 4, kNav1, kSame, kNone, kNone},
    {55, "NV1S_1", 4, kNav1Stby, kSame, kNone, kNone},
    {56, "NV1S_2", 4, kNav1Stby, kSame, kNone, kNone},
    // NAV2's active pair is fine before coarse, unlike every other radio.
    {57, "NAV2_2", 4, kNav2, kSame, kNone, kNone},
    {58, "NAV2_1", 4, kNav2, kSame, kNone, kNone},
    {59, "NV2S_1", 4, kNav2Stby, kSame, kNone, kNone},
    {60, "NV2S_2", 4, kNav2Stby, kSame, kNone, kNone},
    {61, "OBS1", 1, "drav/autopilot/nav1_obs", kSame, kNone, kNone},
    {62, "OBS2", 1, "drav/autopilot/nav2_obs", kSame, kNone, kNone},
    {63, "HDG ", 1, "drav/autopilot/heading_crs", "x737/systems/afds/HDG_magnhdg", kNone, kNone},
    {64, "CRS ", 1, "drav/autopilot/nav1_obs", kSame, kNone, kNone},
    // The companion tells knots from Mach.
    {65, "SPD ", 5, "sim/cockpit/autopilot/airspeed", "x737/systems/athr/MCPSPD_spd",
     "sim/cockpit/autopilot/airspeed_is_mach", "x737/systems/athr/MCPSPD_ismach"},
    // The companion is the knob's 10-foot step; the x737 has no such knob and keeps what was there.
    {66, "ALT ", 3, "sim/cockpit/autopilot/altitude", "x737/systems/afds/ALTHLD_baroalt",
     "drav/autopilot_knob/alt_knob", kNone},
    {67, " VS ", 3, "sim/cockpit/autopilot/vertical_velocity", "x737/systems/afds/VS_vvi", kNone, kNone},
    {68, "ALTI", 8, "sim/cockpit/misc/barometer_setting", kSame, kNone, kNone},
    {69, "CKPT", 6, "sim/cockpit/electrical/cockpit_lights", kSame, kNone, kNone},
    // The panels' own display brightness, not a simulator value.
    {70, "DBRT", 9, "", kSame, kNone, kNone},
    {71, "HBRT", 6, "sim/cockpit/electrical/HUD_brightness", kSame, kNone, kNone},
    {72, "IBRT", 6, "sim/cockpit/electrical/instrument_brightness", kSame, kNone, kNone},
    {73, "IBLV", 6, "sim/cockpit/electrical/instrument_brightness", kSame, kNone, kNone},
    {74, "PBLV", 6, "sim/cockpit/electrical/cockpit_lights", kSame, kNone, kNone},
    {75, " DH ", 2, "sim/cockpit/misc/radio_altimeter_minimum", kSame, kNone, kNone},
    {77, " APU", 0, "sim/cockpit/engine/APU_switch", kSame, kNone, kNone},
    {78, "BLDA", 0, "sim/cockpit/pressure/bleed_air_mode", kSame, kNone, kNone},
    {79, "XPDM", 0, "sim/cockpit/radios/transponder_mode", kSame, kNone, kNone},
    {80, "NAVM", 0, "sim/cockpit/radios/nav_com_adf_mode", kSame, kNone, kNone},
    {81, "HSIS", 0, "sim/cockpit/switches/HSI_selector", kSame, kNone, kNone},
    {113, "NDM ", 0, "sim/cockpit/switches/EFIS_map_mode", kSame, kNone, kNone},
    {114, "NDSM", 0, "sim/cockpit/switches/EFIS_map_submode", kSame, kNone, kNone},
    {115, "NDRG", 7, "sim/cockpit/switches/EFIS_map_range_selector", kSame, kNone, kNone},
    {173, "FUEL", 1, "sim/cockpit/engine/fuel_tank_selector", kSame, kNone, kNone},
    {174, "FT F", 1, "sim/cockpit/engine/fuel_tank_transfer_from", kSame, kNone, kNone},
    {175, "FT T", 1, "sim/cockpit/engine/fuel_tank_transfer", kSame, kNone, kNone},
    {427, "ELVT", 12, "sim/flightmodel/controls/elv_trim", kSame, kNone, kNone},
    {430, "AILT", 12, "sim/flightmodel/controls/ail_trim", kSame, kNone, kNone},
    {433, "RURT", 12, "sim/flightmodel/controls/rud_trim", kSame, kNone, kNone},
    {436, "RORT", 12, "sim/flightmodel/controls/rot_trim", kSame, kNone, kNone},
    {439, "ABRK", 0, "sim/cockpit/switches/auto_brake_settings", kSame, kNone, kNone},
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

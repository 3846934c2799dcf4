#include "modules/AssignmentKeys.h"

#include <charconv>
#include <cstring>

namespace drav {

namespace {

constexpr AssignmentKeyGroup CharacterKeys(const char* characters, const char* const* defaults,
                                           AssignmentTarget target) {
  return {"Function", characters, 0, 0, 0, defaults, nullptr, target};
}

constexpr AssignmentKeyGroup NumberedKeys(const char* prefix, int firstNumber, int count,
                                          int controlOffset, const char* const* defaults,
                                          AssignmentTarget target) {
  return {prefix, nullptr, firstNumber, count, controlOffset, defaults, nullptr, target};
}

// Controls numbered from 0 while their keys count from 1.
constexpr int kKeyNumberMinusOne = -1;
constexpr int kKeyNumberItself = 0;

bool InGroup(const AssignmentKeyGroup& group, int index) { return index >= 0 && index < KeyCount(group); }

// ---- default values ------------------------------------------------------------------------------

const char* const kLGTDefaults[] = {"ELEV_TRIM", "LANDING_GEAR", "FLAPS_UP_DOWN"};

const char* const kLGT2Defaults[] = {"AILERON_TRIM",  "ELEV_TRIM",      "RUDDER_TRIM",   "LANDING_GEAR",
                                     "FLAPS_UP_DOWN", "FUEL_FEED_LEFT", "FUEL_FEED_ALL", "FUEL_FEED_RIGHT"};

const char* const kMCPButtonDefaults[] = {"AP_LNAV",         "AP_HDG_HOLD",    "AP_AUTOTHROTTLE",
                                          "AP_IAS_MACH_SEL", "AP_ALT_HOLD",    "AP_APPR_HOLD",
                                          "AP_BC_HOLD",      "AP_MASTER",      "AP_DISENGAGE"};
const char* const kMCPKnobDefaults[] = {"AP_NAV_COURSE_ADJ", "AP_HEADING_ADJ", "AP_SPEED_ADJ",
                                        "AP_VERT_SPEED_ADJ", "AP_ALTITUDE_ADJ"};

// Function01..Function24 with and without the x737's own autopilot.
const char* const kMCPProButtonDefaultsX737[] = {
    "AP_VNAV",     "AP_LNAV",      "AP_CMD_A",    "AP_CMD_B",      "AP_AUTOTHROTTLE", "AP_IAS_MACH_SEL",
    "AP_SPDINV",   "AP_VORLOC",    "AP_ALTINV",   "NADA",          "NADA",            "NADA",
    "NADA",        "NADA",         "AP_FLIGHT_DIR", "AP_THRUST_N1", "AP_IAS_HOLD",   "AP_FLCH",
    "AP_HDG_HOLD", "AP_APPR_HOLD", "AP_ALT_HOLD", "AP_VS_HOLD",    "AP_DISENGAGE",    "AP_RIGHT_FLIGHT_DIR"};
const char* const kMCPProButtonDefaults[] = {
    "AP_VNAV",     "AP_LNAV",      "AP_MASTER",   "AP_MASTER",     "AP_AUTOTHROTTLE", "AP_IAS_MACH_SEL",
    "NADA",        "AP_LNAV",      "NADA",        "NADA",          "NADA",            "NADA",
    "NADA",        "MCPPRO_ALT_KNOB", "AP_FLIGHT_DIR", "NADA",     "AP_IAS_HOLD",     "AP_FLCH",
    "AP_HDG_HOLD", "AP_APPR_HOLD", "AP_ALT_HOLD", "AP_VS_HOLD",    "AP_DISENGAGE",    "AP_FLIGHT_DIR"};
// Function25..Function30.
const char* const kMCPProKnobDefaultsX737[] = {"OBS1",           "AP_SPEED_ADJ",      "AP_HEADING_ADJ",
                                               "AP_ALTITUDE_ADJ", "AP_VERT_SPEED_ADJ", "OBS2"};
const char* const kMCPProKnobDefaults[] = {"AP_NAV_COURSE_ADJ", "AP_SPEED_ADJ",      "AP_HEADING_ADJ",
                                           "AP_ALTITUDE_ADJ",   "AP_VERT_SPEED_ADJ", "AP_NAV_COURSE_ADJ"};

const char* const kEFISButtonDefaults[] = {
    "",                   "EFIS_SYM_NDB",       "EFIS_SYM_VOR",       "EFIS_SYM_ARPT",
    "EFIS_SYM_WPT",       "EFIS_SYM_TCAS",      "EFIS_SYM_WXR",       "NADA",
    "EFIS_ADF_SEL1",      "EFIS_VOR_SEL1",      "EFIS_ADF_SEL2",      "EFIS_VOR_SEL2",
    "NADA",               "NADA",               "ALTIMETER_SET_STD",  "METRIC_PRESSURE",
    "EFIS_ND_MODE_APP",   "EFIS_ND_MODE_VOR",   "EFIS_ND_MODE_MAP",   "EFIS_ND_MODE_PLAN",
    "EFIS_ND_RANGE_10NM", "EFIS_ND_RANGE_20NM", "EFIS_ND_RANGE_40NM", "EFIS_ND_RANGE_80NM",
    "EFIS_ND_RANGE_160NM", "EFIS_ND_RANGE_320NM", "EFIS_ND_RANGE_640NM"};
const char* const kEFISKnobDefaults[] = {"DECISION_HEIGHT", "ALTIMETER"};

const char* const kSECMDefaults[] = {
    "BATTERY_MASTER",      "ALTERNATOR_MASTER",    "AVIONICS_MASTER",       "FUEL_PUMP",
    "CARB_HEAT",           "PITOT_HEAT",           "PANEL_LTS",             "BEACON_LTS",
    "NAV_LTS",             "STROBE_LTS",           "TAXI_LTS",              "LANDING_LTS",
    "ENG_ALL_COWL_FLAPS",  "LANDING_GEAR",         "ENG_ALL_MAGNETO_OFF",   "ENG_ALL_MAGNETO_LEFT",
    "ENG_ALL_MAGNETO_RIGHT", "ENG_ALL_MAGNETO",    "ENG_ALL_START",         "FLAPS_UP_DOWN"};

const char* const kMESMDefaults[] = {"ENG_1_START",          "NADA",          "ENG_1_AUTO_IGNITE_ON",
                                     "ENG_1_IGNITER",        "ENG_ALL_MAGNETO_LEFT", "ENG_ALL_MAGNETO",
                                     "ENG_ALL_MAGNETO_RIGHT", "ENG_2_START",   "NADA",
                                     "ENG_2_AUTO_IGNITE_ON", "ENG_2_IGNITER"};

template <std::size_t N>
constexpr int Count(const char* const (&)[N]) {
  return static_cast<int>(N);
}

// ---- the MCPPro's two variants -------------------------------------------------------------------

constinit const AssignmentKeyGroup kMCPProButtonKeys = NumberedKeys(
    "Function", 1, Count(kMCPProButtonDefaults), kKeyNumberMinusOne, kMCPProButtonDefaults,
    AssignmentTarget::kRadioTested);
constinit const AssignmentKeyGroup kMCPProButtonKeysX737 = NumberedKeys(
    "Function", 1, Count(kMCPProButtonDefaultsX737), kKeyNumberMinusOne, kMCPProButtonDefaultsX737,
    AssignmentTarget::kRadioTested);
constinit const AssignmentKeyGroup kMCPProKnobKeys = NumberedKeys(
    "Function", 25, Count(kMCPProKnobDefaults), kKeyNumberItself, kMCPProKnobDefaults, AssignmentTarget::kNone);
constinit const AssignmentKeyGroup kMCPProKnobKeysX737 = NumberedKeys(
    "Function", 25, Count(kMCPProKnobDefaultsX737), kKeyNumberItself, kMCPProKnobDefaultsX737,
    AssignmentTarget::kNone);

static_assert(Count(kMCPProButtonDefaults) == 24 && Count(kMCPProButtonDefaultsX737) == 24);
static_assert(Count(kMCPProKnobDefaults) == 6 && Count(kMCPProKnobDefaultsX737) == 6);
static_assert(Count(kLGTDefaults) == 3 && Count(kLGT2Defaults) == 8);
static_assert(Count(kMCPButtonDefaults) == 9 && Count(kMCPKnobDefaults) == 5);
static_assert(Count(kEFISButtonDefaults) == 27 && Count(kSECMDefaults) == 20 && Count(kMESMDefaults) == 11);

}  // namespace

// ---- the groups ----------------------------------------------------------------------------------

constinit const AssignmentKeyGroup kRadioModeKeys = CharacterKeys("12345678", nullptr, AssignmentTarget::kNone);
constinit const AssignmentKeyGroup kGF166ButtonKeys = CharacterKeys("LR", nullptr, AssignmentTarget::kThisGF166);
constinit const AssignmentKeyGroup kGFP8Keys = CharacterKeys("12345678", nullptr, AssignmentTarget::kRadioTested);
constinit const AssignmentKeyGroup kGFRP48Keys = CharacterKeys("12345678ABCD", nullptr, AssignmentTarget::kRadioTested);

constinit const AssignmentKeyGroup kGFLGTKeys = CharacterKeys("WLS", kLGTDefaults, AssignmentTarget::kNone);
constinit const CalibrationKey kGFLGTWheelGain = {"WHEEL_GAIN", "1"};
constinit const AssignmentKeyGroup kGFLGT2Keys = CharacterKeys("GHIJKLMN", kLGT2Defaults, AssignmentTarget::kNone);
constinit const CalibrationKey kGFLGT2WheelGains[3] = {{"WHEEL1_GAIN", "1"}, {"WHEEL2_GAIN", "1"}, {"WHEEL3_GAIN", "1"}};

constinit const AssignmentKeyGroup kGFMCPButtonKeys =
    CharacterKeys("123456789", kMCPButtonDefaults, AssignmentTarget::kRadioTested);
constinit const AssignmentKeyGroup kGFMCPKnobKeys = CharacterKeys("ABCDE", kMCPKnobDefaults, AssignmentTarget::kNone);

constinit const AssignmentKeyGroup kGFTQ6LeverKeys = CharacterKeys("ABCDEF", nullptr, AssignmentTarget::kNone);
constinit const CalibrationKey kGFTQ6LeverCalibration[3] = {
    {"THROTTLE_REVERSE", "-1.0"}, {"THROTTLE_BETA", "-1.0"}, {"REVERSER_POWER", "1.0"}};
constinit const CalibrationKey kGFTQ6FlapNullZone = {"FLAP_NULL_ZONE", "1.0"};

const AssignmentKeyGroup& GFMCPProButtonKeys(int x737Mode) {
  return x737Mode == 1 ? kMCPProButtonKeysX737 : kMCPProButtonKeys;
}
const AssignmentKeyGroup& GFMCPProKnobKeys(int x737Mode) {
  return x737Mode == 1 ? kMCPProKnobKeysX737 : kMCPProKnobKeys;
}

constinit const AssignmentKeyGroup kGFEFISButtonKeys = NumberedKeys(
    "Function", 1, Count(kEFISButtonDefaults), kKeyNumberMinusOne, kEFISButtonDefaults,
    AssignmentTarget::kRadioTested);
constinit const AssignmentKeyGroup kGFEFISKnobKeys =
    NumberedKeys("Function", 28, Count(kEFISKnobDefaults), kKeyNumberItself, kEFISKnobDefaults, AssignmentTarget::kNone);

constinit const AssignmentKeyGroup kGFSECMKeys =
    NumberedKeys("Function", 1, Count(kSECMDefaults), kKeyNumberMinusOne, kSECMDefaults, AssignmentTarget::kRadioTested);
constinit const AssignmentKeyGroup kGFMESMKeys =
    NumberedKeys("Function", 1, Count(kMESMDefaults), kKeyNumberMinusOne, kMESMDefaults, AssignmentTarget::kRadioTested);

constinit const AssignmentKeyGroup kGFWCPKeys = CharacterKeys("123456", nullptr, AssignmentTarget::kRadioTested);
constinit const AssignmentKeyGroup kGFWCPColourKeys = {"Colour", "123456", 0, 0, 0, nullptr, "BLACK", AssignmentTarget::kNone};

constinit const AssignmentKeyGroup kGFDIOInputOnKeys =
    NumberedKeys("InputFunction", 1, 56, kKeyNumberItself, nullptr, AssignmentTarget::kRadioTested);
constinit const AssignmentKeyGroup kGFDIOInputOffKeys =
    NumberedKeys("InputOffStateFunction", 1, 56, kKeyNumberItself, nullptr, AssignmentTarget::kRadioTested);
constinit const AssignmentKeyGroup kGFDIOSwitchTypeKeys = {
    "InputSwitchTypeFunction", nullptr, 1, 56, kKeyNumberItself, nullptr, "0", AssignmentTarget::kNone};
constinit const AssignmentKeyGroup kGFDIOOutputKeys =
    NumberedKeys("OutputFunction", 1, 32, kKeyNumberItself, nullptr, AssignmentTarget::kRadioTested);

std::span<const AssignmentKeyGroup* const> AllFunctionKeyGroups() {
  static const AssignmentKeyGroup* const groups[] = {
      &kRadioModeKeys,    &kGF166ButtonKeys,      &kGFP8Keys,         &kGFRP48Keys,
      &kGFLGTKeys,        &kGFLGT2Keys,           &kGFMCPButtonKeys,  &kGFMCPKnobKeys,
      &kGFTQ6LeverKeys,   &kMCPProButtonKeys,     &kMCPProButtonKeysX737, &kMCPProKnobKeys,
      &kMCPProKnobKeysX737, &kGFEFISButtonKeys,   &kGFEFISKnobKeys,   &kGFSECMKeys,
      &kGFMESMKeys,       &kGFWCPKeys,            &kGFDIOInputOnKeys, &kGFDIOInputOffKeys,
      &kGFDIOOutputKeys};
  return groups;
}

// ---- keys of a group -----------------------------------------------------------------------------

int KeyCount(const AssignmentKeyGroup& group) {
  if (group.characters != nullptr) return static_cast<int>(std::strlen(group.characters));
  return group.count > 0 ? group.count : 0;
}

KeySpelling SpellKey(const AssignmentKeyGroup& group, int index) {
  KeySpelling key;
  if (!InGroup(group, index)) return key;
  char* const end = key.text.data() + key.text.size() - 1;  // the last stays the terminator
  char* at = key.text.data();
  for (const char* prefix = group.prefix; *prefix != '\0' && at < end; ++prefix) *at++ = *prefix;
  if (group.characters != nullptr) {
    if (at < end) *at = group.characters[index];
    return key;
  }
  // "%02d" (from 25 on the writer of the file used "%d"; for two-digit numbers that spells the
  // same), without printf.
  char digits[16];
  char* digitsEnd = std::to_chars(digits, digits + sizeof digits, group.firstNumber + index).ptr;
  if (digitsEnd - digits == 1 && at < end) *at++ = '0';
  for (const char* digit = digits; digit != digitsEnd && at < end; ++digit) *at++ = *digit;
  return key;
}

std::string KeyName(const AssignmentKeyGroup& group, int index) { return SpellKey(group, index).CString(); }

std::uint8_t KeyControl(const AssignmentKeyGroup& group, int index) {
  if (!InGroup(group, index)) return 0;
  if (group.characters != nullptr) return static_cast<std::uint8_t>(group.characters[index]);
  return static_cast<std::uint8_t>(group.firstNumber + index + group.controlOffset);
}

int KeyNumber(const AssignmentKeyGroup& group, int index) {
  if (!InGroup(group, index)) return 0;
  return group.characters != nullptr ? index + 1 : group.firstNumber + index;
}

const char* KeyDefault(const AssignmentKeyGroup& group, int index) {
  if (!InGroup(group, index)) return "";
  if (group.defaults != nullptr) return group.defaults[index];
  return group.commonDefault != nullptr ? group.commonDefault : "";
}

}  // namespace drav

// The configuration keys of every model's unit section, as data: how each key is spelt, which
// control byte it binds, its default value and whether its value may aim a control at a radio unit.
// The loader walks these groups; the calibration keys stand beside them.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>

namespace drav {

// Where the function of a key acts, before and after the value has been looked at.
enum class AssignmentTarget : std::uint8_t {
  kNone,          // (-1, -1); the value is not tested for a radio reference
  kRadioTested,   // (-1, -1) unless the value names a radio unit
  kThisGF166,     // (this unit, GF-166 kind) unless the value names another radio unit
};

// A run of keys of one kind. A group is spelt either by one character per key (`characters`, which
// are also the control bytes) or by consecutive numbers written with "%02d", whose control byte is
// the number plus `controlOffset`.
struct AssignmentKeyGroup {
  const char* prefix;      // "Function", "InputFunction", "Colour", ...
  const char* characters;  // "12345678", "WLS": one key per character; nullptr for numbered keys
  int firstNumber;         // numbered keys: the first number ...
  int count;               // ... and how many (for character keys: ignored, the string decides)
  int controlOffset;       // numbered keys: control byte = number + controlOffset
  const char* const* defaults;  // one per key, nullptr = every key defaults to commonDefault
  const char* commonDefault;    // nullptr = ""
  AssignmentTarget target;
};

// The number of keys in the group.
int KeyCount(const AssignmentKeyGroup& group);
// "Function1", "Function01", "InputOffStateFunction56"; "" for an index outside the group.
std::string KeyName(const AssignmentKeyGroup& group, int index);
// The same in a buffer of its own, for the loader, which spells several hundred keys a load.
struct KeySpelling {
  std::array<char, 64> text{};  // null-terminated; every group's prefix and number fit
  const char* CString() const { return text.data(); }
};
KeySpelling SpellKey(const AssignmentKeyGroup& group, int index);
// The byte that AssignFunction receives for the key; 0 for an index outside the group.
std::uint8_t KeyControl(const AssignmentKeyGroup& group, int index);
// The number of a numbered key (1-based, as written), or the position + 1 of a character key.
int KeyNumber(const AssignmentKeyGroup& group, int index);
// The key's default value; "" for an index outside the group.
const char* KeyDefault(const AssignmentKeyGroup& group, int index);

// A single number of a unit's section: a wheel gain or a lever calibration point.
struct CalibrationKey {
  const char* key;
  const char* defaultValue;
};

// ---- per model, in the order in which the loader reads them -------------------------------------

// GF-45, GF-46 and GF-166: Function1..Function8 are the eight modes (index = mode index).
extern const AssignmentKeyGroup kRadioModeKeys;
// GF-166: FunctionL and FunctionR, the two push buttons, aimed at this unit unless told otherwise.
extern const AssignmentKeyGroup kGF166ButtonKeys;
// GF-P8 and GF-T8: Function1..Function8.
extern const AssignmentKeyGroup kGFP8Keys;
// GF-RP48: Function1..Function8 (buttons), then FunctionA..FunctionD (knobs).
extern const AssignmentKeyGroup kGFRP48Keys;

// GF-LGT: wheel, lever, up/down switch; and its wheel gain.
extern const AssignmentKeyGroup kGFLGTKeys;
extern const CalibrationKey kGFLGTWheelGain;
// GF-LGT2: FunctionG..FunctionN; and its three wheel gains (aileron, elevator, rudder).
extern const AssignmentKeyGroup kGFLGT2Keys;
extern const CalibrationKey kGFLGT2WheelGains[3];
// GF-MCP: the nine buttons, then the five knobs A..E.
extern const AssignmentKeyGroup kGFMCPButtonKeys;
extern const AssignmentKeyGroup kGFMCPKnobKeys;
// GF-TQ6: the six levers, then the reverse point, beta point and reverser power, and the flap null
// zone.
extern const AssignmentKeyGroup kGFTQ6LeverKeys;
extern const CalibrationKey kGFTQ6LeverCalibration[3];
extern const CalibrationKey kGFTQ6FlapNullZone;
// GF-MCPPro: Function01..Function24 (controls 0..23) with defaults that depend on the x737 mode,
// then Function25..Function30 (controls 25..30).
const AssignmentKeyGroup& GFMCPProButtonKeys(int x737Mode);
const AssignmentKeyGroup& GFMCPProKnobKeys(int x737Mode);
// GF-EFIS: Function01..Function27 (controls 0..26), then Function28, Function29 (controls 28, 29).
extern const AssignmentKeyGroup kGFEFISButtonKeys;
extern const AssignmentKeyGroup kGFEFISKnobKeys;
// GF-SECM: Function01..Function20 (controls 0..19). GF-MESM: Function01..Function11 (0..10).
extern const AssignmentKeyGroup kGFSECMKeys;
extern const AssignmentKeyGroup kGFMESMKeys;
// GF-WCP: Function1..Function6, then the six button colours Colour1..Colour6.
extern const AssignmentKeyGroup kGFWCPKeys;
extern const AssignmentKeyGroup kGFWCPColourKeys;
// GF-DIO: the 56 inputs' on- and off-functions, their switch types and the 32 outputs
// (control byte = input or output number, 1-based).
extern const AssignmentKeyGroup kGFDIOInputOnKeys;
extern const AssignmentKeyGroup kGFDIOInputOffKeys;
extern const AssignmentKeyGroup kGFDIOSwitchTypeKeys;
extern const AssignmentKeyGroup kGFDIOOutputKeys;

// Every group above whose values are function names (each MCPPro variant once): not the colours
// and switch types.
std::span<const AssignmentKeyGroup* const> AllFunctionKeyGroups();

}  // namespace drav

// What a stored value means: a function name (possibly aimed at a radio unit), a wheel gain, a lever
// calibration point, a colour name or a switch-type name.
#pragma once

#include <cstdint>

#include "modules/AssignmentKeys.h"
#include "functions/FunctionCatalogue.h"

namespace drav {

// The radio unit a control acts on: CreateFunction's unit and moduleKind arguments.
struct AssignmentTargetUnit {
  std::int32_t unit = -1;  // 0-based
  std::int32_t kind = -1;  // 0 GF-45, 1 GF-46, 2 GF-166; -1 none
};

inline constexpr std::int32_t kTargetKindGF45 = 0;
inline constexpr std::int32_t kTargetKindGF46 = 1;
inline constexpr std::int32_t kTargetKindGF166 = 2;

// A value resolved into what AssignFunction receives.
struct ResolvedAssignment {
  FunctionId functionId = kNada;
  AssignmentTargetUnit target;
};

// The catalogue's lookup: exact name, or an avionic suffix anywhere in the value; 0 for nothing
// (the empty value and nullptr included).
FunctionId ResolveFunctionId(const char* value);

// True when the value names a radio unit ("GF45_", "GF46_" or "GF166_" anywhere in it); *out then
// gets the kind and the unit read from the fixed position after the prefix as it stands at the
// start of the value ("GF46_2_FUNC_..." -> unit 1), counted from 1 there. A unit that does not exist
// is kept as written. *out is left alone when the value names no radio.
bool FindRadioReference(const char* value, AssignmentTargetUnit* out);

// The function id and its target for a key of `target` kind, `thisUnit` being the loading unit. A
// value in the custom syntax (CustomBindingSyntax.h) gets its own id, or 0 when it is malformed.
ResolvedAssignment ResolveAssignment(const char* value, AssignmentTarget target, std::int32_t thisUnit);

// ---- calibration ---------------------------------------------------------------------------------

inline constexpr int kMinWheelGain = 1;
inline constexpr int kMaxWheelGain = 10;

// The leading integer, clamped to 1..10 (no number reads as 0, hence 1).
int ParseWheelGain(const char* value);
// The leading decimal number; no number reads as 0.
float ParseCalibrationReal(const char* value);

// ---- named values --------------------------------------------------------------------------------

inline constexpr int kColourCount = 8;
inline constexpr int kSwitchTypeCount = 4;

// "BLACK" 0 ... "CYAN" 7, compared exactly; anything else is 0.
int ParseColourName(const char* value);
// The name of a colour index; "" outside 0..7.
const char* ColourName(int colour);

// "BUTTON" 0, "SWITCH2WAY" 1, "SWITCH3WAY" 2, "SELECTOR" 3, compared exactly; anything else
// (the default "0" included) is 0.
int ParseSwitchTypeName(const char* value);
const char* SwitchTypeName(int switchType);

}  // namespace drav

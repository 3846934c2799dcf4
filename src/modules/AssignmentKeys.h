// The configuration keys of a unit's section, as data: how each key is spelt, which control byte it
// binds, its default value and whether its value may aim a control at a radio unit. The loader walks
// these groups; the calibration keys stand beside them. Every model's own groups stand in its
// <Model>_Module.cpp.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
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

// ---- building a model's groups ------------------------------------------------------------------
// Each model spells its own groups in its <Model>_Module.cpp, constant-initialised, and lists those
// whose values are function names in its descriptor.

// Controls numbered from 0 while their keys count from 1, or numbered as their keys.
inline constexpr int kKeyNumberMinusOne = -1;
inline constexpr int kKeyNumberItself = 0;

// "Function" + one character per key, the character also being the control byte.
constexpr AssignmentKeyGroup CharacterKeys(const char* characters, const char* const* defaults,
                                           AssignmentTarget target) {
  return {"Function", characters, 0, 0, 0, defaults, nullptr, target};
}

constexpr AssignmentKeyGroup NumberedKeys(const char* prefix, int firstNumber, int count, int controlOffset,
                                          const char* const* defaults, AssignmentTarget target) {
  return {prefix, nullptr, firstNumber, count, controlOffset, defaults, nullptr, target};
}

// As many numbered keys as the defaults name.
template <std::size_t N>
constexpr AssignmentKeyGroup NumberedKeys(const char* prefix, int firstNumber, int controlOffset,
                                          const char* const (&defaults)[N], AssignmentTarget target) {
  return NumberedKeys(prefix, firstNumber, static_cast<int>(N), controlOffset, defaults, target);
}

}  // namespace drav

#include "config/AssignmentValues.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string_view>
#include <vector>

#include "base/IniFile.h"
#include "functions/CustomBindingSyntax.h"
#include "functions/CustomBindings.h"

namespace drav {

namespace {

struct RadioPrefix {
  const char* text;
  std::size_t numberPosition;  // where the unit number stands, counted from the start of the value
  std::int32_t kind;
};

// Tested in this order: a value holding more than one prefix takes the first row that matches.
constexpr RadioPrefix kRadioPrefixes[] = {
    {"GF45_", 5, kTargetKindGF45},
    {"GF46_", 5, kTargetKindGF46},
    {"GF166_", 6, kTargetKindGF166},
};
// What every prefix starts with: a value without it is let go after one search.
constexpr std::string_view kRadioPrefixHead = "GF";
static_assert(std::ranges::all_of(kRadioPrefixes,
                                  [](const RadioPrefix& prefix) { return std::string_view(prefix.text).starts_with(kRadioPrefixHead); }));

constexpr const char* kColourNames[kColourCount] = {"BLACK", "WHITE",   "RED",    "GREEN",
                                                    "BLUE",  "MAGENTA", "YELLOW", "CYAN"};
constexpr const char* kSwitchTypeNames[kSwitchTypeCount] = {"BUTTON", "SWITCH2WAY", "SWITCH3WAY", "SELECTOR"};

template <std::size_t N>
int IndexOfName(const char* const (&names)[N], const char* value) {
  if (value == nullptr) return 0;
  for (std::size_t i = 0; i < N; ++i) {
    if (std::strcmp(names[i], value) == 0) return static_cast<int>(i);
  }
  return 0;
}

template <std::size_t N>
const char* NameOfIndex(const char* const (&names)[N], int index) {
  return index >= 0 && static_cast<std::size_t>(index) < N ? names[index] : "";
}

// The unit number written after the prefix, counted from 1, as a 0-based unit. The prefix was found
// somewhere in the value, so the value is at least as long as the prefix and the position lies
// within it or on its terminator. A saturated parse must not overflow when made 0-based.
std::int32_t UnitAt(const char* value, std::size_t position) {
  if (std::strlen(value) < position) return -1;
  const std::int64_t written = ParseIniInt(value + position);
  return static_cast<std::int32_t>(std::max<std::int64_t>(written - 1, std::numeric_limits<std::int32_t>::min()));
}

// The catalogue's lookup compares a value with each of its 640 rows; a load resolves hundreds of
// values. A value that holds none of the avionic suffixes can only match a name exactly, which one
// hash look-up answers (the first row of a name winning, as in the catalogue's order). The
// suffixes all share a head; a value without that head holds none of them.
class FunctionNames {
 public:
  FunctionNames() {
    std::size_t names = 0;
    for (FunctionId id = 0; id < kFunctionCount; ++id) names += GetCatalogueEntry(id) != nullptr ? 1 : 0;
    std::size_t size = 1;
    while (size < 2 * names + 1) size *= 2;  // at most half full: a probe or two per look-up
    slots_.resize(size);
    for (FunctionId id = 0; id < kFunctionCount; ++id) {
      const FunctionCatalogueEntry* entry = GetCatalogueEntry(id);
      if (entry == nullptr) continue;
      if (entry->name != nullptr) Insert(entry->name, entry->id);
      if (entry->iniSuffix != nullptr && std::string_view(entry->iniSuffix).substr(0, kSuffixHead.size()) != kSuffixHead) {
        suffixesShareHead_ = false;
      }
    }
  }

  FunctionId Find(const char* value) const {
    if (value == nullptr || !suffixesShareHead_ || std::strstr(value, kSuffixHead.data()) != nullptr) {
      return FindFunctionId(value);
    }
    // The value's length and hash in one pass.
    std::uint64_t hash = kHashStart;
    const char* end = value;
    for (; *end != '\0'; ++end) hash = Mix(hash, *end);
    const std::string_view name(value, static_cast<std::size_t>(end - value));
    for (std::size_t at = hash & Mask(); slots_[at].name.data() != nullptr; at = (at + 1) & Mask()) {
      if (slots_[at].name == name) return slots_[at].id;
    }
    return kNada;
  }

 private:
  // Open addressing with FNV-1a: a load resolves hundreds of values, each in a single pass over
  // its characters and, mostly, one comparison.
  struct Slot {
    std::string_view name;  // a null data pointer: empty
    FunctionId id = kNada;
  };
  static constexpr std::uint64_t kHashStart = 14695981039346656037ull;
  static std::uint64_t Mix(std::uint64_t hash, char c) {
    return (hash ^ static_cast<unsigned char>(c)) * 1099511628211ull;
  }
  std::size_t Mask() const { return slots_.size() - 1; }

  // The first row of a name wins, as in the catalogue's order.
  void Insert(std::string_view name, FunctionId id) {
    std::uint64_t hash = kHashStart;
    for (char c : name) hash = Mix(hash, c);
    std::size_t at = hash & Mask();
    for (; slots_[at].name.data() != nullptr; at = (at + 1) & Mask()) {
      if (slots_[at].name == name) return;
    }
    slots_[at] = {name, id};
  }

  static constexpr std::string_view kSuffixHead = "_FUNC_";
  std::vector<Slot> slots_;
  bool suffixesShareHead_ = true;
};

}  // namespace

FunctionId ResolveFunctionId(const char* value) {
  static const FunctionNames names;  // the catalogue is constant: made once, never changed
  return names.Find(value);
}

bool FindRadioReference(const char* value, AssignmentTargetUnit* out) {
  if (value == nullptr || std::strstr(value, kRadioPrefixHead.data()) == nullptr) return false;
  for (const RadioPrefix& prefix : kRadioPrefixes) {
    if (std::strstr(value, prefix.text) == nullptr) continue;
    if (out != nullptr) *out = {UnitAt(value, prefix.numberPosition), prefix.kind};
    return true;
  }
  return false;
}

ResolvedAssignment ResolveAssignment(const char* value, AssignmentTarget target, std::int32_t thisUnit) {
  ResolvedAssignment resolved;
  // A command or dataref named in the value itself: never a catalogue name, never aimed at a radio.
  if (IsCustomBindingValue(value)) {
    resolved.functionId = InternCustomBinding(value);
    return resolved;
  }
  resolved.functionId = ResolveFunctionId(value);
  switch (target) {
    case AssignmentTarget::kNone:
      return resolved;
    case AssignmentTarget::kThisGF166:
      resolved.target = {thisUnit, kTargetKindGF166};
      break;
    case AssignmentTarget::kRadioTested:
      break;
  }
  FindRadioReference(value, &resolved.target);
  return resolved;
}

int ParseWheelGain(const char* value) { return std::clamp(ParseIniInt(value), kMinWheelGain, kMaxWheelGain); }

float ParseCalibrationReal(const char* value) { return ParseIniReal(value); }

int ParseColourName(const char* value) { return IndexOfName(kColourNames, value); }
const char* ColourName(int colour) { return NameOfIndex(kColourNames, colour); }

int ParseSwitchTypeName(const char* value) { return IndexOfName(kSwitchTypeNames, value); }
const char* SwitchTypeName(int switchType) { return NameOfIndex(kSwitchTypeNames, switchType); }

}  // namespace drav

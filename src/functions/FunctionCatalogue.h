// The named functions: the one fixed table relating the names stored in DRAV.INI to the numeric
// function ids used everywhere else, and the group of each. The table itself is FunctionList.inc;
// this header turns it into the id names (kFnCOM1_DUAL ...) and the group column.
#pragma once

#include <cstdint>
#include <iterator>

namespace drav {

using FunctionId = std::int32_t;

// The id of every catalogue function, by its DRAV.INI name: kFnNADA is 0, kFnADF1_ACTIVE 1, ...
enum FunctionName : FunctionId {
#define DRAV_FUNCTION(name, group) kFn##name,
#include "functions/FunctionList.inc"
#undef DRAV_FUNCTION
};

enum class FunctionGroup : std::uint8_t {
  kNothing,  // NADA, and any id outside the catalogue
  kAvionic,  // display and encoder functions; only they can be named through an INI suffix
  kBound,    // MAX_AVIONIC and MAX_SUBSYSTEM: names that load, but bind nothing
  kSwitch,
  kLever,    // throttle-quadrant levers
};

// The group column, by id.
inline constexpr FunctionGroup kFunctionGroups[] = {
#define DRAV_FUNCTION(name, group) FunctionGroup::k##group,
#include "functions/FunctionList.inc"
#undef DRAV_FUNCTION
};

inline constexpr FunctionId kFunctionCount = static_cast<FunctionId>(std::size(kFunctionGroups));
inline constexpr FunctionId kNada = kFnNADA;  // no function

struct FunctionCatalogueEntry {
  const char* name;
  const char* iniSuffix;  // "_FUNC_" + name for the avionic functions, else nullptr
  FunctionId id;
  FunctionGroup group;
};

// The entry of an id, or nullptr outside the catalogue.
const FunctionCatalogueEntry* GetCatalogueEntry(FunctionId id);
// The name of an id; "" outside the catalogue.
const char* GetFunctionName(FunctionId id);
// First match in id order: the name equal to text, or an avionic suffix contained in text; else 0.
FunctionId FindFunctionId(const char* text);

inline constexpr FunctionGroup GetFunctionGroup(FunctionId id) {
  return id < 0 || id >= kFunctionCount ? FunctionGroup::kNothing : kFunctionGroups[id];
}
inline constexpr bool IsAvionicFunction(FunctionId id) { return GetFunctionGroup(id) == FunctionGroup::kAvionic; }
inline constexpr bool IsSwitchFunction(FunctionId id) { return GetFunctionGroup(id) == FunctionGroup::kSwitch; }
inline constexpr bool IsLeverFunction(FunctionId id) { return GetFunctionGroup(id) == FunctionGroup::kLever; }

}  // namespace drav

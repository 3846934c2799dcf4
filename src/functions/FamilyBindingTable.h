// The switch functions defined by family: one row gives a block of ids whose member n switches
// element n-1 of one array dataref, and whose ALL member (engine families) switches a range.
#pragma once

#include <cstdint>
#include <span>

#include "functions/FunctionCatalogue.h"
#include "functions/SwitchBindingTable.h"

namespace drav {

// How the ids of a family are numbered.
enum class FamilyScheme : std::int32_t {
  kEngines,        // 9 ids: engines 1 to 8, then ALL
  kFourEngines,    // 4 ids: engines 1 to 4 (the GF-WCP's annunciators)
  kLandingLights,  // 16 ids: switches 01 to 16
  kFuelTanks,      // 9 ids: tanks 1 to 9
};

struct FamilyBindingRow {
  // The families that share this definition (first id of each; unused entries 0).
  FunctionId firstIds[3];
  FamilyScheme scheme;
  // Members 1..numberedMembers have an object; the higher ones do nothing.
  std::int32_t numberedMembers;
  // The ALL member's range; allCount 0 = the ALL member has no object here (none, or another
  // table defines it).
  std::int32_t allOffset;
  std::int32_t allCount;
  const char* path;
  std::int32_t valueType;  // DatarefValueType, an array type
  float onValue;
  float offValue;
};

std::span<const FamilyBindingRow> FamilyBindingRows();

// The autopilot state functions: one int dataref each, from AP_STATE_AUTO_THROTTLE_ENGAGE on.
inline constexpr FunctionId kFirstAutopilotState = kFnAP_STATE_AUTO_THROTTLE_ENGAGE;
std::span<const char* const> AutopilotStatePaths();

// The member binding of id, by family or as an autopilot state function. False when id is in no
// family, or is a member without object.
bool FindFamilyBinding(FunctionId id, SwitchBinding& out);

}  // namespace drav

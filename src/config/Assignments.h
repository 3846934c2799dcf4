// Loading the function assignments of every panel unit from DRAV.INI into the module objects.
#pragma once

#include <cstdint>

namespace drav {

// Every unit of every type, in the fixed type order (radios first, the GF-DIO last).
void LoadAllAssignments();
// Every unit of one type; returns the unit count.
int LoadTypeAssignments(std::uint32_t moduleType);
// One unit; nothing when its module object does not exist. registerUnit false reloads the bindings
// without binding the object to its device again (the dialog does that for the GF-DIO).
void LoadUnitAssignments(std::uint32_t moduleType, std::uint32_t unit, bool registerUnit = true);

// The order in which LoadAllAssignments walks the types.
inline constexpr std::uint32_t kAssignmentLoadOrder[] = {1, 8, 5, 4, 11, 6, 3, 2, 7, 9, 12, 13, 14, 18, 17, 19};

}  // namespace drav

// Loading the function assignments of every panel unit from DRAV.INI into the module objects: a
// unit's section comes from the user's aircraft's DRAV.INI when that file holds it, else from the
// plug-in's own (AircraftProfile.h). Main thread only. Loading never writes a file: a missing key
// simply yields its default.
#pragma once

#include <cstdint>
#include <string>

#include "modules/AssignmentKeys.h"
#include "config/AssignmentValues.h"

namespace drav {

class ModuleManager;

// Every unit of every type, in the fixed type order (radios first, the GF-DIO last), for the
// aircraft X-Plane reports now.
void LoadAllAssignments();
// Every unit of one type; returns the unit count. registerUnit as for LoadUnitAssignments.
int LoadTypeAssignments(std::uint32_t moduleType, bool registerUnit = true);
// One unit, from the aircraft the last full load (or aircraft load) found; nothing when its module
// object does not exist. registerUnit false reloads the bindings
// without binding the object to its device again (the dialog does that for the GF-DIO; the other
// models always register).
void LoadUnitAssignments(std::uint32_t moduleType, std::uint32_t unit, bool registerUnit = true);

// LoadAllAssignments walks the types in kAssignmentLoadOrder (ModuleRegistry.h).

// True when LoadUnitAssignments knows how to load the type (its model class has arrived).
bool HasAssignmentLoader(std::uint32_t moduleType);

// The modules that loading binds: the plug-in's own manager, or a test's (nullptr restores the
// plug-in's own). A fresh plug-in start binds its own.
void SetAssignmentModuleManager(ModuleManager* manager);

// ---- reading one assignment ----------------------------------------------------------------------

// The unit's section: the type's section format with the unit counted from 1 ("GF46_2").
std::string AssignmentSection(std::uint32_t moduleType, std::uint32_t unit);
// The stored value of a key in the section's profile file, else the default (each read traces when asked to).
std::string ReadAssignmentValue(const std::string& section, const std::string& key, const char* defaultValue);
// Key `index` of `group` read from the section and resolved; thisUnit is the loading unit.
ResolvedAssignment ReadAssignment(const std::string& section, const AssignmentKeyGroup& group, int index,
                                  std::int32_t thisUnit);
// The calibration numbers of a section, defaults applied.
int ReadWheelGain(const std::string& section, const CalibrationKey& key);
float ReadCalibrationReal(const std::string& section, const CalibrationKey& key);

}  // namespace drav

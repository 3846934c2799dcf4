// Per-aircraft profiles: a DRAV.INI in the folder of the user's aircraft supplies the unit sections
// it holds, the plug-in's own DRAV.INI the rest. DEBUG and CONFIG are read from the plug-in's file
// only (they never ask here). Main thread only.
#pragma once

#include <optional>
#include <string>

#include "base/IniFile.h"

namespace drav {

enum class ProfileFile { kAllAircraft, kThisAircraft };

// What the profiles keep between calls, from one plug-in start to its stop (ConfigState).
struct AircraftProfileState {
  // The aircraft's DRAV.INI, empty while X-Plane reports no aircraft.
  std::string path;
  // A load reads a unit's keys one section after another: the last section's answer is kept until
  // the outermost load ends or a file is written.
  struct SectionMemo {
    int loads = 0;
    bool known = false;
    unsigned writes = 0;  // IniWriteCount when it was learnt
    std::string section;
    ProfileFile file = ProfileFile::kAllAircraft;
  };
  SectionMemo memo;
};

// Asks X-Plane which aircraft is the user's (XPLMGetNthAircraftModel(0)) and remembers its
// folder's DRAV.INI. Called when an aircraft loads and before every full load.
void RefreshAircraftProfile();
// The aircraft's DRAV.INI; empty while X-Plane reports no aircraft.
const std::string& AircraftProfilePath();

// The file holding the section's assignments: this aircraft's when a line of it opens the section.
ProfileFile SectionProfile(const std::string& section);
// That file's full path (the aircraft's is empty while there is no aircraft).
std::string ProfilePath(ProfileFile file);

// The stored value of the section's key, from the file SectionProfile names, else the default.
std::string ReadProfileValue(const std::string& section, const std::string& key, const char* defaultValue);
// The same into `outValue`, which holds kIniValueSize characters: a load reads hundreds of keys.
void ReadProfileValueInto(const std::string& section, const char* key, const char* defaultValue, char* outValue);

// Both files indexed while it lives (see IniReadSnapshot).
class ProfileReadSnapshot {
 public:
  ProfileReadSnapshot();
  ~ProfileReadSnapshot();
  ProfileReadSnapshot(const ProfileReadSnapshot&) = delete;
  ProfileReadSnapshot& operator=(const ProfileReadSnapshot&) = delete;

 private:
  std::optional<IniReadSnapshot> global_;
  std::optional<IniReadSnapshot> aircraft_;
};

}  // namespace drav

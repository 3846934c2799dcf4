#include "config/AircraftProfile.h"

#include <XPLMPlanes.h>

#include <string_view>

#include "config/ConfigState.h"

namespace drav {
namespace {

// The SDK's buffers for XPLMGetNthAircraftModel.
constexpr std::size_t kAircraftFileNameSize = 256;
constexpr std::size_t kAircraftPathSize = 512;

AircraftProfileState& State() { return CurrentConfigState().profile; }

// Windows', macOS's classic and every other system's.
bool IsSeparator(char c) { return c == '\\' || c == ':' || c == '/'; }

}  // namespace

void RefreshAircraftProfile() {
  char fileName[kAircraftFileNameSize] = {};
  char path[kAircraftPathSize] = {};
  XPLMGetNthAircraftModel(0, fileName, path);
  fileName[sizeof fileName - 1] = '\0';
  path[sizeof path - 1] = '\0';
  // The path ends in the file's name after a separator of whichever kind X-Plane writes paths
  // with: cutting the name off leaves the folder, separator included. A path without a folder
  // before the name names nothing to look in.
  const std::string_view aircraft(path);
  const std::string_view name(fileName);
  const bool inFolder = !name.empty() && aircraft.size() > name.size() && aircraft.ends_with(name) &&
                        IsSeparator(aircraft[aircraft.size() - name.size() - 1]);
  State().path = inFolder ? std::string(aircraft.substr(0, aircraft.size() - name.size())) + kConfigFileName
                           : std::string();
}

const std::string& AircraftProfilePath() { return State().path; }

ProfileFile SectionProfile(const std::string& section) {
  AircraftProfileState& profile = State();
  if (profile.path.empty()) return ProfileFile::kAllAircraft;
  AircraftProfileState::SectionMemo& memo = profile.memo;
  if (memo.loads > 0 && memo.known && memo.writes == IniWriteCount() && memo.section == section) return memo.file;
  const ProfileFile file =
      IniHasSection(profile.path, section.c_str()) ? ProfileFile::kThisAircraft : ProfileFile::kAllAircraft;
  if (memo.loads > 0) memo = AircraftProfileState::SectionMemo{memo.loads, true, IniWriteCount(), section, file};
  return file;
}

std::string ProfilePath(ProfileFile file) {
  return file == ProfileFile::kThisAircraft ? State().path : PluginFilePath(kConfigFileName);
}

void ReadProfileValueInto(const std::string& section, const char* key, const char* defaultValue, char* outValue) {
  const char* fallback = defaultValue != nullptr ? defaultValue : "";
  if (SectionProfile(section) == ProfileFile::kThisAircraft) {
    const std::string& path = State().path;
    ReadIniValueTraced(path, path.c_str(), section.c_str(), key, outValue, fallback);
  } else {
    ReadIniValue(kConfigFileName, section.c_str(), key, outValue, fallback);
  }
}

std::string ReadProfileValue(const std::string& section, const std::string& key, const char* defaultValue) {
  char value[kIniValueSize];
  ReadProfileValueInto(section, key.c_str(), defaultValue, value);
  return value;
}

// The outermost one takes both indexes; the nested ones (a load opens one per type and per unit)
// only count.
ProfileReadSnapshot::ProfileReadSnapshot() {
  AircraftProfileState& profile = State();
  if (profile.memo.loads++ > 0) return;
  global_.emplace(kConfigFileName);
  if (!profile.path.empty()) aircraft_.emplace(IniPath{profile.path});
}

ProfileReadSnapshot::~ProfileReadSnapshot() {
  if (--State().memo.loads == 0) State().memo.known = false;
}

}  // namespace drav

#include "config/AircraftProfile.h"

#include <XPLMPlanes.h>

#include <string_view>

namespace drav {
namespace {

// The SDK's buffers for XPLMGetNthAircraftModel.
constexpr std::size_t kAircraftFileNameSize = 256;
constexpr std::size_t kAircraftPathSize = 512;

std::string gAircraftProfilePath;

// A load reads a unit's keys one section after another: the last section's answer is kept until
// the outermost load ends or a file is written.
struct SectionMemo {
  int loads = 0;
  bool known = false;
  unsigned writes = 0;  // IniWriteCount when it was learnt
  std::string section;
  ProfileFile file = ProfileFile::kAllAircraft;
};
SectionMemo gMemo;

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
  gAircraftProfilePath = inFolder ? std::string(aircraft.substr(0, aircraft.size() - name.size())) + kConfigFileName
                                  : std::string();
}

const std::string& AircraftProfilePath() { return gAircraftProfilePath; }

ProfileFile SectionProfile(const std::string& section) {
  if (gAircraftProfilePath.empty()) return ProfileFile::kAllAircraft;
  if (gMemo.loads > 0 && gMemo.known && gMemo.writes == IniWriteCount() && gMemo.section == section) {
    return gMemo.file;
  }
  const ProfileFile file =
      IniHasSection(gAircraftProfilePath, section.c_str()) ? ProfileFile::kThisAircraft : ProfileFile::kAllAircraft;
  if (gMemo.loads > 0) gMemo = SectionMemo{gMemo.loads, true, IniWriteCount(), section, file};
  return file;
}

std::string ProfilePath(ProfileFile file) {
  return file == ProfileFile::kThisAircraft ? gAircraftProfilePath : PluginFilePath(kConfigFileName);
}

void ReadProfileValueInto(const std::string& section, const char* key, const char* defaultValue, char* outValue) {
  const char* fallback = defaultValue != nullptr ? defaultValue : "";
  if (SectionProfile(section) == ProfileFile::kThisAircraft) {
    ReadIniValueTraced(gAircraftProfilePath, gAircraftProfilePath.c_str(), section.c_str(), key, outValue, fallback);
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
  if (gMemo.loads++ > 0) return;
  global_.emplace(kConfigFileName);
  if (!gAircraftProfilePath.empty()) aircraft_.emplace(IniPath{gAircraftProfilePath});
}

ProfileReadSnapshot::~ProfileReadSnapshot() {
  if (--gMemo.loads == 0) gMemo.known = false;
}

}  // namespace drav

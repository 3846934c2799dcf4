#include "config/AircraftProfile.h"

#include <XPLMPlanes.h>

#include <filesystem>

namespace drav {
namespace {

// The SDK's buffers for XPLMGetNthAircraftModel.
constexpr std::size_t kAircraftFileNameSize = 256;
constexpr std::size_t kAircraftPathSize = 512;

std::string gAircraftProfilePath;

}  // namespace

void RefreshAircraftProfile() {
  char fileName[kAircraftFileNameSize] = {};
  char path[kAircraftPathSize] = {};
  XPLMGetNthAircraftModel(0, fileName, path);
  path[sizeof path - 1] = '\0';
  const std::filesystem::path aircraft(path);
  // A bare name has no folder to look in: it would name a file beside X-Plane's working folder.
  gAircraftProfilePath = aircraft.has_parent_path() ? (aircraft.parent_path() / kConfigFileName).string() : std::string();
}

const std::string& AircraftProfilePath() { return gAircraftProfilePath; }

ProfileFile SectionProfile(const std::string& section) {
  if (gAircraftProfilePath.empty()) return ProfileFile::kAllAircraft;
  return IniHasSection(gAircraftProfilePath, section.c_str()) ? ProfileFile::kThisAircraft : ProfileFile::kAllAircraft;
}

std::string ProfilePath(ProfileFile file) {
  return file == ProfileFile::kThisAircraft ? gAircraftProfilePath : PluginFilePath(kConfigFileName);
}

std::string ReadProfileValue(const std::string& section, const std::string& key, const char* defaultValue) {
  char value[kIniValueSize];
  const char* fallback = defaultValue != nullptr ? defaultValue : "";
  if (SectionProfile(section) == ProfileFile::kThisAircraft) {
    ReadIniValueTraced(gAircraftProfilePath, gAircraftProfilePath.c_str(), section.c_str(), key.c_str(), value,
                       fallback);
  } else {
    ReadIniValue(kConfigFileName, section.c_str(), key.c_str(), value, fallback);
  }
  return value;
}

ProfileReadSnapshot::ProfileReadSnapshot() {
  if (!gAircraftProfilePath.empty()) aircraft_.emplace(IniPath{gAircraftProfilePath});
}

}  // namespace drav

// The DEBUG switches and the CONFIG settings, read from DRAV.INI at start and at a reload. Each read is a
// table row, so adding a setting is one line.
#include "base/Settings.h"

#include "base/BaseState.h"

#include "base/IniFile.h"

namespace drav {

DebugSwitches& CurrentDebugSwitches() { return CurrentBaseState().debug; }
GlobalSettings& CurrentSettings() { return CurrentBaseState().settings; }

namespace {

struct DebugSwitchRow {
  const char* key;
  int DebugSwitches::*field;
};

constexpr DebugSwitchRow kDebugSwitchRows[] = {
    {"DebugEnabled", &DebugSwitches::DebugEnabled},
    {"DebugViewEnabled", &DebugSwitches::DebugViewEnabled},
    {"DebugFunctionAssignments", &DebugSwitches::DebugFunctionAssignments},
    {"DebugDeviceInfo", &DebugSwitches::DebugDeviceInfo},
    {"DebugRegisterFunction", &DebugSwitches::DebugRegisterFunction},
    {"DebugGetButtonFunction", &DebugSwitches::DebugGetButtonFunction},
    {"DebugHandleInputFunction", &DebugSwitches::DebugHandleInputFunction},
    {"DebugSetDisplayFunction", &DebugSwitches::DebugSetDisplayFunction},
};

// One CONFIG setting: an int or a real field, whichever is set.
struct SettingRow {
  const char* key;
  const char* defaultValue;
  int GlobalSettings::*intField;
  float GlobalSettings::*realField;
};

constexpr SettingRow IntSetting(const char* key, const char* defaultValue,
                                int GlobalSettings::*field) {
  return {key, defaultValue, field, nullptr};
}
constexpr SettingRow RealSetting(const char* key, const char* defaultValue,
                                 float GlobalSettings::*field) {
  return {key, defaultValue, nullptr, field};
}

// In the order they are read (the read trace shows this order).
constexpr SettingRow kSettingRows[] = {
    IntSetting("GRP48ReverseFix", "0", &GlobalSettings::GRP48ReverseFix),
    IntSetting("RMK166EncoderType", "1", &GlobalSettings::RMK166EncoderType),
    IntSetting("ShowCustomDatarefs", "0", &GlobalSettings::ShowCustomDatarefs),
    IntSetting("GFLGT2AileronReverseFix", "0", &GlobalSettings::GFLGT2AileronReverseFix),
    IntSetting("GFLGT2ElevatorReverseFix", "0", &GlobalSettings::GFLGT2ElevatorReverseFix),
    IntSetting("GFLGT2RudderReverseFix", "0", &GlobalSettings::GFLGT2RudderReverseFix),
    IntSetting("GFLGT2LandingLightsReverseFix", "0",
               &GlobalSettings::GFLGT2LandingLightsReverseFix),
    RealSetting("ElevatorTrimIncrement", "0.005", &GlobalSettings::ElevatorTrimIncrement),
    RealSetting("AileronTrimIncrement", "0.001", &GlobalSettings::AileronTrimIncrement),
    RealSetting("RudderTrimIncrement", "0.001", &GlobalSettings::RudderTrimIncrement),
    RealSetting("RotorTrimIncrement", "0.001", &GlobalSettings::RotorTrimIncrement),
    IntSetting("GFTQ6UsePropMinimumOfZero", "0", &GlobalSettings::GFTQ6UsePropMinimumOfZero),
    IntSetting("GFTQ6UseSpeedBrakeArmed", "0", &GlobalSettings::GFTQ6UseSpeedBrakeArmed),
};

}  // namespace

void ReadDebugSwitches() {
  const IniReadSnapshot snapshot;  // one read of the file for every switch
  char value[kIniValueSize];
  for (const DebugSwitchRow& row : kDebugSwitchRows) {
    ReadIniValue(kConfigFileName, "DEBUG", row.key, value, "0");
    CurrentDebugSwitches().*row.field = ParseIniInt(value);
  }
}

void ReadGlobalSettings() {
  const IniReadSnapshot snapshot;
  char value[kIniValueSize];
  for (const SettingRow& row : kSettingRows) {
    ReadIniValue(kConfigFileName, "CONFIG", row.key, value, row.defaultValue);
    if (row.intField) CurrentSettings().*row.intField = ParseIniInt(value);
    if (row.realField) CurrentSettings().*row.realField = ParseIniReal(value);
  }
}

}  // namespace drav

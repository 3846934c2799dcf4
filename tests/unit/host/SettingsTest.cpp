// The DEBUG switches and CONFIG settings as read from DRAV.INI at start.
#include <gtest/gtest.h>

#include <string>

#include "../config/PluginFolderSupport.h"
#include "base/Settings.h"

namespace {

using drav::DebugSwitches;
using drav::GlobalSettings;

void ExpectSettingsEqual(const GlobalSettings& actual, const GlobalSettings& expected) {
  EXPECT_EQ(actual.GRP48ReverseFix, expected.GRP48ReverseFix);
  EXPECT_EQ(actual.RMK166EncoderType, expected.RMK166EncoderType);
  EXPECT_EQ(actual.ShowCustomDatarefs, expected.ShowCustomDatarefs);
  EXPECT_EQ(actual.GFLGT2AileronReverseFix, expected.GFLGT2AileronReverseFix);
  EXPECT_EQ(actual.GFLGT2ElevatorReverseFix, expected.GFLGT2ElevatorReverseFix);
  EXPECT_EQ(actual.GFLGT2RudderReverseFix, expected.GFLGT2RudderReverseFix);
  EXPECT_EQ(actual.GFLGT2LandingLightsReverseFix, expected.GFLGT2LandingLightsReverseFix);
  EXPECT_FLOAT_EQ(actual.ElevatorTrimIncrement, expected.ElevatorTrimIncrement);
  EXPECT_FLOAT_EQ(actual.AileronTrimIncrement, expected.AileronTrimIncrement);
  EXPECT_FLOAT_EQ(actual.RudderTrimIncrement, expected.RudderTrimIncrement);
  EXPECT_FLOAT_EQ(actual.RotorTrimIncrement, expected.RotorTrimIncrement);
  EXPECT_EQ(actual.GFTQ6UsePropMinimumOfZero, expected.GFTQ6UsePropMinimumOfZero);
  EXPECT_EQ(actual.GFTQ6UseSpeedBrakeArmed, expected.GFTQ6UseSpeedBrakeArmed);
}

void ExpectSwitchesEqual(const DebugSwitches& actual, const DebugSwitches& expected) {
  EXPECT_EQ(actual.DebugEnabled, expected.DebugEnabled);
  EXPECT_EQ(actual.DebugViewEnabled, expected.DebugViewEnabled);
  EXPECT_EQ(actual.DebugFunctionAssignments, expected.DebugFunctionAssignments);
  EXPECT_EQ(actual.DebugDeviceInfo, expected.DebugDeviceInfo);
  EXPECT_EQ(actual.DebugRegisterFunction, expected.DebugRegisterFunction);
  EXPECT_EQ(actual.DebugGetButtonFunction, expected.DebugGetButtonFunction);
  EXPECT_EQ(actual.DebugHandleInputFunction, expected.DebugHandleInputFunction);
  EXPECT_EQ(actual.DebugSetDisplayFunction, expected.DebugSetDisplayFunction);
}

// Every field away from its default, so that a read that leaves a field alone shows.
GlobalSettings ScrambledSettings() {
  GlobalSettings s;
  s.GRP48ReverseFix = s.ShowCustomDatarefs = s.GFLGT2AileronReverseFix = 77;
  s.GFLGT2ElevatorReverseFix = s.GFLGT2RudderReverseFix = s.GFLGT2LandingLightsReverseFix = 77;
  s.GFTQ6UsePropMinimumOfZero = s.GFTQ6UseSpeedBrakeArmed = s.RMK166EncoderType = 77;
  s.ElevatorTrimIncrement = s.AileronTrimIncrement = s.RudderTrimIncrement = 7.7f;
  s.RotorTrimIncrement = 7.7f;
  return s;
}

const char kAllDefaultsIni[] =
    "[DEBUG]\r\n"
    "DebugEnabled=0\r\n"
    "DebugViewEnabled=0\r\n"
    "DebugFunctionAssignments=0\r\n"
    "DebugDeviceInfo=0\r\n"
    "DebugRegisterFunction=0\r\n"
    "DebugGetButtonFunction=0\r\n"
    "DebugHandleInputFunction=0\r\n"
    "DebugSetDisplayFunction=0\r\n"
    "[CONFIG]\r\n"
    "GRP48ReverseFix=0\r\n"
    "RMK166EncoderType=1\r\n"
    "ShowCustomDatarefs=0\r\n"
    "GFLGT2AileronReverseFix=0\r\n"
    "GFLGT2ElevatorReverseFix=0\r\n"
    "GFLGT2RudderReverseFix=0\r\n"
    "GFLGT2LandingLightsReverseFix=0\r\n"
    "ElevatorTrimIncrement=0.005\r\n"
    "AileronTrimIncrement=0.001\r\n"
    "RudderTrimIncrement=0.001\r\n"
    "RotorTrimIncrement=0.001\r\n"
    "GFTQ6UsePropMinimumOfZero=0\r\n"
    "GFTQ6UseSpeedBrakeArmed=0\r\n";

class SettingsTest : public drav_test::PluginFolderTest {
 protected:
  SettingsTest() : PluginFolderTest("settings") {}

  void ReadAll() {
    drav::ReadDebugSwitches();
    drav::ReadGlobalSettings();
  }
};

TEST_F(SettingsTest, HeaderDefaultsMatchTheDefaultsOfTheFile) {
  GivenIni(kAllDefaultsIni);
  drav::gSettings = ScrambledSettings();
  drav::gDebug.DebugDeviceInfo = 5;
  ReadAll();
  ExpectSettingsEqual(drav::gSettings, GlobalSettings{});
  ExpectSwitchesEqual(drav::gDebug, DebugSwitches{});
}

TEST_F(SettingsTest, MissingFileGivesTheDefaults) {
  drav::gSettings = ScrambledSettings();
  drav::gDebug.DebugHandleInputFunction = 5;
  ReadAll();
  ExpectSettingsEqual(drav::gSettings, GlobalSettings{});
  ExpectSwitchesEqual(drav::gDebug, DebugSwitches{});
  EXPECT_FALSE(std::filesystem::exists(IniPath()));
}

TEST_F(SettingsTest, EveryKeyLandsInItsOwnField) {
  GivenIni(
      "[CONFIG]\n"
      "GFTQ6UseSpeedBrakeArmed=13\n"
      "GFTQ6UsePropMinimumOfZero=12\n"
      "RotorTrimIncrement=0.25\n"
      "RudderTrimIncrement=0.5\n"
      "AileronTrimIncrement=0.75\n"
      "ElevatorTrimIncrement=1.25\n"
      "GFLGT2LandingLightsReverseFix=7\n"
      "GFLGT2RudderReverseFix=6\n"
      "GFLGT2ElevatorReverseFix=5\n"
      "GFLGT2AileronReverseFix=4\n"
      "ShowCustomDatarefs=3\n"
      "RMK166EncoderType=2\n"
      "GRP48ReverseFix=1\n"
      "[DEBUG]\n"
      "DebugSetDisplayFunction=28\n"
      "DebugHandleInputFunction=27\n"
      "DebugGetButtonFunction=26\n"
      "DebugRegisterFunction=25\n"
      "DebugDeviceInfo=24\n"
      "DebugFunctionAssignments=23\n"
      "DebugViewEnabled=22\n"
      "DebugEnabled=0\n");
  ReadAll();
  const GlobalSettings expected{1, 2, 3, 4, 5, 6, 7, 1.25f, 0.75f, 0.5f, 0.25f, 12, 13};
  ExpectSettingsEqual(drav::gSettings, expected);
  const DebugSwitches expectedSwitches{0, 22, 23, 24, 25, 26, 27, 28};
  ExpectSwitchesEqual(drav::gDebug, expectedSwitches);
}

TEST_F(SettingsTest, TextWithoutANumberReadsAsZeroAndRangesAreLeftToTheUsers) {
  GivenIni(
      "[CONFIG]\r\n"
      "ElevatorTrimIncrement=abc\r\n"
      "AileronTrimIncrement=0.002 per step\r\n"
      "RMK166EncoderType=3\r\n"
      "GRP48ReverseFix=yes\r\n"
      "ShowCustomDatarefs=-1\r\n"
      "[DEBUG]\r\n"
      "DebugEnabled=on\r\n");
  ReadAll();
  EXPECT_EQ(drav::gSettings.ElevatorTrimIncrement, 0.0f);
  EXPECT_FLOAT_EQ(drav::gSettings.AileronTrimIncrement, 0.002f);
  EXPECT_EQ(drav::gSettings.RMK166EncoderType, 3);
  EXPECT_EQ(drav::gSettings.GRP48ReverseFix, 0);
  EXPECT_EQ(drav::gSettings.ShowCustomDatarefs, -1);
  EXPECT_EQ(drav::gDebug.DebugEnabled, 0);
}

TEST_F(SettingsTest, ConfigReadsTraceInTableOrder) {
  GivenIni(
      "[DEBUG]\r\n"
      "DebugEnabled=1\r\n"
      "DebugFunctionAssignments=1\r\n"
      "[CONFIG]\r\n"
      "RMK166EncoderType=2\r\n"
      "RotorTrimIncrement=0.01\r\n");
  ReadAll();
  const std::string trace = "file: DRAV.INI, found: ";
  auto line = [&](const char* found, const char* key, const char* value, const char* dflt) {
    return trace + found + ", section: [CONFIG], key: " + key + ", value: " + value +
           ", default: " + dflt + drav_test::kLogLineEnd;
  };
  // DEBUG reads come first and never trace, though both switches are 1 before they end.
  EXPECT_EQ(LogText(), line("0", "GRP48ReverseFix", "0", "0") +
                           line("1", "RMK166EncoderType", "2", "1") +
                           line("0", "ShowCustomDatarefs", "0", "0") +
                           line("0", "GFLGT2AileronReverseFix", "0", "0") +
                           line("0", "GFLGT2ElevatorReverseFix", "0", "0") +
                           line("0", "GFLGT2RudderReverseFix", "0", "0") +
                           line("0", "GFLGT2LandingLightsReverseFix", "0", "0") +
                           line("0", "ElevatorTrimIncrement", "0.005", "0.005") +
                           line("0", "AileronTrimIncrement", "0.001", "0.001") +
                           line("0", "RudderTrimIncrement", "0.001", "0.001") +
                           line("1", "RotorTrimIncrement", "0.01", "0.001") +
                           line("0", "GFTQ6UsePropMinimumOfZero", "0", "0") +
                           line("0", "GFTQ6UseSpeedBrakeArmed", "0", "0"));
}

TEST_F(SettingsTest, ConfigReadsDoNotTraceUnlessBothSwitchesAreOne) {
  GivenIni("[DEBUG]\r\nDebugEnabled=1\r\nDebugFunctionAssignments=2\r\n");
  ReadAll();
  GivenIni("[DEBUG]\r\nDebugEnabled=2\r\nDebugFunctionAssignments=1\r\n");
  ReadAll();
  EXPECT_EQ(drav::gDebug.DebugEnabled, 2);
  EXPECT_FALSE(LogExists());
}

TEST_F(SettingsTest, DebugReadsNeverTrace) {
  GivenIni("[DEBUG]\r\nDebugEnabled=1\r\nDebugFunctionAssignments=1\r\nDebugDeviceInfo=1\r\n");
  drav::ReadDebugSwitches();
  drav::ReadDebugSwitches();  // the second pass starts with both switches already on
  EXPECT_EQ(drav::gDebug.DebugDeviceInfo, 1);
  EXPECT_FALSE(LogExists());
}

}  // namespace

// The INI file of the plug-in's folder, found through the simulator, and the read trace.
#include <gtest/gtest.h>

#include <string>

#include "PluginFolderSupport.h"
#include "base/IniFile.h"

namespace {

class IniPluginFileTest : public drav_test::PluginFolderTest {
 protected:
  IniPluginFileTest() : PluginFolderTest("iniplugin") {}

  std::string Read(const char* section, const char* key, const char* defaultValue) {
    char value[drav::kIniValueSize];
    drav::ReadIniValue(drav::kConfigFileName, section, key, value, defaultValue);
    return value;
  }
  void EnableReadTrace(int debugEnabled, int functionAssignments) {
    drav::gDebug.DebugEnabled = debugEnabled;
    drav::gDebug.DebugFunctionAssignments = functionAssignments;
  }
};

TEST_F(IniPluginFileTest, FilesLiveInThePluginFolder) {
  EXPECT_EQ(drav::PluginFilePath("DRAV.INI"), IniPath().string());
  EXPECT_EQ(drav::PluginFilePath("DRAVLog.txt"), LogPath().string());
}

TEST_F(IniPluginFileTest, WriteAndReadGoThroughThePluginFolder) {
  drav::WriteIniValue(drav::kConfigFileName, "GFP8_1", "Function1", "LANDING_LTS");
  EXPECT_EQ(drav_test::ReadBytes(IniPath()).value_or(""), "[GFP8_1]\r\nFunction1=LANDING_LTS\r\n");
  EXPECT_EQ(Read("GFP8_1", "Function1", "NADA"), "LANDING_LTS");
  EXPECT_EQ(drav::ReadIniString(drav::kConfigFileName, "GFP8_1", "Function2", "NADA"), "NADA");
}

TEST_F(IniPluginFileTest, ReadTraceNamesFileSectionKeyValueAndDefault) {
  GivenIni("[CONFIG]\r\nGRP48ReverseFix=1\r\n");
  EnableReadTrace(1, 1);
  Read("CONFIG", "GRP48ReverseFix", "0");
  Read("CONFIG", "Missing", "dflt");
  EXPECT_EQ(drav::ReadIniString(drav::kConfigFileName, "GF45_1", "Function1", "NADA"), "NADA");
  EXPECT_EQ(
      LogText(),
      "file: DRAV.INI, found: 1, section: [CONFIG], key: GRP48ReverseFix, value: 1, default: 0" +
          drav_test::kLogLineEnd +
          "file: DRAV.INI, found: 0, section: [CONFIG], key: Missing, value: dflt, default: dflt" +
          drav_test::kLogLineEnd +
          "file: DRAV.INI, found: 0, section: [GF45_1], key: Function1, value: NADA, default: NADA" +
          drav_test::kLogLineEnd);
}

TEST_F(IniPluginFileTest, ReadTraceNeedsBothSwitchesExactlyOne) {
  GivenIni("[CONFIG]\r\nKey=1\r\n");
  EnableReadTrace(2, 1);
  Read("CONFIG", "Key", "0");
  EnableReadTrace(1, 2);
  Read("CONFIG", "Key", "0");
  EnableReadTrace(1, 0);
  Read("CONFIG", "Key", "0");
  EXPECT_FALSE(LogExists());
}

TEST_F(IniPluginFileTest, DebugSectionAndPathReadsNeverTrace) {
  GivenIni("[DEBUG]\r\nDebugEnabled=1\r\n");
  EnableReadTrace(1, 1);
  EXPECT_EQ(Read("DEBUG", "DebugEnabled", "0"), "1");
  char value[drav::kIniValueSize];
  EXPECT_TRUE(drav::ReadIniValueAtPath(IniPath().string(), "DEBUG", "DebugEnabled", value, "0"));
  EXPECT_FALSE(drav::ReadIniValueAtPath(IniPath().string(), "CONFIG", "X", value, "0"));
  EXPECT_FALSE(LogExists());
}

}  // namespace

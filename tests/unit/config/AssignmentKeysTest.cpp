// The per-model key tables: spelling, control bytes and defaults, read through the real INI file.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "PluginFolderSupport.h"
#include "config/AssignmentKeys.h"
#include "config/Assignments.h"
#include "functions/FunctionCatalogue.h"
#include "base/HostState.h"
#include "hid/ModuleTypes.h"

namespace drav {
namespace {

std::string DefaultName(const AssignmentKeyGroup& group, int index) { return KeyDefault(group, index); }

TEST(AssignmentKeyTest, CharacterKeysAreTheirOwnControlBytes) {
  EXPECT_EQ(KeyCount(kGFRP48Keys), 12);
  EXPECT_EQ(KeyName(kGFRP48Keys, 0), "Function1");
  EXPECT_EQ(KeyName(kGFRP48Keys, 8), "FunctionA");
  EXPECT_EQ(KeyControl(kGFRP48Keys, 8), 'A');
  EXPECT_EQ(KeyName(kGFRP48Keys, 11), "FunctionD");
  EXPECT_EQ(KeyName(kGF166ButtonKeys, 1), "FunctionR");
  EXPECT_EQ(KeyControl(kGF166ButtonKeys, 0), 'L');
  EXPECT_EQ(KeyName(kGFLGTKeys, 0), "FunctionW");
  EXPECT_EQ(KeyNumber(kRadioModeKeys, 7), 8);
}

TEST(AssignmentKeyTest, NumberedKeysAreTwoDigitsWithTheirOwnControlNumbering) {
  const AssignmentKeyGroup& buttons = GFMCPProButtonKeys(0);
  const AssignmentKeyGroup& knobs = GFMCPProKnobKeys(0);
  EXPECT_EQ(KeyName(buttons, 0), "Function01");
  EXPECT_EQ(KeyControl(buttons, 0), 0);
  EXPECT_EQ(KeyName(buttons, 23), "Function24");
  EXPECT_EQ(KeyControl(buttons, 23), 23);
  // The knobs skip control 24: Function25 is control 25.
  EXPECT_EQ(KeyName(knobs, 0), "Function25");
  EXPECT_EQ(KeyControl(knobs, 0), 25);
  EXPECT_EQ(KeyControl(knobs, 5), 30);
  EXPECT_EQ(KeyName(kGFEFISKnobKeys, 1), "Function29");
  EXPECT_EQ(KeyControl(kGFEFISKnobKeys, 0), 28);
  EXPECT_EQ(KeyControl(kGFEFISButtonKeys, 26), 26);
  EXPECT_EQ(KeyControl(kGFSECMKeys, 19), 19);
  EXPECT_EQ(KeyControl(kGFMESMKeys, 10), 10);
  EXPECT_EQ(KeyName(kGFDIOInputOffKeys, 55), "InputOffStateFunction56");
  EXPECT_EQ(KeyControl(kGFDIOInputOnKeys, 0), 1);
  EXPECT_EQ(KeyName(kGFDIOOutputKeys, 31), "OutputFunction32");
  EXPECT_EQ(KeyName(kGFDIOSwitchTypeKeys, 8), "InputSwitchTypeFunction09");
}

TEST(AssignmentKeyTest, IndicesOutsideAGroupGiveNothing) {
  EXPECT_EQ(KeyName(kGFP8Keys, 8), "");
  EXPECT_EQ(KeyName(kGFP8Keys, -1), "");
  EXPECT_EQ(KeyControl(kGFSECMKeys, 20), 0);
  EXPECT_STREQ(KeyDefault(kGFSECMKeys, 20), "");
  EXPECT_EQ(KeyNumber(kGFMESMKeys, 11), 0);
}

TEST(AssignmentKeyTest, GroupSizesMatchThePanels) {
  EXPECT_EQ(KeyCount(kRadioModeKeys), 8);
  EXPECT_EQ(KeyCount(kGFP8Keys), 8);
  EXPECT_EQ(KeyCount(kGFLGT2Keys), 8);
  EXPECT_EQ(KeyCount(kGFMCPButtonKeys) + KeyCount(kGFMCPKnobKeys), 14);
  EXPECT_EQ(KeyCount(kGFTQ6LeverKeys), 6);
  EXPECT_EQ(KeyCount(GFMCPProButtonKeys(1)) + KeyCount(GFMCPProKnobKeys(1)), 30);
  EXPECT_EQ(KeyCount(kGFEFISButtonKeys) + KeyCount(kGFEFISKnobKeys), 29);
  EXPECT_EQ(KeyCount(kGFSECMKeys), 20);
  EXPECT_EQ(KeyCount(kGFMESMKeys), 11);
  EXPECT_EQ(KeyCount(kGFWCPKeys), 6);
  EXPECT_EQ(KeyCount(kGFWCPColourKeys), 6);
  EXPECT_EQ(KeyCount(kGFDIOInputOnKeys), 56);
  EXPECT_EQ(KeyCount(kGFDIOSwitchTypeKeys), 56);
  EXPECT_EQ(KeyCount(kGFDIOOutputKeys), 32);
}

// A misspelt default would silently load as no function at all.
TEST(AssignmentKeyTest, EveryDefaultNamesACatalogueFunction) {
  for (const AssignmentKeyGroup* group : AllFunctionKeyGroups()) {
    std::set<std::string> keys;
    for (int index = 0; index < KeyCount(*group); ++index) {
      const std::string name = KeyDefault(*group, index);
      EXPECT_TRUE(keys.insert(KeyName(*group, index)).second) << "duplicate key " << KeyName(*group, index);
      if (name.empty() || name == "NADA") continue;
      EXPECT_NE(FindFunctionId(name.c_str()), kNada) << KeyName(*group, index) << "=" << name;
    }
  }
}

TEST(AssignmentKeyTest, ModelDefaultsStandOnTheirKeys) {
  EXPECT_EQ(DefaultName(kGFMCPButtonKeys, 0), "AP_LNAV");
  EXPECT_EQ(DefaultName(kGFMCPButtonKeys, 8), "AP_DISENGAGE");
  EXPECT_EQ(DefaultName(kGFMCPKnobKeys, 4), "AP_ALTITUDE_ADJ");
  EXPECT_EQ(DefaultName(kGFLGTKeys, 1), "LANDING_GEAR");
  EXPECT_EQ(DefaultName(kGFLGT2Keys, 7), "FUEL_FEED_RIGHT");
  EXPECT_EQ(DefaultName(kGFEFISButtonKeys, 0), "");
  EXPECT_EQ(DefaultName(kGFEFISButtonKeys, 26), "EFIS_ND_RANGE_640NM");
  EXPECT_EQ(DefaultName(kGFEFISKnobKeys, 0), "DECISION_HEIGHT");
  EXPECT_EQ(DefaultName(kGFSECMKeys, 19), "FLAPS_UP_DOWN");
  EXPECT_EQ(DefaultName(kGFMESMKeys, 10), "ENG_2_IGNITER");
  EXPECT_EQ(DefaultName(kGFWCPColourKeys, 5), "BLACK");
  EXPECT_EQ(DefaultName(kGFDIOSwitchTypeKeys, 55), "0");
  EXPECT_EQ(DefaultName(kGFDIOInputOnKeys, 0), "");
  EXPECT_EQ(DefaultName(kGFP8Keys, 0), "");
}

TEST(AssignmentKeyTest, McpProDefaultsFollowTheX737Mode) {
  struct Row {
    int key;  // FunctionNN
    const char* x737;
    const char* plain;
  };
  const Row rows[] = {{3, "AP_CMD_A", "AP_MASTER"},   {4, "AP_CMD_B", "AP_MASTER"},
                      {7, "AP_SPDINV", "NADA"},       {8, "AP_VORLOC", "AP_LNAV"},
                      {14, "NADA", "MCPPRO_ALT_KNOB"}, {16, "AP_THRUST_N1", "NADA"},
                      {23, "AP_DISENGAGE", "AP_DISENGAGE"}, {24, "AP_RIGHT_FLIGHT_DIR", "AP_FLIGHT_DIR"},
                      {25, "OBS1", "AP_NAV_COURSE_ADJ"}, {28, "AP_ALTITUDE_ADJ", "AP_ALTITUDE_ADJ"},
                      {30, "OBS2", "AP_NAV_COURSE_ADJ"}};
  for (const Row& row : rows) {
    const bool knob = row.key >= 25;
    const int index = knob ? row.key - 25 : row.key - 1;
    EXPECT_EQ(DefaultName(knob ? GFMCPProKnobKeys(1) : GFMCPProButtonKeys(1), index), row.x737) << row.key;
    EXPECT_EQ(DefaultName(knob ? GFMCPProKnobKeys(0) : GFMCPProButtonKeys(0), index), row.plain) << row.key;
  }
  // Only exactly 1 is the x737 mode.
  EXPECT_EQ(DefaultName(GFMCPProButtonKeys(2), 2), "AP_MASTER");
}

// ---- the keys read through DRAV.INI ----------------------------------------------------------------

class AssignmentKeyFileTest : public drav_test::PluginFolderTest {
 protected:
  AssignmentKeyFileTest() : PluginFolderTest("assignkeys") {}
  void TearDown() override {
    X737Mode = 0;
    PluginFolderTest::TearDown();
  }
  static std::string Name(const ResolvedAssignment& assignment) { return GetFunctionName(assignment.functionId); }
};

TEST_F(AssignmentKeyFileTest, SectionsCountUnitsFromOne) {
  EXPECT_EQ(AssignmentSection(kModuleGF46, 1), "GF46_2");
  EXPECT_EQ(AssignmentSection(kModuleGFMCPPro, 0), "GFMCPPro_1");
  EXPECT_EQ(AssignmentSection(kModuleGFDIO, 31), "GFDIO_32");
}

TEST_F(AssignmentKeyFileTest, McpWithoutFileGetsItsDefaults) {
  const std::string section = AssignmentSection(kModuleGFMCP, 0);
  EXPECT_EQ(Name(ReadAssignment(section, kGFMCPButtonKeys, 0, 0)), "AP_LNAV");
  EXPECT_EQ(KeyControl(kGFMCPButtonKeys, 0), '1');
  EXPECT_EQ(Name(ReadAssignment(section, kGFMCPKnobKeys, 4, 0)), "AP_ALTITUDE_ADJ");
  EXPECT_EQ(KeyControl(kGFMCPKnobKeys, 4), 'E');
  EXPECT_EQ(ReadAssignment(section, kGFP8Keys, 0, 0).functionId, kNada);
  EXPECT_FALSE(std::filesystem::exists(IniPath()));  // defaults are never stored
}

TEST_F(AssignmentKeyFileTest, StoredValuesWinOverDefaultsAndAnEmptyValueMeansNothing) {
  GivenIni("[GFMCP_1]\r\nFunction1=AP_VS_HOLD\r\nFunctionE=\r\n");
  const std::string section = AssignmentSection(kModuleGFMCP, 0);
  EXPECT_EQ(Name(ReadAssignment(section, kGFMCPButtonKeys, 0, 0)), "AP_VS_HOLD");
  EXPECT_EQ(ReadAssignment(section, kGFMCPKnobKeys, 4, 0).functionId, kNada);
  EXPECT_EQ(Name(ReadAssignment(section, kGFMCPButtonKeys, 1, 0)), "AP_HDG_HOLD");
  // Another unit's section does not lend its values.
  EXPECT_EQ(Name(ReadAssignment(AssignmentSection(kModuleGFMCP, 1), kGFMCPButtonKeys, 0, 1)), "AP_LNAV");
}

TEST_F(AssignmentKeyFileTest, McpProFunction03DefaultChangesWithX737ButAStoredValueDoesNot) {
  const std::string section = AssignmentSection(kModuleGFMCPPro, 0);
  X737Mode = 0;
  EXPECT_EQ(Name(ReadAssignment(section, GFMCPProButtonKeys(X737Mode), 2, 0)), "AP_MASTER");
  X737Mode = 1;
  EXPECT_EQ(Name(ReadAssignment(section, GFMCPProButtonKeys(X737Mode), 2, 0)), "AP_CMD_A");

  GivenIni("[GFMCPPro_1]\r\nFunction03=AP_LNAV\r\n");
  for (int mode : {0, 1}) {
    EXPECT_EQ(Name(ReadAssignment(section, GFMCPProButtonKeys(mode), 2, 0)), "AP_LNAV") << mode;
  }
}

TEST_F(AssignmentKeyFileTest, WheelGainsAreClampedOnRead) {
  GivenIni("[GFLGT_1]\r\nWHEEL_GAIN=25\r\n[GFLGT_2]\r\nWHEEL_GAIN=0\r\n"
           "[GFLGT2_1]\r\nWHEEL1_GAIN=4\r\nWHEEL3_GAIN=x\r\n");
  EXPECT_EQ(ReadWheelGain("GFLGT_1", kGFLGTWheelGain), 10);
  EXPECT_EQ(ReadWheelGain("GFLGT_2", kGFLGTWheelGain), 1);
  EXPECT_EQ(ReadWheelGain("GFLGT_3", kGFLGTWheelGain), 1);  // default "1"
  EXPECT_EQ(ReadWheelGain("GFLGT2_1", kGFLGT2WheelGains[0]), 4);
  EXPECT_EQ(ReadWheelGain("GFLGT2_1", kGFLGT2WheelGains[1]), 1);
  EXPECT_EQ(ReadWheelGain("GFLGT2_1", kGFLGT2WheelGains[2]), 1);
}

TEST_F(AssignmentKeyFileTest, LeverCalibrationDefaultsDifferFromStoredValues) {
  EXPECT_FLOAT_EQ(ReadCalibrationReal("GFTQ6_1", kGFTQ6LeverCalibration[0]), -1.0f);
  EXPECT_FLOAT_EQ(ReadCalibrationReal("GFTQ6_1", kGFTQ6LeverCalibration[1]), -1.0f);
  EXPECT_FLOAT_EQ(ReadCalibrationReal("GFTQ6_1", kGFTQ6LeverCalibration[2]), 1.0f);
  EXPECT_FLOAT_EQ(ReadCalibrationReal("GFTQ6_1", kGFTQ6FlapNullZone), 1.0f);
  GivenIni("[GFTQ6_1]\r\nTHROTTLE_REVERSE=0.35\r\nREVERSER_POWER=0.60\r\n");
  EXPECT_FLOAT_EQ(ReadCalibrationReal("GFTQ6_1", kGFTQ6LeverCalibration[0]), 0.35f);
  EXPECT_FLOAT_EQ(ReadCalibrationReal("GFTQ6_1", kGFTQ6LeverCalibration[2]), 0.6f);
}

TEST_F(AssignmentKeyFileTest, ColoursAndSwitchTypesReadByName) {
  GivenIni("[GFWCP_1]\r\nColour1=RED\r\nColour3=PURPLE\r\n[GFDIO_1]\r\nInputSwitchTypeFunction02=SELECTOR\r\n");
  auto colour = [](int index) {
    return ParseColourName(
        ReadAssignmentValue("GFWCP_1", KeyName(kGFWCPColourKeys, index), KeyDefault(kGFWCPColourKeys, index)).c_str());
  };
  EXPECT_EQ(colour(0), 2);
  EXPECT_EQ(colour(1), 0);
  EXPECT_EQ(colour(2), 0);
  auto switchType = [](int index) {
    return ParseSwitchTypeName(ReadAssignmentValue("GFDIO_1", KeyName(kGFDIOSwitchTypeKeys, index),
                                                   KeyDefault(kGFDIOSwitchTypeKeys, index))
                                   .c_str());
  };
  EXPECT_EQ(switchType(0), 0);
  EXPECT_EQ(switchType(1), 3);
}

}  // namespace
}  // namespace drav

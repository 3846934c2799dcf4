// Setting, adding, removing, writing and checking datarefs from a scenario.
#include <gtest/gtest.h>

#include "DravsimTestSupport.h"

namespace dravsim::testing {
namespace {

class ScenarioDatarefTest : public ScenarioTest {};

TEST_F(ScenarioDatarefTest, SetsAndChecksBuiltInDatarefs) {
  const ScenarioResult result = Run(
      "expect dataref sim/cockpit/misc/barometer_setting = 29.92\n"
      "dataref sim/cockpit/radios/com1_freq_hz = 12345\n"
      "expect dataref sim/cockpit/radios/com1_freq_hz = 12345\n"
      "dataref sim/cockpit/misc/barometer_setting = 30.01\n"
      "expect dataref sim/cockpit/misc/barometer_setting = 30.01\n");
  EXPECT_EQ(result.passed, 3) << Output();
  EXPECT_EQ(result.Failures(), 0) << Output();
  EXPECT_EQ(host().GetDatarefValue("sim/cockpit/radios/com1_freq_hz"), 12345.0);
}

TEST_F(ScenarioDatarefTest, FloatsCompareWithinOneTenThousandth) {
  const ScenarioResult result = Run(
      "dataref x737/f double = 0.25\n"
      "expect dataref x737/f = 0.25005\n"
      "expect dataref x737/f = 0.2499\n"
      "expect dataref x737/f = 0.2502\n");
  EXPECT_EQ(result.passed, 2);
  EXPECT_EQ(result.failed, 1);
  EXPECT_EQ(Output(), "test.scn:4: FAIL dataref x737/f = 0.2502; found 0.25\n");
}

TEST_F(ScenarioDatarefTest, ArraysByElementRangeAndWhole) {
  const ScenarioResult result = Run(
      "dataref x737/a float[4] = 1.5\n"
      "dataref x737/a[1..2] = 3\n"
      "expect dataref x737/a[0] = 1.5\n"
      "expect dataref x737/a[1..2] = 3\n"
      "expect dataref x737/a[3] = 1.5\n"
      "expect dataref x737/a = 1.5\n"       // every element: 1 and 2 differ
      "dataref x737/a = 7\n"                // every element
      "expect dataref x737/a = 7\n"
      "expect dataref x737/a[3..9] = 7\n");  // past the end
  EXPECT_EQ(result.passed, 4) << Output();
  EXPECT_EQ(result.failed, 2);
  EXPECT_EQ(Output(),
            "test.scn:6: FAIL dataref x737/a = 1.5; found x737/a[1] = 3\n"
            "test.scn:9: FAIL dataref x737/a[3..9] = 7; found no element x737/a[4]\n");
}

TEST_F(ScenarioDatarefTest, TypedDeclarationsHoldZerosUntilSet) {
  const ScenarioResult result = Run(
      "expect dataref x737/new absent\n"
      "dataref x737/new int\n"
      "expect dataref x737/new = 0\n"
      "dataref x737/ints int[3] = 0b101\n"
      "expect dataref x737/ints[2] = 5\n");
  EXPECT_EQ(result.passed, 3) << Output();
  EXPECT_EQ(result.Failures(), 0) << Output();
  const auto decl = host().DescribeDataref("x737/ints");
  ASSERT_TRUE(decl);
  EXPECT_EQ(decl->type, sim::DatarefType::IntArray);
  EXPECT_EQ(decl->length, 3);
}

TEST_F(ScenarioDatarefTest, AbsentRemovesAndIsChecked) {
  const ScenarioResult result = Run(
      "dataref sim/cockpit/radios/adf1_freq_hz absent\n"
      "expect dataref sim/cockpit/radios/adf1_freq_hz absent\n"
      "expect dataref sim/cockpit/radios/adf1_freq_hz = 362\n"
      "expect dataref sim/cockpit/radios/nav1_freq_hz absent\n");
  EXPECT_EQ(result.passed, 1);
  EXPECT_EQ(result.failed, 2);
  EXPECT_EQ(Output(),
            "test.scn:3: FAIL dataref sim/cockpit/radios/adf1_freq_hz = 362; found no such "
            "dataref\n"
            "test.scn:4: FAIL dataref sim/cockpit/radios/nav1_freq_hz absent; found it exists\n");
}

TEST_F(ScenarioDatarefTest, SettingAnUnknownPathOrABadIndexIsAnError) {
  const ScenarioResult result = Run(
      "dataref x737/unknown = 1\n"
      "dataref sim/cockpit/radios/com1_freq_hz[2] = 1\n"
      "dataref x737/a float[2]\n"
      "dataref x737/a[1..5] = 1\n"
      "dataref x737/a[ = 1\n"
      "dataref x737/b bool = 1\n"
      "dataref x737/c int = \"1\"\n"
      "dataref x737/a[0] absent\n");
  EXPECT_EQ(result.errors, 7) << Output();
  const std::string out = Output();
  EXPECT_TRUE(Contains(out, "test.scn:1: ERROR dataref: unknown dataref x737/unknown"));
  EXPECT_TRUE(Contains(out, "test.scn:2: ERROR dataref: cannot set "
                            "sim/cockpit/radios/com1_freq_hz[2]"));
  EXPECT_TRUE(Contains(out, "test.scn:4: ERROR dataref: cannot set x737/a[1..5]"));
  EXPECT_TRUE(Contains(out, "test.scn:5: ERROR dataref: bad dataref \"x737/a[\""));
  EXPECT_TRUE(Contains(out, "test.scn:6: ERROR dataref: usage:"));
  EXPECT_TRUE(Contains(out, "test.scn:7: ERROR dataref: bad number \"1\""));
  EXPECT_TRUE(Contains(out, "test.scn:8: ERROR dataref: usage:"));
  EXPECT_FALSE(host().HasDataref("x737/c"));  // nothing is added when the value is wrong
}

TEST_F(ScenarioDatarefTest, WriteDatarefGoesThroughTheSdkAndRejectsRanges) {
  const ScenarioResult result = Run(
      "dataref x737/a int[2]\n"
      "write-dataref x737/a[1] = 4\n"
      "expect dataref x737/a[1] = 4\n"
      "write-dataref x737/a[0..1] = 4\n"
      "write-dataref x737/none = 1\n");
  EXPECT_EQ(result.passed, 1) << Output();
  EXPECT_EQ(result.errors, 2);
  EXPECT_TRUE(Contains(Output(), "test.scn:4: ERROR write-dataref: usage:"));
  EXPECT_TRUE(Contains(Output(), "test.scn:5: ERROR write-dataref: unknown dataref x737/none"));
}

TEST_F(ScenarioDatarefTest, ExpectWithAMissingValueOrExtraWordsIsAnError) {
  const ScenarioResult result = Run(
      "expect dataref sim/cockpit/radios/com1_freq_hz 11850\n"
      "expect dataref sim/cockpit/radios/com1_freq_hz = many\n"
      "expect dataref sim/cockpit/radios/com1_freq_hz[0] absent\n");
  EXPECT_EQ(result.errors, 3) << Output();
  EXPECT_EQ(result.passed + result.failed, 0);
}

TEST_F(ScenarioDatarefTest, APathAlonePrintsWhatTheSimulatorHolds) {
  const ScenarioResult result = Run(
      "dataref sim/cockpit/radios/com1_freq_hz\n"
      "dataref sim/aircraft/parts/acf_gear_deploy[1..2] = 0.25\n"
      "dataref sim/aircraft/parts/acf_gear_deploy[0..2]\n"
      "dataref sim/cockpit/misc/barometer_setting\n"
      "dataref no/such/dataref\n",
      false);
  EXPECT_EQ(result.errors, 0) << Output();
  EXPECT_TRUE(Contains(Output(), "sim/cockpit/radios/com1_freq_hz = 11850\n"));
  EXPECT_TRUE(Contains(Output(), "sim/aircraft/parts/acf_gear_deploy = 1 0.25 0.25\n"));
  EXPECT_TRUE(Contains(Output(), "sim/cockpit/misc/barometer_setting = 29.92\n"));
  EXPECT_TRUE(Contains(Output(), "no/such/dataref absent\n"));
}

}  // namespace
}  // namespace dravsim::testing

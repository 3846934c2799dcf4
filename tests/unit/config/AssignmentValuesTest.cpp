// What a stored assignment value means: function names, radio references, gains, colours, switch
// types.
#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "config/AssignmentValues.h"
#include "functions/FunctionCatalogue.h"

namespace drav {
namespace {

FunctionId Id(const char* name) {
  const FunctionId id = FindFunctionId(name);
  EXPECT_NE(id, kNada) << name << " is not in the catalogue";
  return id;
}

TEST(AssignmentValueTest, FunctionNamesResolveExactlyAndEverythingElseIsNada) {
  EXPECT_STREQ(GetFunctionName(ResolveFunctionId("AP_HDG_HOLD")), "AP_HDG_HOLD");
  EXPECT_STREQ(GetFunctionName(ResolveFunctionId("NAV1_STANDBY")), "NAV1_STANDBY");
  EXPECT_EQ(ResolveFunctionId("NADA"), kNada);
  EXPECT_EQ(ResolveFunctionId(""), kNada);
  EXPECT_EQ(ResolveFunctionId(nullptr), kNada);
  EXPECT_EQ(ResolveFunctionId("NO_SUCH_FUNCTION"), kNada);
  EXPECT_EQ(ResolveFunctionId("ap_hdg_hold"), kNada);   // names are compared with their case
  EXPECT_EQ(ResolveFunctionId("AP_HDG_HOLD "), kNada);  // and without trimming
}

// The load's quick look-up must answer as the catalogue's row-by-row search, suffixes included.
TEST(AssignmentValueTest, ResolutionAgreesWithTheCatalogueForEveryNameAndSuffix) {
  for (FunctionId id = 0; id < kFunctionCount; ++id) {
    const std::string name = GetFunctionName(id);
    for (const std::string& value : {name, "GF46_2" + std::string("_FUNC_") + name, name + "_FUNC_", "x" + name}) {
      EXPECT_EQ(ResolveFunctionId(value.c_str()), FindFunctionId(value.c_str())) << value;
    }
  }
}

TEST(AssignmentValueTest, RadioReferencesNameKindAndZeroBasedUnit) {
  AssignmentTargetUnit target;
  ASSERT_TRUE(FindRadioReference("GF46_2_FUNC_NAV1_STANDBY", &target));
  EXPECT_EQ(target.kind, kTargetKindGF46);
  EXPECT_EQ(target.unit, 1);

  ASSERT_TRUE(FindRadioReference("GF45_1_FUNC_COM1_ACTIVE", &target));
  EXPECT_EQ(target.kind, kTargetKindGF45);
  EXPECT_EQ(target.unit, 0);

  // The GF-166's number stands one character later: the seventh.
  ASSERT_TRUE(FindRadioReference("GF166_3_FUNC_COM1_ACTIVE", &target));
  EXPECT_EQ(target.kind, kTargetKindGF166);
  EXPECT_EQ(target.unit, 2);

  // Two-digit units and units that do not exist are kept as written.
  ASSERT_TRUE(FindRadioReference("GF46_12_FUNC_NAV1_STANDBY", &target));
  EXPECT_EQ(target.unit, 11);
}

TEST(AssignmentValueTest, RadioNumberIsReadAtItsFixedPositionFromTheStartOfTheValue) {
  AssignmentTargetUnit target;
  // The prefix found further in: the number is still read at the sixth character of the value.
  ASSERT_TRUE(FindRadioReference("N2GF46_2_FUNC_NAV1_STANDBY", &target));
  EXPECT_EQ(target.kind, kTargetKindGF46);
  EXPECT_EQ(target.unit, 5);  // "6_2..." reads 6
  ASSERT_TRUE(FindRadioReference("XGF46_2_FUNC_NAV1_STANDBY", &target));
  EXPECT_EQ(target.unit, -1);  // the sixth character is the "_"
  // No number where it should be reads as 0, that is unit -1.
  ASSERT_TRUE(FindRadioReference("GF45_", &target));
  EXPECT_EQ(target.unit, -1);
  ASSERT_TRUE(FindRadioReference("GF166_X", &target));
  EXPECT_EQ(target.unit, -1);
}

TEST(AssignmentValueTest, RadioPrefixesAreTestedGF45ThenGF46ThenGF166) {
  AssignmentTargetUnit target;
  ASSERT_TRUE(FindRadioReference("GF166_2_GF46_", &target));
  EXPECT_EQ(target.kind, kTargetKindGF46);
  EXPECT_EQ(target.unit, -1);  // the GF-46's position: the "_" after "GF166"

  target = {7, 7};
  EXPECT_FALSE(FindRadioReference("NAV1_STANDBY", &target));
  EXPECT_FALSE(FindRadioReference("gf46_2_FUNC_NAV1_STANDBY", &target));
  EXPECT_FALSE(FindRadioReference(nullptr, &target));
  EXPECT_EQ(target.unit, 7);  // untouched when no radio is named
  EXPECT_EQ(target.kind, 7);
}

TEST(AssignmentValueTest, ExtremeUnitNumbersSaturateInsteadOfOverflowing) {
  AssignmentTargetUnit target;
  ASSERT_TRUE(FindRadioReference("GF45_-99999999999", &target));
  EXPECT_EQ(target.unit, INT_MIN);
  ASSERT_TRUE(FindRadioReference("GF45_99999999999", &target));
  EXPECT_EQ(target.unit, INT_MAX - 1);
}

TEST(AssignmentValueTest, ResolutionAppliesTheKeysTargetPreset) {
  const FunctionId standby = Id("NAV1_STANDBY");

  const ResolvedAssignment tested = ResolveAssignment("GF46_2_FUNC_NAV1_STANDBY", AssignmentTarget::kRadioTested, 0);
  EXPECT_EQ(tested.functionId, standby);
  EXPECT_EQ(tested.target.unit, 1);
  EXPECT_EQ(tested.target.kind, kTargetKindGF46);

  const ResolvedAssignment plain = ResolveAssignment("LANDING_LTS", AssignmentTarget::kRadioTested, 3);
  EXPECT_EQ(plain.functionId, Id("LANDING_LTS"));
  EXPECT_EQ(plain.target.unit, -1);
  EXPECT_EQ(plain.target.kind, -1);

  // A key that is not tested keeps (-1, -1) even for a radio reference; the function still resolves.
  const ResolvedAssignment untested = ResolveAssignment("GF46_2_FUNC_NAV1_STANDBY", AssignmentTarget::kNone, 3);
  EXPECT_EQ(untested.functionId, standby);
  EXPECT_EQ(untested.target.unit, -1);
  EXPECT_EQ(untested.target.kind, -1);

  // The GF-166's own buttons aim at the loading unit unless the value names another radio.
  const ResolvedAssignment own = ResolveAssignment("COM1_ACTIVE", AssignmentTarget::kThisGF166, 3);
  EXPECT_EQ(own.target.unit, 3);
  EXPECT_EQ(own.target.kind, kTargetKindGF166);
  const ResolvedAssignment empty = ResolveAssignment("", AssignmentTarget::kThisGF166, 3);
  EXPECT_EQ(empty.functionId, kNada);
  EXPECT_EQ(empty.target.unit, 3);
  const ResolvedAssignment other = ResolveAssignment("GF45_1_FUNC_COM1_ACTIVE", AssignmentTarget::kThisGF166, 3);
  EXPECT_EQ(other.functionId, Id("COM1_ACTIVE"));
  EXPECT_EQ(other.target.unit, 0);
  EXPECT_EQ(other.target.kind, kTargetKindGF45);
}

TEST(AssignmentValueTest, WheelGainsAreClampedToOneToTen) {
  EXPECT_EQ(ParseWheelGain("25"), 10);
  EXPECT_EQ(ParseWheelGain("0"), 1);
  EXPECT_EQ(ParseWheelGain("-3"), 1);
  EXPECT_EQ(ParseWheelGain("7"), 7);
  EXPECT_EQ(ParseWheelGain("10"), 10);
  EXPECT_EQ(ParseWheelGain("4.9"), 4);
  EXPECT_EQ(ParseWheelGain("fast"), 1);  // no number is 0, then clamped
  EXPECT_EQ(ParseWheelGain(""), 1);
  EXPECT_EQ(ParseWheelGain("99999999999"), 10);
}

TEST(AssignmentValueTest, CalibrationRealsParseTheLeadingNumber) {
  EXPECT_FLOAT_EQ(ParseCalibrationReal("-1.0"), -1.0f);
  EXPECT_FLOAT_EQ(ParseCalibrationReal("0.35"), 0.35f);
  EXPECT_FLOAT_EQ(ParseCalibrationReal("0.6 percent"), 0.6f);
  EXPECT_FLOAT_EQ(ParseCalibrationReal("none"), 0.0f);
  EXPECT_FLOAT_EQ(ParseCalibrationReal(""), 0.0f);
}

TEST(AssignmentValueTest, ColourNamesMapToTheirIndicesAndUnknownNamesToBlack) {
  const char* names[] = {"BLACK", "WHITE", "RED", "GREEN", "BLUE", "MAGENTA", "YELLOW", "CYAN"};
  for (int colour = 0; colour < kColourCount; ++colour) {
    EXPECT_EQ(ParseColourName(names[colour]), colour) << names[colour];
    EXPECT_STREQ(ColourName(colour), names[colour]);
  }
  EXPECT_EQ(ParseColourName("PURPLE"), 0);
  EXPECT_EQ(ParseColourName("red"), 0);
  EXPECT_EQ(ParseColourName("RED "), 0);
  EXPECT_EQ(ParseColourName(""), 0);
  EXPECT_EQ(ParseColourName(nullptr), 0);
  EXPECT_STREQ(ColourName(8), "");
  EXPECT_STREQ(ColourName(-1), "");
}

TEST(AssignmentValueTest, SwitchTypeNamesMapToTheirIndicesAndTheDefaultToButton) {
  const char* names[] = {"BUTTON", "SWITCH2WAY", "SWITCH3WAY", "SELECTOR"};
  for (int type = 0; type < kSwitchTypeCount; ++type) {
    EXPECT_EQ(ParseSwitchTypeName(names[type]), type) << names[type];
    EXPECT_STREQ(SwitchTypeName(type), names[type]);
  }
  EXPECT_EQ(ParseSwitchTypeName("0"), 0);
  EXPECT_EQ(ParseSwitchTypeName("2"), 0);  // numbers are not names
  EXPECT_EQ(ParseSwitchTypeName("selector"), 0);
  EXPECT_EQ(ParseSwitchTypeName(nullptr), 0);
  EXPECT_STREQ(SwitchTypeName(4), "");
}

}  // namespace
}  // namespace drav

// The knots/Mach selector (every write flips the unit and converts the speed target) and the
// altitude knob's step flag.
#include <XPLMDataAccess.h>

#include <string>
#include <vector>

#include "CustomDatarefsFixture.h"
#include "functions/AutopilotSelectorDatarefs.h"

namespace drav {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kAsiIsMach = "drav/autopilot/asi_is_mach";
constexpr const char* kAltKnob = "drav/autopilot_knob/alt_knob";
constexpr const char* kIsMach = "sim/cockpit/autopilot/airspeed_is_mach";
constexpr const char* kTarget = "sim/cockpit/autopilot/airspeed";
constexpr const char* kSigma = "sim/weather/sigma";
constexpr const char* kSpeedOfSound = "sim/weather/speed_sound_ms";

class SelectorDatarefsTest : public testing::CustomDatarefsTest {
 protected:
  void SetUp() override {
    CustomDatarefsTest::SetUp();
    Publish();
  }
  static void Air(double speedOfSound, double sigma) {
    Set(kSpeedOfSound, speedOfSound);
    Set(kSigma, sigma);
  }
};

TEST(KnotsPerMachTest, LimitsTheRootOfTheDensityRatio) {
  EXPECT_NEAR(KnotsPerMach(340.29, 1.0), 661.470811, 1e-5);
  EXPECT_NEAR(KnotsPerMach(300.0, 0.25), 291.57666, 1e-5);     // root 0.5
  EXPECT_NEAR(KnotsPerMach(300.0, 4.0), 583.15332, 1e-5);      // root 2, limited to 1
  EXPECT_NEAR(KnotsPerMach(300.0, 0.0), 5.8315332, 1e-6);      // limited to 0.01
  EXPECT_NEAR(KnotsPerMach(300.0, 0.00000001), 5.8315332, 1e-6);
  EXPECT_NEAR(KnotsPerMach(300.0, -1.0), 5.8315332, 1e-6);     // no square root of a negative
}

TEST_F(SelectorDatarefsTest, AreWritableInts) {
  for (const char* path : {kAsiIsMach, kAltKnob}) {
    XPLMDataRef dataref = XPLMFindDataRef(path);
    ASSERT_NE(dataref, nullptr) << path;
    EXPECT_EQ(XPLMGetDataRefTypes(dataref), xplmType_Int) << path;
    EXPECT_EQ(XPLMCanWriteDataRef(dataref), 1) << path;
  }
}

TEST_F(SelectorDatarefsTest, ReadsTheSimulatorsSpeedUnit) {
  EXPECT_EQ(Get(kAsiIsMach), 0.0);
  Set(kIsMach, 1);
  EXPECT_EQ(Get(kAsiIsMach), 1.0);
  Set(kIsMach, 5);  // passed through as it is
  EXPECT_EQ(Get(kAsiIsMach), 5.0);
}

TEST_F(SelectorDatarefsTest, KnotsToMachAtSeaLevel) {
  Set(kTarget, 250.0);
  Air(340.29, 1.0);
  ClearEvents();
  Write(kAsiIsMach, 1);
  EXPECT_EQ(Get(kIsMach), 1.0);
  EXPECT_NEAR(Get(kTarget), 250.0 / 661.470811, 1e-6);  // 0.37795
  ASSERT_EQ(Events().size(), 2u);
  EXPECT_EQ(Events()[0], DatarefWrite(kIsMach, "1"));
  EXPECT_EQ(Events()[1].rfind(DatarefWrite(kTarget, "0.3779"), 0), 0u) << Events()[1];
}

TEST_F(SelectorDatarefsTest, MachToKnotsInThinAir) {
  Set(kIsMach, 1);
  Set(kTarget, 0.5);
  Air(300.0, 0.25);
  Write(kAsiIsMach, 1);  // the value does not matter
  EXPECT_EQ(Get(kIsMach), 0.0);
  EXPECT_NEAR(Get(kTarget), 0.5 * 291.57666, 1e-3);
}

TEST_F(SelectorDatarefsTest, WrittenValueIsIgnoredAndTwoWritesComeBack) {
  Set(kTarget, 280.0);
  Air(320.0, 0.5);
  Write(kAsiIsMach, 0);
  EXPECT_EQ(Get(kIsMach), 1.0);
  Write(kAsiIsMach, 0);
  EXPECT_EQ(Get(kIsMach), 0.0);
  EXPECT_NEAR(Get(kTarget), 280.0, 1e-3);
}

TEST_F(SelectorDatarefsTest, AnyNonZeroUnitCountsAsMach) {
  Set(kIsMach, 3);
  Set(kTarget, 0.8);
  Air(340.29, 1.0);
  Write(kAsiIsMach, 1);
  EXPECT_EQ(Get(kIsMach), 0.0);
  EXPECT_NEAR(Get(kTarget), 0.8 * 661.470811, 1e-3);
}

TEST_F(SelectorDatarefsTest, DensityRatioIsLimited) {
  Set(kTarget, 0.5);
  Set(kIsMach, 1);
  Air(300.0, 4.0);  // root limited to 1
  Write(kAsiIsMach, 1);
  EXPECT_NEAR(Get(kTarget), 0.5 * 583.15332, 1e-3);
  Set(kTarget, 0.5);
  Set(kIsMach, 1);
  Air(300.0, 0.0);  // root limited to 0.01
  Write(kAsiIsMach, 1);
  EXPECT_NEAR(Get(kTarget), 0.5 * 5.8315332, 1e-4);
}

TEST_F(SelectorDatarefsTest, WithoutASpeedOfSoundTheUnitFlipsButTheTargetStays) {
  Set(kTarget, 250.0);
  Air(0.0, 1.0);
  ClearEvents();
  Write(kAsiIsMach, 1);
  EXPECT_EQ(Events(), Texts{DatarefWrite(kIsMach, "1")});
  EXPECT_EQ(Get(kTarget), 250.0);
}

TEST_F(SelectorDatarefsTest, AltKnobHoldsWhatIsWrittenFromZero) {
  EXPECT_EQ(Get(kAltKnob), 0.0);
  ClearEvents();
  Write(kAltKnob, 1);
  EXPECT_EQ(Get(kAltKnob), 1.0);
  Write(kAltKnob, 7);
  EXPECT_EQ(Get(kAltKnob), 7.0);
  EXPECT_TRUE(Events().empty());  // the plug-in's own value: the simulator is not touched
  XPLMSetDatai(XPLMFindDataRef(kAltKnob), 0);  // the plug-in's own functions use the SDK too
  EXPECT_EQ(Get(kAltKnob), 0.0);
}

TEST_F(SelectorDatarefsTest, AltKnobStartsAtZeroWithEachStartOfThePlugin) {
  Write(kAltKnob, 1);
  host().Reset(root());
  Publish();
  EXPECT_EQ(Get(kAltKnob), 0.0);
}

}  // namespace
}  // namespace drav

// The throttle-quadrant lever functions against the simulated simulator: binding to the aircraft's
// limits, calibration and dead band, and the throttle's forward, beta and reverse zones.
#include "functions/LeverFunction.h"

#include <gtest/gtest.h>

#include <string>

#include "FunctionTestSupport.h"
#include "base/Settings.h"

namespace drav {
namespace {

constexpr FunctionId kEng1Throttle = 613;
constexpr FunctionId kEng3Throttle = 615;
constexpr FunctionId kEng2Mixture = 623;
constexpr FunctionId kEng1PropPitch = 631;
constexpr FunctionId kAllMixture = 630;

const char* const kThrottle = "sim/flightmodel/engine/ENGN_thro";
const char* const kMixture = "sim/flightmodel/engine/ENGN_mixt";
const char* const kPropMode = "sim/flightmodel/engine/ENGN_propmode";
const char* const kFlaps = "sim/flightmodel/controls/flaprqst";
const char* const kSpeedBrake = "sim/flightmodel/controls/sbrkrqst";

// Calibrated so that lo = 3 and hi = 103: raw 3 + 100 p gives lever fraction p exactly.
constexpr std::uint8_t RawAt(float fraction) { return static_cast<std::uint8_t>(3 + 100 * fraction + 0.5f); }

class LeverFunctionTest : public functiontest::FunctionTest {
 protected:
  void SetUp() override {
    FunctionTest::SetUp();
    gSettings = GlobalSettings{};
  }
  void TearDown() override {
    gSettings = GlobalSettings{};
    FunctionTest::TearDown();
  }

  // A turboprop-like aircraft: forward ratio 1, reverse ratio 0.5.
  static void Aircraft(int hasBeta, int hasReverse, float maxFwd = 1.0f, float maxRev = 0.5f) {
    SetValue("sim/aircraft/overflow/acf_has_beta", hasBeta);
    SetValue("sim/aircraft/prop/acf_revthrust_eq", hasReverse);
    SetValue("sim/aircraft/engine/acf_throtmax_FWD", maxFwd);
    SetValue("sim/aircraft/engine/acf_throtmax_REV", maxRev);
  }

  static LeverFunction Bound(FunctionId id) {
    LeverFunction lever;
    InitLever(lever);
    BindLever(lever, id);
    lever.rawMin = 0;
    lever.rawMax = 106;
    return lever;
  }

  // Moves a lever away first, so that the dead band never hides the move under test.
  static void MoveTo(LeverFunction& lever, std::uint8_t raw, bool switchOn = false) {
    MoveLever(lever, raw > 50 ? 0 : 106, 0);
    MoveLever(lever, raw, switchOn ? 1u : 0u);
  }

  static double Value(const char* path, int index = -1) {
    return host().GetDatarefValue(path, index).value_or(-999.0);
  }
};

// ---- binding ------------------------------------------------------------------------------------

TEST_F(LeverFunctionTest, InitialValuesAreThoseOfAFreshLever) {
  LeverFunction lever;
  lever.rawMax = 1;
  InitLever(lever);
  EXPECT_EQ(lever.functionId, 0);
  EXPECT_EQ(lever.element, -1);
  EXPECT_EQ(lever.dataref, nullptr);
  EXPECT_EQ(lever.rawMax, 128);
  EXPECT_EQ(lever.rawMin, 112);
  EXPECT_EQ(lever.lastRaw, 55);
  EXPECT_FLOAT_EQ(lever.outMin, 0.0f);
  EXPECT_FLOAT_EQ(lever.outMax, 1.0f);
  EXPECT_FLOAT_EQ(lever.reverserPower, 1.0f);
}

TEST_F(LeverFunctionTest, ThrottleBindsItsEngineElementAndTheAircraftLimits) {
  Aircraft(1, 1, 0.9f, 0.4f);
  LeverFunction lever = Bound(kEng3Throttle);
  EXPECT_EQ(GetLeverFunctionId(lever), kEng3Throttle);
  EXPECT_EQ(lever.element, 2);
  EXPECT_NE(lever.dataref, nullptr);
  EXPECT_EQ(lever.invert, 1);
  EXPECT_EQ(lever.isThrottle, 1);
  EXPECT_EQ(lever.hasBeta, 1);
  EXPECT_EQ(lever.hasReverse, 1);
  EXPECT_FLOAT_EQ(lever.throttleMaxFwd, 0.9f);
  EXPECT_FLOAT_EQ(lever.throttleMaxRev, 0.4f);
}

TEST_F(LeverFunctionTest, ScalarLeversAreNotInvertedAndNotThrottles) {
  for (FunctionId id : {FunctionId{612}, FunctionId{87}}) {
    LeverFunction lever = Bound(kEng1Throttle);
    BindLever(lever, id);
    EXPECT_EQ(lever.element, -1) << id;
    EXPECT_EQ(lever.invert, 0) << id;
    EXPECT_EQ(lever.isThrottle, 0) << id;
    EXPECT_NE(lever.dataref, nullptr) << id;
  }
}

TEST_F(LeverFunctionTest, SpeedBrakeReachesTheArmedPositionOnlyWithTheSetting) {
  EXPECT_FLOAT_EQ(Bound(87).outMin, 0.0f);
  gSettings.GFTQ6UseSpeedBrakeArmed = 1;
  LeverFunction lever = Bound(87);
  EXPECT_FLOAT_EQ(lever.outMin, -0.5f);
  EXPECT_FLOAT_EQ(lever.outMax, 1.0f);
  MoveTo(lever, RawAt(0.0f));
  EXPECT_NEAR(Value(kSpeedBrake), -0.5, 1e-5);
}

TEST_F(LeverFunctionTest, PropellerSpansTheGovernedRangeOrStartsAtZeroWithTheSetting) {
  SetValue("sim/aircraft/controls/acf_RSC_mingreen_prp", 120.0);
  SetValue("sim/aircraft/controls/acf_RSC_redline_prp", 250.0);
  LeverFunction lever = Bound(kEng1PropPitch);
  EXPECT_FLOAT_EQ(lever.outMin, 120.0f);
  EXPECT_FLOAT_EQ(lever.outMax, 250.0f);
  MoveTo(lever, RawAt(0.0f));  // the lever's near end is the far end of the inverted travel
  EXPECT_NEAR(Value("sim/flightmodel/engine/ENGN_prop", 0), 250.0, 1e-3);

  gSettings.GFTQ6UsePropMinimumOfZero = 1;
  EXPECT_FLOAT_EQ(Bound(kEng1PropPitch).outMin, 0.0f);
}

TEST_F(LeverFunctionTest, AllEnginesIdKeepsThePreviousTargetWithTheFullRange) {
  LeverFunction lever = Bound(kEng2Mixture);
  const XPLMDataRef mixture = lever.dataref;
  BindLever(lever, kAllMixture);
  EXPECT_EQ(lever.dataref, mixture);
  EXPECT_EQ(lever.element, 1);
  EXPECT_FLOAT_EQ(lever.outMin, 0.0f);
  EXPECT_FLOAT_EQ(lever.outMax, 1.0f);
}

TEST_F(LeverFunctionTest, RebindTakesTheLimitsOfTheNewAircraftAndKeepsTheFunction) {
  Aircraft(0, 0, 1.0f, 0.0f);
  LeverFunction lever = Bound(kEng1Throttle);
  Aircraft(1, 1, 0.8f, 0.6f);
  RebindLever(lever);
  EXPECT_EQ(GetLeverFunctionId(lever), kEng1Throttle);
  EXPECT_EQ(lever.hasBeta, 1);
  EXPECT_EQ(lever.hasReverse, 1);
  EXPECT_FLOAT_EQ(lever.throttleMaxFwd, 0.8f);
  EXPECT_FLOAT_EQ(lever.throttleMaxRev, 0.6f);
  EXPECT_EQ(lever.rawMin, 0);  // the calibration survives
}

TEST_F(LeverFunctionTest, MissingAircraftDatarefsReadAsZero) {
  host().RemoveDataref("sim/aircraft/engine/acf_throtmax_FWD");
  host().RemoveDataref("sim/aircraft/prop/acf_revthrust_eq");
  SetValue(kPropMode, 1);
  LeverFunction lever = Bound(kEng1Throttle);
  EXPECT_EQ(lever.hasReverse, 0);
  EXPECT_FLOAT_EQ(lever.throttleMaxFwd, 0.0f);
  MoveTo(lever, RawAt(0.0f));  // full forward gives nothing
  EXPECT_NEAR(Value(kThrottle, 0), 0.0, 1e-6);
}

TEST_F(LeverFunctionTest, MissingTargetDatarefMakesMovesHarmless) {
  host().RemoveDataref(kMixture);
  host().RemoveDataref(kFlaps);
  host().ClearEvents();
  LeverFunction mixture = Bound(kEng2Mixture);
  LeverFunction flaps = Bound(612);
  EXPECT_EQ(mixture.dataref, nullptr);
  MoveTo(mixture, RawAt(0.5f));
  MoveTo(flaps, RawAt(0.5f));
  LeverFunction unbound;
  MoveLever(unbound, 200, 1);
  EXPECT_TRUE(host().Events().empty());
}

// ---- calibration and dead band ------------------------------------------------------------------

TEST_F(LeverFunctionTest, FirstReportWidensTheCalibrationAndClampsToTheEnd) {
  LeverFunction lever;
  InitLever(lever);
  BindLever(lever, kEng2Mixture);
  SetValue(kMixture, 0.5);
  MoveLever(lever, 200, 0);
  EXPECT_EQ(lever.rawMax, 200);
  EXPECT_EQ(lever.rawMin, 112);
  EXPECT_NEAR(Value(kMixture, 1), 0.0, 1e-6);  // p clamped to 1, inverted

  MoveLever(lever, 0, 0);
  EXPECT_EQ(lever.rawMin, 0);
  EXPECT_NEAR(Value(kMixture, 1), 1.0, 1e-6);  // inside the lower stop zone
  MoveLever(lever, 100, 0);  // lo 3, hi 197
  EXPECT_NEAR(Value(kMixture, 1), 1.0 - 97.0 / 194.0, 1e-5);
  EXPECT_EQ(lever.rawMax, 200);  // calibration only widens
}

TEST_F(LeverFunctionTest, SmallMovesOfControlLeversAreIgnored) {
  LeverFunction lever = Bound(612);
  SetFlapNullZone(lever, 1.0f);
  MoveTo(lever, 50);
  const double before = Value(kFlaps);
  MoveLever(lever, 52, 1);  // within the band: not even the switch makes it count
  MoveLever(lever, 48, 0);
  EXPECT_EQ(lever.lastRaw, 50);
  EXPECT_DOUBLE_EQ(Value(kFlaps), before);
  MoveLever(lever, 53, 0);
  EXPECT_EQ(lever.lastRaw, 53);
  EXPECT_NEAR(Value(kFlaps), 0.5, 1e-5);
}

TEST_F(LeverFunctionTest, ThrottleWithinTheBandStillSeesItsSwitch) {
  Aircraft(0, 1);
  SetValue(kPropMode, 1);
  LeverFunction lever = Bound(kEng1Throttle);
  MoveTo(lever, RawAt(1.0f));
  EXPECT_NEAR(Value(kThrottle, 0), 0.0, 1e-6);
  MoveLever(lever, RawAt(1.0f) + 1, 1);  // still at idle, switch pressed
  EXPECT_EQ(Value(kPropMode, 0), 3);
  EXPECT_NEAR(Value(kThrottle, 0), 0.5, 1e-6);
  MoveLever(lever, RawAt(1.0f) + 2, 1);  // nothing changed beyond the band
  EXPECT_EQ(lever.lastRaw, RawAt(1.0f) + 1);
}

// ---- throttle zones -----------------------------------------------------------------------------

TEST_F(LeverFunctionTest, ReverseZoneBelowTheReversePoint) {
  Aircraft(0, 1);
  SetValue(kPropMode, 1);
  LeverFunction lever = Bound(kEng1Throttle);
  SetLeverReverser(lever, 0.2f, -1.0f, 1.0f);
  struct Case {
    float v;
    int mode;
    double out;
  };
  for (const Case& c : {Case{0.6f, 1, 0.5}, Case{0.1f, 3, 0.25}, Case{0.0f, 3, 0.5}}) {
    MoveTo(lever, RawAt(1.0f - c.v));  // inverted: v is 1 - p
    EXPECT_EQ(Value(kPropMode, 0), c.mode) << c.v;
    EXPECT_NEAR(Value(kThrottle, 0), c.out, 1e-5) << c.v;
  }
}

TEST_F(LeverFunctionTest, BetaZoneBetweenReverseAndForward) {
  Aircraft(1, 1);
  SetValue(kPropMode, 1);
  LeverFunction lever = Bound(kEng1Throttle);
  SetLeverReverser(lever, 0.1f, 0.3f, 1.0f);
  struct Case {
    float v;
    int mode;
    double out;
  };
  for (const Case& c : {Case{0.65f, 1, 0.5}, Case{0.2f, 2, 0.0}, Case{0.1f, 2, 0.0}, Case{0.05f, 3, 0.25}}) {
    MoveTo(lever, RawAt(1.0f - c.v));
    EXPECT_EQ(Value(kPropMode, 0), c.mode) << c.v;
    EXPECT_NEAR(Value(kThrottle, 0), c.out, 1e-5) << c.v;
  }
}

TEST_F(LeverFunctionTest, ZonesNeedTheAircraftToHaveThem) {
  Aircraft(0, 0);
  SetValue(kPropMode, 1);
  LeverFunction lever = Bound(kEng1Throttle);
  SetLeverReverser(lever, 0.2f, 0.4f, 1.0f);
  MoveTo(lever, RawAt(0.9f));  // v = 0.1: plain forward range from 0
  EXPECT_EQ(Value(kPropMode, 0), 1);
  EXPECT_NEAR(Value(kThrottle, 0), 0.1, 1e-5);
}

TEST_F(LeverFunctionTest, DetentSwitchAtIdleGivesTheReverserPower) {
  Aircraft(0, 1);
  SetValue(kPropMode, 1);
  LeverFunction lever = Bound(kEng1Throttle);
  SetLeverReverser(lever, 0.25f, -1.0f, 0.6f);  // 0.25 and 1 - 0.75 are exact: v = A at raw 78
  MoveTo(lever, RawAt(0.75f), true);
  EXPECT_EQ(Value(kPropMode, 0), 3);
  EXPECT_NEAR(Value(kThrottle, 0), 0.3, 1e-5);

  MoveLever(lever, RawAt(0.75f), 0);  // switch released at the same place
  EXPECT_EQ(Value(kPropMode, 0), 1);
  EXPECT_NEAR(Value(kThrottle, 0), 0.0, 1e-6);

  MoveTo(lever, RawAt(0.5f), true);  // above idle the switch does nothing
  EXPECT_EQ(Value(kPropMode, 0), 1);
  EXPECT_NEAR(Value(kThrottle, 0), 1.0 / 3.0, 1e-5);
}

TEST_F(LeverFunctionTest, FeatheredPropellerKeepsItsMode) {
  Aircraft(0, 1);
  SetValue(kPropMode, 0);
  LeverFunction lever = Bound(kEng1Throttle);
  SetLeverReverser(lever, 0.2f, -1.0f, 1.0f);
  MoveTo(lever, RawAt(1.0f));  // full reverse
  EXPECT_EQ(Value(kPropMode, 0), 0);
  EXPECT_NEAR(Value(kThrottle, 0), 0.5, 1e-5);
}

TEST_F(LeverFunctionTest, ThrottleOnlyTouchesItsOwnEngine) {
  Aircraft(0, 1);
  SetValue(kPropMode, 1);
  SetValue(kThrottle, 0.7);
  LeverFunction lever = Bound(kEng3Throttle);
  SetLeverReverser(lever, 0.2f, -1.0f, 1.0f);
  MoveTo(lever, RawAt(1.0f));
  EXPECT_EQ(Value(kPropMode, 2), 3);
  EXPECT_EQ(Value(kPropMode, 1), 1);
  EXPECT_NEAR(Value(kThrottle, 1), 0.7, 1e-6);
  EXPECT_NEAR(Value(kThrottle, 2), 0.5, 1e-6);
}

// ---- flaps --------------------------------------------------------------------------------------

TEST_F(LeverFunctionTest, FlapNullZoneKeepsTheFlapsUpOverTheFirstTravel) {
  LeverFunction lever = Bound(612);
  SetFlapNullZone(lever, 0.5f);
  struct Case {
    float v;
    double flaps;
  };
  for (const Case& c : {Case{0.4f, 0.0}, Case{0.5f, 0.0}, Case{0.75f, 0.5}, Case{1.0f, 1.0}}) {
    MoveTo(lever, RawAt(c.v));
    EXPECT_NEAR(Value(kFlaps), c.flaps, 1e-5) << c.v;
  }
}

TEST_F(LeverFunctionTest, FlapNullZoneOutsideItsRangeIsCorrectedAndKept) {
  LeverFunction lever = Bound(612);
  SetFlapNullZone(lever, 0.0f);
  MoveTo(lever, RawAt(0.95f));
  EXPECT_FLOAT_EQ(lever.flapNullZone, 0.1f);
  EXPECT_NEAR(Value(kFlaps), 0.5, 1e-4);

  SetFlapNullZone(lever, 3.0f);
  MoveTo(lever, RawAt(0.3f));
  EXPECT_FLOAT_EQ(lever.flapNullZone, 1.0f);
  EXPECT_NEAR(Value(kFlaps), 0.3, 1e-5);
}

}  // namespace
}  // namespace drav

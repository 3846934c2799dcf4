// Encoder detents applied to the avionic functions, one case list per kind of function. Each case
// starts the simulator value, builds the function the way a module does, turns the knobs and reads
// the simulator value back. Expected values are worked out by hand from the field rules.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <ostream>
#include <string>
#include <system_error>
#include <vector>

#include "functions/AvionicAdjust.h"
#include "functions/AvionicDisplay.h"
#include "functions/FunctionObjects.h"
#include "base/HostState.h"
#include "base/OptionalXplmApi.h"
#include "base/Settings.h"
#include "host/SimHost.h"
#include "hid/ModuleTypes.h"

namespace drav {
namespace {

constexpr const char* kAdf1 = "sim/cockpit/radios/adf1_freq_hz";
constexpr const char* kAdf1Standby = "sim/cockpit/radios/adf1_stdby_freq_hz";
constexpr const char* kAdf2 = "sim/cockpit/radios/adf2_freq_hz";
constexpr const char* kAdf2Standby = "sim/cockpit/radios/adf2_stdby_freq_hz";
constexpr const char* kCom1 = "sim/cockpit/radios/com1_freq_hz";
constexpr const char* kCom1Standby = "sim/cockpit/radios/com1_stdby_freq_hz";
constexpr const char* kCom2 = "sim/cockpit/radios/com2_freq_hz";
constexpr const char* kCom2Standby = "sim/cockpit/radios/com2_stdby_freq_hz";
constexpr const char* kDme = "sim/cockpit/radios/dme_freq_hz";
constexpr const char* kDmeStandby = "sim/cockpit/radios/dme_stdby_freq_hz";
constexpr const char* kNav1 = "sim/cockpit/radios/nav1_freq_hz";
constexpr const char* kNav1Standby = "sim/cockpit/radios/nav1_stdby_freq_hz";
constexpr const char* kNav2 = "sim/cockpit/radios/nav2_freq_hz";
constexpr const char* kNav2Standby = "sim/cockpit/radios/nav2_stdby_freq_hz";
constexpr const char* kTransponder = "sim/cockpit/radios/transponder_code";
constexpr const char* kAdf1Card = "sim/cockpit/radios/adf1_cardinal_dir";
constexpr const char* kAdf2Card = "sim/cockpit/radios/adf2_cardinal_dir";
constexpr const char* kNav1Obs = "drav/autopilot/nav1_obs";
constexpr const char* kNav2Obs = "drav/autopilot/nav2_obs";
constexpr const char* kHeading = "drav/autopilot/heading_crs";
constexpr const char* kSpeed = "sim/cockpit/autopilot/airspeed";
constexpr const char* kIsMach = "sim/cockpit/autopilot/airspeed_is_mach";
constexpr const char* kX737Speed = "x737/systems/athr/MCPSPD_spd";
constexpr const char* kX737IsMach = "x737/systems/athr/MCPSPD_ismach";
constexpr const char* kAltitude = "sim/cockpit/autopilot/altitude";
constexpr const char* kAltKnob = "drav/autopilot_knob/alt_knob";
constexpr const char* kVerticalSpeed = "sim/cockpit/autopilot/vertical_velocity";
constexpr const char* kX737VerticalSpeed = "x737/systems/afds/VS_vvi";
constexpr const char* kBarometer = "sim/cockpit/misc/barometer_setting";
constexpr const char* kDecisionHeight = "sim/cockpit/misc/radio_altimeter_minimum";
constexpr const char* kCockpitLights = "sim/cockpit/electrical/cockpit_lights";
constexpr const char* kHudBrightness = "sim/cockpit/electrical/HUD_brightness";
constexpr const char* kInstrumentBrightness = "sim/cockpit/electrical/instrument_brightness";
constexpr const char* kElevatorTrim = "sim/flightmodel/controls/elv_trim";
constexpr const char* kAileronTrim = "sim/flightmodel/controls/ail_trim";
constexpr const char* kRudderTrim = "sim/flightmodel/controls/rud_trim";
constexpr const char* kRotorTrim = "sim/flightmodel/controls/rot_trim";

constexpr std::int32_t kMaxSteps = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kMinSteps = std::numeric_limits<std::int32_t>::min();

// One turn: the function and where its value lives, the start value, the two counts, the calling
// module and the value expected afterwards. A flag dataref (Mach, altitude knob) is set first when
// given; x737 selects the aircraft's datarefs, as the factory does while X737Mode is set.
struct TurnCase {
  const char* name;
  FunctionId id;
  const char* path;
  double start;
  std::int32_t outer;
  std::int32_t inner;
  std::uint32_t module;
  double expected;
  const char* flagPath = nullptr;
  double flagValue = 0;
  bool x737 = false;
};

void PrintTo(const TurnCase& c, std::ostream* out) { *out << c.name; }

std::string CaseName(const ::testing::TestParamInfo<TurnCase>& info) { return info.param.name; }

class AvionicAdjustTest : public ::testing::Test {
 protected:
  void SetUp() override {
    const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
    root_ = std::filesystem::temp_directory_path() /
            ("drav-adjust-" + std::to_string(std::chrono::steady_clock::now().time_since_epoch().count()) + "-" +
             std::to_string(reinterpret_cast<std::uintptr_t>(info)));
    host().Reset(root_);
    ResetGlobals();
    CurrentSimulatorVersions().xplaneVersion = 12000;  // what the host reports; the start-up would read it
  }

  void TearDown() override {
    ResetGlobals();
    host().Reset({});
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
  }

  static void ResetGlobals() {
    CurrentSettings() = GlobalSettings{};
    CurrentSimulatorVersions() = SimulatorVersions{};
  }

  static sim::SimHost& host() { return sim::SimHost::Current(); }

  // The system's own and the aircraft's datarefs are not in the simulator by themselves: courses
  // and values are float, flags int, as they are published.
  static void EnsureDataref(const std::string& path, sim::DatarefType type) {
    if (host().HasDataref(path)) return;
    ASSERT_TRUE(host().AddDataref(sim::DatarefDecl{path, type, 1, true})) << path;
  }

  static void SetValue(const std::string& path, double value) {
    ASSERT_TRUE(host().SetDatarefValue(path, -1, -1, value)) << path;
  }

  static double Value(const std::string& path) {
    const auto value = host().GetDatarefValue(path);
    EXPECT_TRUE(value.has_value()) << path;
    return value.value_or(-12345.0);
  }

  // The factory as a module calls it for an encoder.
  static AvionicFunction* Build(FunctionId id) {
    AvionicFunction* function = nullptr;
    SwitchFunction scratch;
    ClearFunction(scratch);
    CreateFunction(id, &function, scratch, -1, -1);
    return function;
  }

  static double Turn(const TurnCase& c) {
    CurrentHostFlags().x737Mode = c.x737 ? 1 : 0;
    EnsureDataref(c.path, sim::DatarefType::Float);
    if (c.flagPath != nullptr) {
      EnsureDataref(c.flagPath, sim::DatarefType::Int);
      SetValue(c.flagPath, c.flagValue);
    }
    SetValue(c.path, c.start);
    AvionicFunction* function = Build(c.id);
    EXPECT_NE(function, nullptr) << c.id;
    AdjustAvionicFunction(function, c.outer, c.inner, c.module);
    return Value(c.path);
  }

 private:
  std::filesystem::path root_;
};

class TurnTest : public AvionicAdjustTest, public ::testing::WithParamInterface<TurnCase> {};

TEST_P(TurnTest, SetsTheSimulatorValue) {
  const TurnCase& c = GetParam();
  EXPECT_FLOAT_EQ(static_cast<float>(Turn(c)), static_cast<float>(c.expected));
}

// ---- COM: 25 kHz channels, kHz and MHz fields that never carry into each other -----------------

INSTANTIATE_TEST_SUITE_P(
    ComDual, TurnTest,
    ::testing::Values(
        TurnCase{"TopChannelWrapsWithoutCarry", 9, kCom1, 13697, 0, 1, kModuleGF45, 13600},
        TurnCase{"BottomChannelWrapsDown", 9, kCom1, 11800, 0, -1, kModuleGF45, 11897},
        TurnCase{"Channel25Restored", 12, kCom2, 12152, 0, 1, kModuleGF45, 12155},
        TurnCase{"MegahertzWrapsToBottom", 9, kCom1, 13650, 1, 0, kModuleGF45, 11850},
        TurnCase{"InnerThenOuter", 13, kCom2Standby, 13697, 1, 1, kModuleGF45, 11800},
        TurnCase{"OutOfBandComesBackIntoBand", 9, kCom1, 10000, 0, 1, kModuleGF45, 11902}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    ComCoarse, TurnTest,
    ::testing::Values(TurnCase{"Com1ActiveOuterIgnored", 41, kCom1, 12150, 5, 1, kModuleGFRP48, 12250},
                      TurnCase{"Com2ActiveWrapsDown", 45, kCom2, 11800, 0, -1, kModuleGFRP48, 13600},
                      TurnCase{"Com2StandbyKeepsChannel", 47, kCom2Standby, 12152, 0, 2, kModuleGFRP48, 12352}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    ComFine, TurnTest,
    ::testing::Values(TurnCase{"Com1ActiveOuterIgnored", 42, kCom1, 12150, 3, 1, kModuleGFRP48, 12152},
                      TurnCase{"Com1StandbyWrapsWithoutCarry", 44, kCom1Standby, 13697, 0, 1, kModuleGFRP48, 13600},
                      TurnCase{"Com2ActiveWrapsDown", 46, kCom2, 11800, 0, -1, kModuleGFRP48, 11897}),
    CaseName);

// ---- DME and NAV: 50 kHz steps -----------------------------------------------------------------

INSTANTIATE_TEST_SUITE_P(
    NavDual, TurnTest,
    ::testing::Values(TurnCase{"DmeWrapsDownWithoutBorrow", 15, kDme, 10800, 0, -1, kModuleGF45, 10895},
                      TurnCase{"DmeDualBothKnobs", 17, kDme, 11000, 3, 2, kModuleGF45, 11310},
                      TurnCase{"Nav1OuterWrapsToBottom", 18, kNav1, 11795, 1, 0, kModuleGF45, 10895},
                      TurnCase{"Nav1InnerWrapsWithoutCarry", 18, kNav1, 11795, 0, 1, kModuleGF45, 11700},
                      TurnCase{"Nav1DualSevenMegahertz", 20, kNav1, 11030, 7, 0, kModuleGF45, 11730},
                      TurnCase{"Nav2InnerWrapsPastTop", 21, kNav2, 11590, 0, 3, kModuleGF45, 11505},
                      TurnCase{"Nav2DualInnerThenOuter", 23, kNav2, 11350, 1, -1, kModuleGF45, 11445}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    NavCoarse, TurnTest,
    ::testing::Values(TurnCase{"DmeActiveOuterIgnored", 49, kDme, 11795, 4, 1, kModuleGFRP48, 10895},
                      TurnCase{"DmeStandbyWrapsToTop", 51, kDmeStandby, 10800, 0, -1, kModuleGFRP48, 11700},
                      TurnCase{"Nav1StandbyWraps", 55, kNav1Standby, 11030, 0, 8, kModuleGFRP48, 10830}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    NavFine, TurnTest,
    ::testing::Values(TurnCase{"DmeActiveOuterIgnored", 50, kDme, 11795, 1, 1, kModuleGFRP48, 11700},
                      TurnCase{"DmeStandbyWrapsDown", 52, kDmeStandby, 10800, 0, -1, kModuleGFRP48, 10895},
                      TurnCase{"Nav1StandbyWrapsDown", 56, kNav1Standby, 11030, 0, -7, kModuleGFRP48, 11095},
                      TurnCase{"Nav2ActiveTenDetents", 57, kNav2, 11350, 0, 10, kModuleGFRP48, 11300}),
    CaseName);

// ---- ADF: tens and units, and the hundreds digit (the thousands digit stays) -------------------

INSTANTIATE_TEST_SUITE_P(
    AdfDual, TurnTest,
    ::testing::Values(TurnCase{"HundredsKeepThousands", 1, kAdf1, 1799, 1, 0, kModuleGF45, 1899},
                      TurnCase{"HundredsWrapKeepsThousands", 1, kAdf1, 1999, 1, 0, kModuleGF45, 1299},
                      TurnCase{"DualUnitsWrapWithoutCarry", 3, kAdf1, 399, 0, 1, kModuleGF45, 300},
                      TurnCase{"Adf2StandbyHundredsWrapToNine", 6, kAdf2Standby, 200, -1, 0, kModuleGF45, 900},
                      TurnCase{"Adf2DualInnerThenOuter", 7, kAdf2, 1750, -2, 5, kModuleGF45, 1555}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    AdfCoarse, TurnTest,
    ::testing::Values(TurnCase{"Adf1ActiveOuterIgnored", 33, kAdf1, 362, 3, 1, kModuleGFRP48, 462},
                      TurnCase{"Adf1StandbyWraps", 35, kAdf1Standby, 950, 0, 1, kModuleGFRP48, 250},
                      TurnCase{"Adf2ActiveWrapsDown", 37, kAdf2, 250, 0, -1, kModuleGFRP48, 950}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    AdfFine, TurnTest,
    ::testing::Values(TurnCase{"Adf1ActiveOuterIgnored", 34, kAdf1, 362, 3, 1, kModuleGFRP48, 363},
                      TurnCase{"Adf1StandbyWraps", 36, kAdf1Standby, 399, 0, 1, kModuleGFRP48, 300},
                      TurnCase{"Adf2StandbySixtyDetents", 40, kAdf2Standby, 1750, 0, 60, kModuleGFRP48, 1710}),
    CaseName);

// ---- transponder: octal pairs for the whole code, single octal digits --------------------------

INSTANTIATE_TEST_SUITE_P(
    TransponderPairs, TurnTest,
    ::testing::Values(TurnCase{"LowPairWrapsUp", 24, kTransponder, 7777, 0, 1, kModuleGF45, 7700},
                      TurnCase{"HighPairStepsDown", 24, kTransponder, 1200, -1, 0, kModuleGF45, 1100},
                      TurnCase{"LowPairWrapsDown", 24, kTransponder, 1200, 0, -1, kModuleGF45, 1277},
                      TurnCase{"HighPairWrapsDown", 24, kTransponder, 0, -1, 0, kModuleGF45, 7700},
                      TurnCase{"InnerThenOuter", 24, kTransponder, 777, 1, 1, kModuleGF45, 1000}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    TransponderDigits, TurnTest,
    ::testing::Values(TurnCase{"FirstDigitWraps", 29, kTransponder, 7700, 0, 1, kModuleGFRP48, 700},
                      TurnCase{"SecondDigitWrapsWithoutCarry", 30, kTransponder, 1700, 0, 1, kModuleGFRP48, 1000},
                      TurnCase{"ThirdDigitWrapsDown", 31, kTransponder, 1200, 0, -1, kModuleGFRP48, 1270},
                      TurnCase{"FourthDigitWraps", 32, kTransponder, 1277, 0, 1, kModuleGFRP48, 1270},
                      TurnCase{"FourthDigitOuterIgnored", 32, kTransponder, 1200, 1, 9, kModuleGFRP48, 1201}),
    CaseName);

// ---- courses and headings: the knob layout depends on the calling module -----------------------

INSTANTIATE_TEST_SUITE_P(
    CourseSingleKnob, TurnTest,
    ::testing::Values(TurnCase{"HeadingWrapsUp", 63, kHeading, 360, 0, 1, kModuleGFMCP, 1},
                      TurnCase{"HeadingTruncated", 63, kHeading, 90.7, 0, 1, kModuleGFMCPPro, 91},
                      TurnCase{"CourseOuterIgnored", 64, kNav1Obs, 180, 1, 5, kModuleGFMCP, 185},
                      TurnCase{"AdfCardWraps", 4, kAdf1Card, 359, 0, 3, kModuleGFRP48, 2},
                      TurnCase{"EfisObsOuterIgnored", 62, kNav2Obs, 10, 3, -1, kModuleGFEFIS, 9}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    CourseGF45, TurnTest,
    ::testing::Values(TurnCase{"OuterHundredsClamp", 63, kHeading, 300, 1, 0, kModuleGF45, 360},
                      TurnCase{"InnerThenOuter", 61, kNav1Obs, 45, 1, 1, kModuleGF45, 146},
                      TurnCase{"OuterClampsAtOne", 62, kNav2Obs, 120, -2, 0, kModuleGF45, 1},
                      TurnCase{"InnerWraps", 8, kAdf2Card, 360, 0, 1, kModuleGF45, 1}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    CourseGF46AndGF166, TurnTest,
    ::testing::Values(TurnCase{"InnerHundredsClamp", 63, kHeading, 300, 0, 1, kModuleGF46, 360},
                      TurnCase{"OuterSingleDegreesWrap", 63, kHeading, 360, 1, 0, kModuleGF46, 1},
                      // outer first: 350 + 20 wraps to 10, then -100 clamps to 1 (inner first would give 270)
                      TurnCase{"OuterBeforeInner", 61, kNav1Obs, 350, 20, -1, kModuleGF166, 1},
                      TurnCase{"OuterDownThenHundredsUp", 64, kNav1Obs, 100, -1, 2, kModuleGF166, 299}),
    CaseName);

// ---- autopilot targets -------------------------------------------------------------------------

INSTANTIATE_TEST_SUITE_P(
    Speed, TurnTest,
    ::testing::Values(TurnCase{"MachHundredths", 65, kSpeed, 0.78, 0, 2, kModuleGFMCP, 0.80, kIsMach, 1},
                      TurnCase{"MachClampsAtThree", 65, kSpeed, 2.99, 0, 5, kModuleGFMCP, 3.00, kIsMach, 1},
                      TurnCase{"MachClampsAtZero", 65, kSpeed, 0.01, 0, -3, kModuleGFMCP, 0.0, kIsMach, 1},
                      TurnCase{"KnotsClampAt995", 65, kSpeed, 990, 0, 10, kModuleGFMCP, 995, kIsMach, 0},
                      TurnCase{"KnotsOuterIgnored", 65, kSpeed, 250, 1, -1, kModuleGFMCP, 249, kIsMach, 0},
                      TurnCase{"X737Mach", 65, kX737Speed, 0.78, 0, 1, kModuleGFMCPPro, 0.79, kX737IsMach, 1, true},
                      TurnCase{"X737Knots", 65, kX737Speed, 0.78, 0, 1, kModuleGFMCPPro, 1, kX737IsMach, 0, true}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    Altitude, TurnTest,
    ::testing::Values(TurnCase{"HundredsWithKnobFlagOff", 66, kAltitude, 5000, 0, -3, kModuleGFMCP, 4700, kAltKnob, 0},
                      TurnCase{"TensWithKnobFlagOn", 66, kAltitude, 5000, 0, 3, kModuleGFMCP, 5030, kAltKnob, 1},
                      TurnCase{"ClampsAtTop", 66, kAltitude, 99950, 0, 1, kModuleGFMCP, 99990},
                      TurnCase{"ClampsAtZero", 66, kAltitude, 50, 0, -1, kModuleGFMCP, 0},
                      TurnCase{"OuterIgnored", 66, kAltitude, 5000, 4, 0, kModuleGFMCP, 5000}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    VerticalSpeed, TurnTest,
    ::testing::Values(TurnCase{"StaysAtBottom", 67, kVerticalSpeed, -9900, 0, -1, kModuleGFMCP, -9900},
                      TurnCase{"CrossesZeroDownward", 67, kVerticalSpeed, 1500, 0, -20, kModuleGFMCP, -500},
                      TurnCase{"ClampsAtTop", 67, kVerticalSpeed, 9850, 0, 1, kModuleGFMCP, 9900},
                      TurnCase{"X737FiftyDown", 67, kX737VerticalSpeed, -1500, 0, -1, kModuleGFMCPPro, -1550, nullptr,
                               0, true}),
    CaseName);

// ---- altimeter and decision height -------------------------------------------------------------

INSTANTIATE_TEST_SUITE_P(
    Altimeter, TurnTest,
    ::testing::Values(TurnCase{"HundredthUp", 68, kBarometer, 29.92, 0, 1, kModuleGF166, 29.93},
                      TurnCase{"StaysAtTop", 68, kBarometer, 34.00, 0, 1, kModuleGF166, 34.00},
                      TurnCase{"StaysAtBottom", 68, kBarometer, 24.00, 0, -1, kModuleGF166, 24.00},
                      TurnCase{"RoundsToNearestHundredth", 68, kBarometer, 30.125, 0, 1, kModuleGF166, 30.14},
                      TurnCase{"OuterIgnored", 68, kBarometer, 29.92, 5, 0, kModuleGF166, 29.92}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    DecisionHeight, TurnTest,
    ::testing::Values(TurnCase{"Rp48TensOfFeet", 75, kDecisionHeight, 200, 0, 1, kModuleGFRP48, 210},
                      TurnCase{"EfisClampsAtTop", 75, kDecisionHeight, 9995, 0, 1, kModuleGFEFIS, 9999},
                      TurnCase{"EfisClampsAtZero", 75, kDecisionHeight, 5, 0, -1, kModuleGFEFIS, 0},
                      TurnCase{"RadioUnitsWrapWithoutCarry", 75, kDecisionHeight, 299, 0, 1, kModuleGF45, 200},
                      TurnCase{"RadioHundredsClamp", 75, kDecisionHeight, 9950, 1, 0, kModuleGF166, 9950},
                      TurnCase{"RadioBothKnobsDown", 75, kDecisionHeight, 0, -1, -1, kModuleGF46, 99},
                      TurnCase{"OtherModuleSplitsToo", 75, kDecisionHeight, 1200, 0, 1, kModuleGFMCP, 1201}),
    CaseName);

// ---- brightness ratios in percent --------------------------------------------------------------

// 0.70 is 70 percent in float arithmetic (69 in double), so one step of the HUD gives 75.
INSTANTIATE_TEST_SUITE_P(
    Brightness, TurnTest,
    ::testing::Values(TurnCase{"HudFromSeventy", 71, kHudBrightness, 0.70, 0, 1, kModuleGFRP48, 0.75},
                      TurnCase{"InstrumentClampsAtFull", 72, kInstrumentBrightness, 1.0, 0, 1, kModuleGFRP48, 1.0},
                      TurnCase{"LevelClampsAtTen", 73, kInstrumentBrightness, 0.10, 0, -1, kModuleGFRP48, 0.10},
                      TurnCase{"PanelFromDarkClampsUp", 74, kCockpitLights, 0.0, 0, 1, kModuleGFRP48, 0.10},
                      TurnCase{"OuterIgnored", 69, kCockpitLights, 0.5, 2, -3, kModuleGFRP48, 0.35}),
    CaseName);

// ---- selectors: some modules turn them with the outer knob -------------------------------------

constexpr const char* kMapMode = "sim/cockpit/switches/EFIS_map_mode";
// X-Plane 12 keeps the map mode (1 map, 0 HSI) as its opposite, the HSI flag.
constexpr const char* kMapIsHsi = "sim/cockpit2/EFIS/map_mode_is_HSI";
constexpr const char* kMapSubMode = "sim/cockpit/switches/EFIS_map_submode";
constexpr const char* kMapRange = "sim/cockpit/switches/EFIS_map_range_selector";
constexpr const char* kApu = "sim/cockpit/engine/APU_switch";
constexpr const char* kHsi = "sim/cockpit/switches/HSI_selector";
constexpr const char* kBleedAir = "sim/cockpit/pressure/bleed_air_mode";
constexpr const char* kTransponderMode = "sim/cockpit/radios/transponder_mode";
constexpr const char* kNavComAdf = "sim/cockpit/radios/nav_com_adf_mode";

INSTANTIATE_TEST_SUITE_P(
    EfisSelectors, TurnTest,
    ::testing::Values(TurnCase{"ModeUpOnEfis", 113, kMapIsHsi, 1, 0, 1, kModuleGFEFIS, 0},
                      TurnCase{"ModeClampsAtOne", 113, kMapIsHsi, 0, 0, 1, kModuleGFEFIS, 0},
                      TurnCase{"ModeInnerIgnoredOnGF45", 113, kMapIsHsi, 1, 0, 1, kModuleGF45, 1},
                      TurnCase{"ModeOuterOnGF45", 113, kMapIsHsi, 1, 1, 0, kModuleGF45, 0},
                      TurnCase{"ModeInnerOnMcp", 113, kMapIsHsi, 1, -1, 1, kModuleGFMCP, 0},
                      TurnCase{"SubModeClampsAtFour", 114, kMapSubMode, 2, 0, 5, kModuleGFEFIS, 4},
                      TurnCase{"SubModeOuterOnGF46", 114, kMapSubMode, 2, -1, 0, kModuleGF46, 1},
                      TurnCase{"RangeClampsAtSix", 115, kMapRange, 5, 0, 3, kModuleGFEFIS, 6},
                      TurnCase{"RangeOuterClampsAtZero", 115, kMapRange, 3, -4, 0, kModuleGF45, 0}),
    CaseName);

// An older simulator keeps the map mode itself, and shows it as it is.
TEST_F(AvionicAdjustTest, MapModeOnAnOlderSimulatorTurnsTheOriginal) {
  host().SetXPlaneVersion(11000);
  CurrentSimulatorVersions().xplaneVersion = 11000;
  SetValue(kMapMode, 0);
  SetValue(kMapIsHsi, 0);
  AvionicFunction* mode = Build(113);
  ASSERT_NE(mode, nullptr);
  AdjustAvionicFunction(mode, 0, 1, kModuleGFEFIS);
  EXPECT_EQ(Value(kMapMode), 1);
  EXPECT_EQ(Value(kMapIsHsi), 0);
}

// The display shows the map mode, not the HSI flag it is kept as.
TEST_F(AvionicAdjustTest, MapModeOnXPlane12ShowsTheOppositeOfTheHsiFlag) {
  SetValue(kMapIsHsi, 1);
  AvionicFunction* mode = Build(113);
  ASSERT_NE(mode, nullptr);
  EXPECT_EQ(GetAvionicValue(*mode), 0.0f);
  SetValue(kMapIsHsi, 0);
  EXPECT_EQ(GetAvionicValue(*mode), 1.0f);
}

INSTANTIATE_TEST_SUITE_P(
    PanelSelectors, TurnTest,
    ::testing::Values(TurnCase{"ApuInnerOnGF45", 77, kApu, 1, 0, 1, kModuleGF45, 2},
                      TurnCase{"ApuOuterIgnoredOnGF45", 77, kApu, 1, 1, 0, kModuleGF45, 1},
                      TurnCase{"ApuInnerIgnoredOnGF46", 77, kApu, 1, 0, 1, kModuleGF46, 1},
                      TurnCase{"ApuOuterOnGF46", 77, kApu, 1, 1, 0, kModuleGF46, 2},
                      TurnCase{"ApuClampsAtTwo", 77, kApu, 2, 1, 0, kModuleGF46, 2},
                      TurnCase{"HsiClampsAtTwo", 81, kHsi, 0, 0, 5, kModuleGF166, 2},
                      TurnCase{"BleedAirClampsAtFour", 78, kBleedAir, 3, 0, 2, kModuleGFRP48, 4},
                      TurnCase{"TransponderModeClampsOnGF46", 79, kTransponderMode, 4, 1, 0, kModuleGF46, 4},
                      TurnCase{"NavComAdfClampsAtFive", 80, kNavComAdf, 1, 5, 0, kModuleGF46, 5}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    InnerOnlySelectors, TurnTest,
    ::testing::Values(
        TurnCase{"AutoBrakeClampsAtFive", 439, "sim/cockpit/switches/auto_brake_settings", 4, 0, 2, kModuleGF45, 5},
        TurnCase{"AutoBrakeOuterIgnoredOnGF46", 439, "sim/cockpit/switches/auto_brake_settings", 2, 1, 0, kModuleGF46,
                 2},
        TurnCase{"FuelFeedClampsAtZero", 173, "sim/cockpit/engine/fuel_tank_selector", 0, 0, -1, kModuleGFRP48, 0},
        TurnCase{"TransferFromClampsAtThree", 174, "sim/cockpit/engine/fuel_tank_transfer_from", 2, 0, 5,
                 kModuleGFRP48, 3}),
    CaseName);

// ---- absurd counts: saturating arithmetic, the clamped fields end at their limits --------------

INSTANTIATE_TEST_SUITE_P(
    AbsurdCounts, TurnTest,
    ::testing::Values(TurnCase{"AltitudeUp", 66, kAltitude, 5000, kMinSteps, kMaxSteps, kModuleGFMCP, 99990},
                      TurnCase{"VerticalSpeedDown", 67, kVerticalSpeed, 0, kMaxSteps, kMinSteps, kModuleGFMCP, -9900},
                      TurnCase{"HeadingOuterOnGF45", 63, kHeading, 180, kMaxSteps, 0, kModuleGF45, 360},
                      TurnCase{"AltimeterDown", 68, kBarometer, 29.92, 0, kMinSteps, kModuleGF166, 24.00},
                      TurnCase{"BrightnessUp", 69, kCockpitLights, 0.5, 0, kMaxSteps, kModuleGFRP48, 1.0},
                      TurnCase{"SelectorDown", 80, kNavComAdf, 3, kMinSteps, 0, kModuleGF46, 0}),
    CaseName);

// ---- trims: a float step from the settings, limited by the simulator's version -----------------

struct TrimCase {
  const char* name;
  FunctionId id;
  const char* path;
  int xplaneVersion;
  float increment;  // replaces the setting of the trim's axis
  double start;
  std::int32_t outer;
  std::int32_t inner;
  double expected;
};

void PrintTo(const TrimCase& c, std::ostream* out) { *out << c.name; }

class TrimTest : public AvionicAdjustTest, public ::testing::WithParamInterface<TrimCase> {
 protected:
  static float& IncrementFor(FunctionId id) {
    switch (id) {
      case 430: return CurrentSettings().AileronTrimIncrement;
      case 433: return CurrentSettings().RudderTrimIncrement;
      case 436: return CurrentSettings().RotorTrimIncrement;
      default: return CurrentSettings().ElevatorTrimIncrement;
    }
  }
};

TEST_P(TrimTest, StepsByTheSettingWithinTheLimit) {
  const TrimCase& c = GetParam();
  host().SetXPlaneVersion(c.xplaneVersion);
  CurrentSimulatorVersions().xplaneVersion = c.xplaneVersion;
  IncrementFor(c.id) = c.increment;
  SetValue(c.path, c.start);
  AdjustAvionicFunction(Build(c.id), c.outer, c.inner, kModuleGFLGT2);
  EXPECT_NEAR(Value(c.path), c.expected, 1e-6);
}

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

INSTANTIATE_TEST_SUITE_P(
    Trims, TrimTest,
    ::testing::Values(TrimCase{"ElevatorClampsAtOne", 427, kElevatorTrim, 12000, 0.005f, 0.998, 0, 1, 1.0},
                      TrimCase{"ElevatorOldSimulatorClampsAtHalf", 427, kElevatorTrim, 9000, 0.005f, 0.498, 0, 1, 0.5},
                      TrimCase{"ElevatorOldSimulatorClampsDown", 427, kElevatorTrim, 9000, 0.005f, -0.498, 0, -1, -0.5},
                      TrimCase{"Version10000IsNew", 427, kElevatorTrim, 10000, 0.005f, 0.9, 0, 50, 1.0},
                      TrimCase{"Version9999IsOld", 427, kElevatorTrim, 9999, 0.005f, 0.4, 0, 50, 0.5},
                      TrimCase{"ElevatorCustomStep", 427, kElevatorTrim, 12000, 0.1f, 0.5, 0, 2, 0.7},
                      TrimCase{"ZeroStepChangesNothing", 427, kElevatorTrim, 12000, 0.0f, 0.3, 0, 4, 0.3},
                      TrimCase{"NaNStepChangesNothing", 427, kElevatorTrim, 12000, kNaN, 0.3, 0, 1, 0.3},
                      TrimCase{"RudderOuterIgnored", 433, kRudderTrim, 12000, 0.001f, 0.2, 5, 2, 0.202},
                      TrimCase{"RotorOnAnOlderSimulator", 436, kRotorTrim, 11000, 0.001f, 0.0, 0, 1, 0.001},
                      TrimCase{"AbsurdCountClamps", 427, kElevatorTrim, 12000, 0.005f, 0.0, 0, kMinSteps, -1.0}),
    [](const ::testing::TestParamInfo<TrimCase>& info) { return std::string(info.param.name); });

// X-Plane 12 keeps no rotor trim value: each step of the knob runs the simulator's trim command
// once, in the direction of the turn, and a fast turn stops at a sane number of commands.
TEST_F(AvionicAdjustTest, RotorTrimStepsByCommandWhereTheSimulatorKeepsNoValue) {
  ASSERT_TRUE(LoadOptionalXplmApi());
  ASSERT_FALSE(host().HasDataref(kRotorTrim));
  AvionicFunction* rotor = Build(436);
  ASSERT_NE(rotor, nullptr);
  host().ClearEvents();
  AdjustAvionicFunction(rotor, 5, 2, kModuleGFLGT2);
  AdjustAvionicFunction(rotor, 0, -1, kModuleGFLGT2);
  EXPECT_EQ(host().Events(), (std::vector<std::string>{"command-once sim/flight_controls/gyro_rotor_trim_up",
                                                       "command-once sim/flight_controls/gyro_rotor_trim_up",
                                                       "command-once sim/flight_controls/gyro_rotor_trim_down"}));
  host().ClearEvents();
  AdjustAvionicFunction(rotor, 0, kMinSteps, kModuleGFLGT2);
  EXPECT_EQ(host().Events().size(), 64u);

  // Without the commands either, the knob does nothing.
  host().SetCommandKnown("sim/flight_controls/gyro_rotor_trim_up", false);
  rotor = Build(436);
  host().ClearEvents();
  AdjustAvionicFunction(rotor, 0, 3, kModuleGFLGT2);
  EXPECT_TRUE(host().Events().empty());
}

TEST_F(AvionicAdjustTest, EachTrimReadsItsOwnSetting) {
  // The rotor trim is a value only in simulators older than X-Plane 12.
  host().SetXPlaneVersion(11000);
  CurrentSimulatorVersions().xplaneVersion = 11000;
  CurrentSettings().ElevatorTrimIncrement = 0.1f;
  CurrentSettings().AileronTrimIncrement = 0.2f;
  CurrentSettings().RudderTrimIncrement = 0.3f;
  CurrentSettings().RotorTrimIncrement = 0.4f;
  const struct {
    FunctionId id;
    const char* path;
    double expected;
  } trims[] = {{427, kElevatorTrim, 0.1}, {430, kAileronTrim, 0.2}, {433, kRudderTrim, 0.3}, {436, kRotorTrim, 0.4}};
  for (const auto& trim : trims) {
    SetValue(trim.path, 0.0);
    AdjustAvionicFunction(Build(trim.id), 0, 1, kModuleGFLGT2);
    EXPECT_NEAR(Value(trim.path), trim.expected, 1e-6) << trim.id;
  }
}

// ---- write-back and display --------------------------------------------------------------------

// One detent writes the value once, the altimeter in inches; the text follows the adjusted value at once.
TEST_F(AvionicAdjustTest, WritesTheValueOnceAndShowsIt) {
  const struct {
    FunctionId id;
    const char* path;
    double start;
    std::uint32_t module;
    const char* written;
    const char* text;
  } rows[] = {{9, kCom1, 11850, kModuleGF45, "11852", "118.52"},
              {68, kBarometer, 29.92, kModuleGF166, "29.93", " 29.93"}};
  for (const auto& row : rows) {
    SetValue(row.path, row.start);
    AvionicFunction* function = Build(row.id);
    host().ClearEvents();
    AdjustAvionicFunction(function, 0, 1, row.module);
    EXPECT_EQ(host().Events(), std::vector<std::string>{std::string("dataref-write ") + row.path + " " + row.written});
    EXPECT_STREQ(function->text, row.text) << row.id;
  }
}

TEST_F(AvionicAdjustTest, NothingToAdjustWritesNothing) {
  SetValue(kCom1, 11850);
  AvionicFunction* next = Build(26);  // NEXT shares COM1_DUAL's object under its own id
  ASSERT_NE(next, nullptr);
  ASSERT_FALSE(host().HasDataref(kNav1Obs));  // the system's own course datarefs not published
  AvionicFunction* obs = Build(61);
  host().ClearEvents();
  AdjustAvionicFunction(next, 1, 1, kModuleGF166);
  AdjustAvionicFunction(nullptr, 1, 1, kModuleGF45);
  AdjustAvionicFunction(obs, 1, 1, kModuleGF45);
  EXPECT_TRUE(host().Events().empty());
  EXPECT_EQ(Value(kCom1), 11850);
  EXPECT_STREQ(obs->text, " 000") << "a missing value reads and shows as 0";
}

// ---- DISP_BRIGHTNESS: the panels' shared level -------------------------------------------------

struct LevelCase {
  const char* name;
  std::int32_t start;
  std::int32_t outer;
  std::int32_t inner;
  std::int32_t expected;
};

void PrintTo(const LevelCase& c, std::ostream* out) { *out << c.name; }

class DisplayBrightnessTest : public AvionicAdjustTest, public ::testing::WithParamInterface<LevelCase> {};

TEST_P(DisplayBrightnessTest, SetsTheSharedLevel) {
  const LevelCase& c = GetParam();
  SetDisplayBrightnessLevel(c.start);  // no panel is connected to read a level from
  AvionicFunction* level = Build(70);
  host().ClearEvents();
  AdjustAvionicFunction(level, c.outer, c.inner, kModuleGF46);
  EXPECT_EQ(GetDisplayBrightnessLevel(), c.expected);
  EXPECT_TRUE(host().Events().empty()) << "the level is no simulator value";
}

INSTANTIATE_TEST_SUITE_P(Levels, DisplayBrightnessTest,
                         ::testing::Values(LevelCase{"Up", 8, 0, 3, 11}, LevelCase{"ClampsAtFifteen", 15, 0, 1, 15},
                                           LevelCase{"ClampsAtOne", 1, 0, -1, 1},
                                           LevelCase{"OuterIgnored", 8, 5, 0, 8},
                                           LevelCase{"AbsurdCount", 8, 0, kMaxSteps, 15}),
                         [](const ::testing::TestParamInfo<LevelCase>& info) { return std::string(info.param.name); });

TEST_F(AvionicAdjustTest, DisplayBrightnessTextWaitsForTheNextRefresh) {
  AvionicFunction* level = Build(70);
  AdjustAvionicFunction(level, 0, 3, kModuleGF46);
  EXPECT_STREQ(level->text, "   8") << "the adjustment formats before the change, not after";
  FormatAvionicDisplay(*level);
  EXPECT_STREQ(level->text, "  11");
}

}  // namespace
}  // namespace drav

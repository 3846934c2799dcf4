// The seven-segment texts of the avionic functions: what each display format shows for a simulator
// value, what applying a text writes back, the active/standby swap, and values no panel should ever
// see (which must still stay inside the 10-byte text).
#include <XPLMDataAccess.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "FunctionTestSupport.h"
#include "functions/AvionicDisplay.h"
#include "functions/DatarefBinding.h"
#include "functions/FunctionObjects.h"
#include "base/HostState.h"

namespace drav::functiontest {
namespace {

constexpr const char* kApuSwitch = "sim/cockpit/engine/APU_switch";                 // int
constexpr const char* kAdf1 = "sim/cockpit/radios/adf1_freq_hz";                     // int
constexpr const char* kAdf1Card = "sim/cockpit/radios/adf1_cardinal_dir";            // float
constexpr const char* kTransponder = "sim/cockpit/radios/transponder_code";          // int
constexpr const char* kDecisionHeight = "sim/cockpit/misc/radio_altimeter_minimum";  // float
constexpr const char* kApAltitude = "sim/cockpit/autopilot/altitude";                // float
constexpr const char* kApVerticalSpeed = "sim/cockpit/autopilot/vertical_velocity";  // float
constexpr const char* kCom1 = "sim/cockpit/radios/com1_freq_hz";                     // int
constexpr const char* kCom1Standby = "sim/cockpit/radios/com1_stdby_freq_hz";        // int
constexpr const char* kNav1 = "sim/cockpit/radios/nav1_freq_hz";                     // int
constexpr const char* kApSpeed = "sim/cockpit/autopilot/airspeed";                   // float
constexpr const char* kApSpeedIsMach = "sim/cockpit/autopilot/airspeed_is_mach";     // int
constexpr const char* kCockpitLights = "sim/cockpit/electrical/cockpit_lights";      // float
constexpr const char* kMapRange = "sim/cockpit/switches/EFIS_map_range_selector";    // int
constexpr const char* kBarometer = "sim/cockpit/misc/barometer_setting";             // float, inches
constexpr const char* kMetricPressure = "sim/physics/metric_press";                  // int

std::string Write(const std::string& path, const std::string& value) { return "dataref-write " + path + " " + value; }

class AvionicDisplayTest : public FunctionTest {
 protected:

  // The shared object of an avionic id, requested the way a module requests its display.
  static AvionicFunction& Avionic(FunctionId id) {
    AvionicFunction* object = nullptr;
    SwitchFunction scratch;
    CreateFunction(id, &object, scratch, -1, -1);
    EXPECT_NE(object, nullptr) << id;
    return *object;
  }

  static std::string Shown(FunctionId id) {
    AvionicFunction& object = Avionic(id);
    FormatAvionicDisplay(object);
    return object.text;
  }

  // The simulator writes of applying `text` to the function.
  static Events Applied(AvionicFunction& object, const char* text) {
    std::snprintf(object.text, sizeof object.text, "%s", text);
    host().ClearEvents();
    ApplyAvionicDisplay(object);
    return host().Events();
  }

  // The host's handle for the altimeter's unit, as the plug-in finds it at start.
  static void SelectMetricPressure(int on) {
    CurrentFunctionState().metricPress = XPLMFindDataRef(kMetricPressure);
    ASSERT_NE(CurrentFunctionState().metricPress, nullptr);
    SetValue(kMetricPressure, on);
  }
};

// ---- value to text and back: one row per worked example -----------------------------------------

struct DisplayCase {
  const char* what;
  FunctionId id;
  const char* path;
  double value;
  const char* text;      // what the display shows
  const char* writeBack;  // what applying that text writes to the same dataref
};

void PrintTo(const DisplayCase& c, std::ostream* out) { *out << c.what; }

const DisplayCase kDisplayCases[] = {
    // format 0: a blank, then the selector position
    {"ApuSwitchOn", 77, kApuSwitch, 2, " 2", "2"},
    {"ApuSwitchOff", 77, kApuSwitch, 0, " 0", "0"},
    {"ApuSwitchNegative", 77, kApuSwitch, -1, " -1", "-1"},
    // format 1: a blank, then three digits
    {"AdfThreeDigits", 1, kAdf1, 379, " 379", "379"},
    {"AdfZeroPadded", 1, kAdf1, 5, " 005", "5"},
    {"AdfFourDigits", 1, kAdf1, 1750, " 1750", "1750"},
    {"AdfCardTruncatesNotRounds", 4, kAdf1Card, 359.75, " 359", "359"},
    {"AdfCardNegativeKeepsWidth", 4, kAdf1Card, -5, " -05", "-5"},
    // format 2: four digits
    {"Transponder0700", 24, kTransponder, 700, "0700", "700"},
    {"TransponderDigitSeven", 29, kTransponder, 7, "0007", "7"},
    {"DecisionHeightTruncated", 75, kDecisionHeight, 200.9, "0200", "200"},
    // format 3: five characters, the sign counting as one
    {"ApAltitude5000", 66, kApAltitude, 5000, "05000", "5000"},
    {"ApAltitude41000", 66, kApAltitude, 41000.75, "41000", "41000"},
    {"VerticalSpeedDescending", 67, kApVerticalSpeed, -1500, "-1500", "-1500"},
    {"VerticalSpeedSmallDescent", 67, kApVerticalSpeed, -50, "-0050", "-50"},
    // format 4: megahertz, a point, two hundredths
    {"Com25kHzChannelShowsTwoDecimals", 9, kCom1, 11852, "118.52", "11852"},
    {"ComHundredthsZeroPadded", 9, kCom1, 11805, "118.05", "11805"},
    {"Nav108_50", 18, kNav1, 10850, "108.50", "10850"},
    // format 6: a ratio as 0..10, rounded half up
    {"LightsOff", 69, kCockpitLights, 0.0, "0", "0"},
    {"LightsFull", 69, kCockpitLights, 1.0, "10", "1"},
    {"LightsQuarterRoundsUp", 69, kCockpitLights, 0.25, "3", "0.3"},
    {"LightsJustBelowRoundsDown", 69, kCockpitLights, 0.24, "2", "0.2"},
    // format 7: 10 shifted left by the selector position, and back
    {"MapRange10", 115, kMapRange, 0, "10", "0"},
    {"MapRange80", 115, kMapRange, 3, "80", "3"},
    {"MapRange640", 115, kMapRange, 6, "640", "6"},
};

class AvionicDisplayCase : public AvionicDisplayTest, public ::testing::WithParamInterface<DisplayCase> {};

TEST_P(AvionicDisplayCase, ShowsTheValueAndAppliesItBack) {
  const DisplayCase& c = GetParam();
  SetValue(c.path, c.value);
  AvionicFunction& object = Avionic(c.id);
  FormatAvionicDisplay(object);
  EXPECT_STREQ(object.text, c.text);

  host().ClearEvents();
  ApplyAvionicDisplay(object);
  EXPECT_EQ(host().Events(), Events{Write(c.path, c.writeBack)});
}

std::string CaseName(const ::testing::TestParamInfo<DisplayCase>& info) { return info.param.what; }

INSTANTIATE_TEST_SUITE_P(Formats, AvionicDisplayCase, ::testing::ValuesIn(kDisplayCases), CaseName);

// ---- texts applied: the formatter's own and others ----------------------------------------------

TEST_F(AvionicDisplayTest, AppliedTextsWriteTheseValues) {
  const struct {
    FunctionId id;
    const char* text;
    const char* path;
    const char* written;
    int metric = 0;
  } rows[] = {
      // the speed applies as a number, Mach or knots
      {65, "  0.78", kApSpeed, "0.78"},
      {65, "  250", kApSpeed, "250"},
      // the altimeter unconverted: a hectopascal text is taken as inches (callers convert first,
      // none applies an altimeter today)
      {68, " 29.92", kBarometer, "29.92"},
      {68, " 1013", kBarometer, "1013", 1},
      // a frequency takes its hundredths from the fifth character
      {9, "121.30", kCom1, "12130"},
      {9, "118", kCom1, "11800"},
      {9, "12", kCom1, "1200"},
      {9, "", kCom1, "0"},
      // the map range applies the inverse shift; not a power of two: the shift of the highest bit
      {115, "80", kMapRange, "3"},
      {115, "10", kMapRange, "0"},
      {115, "5", kMapRange, "0"},
      {115, "-40", kMapRange, "0"},
      {115, "120", kMapRange, "3"},  // 120 / 10 = 12 -> 3
      // integer texts skip leading blanks and stop at the first non-digit
      {24, "   1234", kTransponder, "1234"},
      {24, "77x1", kTransponder, "77"},
      {24, "----", kTransponder, "0"},
  };
  for (const auto& row : rows) {
    if (row.metric != 0) SelectMetricPressure(row.metric);
    EXPECT_EQ(Applied(Avionic(row.id), row.text), Events{Write(row.path, row.written)})
        << "function " << row.id << " text '" << row.text << "' metric " << row.metric;
  }
}

TEST_F(AvionicDisplayTest, AnUnterminatedTextIsReadNoFurtherThanNineCharacters) {
  AvionicFunction& transponder = Avionic(24);
  std::memset(transponder.text, '9', sizeof transponder.text);  // no terminator; the tag follows
  host().ClearEvents();
  ApplyAvionicDisplay(transponder);
  // 999999999 as a float is 1e9; reading into the tag would have saturated at 2147483647.
  EXPECT_EQ(host().Events(), Events{Write(kTransponder, "1000000000")});
}

// ---- the standby/active flip ---------------------------------------------------------------------

// ---- no value, no text ---------------------------------------------------------------------------

TEST_F(AvionicDisplayTest, AFunctionWithoutDatarefShowsTheFormattingOfZero) {
  const std::vector<std::pair<std::int32_t, std::string>> expected = {
      {0, " 0"}, {1, " 000"}, {2, "0000"}, {3, "00000"}, {4, "000.00"}, {5, "  000"},
      {6, "0"},  {7, "10"},   {8, " 0.00"}};
  for (const auto& [format, text] : expected) {
    AvionicFunction object;
    CreateAvionicFunction(object, "NONE", format, 1, "sim/no/such/dataref");
    EXPECT_EQ(std::string(object.text), text) << "format " << format;
    host().ClearEvents();
    ApplyAvionicDisplay(object);
    EXPECT_TRUE(host().Events().empty()) << "format " << format;
  }
}

TEST_F(AvionicDisplayTest, FormatsAboveNineLeaveTheObjectAlone) {
  AvionicFunction& trim = Avionic(427);  // ELEV_TRIM, format 12
  EXPECT_EQ(trim.format, 12);
  std::snprintf(trim.text, sizeof trim.text, "KEEP");
  SetValue("sim/flightmodel/controls/elv_trim", 0.5);
  FormatAvionicDisplay(trim);
  EXPECT_STREQ(trim.text, "KEEP");
  host().ClearEvents();
  ApplyAvionicDisplay(trim);
  EXPECT_TRUE(host().Events().empty());

  AvionicFunction negative;
  CreateAvionicFunction(negative, "NEG", -1, 1, kAdf1);
  EXPECT_STREQ(negative.text, "");
}

TEST_F(AvionicDisplayTest, MapRangeOutsideTheShiftableRangeShowsNothing) {
  // 27 gives 1342177280, ten digits: cut to nine.
  for (const auto& [value, text] : {std::pair{-1, ""}, std::pair{28, ""}, std::pair{27, "134217728"}}) {
    SetValue(kMapRange, value);
    EXPECT_EQ(Shown(115), text) << value;
  }
}

// ---- the panels' brightness ----------------------------------------------------------------------

TEST_F(AvionicDisplayTest, BrightnessWithoutPanelsShowsTheLevelAndKeepsIt) {
  AvionicFunction& brightness = Avionic(70);
  EXPECT_EQ(brightness.dataref, nullptr);
  FormatAvionicDisplay(brightness);
  EXPECT_STREQ(brightness.text, "   8");
  EXPECT_EQ(GetDisplayBrightnessLevel(), 8);

  SetDisplayBrightnessLevel(12);
  FormatAvionicDisplay(brightness);
  EXPECT_STREQ(brightness.text, "  12");

  host().ClearEvents();
  ApplyAvionicDisplay(brightness);
  EXPECT_TRUE(host().Events().empty());
  EXPECT_EQ(GetDisplayBrightnessLevel(), 12);
}

// ---- values no adjustment reaches ----------------------------------------------------------------

struct AbsurdCase {
  std::int32_t format;
  float value;
  const char* text;  // nullptr: only the bound is checked (the spelling of nan and inf is the C library's)
};

TEST_F(AvionicDisplayTest, AbsurdValuesAreCutToNineCharacters) {
  constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
  constexpr float kInf = std::numeric_limits<float>::infinity();
  constexpr float kMax = std::numeric_limits<float>::max();
  const std::vector<AbsurdCase> cases = {
      {0, 1e12f, " 21474836"},  {0, kNaN, " 0"},          {1, -1e12f, " -2147483"},
      {2, kInf, "214748364"},    {3, 1e12f, "214748364"},  {3, -kInf, "-21474836"},
      {4, 1e12f, "21474836."},   {4, -1e12f, "-21474836"}, {4, kNaN, "000.00"},
      {5, 1e12f, "  2147483"},   {6, 1e12f, "214748364"},  {6, kNaN, "0"},
      {7, 1e12f, ""},            {7, kNaN, "10"},          {8, 1e12f, " 99999999"},
      {8, kMax, " 34028234"},    {8, -kMax, " -3402823"},  {8, kNaN, nullptr},
      {8, kInf, nullptr},
  };
  for (const AbsurdCase& c : cases) {
    SetValue(kApAltitude, c.value);
    AvionicFunction object;
    CreateAvionicFunction(object, "BIG", c.format, 66, kApAltitude);
    ASSERT_NE(std::memchr(object.text, '\0', sizeof object.text), nullptr) << c.format << " " << c.value;
    if (c.text != nullptr) {
      EXPECT_STREQ(object.text, c.text) << "format " << c.format << " value " << c.value;
    }
  }
}

TEST_F(AvionicDisplayTest, AbsurdValuesStayBoundedInMetricAndMachToo) {
  SelectMetricPressure(1);
  SetValue(kBarometer, 1e12);
  EXPECT_EQ(Shown(68), " 33865299");  // 999999995904 x 33.8653 = 33865299861288

  SetValue(kApSpeedIsMach, 1);
  SetValue(kApSpeed, std::numeric_limits<float>::max());
  EXPECT_EQ(Shown(65), "  3402823");
  SetValue(kApSpeed, std::numeric_limits<float>::quiet_NaN());
  EXPECT_LE(Shown(65).size(), 9u);
}

}  // namespace
}  // namespace drav::functiontest

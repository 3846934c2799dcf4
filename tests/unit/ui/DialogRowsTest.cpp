// The dialog's rows per model: captions, keys, defaults and lists, and the calibration sliders.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "hid/ModuleTypes.h"
#include "ui/DialogRows.h"

namespace drav {
namespace {

struct ExpectedRow {
  int row;
  const char* caption;
  const char* key;
  const char* defaultValue;
  PickListKind list;
};

void ExpectRows(const std::vector<DialogFunctionRow>& rows, const std::vector<ExpectedRow>& expected) {
  ASSERT_EQ(rows.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(rows[i].row, expected[i].row) << i;
    EXPECT_STREQ(rows[i].caption, expected[i].caption) << i;
    EXPECT_EQ(rows[i].key, expected[i].key) << i;
    EXPECT_STREQ(rows[i].defaultValue, expected[i].defaultValue) << i;
    EXPECT_EQ(rows[i].list, expected[i].list) << i;
  }
}

using K = PickListKind;

TEST(DialogRowsRadios, GF45AndGF46HaveEightModeRowsWithTheAvionicList) {
  for (std::uint32_t type : {kModuleGF45, kModuleGF46}) {
    DialogModelRows rows = RowsForModel(type, {});
    ASSERT_EQ(rows.functions.size(), 8u);
    EXPECT_STREQ(rows.functions[0].caption, "Mode 1 (Initial)");
    EXPECT_STREQ(rows.functions[7].caption, "Mode 8");
    EXPECT_EQ(rows.functions[7].key, "Function8");
    for (const DialogFunctionRow& row : rows.functions) {
      EXPECT_EQ(row.list, K::kAvionic);
      EXPECT_STREQ(row.defaultValue, "");
    }
    EXPECT_TRUE(rows.sliders.empty());
  }
}

TEST(DialogRowsRadios, GF166LeavesRowZeroEmpty) {
  DialogModelRows rows = RowsForModel(kModuleGF166, {});
  ASSERT_EQ(rows.functions.size(), 10u);
  ExpectRows({rows.functions[0], rows.functions[1], rows.functions[2], rows.functions[9]},
             {{1, "Left Function", "FunctionL", "", K::kButton},
              {2, "Right Function", "FunctionR", "", K::kButton},
              {3, "Mode 1 (Initial)", "Function1", "", K::kAvionic},
              {10, "Mode 8", "Function8", "", K::kAvionic}});
}

TEST(DialogRowsBoxes, ButtonSwitchAndKnobBoxes) {
  DialogModelRows p8 = RowsForModel(kModuleGFP8, {});
  ASSERT_EQ(p8.functions.size(), 8u);
  EXPECT_STREQ(p8.functions[7].caption, "Button 8");
  EXPECT_EQ(p8.functions[7].list, K::kButton);

  DialogModelRows t8 = RowsForModel(kModuleGFT8, {});
  ASSERT_EQ(t8.functions.size(), 8u);
  EXPECT_STREQ(t8.functions[0].caption, "Switch 1");
  EXPECT_EQ(t8.functions[0].key, "Function1");
  EXPECT_EQ(t8.functions[0].list, K::kToggle);

  DialogModelRows rp48 = RowsForModel(kModuleGFRP48, {});
  ASSERT_EQ(rp48.functions.size(), 12u);
  ExpectRows({rp48.functions[7], rp48.functions[8], rp48.functions[11]},
             {{7, "Button 8", "Function8", "", K::kButton},
              {8, "Knob A", "FunctionA", "", K::kAvionic},
              {11, "Knob D", "FunctionD", "", K::kAvionic}});
}

TEST(DialogRowsGear, GFLGTRowsAndWheelGainSlider) {
  DialogModelRows rows = RowsForModel(kModuleGFLGT, {});
  ExpectRows(rows.functions, {{0, "Wheel", "FunctionW", "ELEV_TRIM", K::kTrim},
                              {1, "Lever", "FunctionL", "LANDING_GEAR", K::kGear},
                              {2, "Up/Down Switch", "FunctionS", "FLAPS_UP_DOWN", K::kFlap}});
  ASSERT_EQ(rows.sliders.size(), 1u);
  const DialogSliderRow& gain = rows.sliders[0];
  EXPECT_STREQ(gain.caption, "Wheel Gain");
  EXPECT_STREQ(gain.key, "WHEEL_GAIN");
  EXPECT_STREQ(gain.defaultValue, "1");
  EXPECT_EQ(gain.minimum, 1);
  EXPECT_EQ(gain.maximum, 10);
  EXPECT_FALSE(gain.percent);
  EXPECT_STREQ(FixedListText(K::kTrim), "AILERON_TRIM;ELEV_TRIM;ROTOR_TRIM;RUDDER_TRIM;");
  EXPECT_STREQ(FixedListText(K::kGear), "LANDING_GEAR;WATER_RUDDER;");
  EXPECT_STREQ(FixedListText(K::kFlap), "FLAPS_UP_DOWN;");
}

TEST(DialogRowsGear, GFLGT2RowsAndThreeGains) {
  DialogModelRows rows = RowsForModel(kModuleGFLGT2, {});
  ExpectRows(rows.functions, {{0, "Aileron", "FunctionG", "AILERON_TRIM", K::kTrim},
                              {1, "Elevator", "FunctionH", "ELEV_TRIM", K::kTrim},
                              {2, "Rudder", "FunctionI", "RUDDER_TRIM", K::kTrim},
                              {3, "Gear Lever", "FunctionJ", "LANDING_GEAR", K::kGear},
                              {4, "Flap Switch", "FunctionK", "FLAPS_UP_DOWN", K::kFlap},
                              {5, "Switch Left Position", "FunctionL", "FUEL_FEED_LEFT", K::kFuelFeed},
                              {6, "Switch Centre Position", "FunctionM", "FUEL_FEED_ALL", K::kFuelFeed},
                              {7, "Switch Right Position", "FunctionN", "FUEL_FEED_RIGHT", K::kFuelFeed}});
  ASSERT_EQ(rows.sliders.size(), 3u);
  EXPECT_STREQ(rows.sliders[2].caption, "Rudder Gain");
  EXPECT_STREQ(rows.sliders[2].key, "WHEEL3_GAIN");
  EXPECT_EQ(rows.sliders[2].row, 2);
}

TEST(DialogRowsAutopilot, GFMCPProHasThirtyRowsUnlessX737OrDisabled) {
  DialogModelRows rows = RowsForModel(kModuleGFMCPPro, {});
  ASSERT_EQ(rows.functions.size(), 30u);
  EXPECT_STREQ(rows.functions[0].caption, "VNAV button");
  EXPECT_EQ(rows.functions[0].key, "Function01");
  EXPECT_EQ(rows.functions[23].list, K::kButton);
  EXPECT_STREQ(rows.functions[23].caption, "F/D (right) switch");
  EXPECT_EQ(rows.functions[24].list, K::kAvionic);
  EXPECT_EQ(rows.functions[24].key, "Function25");
  EXPECT_STREQ(rows.functions[24].defaultValue, "AP_NAV_COURSE_ADJ");
  EXPECT_EQ(rows.functions[29].key, "Function30");
  EXPECT_STREQ(rows.functions[29].caption, "CRS display/knob");

  DialogRowContext x737;
  x737.x737Mode = true;
  EXPECT_TRUE(RowsForModel(kModuleGFMCPPro, x737).functions.empty());
  DialogRowContext disabled;
  disabled.mcpProDisabled = true;
  EXPECT_TRUE(RowsForModel(kModuleGFMCPPro, disabled).functions.empty());
}

TEST(DialogRowsEngine, GFSECMShowsFourteenOfItsTwentyKeys) {
  DialogModelRows rows = RowsForModel(kModuleGFSECM, {});
  ASSERT_EQ(rows.functions.size(), 14u);
  EXPECT_STREQ(rows.functions[0].caption, "Battery Master");
  EXPECT_EQ(rows.functions[13].key, "Function14");
  EXPECT_STREQ(rows.functions[13].caption, "Landing Gear");
  EXPECT_EQ(rows.functions[13].list, K::kToggle);
}

TEST(DialogRowsEngine, GFTQ6LeversAndFourPercentSlidersWithTheDialogsOwnDefaults) {
  DialogModelRows rows = RowsForModel(kModuleGFTQ6, {});
  ASSERT_EQ(rows.functions.size(), 6u);
  EXPECT_STREQ(rows.functions[5].caption, "Lever F");
  EXPECT_EQ(rows.functions[5].key, "FunctionF");
  EXPECT_EQ(rows.functions[5].list, K::kLever);
  ASSERT_EQ(rows.sliders.size(), 4u);
  const char* keys[] = {"THROTTLE_REVERSE", "THROTTLE_BETA", "REVERSER_POWER", "FLAP_NULL_ZONE"};
  const int shown[] = {0, 0, 60, 100};
  for (int i = 0; i < 4; ++i) {
    const DialogSliderRow& slider = rows.sliders[static_cast<std::size_t>(i)];
    EXPECT_STREQ(slider.key, keys[i]);
    EXPECT_TRUE(slider.percent);
    EXPECT_EQ(SliderValue(slider, slider.defaultValue), shown[i]) << keys[i];
  }
}

TEST(DialogRowsWarning, GFWCPHasSixButtonsAndSixColours) {
  DialogModelRows rows = RowsForModel(kModuleGFWCP, {});
  ASSERT_EQ(rows.functions.size(), 6u);
  EXPECT_EQ(rows.functions[5].list, K::kWcp);
  ASSERT_EQ(rows.colours.size(), 6u);
  EXPECT_EQ(rows.colours[0].key, "Colour1");
  EXPECT_EQ(rows.colours[5].key, "Colour6");
  EXPECT_STREQ(rows.colours[5].defaultValue, "");
  EXPECT_STREQ(FixedListText(K::kColour), "BLACK;WHITE;RED;GREEN;BLUE;MAGENTA;YELLOW;CYAN;");
}

TEST(DialogRowsOthers, MesmAndDioShowNothingAndOnlyTheDioReloads) {
  DialogModelRows mesm = RowsForModel(kModuleGFMESM, {});
  EXPECT_TRUE(mesm.functions.empty());
  EXPECT_FALSE(mesm.reloadAllWithoutRegistering);
  DialogModelRows dio = RowsForModel(kModuleGFDIO, {});
  EXPECT_TRUE(dio.functions.empty());
  EXPECT_TRUE(dio.sliders.empty());
  EXPECT_TRUE(dio.reloadAllWithoutRegistering);
}

TEST(DialogRowsLimits, NoModelNeedsMoreRowsThanTheDialogHas) {
  for (std::uint32_t type = kFirstModuleType; type <= kLastModuleType; ++type) {
    DialogModelRows rows = RowsForModel(type, {});
    for (const DialogFunctionRow& row : rows.functions) EXPECT_LT(row.row, 30) << type;
    for (const DialogSliderRow& slider : rows.sliders) EXPECT_LT(slider.row, 4) << type;
  }
}

TEST(DialogSliderValues, PercentSlidersTruncateAndGainsClamp) {
  DialogSliderRow percent{0, "Thrust Rev Max", "REVERSER_POWER", "0.60", 0, 100, true, false};
  EXPECT_EQ(SliderValue(percent, "0.75"), 75);
  EXPECT_EQ(SliderValue(percent, "-1.0"), -100);
  EXPECT_FALSE(SliderValueShown(percent, -100));
  EXPECT_TRUE(SliderValueShown(percent, 0));
  EXPECT_TRUE(SliderValueShown(percent, 100));
  EXPECT_FALSE(SliderValueShown(percent, 101));
  EXPECT_EQ(SliderValue(percent, "garbage"), 0);

  DialogSliderRow gain{0, "Wheel Gain", "WHEEL_GAIN", "1", 1, 10, false, true};
  EXPECT_EQ(SliderValue(gain, "7"), 7);
  EXPECT_EQ(SliderValue(gain, "25"), 10);
  EXPECT_EQ(SliderValue(gain, "0"), 1);
  EXPECT_TRUE(SliderValueShown(gain, SliderValue(gain, "-4")));
}

}  // namespace
}  // namespace drav

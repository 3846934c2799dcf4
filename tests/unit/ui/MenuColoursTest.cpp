// The pick menu's colours: read from the simulator's menu colour datarefs, or the fallback dimmed by
// the cockpit light levels when a dataref is missing.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <system_error>

#include "host/SimHost.h"
#include "ui/MenuColours.h"

namespace drav {
namespace {

class MenuColoursTest : public ::testing::Test {
 protected:
  void SetUp() override {
    root_ = std::filesystem::temp_directory_path() /
            ("drav-menucolours-" + std::to_string(std::chrono::steady_clock::now().time_since_epoch().count()));
    host().Reset(root_);
    ResetMenuColourLookups();
  }
  void TearDown() override {
    ResetMenuColourLookups();
    host().Reset({});
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
  }
  static sim::SimHost& host() { return sim::SimHost::Current(); }
  static void SetLight(double level) {
    for (const char* channel : {"r", "g", "b"}) {
      ASSERT_TRUE(host().SetDatarefValue(std::string("sim/graphics/misc/cockpit_light_level_") + channel, -1, -1,
                                         level));
    }
  }
  static void RemoveAllColourDatarefs() {
    for (const char* name : {"dark", "bkgnd", "hilite", "lite", "text", "text_disabled"}) {
      host().RemoveDataref(std::string("sim/graphics/colors/menu_") + name + "_rgb");
    }
  }

 private:
  std::filesystem::path root_;
};

TEST_F(MenuColoursTest, MissingBackgroundColourFallsBackDimmedByTheLightLevel) {
  RemoveAllColourDatarefs();
  SetLight(0.5);
  MenuColour background = GetMenuColour(kMenuBackground);
  EXPECT_FLOAT_EQ(background.red, 53.0f / 512.0f);
  EXPECT_FLOAT_EQ(background.green, 64.0f / 512.0f);
  EXPECT_FLOAT_EQ(background.blue, 68.0f / 512.0f);
}

TEST_F(MenuColoursTest, EveryFallbackSlotAtFullLight) {
  RemoveAllColourDatarefs();
  SetLight(1.0);
  const float expected[kMenuColourSlots][3] = {{33 / 256.0f, 41 / 256.0f, 44 / 256.0f},
                                               {53 / 256.0f, 64 / 256.0f, 68 / 256.0f},
                                               {65 / 256.0f, 83 / 256.0f, 89 / 256.0f},
                                               {65 / 256.0f, 83 / 256.0f, 89 / 256.0f},
                                               {0.8f, 0.8f, 0.8f},
                                               {0.4f, 0.4f, 0.4f}};
  for (int slot = 0; slot < kMenuColourSlots; ++slot) {
    MenuColour colour = GetMenuColour(slot);
    EXPECT_FLOAT_EQ(colour.red, expected[slot][0]) << slot;
    EXPECT_FLOAT_EQ(colour.green, expected[slot][1]) << slot;
    EXPECT_FLOAT_EQ(colour.blue, expected[slot][2]) << slot;
  }
}

TEST_F(MenuColoursTest, ThePerChannelLightLevelsDimEachChannelAlone) {
  RemoveAllColourDatarefs();
  ASSERT_TRUE(host().SetDatarefValue("sim/graphics/misc/cockpit_light_level_r", -1, -1, 1.0));
  ASSERT_TRUE(host().SetDatarefValue("sim/graphics/misc/cockpit_light_level_g", -1, -1, 0.0));
  ASSERT_TRUE(host().SetDatarefValue("sim/graphics/misc/cockpit_light_level_b", -1, -1, 0.25));
  MenuColour text = GetMenuColour(kMenuText);
  EXPECT_FLOAT_EQ(text.red, 0.8f);
  EXPECT_FLOAT_EQ(text.green, 0.0f);
  EXPECT_FLOAT_EQ(text.blue, 0.2f);
  // The light level is read at each use, not kept from the first.
  SetLight(1.0);
  EXPECT_FLOAT_EQ(GetMenuColour(kMenuText).green, 0.8f);
}

TEST_F(MenuColoursTest, APresentDatarefGivesItsOwnColourUndimmed) {
  SetLight(0.5);
  ASSERT_TRUE(host().SetDatarefValue("sim/graphics/colors/menu_text_rgb", 0, 0, 0.9));
  ASSERT_TRUE(host().SetDatarefValue("sim/graphics/colors/menu_text_rgb", 1, 1, 0.6));
  ASSERT_TRUE(host().SetDatarefValue("sim/graphics/colors/menu_text_rgb", 2, 2, 0.3));
  MenuColour text = GetMenuColour(kMenuText);
  EXPECT_FLOAT_EQ(text.red, 0.9f);
  EXPECT_FLOAT_EQ(text.green, 0.6f);
  EXPECT_FLOAT_EQ(text.blue, 0.3f);
}

TEST_F(MenuColoursTest, HandlesAreLookedUpOnceUntilReset) {
  SetLight(1.0);
  EXPECT_FLOAT_EQ(GetMenuColour(kMenuDark).red, 0.0f);  // the dataref exists and holds 0
  host().RemoveDataref("sim/graphics/colors/menu_dark_rgb");
  ResetMenuColourLookups();
  EXPECT_FLOAT_EQ(GetMenuColour(kMenuDark).red, 33 / 256.0f);
}

TEST_F(MenuColoursTest, ASlotOutsideTheSixReadsAsText) {
  RemoveAllColourDatarefs();
  SetLight(1.0);
  EXPECT_FLOAT_EQ(GetMenuColour(-1).red, 0.8f);
  EXPECT_FLOAT_EQ(GetMenuColour(6).blue, 0.8f);
}

}  // namespace
}  // namespace drav

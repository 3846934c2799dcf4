// The GF-46 radio stack: the button that wins over both rings, stepping its modes with the button
// and with PREV and NEXT, the transponder's leading space, its blanks and its trace lines.
#include "modules/GF46_Module.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "RadioModuleTestSupport.h"
#include "hid/InputRecords.h"

namespace drav::radiotest {
namespace {

// Records which functions the module selects, to tell a reselection from a mere index move.
class WatchedGF46 : public GF46_Module {
 public:
  void SelectFunction(std::int32_t functionId) override {
    selected.push_back(functionId);
    GF46_Module::SelectFunction(functionId);
  }
  std::vector<std::int32_t> selected;
};

constexpr std::int32_t kButton = 2;

class GF46ModuleTest : public RadioModuleTest {
 protected:
  GF46ModuleTest() : RadioModuleTest(kModuleGF46, "GF-46") {}

  void SetUp() override {
    RadioModuleTest::SetUp();
    radio.Register(0);
  }

  static std::int32_t Decode(GF46_Module& module, std::int16_t dial1, std::int16_t dial2, std::uint8_t buttons,
                             std::int32_t* value) {
    const GF46InputRecord record{dial1, dial2, buttons};
    return module.GetButton(&record, value);
  }

  // Press and release the button, as a unit's two reports would arrive.
  void PushButton() {
    radio.HandleInput(kButton, 1);
    radio.HandleInput(kButton, 0);
  }

  // What the loader does after reading the mode table.
  void LoadModes(std::initializer_list<std::int32_t> modes) {
    SetModes(radio, modes);
    radio.SelectFunction(radio.ChooseCurrentMode());
    radio.SetDisplay();
    radio.selected.clear();
  }

  WatchedGF46 radio;
};

// ---- decoding ----------------------------------------------------------------------------------

TEST_F(GF46ModuleTest, Dial2WinsOverDial1AndTheButtonOverBoth) {
  std::int32_t value = 0;
  EXPECT_EQ(Decode(radio, 4, -2, 0, &value), 1);
  EXPECT_EQ(value, -2);
  EXPECT_EQ(Decode(radio, 4, 0, 0, &value), 0);
  EXPECT_EQ(value, 4);

  EXPECT_EQ(Decode(radio, 4, -2, 0x01, &value), kButton);
  EXPECT_EQ(value, 1);
  EXPECT_EQ(radio.lastButton, 0x01);

  // The button byte is unchanged now: the dials are reported again.
  EXPECT_EQ(Decode(radio, 0, 3, 0x01, &value), 1);
  EXPECT_EQ(value, 3);

  EXPECT_EQ(Decode(radio, 0, 0, 0x00, &value), kButton);
  EXPECT_EQ(value, 0);

  value = 77;
  EXPECT_EQ(Decode(radio, 0, 0, 0x00, &value), -1);
  EXPECT_EQ(value, 77);
}

TEST_F(GF46ModuleTest, AnyChangeOfTheButtonByteReportsItsLowestBit) {
  std::int32_t value = 0;
  EXPECT_EQ(Decode(radio, 0, 0, 0x02, &value), kButton);  // an unused bit: reported, but as "up"
  EXPECT_EQ(value, 0);
  EXPECT_EQ(Decode(radio, 0, 0, 0x03, &value), kButton);
  EXPECT_EQ(value, 1);
}

// ---- the mode button ---------------------------------------------------------------------------

TEST_F(GF46ModuleTest, ButtonWalksTheUsedModesAndWraps) {
  LoadModes({kCom1Active, 0, kNav1Active, 0, 0, kXpdr});
  ASSERT_EQ(radio.GetCurrentFunction(), kCom1Active);

  PushButton();
  EXPECT_EQ(radio.modeIndex, 2);
  EXPECT_EQ(radio.GetCurrentFunction(), kNav1Active);
  EXPECT_EQ(Display(1), "NAV1");
  EXPECT_EQ(Display(2), "110.30 ");  // five characters on six digits

  PushButton();
  EXPECT_EQ(radio.modeIndex, 5);
  PushButton();
  EXPECT_EQ(radio.modeIndex, 0);
  EXPECT_EQ(radio.GetCurrentFunction(), kCom1Active);
  EXPECT_EQ(radio.selected, (std::vector<std::int32_t>{kNav1Active, kXpdr, kCom1Active}));
}

TEST_F(GF46ModuleTest, ButtonOverModesOfTheSameFunctionMovesOnWithoutReselecting) {
  LoadModes({kCom1Active, kCom1Active, 0, 0, kCom1Active});
  PushButton();
  EXPECT_EQ(radio.modeIndex, 1);
  PushButton();
  EXPECT_EQ(radio.modeIndex, 4);
  PushButton();
  EXPECT_EQ(radio.modeIndex, 0);
  EXPECT_TRUE(radio.selected.empty());
}

TEST_F(GF46ModuleTest, ButtonDoesNothingOnAnUnusedModeOrWithoutSelection) {
  LoadModes({kCom1Active, kNav1Active});
  radio.modeIndex = 3;  // an unused mode
  PushButton();
  EXPECT_EQ(radio.modeIndex, 3);

  GF46_Module blank;
  blank.Register(0);
  blank.modeFunction[0] = kCom1Active;
  blank.modeFunction[1] = kNav1Active;
  blank.HandleInput(kButton, 1);  // nothing selected yet: the button is ignored like the rings
  EXPECT_EQ(blank.modeIndex, 0);
  EXPECT_TRUE(radio.selected.empty());
}

// ---- PREV and NEXT -----------------------------------------------------------------------------

TEST_F(GF46ModuleTest, NextAndPrevStepThroughTheUsedModes) {
  LoadModes({kCom1Active, 0, kNav1Active});
  radio.modeIndex = 2;
  radio.SelectFunction(kNext);  // from mode 3 to mode 1
  EXPECT_EQ(radio.modeIndex, 0);
  EXPECT_EQ(radio.GetCurrentFunction(), kCom1Active);

  radio.SelectFunction(kPrev);  // from mode 1 back round to mode 3
  EXPECT_EQ(radio.modeIndex, 2);
  EXPECT_EQ(radio.GetCurrentFunction(), kNav1Active);
  EXPECT_EQ(Display(1), "NAV1");
}

TEST_F(GF46ModuleTest, NextWithOneUsedModeSelectsItAgain) {
  LoadModes({0, 0, 0, kXpdr});
  ASSERT_EQ(radio.modeIndex, 3);
  radio.SelectFunction(kNext);
  EXPECT_EQ(radio.modeIndex, 3);
  EXPECT_EQ(radio.selected, (std::vector<std::int32_t>{kNext, kXpdr}));
}

TEST_F(GF46ModuleTest, NextOnAnUnusedModeChangesNothing) {
  LoadModes({kCom1Active});
  radio.modeIndex = 5;
  radio.SelectFunction(kNext);
  EXPECT_EQ(radio.modeIndex, 5);
  EXPECT_EQ(radio.GetCurrentFunction(), kCom1Active);
}

// ---- rings ---------------------------------------------------------------------------------------

TEST_F(GF46ModuleTest, RingsUseTheGf46KnobLayout) {
  radio.SelectFunction(kXpdr);
  radio.HandleInput(0, -1);  // outer ring: the high octal pair, 12 -> 11
  EXPECT_EQ(Value(kXpdrPath), 1100);
  radio.HandleInput(1, 1);  // inner ring: the low pair
  EXPECT_EQ(Value(kXpdrPath), 1101);

  SetValue(kAdfCardPath, 300);
  radio.SelectFunction(kAdf1Card);
  radio.HandleInput(0, 1);  // a course's outer ring steps by one on the GF-46
  EXPECT_EQ(Value(kAdfCardPath), 301);
}

TEST_F(GF46ModuleTest, Dial1WalksTheListAndDial2AdjustsItsEntry) {
  radio.SelectFunction(kFuncInstList);
  EXPECT_EQ(radio.source, 3);
  radio.HandleInput(0, -2);
  EXPECT_EQ(radio.list->currentIndex, 0);
  radio.HandleInput(0, 1);
  radio.HandleInput(1, -1);
  EXPECT_NEAR(Value(kAltimeterPath), 29.91, 1e-4);
}

// ---- displays ----------------------------------------------------------------------------------

TEST_F(GF46ModuleTest, TransponderIsShownOnePlaceInButRememberedAsItIs) {
  radio.SelectFunction(kXpdr);
  ClearSent();
  radio.SetDisplay();
  EXPECT_EQ(Display(1), "XPDR");
  EXPECT_EQ(Display(2).substr(0, 5), " 1200");
  EXPECT_STREQ(radio.lastValue.LastText(), "1200");

  ClearSent();
  radio.UpdateOutputs();
  EXPECT_EQ(SentCount(), 0u);  // remembered without the space, so nothing looks changed
}

TEST_F(GF46ModuleTest, WithoutAvionicsPowerBlanksAreFourAndSixWide) {
  radio.SelectFunction(kCom1Active);
  SetValue(kAvionicsOnPath, 0);
  ClearSent();
  radio.SetDisplay();
  radio.SetDisplay();
  EXPECT_EQ(SentCount(), 4u);
  EXPECT_EQ(Display(1), "    ");
  EXPECT_EQ(Display(2), "      ");
  EXPECT_STREQ(radio.lastAlpha.LastText(), "");
}

// ---- trace lines -------------------------------------------------------------------------------

TEST_F(GF46ModuleTest, TraceLinesHaveTheirExactTexts) {
  EnableTraces();
  std::int32_t value = 0;
  Decode(radio, 2, 0, 0x01, &value);
  radio.HandleInput(1, 5);  // logged even though nothing is selected yet
  radio.SelectFunction(kXpdr);
  radio.SetDisplay();
  radio.SelectFunction(kFuncApList);
  radio.SetDisplay();

  std::vector<std::string> lines = LogLines();
  const std::vector<std::string> expected = {
      "GF46_Module::GetButton -  Dial 1 = 2, Dial 2 = 0",
      "GF46_Module::GetButton - BtnState = 1000000000000000",
      "GF46_Module::HandleInput -  Button = 1, Value = 5",
      "GF46_Module::SetDisplay -  Alpha Display = XPDR",
      "GF46_Module::SetDisplay -  Freq Display =  1200",
      "GF46_Module::SetDisplay -  char_display = CRS ",
  };
  ASSERT_GE(lines.size(), expected.size());
  lines.resize(expected.size());
  EXPECT_EQ(lines, expected);
}

}  // namespace
}  // namespace drav::radiotest

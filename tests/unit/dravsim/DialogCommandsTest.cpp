// The `dialog` and `expect dialog` commands, against a small dialog built with the widget library
// whose pop-ups open real menu windows: picks go through the menu as a pilot's clicks would.
#include <XPWidgets.h>

#include "DialogTestDialog.h"
#include "DravsimTestSupport.h"
#include "../TestFolders.h"

namespace dravsim::testing {
namespace {

using Events = std::vector<std::string>;

class DialogCommandsTest : public ScenarioTest {
 protected:
  void SetUp() override {
    ScenarioTest::SetUp();
    OpenTestDialog();
  }
  void TearDown() override {
    ForgetTestDialog();
    ScenarioTest::TearDown();
  }
};

// ---- reading the dialog -------------------------------------------------------------------------

TEST_F(DialogCommandsTest, ExpectationsReadWhatTheWidgetsShow) {
  const ScenarioResult result = Run(
      "expect dialog open\n"
      "expect dialog title \"Test : Assign Functions\"\n"
      "expect dialog devices \"GF-46 Unit 1;GF-P8 Unit 1\"\n"
      "expect dialog rows 2\n"
      "expect dialog row 0 \"Button 1\" \"No Selection\"\n"
      "expect dialog row 1 \"Button 2 & <more>\" \"No Selection\"\n"
      "expect dialog slider 0 \"Thrust Rev Max\" \"0%\" \"60%\" \"100%\"\n"
      "expect dialog slider 1 \"\" \"\" \"\" \"\"\n");  // a hidden row reads as nothing
  EXPECT_EQ(result.passed, 8) << Output();
  EXPECT_EQ(result.Failures(), 0) << Output();
}

TEST_F(DialogCommandsTest, ExpectationsThatDoNotHoldSayWhatWasFound) {
  const ScenarioResult result = Run(
      "expect dialog closed\n"
      "expect dialog title \"Other\"\n"
      "expect dialog rows 3\n"
      "expect dialog row 0 \"Button 1\" \"AP_LNAV\"\n"
      "expect dialog row 5 \"\" \"\"\n"
      "expect dialog slider 0 \"Thrust Rev Max\" \"0%\" \"61%\" \"100%\"\n");
  EXPECT_EQ(result.failed, 6);
  const std::string out = Output();
  EXPECT_TRUE(Contains(out, "it is open"));
  EXPECT_TRUE(Contains(out, "\"Test : Assign Functions\""));
  EXPECT_TRUE(Contains(out, "2 visible rows"));
  EXPECT_TRUE(Contains(out, "\"Button 1\" \"No Selection\""));
  EXPECT_TRUE(Contains(out, "row 5 is hidden"));
  EXPECT_TRUE(Contains(out, "\"60%\""));
}

TEST_F(DialogCommandsTest, ADeviceListWithoutItemsReadsAsItIs) {
  XPSetWidgetDescriptor(TestDialog().devicePopup, "(No devices found.)");
  const ScenarioResult result = Run("expect dialog devices \"(No devices found.)\"\n");
  EXPECT_EQ(result.passed, 1) << Output();
}

// ---- picking ------------------------------------------------------------------------------------

TEST_F(DialogCommandsTest, APickGoesThroughTheMenuAndTheRowShowsIt) {
  const ScenarioResult result = Run(
      "dialog pick 0 \"COM1_STANDBY\"\n"
      "expect dialog row 0 \"Button 1\" \"COM1_STANDBY\"\n"
      "dialog pick 0 \"AP_LNAV\"\n"  // listed twice: the first one
      "dialog colour 0 \"RED\"\n"
      "dialog device 1\n"
      "dialog pick 0 \"No Selection\"\n");
  EXPECT_EQ(result.Failures(), 0) << Output();
  EXPECT_EQ(TestDialogEvents(),
            (Events{"pick 0 4", "pick 0 3", "colour 0 2", "device 1", "pick 0 0"}));
  EXPECT_EQ(host().WindowCount(), 0);  // every menu closed after its pick
}

TEST_F(DialogCommandsTest, PickingTheCurrentItemAgainStillPicks) {
  const ScenarioResult result = Run("dialog device 0\ndialog device 0\n");
  EXPECT_EQ(result.Failures(), 0) << Output();
  EXPECT_EQ(TestDialogEvents(), (Events{"device 0", "device 0"}));
}

TEST_F(DialogCommandsTest, ItemsBeyondTheFirstPageAreReachedWithPageDown) {
  const ScenarioResult result = Run("dialog pick 1 \"ITEM_45\"\ndialog pick 1 \"ITEM_60\"\n");
  EXPECT_EQ(result.Failures(), 0) << Output();
  EXPECT_EQ(TestDialogEvents(), (Events{"pick 1 45", "pick 1 60"}));
}

TEST_F(DialogCommandsTest, AnItemTheMenuNeverShowsIsAnError) {
  OpenTestDialog(TestDialogOptions{10, false});
  const ScenarioResult result = Run("dialog pick 1 \"ITEM_45\"\n");
  EXPECT_EQ(result.errors, 1);
  EXPECT_TRUE(Contains(Output(), "item \"ITEM_45\" is not shown in the menu"));
  EXPECT_TRUE(TestDialogEvents().empty());
}

TEST_F(DialogCommandsTest, WhatAPilotCannotPickIsAnError) {
  const ScenarioResult result = Run(
      "dialog pick 0 \"NOT_THERE\"\n"
      "dialog pick 0 \"DISABLED_ONE\"\n"
      "dialog pick 0 \"-\"\n"
      "dialog pick 5 \"No Selection\"\n"
      "dialog pick 30 \"No Selection\"\n"
      "dialog colour 1 \"RED\"\n"
      "dialog device 2\n");
  EXPECT_EQ(result.errors, 7);
  const std::string out = Output();
  EXPECT_TRUE(Contains(out, "test.scn:1: ERROR dialog: no item \"NOT_THERE\" in row 0's list"));
  EXPECT_TRUE(Contains(out, "test.scn:2: ERROR dialog: item \"DISABLED_ONE\" cannot be picked"));
  EXPECT_TRUE(Contains(out, "test.scn:3: ERROR dialog: item \"-\" cannot be picked"));
  EXPECT_TRUE(Contains(out, "test.scn:4: ERROR dialog: row 5 is hidden"));
  EXPECT_TRUE(Contains(out, "test.scn:5: ERROR dialog: bad number \"30\""));
  EXPECT_TRUE(Contains(out, "test.scn:6: ERROR dialog: row 1 is hidden"));
  EXPECT_TRUE(Contains(out, "test.scn:7: ERROR dialog: the pop-up has 2 item(s)"));
  EXPECT_TRUE(TestDialogEvents().empty());
  EXPECT_EQ(host().WindowCount(), 0);  // refused before any menu opened
}

// ---- sliders and the close box ------------------------------------------------------------------

TEST_F(DialogCommandsTest, ASliderIsDraggedToTheValue) {
  const ScenarioResult result = Run(
      "dialog slider 0 75\n"
      "expect dialog slider 0 \"Thrust Rev Max\" \"0%\" \"75%\" \"100%\"\n");
  EXPECT_EQ(result.Failures(), 0) << Output();
  ASSERT_FALSE(TestDialogEvents().empty());
  EXPECT_EQ(TestDialogEvents().back(), "slider 0 75");
}

TEST_F(DialogCommandsTest, SlidersOutOfReachAreErrors) {
  const ScenarioResult result = Run("dialog slider 0 150\ndialog slider 1 5\ndialog slider 4 5\n");
  EXPECT_EQ(result.errors, 3);
  const std::string out = Output();
  EXPECT_TRUE(Contains(out, "the slider stopped at 100 (its range is 0 to 100)"));
  EXPECT_TRUE(Contains(out, "slider row 1 is hidden"));
  EXPECT_TRUE(Contains(out, "bad number \"4\""));
}

TEST_F(DialogCommandsTest, TheCloseBoxClosesTheDialog) {
  const ScenarioResult result = Run(
      "dialog close\n"
      "expect dialog closed\n"
      "dialog close\n"
      "expect dialog title \"Test : Assign Functions\"\n");
  EXPECT_EQ(TestDialogEvents(), (Events{"close"}));
  EXPECT_EQ(result.passed, 1);
  EXPECT_EQ(result.errors, 1);
  EXPECT_EQ(result.failed, 1);
  EXPECT_TRUE(Contains(Output(), "test.scn:3: ERROR dialog: the dialog is not open"));
  EXPECT_TRUE(Contains(Output(), "the dialog is closed"));
  EXPECT_EQ(host().WidgetCount(), 0);  // the dialog took all its widgets with it
}

TEST_F(DialogCommandsTest, MisshapenCommandsShowTheirUsage) {
  const ScenarioResult result = Run(
      "dialog\n"
      "dialog frobnicate 1\n"
      "dialog pick 0\n"
      "expect dialog rows\n"
      "expect dialog\n"
      "expect dialog slider 0 \"a\" \"b\"\n");
  EXPECT_EQ(result.errors, 6);
  EXPECT_TRUE(Contains(Output(), "test.scn:2: ERROR dialog: usage: dialog device N"));
  EXPECT_TRUE(Contains(Output(), "test.scn:4: ERROR expect dialog: usage: expect dialog open|closed"));
}

TEST(DialogCommandsWithoutDialog, ThePluginsDialogIsClosedUntilItOpens) {
  const std::filesystem::path root = drav_test::FreshTestFolder("dialog");
  sim::SimHost::Current().Reset(root);
  std::ostringstream out;
  ScenarioRunner runner(out, RunnerOptions{true, {}});
  const ScenarioResult result = runner.Run("expect dialog closed\ndialog close\n", "test.scn");
  EXPECT_EQ(result.passed, 1) << out.str();
  EXPECT_EQ(result.errors, 1);
  sim::SimHost::Current().Reset({});
  std::filesystem::remove_all(root);
}

}  // namespace
}  // namespace dravsim::testing

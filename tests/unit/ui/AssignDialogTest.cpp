// The Assign Functions dialog in the simulator, without panels: its window and widgets, opening
// and closing, and the rows, lists and sliders of a unit shown by model (nothing reloads, since no
// unit exists, and nothing may crash for that).
#include <gtest/gtest.h>

#include <XPStandardWidgets.h>
#include <XPWidgets.h>

#include <cstdlib>
#include <string>

#include "UiTestSupport.h"
#include "base/IniFile.h"
#include "base/HostState.h"
#include "base/Version.h"
#include "hid/ModuleTypes.h"
#include "ui/AssignDialog.h"
#include "ui/PopupList.h"

namespace drav {
namespace {

using uitest::UiTest;

class AssignDialogTest : public UiTest {
 protected:
  void TearDown() override {
    X737Mode = 0;
    UiTest::TearDown();
  }

  static AssignDialogWidgets Widgets() {
    AssignDialogWidgets widgets;
    EXPECT_TRUE(GetAssignDialogWidgets(widgets));
    return widgets;
  }

  static std::string Text(XPWidgetID widget) {
    const auto snapshot = host().DescribeWidget(widget);
    return snapshot ? snapshot->descriptor : std::string("<gone>");
  }

  static bool Visible(XPWidgetID widget) {
    const auto snapshot = host().DescribeWidget(widget);
    return snapshot && snapshot->visible;
  }

  static sim::ScreenRect Geometry(XPWidgetID widget) {
    const auto snapshot = host().DescribeWidget(widget);
    return snapshot ? snapshot->geometry : sim::ScreenRect{};
  }

  static int VisibleRows(const AssignDialogWidgets& widgets) {
    int visible = 0;
    for (XPWidgetID popup : widgets.functionPopup) visible += Visible(popup) ? 1 : 0;
    return visible;
  }

  static intptr_t Selected(XPWidgetID popup) {
    return XPGetWidgetProperty(popup, kPopupCurrentItemProperty, nullptr);
  }

  static std::string StoredValue(const char* section, const char* key) {
    return ReadIniString(kConfigFileName, section, key, "<absent>");
  }
};

// ---- opening and closing -------------------------------------------------------------------------

TEST_F(AssignDialogTest, OpensCentredOnTheDesignScreenWithItsTitleAndCloseBox) {
  EXPECT_FALSE(IsAssignDialogOpen());
  AssignDialogWidgets closed;
  EXPECT_FALSE(GetAssignDialogWidgets(closed));
  EXPECT_EQ(closed.mainWindow, nullptr);

  ASSERT_TRUE(OpenAssignDialog(650, 650));
  const AssignDialogWidgets widgets = Widgets();
  EXPECT_EQ(Text(widgets.mainWindow), "Drav " DRAV_VERSION " (MR) : Assign Functions");
  EXPECT_EQ(XPGetWidgetProperty(widgets.mainWindow, xpProperty_MainWindowHasCloseBoxes, nullptr), 1);
  // At least as wide as asked (wider when its texts need it), centred on the design screen.
  const sim::ScreenRect window = Geometry(widgets.mainWindow);
  EXPECT_EQ(window.top, 709);
  EXPECT_EQ(window.bottom, 59);
  EXPECT_GE(window.right - window.left, 650);
  EXPECT_LE(std::abs((window.left + window.right) - 1024), 1);
  const sim::ScreenRect devices = Geometry(widgets.devicePopup);
  EXPECT_EQ(devices.left, window.left + 10);
  EXPECT_EQ(devices.top, 669);
  const sim::ScreenRect caption2 = Geometry(widgets.functionCaption[2]);
  const sim::ScreenRect row2 = Geometry(widgets.functionPopup[2]);
  EXPECT_EQ(row2.top, 629);
  EXPECT_EQ(caption2.top, 629);
  EXPECT_GT(caption2.left, devices.right);
  EXPECT_LE(caption2.right, row2.left);
  EXPECT_GE(row2.right - row2.left, 300);
  EXPECT_LE(row2.right, window.right - 40);
  // The slider rows keep their place beside the function pop-ups.
  const sim::ScreenRect value3 = Geometry(widgets.sliders[3].valueLabel);
  EXPECT_EQ(value3.left, row2.left + 60);
  EXPECT_EQ(value3.top, 709 - 210 - 120 - 15);
}

TEST_F(AssignDialogTest, WithoutUnitsTheDevicePopupSaysSoAndNoRowShows) {
  ASSERT_TRUE(OpenAssignDialog(650, 650));
  const AssignDialogWidgets widgets = Widgets();
  EXPECT_EQ(Text(widgets.devicePopup), "(No devices found.)");
  EXPECT_TRUE(Visible(widgets.devicePopup));
  EXPECT_EQ(VisibleRows(widgets), 0);
  for (const AssignDialogSliderWidgets& slider : widgets.sliders) {
    EXPECT_FALSE(Visible(slider.caption));
    EXPECT_EQ(Text(slider.valueLabel), "---");
  }
}

TEST_F(AssignDialogTest, OpeningAgainKeepsTheOpenDialog) {
  ASSERT_TRUE(OpenAssignDialog(650, 650));
  const XPWidgetID first = Widgets().mainWindow;
  const int widgetCount = host().WidgetCount();
  OpenAssignFunctionsDialog(650, 650);
  EXPECT_EQ(Widgets().mainWindow, first);
  EXPECT_EQ(host().WidgetCount(), widgetCount);
}

TEST_F(AssignDialogTest, TheCloseBoxDestroysEveryWidget) {
  ASSERT_TRUE(OpenAssignDialog(650, 650));
  const AssignDialogWidgets widgets = Widgets();
  ASSERT_TRUE(host().ClickCloseBox(widgets.mainWindow));
  EXPECT_FALSE(IsAssignDialogOpen());
  EXPECT_EQ(host().WidgetCount(), 0);
  AssignDialogWidgets after;
  EXPECT_FALSE(GetAssignDialogWidgets(after));
  // Closing again, or showing a unit while closed, does nothing.
  CloseAssignDialog();
  ShowDevicePanel(kModuleGFP8, 1);
  EXPECT_EQ(host().WidgetCount(), 0);
  ASSERT_TRUE(OpenAssignDialog(650, 650));
}

TEST_F(AssignDialogTest, TheHostClosingTheDialogWhileAMenuIsOpenClosesTheMenuToo) {
  ASSERT_TRUE(OpenAssignDialog(650, 650));
  const AssignDialogWidgets widgets = Widgets();
  const sim::ScreenRect devices = Geometry(widgets.devicePopup);
  ASSERT_TRUE(host().ClickAt(devices.left + 5, devices.top - 6));
  ASSERT_EQ(host().WindowCount(), 1);
  CloseAssignDialog();
  EXPECT_EQ(host().WindowCount(), 0);
  EXPECT_EQ(host().WidgetCount(), 0);
}

// ---- a unit's rows -------------------------------------------------------------------------------

TEST_F(AssignDialogTest, ShowingAModelFillsItsRowsAndHidesTheRest) {
  ASSERT_TRUE(OpenAssignDialog(650, 650));
  const AssignDialogWidgets widgets = Widgets();
  ShowDevicePanel(kModuleGFMCPPro, 1);
  EXPECT_EQ(VisibleRows(widgets), 30);
  ShowDevicePanel(kModuleGF166, 2);
  EXPECT_EQ(VisibleRows(widgets), 10);
  EXPECT_FALSE(Visible(widgets.functionPopup[0]));
  EXPECT_EQ(Text(widgets.functionCaption[0]), "");
  EXPECT_EQ(Text(widgets.functionCaption[1]), "Left Function");
  EXPECT_FALSE(Visible(widgets.functionPopup[11]));
  // GF-166 modes get the GF-166's own avionic list.
  EXPECT_NE(Text(widgets.functionPopup[3]).find(";COM1_DUAL;"), std::string::npos);
  EXPECT_EQ(Text(widgets.functionPopup[3]).find(";COM1_ACTIVE;"), std::string::npos);
}

TEST_F(AssignDialogTest, StoredValuesAreReadFromTheUnitsOwnSection) {
  WriteIniValue(kConfigFileName, "GFP8_2", "Function4", "PITOT_HEAT");
  WriteIniValue(kConfigFileName, "GFP8_1", "Function4", "TAXI_LTS");
  ASSERT_TRUE(OpenAssignDialog(650, 650));
  const AssignDialogWidgets widgets = Widgets();
  ShowDevicePanel(kModuleGFP8, 2);
  const std::string list = Text(widgets.functionPopup[3]);
  EXPECT_EQ(Text(widgets.functionCaption[3]), "Button 4");
  EXPECT_EQ(list.substr(0, 13), "No Selection;");
  ASSERT_GT(Selected(widgets.functionPopup[3]), 0);
  EXPECT_EQ(list.find("PITOT_HEAT;"), list.find("PITOT_HEAT"));
  EXPECT_EQ(Selected(widgets.functionPopup[0]), 0);
}

TEST_F(AssignDialogTest, X737ModeAddsItsItemsToTheButtonsOfTheNextUnitShown) {
  ASSERT_TRUE(OpenAssignDialog(650, 650));
  const AssignDialogWidgets widgets = Widgets();
  ShowDevicePanel(kModuleGFP8, 1);
  EXPECT_EQ(Text(widgets.functionPopup[0]).find("AP_CMD_A;"), std::string::npos);
  X737Mode = 1;
  ShowDevicePanel(kModuleGFP8, 1);
  EXPECT_NE(Text(widgets.functionPopup[0]).find("ART_STAB;AP_CMD_A;"), std::string::npos);
  // The GF-MCPPro has nothing to assign while the x737 drives it.
  ShowDevicePanel(kModuleGFMCPPro, 1);
  EXPECT_EQ(VisibleRows(widgets), 0);
}

TEST_F(AssignDialogTest, ColourRowsShowOnlyForTheWarningPanel) {
  WriteIniValue(kConfigFileName, "GFWCP_1", "Colour3", "BLUE");
  ASSERT_TRUE(OpenAssignDialog(650, 650));
  const AssignDialogWidgets widgets = Widgets();
  ShowDevicePanel(kModuleGFWCP, 1);
  for (int row = 0; row < 6; ++row) EXPECT_TRUE(Visible(widgets.colourPopup[row])) << row;
  EXPECT_FALSE(Visible(widgets.colourPopup[6]));
  EXPECT_EQ(Text(widgets.colourPopup[0]), "BLACK;WHITE;RED;GREEN;BLUE;MAGENTA;YELLOW;CYAN;");
  EXPECT_EQ(Selected(widgets.colourPopup[0]), 0);
  EXPECT_EQ(Selected(widgets.colourPopup[2]), 4);
  ShowDevicePanel(kModuleGFP8, 1);
  EXPECT_FALSE(Visible(widgets.colourPopup[0]));
}

// ---- sliders -------------------------------------------------------------------------------------

TEST_F(AssignDialogTest, WholeNumberSliderWritesItsPositionAndClampsWhatItReads) {
  WriteIniValue(kConfigFileName, "GFLGT2_1", "WHEEL2_GAIN", "25");
  ASSERT_TRUE(OpenAssignDialog(650, 650));
  const AssignDialogWidgets widgets = Widgets();
  ShowDevicePanel(kModuleGFLGT2, 1);
  EXPECT_EQ(Text(widgets.sliders[1].caption), "Elevator Gain");
  EXPECT_EQ(Text(widgets.sliders[1].valueLabel), "10");
  EXPECT_EQ(Text(widgets.sliders[1].minimumLabel), "1");
  EXPECT_EQ(Text(widgets.sliders[1].maximumLabel), "10");
  ASSERT_TRUE(host().DragSlider(widgets.sliders[0].slider, 7));
  EXPECT_EQ(StoredValue("GFLGT2_1", "WHEEL1_GAIN"), "7");
  EXPECT_EQ(Text(widgets.sliders[0].valueLabel), "7");
  EXPECT_FALSE(Visible(widgets.sliders[3].slider));
}

}  // namespace
}  // namespace drav

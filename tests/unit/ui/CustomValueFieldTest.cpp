// Typing a value in the Assign Functions dialog: the last item of every row opens a field over the
// row's pop-up; Return stores what was typed (a custom value then shows as such), Escape leaves the
// row alone, and showing another unit puts the field away.
#include <gtest/gtest.h>

#include <XPStandardWidgets.h>
#include <XPWidgets.h>

#include <string>

#include "UiTestSupport.h"
#include "base/IniFile.h"
#include "hid/ModuleTypes.h"
#include "ui/AssignDialog.h"
#include "ui/CustomRowItem.h"
#include "ui/ItemList.h"
#include "ui/PopupList.h"

namespace drav {
namespace {

using uitest::UiTest;

constexpr char kBackspace = 8;
constexpr char kReturn = 13;
constexpr char kEscape = 27;

class CustomValueFieldTest : public UiTest {
 protected:
  void SetUp() override {
    UiTest::SetUp();
    WriteIniValue(kConfigFileName, "GFP8_1", "Function2", "PITOT_HEAT");
    ASSERT_TRUE(OpenAssignDialog(650, 650));
    ASSERT_TRUE(GetAssignDialogWidgets(widgets_));
    ShowDevicePanel(kModuleGFP8, 1);
    popup_ = widgets_.functionPopup[1];
  }

  static std::string Text(void* widget) {
    const auto snapshot = host().DescribeWidget(widget);
    return snapshot ? snapshot->descriptor : std::string("<gone>");
  }

  static bool Visible(void* widget) {
    const auto snapshot = host().DescribeWidget(widget);
    return snapshot && snapshot->visible;
  }

  static std::string Stored() { return ReadIniString(kConfigFileName, "GFP8_1", "Function2", "<absent>"); }

  std::string ShownItem() const {
    const int index = static_cast<int>(XPGetWidgetProperty(popup_, kPopupCurrentItemProperty, nullptr));
    return std::string(ItemAt(Text(popup_), index));
  }

  // Picks the row's item for typing, as the pop-up's menu does; returns the field that took the
  // keyboard.
  void* PickTypeItem() const {
    const std::string list = Text(popup_);
    const auto items = SplitItems(list);
    int index = 0;
    while (index < static_cast<int>(items.size()) && items[static_cast<std::size_t>(index)] != kTypeValueItem) ++index;
    EXPECT_LT(index, static_cast<int>(items.size())) << list;
    XPSendMessageToWidget(popup_, kPopupItemPickedMessage, xpMode_UpChain, reinterpret_cast<intptr_t>(popup_), index);
    return host().WidgetWithFocus();
  }

  static void Type(const std::string& text) {
    for (char c : text) host().SendKey(c, xplm_DownFlag, 0);
  }

  AssignDialogWidgets widgets_;
  XPWidgetID popup_ = nullptr;
};

TEST_F(CustomValueFieldTest, ReturnStoresTheTypedValueAndTheRowShowsItAsCustom) {
  void* field = PickTypeItem();
  ASSERT_NE(field, nullptr);
  EXPECT_EQ(Text(field), "PITOT_HEAT");  // the row's value, to edit
  EXPECT_TRUE(Visible(field));
  EXPECT_FALSE(Visible(popup_));
  EXPECT_EQ(Stored(), "PITOT_HEAT");  // nothing is written while typing

  Type(std::string(10, kBackspace));
  Type("cmd sim/lights/beacon_lights_toggle");
  host().SendKey(kReturn, xplm_DownFlag, 0);
  EXPECT_EQ(Stored(), "cmd sim/lights/beacon_lights_toggle");
  EXPECT_FALSE(Visible(field));
  EXPECT_TRUE(Visible(popup_));
  EXPECT_EQ(host().WidgetWithFocus(), nullptr);
  EXPECT_EQ(ShownItem(), "custom: cmd sim/lights/beacon_lights_toggle");

  // A catalogue name typed in is stored as a pick of it would be.
  field = PickTypeItem();
  EXPECT_EQ(Text(field), "cmd sim/lights/beacon_lights_toggle");
  Type(std::string(40, kBackspace) + "TAXI_LTS\r");
  EXPECT_EQ(Stored(), "TAXI_LTS");
  EXPECT_EQ(ShownItem(), "TAXI_LTS");
}

TEST_F(CustomValueFieldTest, EscapeLeavesTheRowAsItWas) {
  void* field = PickTypeItem();
  ASSERT_NE(field, nullptr);
  Type("X");
  host().SendKey(kEscape, xplm_DownFlag, 0);
  EXPECT_EQ(Stored(), "PITOT_HEAT");
  EXPECT_FALSE(Visible(field));
  EXPECT_TRUE(Visible(popup_));
  EXPECT_EQ(ShownItem(), "PITOT_HEAT");
}

TEST_F(CustomValueFieldTest, ShowingAnotherUnitPutsTheFieldAway) {
  void* field = PickTypeItem();
  ASSERT_NE(field, nullptr);
  Type("cmd a/b");
  ShowDevicePanel(kModuleGFT8, 1);
  EXPECT_FALSE(Visible(field));
  EXPECT_EQ(host().WidgetWithFocus(), nullptr);
  // A Return that still reaches the dialog stores nothing anywhere.
  host().SendKey(kReturn, xplm_DownFlag, 0);
  EXPECT_EQ(Stored(), "PITOT_HEAT");
  EXPECT_EQ(ReadIniString(kConfigFileName, "GFT8_1", "Function2", "<absent>"), "<absent>");
}

}  // namespace
}  // namespace drav

// The pop-up list widget's button: which item it shows, how much of a long one, and where that item
// stands in its list. The scenarios read the item a pop-up holds, not the text its button draws.
#include <gtest/gtest.h>

#include <XPStandardWidgets.h>
#include <XPWidgets.h>

#include <string>

#include "UiTestSupport.h"
#include "ui/PopupList.h"
#include "ui/TextMeasure.h"

namespace drav {
namespace {

using uitest::UiTest;

constexpr int kQuads = 0x0007;  // GL_QUADS

class PopupListTest : public UiTest {
 protected:
  void SetUp() override {
    UiTest::SetUp();
    window_ = XPCreateWidget(100, 700, 700, 100, 1, "Test", 1, nullptr, xpWidgetClass_MainWindow);
  }
  void TearDown() override {
    if (window_ != nullptr) XPDestroyWidget(window_, 1);
    UiTest::TearDown();
  }

  XPWidgetID MakePopup(const std::string& items, int left, int right) {
    return CreatePopupList(left, 600, right, 588, 1, items.c_str(), window_, 1);
  }

  // Boxes filled flat in the front-most window: the pick menu's lit items.
  static int LitItems() {
    const sim::DisplayList screen = host().DrawScreen();
    const sim::DisplayItem* menu = FrontWindow(screen);
    if (menu == nullptr) return -1;
    int lit = 0;
    for (const sim::DrawnPrimitive& primitive : menu->primitives) {
      if (primitive.mode == kQuads && !primitive.textured) ++lit;
    }
    return lit;
  }

  // The pointer held down over an item's text in the menu (1 down, 2 drag); false when not shown.
  static bool PointAt(const std::string& text, int mouseStatus) {
    const sim::DisplayList screen = host().DrawScreen();
    const sim::DisplayItem* menu = FrontWindow(screen);
    if (menu == nullptr) return false;
    for (const sim::DrawnText& drawn : menu->texts) {
      if (drawn.text == text) return host().MouseAt(drawn.x + 2, drawn.y + 4, mouseStatus);
    }
    return false;
  }

  static std::string ButtonText(XPWidgetID popup) {
    const sim::DisplayList screen = host().DrawScreen();
    const sim::DisplayItem* item = Find(screen, popup);
    return item == nullptr || item->texts.empty() ? std::string("<nothing>") : item->texts.front().text;
  }

  // The current item as the widget's start and length properties locate it in its list.
  static std::string LocatedItem(XPWidgetID popup) {
    const std::string list = WidgetDescriptor(popup);
    const auto start = XPGetWidgetProperty(popup, kPopupItemStartProperty, nullptr);
    const auto length = XPGetWidgetProperty(popup, kPopupItemLengthProperty, nullptr);
    if (start < 0 || length < 0 || static_cast<std::size_t>(start + length) > list.size()) return "<outside the list>";
    return list.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(length));
  }

  XPWidgetID window_ = nullptr;
};

TEST_F(PopupListTest, TheCurrentItemIsShownAndLocatedInTheList) {
  XPWidgetID popup = MakePopup("No Selection;AP_LNAV;AP_VNAV;", 200, 400);
  EXPECT_EQ(ButtonText(popup), "No Selection");
  EXPECT_EQ(LocatedItem(popup), "No Selection");
  XPSetWidgetProperty(popup, kPopupCurrentItemProperty, 2);
  EXPECT_EQ(ButtonText(popup), "AP_VNAV");
  EXPECT_EQ(LocatedItem(popup), "AP_VNAV");
  // A new list keeps the index: the item at that place is shown and located.
  XPSetWidgetDescriptor(popup, "A;BB;CCC;");
  EXPECT_EQ(ButtonText(popup), "CCC");
  EXPECT_EQ(LocatedItem(popup), "CCC");
}

TEST_F(PopupListTest, ALongItemShowsWhatFitsBesideTheArrow) {
  // The button keeps 24 pixels at its right end for the arrow and draws the text 4 pixels in.
  constexpr int kBesideText = 24 + 4;
  const std::string item = "ENG_1_FUEL_RUN_CUTOFF";
  const int width = TextWidth("ENG_1_FUEL") + kBesideText;
  EXPECT_EQ(ButtonText(MakePopup(item + ";", 200, 200 + width)), "ENG_1_FUEL");
  EXPECT_EQ(ButtonText(MakePopup(item + ";", 200, 200 + width - 1)), "ENG_1_FUE");
  // A pop-up as wide as the layout asks for that text shows all of it.
  EXPECT_EQ(ButtonText(MakePopup(item + ";", 200, 200 + PopupWidthFor(TextWidth(item)))), item);
}

TEST_F(PopupListTest, ThePickMenuLightsOnlyTheItemUnderThePointer) {
  ASSERT_NE(MakePopup("(Heading;LANDING_LTS;TAXI_LTS;NAV_LTS;", 200, 400), nullptr);
  ASSERT_TRUE(host().ClickAt(300, 594));
  EXPECT_EQ(LitItems(), 0) << "nothing is lit before the pointer comes";
  ASSERT_TRUE(PointAt("TAXI_LTS", 1));
  EXPECT_EQ(LitItems(), 1);
  // An item that cannot be picked is not lit under the pointer either.
  ASSERT_TRUE(PointAt("Heading", 2));
  EXPECT_EQ(LitItems(), 0);
}

}  // namespace
}  // namespace drav

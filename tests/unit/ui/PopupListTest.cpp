// The pop-up list widget and its pick menu in the simulator: what the button shows, how the menu
// opens, pages and picks, and what happens to a menu whose pop-up goes away.
#include <gtest/gtest.h>

#include <XPStandardWidgets.h>
#include <XPWidgets.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "UiTestSupport.h"
#include "ui/PickMenuLayout.h"
#include "ui/PopupList.h"

namespace drav {
namespace {

using uitest::UiTest;

constexpr int kDownFlag = 8;  // xplm_DownFlag
constexpr unsigned char kPageUp = 0x21;
constexpr unsigned char kPageDown = 0x22;

std::vector<std::pair<XPWidgetID, intptr_t>> gPicks;

int RecordPick(XPWidgetMessage message, XPWidgetID /*widget*/, intptr_t param1, intptr_t param2) {
  if (message != kPopupItemPickedMessage) return 0;
  gPicks.emplace_back(reinterpret_cast<XPWidgetID>(param1), param2);
  return 1;
}

std::string NumberedList(int count) {
  std::string list;
  for (int i = 0; i < count; ++i) list += "ITEM_" + std::to_string(i) + ";";
  return list;
}

class PopupListTest : public UiTest {
 protected:
  void SetUp() override {
    UiTest::SetUp();
    gPicks.clear();
    window_ = XPCreateWidget(100, 700, 700, 100, 1, "Test", 1, nullptr, xpWidgetClass_MainWindow);
  }
  void TearDown() override {
    if (window_ != nullptr) XPDestroyWidget(window_, 1);
    UiTest::TearDown();
  }

  XPWidgetID MakePopup(const std::string& items, int scrolling, int left = 200, int top = 600, int right = 400) {
    XPWidgetID popup = CreatePopupList(left, top, right, top - 12, 1, items.c_str(), window_, scrolling);
    XPAddWidgetCallback(popup, RecordPick);
    return popup;
  }

  static void ClickPopup(XPWidgetID popup) {
    int left = 0, top = 0, right = 0, bottom = 0;
    XPGetWidgetGeometry(popup, &left, &top, &right, &bottom);
    ASSERT_TRUE(host().ClickAt((left + right) / 2, (top + bottom) / 2));
  }

  // Clicks the menu's drawn text as a pilot would; false when the menu does not show it.
  static bool ClickMenuText(const std::string& text) {
    const sim::DisplayList screen = host().DrawScreen();
    const sim::DisplayItem* menu = FrontWindow(screen);
    if (menu == nullptr) return false;
    for (const sim::DrawnText& drawn : menu->texts) {
      if (drawn.text == text) return host().ClickAt(drawn.x + 2, drawn.y + 4);
    }
    return false;
  }

  static std::vector<std::string> MenuTexts() {
    const sim::DisplayList screen = host().DrawScreen();
    const sim::DisplayItem* menu = FrontWindow(screen);
    return menu == nullptr ? std::vector<std::string>{} : Texts(*menu);
  }

  static std::string ButtonText(XPWidgetID popup) {
    const sim::DisplayList screen = host().DrawScreen();
    const sim::DisplayItem* item = Find(screen, popup);
    return item == nullptr || item->texts.empty() ? std::string("<nothing>") : item->texts.front().text;
  }

  XPWidgetID window_ = nullptr;
};

// ---- the button ----------------------------------------------------------------------------------

TEST_F(PopupListTest, ShowsTheCurrentItemAndKeepsItsPlaceInTheDescriptor) {
  XPWidgetID popup = MakePopup("No Selection;AP_LNAV;AP_VNAV;", 1);
  EXPECT_EQ(ButtonText(popup), "No Selection");
  XPSetWidgetProperty(popup, kPopupCurrentItemProperty, 2);
  EXPECT_EQ(ButtonText(popup), "AP_VNAV");
  EXPECT_EQ(XPGetWidgetProperty(popup, kPopupItemStartProperty, nullptr), 21);
  EXPECT_EQ(XPGetWidgetProperty(popup, kPopupItemLengthProperty, nullptr), 7);
  EXPECT_EQ(XPGetWidgetProperty(popup, xpProperty_Enabled, nullptr), 1);
  // A new list keeps the index: the item at that place shows.
  XPSetWidgetDescriptor(popup, "A;B;C;");
  EXPECT_EQ(ButtonText(popup), "C");
  // An index past the list shows an empty text rather than reading past it.
  XPSetWidgetProperty(popup, kPopupCurrentItemProperty, 9);
  EXPECT_EQ(ButtonText(popup), "");
  XPSetWidgetProperty(popup, kPopupCurrentItemProperty, -3);
  EXPECT_EQ(ButtonText(popup), "");
}

TEST_F(PopupListTest, NoDevicesShowsWithoutItsParenthesisAndCannotBePicked) {
  XPWidgetID popup = MakePopup("(No devices found.)", 0);
  EXPECT_EQ(ButtonText(popup), "No devices found.)");
  ClickPopup(popup);
  EXPECT_EQ(host().WindowCount(), 1);
  ASSERT_TRUE(ClickMenuText("No devices found.)"));
  EXPECT_TRUE(gPicks.empty());
  EXPECT_EQ(host().WindowCount(), 0);
}

TEST_F(PopupListTest, ALongItemIsCutToTheButtonsWidth) {
  // (100 - 24) / 8 characters fit beside the arrow.
  XPWidgetID popup = MakePopup("ENG_1_FUEL_RUN_CUTOFF;", 1, 200, 600, 300);
  EXPECT_EQ(ButtonText(popup), "ENG_1_FUE");
}

TEST_F(PopupListTest, DrawsFromTheInterfaceTextureOrAsAnOldStyleElement) {
  XPWidgetID popup = MakePopup("A;", 1);
  {
    const sim::DisplayList screen = host().DrawScreen();
    const sim::DisplayItem* item = Find(screen, popup);
    ASSERT_NE(item, nullptr);
    ASSERT_FALSE(item->primitives.empty());
    EXPECT_TRUE(item->primitives.front().textured);
    EXPECT_TRUE(item->elements.empty());
  }
  // Before X-Plane 7 the button is the standard drag-bar element with a drawn arrow.
  gSimulatorVersions.xplaneVersion = 650;
  const sim::DisplayList screen = host().DrawScreen();
  const sim::DisplayItem* item = Find(screen, popup);
  ASSERT_NE(item, nullptr);
  ASSERT_EQ(item->elements.size(), 1u);
  EXPECT_EQ(item->elements[0].style, 62);
  ASSERT_FALSE(item->primitives.empty());
  EXPECT_FALSE(item->primitives.back().textured);
  ASSERT_EQ(Texts(*item), std::vector<std::string>{"A"});
}

// ---- picking -------------------------------------------------------------------------------------

TEST_F(PopupListTest, APickSetsTheIndexAndSendsTheMessageEvenForTheCurrentItem) {
  XPWidgetID popup = MakePopup("No Selection;AP_LNAV;AP_VNAV;", 1);
  ClickPopup(popup);
  ASSERT_TRUE(ClickMenuText("AP_VNAV"));
  ASSERT_EQ(gPicks.size(), 1u);
  EXPECT_EQ(gPicks[0].first, popup);
  EXPECT_EQ(gPicks[0].second, 2);
  EXPECT_EQ(XPGetWidgetProperty(popup, kPopupCurrentItemProperty, nullptr), 2);
  ClickPopup(popup);
  ASSERT_TRUE(ClickMenuText("AP_VNAV"));
  ASSERT_EQ(gPicks.size(), 2u);
  EXPECT_EQ(gPicks[1].second, 2);
  EXPECT_EQ(host().WindowCount(), 0);
}

TEST_F(PopupListTest, TheMenuOpensWithTheCurrentItemOverThePopup) {
  XPWidgetID popup = MakePopup("A;B;C;D;", 1);
  XPSetWidgetProperty(popup, kPopupCurrentItemProperty, 2);
  ClickPopup(popup);
  const sim::DisplayList screen = host().DrawScreen();
  const sim::DisplayItem* menu = FrontWindow(screen);
  ASSERT_NE(menu, nullptr);
  ASSERT_EQ(Texts(*menu), (std::vector<std::string>{"A", "B", "C", "D"}));
  // The current item's cell starts at the pop-up's top left corner.
  EXPECT_EQ(menu->geometry.left, 200);
  EXPECT_EQ(menu->geometry.top, 600 + 2 * 12);
}

TEST_F(PopupListTest, SeparatorsAreDrawnAsRulesAndDisabledItemsCannotBePicked) {
  XPWidgetID popup = MakePopup("ON;-;(GREYED;OFF;", 1);
  ClickPopup(popup);
  EXPECT_EQ(MenuTexts(), (std::vector<std::string>{"ON", "GREYED", "OFF"}));
  ASSERT_TRUE(ClickMenuText("GREYED"));
  EXPECT_TRUE(gPicks.empty());
  ClickPopup(popup);
  ASSERT_TRUE(ClickMenuText("OFF"));
  ASSERT_EQ(gPicks.size(), 1u);
  EXPECT_EQ(gPicks[0].second, 3);
}

TEST_F(PopupListTest, ADisabledPopupOpensNoMenu) {
  XPWidgetID popup = MakePopup("A;B;", 1);
  XPSetWidgetProperty(popup, xpProperty_Enabled, 0);
  ClickPopup(popup);
  EXPECT_EQ(host().WindowCount(), 0);
}

TEST_F(PopupListTest, APopupDestroyedWhileItsMenuIsOpenTakesTheMenuWithIt) {
  XPWidgetID popup = MakePopup("A;B;", 1);
  ClickPopup(popup);
  ASSERT_EQ(host().WindowCount(), 1);
  XPDestroyWidget(window_, 1);
  window_ = nullptr;
  EXPECT_EQ(host().WindowCount(), 0);
  EXPECT_TRUE(gPicks.empty());
}

// ---- long lists ----------------------------------------------------------------------------------

TEST_F(PopupListTest, ThreeHundredItemsOpenInSeveralColumnsAndPageByTheFirstColumn) {
  XPWidgetID popup = MakePopup(NumberedList(300), 1);
  ClickPopup(popup);
  std::vector<std::string> texts = MenuTexts();
  ASSERT_EQ(texts.size(), 300u);
  const sim::DisplayList screen = host().DrawScreen();
  std::set<int> columns;
  for (const sim::DrawnText& text : FrontWindow(screen)->texts) columns.insert(text.x);
  EXPECT_GT(columns.size(), 1u);
  // 59 items of 12 pixels fit in 768 - 50.
  ASSERT_TRUE(host().SendKey(0, kDownFlag, kPageDown));
  texts = MenuTexts();
  ASSERT_EQ(texts.size(), 300u - 59u);
  EXPECT_EQ(texts.front(), "ITEM_59");
  ASSERT_TRUE(host().SendKey(0, kDownFlag, kPageUp));
  EXPECT_EQ(MenuTexts().front(), "ITEM_0");
  // Page Up at the top stays there.
  ASSERT_TRUE(host().SendKey(0, kDownFlag, kPageUp));
  EXPECT_EQ(MenuTexts().front(), "ITEM_0");
}

TEST_F(PopupListTest, PageDownStopsAtTheLastPageAndOtherKeysDoNothing) {
  XPWidgetID popup = MakePopup(NumberedList(130), 1);
  ClickPopup(popup);
  for (int i = 0; i < 5; ++i) ASSERT_TRUE(host().SendKey(0, kDownFlag, kPageDown));
  EXPECT_EQ(MenuTexts().front(), "ITEM_118");
  ASSERT_TRUE(host().SendKey('a', kDownFlag, 'A'));
  EXPECT_EQ(MenuTexts().front(), "ITEM_118");
}

TEST_F(PopupListTest, AfterPageDownAClickBesideTheItemsPicksNothing) {
  XPWidgetID popup = MakePopup(NumberedList(300), 1);
  ClickPopup(popup);
  ASSERT_TRUE(host().SendKey(0, kDownFlag, kPageDown));
  const sim::DisplayList screen = host().DrawScreen();
  const sim::DisplayItem* menu = FrontWindow(screen);
  ASSERT_NE(menu, nullptr);
  // The cell of item 299 shows nothing now (it would show item 358).
  const PickMenuMetrics metrics{8, 12, 1024, 768};
  const PickMenuLayout layout = LayoutPickMenu(ParsePickMenuItems(NumberedList(300)), metrics);
  const ScreenRect place{menu->geometry.left, menu->geometry.top, menu->geometry.right, menu->geometry.bottom};
  const ScreenRect empty = CellRect(layout, place, 299);
  ASSERT_TRUE(host().ClickAt((empty.left + empty.right) / 2, (empty.top + empty.bottom) / 2));
  EXPECT_TRUE(gPicks.empty());
  EXPECT_EQ(XPGetWidgetProperty(popup, kPopupCurrentItemProperty, nullptr), 0);
  EXPECT_EQ(host().WindowCount(), 0);
  // Reopened, the menu starts from the first page again.
  ClickPopup(popup);
  EXPECT_EQ(MenuTexts().front(), "ITEM_0");
}

TEST_F(PopupListTest, WithoutTheScrollingFlagTheMenuLeavesTheKeyboardAlone) {
  XPWidgetID popup = MakePopup(NumberedList(300), 0);
  ClickPopup(popup);
  EXPECT_EQ(host().WindowWithFocus(), nullptr);
  host().SendKey(0, kDownFlag, kPageDown);
  EXPECT_EQ(MenuTexts().front(), "ITEM_0");
}

TEST_F(PopupListTest, TheLatestCreationSetsTheScrollingFlagForEveryPopup) {
  XPWidgetID devices = MakePopup(NumberedList(300), 0);
  MakePopup("A;", 1, 200, 500);
  ClickPopup(devices);
  EXPECT_NE(host().WindowWithFocus(), nullptr);
  ASSERT_TRUE(ClickMenuText("ITEM_1"));
  // The pick gives the keyboard back.
  EXPECT_EQ(host().WindowWithFocus(), nullptr);
}

}  // namespace
}  // namespace drav

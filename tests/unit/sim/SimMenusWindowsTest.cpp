// Menus, windows, text drawing and the scenery stubs of the simulator host.
#include <XPLMDisplay.h>
#include <XPLMGraphics.h>
#include <XPLMMenus.h>
#include <XPLMScenery.h>

#include <string>
#include <vector>

#include "SimHostFixture.h"

namespace sim::testing {
namespace {

using Texts = std::vector<std::string>;

// ---- menus -------------------------------------------------------------------------------------

struct Pick {
  void* menuRef;
  void* itemRef;
};
std::vector<Pick> gPicks;

void RecordPick(void* menuRef, void* itemRef) { gPicks.push_back(Pick{menuRef, itemRef}); }

class SimMenus : public SimHostTest {
 protected:
  void SetUp() override {
    SimHostTest::SetUp();
    gPicks.clear();
  }
  // The plug-in's usual menu: an item in the Plugins menu that opens a submenu of its own.
  XPLMMenuID BuildPluginMenu() {
    XPLMMenuID plugins = XPLMFindPluginsMenu();
    const int item = XPLMAppendMenuItem(plugins, "DRAV", nullptr, 1);
    XPLMMenuID menu = XPLMCreateMenu("DRAV", plugins, item, RecordPick, &menuRef_);
    XPLMAppendMenuItem(menu, "Assign Functions", &assignRef_, 1);
    XPLMAppendMenuItem(menu, "About", &aboutRef_, 1);
    return menu;
  }
  int menuRef_ = 0, assignRef_ = 0, aboutRef_ = 0;
};

TEST_F(SimMenus, ListsThePluginsItems) {
  ASSERT_NE(BuildPluginMenu(), nullptr);
  EXPECT_EQ(host().PluginMenuItems(), (Texts{"Plugins/DRAV", "DRAV/Assign Functions", "DRAV/About"}));
}

TEST_F(SimMenus, PickingAnItemCallsTheHandlerWithBothRefcons) {
  BuildPluginMenu();
  EXPECT_TRUE(host().PickMenuItem("About"));
  ASSERT_EQ(gPicks.size(), 1u);
  EXPECT_EQ(gPicks[0].menuRef, &menuRef_);
  EXPECT_EQ(gPicks[0].itemRef, &aboutRef_);
  EXPECT_TRUE(host().PickMenuItem("Assign Functions"));
  EXPECT_EQ(gPicks.back().itemRef, &assignRef_);
}

TEST_F(SimMenus, ItemsThatCannotBePickedAreRefused) {
  BuildPluginMenu();
  EXPECT_FALSE(host().PickMenuItem("DRAV"));  // opens the submenu; X-Plane's own menu
  EXPECT_FALSE(host().PickMenuItem("about"));
  EXPECT_FALSE(host().PickMenuItem("Nothing"));
  EXPECT_TRUE(gPicks.empty());
}

TEST_F(SimMenus, BadMenuCallsFail) {
  XPLMMenuID plugins = XPLMFindPluginsMenu();
  ASSERT_NE(plugins, nullptr);
  EXPECT_EQ(XPLMFindPluginsMenu(), plugins);
  EXPECT_EQ(XPLMCreateMenu("", plugins, 0, RecordPick, nullptr), nullptr);
  EXPECT_EQ(XPLMCreateMenu(nullptr, plugins, 0, RecordPick, nullptr), nullptr);
  EXPECT_EQ(XPLMCreateMenu("Sub", plugins, 0, RecordPick, nullptr), nullptr);  // no item 0 yet
  EXPECT_EQ(XPLMCreateMenu("Sub", plugins, -1, RecordPick, nullptr), nullptr);
  EXPECT_EQ(XPLMAppendMenuItem(nullptr, "Item", nullptr, 1), -1);
  EXPECT_EQ(XPLMAppendMenuItem(plugins, nullptr, nullptr, 1), -1);
  EXPECT_EQ(XPLMAppendMenuItem(plugins, "First", nullptr, 1), 0);
  EXPECT_EQ(XPLMAppendMenuItem(plugins, "Second", nullptr, 1), 1);
  XPLMMenuID bar = XPLMCreateMenu("Bar", nullptr, 0, RecordPick, nullptr);  // a menu-bar menu
  EXPECT_NE(bar, nullptr);
  EXPECT_EQ(host().PluginMenuItems(), (Texts{"Plugins/First", "Plugins/Second"}));
}

// ---- windows -----------------------------------------------------------------------------------

struct WindowLog {
  Texts keys;
  std::vector<int> clicks;  // x, y, status, ... per click
  int clickResult = 1;
};
WindowLog gWindows;

void DrawTwoLines(XPLMWindowID window, void* refcon) {
  int left = 0, top = 0, right = 0, bottom = 0;
  XPLMGetWindowGeometry(window, &left, &top, &right, &bottom);
  XPLMDrawTranslucentDarkBox(left, top, right, bottom);
  float white[3] = {1, 1, 1};
  XPLMDrawString(white, left + 5, top - 20, static_cast<const char*>(refcon), nullptr, xplmFont_Basic);
  XPLMDrawString(white, left + 5, top - 40, "second line", nullptr, xplmFont_Basic);
}

void RecordKey(XPLMWindowID, char key, XPLMKeyFlags, char, void* refcon, int losingFocus) {
  gWindows.keys.push_back(std::string(static_cast<const char*>(refcon)) + (losingFocus ? " lost" : " key") +
                          std::to_string(static_cast<int>(key)));
}

int RecordClick(XPLMWindowID, int x, int y, XPLMMouseStatus status, void*) {
  gWindows.clicks.insert(gWindows.clicks.end(), {x, y, status});
  return gWindows.clickResult;
}

class SimWindows : public SimHostTest {
 protected:
  void SetUp() override {
    SimHostTest::SetUp();
    gWindows = WindowLog{};
  }
  static XPLMWindowID Legacy(int left, int top, int right, int bottom, const char* text) {
    return XPLMCreateWindow(left, top, right, bottom, 1, DrawTwoLines, RecordKey, RecordClick,
                            const_cast<char*>(text));
  }
};

TEST_F(SimWindows, DrawingCapturesTheStringsOfVisibleWindowsInOrder) {
  XPLMWindowID first = Legacy(600, 730, 1000, 680, "splash");
  XPLMWindowID second = Legacy(10, 100, 200, 10, "other");
  EXPECT_EQ(host().WindowCount(), 2);
  EXPECT_EQ(host().DrawWindows(), (Texts{"splash", "second line", "other", "second line"}));

  XPLMSetWindowIsVisible(first, 0);
  EXPECT_EQ(XPLMGetWindowIsVisible(first), 0);
  EXPECT_EQ(host().DrawWindows(), (Texts{"other", "second line"}));
  XPLMDestroyWindow(second);
  EXPECT_EQ(host().WindowCount(), 1);
  EXPECT_TRUE(host().DrawWindows().empty());
}

TEST_F(SimWindows, StringsDrawnOutsideADrawCallbackAreIgnored) {
  Legacy(0, 100, 100, 0, "inside");
  float white[3] = {1, 1, 1};
  XPLMDrawString(white, 0, 0, "outside", nullptr, xplmFont_Basic);
  EXPECT_EQ(host().DrawWindows(), (Texts{"inside", "second line"}));
}

TEST_F(SimWindows, GeometryRefconAndBadHandles) {
  int refA = 0, refB = 0;
  XPLMWindowID window = XPLMCreateWindow(600, 730, 1000, 680, 1, DrawTwoLines, RecordKey, RecordClick, &refA);
  int left = -1, top = -1, right = -1, bottom = -1;
  XPLMGetWindowGeometry(window, &left, &top, &right, &bottom);
  EXPECT_EQ((std::vector<int>{left, top, right, bottom}), (std::vector<int>{600, 730, 1000, 680}));
  XPLMGetWindowGeometry(window, nullptr, &top, nullptr, nullptr);
  EXPECT_EQ(XPLMGetWindowRefCon(window), &refA);
  XPLMSetWindowRefCon(window, &refB);
  EXPECT_EQ(XPLMGetWindowRefCon(window), &refB);

  XPLMDestroyWindow(window);
  XPLMDestroyWindow(window);
  left = -1;
  XPLMGetWindowGeometry(window, &left, nullptr, nullptr, nullptr);
  EXPECT_EQ(left, -1);
  EXPECT_EQ(XPLMGetWindowRefCon(window), nullptr);
  EXPECT_EQ(XPLMGetWindowIsVisible(window), 0);
  EXPECT_EQ(host().WindowCount(), 0);

  int width = 0, height = 0;
  XPLMGetScreenSize(&width, &height);
  EXPECT_EQ(width, 1024);
  EXPECT_EQ(height, 768);
  XPLMGetScreenSize(nullptr, nullptr);
}

TEST_F(SimWindows, CreateWindowExHonoursStructSize) {
  XPLMCreateWindow_t params = {};
  params.structSize = sizeof params;
  params.left = 50;
  params.top = 300;
  params.right = 250;
  params.bottom = 100;
  params.visible = 1;
  params.drawWindowFunc = DrawTwoLines;
  params.handleMouseClickFunc = RecordClick;
  params.handleKeyFunc = RecordKey;
  params.refcon = const_cast<char*>("ex");
  XPLMWindowID window = XPLMCreateWindowEx(&params);
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(host().DrawWindows(), (Texts{"ex", "second line"}));

  params.structSize = 24;  // too old to hold the callbacks
  EXPECT_EQ(XPLMCreateWindowEx(&params), nullptr);
  EXPECT_EQ(XPLMCreateWindowEx(nullptr), nullptr);
  EXPECT_EQ(host().WindowCount(), 1);
}

TEST_F(SimWindows, ClicksGoToTheFrontWindowUnderTheMouse) {
  Legacy(0, 200, 200, 0, "back");
  Legacy(100, 300, 300, 100, "front");
  EXPECT_EQ(host().ClickWindow(150, 150, xplm_MouseDown), 1);
  EXPECT_EQ(host().ClickWindow(400, 400, xplm_MouseUp), 1);  // the window that took the down
  EXPECT_EQ(gWindows.clicks, (std::vector<int>{150, 150, 1, 400, 400, 3}));
  EXPECT_EQ(host().ClickWindow(400, 400, xplm_MouseDown), 0);  // nothing there
  EXPECT_EQ(gWindows.clicks.size(), 6u);
  gWindows.clickResult = 0;
  EXPECT_EQ(host().ClickWindow(10, 10, xplm_MouseDown), 0);  // the callback declined it
  EXPECT_EQ(gWindows.clicks.size(), 9u);
}

TEST_F(SimWindows, KeyboardFocusMovesAndTheLoserIsTold) {
  XPLMWindowID a = Legacy(0, 100, 100, 0, "a");
  XPLMWindowID b = Legacy(0, 100, 100, 0, "b");
  XPLMTakeKeyboardFocus(a);
  EXPECT_EQ(XPLMHasKeyboardFocus(a), 1);
  XPLMTakeKeyboardFocus(b);
  EXPECT_EQ(XPLMHasKeyboardFocus(a), 0);
  EXPECT_EQ(XPLMHasKeyboardFocus(b), 1);
  XPLMTakeKeyboardFocus(nullptr);
  EXPECT_EQ(XPLMHasKeyboardFocus(b), 0);
  EXPECT_EQ(gWindows.keys, (Texts{"a lost0", "b lost0"}));
  EXPECT_EQ(XPLMHasKeyboardFocus(nullptr), 0);
}

// The nominal cell is the classic 8 x 12; measured texts are proportional, as in X-Plane 12: narrow
// lower case and wide capitals, digits all alike.
TEST_F(SimWindows, FontsHaveANominalCellAndMeasureProportionally) {
  int width = 0, height = 0, digitsOnly = -1;
  XPLMGetFontDimensions(xplmFont_Basic, &width, &height, &digitsOnly);
  EXPECT_EQ(width, 8);
  EXPECT_EQ(height, 12);
  EXPECT_EQ(digitsOnly, 0);
  XPLMGetFontDimensions(xplmFont_Basic, nullptr, nullptr, nullptr);
  EXPECT_LT(XPLMMeasureString(xplmFont_Basic, "illicit", 7), 7 * 8.0f);
  EXPECT_GT(XPLMMeasureString(xplmFont_Proportional, "WATER_RUDDER", 12), 12 * 8.0f);
  EXPECT_FLOAT_EQ(XPLMMeasureString(xplmFont_Basic, "1200", 4), XPLMMeasureString(xplmFont_Basic, "8888", 4));
  EXPECT_FLOAT_EQ(XPLMMeasureString(xplmFont_Basic, "Assign", 3), XPLMMeasureString(xplmFont_Basic, "Ass", 3));
  // Stops at the end of the text; bytes outside ASCII still take room.
  EXPECT_FLOAT_EQ(XPLMMeasureString(xplmFont_Basic, "ab", 10), XPLMMeasureString(xplmFont_Basic, "ab", 2));
  EXPECT_GT(XPLMMeasureString(xplmFont_Basic, "\xc3\xa9", 2), 0.0f);
  EXPECT_EQ(XPLMMeasureString(xplmFont_Basic, nullptr, 4), 0.0f);
  EXPECT_EQ(XPLMMeasureString(xplmFont_Basic, "Assign", 0), 0.0f);
}

// ---- scenery -----------------------------------------------------------------------------------

TEST_F(SimHostTest, ProbesFindNoTerrainAndObjectsNeverLoad) {
  XPLMProbeRef probe = XPLMCreateProbe(xplm_ProbeY);
  ASSERT_NE(probe, nullptr);
  XPLMProbeInfo_t info = {};
  info.structSize = sizeof info;
  EXPECT_EQ(XPLMProbeTerrainXYZ(probe, 0, 0, 0, &info), xplm_ProbeMissed);
  XPLMDestroyProbe(probe);
  EXPECT_EQ(XPLMProbeTerrainXYZ(probe, 0, 0, 0, &info), xplm_ProbeError);
  EXPECT_EQ(XPLMProbeTerrainXYZ(nullptr, 0, 0, 0, &info), xplm_ProbeError);
  EXPECT_EQ(XPLMLoadObject("lib/airport/beacon.obj"), nullptr);
  EXPECT_EQ(XPLMLookupObjects("lib/airport/beacon.obj", 0, 0, nullptr, nullptr), 0);
}

}  // namespace
}  // namespace sim::testing

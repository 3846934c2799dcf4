// The standard widget classes as a pilot uses them (close box, slider, buttons, dragging a window)
// and how the mouse finds its target among nested widgets and the plug-in windows over them.
#include <XPLMDisplay.h>

#include "WidgetTestSupport.h"

namespace sim::testing {
namespace {

class WidgetClassesTest : public WidgetTest {
 protected:
  XPWidgetID MainWindow(int left, int top, int right, int bottom, bool closeBox) {
    XPWidgetID window = XPCreateWidget(left, top, right, bottom, 1, "Title", 1, nullptr,
                                       xpWidgetClass_MainWindow);
    if (closeBox) XPSetWidgetProperty(window, xpProperty_MainWindowHasCloseBoxes, 1);
    XPAddWidgetCallback(window, Recorder<'A'>);
    gWidgetMessages.clear();
    return window;
  }
  static std::vector<int> Rect(const WidgetSnapshot& w) {
    return {w.geometry.left, w.geometry.top, w.geometry.right, w.geometry.bottom};
  }
};

// ---- the close box ------------------------------------------------------------------------------

TEST_F(WidgetClassesTest, TheCloseBoxSendsCloseButtonPushedUpTheChain) {
  XPWidgetID window = MainWindow(187, 709, 837, 59, true);
  ASSERT_TRUE(host().ClickCloseBox(window));
  const auto pushed = MessagesOf(xpMessage_CloseButtonPushed);
  ASSERT_EQ(pushed.size(), 1u);
  EXPECT_EQ(pushed[0], (WidgetMessage{'A', 1200, window, (intptr_t)window, 0}));
}

TEST_F(WidgetClassesTest, ACloseBoxPressReleasedElsewhereClosesNothing) {
  XPWidgetID window = MainWindow(187, 709, 837, 59, true);
  const auto g = host().DescribeWidget(window)->geometry;
  const int x = g.right - 12, y = g.top - 9;  // on the box
  ASSERT_TRUE(host().MouseAt(x, y, xplm_MouseDown));
  host().MouseAt(x - 100, y - 100, xplm_MouseDrag);
  host().MouseAt(x - 100, y - 100, xplm_MouseUp);
  EXPECT_TRUE(MessagesOf(xpMessage_CloseButtonPushed).empty());
  ASSERT_TRUE(host().ClickAt(x, y));  // a real click on it does
  EXPECT_EQ(MessagesOf(xpMessage_CloseButtonPushed).size(), 1u);
}

TEST_F(WidgetClassesTest, AWindowWithoutACloseBoxCannotBeClosedThatWay) {
  XPWidgetID window = MainWindow(187, 709, 837, 59, false);
  EXPECT_FALSE(host().ClickCloseBox(window));
  EXPECT_TRUE(host().ClickAt(837 - 12, 709 - 9));  // the window takes the click ...
  EXPECT_TRUE(MessagesOf(xpMessage_CloseButtonPushed).empty());  // ... and nothing closes
}

// ---- the slider ---------------------------------------------------------------------------------

class SliderTest : public WidgetClassesTest {
 protected:
  void SetUp() override {
    WidgetClassesTest::SetUp();
    window_ = MainWindow(187, 709, 837, 59, true);
    slider_ = XPCreateWidget(497, 499, 637, 487, 1, "", 0, window_, xpWidgetClass_ScrollBar);
    XPSetWidgetProperty(slider_, xpProperty_ScrollBarType, xpScrollBarTypeSlider);
    SetRange(0, 100, 50);
    gWidgetMessages.clear();
  }
  void SetRange(int min, int max, int position) {
    XPSetWidgetProperty(slider_, xpProperty_ScrollBarMin, min);
    XPSetWidgetProperty(slider_, xpProperty_ScrollBarMax, max);
    XPSetWidgetProperty(slider_, xpProperty_ScrollBarSliderPosition, position);
  }
  intptr_t Position() const {
    return XPGetWidgetProperty(slider_, xpProperty_ScrollBarSliderPosition, nullptr);
  }
  XPWidgetID window_ = nullptr, slider_ = nullptr;
};

TEST_F(SliderTest, DraggingMovesThePositionAndTellsTheWindow) {
  ASSERT_TRUE(host().DragSlider(slider_, 75));
  EXPECT_EQ(Position(), 75);
  const auto moved = MessagesOf(xpMsg_ScrollBarSliderPositionChanged);
  ASSERT_FALSE(moved.empty());
  EXPECT_EQ(moved.back(), (WidgetMessage{'A', 1500, window_, (intptr_t)slider_, 0}));
}

TEST_F(SliderTest, EveryValueOfASmallRangeCanBeReached) {
  for (int value = 0; value <= 100; ++value) {
    ASSERT_TRUE(host().DragSlider(slider_, value));
    ASSERT_EQ(Position(), value);
  }
  SetRange(1, 10, 1);
  ASSERT_TRUE(host().DragSlider(slider_, 7));
  EXPECT_EQ(Position(), 7);
}

TEST_F(SliderTest, DraggingPastTheEndsStopsAtTheRange) {
  host().DragSlider(slider_, 500);
  EXPECT_EQ(Position(), 100);
  host().DragSlider(slider_, -40);
  EXPECT_EQ(Position(), 0);
  SetRange(1, 10, 5);
  host().DragSlider(slider_, 0);
  EXPECT_EQ(Position(), 1);
}

TEST_F(SliderTest, OnlyRealMovesAreAnnounced) {
  host().DragSlider(slider_, 50);  // grabbed and let go where it was
  EXPECT_TRUE(MessagesOf(xpMsg_ScrollBarSliderPositionChanged).empty());
  XPSetWidgetProperty(slider_, xpProperty_ScrollBarSliderPosition, 20);  // the plug-in's own write
  EXPECT_TRUE(MessagesOf(xpMsg_ScrollBarSliderPositionChanged).empty());
}

TEST_F(SliderTest, AHiddenSliderCannotBeDragged) {
  XPHideWidget(slider_);
  EXPECT_FALSE(host().DragSlider(slider_, 80));
  EXPECT_EQ(Position(), 50);
  EXPECT_FALSE(host().DragSlider(window_, 80));  // not a scroll bar
}

// ---- buttons ------------------------------------------------------------------------------------

TEST_F(WidgetClassesTest, PushButtonsAndCheckBoxesTellTheirWindow) {
  XPWidgetID window = MainWindow(0, 400, 400, 0, false);
  XPWidgetID push = XPCreateWidget(10, 100, 90, 80, 1, "OK", 0, window, xpWidgetClass_Button);
  XPWidgetID check = XPCreateWidget(10, 60, 30, 40, 1, "", 0, window, xpWidgetClass_Button);
  XPSetWidgetProperty(check, xpProperty_ButtonBehavior, xpButtonBehaviorCheckBox);
  gWidgetMessages.clear();

  ASSERT_TRUE(host().ClickAt(50, 90));
  EXPECT_EQ(MessagesOf(xpMsg_PushButtonPressed),
            (std::vector<WidgetMessage>{{'A', xpMsg_PushButtonPressed, window, (intptr_t)push, 0}}));
  host().ClickAt(20, 50);
  host().ClickAt(20, 50);
  const auto changes = MessagesOf(xpMsg_ButtonStateChanged);
  ASSERT_EQ(changes.size(), 2u);
  EXPECT_EQ(changes[0].param2, 1);
  EXPECT_EQ(changes[1].param2, 0);
  EXPECT_EQ(XPGetWidgetProperty(check, xpProperty_ButtonState, nullptr), 0);
}

// ---- the mouse ----------------------------------------------------------------------------------

TEST_F(WidgetClassesTest, TheDeepestWidgetGetsTheDownAndWhoeverTakesItGetsTheRest) {
  XPWidgetID root = Custom(0, 300, 300, 0, nullptr, true);
  XPWidgetID panel = Custom(10, 290, 290, 10, root);
  XPWidgetID leaf = Custom(20, 100, 100, 20, panel);
  Custom(200, 280, 280, 200, panel);  // a sibling elsewhere
  gTakenByW = {xpMsg_MouseDown, xpMsg_MouseUp};  // every custom widget here takes the mouse
  XPAddWidgetCallback(leaf, Recorder<'B'>);      // sees it first, passes it on
  gWidgetMessages.clear();

  ASSERT_TRUE(host().ClickAt(50, 60));
  std::vector<std::pair<char, int>> seen;
  for (const WidgetMessage& m : gWidgetMessages) {
    EXPECT_EQ(m.widget, leaf);  // the panel and the root never hear of it
    seen.emplace_back(m.handler, m.message);
  }
  EXPECT_EQ(seen, (std::vector<std::pair<char, int>>{{'B', xpMsg_MouseDown},
                                                     {'W', xpMsg_MouseDown},
                                                     {'B', xpMsg_MouseUp},
                                                     {'W', xpMsg_MouseUp}}));
}

XPMouseState_t gMouseSeen{};
int RecordMouse(XPWidgetMessage message, XPWidgetID, intptr_t param1, intptr_t) {
  if (message == xpMsg_MouseDown || message == xpMsg_MouseDrag || message == xpMsg_MouseUp) {
    gMouseSeen = *reinterpret_cast<XPMouseState_t*>(param1);
    return 1;
  }
  return 0;
}

TEST_F(WidgetClassesTest, DragsAndTheReleaseFollowTheWidgetThatTookTheDown) {
  XPWidgetID root = Custom(0, 300, 300, 0, nullptr, true);
  XPWidgetID leaf = XPCreateCustomWidget(20, 100, 100, 20, 1, "", 0, root, RecordMouse);
  ASSERT_TRUE(host().MouseAt(50, 50, xplm_MouseDown));
  EXPECT_EQ(gMouseSeen.x, 50);
  EXPECT_TRUE(host().MouseAt(250, 280, xplm_MouseDrag));  // outside the leaf: still the leaf's
  EXPECT_EQ(gMouseSeen.x, 250);
  EXPECT_EQ(gMouseSeen.y, 280);
  EXPECT_TRUE(host().MouseAt(260, 290, xplm_MouseUp));
  EXPECT_EQ(gMouseSeen.x, 260);
  EXPECT_FALSE(host().MouseAt(260, 290, xplm_MouseUp));  // nobody holds the mouse now
  (void)leaf;
}

int gWindowClicks = 0;
int gWindowAnswer = 1;
void DrawNothing(XPLMWindowID, void*) {}
void NoKeys(XPLMWindowID, char, XPLMKeyFlags, char, void*, int) {}
int CountClick(XPLMWindowID, int, int, XPLMMouseStatus, void*) {
  ++gWindowClicks;
  return gWindowAnswer;
}

TEST_F(WidgetClassesTest, PluginWindowsCatchClicksBeforeTheWidgetsUnderThem) {
  gWindowClicks = 0;
  gWindowAnswer = 1;
  XPWidgetID root = Custom(0, 300, 300, 0, nullptr, true);
  gTakenByW = {xpMsg_MouseDown};
  XPLMCreateWindow(100, 200, 200, 100, 1, DrawNothing, NoKeys, CountClick, nullptr);
  gWidgetMessages.clear();

  ASSERT_TRUE(host().ClickAt(150, 150));  // over both: the window
  EXPECT_EQ(gWindowClicks, 2);            // its down and its up
  EXPECT_TRUE(MessagesOf(xpMsg_MouseDown).empty());

  ASSERT_TRUE(host().ClickAt(50, 50));  // beside the window: the widget
  EXPECT_EQ(MessagesOf(xpMsg_MouseDown).size(), 1u);
  EXPECT_EQ(MessagesOf(xpMsg_MouseDown)[0].widget, root);

  gWindowAnswer = 0;  // a window that declines lets the click through
  ASSERT_TRUE(host().ClickAt(150, 150));
  EXPECT_EQ(MessagesOf(xpMsg_MouseDown).size(), 2u);
  EXPECT_FALSE(host().ClickAt(500, 500));  // nothing there
}

TEST_F(WidgetClassesTest, AClickBringsItsWindowToTheFront) {
  XPWidgetID back = MainWindow(0, 300, 300, 0, false);
  XPWidgetID front = MainWindow(200, 400, 500, 100, false);
  ASSERT_TRUE(XPIsWidgetInFront(front));
  host().ClickAt(50, 50);
  EXPECT_TRUE(XPIsWidgetInFront(back));
  host().ClickAt(250, 250);  // where both are: the front one, now `back`
  EXPECT_TRUE(XPIsWidgetInFront(back));
}

TEST_F(WidgetClassesTest, DraggingTheTitleBarMovesTheWindowWithEverythingInIt) {
  XPWidgetID window = MainWindow(100, 500, 400, 200, true);
  XPWidgetID caption = XPCreateWidget(110, 470, 200, 458, 1, "Mode 1", 0, window,
                                      xpWidgetClass_Caption);
  ASSERT_TRUE(host().MouseAt(150, 492, xplm_MouseDown));  // in the title bar
  host().MouseAt(170, 482, xplm_MouseDrag);
  host().MouseAt(180, 472, xplm_MouseUp);
  EXPECT_EQ(Rect(*host().DescribeWidget(window)), (std::vector<int>{130, 480, 430, 180}));
  EXPECT_EQ(Rect(*host().DescribeWidget(caption)), (std::vector<int>{140, 450, 230, 438}));
  EXPECT_EQ(XPGetWidgetProperty(window, xpProperty_Dragging, nullptr), 0);
}

TEST_F(WidgetClassesTest, TheScreenIs1024By768UnlessSetOtherwise) {
  int width = 0, height = 0;
  XPLMGetScreenSize(&width, &height);
  EXPECT_EQ(width, 1024);
  EXPECT_EQ(height, 768);
  host().SetScreenSize(1920, 1080);
  XPLMGetScreenSize(&width, nullptr);
  XPLMGetScreenSize(nullptr, &height);
  EXPECT_EQ(width, 1920);
  EXPECT_EQ(height, 1080);
  EXPECT_EQ(host().DrawScreen().screenWidth, 1920);
}

TEST_F(WidgetClassesTest, EveryStandardClassHasAFunctionAndNoOtherDoes) {
  for (int c = xpWidgetClass_MainWindow; c <= xpWidgetClass_Progress; ++c) {
    EXPECT_NE(XPGetWidgetClassFunc(c), nullptr) << c;
  }
  EXPECT_EQ(XPGetWidgetClassFunc(xpWidgetClass_None), nullptr);
  EXPECT_EQ(XPGetWidgetClassFunc(9), nullptr);
  EXPECT_EQ(XPGetWidgetClassFunc(-1), nullptr);
}

}  // namespace
}  // namespace sim::testing

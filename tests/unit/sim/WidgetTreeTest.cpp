// The widget library's tree, messages, properties, visibility, geometry and keyboard focus: what a
// dialog built from widgets relies on.
#include <XPLMDisplay.h>

#include <cstring>
#include <string>

#include "WidgetTestSupport.h"

namespace sim::testing {
namespace {

constexpr int kUserMessage = xpMsg_UserStart + 1;

using W = WidgetMessage;

// ---- the tree -----------------------------------------------------------------------------------

class WidgetTreeTest : public WidgetTest {};

TEST_F(WidgetTreeTest, ParentsChildrenAndRootsLinkUp) {
  XPWidgetID root = Custom(100, 500, 500, 100, nullptr, true);
  XPWidgetID first = Custom(110, 490, 300, 300, root);
  XPWidgetID second = Custom(310, 490, 490, 300, root);
  XPWidgetID inner = Custom(120, 480, 200, 400, first);
  XPWidgetID loose = Custom(0, 10, 10, 0, nullptr);

  EXPECT_EQ(XPCountChildWidgets(root), 2);
  EXPECT_EQ(XPGetNthChildWidget(root, 0), first);
  EXPECT_EQ(XPGetNthChildWidget(root, 1), second);
  EXPECT_EQ(XPGetNthChildWidget(root, 2), nullptr);
  EXPECT_EQ(XPGetNthChildWidget(root, -1), nullptr);
  EXPECT_EQ(XPGetParentWidget(inner), first);
  EXPECT_EQ(XPGetParentWidget(root), nullptr);
  EXPECT_EQ(XPFindRootWidget(inner), root);
  EXPECT_EQ(XPFindRootWidget(root), root);
  EXPECT_EQ(XPFindRootWidget(loose), nullptr);  // not in any root window
  EXPECT_EQ(host().RootWidgets(), (std::vector<void*>{root}));
}

TEST_F(WidgetTreeTest, PlacingWithinMovesASubtreeButNeverIntoItself) {
  XPWidgetID root = Custom(0, 100, 100, 0, nullptr, true);
  XPWidgetID a = Custom(0, 50, 50, 0, root);
  XPWidgetID b = Custom(0, 40, 40, 0, a);

  XPPlaceWidgetWithin(a, b);  // would make a cycle: refused
  EXPECT_EQ(XPGetParentWidget(a), root);
  XPPlaceWidgetWithin(b, root);
  EXPECT_EQ(XPGetParentWidget(b), root);
  EXPECT_EQ(XPCountChildWidgets(a), 0);
  EXPECT_EQ(XPCountChildWidgets(root), 2);
  // The old container hears it lost the child, the new one that it took it.
  EXPECT_EQ(MessagesOf(xpMsg_LoseChild).back(), (W{'W', xpMsg_LoseChild, a, (intptr_t)b, 0}));
  EXPECT_EQ(MessagesOf(xpMsg_AcceptChild).back(), (W{'W', xpMsg_AcceptChild, root, (intptr_t)b, 0}));
  XPPlaceWidgetWithin(b, nullptr);
  EXPECT_EQ(XPGetParentWidget(b), nullptr);
  EXPECT_EQ(XPFindRootWidget(b), nullptr);
}

TEST_F(WidgetTreeTest, NewestRootIsInFrontUntilAnotherIsBroughtForward) {
  XPWidgetID back = Custom(0, 100, 100, 0, nullptr, true);
  XPWidgetID front = Custom(50, 150, 150, 50, nullptr, true);
  XPWidgetID child = Custom(0, 50, 50, 0, back);
  EXPECT_TRUE(XPIsWidgetInFront(front));
  EXPECT_FALSE(XPIsWidgetInFront(child));
  XPBringRootWidgetToFront(child);  // a child brings its whole window forward
  EXPECT_TRUE(XPIsWidgetInFront(back));
  EXPECT_TRUE(XPIsWidgetInFront(child));
  EXPECT_EQ(host().RootWidgets(), (std::vector<void*>{front, back}));
}

// ---- create and destroy -------------------------------------------------------------------------

TEST_F(WidgetTreeTest, CreateIsTheFirstMessageAWidgetGets) {
  XPWidgetID widget = Custom(0, 10, 10, 0, nullptr);
  ASSERT_FALSE(gWidgetMessages.empty());
  EXPECT_EQ(gWidgetMessages.front(), (W{'W', xpMsg_Create, widget, 0, 0}));
  EXPECT_EQ(MessagesOf(xpMsg_Create).size(), 1u);
}

TEST_F(WidgetTreeTest, DestroyingWithChildrenTellsEachAndInvalidatesEveryId) {
  XPWidgetID root = Custom(0, 100, 100, 0, nullptr, true, "root");
  XPWidgetID child = Custom(0, 50, 50, 0, root, false, "child");
  XPWidgetID grandchild = Custom(0, 40, 40, 0, child, false, "grandchild");
  XPWidgetID other = Custom(200, 300, 300, 200, nullptr, true);
  const int before = host().WidgetCount();
  gWidgetMessages.clear();

  XPDestroyWidget(root, 1);

  // The widget itself is told it goes (p1 0); the children that go with it get p1 = 1.
  const auto destroys = MessagesOf(xpMsg_Destroy);
  ASSERT_EQ(destroys.size(), 3u);
  EXPECT_EQ(destroys[0], (W{'W', xpMsg_Destroy, root, 0, 0}));
  EXPECT_EQ(destroys[1], (W{'W', xpMsg_Destroy, child, 1, 0}));
  EXPECT_EQ(destroys[2], (W{'W', xpMsg_Destroy, grandchild, 1, 0}));
  EXPECT_EQ(host().WidgetCount(), before - 3);
  for (XPWidgetID gone : {root, child, grandchild}) {
    EXPECT_FALSE(host().DescribeWidget(gone).has_value());
    EXPECT_EQ(XPGetWidgetDescriptor(gone, nullptr, 0), 0);
    EXPECT_EQ(XPIsWidgetVisible(gone), 0);
    EXPECT_EQ(XPCountChildWidgets(gone), 0);
  }
  gWidgetMessages.clear();
  EXPECT_EQ(XPSendMessageToWidget(child, kUserMessage, xpMode_Direct, 0, 0), 0);
  XPSetWidgetProperty(child, xpProperty_Refcon, 5);  // harmless on a stale id
  XPDestroyWidget(child, 1);
  EXPECT_TRUE(gWidgetMessages.empty());
  EXPECT_EQ(host().RootWidgets(), (std::vector<void*>{other}));
}

TEST_F(WidgetTreeTest, DestroyingAloneLeavesTheChildrenFloating) {
  XPWidgetID root = Custom(0, 100, 100, 0, nullptr, true);
  XPWidgetID child = Custom(0, 50, 50, 0, root);
  XPDestroyWidget(root, 0);
  ASSERT_TRUE(host().DescribeWidget(child).has_value());
  EXPECT_EQ(XPGetParentWidget(child), nullptr);
  EXPECT_EQ(XPFindRootWidget(child), nullptr);
  EXPECT_TRUE(host().DrawScreen().items.empty());  // a widget in no window is not on screen
}

TEST_F(WidgetTreeTest, AFreshSimulatorForgetsEveryWidgetAndTheScreenSize) {
  XPWidgetID window = XPCreateWidget(0, 200, 200, 0, 1, "w", 1, nullptr, xpWidgetClass_MainWindow);
  XPWidgetID field = XPCreateWidget(10, 50, 100, 30, 1, "", 0, window, xpWidgetClass_TextField);
  XPSetKeyboardFocus(field);
  host().SetScreenSize(800, 600);
  host().Reset(root());
  EXPECT_EQ(host().WidgetCount(), 0);
  EXPECT_TRUE(host().RootWidgets().empty());
  EXPECT_EQ(XPGetWidgetWithFocus(), nullptr);
  EXPECT_FALSE(host().DescribeWidget(window).has_value());  // an old handle names nothing now
  EXPECT_EQ(host().DrawScreen().screenWidth, 1024);
}

TEST_F(WidgetTreeTest, BadHandlesAreHarmless) {
  void* garbage = reinterpret_cast<void*>(0x1234);
  EXPECT_EQ(XPCountChildWidgets(garbage), 0);
  EXPECT_EQ(XPGetParentWidget(nullptr), nullptr);
  EXPECT_EQ(XPSendMessageToWidget(garbage, xpMsg_Draw, xpMode_Recursive, 0, 0), 0);
  int left = -7;
  XPGetWidgetGeometry(garbage, &left, nullptr, nullptr, nullptr);
  EXPECT_EQ(left, -7);
  XPDestroyWidget(garbage, 1);
  XPShowWidget(garbage);
  EXPECT_EQ(XPSetKeyboardFocus(garbage), nullptr);
}

// ---- dispatch -----------------------------------------------------------------------------------

class WidgetDispatchTest : public WidgetTest {
 protected:
  void SetUp() override {
    WidgetTest::SetUp();
    root_ = Custom(0, 300, 300, 0, nullptr, true);
    middle_ = Custom(10, 290, 290, 10, root_);
    leaf_ = Custom(20, 280, 280, 20, middle_);
    gWidgetMessages.clear();
  }
  XPWidgetID root_ = nullptr, middle_ = nullptr, leaf_ = nullptr;
};

TEST_F(WidgetDispatchTest, UpTheChainStopsAtTheFirstWidgetThatTakesIt) {
  gTakenByW = {kUserMessage};
  XPAddWidgetCallback(leaf_, Recorder<'A'>);  // sees it but passes it on
  EXPECT_EQ(XPSendMessageToWidget(leaf_, kUserMessage, xpMode_UpChain, 7, 8), 1);
  // The leaf's own function takes it: its parents never see it.
  EXPECT_EQ(gWidgetMessages, (std::vector<W>{{'A', kUserMessage, leaf_, 7, 8},
                                             {'W', kUserMessage, leaf_, 7, 8}}));
}

TEST_F(WidgetDispatchTest, UpTheChainReachesTheRootWhenNobodyTakesIt) {
  EXPECT_EQ(XPSendMessageToWidget(leaf_, kUserMessage, xpMode_UpChain, 1, 2), 0);
  EXPECT_EQ(gWidgetMessages, (std::vector<W>{{'W', kUserMessage, leaf_, 1, 2},
                                             {'W', kUserMessage, middle_, 1, 2},
                                             {'W', kUserMessage, root_, 1, 2}}));
}

TEST_F(WidgetDispatchTest, CallbacksRunNewestFirstAndBeforeTheWidgetsFunction) {
  XPAddWidgetCallback(middle_, Recorder<'A'>);
  XPAddWidgetCallback(middle_, Recorder<'B'>);
  EXPECT_EQ(XPSendMessageToWidget(middle_, kUserMessage, xpMode_Direct, 0, 0), 0);
  ASSERT_EQ(gWidgetMessages.size(), 3u);
  EXPECT_EQ(gWidgetMessages[0].handler, 'B');
  EXPECT_EQ(gWidgetMessages[1].handler, 'A');
  EXPECT_EQ(gWidgetMessages[2].handler, 'W');

  gWidgetMessages.clear();
  gTakenByA = {kUserMessage};  // the older callback takes it: the function never runs
  EXPECT_EQ(XPSendMessageToWidget(middle_, kUserMessage, xpMode_Direct, 0, 0), 1);
  ASSERT_EQ(gWidgetMessages.size(), 2u);
  EXPECT_EQ(gWidgetMessages[1].handler, 'A');
}

TEST_F(WidgetDispatchTest, DirectReachesOnlyTheTarget) {
  EXPECT_EQ(XPSendMessageToWidget(leaf_, kUserMessage, xpMode_Direct, 0, 0), 0);
  EXPECT_EQ(gWidgetMessages, (std::vector<W>{{'W', kUserMessage, leaf_, 0, 0}}));
}

TEST_F(WidgetDispatchTest, DirectAllCallbacksGoesOnAfterOneTakesIt) {
  XPAddWidgetCallback(leaf_, Recorder<'A'>);
  XPAddWidgetCallback(leaf_, Recorder<'B'>);
  gTakenByB = {kUserMessage};
  EXPECT_EQ(XPSendMessageToWidget(leaf_, kUserMessage, xpMode_DirectAllCallbacks, 0, 0), 1);
  EXPECT_EQ(gWidgetMessages.size(), 3u);  // B, A and the function, none up the chain
}

TEST_F(WidgetDispatchTest, OnceReachesOnlyTheFirstHandlerEvenIfItDeclines) {
  XPAddWidgetCallback(leaf_, Recorder<'A'>);
  XPAddWidgetCallback(leaf_, Recorder<'B'>);
  EXPECT_EQ(XPSendMessageToWidget(leaf_, kUserMessage, xpMode_Once, 0, 0), 0);
  EXPECT_EQ(gWidgetMessages, (std::vector<W>{{'B', kUserMessage, leaf_, 0, 0}}));
}

TEST_F(WidgetDispatchTest, RecursiveReachesEveryDescendantWhoeverTakesIt) {
  gTakenByW = {kUserMessage};
  XPWidgetID sibling = Custom(0, 5, 5, 0, root_);
  gWidgetMessages.clear();
  EXPECT_EQ(XPSendMessageToWidget(root_, kUserMessage, xpMode_Recursive, 0, 0), 1);
  std::vector<XPWidgetID> order;
  for (const W& m : gWidgetMessages) order.push_back(m.widget);
  EXPECT_EQ(order, (std::vector<XPWidgetID>{root_, middle_, leaf_, sibling}));  // depth first
}

TEST_F(WidgetDispatchTest, AnUnknownModeReachesNobody) {
  EXPECT_EQ(XPSendMessageToWidget(leaf_, kUserMessage, 99, 0, 0), 0);
  EXPECT_TRUE(gWidgetMessages.empty());
}

// ---- descriptors and properties -----------------------------------------------------------------

TEST_F(WidgetTreeTest, DescriptorChangesAreAnnouncedAndCopiedLikeStrncpy) {
  XPWidgetID widget = Custom(0, 10, 10, 0, nullptr, false, "first");
  gWidgetMessages.clear();
  XPSetWidgetDescriptor(widget, "GF-46 Unit 1;GF-P8 Unit 1;");
  EXPECT_EQ(gWidgetMessages, (std::vector<W>{{'W', xpMsg_DescriptorChanged, widget, 0, 0}}));

  EXPECT_EQ(XPGetWidgetDescriptor(widget, nullptr, 0), 26);  // the length only
  char buffer[8];
  std::memset(buffer, '#', sizeof buffer);
  EXPECT_EQ(XPGetWidgetDescriptor(widget, buffer, 5), 26);
  EXPECT_EQ(std::string(buffer, 6), "GF-46#");  // cut short: no NUL written
  char whole[64];
  EXPECT_EQ(XPGetWidgetDescriptor(widget, whole, sizeof whole), 26);
  EXPECT_STREQ(whole, "GF-46 Unit 1;GF-P8 Unit 1;");
  XPSetWidgetDescriptor(widget, nullptr);
  EXPECT_EQ(XPGetWidgetDescriptor(widget, nullptr, 0), 0);
}

TEST_F(WidgetTreeTest, PropertyChangesCarryTheIdAndTheValue) {
  XPWidgetID widget = Custom(0, 10, 10, 0, nullptr);
  gWidgetMessages.clear();
  int exists = -1;
  EXPECT_EQ(XPGetWidgetProperty(widget, 1800, &exists), 0);
  EXPECT_EQ(exists, 0);
  XPSetWidgetProperty(widget, 1800, -3);
  EXPECT_EQ(gWidgetMessages, (std::vector<W>{{'W', xpMsg_PropertyChanged, widget, 1800, -3}}));
  EXPECT_EQ(XPGetWidgetProperty(widget, 1800, &exists), -3);
  EXPECT_EQ(exists, 1);
  EXPECT_EQ(XPGetWidgetProperty(widget, 1800, nullptr), -3);
  XPSetWidgetProperty(widget, 1800, 0);  // set to zero still exists
  EXPECT_EQ(XPGetWidgetProperty(widget, 1800, &exists), 0);
  EXPECT_EQ(exists, 1);
}

// A widget that, like the dialog's pop-ups, answers a property change by setting others.
int KeepsDerivedProperty(XPWidgetMessage message, XPWidgetID widget, intptr_t param1, intptr_t param2) {
  if (message == xpMsg_PropertyChanged && param1 == 1800) {
    XPSetWidgetProperty(widget, 1801, param2 * 10);
    return 1;
  }
  return 0;
}

TEST_F(WidgetTreeTest, APropertyHandlerMaySetOtherProperties) {
  XPWidgetID widget = XPCreateCustomWidget(0, 10, 10, 0, 1, "", 0, nullptr, KeepsDerivedProperty);
  XPSetWidgetProperty(widget, 1800, 4);
  EXPECT_EQ(XPGetWidgetProperty(widget, 1801, nullptr), 40);
}

// ---- visibility and geometry --------------------------------------------------------------------

TEST_F(WidgetTreeTest, HidingAParentHidesItsChildrenWithoutTouchingTheirFlags) {
  XPWidgetID root = Custom(0, 100, 100, 0, nullptr, true);
  XPWidgetID child = Custom(0, 50, 50, 0, root);
  gWidgetMessages.clear();
  XPHideWidget(root);
  EXPECT_EQ(XPIsWidgetVisible(child), 0);
  EXPECT_TRUE(host().DescribeWidget(child)->ownVisible);
  EXPECT_EQ(gWidgetMessages, (std::vector<W>{{'W', xpMsg_Hidden, root, (intptr_t)root, 0}}));
  XPHideWidget(root);  // no change, no message
  EXPECT_EQ(gWidgetMessages.size(), 1u);
  XPShowWidget(root);
  EXPECT_EQ(XPIsWidgetVisible(child), 1);

  gWidgetMessages.clear();
  XPHideWidget(child);  // Hidden travels up the chain
  EXPECT_EQ(gWidgetMessages, (std::vector<W>{{'W', xpMsg_Hidden, child, (intptr_t)child, 0},
                                             {'W', xpMsg_Hidden, root, (intptr_t)child, 0}}));
  EXPECT_EQ(XPIsWidgetVisible(child), 0);
  EXPECT_EQ(XPIsWidgetVisible(root), 1);
}

TEST_F(WidgetTreeTest, GeometryChangesAreReshapesWithTheirDeltas) {
  XPWidgetID widget = Custom(10, 50, 110, 20, nullptr, true);
  XPWidgetGeometryChange_t seen{};
  gWidgetMessages.clear();
  static XPWidgetGeometryChange_t* last = nullptr;
  XPAddWidgetCallback(widget, [](XPWidgetMessage m, XPWidgetID, intptr_t, intptr_t p2) {
    if (m == xpMsg_Reshape) *last = *reinterpret_cast<XPWidgetGeometryChange_t*>(p2);
    return 0;
  });
  last = &seen;
  XPSetWidgetGeometry(widget, 15, 60, 135, 20);
  EXPECT_EQ(seen.dx, 5);
  EXPECT_EQ(seen.dy, 10);
  EXPECT_EQ(seen.dwidth, 20);
  EXPECT_EQ(seen.dheight, 10);
  int l = 0, t = 0, r = 0, b = 0;
  XPGetWidgetGeometry(widget, &l, &t, &r, &b);
  EXPECT_EQ((std::vector<int>{l, t, r, b}), (std::vector<int>{15, 60, 135, 20}));
  XPGetWidgetGeometry(widget, nullptr, nullptr, nullptr, nullptr);  // out-pointers may be null
}

TEST_F(WidgetTreeTest, LocationFindsTheDeepestVisibleWidgetFrontMostFirst) {
  XPWidgetID root = Custom(0, 200, 200, 0, nullptr, true);
  XPWidgetID panel = Custom(10, 190, 190, 10, root);
  XPWidgetID under = Custom(20, 100, 100, 20, panel);
  XPWidgetID over = Custom(50, 120, 120, 50, panel);  // later sibling, drawn on top

  EXPECT_EQ(XPGetWidgetForLocation(root, 60, 60, 1, 1), over);
  EXPECT_EQ(XPGetWidgetForLocation(root, 30, 30, 1, 1), under);
  EXPECT_EQ(XPGetWidgetForLocation(root, 60, 60, 0, 1), panel);  // one level only
  EXPECT_EQ(XPGetWidgetForLocation(root, 5, 5, 1, 1), root);     // in it, in no child
  EXPECT_EQ(XPGetWidgetForLocation(root, 250, 5, 1, 1), nullptr);
  XPHideWidget(over);
  EXPECT_EQ(XPGetWidgetForLocation(root, 60, 60, 1, 1), under);
  EXPECT_EQ(XPGetWidgetForLocation(root, 60, 60, 1, 0), over);  // hidden ones count when asked
}

// ---- keyboard focus -----------------------------------------------------------------------------

TEST_F(WidgetTreeTest, FocusGoesToTheFirstWidgetUpTheChainThatWantsIt) {
  gTakenByW = {xpMsg_KeyTakeFocus};
  XPWidgetID root = Custom(0, 200, 200, 0, nullptr, true);
  XPWidgetID declines = XPCreateCustomWidget(0, 50, 50, 0, 1, "", 0, root, Recorder<'A'>);
  EXPECT_EQ(XPSetKeyboardFocus(declines), root);
  EXPECT_EQ(XPGetWidgetWithFocus(), root);
  // The parent hears that a child passed it on.
  EXPECT_EQ(MessagesOf(xpMsg_KeyTakeFocus).back(), (W{'W', xpMsg_KeyTakeFocus, root, 1, 0}));
}

TEST_F(WidgetTreeTest, NobodyWantingTheKeyboardLeavesItWithXPlane) {
  XPWidgetID root = Custom(0, 200, 200, 0, nullptr, true);
  EXPECT_EQ(XPSetKeyboardFocus(root), nullptr);
  EXPECT_EQ(XPGetWidgetWithFocus(), nullptr);
  EXPECT_FALSE(host().SendKey('a', xplm_DownFlag, 'A'));
}

XPKeyState_t gKeySeen{};
int RecordKeyPress(XPWidgetMessage message, XPWidgetID, intptr_t param1, intptr_t) {
  if (message != xpMsg_KeyPress) return 0;
  gKeySeen = *reinterpret_cast<XPKeyState_t*>(param1);
  return 1;
}

TEST_F(WidgetTreeTest, KeysGoUpTheChainFromTheFocusedWidget) {
  XPWidgetID root = XPCreateWidget(0, 200, 200, 0, 1, "w", 1, nullptr, xpWidgetClass_MainWindow);
  XPWidgetID field = XPCreateWidget(10, 50, 100, 30, 1, "ab", 0, root, xpWidgetClass_TextField);
  XPAddWidgetCallback(root, Recorder<'A'>);
  ASSERT_EQ(XPSetKeyboardFocus(field), field);
  EXPECT_TRUE(host().SendKey('c', xplm_DownFlag, 'C'));
  EXPECT_EQ(host().DescribeWidget(field)->descriptor, "abc");
  EXPECT_EQ(MessagesOf(xpMsg_TextFieldChanged).size(), 1u);  // reached the window's callback
  EXPECT_TRUE(MessagesOf(xpMsg_KeyPress).empty());            // the field took the key itself

  XPAddWidgetCallback(root, RecordKeyPress);
  gKeySeen = XPKeyState_t{};
  // A field does not take Return: it goes up to the window, with its flags and virtual key.
  EXPECT_TRUE(host().SendKey('\r', xplm_DownFlag | xplm_ShiftFlag, 0x0D));
  EXPECT_EQ(gKeySeen.key, '\r');
  EXPECT_EQ(gKeySeen.flags, xplm_DownFlag | xplm_ShiftFlag);
  EXPECT_EQ(gKeySeen.vkey, 0x0D);
  EXPECT_EQ(host().DescribeWidget(field)->descriptor, "abc");
}

TEST_F(WidgetTreeTest, LosingFocusInsideAWidgetHandsTheKeyboardBack) {
  XPWidgetID root = XPCreateWidget(0, 200, 200, 0, 1, "w", 1, nullptr, xpWidgetClass_MainWindow);
  XPWidgetID field = XPCreateWidget(10, 50, 100, 30, 1, "", 0, root, xpWidgetClass_TextField);
  XPAddWidgetCallback(field, Recorder<'A'>);
  XPSetKeyboardFocus(field);
  XPLoseKeyboardFocus(root);  // the field is inside: it loses it
  EXPECT_EQ(XPGetWidgetWithFocus(), nullptr);
  EXPECT_EQ(MessagesOf(xpMsg_KeyLoseFocus).size(), 1u);
  XPSetKeyboardFocus(field);
  XPDestroyWidget(root, 1);
  EXPECT_EQ(XPGetWidgetWithFocus(), nullptr);
}

void NoDraw(XPLMWindowID, void*) {}
std::vector<std::string> gWindowKeys;
void RecordKey(XPLMWindowID, char key, XPLMKeyFlags flags, char vkey, void*, int losing) {
  gWindowKeys.push_back(std::to_string(key) + "/" + std::to_string(flags) + "/" +
                        std::to_string(static_cast<unsigned char>(vkey)) + "/" + std::to_string(losing));
}
int TakeClick(XPLMWindowID, int, int, XPLMMouseStatus, void*) { return 1; }

TEST_F(WidgetTreeTest, WindowsAndWidgetsShareOneKeyboard) {
  gWindowKeys.clear();
  XPWidgetID root = XPCreateWidget(0, 200, 200, 0, 1, "w", 1, nullptr, xpWidgetClass_MainWindow);
  XPWidgetID field = XPCreateWidget(10, 50, 100, 30, 1, "", 0, root, xpWidgetClass_TextField);
  XPLMWindowID menu = XPLMCreateWindow(300, 400, 400, 300, 1, NoDraw, RecordKey, TakeClick, nullptr);
  XPSetKeyboardFocus(field);
  XPLMTakeKeyboardFocus(menu);
  EXPECT_EQ(XPGetWidgetWithFocus(), nullptr);
  EXPECT_TRUE(XPLMHasKeyboardFocus(menu));
  EXPECT_EQ(host().WindowWithFocus(), menu);

  // Page Down to the window, with its flags and its virtual key.
  EXPECT_TRUE(host().SendKey(0, xplm_DownFlag, 0x22));
  EXPECT_EQ(gWindowKeys, (std::vector<std::string>{"0/8/34/0"}));
  EXPECT_EQ(host().DescribeWidget(field)->descriptor, "");

  XPSetKeyboardFocus(field);  // the widget takes it back: the window is told it lost it
  EXPECT_FALSE(XPLMHasKeyboardFocus(menu));
  EXPECT_EQ(gWindowKeys.back(), "0/0/0/1");
}

}  // namespace
}  // namespace sim::testing

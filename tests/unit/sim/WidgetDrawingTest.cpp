// Drawing the screen: which widgets and windows are drawn in which order, and the record of what
// each drew (OpenGL primitives, strings, interface elements).
#include <GL/gl.h>
#include <XPLMDisplay.h>
#include <XPLMGraphics.h>
#include <XPUIGraphics.h>

#include "WidgetTestSupport.h"

namespace sim::testing {
namespace {

class WidgetDrawingTest : public WidgetTest {
 protected:
  static const DisplayItem* ItemOf(const DisplayList& screen, void* handle) {
    for (const DisplayItem& item : screen.items) {
      if (item.handle == handle) return &item;
    }
    return nullptr;
  }
};

// Draws the way the plug-in's pop-up menu does: a textured nine-part background, a translucent
// highlight and its texts.
void DrawLikeAMenu(XPLMWindowID, void*) {
  XPLMSetGraphicsState(0, 1, 0, 0, 1, 0, 0);
  XPLMBindTexture2d(XPLMGetTexture(xplm_Tex_GeneralInterface) + 7, 0);
  glColor3f(1, 1, 1);
  glBegin(GL_QUADS);
  glTexCoord2f(0.1f, 0.2f);
  glVertex2i(300, 300);
  glTexCoord2f(0.3f, 0.4f);
  glVertex2i(400, 300);
  glVertex2f(400.5f, 400);
  glVertex2i(300, 400);
  glEnd();
  XPLMSetGraphicsState(0, 0, 0, 0, 1, 0, 0);
  glColor4f(0.25f, 0.3f, 0.35f, 0.25f);
  glRecti(305, 380, 395, 368);
  const float lines[3] = {0.1f, 0.9f, 0.2f};
  glColor3fv(lines);
  glLineWidth(2);
  glBegin(GL_LINES);
  glVertex2i(305, 350);
  glVertex2i(395, 350);
  glEnd();
  float text[3] = {0.8f, 0.8f, 0.8f};
  XPLMDrawString(text, 310, 370, "COM1_STANDBY", nullptr, xplmFont_Basic);
}

void NoKeys(XPLMWindowID, char, XPLMKeyFlags, char, void*, int) {}
int NoClicks(XPLMWindowID, int, int, XPLMMouseStatus, void*) { return 0; }

TEST_F(WidgetDrawingTest, OpenGlCallsAreRecordedPerWindowWithColourAndTexture) {
  XPLMWindowID menu = XPLMCreateWindow(300, 400, 400, 300, 1, DrawLikeAMenu, NoKeys, NoClicks, nullptr);
  const DisplayList screen = host().DrawScreen();
  const DisplayItem* item = ItemOf(screen, menu);
  ASSERT_NE(item, nullptr);
  EXPECT_EQ(item->kind, DisplayItemKind::Window);
  ASSERT_EQ(item->primitives.size(), 3u);

  const DrawnPrimitive& background = item->primitives[0];
  EXPECT_EQ(background.mode, GL_QUADS);
  EXPECT_TRUE(background.textured);
  EXPECT_EQ(background.texture, 7);
  ASSERT_EQ(background.vertices.size(), 4u);
  EXPECT_FLOAT_EQ(background.vertices[2].x, 400.5f);
  EXPECT_FLOAT_EQ(background.vertices[1].s, 0.3f);  // each vertex keeps the last texture point
  EXPECT_FLOAT_EQ(background.vertices[3].t, 0.4f);

  const DrawnPrimitive& highlight = item->primitives[1];
  EXPECT_FALSE(highlight.textured);
  ASSERT_EQ(highlight.vertices.size(), 4u);
  EXPECT_EQ(highlight.vertices[0].colour, (Rgba{0.25f, 0.3f, 0.35f, 0.25f}));
  EXPECT_FLOAT_EQ(highlight.vertices[2].y, 368);

  const DrawnPrimitive& rule = item->primitives[2];
  EXPECT_EQ(rule.mode, GL_LINES);
  EXPECT_FLOAT_EQ(rule.lineWidth, 2);
  EXPECT_EQ(rule.vertices[1].colour, (Rgba{0.1f, 0.9f, 0.2f, 1}));

  ASSERT_EQ(item->texts.size(), 1u);
  EXPECT_EQ(item->texts[0].text, "COM1_STANDBY");
  EXPECT_EQ(item->texts[0].x, 310);
  EXPECT_EQ(item->texts[0].y, 370);
  EXPECT_EQ(item->texts[0].colour, (Rgba{0.8f, 0.8f, 0.8f, 1}));
  EXPECT_EQ(host().DrawWindows(), (std::vector<std::string>{"COM1_STANDBY"}));
}

TEST_F(WidgetDrawingTest, StrayOpenGlCallsAreIgnoredAsADriverWould) {
  glVertex2i(1, 1);  // outside any draw pass and any glBegin
  glEnd();
  glRecti(0, 0, 5, 5);
  static bool drew = false;
  XPLMWindowID window = XPLMCreateWindow(0, 100, 100, 0, 1,
      [](XPLMWindowID, void*) {
        glVertex2i(1, 1);  // before glBegin
        glBegin(GL_TRIANGLES);
        glBegin(GL_QUADS);  // nested: ignored, the triangles go on
        glVertex2i(0, 0);
        glVertex2i(10, 0);
        glVertex2i(0, 10);
        glEnd();
        glEnd();  // unmatched
        glBegin(GL_LINES);
        glEnd();  // empty: nothing to record
        glColor3fv(nullptr);
        drew = true;
      },
      NoKeys, NoClicks, nullptr);
  const DisplayList screen = host().DrawScreen();
  EXPECT_TRUE(drew);
  const DisplayItem* item = ItemOf(screen, window);
  ASSERT_NE(item, nullptr);
  ASSERT_EQ(item->primitives.size(), 1u);
  EXPECT_EQ(item->primitives[0].mode, GL_TRIANGLES);
  EXPECT_EQ(item->primitives[0].vertices.size(), 3u);
}

int DrawsABox(XPWidgetMessage message, XPWidgetID widget, intptr_t, intptr_t) {
  if (message != xpMsg_Draw) return 0;
  int l, t, r, b;
  XPGetWidgetGeometry(widget, &l, &t, &r, &b);
  XPDrawElement(r, b, l, t, xpElement_WindowDragBarSmooth, 1);  // corners in the other order
  return 1;
}

TEST_F(WidgetDrawingTest, TheScreenIsRootsBackToFrontThenWindowsOnTop) {
  XPWidgetID back = XPCreateWidget(0, 500, 500, 0, 1, "Back", 1, nullptr, xpWidgetClass_MainWindow);
  XPSetWidgetProperty(back, xpProperty_MainWindowHasCloseBoxes, 1);
  XPWidgetID caption = XPCreateWidget(10, 470, 100, 458, 1, "Mode 1", 0, back, xpWidgetClass_Caption);
  XPWidgetID hidden = XPCreateWidget(10, 450, 100, 438, 0, "not shown", 0, back, xpWidgetClass_Caption);
  XPWidgetID popup = XPCreateCustomWidget(110, 470, 300, 458, 1, "A;B;", 0, back, DrawsABox);
  XPWidgetID front = XPCreateWidget(600, 500, 900, 300, 1, "Front", 1, nullptr, xpWidgetClass_MainWindow);
  XPWidgetID gone = XPCreateWidget(0, 100, 100, 0, 0, "Hidden root", 1, nullptr, xpWidgetClass_MainWindow);
  XPLMWindowID menu = XPLMCreateWindow(300, 400, 400, 300, 1, DrawLikeAMenu, NoKeys, NoClicks, nullptr);

  const DisplayList screen = host().DrawScreen();
  std::vector<void*> order;
  for (const DisplayItem& item : screen.items) order.push_back(item.handle);
  EXPECT_EQ(order, (std::vector<void*>{back, caption, popup, front, menu}));
  (void)hidden;
  (void)gone;

  const DisplayItem& window = screen.items[0];
  EXPECT_EQ(window.widgetClass, xpWidgetClass_MainWindow);
  EXPECT_EQ(window.depth, 0);
  EXPECT_EQ(window.descriptor, "Back");
  EXPECT_EQ(window.properties.at(xpProperty_MainWindowHasCloseBoxes), 1);
  ASSERT_FALSE(window.elements.empty());
  EXPECT_TRUE(window.elements[0].isWindow);
  ASSERT_EQ(window.texts.size(), 1u);
  EXPECT_EQ(window.texts[0].text, "Back");  // the title

  const DisplayItem& label = screen.items[1];
  EXPECT_EQ(label.depth, 1);
  ASSERT_EQ(label.texts.size(), 1u);
  EXPECT_EQ(label.texts[0].text, "Mode 1");
  EXPECT_EQ(label.texts[0].x, 10);

  const DisplayItem& custom = screen.items[2];
  EXPECT_TRUE(custom.custom);
  ASSERT_EQ(custom.elements.size(), 1u);
  EXPECT_EQ(custom.elements[0].style, xpElement_WindowDragBarSmooth);
  EXPECT_TRUE(custom.elements[0].lit);
  EXPECT_EQ(custom.elements[0].rect.left, 110);  // normalised
  EXPECT_EQ(custom.elements[0].rect.top, 470);
  EXPECT_EQ(custom.elements[0].rect.right, 300);
  EXPECT_EQ(custom.elements[0].rect.bottom, 458);
}

int PaintsItself(XPWidgetMessage message, XPWidgetID, intptr_t, intptr_t) {
  if (message == xpMsg_Paint) {
    float white[3] = {1, 1, 1};
    XPLMDrawString(white, 0, 0, "painted", nullptr, xplmFont_Basic);
    return 1;
  }
  return message == xpMsg_Draw ? 1 : 0;
}

TEST_F(WidgetDrawingTest, AWidgetThatPaintsDrawsItsChildrenItself) {
  XPWidgetID root = XPCreateCustomWidget(0, 100, 100, 0, 1, "", 1, nullptr, PaintsItself);
  XPCreateWidget(10, 50, 50, 40, 1, "child", 0, root, xpWidgetClass_Caption);
  const DisplayList screen = host().DrawScreen();
  ASSERT_EQ(screen.items.size(), 1u);
  ASSERT_EQ(screen.items[0].texts.size(), 1u);
  EXPECT_EQ(screen.items[0].texts[0].text, "painted");
}

TEST_F(WidgetDrawingTest, ElementAndWindowSizesComeFromTheInterfaceTexture) {
  int width = 0, height = 0, canBeLit = -1;
  XPGetElementDefaultDimensions(xpElement_PushButton, &width, &height, &canBeLit);
  EXPECT_GT(width, 0);
  EXPECT_GT(height, 0);
  EXPECT_EQ(canBeLit, 1);
  XPGetElementDefaultDimensions(xpElement_WindowCloseBox, nullptr, nullptr, &canBeLit);
  EXPECT_EQ(canBeLit, 0);
  XPGetElementDefaultDimensions(xpElement_Airport, &width, nullptr, nullptr);  // a map symbol
  EXPECT_GT(width, 0);
  XPGetWindowDefaultDimensions(xpWindow_MainWindow, &width, &height);
  EXPECT_GT(width, 0);
  XPGetWindowDefaultDimensions(99, &width, &height);
  EXPECT_EQ(width, 0);
  EXPECT_EQ(height, 0);
}

TEST_F(WidgetDrawingTest, FontsHaveAnEightByTwelveNominalCell) {
  int width = 0, height = 0, digits = -1;
  XPLMGetFontDimensions(xplmFont_Basic, &width, &height, &digits);
  EXPECT_EQ(width, 8);
  EXPECT_EQ(height, 12);
  EXPECT_EQ(digits, 0);
}

}  // namespace
}  // namespace sim::testing

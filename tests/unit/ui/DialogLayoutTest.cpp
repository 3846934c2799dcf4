// The dialog's columns: the designed layout while every text fits it, and columns that open up,
// in order from left to right, for a text that does not.
#include <gtest/gtest.h>

#include "ui/DialogLayout.h"
#include "ui/PopupList.h"

namespace drav {
namespace {

constexpr int kRequested = 650;

// Texts as wide as the designed layout has room for.
constexpr DialogTextWidths kFittingTexts{88, 100, 70, 268, 38};

void ExpectColumnsInOrder(const DialogColumns& c) {
  EXPECT_LT(c.deviceRight, c.captionLeft);
  EXPECT_LE(c.captionRight, c.functionLeft);
  EXPECT_LE(c.colourRight, c.functionLeft);
  EXPECT_LT(c.functionRight, c.windowWidth);
}

TEST(DialogLayout, TextsThatFitKeepTheDesignedLayout) {
  const DialogColumns c = LayoutDialogColumns(kFittingTexts, kRequested);
  const DialogColumns designed;
  EXPECT_EQ(c.deviceRight, designed.deviceRight);
  EXPECT_EQ(c.captionLeft, designed.captionLeft);
  EXPECT_EQ(c.colourLeft, designed.colourLeft);
  EXPECT_EQ(c.colourRight, designed.colourRight);
  EXPECT_EQ(c.functionLeft, designed.functionLeft);
  EXPECT_EQ(c.functionRight, designed.functionRight);
  EXPECT_EQ(c.sliderShift, 0);
  EXPECT_EQ(c.windowWidth, kRequested);
  // A wider window asked for stays as wide.
  EXPECT_EQ(LayoutDialogColumns(kFittingTexts, 900).windowWidth, 900);
}

TEST(DialogLayout, ALongDeviceLabelWidensItsPopupAndPushesTheRowsRight) {
  DialogTextWidths texts = kFittingTexts;
  texts.device = 150;
  const DialogColumns c = LayoutDialogColumns(texts, kRequested);
  EXPECT_GE(c.deviceRight - c.deviceLeft, PopupWidthFor(150));
  EXPECT_GT(c.captionLeft, DialogColumns{}.captionLeft);
  EXPECT_GT(c.sliderShift, 0);
  EXPECT_EQ(c.functionLeft - DialogColumns{}.functionLeft, c.sliderShift);
  ExpectColumnsInOrder(c);
}

TEST(DialogLayout, LongCaptionsAndFunctionNamesGrowTheWindow) {
  DialogTextWidths texts = kFittingTexts;
  texts.caption = 192;       // "Left knob push (DH/MDAF)" in the classic cell
  texts.functionItem = 320;  // forty capitals
  const DialogColumns c = LayoutDialogColumns(texts, kRequested);
  EXPECT_GE(c.captionRight - c.captionLeft, 192);
  EXPECT_GE(c.functionRight - c.functionLeft, PopupWidthFor(320));
  EXPECT_GT(c.windowWidth, kRequested);
  ExpectColumnsInOrder(c);
}

TEST(DialogLayout, AColourPopupFitsItsNamesAndStaysClearOfItsRowsCaption) {
  DialogTextWidths texts = kFittingTexts;
  texts.colourCaption = 90;
  texts.colourItem = 60;  // "MAGENTA" in capitals
  const DialogColumns c = LayoutDialogColumns(texts, kRequested);
  EXPECT_GE(c.colourLeft - c.captionLeft, 90);
  EXPECT_GE(c.colourRight - c.colourLeft, PopupWidthFor(60));
  ExpectColumnsInOrder(c);
}

}  // namespace
}  // namespace drav

// Where the pick menu opens: its current item over the widget, and never past a screen edge. The
// scenarios see the menu's items, not its pixels, so a placement off by a few pixels shows only here.
#include <gtest/gtest.h>

#include <string>

#include "ui/PickMenuLayout.h"

namespace drav {
namespace {

constexpr PickMenuMetrics kScreen{8, 12, 1024, 768};

std::string NumberedList(int count) {
  std::string list;
  for (int i = 0; i < count; ++i) list += "ITEM_" + std::to_string(i) + ";";
  return list;
}

TEST(PickMenuPlacement, TheCurrentItemLiesAtTheWidgetsTopLeftCorner) {
  std::vector<PickMenuItem> items = ParsePickMenuItems(NumberedList(10));
  PickMenuLayout layout = LayoutPickMenu(items, kScreen);
  ScreenRect menu = PlacePickMenu(layout, 4, 300, 500, kScreen);
  ScreenRect current = CellRect(layout, menu, 4);
  EXPECT_EQ(current.left, 300);
  EXPECT_EQ(current.top, 500);
  EXPECT_EQ(menu.right - menu.left, layout.width);
  EXPECT_EQ(menu.top - menu.bottom, layout.height);
}

TEST(PickMenuPlacement, StaysOnScreenAtEveryEdge) {
  PickMenuLayout layout = LayoutPickMenu(ParsePickMenuItems(NumberedList(10)), kScreen);
  ScreenRect right = PlacePickMenu(layout, 0, 1000, 400, kScreen);
  EXPECT_EQ(right.right, 1024 - 10);
  ScreenRect left = PlacePickMenu(layout, 0, -50, 400, kScreen);
  EXPECT_EQ(left.left, 10);
  ScreenRect low = PlacePickMenu(layout, 0, 300, 20, kScreen);
  EXPECT_EQ(low.bottom, 10);
  ScreenRect high = PlacePickMenu(layout, 9, 300, 760, kScreen);
  EXPECT_EQ(high.top, 768 - 30);
}

TEST(PickMenuPlacement, AMenuWiderThanTheScreenKeepsItsLeftEdgeVisible) {
  PickMenuMetrics narrow{8, 12, 100, 768};
  PickMenuLayout layout = LayoutPickMenu(ParsePickMenuItems("A_VERY_LONG_FUNCTION_NAME;"), narrow);
  ScreenRect menu = PlacePickMenu(layout, 0, 50, 400, narrow);
  EXPECT_EQ(menu.left, 10);
}

}  // namespace
}  // namespace drav

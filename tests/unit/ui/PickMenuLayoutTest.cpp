// The pick menu's geometry without a window: items and their flags, columns and page size, the
// menu's place on the screen, paging, and what a click picks.
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

// The centre of the cell that shows item `index` when nothing is scrolled.
void CentreOf(const PickMenuLayout& layout, const ScreenRect& menu, int cell, int* x, int* y) {
  ScreenRect r = CellRect(layout, menu, cell);
  *x = (r.left + r.right) / 2;
  *y = (r.top + r.bottom) / 2;
}

// ---- items ---------------------------------------------------------------------------------------

TEST(PickMenuItems, ParenthesisDisablesAndSeparatorIsARule) {
  std::vector<PickMenuItem> items = ParsePickMenuItems("(No devices found.);-;GF-46 Unit 1;");
  ASSERT_EQ(items.size(), 3u);
  EXPECT_EQ(items[0].text, "No devices found.)");
  EXPECT_FALSE(items[0].enabled);
  EXPECT_TRUE(items[1].separator);
  EXPECT_FALSE(items[1].enabled);
  EXPECT_TRUE(items[2].enabled);
  EXPECT_EQ(items[2].text, "GF-46 Unit 1");
}

// ---- columns -------------------------------------------------------------------------------------

// A measured text wider than its nominal cells (capitals in a proportional font) widens the column;
// a narrower one never shrinks it below the nominal width.
TEST(PickMenuColumns, AMeasuredTextWiderThanItsCellsWidensTheColumn) {
  std::vector<PickMenuItem> items = ParsePickMenuItems("WATER_RUDDER;illicit;");
  items[0].width = 110;
  items[1].width = 20;
  EXPECT_EQ(LayoutPickMenu(items, kScreen).columnWidth, 110 + 2 * kMenuTextInset);
  items[0].width = 50;
  EXPECT_EQ(LayoutPickMenu(items, kScreen).columnWidth, 12 * 8 + 2 * kMenuTextInset);
}

TEST(PickMenuColumns, AShortListIsOneColumnAsWideAsItsLongestText) {
  std::vector<PickMenuItem> items = ParsePickMenuItems("A;LONGEST_NAME;B;");
  PickMenuLayout layout = LayoutPickMenu(items, kScreen);
  EXPECT_EQ(layout.columns, 1);
  EXPECT_EQ(layout.pageSize, 3);
  EXPECT_EQ(layout.columnWidth, 12 * 8 + 2 * kMenuTextInset);
  EXPECT_EQ(layout.height, 3 * 12);
  EXPECT_EQ(layout.cells[2].y, 24);
}

TEST(PickMenuColumns, ThreeHundredItemsOnA768HighScreenFillSeveralColumns) {
  std::vector<PickMenuItem> items = ParsePickMenuItems(NumberedList(300));
  PickMenuLayout layout = LayoutPickMenu(items, kScreen);
  // (768 - 50) / 12 = 59 items fit in a column.
  EXPECT_EQ(layout.pageSize, 59);
  EXPECT_EQ(layout.columns, 6);
  EXPECT_EQ(layout.column[58], 0);
  EXPECT_EQ(layout.column[59], 1);
  EXPECT_EQ(layout.cells[59].x, layout.columnWidth);
  EXPECT_EQ(layout.cells[59].y, 0);
  EXPECT_EQ(layout.column[299], 5);
  EXPECT_LE(layout.height, 768 - kMenuScreenMargin);
}

TEST(PickMenuColumns, SeparatorsTakeTheirOwnHeightInTheColumnBudget) {
  std::string list;
  for (int i = 0; i < 200; ++i) list += "-;";
  PickMenuLayout layout = LayoutPickMenu(ParsePickMenuItems(list), kScreen);
  EXPECT_EQ(layout.pageSize, (768 - kMenuScreenMargin) / SeparatorHeight(kScreen));
}

TEST(PickMenuColumns, ATinyScreenStillPutsOneItemInEachColumn) {
  PickMenuMetrics tiny{8, 12, 200, 40};
  PickMenuLayout layout = LayoutPickMenu(ParsePickMenuItems("A;B;C;"), tiny);
  EXPECT_EQ(layout.pageSize, 1);
  EXPECT_EQ(layout.columns, 3);
  EXPECT_TRUE(LayoutPickMenu({}, kScreen).cells.empty());
  EXPECT_EQ(LayoutPickMenu({}, kScreen).columns, 0);
}

// ---- placement -----------------------------------------------------------------------------------

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

// ---- paging and picking --------------------------------------------------------------------------

TEST(PickMenuPaging, PagesMoveByTheFirstColumnAndStayInsideTheList) {
  EXPECT_EQ(PageDown(0, 59, 300), 59);
  EXPECT_EQ(PageDown(236, 59, 300), 295);
  EXPECT_EQ(PageDown(295, 59, 300), 295);  // 354 would be past the last item
  EXPECT_EQ(PageDown(0, 59, 59), 0);
  EXPECT_EQ(PageUp(59, 59), 0);
  EXPECT_EQ(PageUp(30, 59), 0);
  EXPECT_EQ(PageUp(0, 59), 0);
}

TEST(PickMenuPicking, AClickPicksTheItemShownInItsCellPlusTheScrollOffset) {
  std::vector<PickMenuItem> items = ParsePickMenuItems(NumberedList(300));
  PickMenuLayout layout = LayoutPickMenu(items, kScreen);
  ScreenRect menu = PlacePickMenu(layout, 0, 100, 700, kScreen);
  int x = 0;
  int y = 0;
  CentreOf(layout, menu, 3, &x, &y);
  EXPECT_EQ(PickedIndex(items, layout, menu, 0, x, y), 3);
  // After Page Down the first cell shows the first item of the second column.
  const int offset = PageDown(0, layout.pageSize, 300);
  CentreOf(layout, menu, 0, &x, &y);
  EXPECT_EQ(PickedIndex(items, layout, menu, offset, x, y), 59);
}

TEST(PickMenuPicking, AfterPageDownACellBeyondTheLastItemPicksNothing) {
  std::vector<PickMenuItem> items = ParsePickMenuItems(NumberedList(300));
  PickMenuLayout layout = LayoutPickMenu(items, kScreen);
  ScreenRect menu = PlacePickMenu(layout, 0, 100, 700, kScreen);
  const int offset = PageDown(0, layout.pageSize, 300);
  int x = 0;
  int y = 0;
  CentreOf(layout, menu, 299, &x, &y);  // cell 299 would show item 358
  EXPECT_EQ(PickedIndex(items, layout, menu, offset, x, y), -1);
  CentreOf(layout, menu, 300 - offset - 1, &x, &y);
  EXPECT_EQ(PickedIndex(items, layout, menu, offset, x, y), 299);
}

TEST(PickMenuPicking, OutsideTheCellsOrOnADisabledItemNothingIsPicked) {
  std::vector<PickMenuItem> items = ParsePickMenuItems("(No devices found.);-;OK;");
  PickMenuLayout layout = LayoutPickMenu(items, kScreen);
  ScreenRect menu = PlacePickMenu(layout, 0, 100, 400, kScreen);
  int x = 0;
  int y = 0;
  for (int cell : {0, 1}) {
    CentreOf(layout, menu, cell, &x, &y);
    EXPECT_EQ(PickedIndex(items, layout, menu, 0, x, y), -1) << cell;
  }
  CentreOf(layout, menu, 2, &x, &y);
  EXPECT_EQ(PickedIndex(items, layout, menu, 0, x, y), 2);
  EXPECT_EQ(PickedIndex(items, layout, menu, 0, menu.right + 5, y), -1);
  EXPECT_EQ(PickedIndex(items, layout, menu, 0, x, menu.bottom - 1), -1);
  EXPECT_EQ(PickedIndex(items, layout, menu, 0, x, menu.top + 1), -1);
}

}  // namespace
}  // namespace drav

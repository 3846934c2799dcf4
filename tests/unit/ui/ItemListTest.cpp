// Item lists of the pop-ups: splitting, locating an item for the button's text, and the selection
// of a stored value.
#include <gtest/gtest.h>

#include <string_view>

#include "ui/ItemList.h"

namespace drav {
namespace {

TEST(ItemListSplit, SplitsOnSemicolonsAndKeepsALastItemWithoutOne) {
  EXPECT_EQ(SplitItems("A;BB;C;").size(), 3u);
  EXPECT_EQ(SplitItems("A;BB;C").back(), "C");
  EXPECT_TRUE(SplitItems("").empty());
  // An empty item between two separators is still an item: indexes must not shift.
  std::vector<std::string_view> items = SplitItems("A;;C;");
  ASSERT_EQ(items.size(), 3u);
  EXPECT_EQ(items[1], "");
  EXPECT_EQ(items[2], "C");
}

TEST(ItemListLocate, FindsStartAndLengthOfEveryItemAndNothingOutside) {
  constexpr std::string_view kList = "No Selection;AP_LNAV;X;";
  ItemSpan first = LocateItem(kList, 0);
  EXPECT_EQ(first.start, 0u);
  EXPECT_EQ(first.length, 12u);
  ItemSpan second = LocateItem(kList, 1);
  EXPECT_EQ(kList.substr(second.start, second.length), "AP_LNAV");
  EXPECT_EQ(ItemAt(kList, 2), "X");
  for (int outside : {-1, 3, 100}) {
    EXPECT_EQ(LocateItem(kList, outside).length, 0u) << outside;
    EXPECT_EQ(ItemAt(kList, outside), "") << outside;
  }
  EXPECT_EQ(ItemAt("(No devices found.)", 0), "(No devices found.)");
}

TEST(ItemListSelect, AStoredValueSelectsTheFirstItemBeginningWithIt) {
  constexpr std::string_view kList = "No Selection;AP_ALT_HOLD;AP_ALT;AP_VS_HOLD;";
  EXPECT_EQ(FindItemBeginningWith(kList, "AP_VS_HOLD"), 3);
  // A value that is the beginning of an earlier item selects that earlier item.
  EXPECT_EQ(FindItemBeginningWith(kList, "AP_ALT"), 1);
  EXPECT_EQ(FindItemBeginningWith(kList, ""), 0);
  EXPECT_EQ(FindItemBeginningWith(kList, "NOT_IN_LIST"), 0);
  EXPECT_EQ(FindItemBeginningWith(kList, "AP_VS_HOLD_LONGER"), 0);
}

TEST(ItemListSelect, NoSelectionIsRecognisedInAnyCaseOnly) {
  EXPECT_TRUE(IsNoSelectionItem("No Selection"));
  EXPECT_TRUE(IsNoSelectionItem("NO SELECTION"));
  EXPECT_TRUE(IsNoSelectionItem("no selection"));
  EXPECT_FALSE(IsNoSelectionItem("No Selection "));
  EXPECT_FALSE(IsNoSelectionItem("No"));
  EXPECT_FALSE(IsNoSelectionItem(""));
}

}  // namespace
}  // namespace drav

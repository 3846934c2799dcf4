// The terminal drawing of `show`: seven-segment digits with their decimal points, and colour only
// when asked for.
#include <gtest/gtest.h>

#include "dravsim/PanelRenderer.h"

namespace dravsim {
namespace {

TEST(SevenSegmentRows, DigitsPointsBlanksAndCharactersWithoutAGlyph) {
  const auto rows = RenderSevenSegmentRows("1.8 -");
  EXPECT_EQ(rows[0], "     _          ");
  EXPECT_EQ(rows[1], "  | |_|      _  ");
  EXPECT_EQ(rows[2], "  |.|_|         ");
  const auto odd = RenderSevenSegmentRows("M");
  EXPECT_EQ(odd[1], " M  ") << "a character without a seven-segment form is written as itself";
  const auto lonePoint = RenderSevenSegmentRows(".5");
  EXPECT_EQ(lonePoint[2], "   . _| ") << "a point with nothing before it takes a cell of its own";
  EXPECT_EQ(RenderSevenSegmentRows("")[0], "");
}

TEST(SevenSegmentRows, EveryRowOfADisplayHasTheSameWidth) {
  for (const char* text : {"118.50", " 121.50", "C.118.50", "-1200", "A.b.C.", "?"}) {
    const auto rows = RenderSevenSegmentRows(text);
    EXPECT_EQ(rows[0].size(), rows[1].size()) << text;
    EXPECT_EQ(rows[1].size(), rows[2].size()) << text;
  }
}

TEST(RenderUnit, ColourEscapesOnlyWhenAsked) {
  PanelUnit unit;
  unit.name = "p8";
  unit.model = FindPanelModelByName("GF-P8");
  ASSERT_NE(unit.model, nullptr);
  PanelOutputView view;
  view.leds = 0x01;
  const std::string plain = RenderUnit(unit, view, 0, false);
  EXPECT_NE(plain.find("lights: *......."), std::string::npos) << plain;
  EXPECT_EQ(plain.find('\x1b'), std::string::npos);
  const std::string coloured = RenderUnit(unit, view, 0, true);
  EXPECT_NE(coloured.find('\x1b'), std::string::npos);
}

}  // namespace
}  // namespace dravsim

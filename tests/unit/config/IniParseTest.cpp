// Numbers from INI values: the leading decimal text, 0 when there is none.
#include <gtest/gtest.h>

#include <climits>

#include "base/IniFile.h"

namespace {

TEST(IniParseTest, IntegerTakesTheLeadingDecimalTextLikeAtoi) {
  EXPECT_EQ(drav::ParseIniInt("12abc"), 12);
  EXPECT_EQ(drav::ParseIniInt("abc"), 0);
  EXPECT_EQ(drav::ParseIniInt("-1"), -1);
  EXPECT_EQ(drav::ParseIniInt(" 7"), 7);
  EXPECT_EQ(drav::ParseIniInt("\t+5"), 5);
  EXPECT_EQ(drav::ParseIniInt("3.9"), 3);
  EXPECT_EQ(drav::ParseIniInt("0x10"), 0);
  EXPECT_EQ(drav::ParseIniInt(""), 0);
  EXPECT_EQ(drav::ParseIniInt("-"), 0);
  EXPECT_EQ(drav::ParseIniInt("+-3"), 0);
  EXPECT_EQ(drav::ParseIniInt(nullptr), 0);
}

TEST(IniParseTest, IntegerOutOfRangeIsClampedInsteadOfOverflowing) {
  EXPECT_EQ(drav::ParseIniInt("99999999999999999999"), INT_MAX);
  EXPECT_EQ(drav::ParseIniInt("-99999999999999999999"), INT_MIN);
  EXPECT_EQ(drav::ParseIniInt("2147483647"), INT_MAX);
  EXPECT_EQ(drav::ParseIniInt("-2147483648"), INT_MIN);
}

TEST(IniParseTest, RealTakesTheLeadingDecimalText) {
  EXPECT_FLOAT_EQ(drav::ParseIniReal("0.005"), 0.005f);
  EXPECT_FLOAT_EQ(drav::ParseIniReal(" -2.25xyz"), -2.25f);
  EXPECT_FLOAT_EQ(drav::ParseIniReal(".5"), 0.5f);
  EXPECT_FLOAT_EQ(drav::ParseIniReal("+1e3"), 1000.0f);
  EXPECT_FLOAT_EQ(drav::ParseIniReal("7"), 7.0f);
  EXPECT_FLOAT_EQ(drav::ParseIniReal("1,5"), 1.0f);  // never the locale's decimal comma
  EXPECT_EQ(drav::ParseIniReal("abc"), 0.0f);
  EXPECT_EQ(drav::ParseIniReal(""), 0.0f);
  EXPECT_EQ(drav::ParseIniReal("."), 0.0f);
  EXPECT_EQ(drav::ParseIniReal(nullptr), 0.0f);
}

TEST(IniParseTest, RealRejectsTextThatIsNotADecimalNumber) {
  // A trim step of infinity or NaN would wreck the trim; such text reads as no number.
  EXPECT_EQ(drav::ParseIniReal("inf"), 0.0f);
  EXPECT_EQ(drav::ParseIniReal("-nan"), 0.0f);
  EXPECT_EQ(drav::ParseIniReal("1e999"), 0.0f);
  EXPECT_EQ(drav::ParseIniReal("0x1p4"), 0.0f);
}

}  // namespace

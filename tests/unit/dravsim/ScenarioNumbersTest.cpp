// Number words: decimal, hex, binary, negative, floats, HEX byte lists and their malformed forms.
#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

#include "dravsim/ScenarioNumbers.h"

namespace dravsim {
namespace {

TEST(ScenarioNumbers, IntegersInEveryBase) {
  EXPECT_EQ(ParseInteger("0"), 0);
  EXPECT_EQ(ParseInteger("12150"), 12150);
  EXPECT_EQ(ParseInteger("007"), 7);
  EXPECT_EQ(ParseInteger("-42"), -42);
  EXPECT_EQ(ParseInteger("0x1F"), 31);
  EXPECT_EQ(ParseInteger("0Xff"), 255);
  EXPECT_EQ(ParseInteger("0x8888888E"), 0x8888888ELL);
  EXPECT_EQ(ParseInteger("-0x10"), -16);
  EXPECT_EQ(ParseInteger("0b101"), 5);
  EXPECT_EQ(ParseInteger("0B11111111"), 255);
  EXPECT_EQ(ParseInteger("-0b1"), -1);
}

TEST(ScenarioNumbers, IntegerLimits) {
  EXPECT_EQ(ParseInteger("9223372036854775807"), LLONG_MAX);
  EXPECT_EQ(ParseInteger("-9223372036854775808"), LLONG_MIN);
  EXPECT_FALSE(ParseInteger("9223372036854775808"));
  EXPECT_FALSE(ParseInteger("-9223372036854775809"));
  EXPECT_FALSE(ParseInteger("0x10000000000000000"));
}

TEST(ScenarioNumbers, MalformedIntegersAreRejected) {
  for (const char* text : {"", "-", "+5", "--5", "- 5", " 5", "5 ", "0x", "0b", "0x-5", "0xg",
                           "0b102", "12a", "1.5", "1e3", "one"}) {
    EXPECT_FALSE(ParseInteger(text)) << text;
  }
}

TEST(ScenarioNumbers, IntegerInRange) {
  EXPECT_EQ(ParseIntegerIn("10", 0, 10), 10);
  EXPECT_EQ(ParseIntegerIn("0", 0, 10), 0);
  EXPECT_FALSE(ParseIntegerIn("11", 0, 10));
  EXPECT_FALSE(ParseIntegerIn("-1", 0, 10));
}

TEST(ScenarioNumbers, RealsTakeEveryIntegerFormAndDecimalFloats) {
  EXPECT_DOUBLE_EQ(*ParseReal("29.92"), 29.92);
  EXPECT_DOUBLE_EQ(*ParseReal("-0.25"), -0.25);
  EXPECT_DOUBLE_EQ(*ParseReal(".5"), 0.5);
  EXPECT_DOUBLE_EQ(*ParseReal("-.5"), -0.5);
  EXPECT_DOUBLE_EQ(*ParseReal("3."), 3.0);
  EXPECT_DOUBLE_EQ(*ParseReal("24"), 24.0);
  EXPECT_DOUBLE_EQ(*ParseReal("0x10"), 16.0);
  EXPECT_DOUBLE_EQ(*ParseReal("-0b11"), -3.0);
}

TEST(ScenarioNumbers, MalformedRealsAreRejected) {
  for (const char* text : {"", ".", "-", "-.", "1.2.3", "1e3", "1,5", "nan", "inf", "-inf",
                           "0x1.8", "+1.5", "1.5x", " 1.5"}) {
    EXPECT_FALSE(ParseReal(text)) << text;
  }
}

TEST(ScenarioNumbers, HexListsOfTwoDigitWords) {
  const std::vector<Word> words{{"02", false}, {"ff", false}, {"1A", false}, {"00", false}};
  EXPECT_EQ(ParseHexBytes(words), (std::vector<std::uint8_t>{0x02, 0xFF, 0x1A, 0x00}));
  EXPECT_EQ(ParseHexBytes({}), std::vector<std::uint8_t>{});
}

TEST(ScenarioNumbers, HexListsRejectAnyOtherWord) {
  for (const Word& bad : {Word{"2", false}, Word{"0x02", false}, Word{"fff", false},
                          Word{"g0", false}, Word{"-1", false}, Word{"ff", true}}) {
    const std::vector<Word> words{{"01", false}, bad};
    EXPECT_FALSE(ParseHexBytes(words)) << bad.text;
  }
}

}  // namespace
}  // namespace dravsim

#include "hid/SegmentTables.h"

#include <gtest/gtest.h>

namespace drav {
namespace {

constexpr SevenSegmentFont kAllFonts[] = {SevenSegmentFont::RadioDigits, SevenSegmentFont::GF166,
                                          SevenSegmentFont::GFMCP, SevenSegmentFont::GFMCPPro};
constexpr SevenSegmentFont kLetterFonts[] = {SevenSegmentFont::GF166, SevenSegmentFont::GFMCP,
                                             SevenSegmentFont::GFMCPPro};

TEST(SegmentTableTest, SixteenSegmentLettersDigitsAndSymbols) {
  EXPECT_EQ(SixteenSegmentCode('A'), 0x3722);
  EXPECT_EQ(SixteenSegmentCode('B'), 0x8F0A);
  EXPECT_EQ(SixteenSegmentCode('M'), 0x7609);
  EXPECT_EQ(SixteenSegmentCode('W'), 0xB614);
  EXPECT_EQ(SixteenSegmentCode('Z'), 0x0911);
  EXPECT_EQ(SixteenSegmentCode('0'), 0x3F11);
  EXPECT_EQ(SixteenSegmentCode('5'), 0x4D02);
  EXPECT_EQ(SixteenSegmentCode('9'), 0x2F22);
  EXPECT_EQ(SixteenSegmentCode('-'), 0x0022);
  EXPECT_EQ(SixteenSegmentCode('<'), 0x0005);
  EXPECT_EQ(SixteenSegmentCode('>'), 0x4010);
}

TEST(SegmentTableTest, SixteenSegmentLowerCaseSharesUpperAndUnknownIsBlank) {
  EXPECT_EQ(SixteenSegmentCode('a'), 0x3722);
  EXPECT_EQ(SixteenSegmentCode('k'), 0x3025);
  EXPECT_EQ(SixteenSegmentCode('y'), 0x222A);
  for (char blank : {' ', '.', '#', '_', '[', '\0', '\x7F'}) {
    EXPECT_EQ(SixteenSegmentCode(blank), 0x0000) << "char " << int{blank};
  }
  EXPECT_EQ(SixteenSegmentCode(static_cast<char>(0xC4)), 0x0000);  // 8-bit characters too
}

TEST(SegmentTableTest, SevenSegmentDigitsAreTheSameInEveryFont) {
  for (SevenSegmentFont font : kAllFonts) {
    EXPECT_EQ(SevenSegmentCode(font, '0'), 0x3F);
    EXPECT_EQ(SevenSegmentCode(font, '1'), 0x06);
    EXPECT_EQ(SevenSegmentCode(font, '4'), 0x66);
    EXPECT_EQ(SevenSegmentCode(font, '7'), 0x07);
    EXPECT_EQ(SevenSegmentCode(font, '9'), 0x67);
    EXPECT_EQ(SevenSegmentCode(font, ' '), 0x00);
    EXPECT_EQ(SevenSegmentCode(font, '-'), 0x40);
    EXPECT_EQ(SevenSegmentCode(font, '['), 0x39);
    EXPECT_EQ(SevenSegmentCode(font, ']'), 0x0F);
    EXPECT_EQ(SevenSegmentCode(font, '#'), 0x00);
    EXPECT_EQ(SevenSegmentCode(font, static_cast<char>(0xE9)), 0x00);
  }
}

TEST(SegmentTableTest, RadioDigitsShowNoLettersUnderscoreEqualsOrLoneDot) {
  for (char blank : {'A', 'a', 'E', 'z', '_', '=', '.'}) {
    EXPECT_EQ(SevenSegmentCode(SevenSegmentFont::RadioDigits, blank), 0x00) << blank;
  }
}

TEST(SegmentTableTest, LetterFontsShowBothCasesUnderscoreAndEquals) {
  for (SevenSegmentFont font : kLetterFonts) {
    EXPECT_EQ(SevenSegmentCode(font, 'b'), 0x7C);
    EXPECT_EQ(SevenSegmentCode(font, 'H'), 0x76);
    EXPECT_EQ(SevenSegmentCode(font, 'h'), 0x74);
    EXPECT_EQ(SevenSegmentCode(font, 'L'), 0x38);
    EXPECT_EQ(SevenSegmentCode(font, 'l'), 0x06);
    EXPECT_EQ(SevenSegmentCode(font, 'o'), 0x5C);
    EXPECT_EQ(SevenSegmentCode(font, 'R'), 0x40);
    EXPECT_EQ(SevenSegmentCode(font, 'r'), 0x50);
    EXPECT_EQ(SevenSegmentCode(font, 'T'), 0x31);
    EXPECT_EQ(SevenSegmentCode(font, 't'), 0x78);
    EXPECT_EQ(SevenSegmentCode(font, 'Y'), 0x72);
    EXPECT_EQ(SevenSegmentCode(font, 'y'), 0x5E);
    EXPECT_EQ(SevenSegmentCode(font, 'Z'), 0x1B);
    EXPECT_EQ(SevenSegmentCode(font, '_'), 0x08);
    EXPECT_EQ(SevenSegmentCode(font, '='), 0x48);
    EXPECT_EQ(SevenSegmentCode(font, '?'), 0x00);
  }
}

TEST(SegmentTableTest, UpperCaseACEAndTheLoneDotDifferByPanel) {
  EXPECT_EQ(SevenSegmentCode(SevenSegmentFont::GF166, 'A'), 0x77);
  EXPECT_EQ(SevenSegmentCode(SevenSegmentFont::GF166, 'C'), 0x39);
  EXPECT_EQ(SevenSegmentCode(SevenSegmentFont::GF166, 'E'), 0x79);
  EXPECT_EQ(SevenSegmentCode(SevenSegmentFont::GF166, '.'), 0x00);

  EXPECT_EQ(SevenSegmentCode(SevenSegmentFont::GFMCP, 'A'), 0x77);
  EXPECT_EQ(SevenSegmentCode(SevenSegmentFont::GFMCP, 'C'), 0x39);
  EXPECT_EQ(SevenSegmentCode(SevenSegmentFont::GFMCP, 'E'), 0x79);
  EXPECT_EQ(SevenSegmentCode(SevenSegmentFont::GFMCP, '.'), 0x80);

  EXPECT_EQ(SevenSegmentCode(SevenSegmentFont::GFMCPPro, 'A'), 0x5F);
  EXPECT_EQ(SevenSegmentCode(SevenSegmentFont::GFMCPPro, 'C'), 0x58);
  EXPECT_EQ(SevenSegmentCode(SevenSegmentFont::GFMCPPro, 'E'), 0x7B);
  EXPECT_EQ(SevenSegmentCode(SevenSegmentFont::GFMCPPro, 'F'), 0x71);  // only A, C, E change
  EXPECT_EQ(SevenSegmentCode(SevenSegmentFont::GFMCPPro, 'U'), 0x3E);
  EXPECT_EQ(SevenSegmentCode(SevenSegmentFont::GFMCPPro, '.'), 0x80);
}

TEST(SegmentTableTest, UnknownFontIsBlank) {
  EXPECT_EQ(SevenSegmentCode(static_cast<SevenSegmentFont>(9), '8'), 0x00);
}

}  // namespace
}  // namespace drav

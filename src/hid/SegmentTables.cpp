#include "hid/SegmentTables.h"

#include <array>
#include <cstddef>

namespace drav {

namespace {

template <typename Code>
struct CharCode {
  char c;
  Code code;
};

// ---- sixteen segments ------------------------------------------------------------------------

constexpr std::array<std::uint16_t, 26> kSixteenSegmentLetters = {
    0x3722, 0x8F0A, 0x3900, 0x8F08, 0x3920, 0x3120, 0x3D02,  // A B C D E F G
    0x3622, 0x8908, 0x1E00, 0x3025, 0x3800, 0x7609, 0x7604,  // H I J K L M N
    0x3F00, 0x3322, 0x3F04, 0x3326, 0x2D22, 0x8108, 0x3E00,  // O P Q R S T U
    0x3011, 0xB614, 0x4015, 0x222A, 0x0911,                  // V W X Y Z
};

constexpr std::array<std::uint16_t, 10> kSixteenSegmentDigits = {
    0x3F11, 0x0601, 0x1921, 0x0D03, 0x2622, 0x4D02, 0x3D22, 0x2700, 0x3F22, 0x2F22,
};

constexpr std::array<CharCode<std::uint16_t>, 3> kSixteenSegmentSymbols = {{
    {'-', 0x0022}, {'<', 0x0005}, {'>', 0x4010},
}};

constexpr std::array<std::uint16_t, 256> MakeSixteenSegmentTable() {
  std::array<std::uint16_t, 256> table{};
  for (std::size_t i = 0; i < 26; ++i) {
    table['A' + i] = kSixteenSegmentLetters[i];
    table['a' + i] = kSixteenSegmentLetters[i];
  }
  for (std::size_t i = 0; i < 10; ++i) table['0' + i] = kSixteenSegmentDigits[i];
  for (const auto& symbol : kSixteenSegmentSymbols) table[static_cast<unsigned char>(symbol.c)] = symbol.code;
  return table;  // space and everything else stay 0x0000
}

constexpr std::array<std::uint16_t, 256> kSixteenSegmentTable = MakeSixteenSegmentTable();

// ---- seven segments --------------------------------------------------------------------------

constexpr std::array<std::uint8_t, 10> kSevenSegmentDigits = {
    0x3F, 0x06, 0x5B, 0x4F, 0x66, 0x6D, 0x7D, 0x07, 0x7F, 0x67,
};

constexpr std::array<std::uint8_t, 26> kSevenSegmentUpper = {
    0x77, 0x7C, 0x39, 0x5E, 0x79, 0x71, 0x3D, 0x76, 0x30, 0x1E, 0x70, 0x38, 0x37,  // A..M
    0x54, 0x3F, 0x73, 0x3B, 0x40, 0x6D, 0x31, 0x3E, 0x1C, 0x7E, 0x52, 0x72, 0x1B,  // N..Z
};

constexpr std::array<std::uint8_t, 26> kSevenSegmentLower = {
    0x5F, 0x7C, 0x58, 0x5E, 0x7B, 0x71, 0x3D, 0x74, 0x30, 0x0C, 0x70, 0x06, 0x37,  // a..m
    0x54, 0x5C, 0x73, 0x3B, 0x50, 0x6D, 0x78, 0x1C, 0x1C, 0x7E, 0x52, 0x5E, 0x1B,  // n..z
};

// Every font shows these; space stays blank.
constexpr std::array<CharCode<std::uint8_t>, 3> kRadioSymbols = {{
    {'-', 0x40}, {'[', 0x39}, {']', 0x0F},
}};
// The letter-capable fonts add these.
constexpr std::array<CharCode<std::uint8_t>, 2> kLetterFontSymbols = {{
    {'_', 0x08}, {'=', 0x48},
}};

using SevenSegmentTable = std::array<std::uint8_t, 256>;

constexpr SevenSegmentTable MakeSevenSegmentTable(SevenSegmentFont font) {
  SevenSegmentTable table{};
  for (std::size_t i = 0; i < 10; ++i) table['0' + i] = kSevenSegmentDigits[i];
  for (const auto& symbol : kRadioSymbols) table[static_cast<unsigned char>(symbol.c)] = symbol.code;
  if (font == SevenSegmentFont::RadioDigits) return table;

  for (const auto& symbol : kLetterFontSymbols) table[static_cast<unsigned char>(symbol.c)] = symbol.code;
  for (std::size_t i = 0; i < 26; ++i) {
    table['A' + i] = kSevenSegmentUpper[i];
    table['a' + i] = kSevenSegmentLower[i];
  }
  if (font == SevenSegmentFont::GFMCP || font == SevenSegmentFont::GFMCPPro) table['.'] = kSevenSegmentDot;
  if (font == SevenSegmentFont::GFMCPPro) {
    // This panel's upper-case A, C and E look like its lower-case ones.
    table['A'] = table['a'];
    table['C'] = table['c'];
    table['E'] = table['e'];
  }
  return table;
}

constexpr std::array<SevenSegmentTable, 4> kSevenSegmentFonts = {
    MakeSevenSegmentTable(SevenSegmentFont::RadioDigits),
    MakeSevenSegmentTable(SevenSegmentFont::GF166),
    MakeSevenSegmentTable(SevenSegmentFont::GFMCP),
    MakeSevenSegmentTable(SevenSegmentFont::GFMCPPro),
};

}  // namespace

std::uint16_t SixteenSegmentCode(char c) { return kSixteenSegmentTable[static_cast<unsigned char>(c)]; }

std::uint8_t SevenSegmentCode(SevenSegmentFont font, char c) {
  const auto index = static_cast<std::size_t>(font);
  if (index >= kSevenSegmentFonts.size()) return 0;
  return kSevenSegmentFonts[index][static_cast<unsigned char>(c)];
}

}  // namespace drav

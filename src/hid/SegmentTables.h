// Character codes of the units' displays: the sixteen-segment alphanumeric display of the GF-45 and
// GF-46, and the seven-segment digits of every model. Each answers the code of one character
// standing alone; the "." that may follow a character (a decimal point) is handled by the encoders
// in ReportEncoders.h, which OR the dot bit into the preceding code.
#pragma once

#include <cstdint>

namespace drav {

// Sixteen-segment codes are 16 bits, sent low byte first. Letters of either case share the
// upper-case code; characters without a code (and '.') are blank, 0x0000.
inline constexpr std::uint16_t kSixteenSegmentDot = 0x0040;
std::uint16_t SixteenSegmentCode(char c);

// Seven-segment codes: bit 0 = segment a (top), 1 = b, 2 = c, 3 = d (bottom), 4 = e, 5 = f,
// 6 = g (middle), 7 = decimal point. The models differ in what they can show besides digits.
inline constexpr std::uint8_t kSevenSegmentDot = 0x80;

enum class SevenSegmentFont : std::uint8_t {
  RadioDigits,  // GF-45 and GF-46 numeric displays: digits, space, '-', '[', ']'
  GF166,        // adds letters, '_' and '='; a '.' of its own is blank
  GFMCP,        // as GF166, but a '.' of its own is a lone decimal point
  GFMCPPro,     // as GFMCP, with the lower-case shapes for upper-case A, C and E
};

std::uint8_t SevenSegmentCode(SevenSegmentFont font, char c);

}  // namespace drav

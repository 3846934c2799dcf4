#include "hid/ReportEncoders.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace drav {
namespace {

using Bytes = std::vector<std::uint8_t>;

// Runs an encoder on a buffer pre-filled with 0xEE (so bytes it forgets to zero show) and returns
// the report it produced.
template <typename Encode>
Bytes Encoded(Encode encode) {
  std::array<std::uint8_t, 16> buffer;
  buffer.fill(0xEE);
  const std::size_t length = encode(std::span<std::uint8_t>(buffer));
  return Bytes(buffer.begin(), buffer.begin() + static_cast<std::ptrdiff_t>(length));
}

// The report `encode` makes of `args`.
template <typename... Params, typename... Args>
Bytes Encode(std::size_t (*encode)(std::span<std::uint8_t>, Params...), Args... args) {
  return Encoded([&](std::span<std::uint8_t> out) { return encode(out, args...); });
}

// ---- sixteen-segment display -----------------------------------------------------------------

TEST(EncoderTest, SixteenSegmentCodesGoLowByteFirstWithTheDotOnThePreviousCharacter) {
  // a, B with the dot bit, '-', blank
  EXPECT_EQ(Encode(EncodeSixteenSegmentDisplay, "ab.-"), (Bytes{3, 0x22, 0x37, 0x4A, 0x8F, 0x22, 0x00, 0x00, 0x00}));
  // A dot after the fourth character still belongs to it.
  EXPECT_EQ(Encode(EncodeSixteenSegmentDisplay, "ABCD."), (Bytes{3, 0x22, 0x37, 0x0A, 0x8F, 0x00, 0x39, 0x48, 0x8F}));
  // A leading dot follows no character: it is a blank of its own.
  EXPECT_EQ(Encode(EncodeSixteenSegmentDisplay, ".A"), (Bytes{3, 0x00, 0x00, 0x22, 0x37, 0x00, 0x00, 0x00, 0x00}));
}

// ---- reversed seven-segment displays (GF-45, GF-46) ------------------------------------------

// ---- forward seven-segment displays ----------------------------------------------------------

TEST(EncoderTest, MCPProShowsUpperCaseACEWithItsOwnShapes) {
  EXPECT_EQ(Encode(EncodeGFMCPProDisplay, 1, "ACE"), (Bytes{3, 0x5F, 0x58, 0x7B}));
  EXPECT_EQ(Encode(EncodeGFMCPDisplay, 1, "ACE"), (Bytes{3, 0x77, 0x39, 0x79}));
}

TEST(EncoderTest, ALoneDotIsADecimalPointOnTheAutopilotsButBlankOnTheGF166) {
  EXPECT_EQ(Encode(EncodeGFMCPDisplay, 2, ".5"), (Bytes{5, 0x80, 0x6D, 0x00}));
  EXPECT_EQ(Encode(EncodeGFMCPProDisplay, 6, ".5"), (Bytes{13, 0x80, 0x6D, 0x00}));
  EXPECT_EQ(Encode(EncodeGF166Display, 1, ".5"), (Bytes{3, 0x00, 0x6D, 0x00, 0x00, 0x00, 0x00}));
  // The first dot joins the 1; the second stands alone.
  EXPECT_EQ(Encode(EncodeGFMCPDisplay, 3, "1..2"), (Bytes{7, 0x86, 0x80, 0x5B}));
}

TEST(EncoderTest, MissingDisplaysAndSmallBuffersProduceNothing) {
  EXPECT_TRUE(Encode(EncodeGF166Display, 3, "1").empty());
  EXPECT_TRUE(Encode(EncodeGFMCPDisplay, 0, "1").empty());
  EXPECT_TRUE(Encode(EncodeGFMCPDisplay, 6, "1").empty());
  EXPECT_TRUE(Encode(EncodeGFMCPProDisplay, 7, "1").empty());

  std::array<std::uint8_t, 8> small;
  small.fill(0xEE);
  EXPECT_EQ(EncodeSixteenSegmentDisplay(small, "AB"), 0u);
  EXPECT_EQ(EncodeGFMCPDisplay(std::span(small).first(3), 1, "123"), 0u);
  EXPECT_EQ(EncodeBrightness(std::span(small).first(1), 6, 3), 0u);
  for (std::uint8_t byte : small) EXPECT_EQ(byte, 0xEE);  // nothing written
}

// ---- brightness, indicators, encoder type ----------------------------------------------------

// An output report may be exactly as long as what it carries: a two-byte report still takes its lights.
TEST(EncoderTest, AnIndicatorReportFitsAReportOfTwoBytes) {
  std::array<std::uint8_t, 2> exact{0xEE, 0xEE};
  EXPECT_EQ(EncodeIndicatorByte(exact, kGFMCPIndicatorReport, 0x5A), 2u);
  EXPECT_EQ(Bytes(exact.begin(), exact.end()), (Bytes{13, 0x5A}));
  EXPECT_EQ(EncodeIndicatorByte(std::span(exact).first(1), kGFMCPIndicatorReport, 0x5A), 0u);
}

TEST(EncoderTest, MCPProOutputReportsArePaddedTo8WithDD) {
  EXPECT_FALSE(GFMCPProTakesOutputReports(0x01FF));
  EXPECT_TRUE(GFMCPProTakesOutputReports(0x0200));

  std::array<std::uint8_t, 8> report{14, 0x07};
  EXPECT_EQ(PadGFMCPProOutputReport(report, 2), 8u);
  EXPECT_EQ(Bytes(report.begin(), report.end()), (Bytes{14, 0x07, 0xDD, 0xDD, 0xDD, 0xDD, 0xDD, 0xDD}));

  std::array<std::uint8_t, 8> display{3, 0x86, 0x6D, 0x00};
  EXPECT_EQ(PadGFMCPProOutputReport(display, 4), 8u);
  EXPECT_EQ(Bytes(display.begin(), display.end()), (Bytes{3, 0x86, 0x6D, 0x00, 0xDD, 0xDD, 0xDD, 0xDD}));

  std::array<std::uint8_t, 7> tooSmall{};
  EXPECT_EQ(PadGFMCPProOutputReport(tooSmall, 2), 0u);
}

// ---- GF-WCP colours --------------------------------------------------------------------------

TEST(EncoderTest, WCPIntensityTruncatesBrightnessOver15InSinglePrecision) {
  const std::uint8_t expected[16] = {0, 6, 13, 20, 26, 33, 40, 46, 53, 60, 66, 73, 80, 86, 93, 100};
  for (std::uint16_t brightness = 0; brightness < 16; ++brightness) {
    EXPECT_EQ(GFWCPIntensity(brightness), expected[brightness]) << "brightness " << brightness;
  }
  // Unchecked values above 15: 16 -> 106, 30 -> 200, 45 -> 300 whose low 8 bits are 44.
  EXPECT_EQ(GFWCPIntensity(16), 106);
  EXPECT_EQ(GFWCPIntensity(30), 200);
  EXPECT_EQ(GFWCPIntensity(45), 44);
}

TEST(EncoderTest, WCPColoursAndColour6sBlueOfOne) {
  EXPECT_EQ(Encode(EncodeGFWCPColour, 2, 6, 7), (Bytes{2, 2, 46, 46, 1}));
  EXPECT_EQ(Encode(EncodeGFWCPColour, 1, 6, 0), (Bytes{2, 1, 0, 0, 1}));
  EXPECT_EQ(Encode(EncodeGFWCPColour, 1, 0, 15), (Bytes{2, 1, 0, 0, 0}));
  EXPECT_EQ(Encode(EncodeGFWCPColour, 6, 1, 15), (Bytes{2, 6, 100, 100, 100}));
  EXPECT_EQ(Encode(EncodeGFWCPColour, 3, 2, 3), (Bytes{2, 3, 20, 0, 0}));
  EXPECT_EQ(Encode(EncodeGFWCPColour, 4, 3, 3), (Bytes{2, 4, 0, 20, 0}));
  EXPECT_EQ(Encode(EncodeGFWCPColour, 5, 4, 3), (Bytes{2, 5, 0, 0, 20}));
  EXPECT_EQ(Encode(EncodeGFWCPColour, 5, 5, 3), (Bytes{2, 5, 20, 0, 20}));
  EXPECT_EQ(Encode(EncodeGFWCPColour, 6, 7, 12), (Bytes{2, 6, 0, 80, 80}));
}

TEST(EncoderTest, WCPRejectsIndicatorsOutside1To6AndColours8Up) {
  EXPECT_FALSE(IsGFWCPIndicator(0));
  EXPECT_TRUE(IsGFWCPIndicator(1));
  EXPECT_TRUE(IsGFWCPIndicator(6));
  EXPECT_FALSE(IsGFWCPIndicator(7));
  EXPECT_TRUE(Encode(EncodeGFWCPColour, 0, 1, 15).empty());
  EXPECT_TRUE(Encode(EncodeGFWCPColour, 7, 1, 15).empty());
  EXPECT_TRUE(Encode(EncodeGFWCPColour, 1, 8, 15).empty());
}

// ---- GF-DIO outputs --------------------------------------------------------------------------

TEST(EncoderTest, DIOOutputsFillTheDevicesOwnReportLength) {
  const std::array<std::uint8_t, 4> outputs{0x01, 0x80, 0xFF, 0x7E};
  EXPECT_EQ(Encode(EncodeGFDIOOutputs, 9, outputs), (Bytes{2, 0x01, 0x80, 0xFF, 0x7E, 0, 0, 0, 0}));
  EXPECT_EQ(Encode(EncodeGFDIOOutputs, 5, outputs), (Bytes{2, 0x01, 0x80, 0xFF, 0x7E}));
  // Too short to carry four outputs, or longer than the caller's buffer: nothing.
  EXPECT_TRUE(Encode(EncodeGFDIOOutputs, 4, outputs).empty());
  EXPECT_TRUE(Encode(EncodeGFDIOOutputs, 65, outputs).empty());
}

}  // namespace
}  // namespace drav

#include "hid/ReportDecoders.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace drav {
namespace {

// Reports are heap vectors of exactly their length, so that a decoder reading past the end is
// caught by AddressSanitizer.
using Bytes = std::vector<std::uint8_t>;
using Ints = std::vector<int>;

// A record's array field as numbers, so that one comparison names every element.
template <typename T, std::size_t N>
Ints All(const T (&values)[N]) {
  return Ints(values, values + N);
}

template <typename Record>
InputDecode Decode(InputDecode (*decoder)(const std::uint8_t*, std::size_t, Record&), const Bytes& report,
                   Record& state) {
  return decoder(report.data(), report.size(), state);
}

// ---- plain byte models -----------------------------------------------------------------------

// ---- composed models -------------------------------------------------------------------------

TEST(DecoderTest, MCPProNibblesAreInterleavedAndSignedAndSwitchesBigEndian) {
  GFMCPProInputRecord state{};
  EXPECT_EQ(Decode(DecodeGFMCPProInput, Bytes{0x00, 0x1F, 0x80, 0x7F, 0x00, 0x00, 0x01, 0x02}, state),
            InputDecode::Deliver);
  EXPECT_EQ(All(state.encoders), (Ints{1, -8, -1, 7, 0, -1}));  // hi(1), hi(2), lo(1), hi(3), lo(2), lo(3)
  EXPECT_EQ(state.switches, 0x00000102u);

  EXPECT_EQ(Decode(DecodeGFMCPProInput, Bytes{0x00, 0x00, 0x00, 0x00, 0x80, 0x01, 0x02, 0x03}, state),
            InputDecode::Deliver);
  EXPECT_EQ(state.switches, 0x80010203u);
}

TEST(DecoderTest, MCPProOpenTimeReportUsesThePlainNibbleOrder) {
  GFMCPProInputRecord state{};
  EXPECT_EQ(Decode(DecodeGFMCPProFeature, Bytes{16, 0x1F, 0x80, 0x7F, 0xDE, 0xAD, 0xBE, 0xEF}, state),
            InputDecode::Stored);
  EXPECT_EQ(All(state.encoders), (Ints{1, -1, -8, 0, 7, -1}));  // hi(1), lo(1), hi(2), lo(2), hi(3), lo(3)
  EXPECT_EQ(state.switches, 0xDEADBEEFu);
}

TEST(DecoderTest, EFISComposesItsSwitchWordAndSelectorByte) {
  GFEFISInputRecord state{};
  EXPECT_EQ(Decode(DecodeGFEFISInput, Bytes{0x00, 0x11, 0x22, 0xFE, 0x03, 0xFF, 0x18, 0xFF}, state),
            InputDecode::Deliver);
  EXPECT_EQ(state.encoder1, -2);
  EXPECT_EQ(state.encoder2, 3);
  EXPECT_EQ(state.switches, 0xFF7F);  // bit 7 never set; bits 14, 15 from byte 6 bits 4, 3
  EXPECT_EQ(state.selectors, 0x00);

  // Byte 6 = 1110 0011: selector bits 0-1 and 4-6 set, switch bits 14-15 clear. Byte 5 bit 7 and
  // byte 7 bits 6-7 are not part of the word.
  EXPECT_EQ(Decode(DecodeGFEFISInput, Bytes{0x00, 0x00, 0x00, 0x00, 0x00, 0x80, 0xE3, 0xC0}, state),
            InputDecode::Deliver);
  EXPECT_EQ(state.switches, 0x0000);
  EXPECT_EQ(state.selectors, 0x73);

  // Byte 7 bits 0-5 land in bits 8-13; byte 6 bit 4 alone gives bit 14.
  EXPECT_EQ(Decode(DecodeGFEFISInput, Bytes{0x00, 0x00, 0x00, 0x00, 0x00, 0x01, 0x10, 0x21}, state),
            InputDecode::Deliver);
  EXPECT_EQ(state.switches, 0x6101);
}

TEST(DecoderTest, EFISOpenTimeReportTakesItsEncodersUnsigned) {
  GFEFISInputRecord state{};
  EXPECT_EQ(Decode(DecodeGFEFISFeature, Bytes{2, 0x00, 0x00, 0xFE, 0x80, 0xFF, 0x18, 0xFF}, state),
            InputDecode::Stored);
  EXPECT_EQ(state.encoder1, 254);
  EXPECT_EQ(state.encoder2, 128);
  EXPECT_EQ(state.switches, 0xFF7F);
}

TEST(DecoderTest, SECMRotaryHighestBitWinsAndReportsWithoutOneAreNotDelivered) {
  GFSECMInputRecord state{};
  // Byte 1 to position: bit 6 beats bit 5, bit 4 beats bit 3.
  for (const auto& [byte1, rotary] : {std::pair{0x60, 1}, std::pair{0x04, 5}, std::pair{0x18, 3}}) {
    EXPECT_EQ(Decode(DecodeGFSECMInput, Bytes{0x00, std::uint8_t(byte1), 0x00, 0x00}, state), InputDecode::Deliver);
    EXPECT_EQ(state.rotary, rotary) << "byte 1 = " << byte1;
  }

  // No rotary bit: the other fields still change, the position stays, nothing is delivered.
  EXPECT_EQ(Decode(DecodeGFSECMInput, Bytes{0x00, 0x03, 0x00, 0x00}, state), InputDecode::Stored);
  EXPECT_EQ(state.rotary, 3);
  EXPECT_EQ(state.second, 1);
  EXPECT_EQ(state.third, 2);
}

TEST(DecoderTest, SECMSwitchWordMixesPlainAndInvertedBits) {
  struct Case {
    std::uint8_t byte2, byte3;
    std::uint16_t word;
  };
  const Case cases[] = {
      {0x00, 0x00, 0x00FC},  // the six inverted bits (2..7) read as set
      {0xFF, 0xFF, 0x0F03},  // the six plain bits (0, 1, 8..11)
      {0xAA, 0x05, 0x0FFF},  // every source in its "set" sense
      {0x55, 0x0A, 0x0000},  // every source in its "clear" sense
      {0x40, 0x04, 0x00F9},  // byte 3 bit 2 -> bit 0; byte 2 bit 6 clears bit 2
  };
  for (const Case& c : cases) {
    GFSECMInputRecord state{};
    Decode(DecodeGFSECMInput, Bytes{0x00, 0x04, c.byte2, c.byte3}, state);
    EXPECT_EQ(state.switches, c.word) << std::hex << "byte2 " << int{c.byte2} << " byte3 " << int{c.byte3};
  }
}

TEST(DecoderTest, SECMOpenTimeReportFollowsTheDeliveryRule) {
  GFSECMInputRecord state{};
  EXPECT_EQ(Decode(DecodeGFSECMFeature, Bytes{2, 0x20, 0x00, 0x00}, state), InputDecode::Deliver);
  EXPECT_EQ(state.rotary, 2);
  EXPECT_EQ(Decode(DecodeGFSECMFeature, Bytes{2, 0x01, 0x00, 0x00}, state), InputDecode::Stored);
  EXPECT_EQ(state.rotary, 2);
}

// ---- open-time feature reports ---------------------------------------------------------------

TEST(DecoderTest, OpenTimeReportsResetEncodersAndTakeSwitchBytes) {
  GFRP48InputRecord rp48{{4, -4, 2, 9}, 0};
  EXPECT_EQ(Decode(DecodeGFRP48Feature, Bytes{4, 0x81}, rp48), InputDecode::Stored);
  EXPECT_EQ(All(rp48.encoders), (Ints{0, 0, 0, 0}));
  EXPECT_EQ(rp48.buttons, 0x81);

  GFLGTInputRecord lgt{7, 0};
  EXPECT_EQ(Decode(DecodeGFLGTFeature, Bytes{4, 0x0C}, lgt), InputDecode::Stored);
  EXPECT_EQ(lgt.value, 0);
  EXPECT_EQ(lgt.switches, 0x0C);

  GF166InputRecord gf166{5, 5, 0};
  EXPECT_EQ(Decode(DecodeGF166Feature, Bytes{8, 0xEE, 0xEE, 0x33}, gf166), InputDecode::Stored);
  EXPECT_EQ((Ints{gf166.encoder1, gf166.encoder2, gf166.buttons}), (Ints{0, 0, 0x33}));

  GFSwitchByteInputRecord wcp{};
  EXPECT_EQ(Decode(DecodeSwitchByteFeature, Bytes{4, 0x42}, wcp), InputDecode::Stored);
  EXPECT_EQ(wcp.switches, 0x42);

  GFLGT2InputRecord lgt2{};
  EXPECT_EQ(Decode(DecodeGFLGT2Feature, Bytes{4, 0xFF, 0x01, 0x80, 0x5A, 0x00}, lgt2), InputDecode::Stored);
  EXPECT_EQ(All(lgt2.values), (Ints{-1, 1, -128}));
  EXPECT_EQ(lgt2.switches, 0x5A);

  GFDIOInputRecord dio{};
  EXPECT_EQ(Decode(DecodeGFDIOFeature, Bytes{4, 9, 8, 7, 6, 5, 4, 3}, dio), InputDecode::Stored);
  EXPECT_EQ(All(dio.states), (Ints{9, 8, 7, 6, 5, 4, 3}));
}

// ---- short reports ---------------------------------------------------------------------------

// Runs one decoder on an exactly sized report of `length` bytes (all 0xFF) against a state filled
// with a marker, and tells whether the state came back unchanged.
struct ShortReportCase {
  const char* name;
  std::size_t minimum;
  std::function<InputDecode(const Bytes&, bool* unchanged)> run;
};

template <typename Record>
ShortReportCase Case(const char* name, std::size_t minimum,
                     InputDecode (*decoder)(const std::uint8_t*, std::size_t, Record&)) {
  return {name, minimum, [decoder](const Bytes& report, bool* unchanged) {
            Record state;
            std::memset(&state, 0x5A, sizeof state);
            unsigned char before[sizeof state];
            std::memcpy(before, &state, sizeof state);
            const InputDecode result = decoder(report.empty() ? nullptr : report.data(), report.size(), state);
            *unchanged = std::memcmp(&state, before, sizeof state) == 0;
            return result;
          }};
}

TEST(DecoderTest, ReportsShorterThanTheModelReadsAreIgnoredWholeAndNeverOverread) {
  const ShortReportCase cases[] = {
      Case("GF45", 3, DecodeGF45Input),          Case("GF46", 4, DecodeGF46Input),
      Case("GF166", 4, DecodeGF166Input),        Case("P8", 2, DecodeSwitchByteInput),
      Case("RP48", 6, DecodeGFRP48Input),        Case("LGT", 3, DecodeGFLGTInput),
      Case("ATC", 3, DecodeGFATCInput),          Case("LGT2", 5, DecodeGFLGT2Input),
      Case("MCP", 8, DecodeGFMCPInput),          Case("MCPPro", 8, DecodeGFMCPProInput),
      Case("EFIS", 8, DecodeGFEFISInput),        Case("SECM", 4, DecodeGFSECMInput),
      Case("MESM", 2, DecodeGFMESMInput),        Case("TQ6", 8, DecodeGFTQ6Input),
      Case("DIO", 8, DecodeGFDIOInput),          Case("FMC", 2, DecodeGFFMCInput),
      Case("P8 open", 2, DecodeSwitchByteFeature), Case("RP48 open", 2, DecodeGFRP48Feature),
      Case("LGT open", 2, DecodeGFLGTFeature),   Case("LGT2 open", 5, DecodeGFLGT2Feature),
      Case("166 open", 4, DecodeGF166Feature),   Case("MCP open", 8, DecodeGFMCPFeature),
      Case("MCPPro open", 8, DecodeGFMCPProFeature), Case("EFIS open", 8, DecodeGFEFISFeature),
      Case("SECM open", 4, DecodeGFSECMFeature), Case("MESM open", 2, DecodeGFMESMFeature),
      Case("DIO open", 8, DecodeGFDIOFeature),
  };
  for (const ShortReportCase& c : cases) {
    for (std::size_t length = 0; length < c.minimum; ++length) {
      bool unchanged = false;
      EXPECT_EQ(c.run(Bytes(length, 0xFF), &unchanged), InputDecode::Ignored) << c.name << " length " << length;
      EXPECT_TRUE(unchanged) << c.name << " length " << length;
    }
    bool unchanged = true;
    EXPECT_NE(c.run(Bytes(c.minimum, 0xFF), &unchanged), InputDecode::Ignored) << c.name;
    EXPECT_FALSE(unchanged) << c.name << " decodes nothing at its minimum length";
  }
}

}  // namespace
}  // namespace drav

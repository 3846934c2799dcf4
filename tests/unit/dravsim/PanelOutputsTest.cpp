// Reading displays, lights, brightness and colours back from reports made by hand and by the
// device layer's own encoders.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "dravsim/PanelOutputs.h"
#include "dravsim/PanelRenderer.h"
#include "hid/ReportEncoders.h"

namespace dravsim {
namespace {

using drav::SevenSegmentFont;
using drav::VirtualSentReport;
using V = std::vector<std::uint8_t>;

std::string Decode(std::string_view model, int display, const V& report) {
  const OutputReportRow* row = FindDisplayRow(model, display);
  EXPECT_NE(row, nullptr) << model << " display " << display;
  return row ? DecodeDisplay(*row, report) : "";
}

VirtualSentReport Feature(V bytes) { return {VirtualSentReport::Kind::Feature, std::move(bytes)}; }
VirtualSentReport Output(V bytes) { return {VirtualSentReport::Kind::Output, std::move(bytes)}; }

TEST(PanelOutputsTest, SixteenSegmentTextWithADot) {
  // "ab.-": A, B with the dot bit, '-', blank.
  EXPECT_EQ(Decode("GF-45", 1, {0x03, 0x22, 0x37, 0x4A, 0x8F, 0x22, 0x00, 0x00, 0x00}), "AB.- ");
  EXPECT_EQ(DecodeSixteenSegment(0x3F11), "0");
  EXPECT_EQ(DecodeSixteenSegment(0x4010), ">");
  EXPECT_EQ(DecodeSixteenSegment(0x0040), ".");
  EXPECT_EQ(DecodeSixteenSegment(0x1234), "?");
}

TEST(PanelOutputsTest, ReversedRadioDigitsReadFromTheLastByte) {
  EXPECT_EQ(Decode("GF-45", 2, {0x05, 0x00, 0x00, 0x4F, 0xDB, 0x06}), "12.3  ");
  EXPECT_EQ(Decode("GF-46", 2, {0x05, 0x3F, 0x6D, 0x66, 0x4F, 0x5B, 0x06}), "123450");
  // The radio digits have no letters: a letter's shape is not one of their characters.
  EXPECT_EQ(Decode("GF-46", 2, {0x05, 0x00, 0x00, 0x00, 0x00, 0x40, 0x77}), "?-    ");
}

TEST(PanelOutputsTest, ForwardSevenSegmentThroughEachModelsFont) {
  EXPECT_EQ(Decode("GF-MCP", 1, {0x03, 0x86, 0x6D, 0x00}), "1.5 ");
  EXPECT_EQ(Decode("GF-MCPPro", 1, {0x03, 0x5F, 0x58, 0x7B}), "ACE");
  EXPECT_EQ(Decode("GF-MCP", 1, {0x03, 0x77, 0x39, 0x79}), "ACE");
  EXPECT_EQ(Decode("GF-MCP", 1, {0x03, 0x5F, 0x40, 0x01}), "a-?");
  EXPECT_EQ(Decode("GF-MCP", 1, {0x03, 0x80, 0x08, 0x48}), "._=");
  EXPECT_EQ(Decode("GF-166", 2, {0x05, 0x3F, 0x06}), "01    ") << "a short report reads blank";
}

TEST(PanelOutputsTest, TextsTheEncodersWriteReadBackUnchanged) {
  struct Case {
    std::string_view model;
    int display;
    const char* text;
  };
  const std::array cases = {
      Case{"GF-MCP", 4, "HDG 12"}, Case{"GF-MCP", 2, "1.2.3."}, Case{"GF-MCPPro", 2, "HDG-1"},
      Case{"GF-MCPPro", 6, "L.o"},  Case{"GF-166", 1, "123.45"}, Case{"GF-166", 2, "2_=]"},
  };
  for (const Case& c : cases) {
    std::array<std::uint8_t, drav::kMaxFixedReportLength> buffer{};
    const std::size_t length =
        c.model == "GF-166"   ? drav::EncodeGF166Display(buffer, c.display, c.text)
        : c.model == "GF-MCP" ? drav::EncodeGFMCPDisplay(buffer, c.display, c.text)
                              : drav::EncodeGFMCPProDisplay(buffer, c.display, c.text);
    ASSERT_GT(length, 0u) << c.text;
    const V report(buffer.begin(), buffer.begin() + static_cast<std::ptrdiff_t>(length));
    const std::string decoded = Decode(c.model, c.display, report);
    EXPECT_EQ(decoded.substr(0, std::string(c.text).size()), c.text) << c.model;
  }

  std::array<std::uint8_t, drav::kMaxFixedReportLength> buffer{};
  const std::size_t length = drav::EncodeGF45Display2(buffer, "12.3");
  EXPECT_EQ(Decode("GF-45", 2, V(buffer.begin(), buffer.begin() + length)), "12.3  ");
  const std::size_t sixteen = drav::EncodeSixteenSegmentDisplay(buffer, "n1<>");
  EXPECT_EQ(Decode("GF-46", 1, V(buffer.begin(), buffer.begin() + sixteen)), "N1<>");
}

TEST(PanelOutputsTest, TheLastReportOfEachKindWins) {
  const std::vector<VirtualSentReport> sent = {
      Feature({0x03, 0x3F, 0x3F, 0x3F}), Feature({0x0D, 0x05}), Feature({0x0C, 0x0F}),
      Feature({0x03, 0x06, 0x00, 0x00}), Feature({0x0C, 0x07}), Feature({0x63, 0x01}),
  };
  const PanelOutputView view = ViewOutputs("GF-MCP", sent);
  ASSERT_EQ(view.displays.size(), 5u);
  EXPECT_EQ(view.displays[0], "1  ");
  EXPECT_FALSE(view.displays[1].has_value());
  EXPECT_EQ(view.leds, 0x05u);
  EXPECT_EQ(view.brightness, 7);
  EXPECT_TRUE(view.colours.empty());
}

TEST(PanelOutputsTest, MasksAsTheirReportsCarryThem) {
  // A GF-MCPPro of version 0x0200 gets padded 8-byte output reports.
  EXPECT_EQ(ViewOutputs("GF-MCPPro", {{Output({0x0F, 0x00, 0x00, 0x01, 0x02, 0xDD, 0xDD, 0xDD})}}).leds,
            0x0102u);
  EXPECT_EQ(ViewOutputs("GF-LGT", {{Feature({0x02, 0x03})}}).leds, 0x03u);
  EXPECT_EQ(ViewOutputs("GF-DIO", {{Output({0x02, 0x01, 0x00, 0x00, 0x80, 0, 0, 0})}}).leds,
            0x80000001u);
  EXPECT_FALSE(ViewOutputs("GF-P8", {{Feature({0x05, 0xFF})}}).leds.has_value());
}

TEST(PanelOutputsTest, WCPColoursPerLight) {
  const std::vector<VirtualSentReport> sent = {
      Output({0x02, 0x02, 46, 46, 1}), Output({0x02, 0x06, 100, 0, 0}),
      Output({0x02, 0x07, 1, 2, 3}),  // no such light: ignored
      Output({0x02, 0x02, 0, 0, 0}),
  };
  const PanelOutputView view = ViewOutputs("GF-WCP", sent);
  ASSERT_EQ(view.colours.size(), 6u);
  ASSERT_TRUE(view.colours[1].has_value());
  EXPECT_EQ(view.colours[1]->red, 0);
  ASSERT_TRUE(view.colours[5].has_value());
  EXPECT_EQ(view.colours[5]->red, 100);
  EXPECT_FALSE(view.colours[0].has_value());
  EXPECT_FALSE(view.brightness.has_value());
}

TEST(PanelOutputsTest, DisplayRowsMatchTheModels) {
  EXPECT_EQ(DisplayCount("GF-45"), 2);
  EXPECT_EQ(DisplayCount("GF-MCP"), 5);
  EXPECT_EQ(DisplayCount("GF-MCPPro"), 6);
  EXPECT_EQ(DisplayCount("GF-P8"), 0);
  EXPECT_EQ(FindDisplayRow("GF-MCPPro", 7), nullptr);
  EXPECT_EQ(FindDisplayRow("GF-MCPPro", 6)->digits, 3);
  EXPECT_EQ(RenderLights(0x05, 8), "*.*.....");
}

}  // namespace
}  // namespace dravsim

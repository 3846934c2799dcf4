#include "dravsim/PanelOutputs.h"

#include <algorithm>
#include <array>

namespace dravsim {
namespace {

using drav::SevenSegmentFont;
constexpr auto kSixteen = DisplayCoding::SixteenSegment;
constexpr auto kReversed = DisplayCoding::ReversedSevenSegment;
constexpr auto kSeven = DisplayCoding::SevenSegment;
constexpr auto kRadio = SevenSegmentFont::RadioDigits;
constexpr auto k166 = SevenSegmentFont::GF166;
constexpr auto kMCP = SevenSegmentFont::GFMCP;
constexpr auto kPro = SevenSegmentFont::GFMCPPro;

constexpr OutputReportRow Display(std::string_view model, std::uint8_t id, int display, int digits,
                                  DisplayCoding coding, SevenSegmentFont font) {
  return {model, id, OutputRole::Display, display, digits, coding, font, false};
}
constexpr OutputReportRow Leds(std::string_view model, std::uint8_t id, int bytes = 1,
                               bool bigEndian = false) {
  return {model, id, OutputRole::Leds, 0, bytes, kSeven, kRadio, bigEndian};
}
constexpr OutputReportRow Brightness(std::string_view model, std::uint8_t id) {
  return {model, id, OutputRole::Brightness, 0, 0, kSeven, kRadio, false};
}

constexpr auto kOutputReports = std::to_array<OutputReportRow>({
    Display("GF-45", 3, 1, 4, kSixteen, kRadio),
    Display("GF-45", 5, 2, 5, kReversed, kRadio),
    Brightness("GF-45", 6),
    Display("GF-46", 3, 1, 4, kSixteen, kRadio),
    Display("GF-46", 5, 2, 6, kReversed, kRadio),
    Brightness("GF-46", 6),
    Display("GF-166", 3, 1, 6, kSeven, k166),
    Display("GF-166", 5, 2, 6, kSeven, k166),
    Leds("GF-166", 7),
    Brightness("GF-166", 6),
    Leds("GF-P8", 2),     Brightness("GF-P8", 3),
    Leds("GF-T8", 2),     Brightness("GF-T8", 3),
    Leds("GF-RP48", 2),   Brightness("GF-RP48", 3),
    Leds("GF-LGT", 2),    Brightness("GF-LGT", 3),
    Leds("GF-LGT2", 2),   Brightness("GF-LGT2", 3),
    Display("GF-MCP", 3, 1, 3, kSeven, kMCP),
    Display("GF-MCP", 5, 2, 3, kSeven, kMCP),
    Display("GF-MCP", 7, 3, 3, kSeven, kMCP),
    Display("GF-MCP", 9, 4, 6, kSeven, kMCP),
    Display("GF-MCP", 11, 5, 6, kSeven, kMCP),
    Leds("GF-MCP", 13),
    Brightness("GF-MCP", 12),
    Display("GF-MCPPro", 3, 1, 3, kSeven, kPro),
    Display("GF-MCPPro", 5, 2, 5, kSeven, kPro),
    Display("GF-MCPPro", 7, 3, 5, kSeven, kPro),
    Display("GF-MCPPro", 9, 4, 5, kSeven, kPro),
    Display("GF-MCPPro", 11, 5, 5, kSeven, kPro),
    Display("GF-MCPPro", 13, 6, 3, kSeven, kPro),
    Leds("GF-MCPPro", 15, 4, true),
    Brightness("GF-MCPPro", 14),
    {"GF-WCP", 2, OutputRole::Colour, 0, 0, kSeven, kRadio, false},
    // The four output bytes of a GF-DIO read as one mask, output byte 1 lowest.
    Leds("GF-DIO", 2, 4, false),
});

// The characters a display may show, in the order a code is read back: where two characters share
// a code (O and 0, a lower-case letter and its upper-case one, R and -), the first one wins.
constexpr std::string_view kReadBackOrder =
    "0123456789-ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_=[]<>";

template <typename Code, typename Lookup>
std::string ReadBack(Code code, Code dotBit, Lookup lookup) {
  if (code == 0) return " ";
  const auto find = [&](Code wanted) -> std::optional<char> {
    for (const char c : kReadBackOrder) {
      if (lookup(c) == wanted) return c;
    }
    return std::nullopt;
  };
  if (const auto c = find(code)) return std::string(1, *c);
  if ((code & dotBit) == 0) return "?";
  const auto base = static_cast<Code>(code & ~dotBit);
  if (base == 0) return ".";
  const auto c = find(base);
  return std::string(1, c ? *c : '?') + ".";
}

std::uint8_t ByteAt(std::span<const std::uint8_t> report, std::size_t index) {
  return index < report.size() ? report[index] : 0;
}

std::uint32_t MaskOf(const OutputReportRow& row, std::span<const std::uint8_t> report) {
  std::uint32_t mask = 0;
  for (int i = 0; i < row.digits; ++i) {
    const std::uint32_t byte = ByteAt(report, static_cast<std::size_t>(1 + i));
    const int shift = row.bigEndian ? 8 * (row.digits - 1 - i) : 8 * i;
    mask |= byte << shift;
  }
  return mask;
}

}  // namespace

std::span<const OutputReportRow> OutputReportsOf(std::string_view model) {
  const auto first = std::find_if(kOutputReports.begin(), kOutputReports.end(),
                                  [&](const OutputReportRow& row) { return row.model == model; });
  const auto last = std::find_if(first, kOutputReports.end(),
                                 [&](const OutputReportRow& row) { return row.model != model; });
  return {first, last};
}

const OutputReportRow* FindOutputReport(std::string_view model, std::uint8_t reportId) {
  for (const OutputReportRow& row : OutputReportsOf(model)) {
    if (row.reportId == reportId) return &row;
  }
  return nullptr;
}

const OutputReportRow* FindDisplayRow(std::string_view model, int display) {
  for (const OutputReportRow& row : OutputReportsOf(model)) {
    if (row.role == OutputRole::Display && row.display == display) return &row;
  }
  return nullptr;
}

int DisplayCount(std::string_view model) {
  const auto rows = OutputReportsOf(model);
  return static_cast<int>(std::count_if(rows.begin(), rows.end(), [](const OutputReportRow& row) {
    return row.role == OutputRole::Display;
  }));
}

std::string DecodeSevenSegment(SevenSegmentFont font, std::uint8_t code) {
  return ReadBack<std::uint8_t>(code, drav::kSevenSegmentDot,
                                [font](char c) { return drav::SevenSegmentCode(font, c); });
}

std::string DecodeSixteenSegment(std::uint16_t code) {
  return ReadBack<std::uint16_t>(code, drav::kSixteenSegmentDot,
                                 [](char c) { return drav::SixteenSegmentCode(c); });
}

std::string DecodeDisplay(const OutputReportRow& row, std::span<const std::uint8_t> report) {
  std::string text;
  for (int i = 0; i < row.digits; ++i) {
    const auto at = [&](int index) { return ByteAt(report, static_cast<std::size_t>(index)); };
    switch (row.coding) {
      case DisplayCoding::SixteenSegment:
        text += DecodeSixteenSegment(
            static_cast<std::uint16_t>(at(1 + 2 * i) | (at(2 + 2 * i) << 8)));
        break;
      case DisplayCoding::ReversedSevenSegment:
        text += DecodeSevenSegment(row.font, at(row.digits - i));
        break;
      case DisplayCoding::SevenSegment:
        text += DecodeSevenSegment(row.font, at(1 + i));
        break;
    }
  }
  return text;
}

PanelOutputView ViewOutputs(std::string_view model, std::span<const drav::VirtualSentReport> sent) {
  PanelOutputView view;
  view.displays.resize(static_cast<std::size_t>(DisplayCount(model)));
  for (const drav::VirtualSentReport& report : sent) {
    if (report.bytes.empty()) continue;
    const OutputReportRow* row = FindOutputReport(model, report.bytes[0]);
    if (row == nullptr) continue;
    const std::span<const std::uint8_t> bytes = report.bytes;
    switch (row->role) {
      case OutputRole::Display:
        view.displays[static_cast<std::size_t>(row->display - 1)] = DecodeDisplay(*row, bytes);
        break;
      case OutputRole::Leds: view.leds = MaskOf(*row, bytes); break;
      case OutputRole::Brightness: view.brightness = ByteAt(bytes, 1); break;
      case OutputRole::Colour: {
        const int light = ByteAt(bytes, 1);
        if (light < 1 || light > kColouredLights) break;
        view.colours.resize(kColouredLights);
        view.colours[static_cast<std::size_t>(light - 1)] =
            Colour{ByteAt(bytes, 2), ByteAt(bytes, 3), ByteAt(bytes, 4)};
        break;
      }
    }
  }
  return view;
}

}  // namespace dravsim

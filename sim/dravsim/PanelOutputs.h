// Reading back what the plug-in wrote to a unit: per model, which report id lights the indicators,
// sets the brightness, shows a display or colours a GF-WCP light, and the decoding of segment codes
// back into text through the model's own character table (the inverse of the encoders).
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "hid/SegmentTables.h"
#include "hid/backend/VirtualHidBackend.h"

namespace dravsim {

enum class OutputRole : std::uint8_t { Display, Leds, Brightness, Colour };
enum class DisplayCoding : std::uint8_t { SixteenSegment, ReversedSevenSegment, SevenSegment };

// One kind of report a model receives, told apart by its report id.
struct OutputReportRow {
  std::string_view model;
  std::uint8_t reportId;
  OutputRole role;
  int display = 0;       // Display: 1-based, the model's device order
  int digits = 0;        // Display: characters; Leds: bytes of the mask
  DisplayCoding coding = DisplayCoding::SevenSegment;
  drav::SevenSegmentFont font = drav::SevenSegmentFont::RadioDigits;
  bool bigEndian = false;  // Leds: most significant byte first
};

// Null when the model has no such report.
const OutputReportRow* FindOutputReport(std::string_view model, std::uint8_t reportId);
const OutputReportRow* FindDisplayRow(std::string_view model, int display);
std::span<const OutputReportRow> OutputReportsOf(std::string_view model);

// The text the display shows for the report's bytes (report id first): a blank digit reads as a
// space, a decimal point follows its character, a code no character has reads '?'.
std::string DecodeDisplay(const OutputReportRow& row, std::span<const std::uint8_t> report);
std::string DecodeSevenSegment(drav::SevenSegmentFont font, std::uint8_t code);
std::string DecodeSixteenSegment(std::uint16_t code);

struct Colour {
  int red = 0;
  int green = 0;
  int blue = 0;
};

// What a unit shows now, from every report written to it since the last clear (the last report
// of each kind wins).
struct PanelOutputView {
  std::vector<std::optional<std::string>> displays;  // displays[D - 1]
  std::optional<std::uint32_t> leds;
  std::optional<int> brightness;
  std::vector<std::optional<Colour>> colours;  // colours[LIGHT - 1]
};

PanelOutputView ViewOutputs(std::string_view model, std::span<const drav::VirtualSentReport> sent);
int DisplayCount(std::string_view model);
inline constexpr int kColouredLights = 6;

}  // namespace dravsim

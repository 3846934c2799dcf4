// Encoders of the reports the layer writes to the units: displays, indicators, brightness, the
// GF-166 encoder type, the GF-WCP colours and the GF-DIO outputs. Pure functions: no threads, no
// I/O, no allocation.
//
// Each encoder writes one whole report (byte 0 = report id, bytes not mentioned 0) into the
// caller's buffer and answers its length, the number of bytes to queue. It answers 0 and writes
// nothing when the buffer is too small or the arguments name no report (a display number the
// model does not have, a GF-WCP indicator outside 1..6 or colour 8 or more). A buffer of
// kMaxFixedReportLength bytes fits every report except the GF-DIO's, whose length is the device's.
//
// Texts are zero-terminated 8-bit strings; a null text is blank. Only as many characters as the
// display has digits are used, the rest is cut. A "." right after a character lights that
// character's decimal point and takes no digit of its own.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace drav {

inline constexpr std::size_t kMaxFixedReportLength = 9;

// ---- brightness and indicator bytes ----------------------------------------------------------
// Report ids; the brightness getters read the same feature report ids back.
inline constexpr std::uint8_t kGF45BrightnessReport = 6;
inline constexpr std::uint8_t kGF46BrightnessReport = 6;
inline constexpr std::uint8_t kGF166BrightnessReport = 6;
inline constexpr std::uint8_t kGF166IndicatorReport = 7;
inline constexpr std::uint8_t kGF166EncoderTypeReport = 9;
inline constexpr std::uint8_t kGFSwitchPanelBrightnessReport = 3;  // GF-P8, T8, RP48, LGT, LGT2
inline constexpr std::uint8_t kGFSwitchPanelIndicatorReport = 2;   // GF-P8, T8, RP48, LGT, LGT2
inline constexpr std::uint8_t kGFMCPBrightnessReport = 12;
inline constexpr std::uint8_t kGFMCPIndicatorReport = 13;
inline constexpr std::uint8_t kGFMCPProBrightnessReport = 14;
inline constexpr std::uint8_t kGFMCPProIndicatorReport = 15;

// [reportId, value & 0x0F]: 2 bytes.
std::size_t EncodeBrightness(std::span<std::uint8_t> out, std::uint8_t reportId, std::int32_t value);
// [reportId, mask]: 2 bytes. The indicator report of GF-166, GF-P8, GF-T8, GF-RP48, GF-LGT2, GF-MCP.
std::size_t EncodeIndicatorByte(std::span<std::uint8_t> out, std::uint8_t reportId, std::uint8_t mask);
// GF-LGT: [2, mask | 0x03]; the unit's two lowest lights are always on.
std::size_t EncodeGFLGTIndicators(std::span<std::uint8_t> out, std::uint8_t mask);
// GF-MCPPro: [15, mask bits 31..24, 23..16, 15..8, 7..0]: 5 bytes.
std::size_t EncodeGFMCPProIndicators(std::span<std::uint8_t> out, std::uint32_t mask);
// GF-166: [9, (second & 3) << 2 | (first & 3)].
std::size_t EncodeGF166EncoderType(std::span<std::uint8_t> out, std::uint8_t first, std::uint8_t second);

// ---- displays --------------------------------------------------------------------------------
// GF-45 and GF-46 display 1: report 3, 9 bytes; four sixteen-segment codes, low byte first, the
// first character in bytes 1-2.
std::size_t EncodeSixteenSegmentDisplay(std::span<std::uint8_t> out, const char* text);
// GF-45 display 2: report 5, 6 bytes; five digits, the first character in byte 5, down to byte 1.
std::size_t EncodeGF45Display2(std::span<std::uint8_t> out, const char* text);
// GF-46 display 2: report 5, 7 bytes; six digits, the first character in byte 6, down to byte 1.
std::size_t EncodeGF46Display2(std::span<std::uint8_t> out, const char* text);
// The forward displays, first character in byte 1:
//   GF-166  display 1, 2:          reports 3, 5;             6 digits each
//   GF-MCP  display 1..5:          reports 3, 5, 7, 9, 11;   3, 3, 3, 6, 6 digits
//   GF-MCPPro display 1..6:        reports 3, 5, 7, 9, 11, 13; 3, 5, 5, 5, 5, 3 digits
// The report is 1 + digits bytes long. A display number the model lacks answers 0.
std::size_t EncodeGF166Display(std::span<std::uint8_t> out, int display, const char* text);
std::size_t EncodeGFMCPDisplay(std::span<std::uint8_t> out, int display, const char* text);
std::size_t EncodeGFMCPProDisplay(std::span<std::uint8_t> out, int display, const char* text);

// GF-MCPPro units of device version 0x0200 or more take every report as an 8-byte output report:
// the queued bytes followed by 0xDD up to 8. Pads `report` (holding `length` bytes) in place and
// answers 8; a report longer than 8 is cut to 8. Answers 0 when the buffer has fewer than 8 bytes.
inline constexpr std::uint16_t kGFMCPProOutputReportVersion = 0x0200;
inline constexpr std::size_t kGFMCPProOutputReportLength = 8;
inline constexpr std::uint8_t kGFMCPProOutputPadding = 0xDD;
inline bool GFMCPProTakesOutputReports(std::uint16_t deviceVersion) {
  return deviceVersion >= kGFMCPProOutputReportVersion;
}
std::size_t PadGFMCPProOutputReport(std::span<std::uint8_t> report, std::size_t length);

// ---- GF-WCP indicator colours ----------------------------------------------------------------
// Output report 2: [2, indicator 1..6, red, green, blue], each colour 0..100 at brightness 0..15.
inline constexpr std::uint8_t kGFWCPColourReport = 2;
inline constexpr std::uint8_t kGFWCPIndicatorCount = 6;
inline constexpr std::uint8_t kGFWCPColourCount = 8;
inline constexpr std::uint16_t kGFWCPInitialBrightness = 15;

// trunc(brightness / 15 * 100) in single precision, low 8 bits kept: 0, 6, 13, 20, ... 93, 100.
std::uint8_t GFWCPIntensity(std::uint16_t brightness);
inline bool IsGFWCPIndicator(std::uint8_t indicator) {
  return indicator >= 1 && indicator <= kGFWCPIndicatorCount;
}
// 5 bytes; 0 for an indicator outside 1..6 (the caller answers 11) or a colour of 8 or more (the
// caller answers 0 and must not store the colour).
std::size_t EncodeGFWCPColour(std::span<std::uint8_t> out, std::uint8_t indicator, std::uint8_t colour,
                              std::uint16_t brightness);

// ---- GF-DIO outputs --------------------------------------------------------------------------
// Output report 2 of the device's own OutputReportByteLength: [2, the four outputs, 0 ...]. Answers
// that length; 0 when the device's report is too short to carry four outputs (under 5 bytes) or
// the buffer cannot hold it.
inline constexpr std::uint8_t kGFDIOOutputReport = 2;
std::size_t EncodeGFDIOOutputs(std::span<std::uint8_t> out, std::size_t outputReportLength,
                               const std::array<std::uint8_t, 4>& outputs);

}  // namespace drav

#include "hid/ReportEncoders.h"

#include <algorithm>

#include "hid/SegmentTables.h"

namespace drav {

namespace {

// Zeroes the first `length` bytes of `out` and sets the report id; false when `out` is too short.
bool BeginReport(std::span<std::uint8_t> out, std::size_t length, std::uint8_t reportId) {
  if (length == 0 || out.size() < length) return false;
  std::fill_n(out.begin(), length, std::uint8_t{0});
  out[0] = reportId;
  return true;
}

// Turns `text` into at most `slots` display codes, left to right; a "." right after a character
// ORs `dotBit` into that character's code and is skipped. Slots past the end of the text are not
// written (the caller zeroed them: blank). The text is read only up to its terminator or up to the
// dot after the last slot, so an over-long text is simply cut.
template <typename Code, typename CodeOf>
void EncodeText(const char* text, Code* codes, std::size_t slots, Code dotBit, CodeOf codeOf) {
  if (text == nullptr) return;
  std::size_t written = 0;
  for (const char* p = text; *p != '\0' && written < slots; ++p) {
    Code code = codeOf(*p);
    if (p[1] == '.') {
      code = static_cast<Code>(code | dotBit);
      ++p;
    }
    codes[written++] = code;
  }
}

constexpr std::uint8_t kSixteenSegmentReport = 3;
constexpr std::size_t kSixteenSegmentChars = 4;

constexpr std::uint8_t kRadioDigitsReport = 5;
constexpr std::size_t kGF45Digits = 5;
constexpr std::size_t kGF46Digits = 6;
constexpr std::size_t kMaxDigits = 6;

// The GF-45 and GF-46 numeric displays are wired right to left: the first character goes into the
// report's last byte.
std::size_t EncodeReversedDigits(std::span<std::uint8_t> out, std::size_t digits, const char* text) {
  const std::size_t length = 1 + digits;
  if (!BeginReport(out, length, kRadioDigitsReport)) return 0;
  std::array<std::uint8_t, kMaxDigits> codes{};
  EncodeText<std::uint8_t>(text, codes.data(), digits, kSevenSegmentDot,
                           [](char c) { return SevenSegmentCode(SevenSegmentFont::RadioDigits, c); });
  for (std::size_t i = 0; i < digits; ++i) out[digits - i] = codes[i];
  return length;
}

struct ForwardDisplay {
  std::uint8_t reportId;
  std::uint8_t digits;
};

constexpr std::array<ForwardDisplay, 2> kGF166Displays = {{{3, 6}, {5, 6}}};
constexpr std::array<ForwardDisplay, 5> kGFMCPDisplays = {{{3, 3}, {5, 3}, {7, 3}, {9, 6}, {11, 6}}};
constexpr std::array<ForwardDisplay, 6> kGFMCPProDisplays = {
    {{3, 3}, {5, 5}, {7, 5}, {9, 5}, {11, 5}, {13, 3}}};

template <std::size_t N>
std::size_t EncodeForwardDisplay(std::span<std::uint8_t> out, const std::array<ForwardDisplay, N>& displays,
                                 int display, SevenSegmentFont font, const char* text) {
  if (display < 1 || static_cast<std::size_t>(display) > N) return 0;
  const ForwardDisplay& target = displays[static_cast<std::size_t>(display) - 1];
  const std::size_t length = 1 + std::size_t{target.digits};
  if (!BeginReport(out, length, target.reportId)) return 0;
  EncodeText<std::uint8_t>(text, out.data() + 1, target.digits, kSevenSegmentDot,
                           [font](char c) { return SevenSegmentCode(font, c); });
  return length;
}

// GF-WCP colours: each channel is off, the brightness's intensity, or (colour 6's blue) the
// constant 1.
enum class Channel : std::uint8_t { Off, Lit, One };
struct ColourChannels {
  Channel red;
  Channel green;
  Channel blue;
};
constexpr std::array<ColourChannels, kGFWCPColourCount> kGFWCPColours = {{
    {Channel::Off, Channel::Off, Channel::Off},
    {Channel::Lit, Channel::Lit, Channel::Lit},
    {Channel::Lit, Channel::Off, Channel::Off},
    {Channel::Off, Channel::Lit, Channel::Off},
    {Channel::Off, Channel::Off, Channel::Lit},
    {Channel::Lit, Channel::Off, Channel::Lit},
    {Channel::Lit, Channel::Lit, Channel::One},
    {Channel::Off, Channel::Lit, Channel::Lit},
}};

std::uint8_t ChannelValue(Channel channel, std::uint8_t intensity) {
  switch (channel) {
    case Channel::Lit: return intensity;
    case Channel::One: return 1;
    case Channel::Off: break;
  }
  return 0;
}

constexpr std::size_t kGFDIOOutputCount = 4;

}  // namespace

// ---- brightness and indicator bytes ----------------------------------------------------------

std::size_t EncodeBrightness(std::span<std::uint8_t> out, std::uint8_t reportId, std::int32_t value) {
  if (!BeginReport(out, 2, reportId)) return 0;
  out[1] = static_cast<std::uint8_t>(value & 0x0F);
  return 2;
}

std::size_t EncodeIndicatorByte(std::span<std::uint8_t> out, std::uint8_t reportId, std::uint8_t mask) {
  if (!BeginReport(out, 2, reportId)) return 0;
  out[1] = mask;
  return 2;
}

std::size_t EncodeGFLGTIndicators(std::span<std::uint8_t> out, std::uint8_t mask) {
  return EncodeIndicatorByte(out, kGFSwitchPanelIndicatorReport, static_cast<std::uint8_t>(mask | 0x03));
}

std::size_t EncodeGFMCPProIndicators(std::span<std::uint8_t> out, std::uint32_t mask) {
  if (!BeginReport(out, 5, kGFMCPProIndicatorReport)) return 0;
  for (std::size_t i = 0; i < 4; ++i) out[1 + i] = static_cast<std::uint8_t>(mask >> (24 - 8 * i));
  return 5;
}

std::size_t EncodeGF166EncoderType(std::span<std::uint8_t> out, std::uint8_t first, std::uint8_t second) {
  const auto type = static_cast<std::uint8_t>((second & 3) << 2 | (first & 3));
  return EncodeIndicatorByte(out, kGF166EncoderTypeReport, type);
}

// ---- displays --------------------------------------------------------------------------------

std::size_t EncodeSixteenSegmentDisplay(std::span<std::uint8_t> out, const char* text) {
  const std::size_t length = 1 + 2 * kSixteenSegmentChars;
  if (!BeginReport(out, length, kSixteenSegmentReport)) return 0;
  std::array<std::uint16_t, kSixteenSegmentChars> codes{};
  EncodeText<std::uint16_t>(text, codes.data(), codes.size(), kSixteenSegmentDot, SixteenSegmentCode);
  for (std::size_t i = 0; i < codes.size(); ++i) {
    out[1 + 2 * i] = static_cast<std::uint8_t>(codes[i] & 0xFF);
    out[2 + 2 * i] = static_cast<std::uint8_t>(codes[i] >> 8);
  }
  return length;
}

std::size_t EncodeGF45Display2(std::span<std::uint8_t> out, const char* text) {
  return EncodeReversedDigits(out, kGF45Digits, text);
}

std::size_t EncodeGF46Display2(std::span<std::uint8_t> out, const char* text) {
  return EncodeReversedDigits(out, kGF46Digits, text);
}

std::size_t EncodeGF166Display(std::span<std::uint8_t> out, int display, const char* text) {
  return EncodeForwardDisplay(out, kGF166Displays, display, SevenSegmentFont::GF166, text);
}

std::size_t EncodeGFMCPDisplay(std::span<std::uint8_t> out, int display, const char* text) {
  return EncodeForwardDisplay(out, kGFMCPDisplays, display, SevenSegmentFont::GFMCP, text);
}

std::size_t EncodeGFMCPProDisplay(std::span<std::uint8_t> out, int display, const char* text) {
  return EncodeForwardDisplay(out, kGFMCPProDisplays, display, SevenSegmentFont::GFMCPPro, text);
}

std::size_t PadGFMCPProOutputReport(std::span<std::uint8_t> report, std::size_t length) {
  if (report.size() < kGFMCPProOutputReportLength) return 0;
  const std::size_t kept = std::min(length, kGFMCPProOutputReportLength);
  std::fill(report.begin() + static_cast<std::ptrdiff_t>(kept),
            report.begin() + static_cast<std::ptrdiff_t>(kGFMCPProOutputReportLength), kGFMCPProOutputPadding);
  return kGFMCPProOutputReportLength;
}

// ---- GF-WCP indicator colours ----------------------------------------------------------------

std::uint8_t GFWCPIntensity(std::uint16_t brightness) {
  // Single precision on purpose: it decides where the truncation lands (7 -> 46, 15 -> 100).
  const float intensity = static_cast<float>(brightness) / 15.0f * 100.0f;
  return static_cast<std::uint8_t>(static_cast<std::uint32_t>(intensity) & 0xFFu);
}

std::size_t EncodeGFWCPColour(std::span<std::uint8_t> out, std::uint8_t indicator, std::uint8_t colour,
                              std::uint16_t brightness) {
  if (!IsGFWCPIndicator(indicator) || colour >= kGFWCPColourCount) return 0;
  if (!BeginReport(out, 5, kGFWCPColourReport)) return 0;
  const ColourChannels& channels = kGFWCPColours[colour];
  const std::uint8_t intensity = GFWCPIntensity(brightness);
  out[1] = indicator;
  out[2] = ChannelValue(channels.red, intensity);
  out[3] = ChannelValue(channels.green, intensity);
  out[4] = ChannelValue(channels.blue, intensity);
  return 5;
}

// ---- GF-DIO outputs --------------------------------------------------------------------------

std::size_t EncodeGFDIOOutputs(std::span<std::uint8_t> out, std::size_t outputReportLength,
                               const std::array<std::uint8_t, 4>& outputs) {
  if (outputReportLength < 1 + kGFDIOOutputCount) return 0;
  if (!BeginReport(out, outputReportLength, kGFDIOOutputReport)) return 0;
  std::copy(outputs.begin(), outputs.end(), out.begin() + 1);
  return outputReportLength;
}

}  // namespace drav

#include "functions/AvionicDisplay.h"

#include <XPLMDataAccess.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <utility>

#include "base/Numbers.h"
#include "functions/CustomBindings.h"
#include "functions/DatarefBinding.h"
#include "functions/DisplayBrightness.h"
#include "functions/FunctionObjects.h"
#include "functions/FunctionState.h"

namespace drav {
namespace {

// A value that formats longer than the display's 9 characters (an absurd simulator value, never
// one an adjustment can reach) is cut to its first 9: each format writes a scratch line wide enough
// for any int and any float a dataref can hold, and only its head is copied into the 10-byte text.
constexpr std::size_t kScratchSize = 64;
using ScratchLine = char[kScratchSize];

void ShowText(AvionicFunction& function, const char* line) {
  const void* end = std::memchr(line, '\0', kAvionicTextSize - 1);
  const std::size_t length = end != nullptr ? static_cast<std::size_t>(static_cast<const char*>(end) - line)
                                            : static_cast<std::size_t>(kAvionicTextSize - 1);
  std::memcpy(function.text, line, length);
  function.text[length] = '\0';
}

constexpr double kHectopascalsPerInchOfMercury = 33.8653;
// 10 << 27 is the last map range that fits an int; a selector outside 0..27 has no range to show.
constexpr std::int32_t kLargestRangeShift = 27;

// The display's integer: truncated toward zero like a C cast, but defined for every float. NaN
// shows as 0 and values beyond the int range saturate, so a broken dataref shows a cut row of
// digits instead of undefined behaviour.
std::int32_t TruncatedValue(double value) {
  if (std::isnan(value)) return 0;
  if (value >= 2147483648.0) return std::numeric_limits<std::int32_t>::max();
  if (value <= -2147483648.0) return std::numeric_limits<std::int32_t>::min();
  return static_cast<std::int32_t>(value);
}

// A missing handle counts as "inches", the simulator's own unit.
bool MetricPressureSelected() {
  const XPLMDataRef metricPress = CurrentFunctionState().metricPress;
  return metricPress != nullptr && XPLMGetDatai(metricPress) != 0;
}

// ---- value to text ------------------------------------------------------------------------------

void FormatSelector(AvionicFunction& function, float value) {
  ScratchLine line;
  std::snprintf(line, sizeof line, " %d", TruncatedValue(value));
  ShowText(function, line);
}

void FormatThreeDigits(AvionicFunction& function, float value) {
  ScratchLine line;
  std::snprintf(line, sizeof line, " %03d", TruncatedValue(value));
  ShowText(function, line);
}

void FormatFourDigits(AvionicFunction& function, float value) {
  ScratchLine line;
  std::snprintf(line, sizeof line, "%04d", TruncatedValue(value));
  ShowText(function, line);
}

// Five characters with the sign: -1500 shows as -1500, 5000 as 05000.
void FormatFiveDigits(AvionicFunction& function, float value) {
  ScratchLine line;
  std::snprintf(line, sizeof line, "%05d", TruncatedValue(value));
  ShowText(function, line);
}

// Radio frequencies are held in units of 10 kHz: 11850 is 118.50 MHz.
void FormatFrequency(AvionicFunction& function, float value) {
  const std::int32_t v = TruncatedValue(value);
  ScratchLine line;
  std::snprintf(line, sizeof line, "%03d.%02d", v / 100, v % 100);
  ShowText(function, line);
}

// The autopilot speed is knots, or a Mach number while the companion dataref says so.
void FormatSpeed(AvionicFunction& function, float value) {
  ScratchLine line;
  if (ReadBinding(function.auxBinding) == 1) {
    char number[kScratchSize - 2];
    std::snprintf(line, sizeof line, "  %s", FormatFixed(number, sizeof number, value, 1, 2));
  } else {
    std::snprintf(line, sizeof line, "  %03d", TruncatedValue(value));
  }
  ShowText(function, line);
}

// A ratio 0.0..1.0 shows as 0..10, rounded half up (the product in float, as the ratio is).
void FormatRatio(AvionicFunction& function, float value) {
  ScratchLine line;
  std::snprintf(line, sizeof line, "%d", TruncatedValue(0.5 + 10 * value));
  ShowText(function, line);
}

// Selector position n is the range 10 << n nautical miles.
void FormatMapRange(AvionicFunction& function, float value) {
  const std::int32_t shift = TruncatedValue(value);
  if (shift < 0 || shift > kLargestRangeShift) {
    function.text[0] = '\0';
    return;
  }
  ScratchLine line;
  std::snprintf(line, sizeof line, "%d", 10 << shift);
  ShowText(function, line);
}

// The simulator keeps inches of mercury; hectopascals are shown only, never stored.
void FormatAltimeter(AvionicFunction& function, float value) {
  const double inches = value;
  char number[kScratchSize - 1];
  if (MetricPressureSelected()) {
    FormatFixed(number, sizeof number, inches * kHectopascalsPerInchOfMercury, 4, 0);
  } else {
    FormatFixed(number, sizeof number, inches, 2, 2);
  }
  ScratchLine line;
  std::snprintf(line, sizeof line, " %s", number);
  ShowText(function, line);
}

// The value is the panels' brightness, not a dataref: ask a connected panel first.
void FormatBrightness(AvionicFunction& function, float /*value*/) {
  RefreshDisplayBrightnessLevel();
  ScratchLine line;
  std::snprintf(line, sizeof line, "  %2d", GetDisplayBrightnessLevel());
  ShowText(function, line);
}

// ---- text to value ------------------------------------------------------------------------------

// The text's leading decimal integer, blanks skipped; 0 when it has none, saturated when too long.
long LeadingInteger(const char* text) { return std::strtol(text, nullptr, 10); }

double LeadingNumber(const char* text) { return ParseLeadingReal(text); }

void ApplyInteger(AvionicFunction& function, const char* text) {
  SetAvionicValue(function, static_cast<float>(LeadingInteger(text)));
}

// "118.50": the megahertz before the point, the two digits from the fifth character on.
void ApplyFrequency(AvionicFunction& function, const char* text) {
  const char* hundredths = std::strlen(text) > 4 ? text + 4 : "";
  const double megahertz = static_cast<double>(LeadingInteger(text));
  SetAvionicValue(function, static_cast<float>(megahertz * 100.0 + static_cast<double>(LeadingInteger(hundredths))));
}

// Speed and altimeter texts are written back as shown. An altimeter text in hectopascals would be
// taken as inches: a caller that applies one must convert it first (today none does).
void ApplyNumber(AvionicFunction& function, const char* text) {
  SetAvionicValue(function, static_cast<float>(LeadingNumber(text)));
}

void ApplyRatio(AvionicFunction& function, const char* text) {
  SetAvionicValue(function, static_cast<float>(static_cast<double>(LeadingInteger(text)) / 10.0));
}

// The inverse of 10 << n for the ranges a selector has: 80 gives 3, 10 gives 0.
void ApplyMapRange(AvionicFunction& function, const char* text) {
  long n = LeadingInteger(text) / 10;
  std::int32_t shift = 0;
  while (n > 1) {
    ++shift;
    n >>= 1;
  }
  SetAvionicValue(function, static_cast<float>(shift));
}

void ApplyBrightness(AvionicFunction& /*function*/, const char* /*text*/) { SendDisplayBrightnessLevel(); }

// ---- the formats --------------------------------------------------------------------------------

struct DisplayFormat {
  void (*format)(AvionicFunction& function, float value);
  void (*apply)(AvionicFunction& function, const char* text);
};

// Indexed by the function's format number; a number outside the table means "no text".
constexpr std::array<DisplayFormat, 10> kFormats = {{
    {FormatSelector, ApplyInteger},      // 0 selectors
    {FormatThreeDigits, ApplyInteger},   // 1 ADF, courses, headings, fuel selectors
    {FormatFourDigits, ApplyInteger},    // 2 transponder, decision height
    {FormatFiveDigits, ApplyInteger},    // 3 autopilot altitude, vertical speed
    {FormatFrequency, ApplyFrequency},   // 4 COM, NAV, DME
    {FormatSpeed, ApplyNumber},          // 5 autopilot speed
    {FormatRatio, ApplyRatio},           // 6 lighting ratios
    {FormatMapRange, ApplyMapRange},     // 7 map range selector
    {FormatAltimeter, ApplyNumber},      // 8 altimeter
    {FormatBrightness, ApplyBrightness}, // 9 panel display brightness
}};

const DisplayFormat* FormatOf(const AvionicFunction& function) {
  if (function.format < 0 || function.format >= static_cast<std::int32_t>(kFormats.size())) return nullptr;
  return &kFormats[static_cast<std::size_t>(function.format)];
}

}  // namespace

void FormatAvionicDisplay(AvionicFunction& function) {
  if (function.custom != nullptr) {
    FormatCustomValue(function);
    return;
  }
  const DisplayFormat* format = FormatOf(function);
  if (format == nullptr) return;
  format->format(function, GetAvionicValue(function));
}

void ApplyAvionicDisplay(AvionicFunction& function) {
  if (function.custom != nullptr) return;  // its text is only ever shown, never typed back
  const DisplayFormat* format = FormatOf(function);
  if (format == nullptr) return;
  // The text may have been exchanged or written by others: parse a copy that is surely terminated.
  char text[kAvionicTextSize];
  std::memcpy(text, function.text, sizeof text);
  text[kAvionicTextSize - 1] = '\0';
  format->apply(function, text);
}

void SwapAvionicDisplays(AvionicFunction& a, AvionicFunction& b) {
  std::swap(a.text, b.text);
  ApplyAvionicDisplay(a);
  ApplyAvionicDisplay(b);
}

}  // namespace drav

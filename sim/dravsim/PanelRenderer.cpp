#include "dravsim/PanelRenderer.h"

#include <array>
#include <cctype>

namespace dravsim {
namespace {

// Segment bits of a seven-segment glyph: a (top), b (top right), c (bottom right), d (bottom),
// e (bottom left), f (top left), g (middle).
enum Segment : std::uint8_t { A = 1, B = 2, C = 4, D = 8, E = 16, F = 32, G = 64 };

struct Glyph {
  char character;
  std::uint8_t segments;
};

// The characters the panels' seven-segment fonts can show.
constexpr std::array kGlyphs = std::to_array<Glyph>({
    {'0', A | B | C | D | E | F}, {'1', B | C}, {'2', A | B | G | E | D}, {'3', A | B | G | C | D},
    {'4', F | G | B | C}, {'5', A | F | G | C | D}, {'6', A | F | G | E | C | D}, {'7', A | B | C},
    {'8', A | B | C | D | E | F | G}, {'9', A | B | C | D | F | G}, {'-', G}, {' ', 0}, {'_', D},
    {'A', A | B | C | E | F | G}, {'B', C | D | E | F | G}, {'C', A | D | E | F}, {'D', B | C | D | E | G},
    {'E', A | D | E | F | G}, {'F', A | E | F | G}, {'H', B | C | E | F | G}, {'L', D | E | F},
    {'N', C | E | G}, {'O', C | D | E | G}, {'P', A | B | E | F | G}, {'R', E | G}, {'S', A | F | G | C | D},
    {'T', D | E | F | G}, {'U', B | C | D | E | F}, {'Y', B | C | D | F | G},
});

std::optional<std::uint8_t> SegmentsOf(char character) {
  const char upper = static_cast<char>(std::toupper(static_cast<unsigned char>(character)));
  for (const Glyph& glyph : kGlyphs) {
    if (glyph.character == upper) return glyph.segments;
  }
  return std::nullopt;
}

constexpr std::string_view kReset = "\x1b[0m";
constexpr std::string_view kDigitColour = "\x1b[91m";  // the red of the panels' LED digits
constexpr std::string_view kLitColour = "\x1b[92m";
constexpr std::string_view kDarkColour = "\x1b[90m";

std::string Coloured(std::string_view colour, std::string_view text, bool enabled) {
  if (!enabled) return std::string(text);
  return std::string(colour) + std::string(text) + std::string(kReset);
}

// How many lights each model's mask drives, for drawing; the rest of the mask stays unshown.
int LightCount(const PanelUnit& unit) {
  for (const OutputReportRow& row : OutputReportsOf(unit.model->name)) {
    if (row.role == OutputRole::Leds) return 8 * row.digits;
  }
  return 0;
}

std::string Header(const PanelUnit& unit, std::optional<std::int32_t> slot) {
  std::string text = unit.name + " (" + (unit.model ? unit.model->name : "not a panel") + ")";
  if (unit.model) text += slot ? ", unit " + std::to_string(*slot) : ", not open";
  return text + "\n";
}

bool IsSevenSegment(const PanelUnit& unit, int display) {
  const OutputReportRow* row = FindDisplayRow(unit.model->name, display);
  return row != nullptr && row->coding != DisplayCoding::SixteenSegment;
}

std::string Displays(const PanelUnit& unit, const PanelOutputView& view, bool colour) {
  std::string text;
  for (std::size_t i = 0; i < view.displays.size(); ++i) {
    const auto& shown = view.displays[i];
    text += "  display " + std::to_string(i + 1) + ": " + (shown ? "[" + *shown + "]" : "(dark)") + "\n";
    const bool blank = !shown || shown->find_first_not_of(' ') == std::string::npos;
    if (blank || !IsSevenSegment(unit, static_cast<int>(i + 1))) continue;
    for (const std::string& row : RenderSevenSegmentRows(*shown)) {
      text += "      " + Coloured(kDigitColour, row, colour) + "\n";
    }
  }
  return text;
}

std::string ColouredLights(std::uint32_t mask, int count) {
  std::string lights;
  for (int i = 0; i < count && i < 32; ++i) {
    lights += (mask >> i) & 1u ? Coloured(kLitColour, "\u25CF", true) : Coloured(kDarkColour, "\u25CB", true);
  }
  return lights;
}

// A GF-WCP intensity runs 0..100; the swatch shows it at full terminal range.
int TerminalLevel(int intensity) { return intensity <= 0 ? 0 : intensity >= 100 ? 255 : intensity * 255 / 100; }

std::string Colours(const PanelOutputView& view, bool colour) {
  std::string text;
  for (std::size_t i = 0; i < view.colours.size(); ++i) {
    const auto& c = view.colours[i];
    if (!c) continue;
    text += "  light " + std::to_string(i + 1) + ": rgb " + std::to_string(c->red) + " " +
            std::to_string(c->green) + " " + std::to_string(c->blue);
    if (colour) {
      text += "  \x1b[38;2;" + std::to_string(TerminalLevel(c->red)) + ";" + std::to_string(TerminalLevel(c->green)) +
              ";" + std::to_string(TerminalLevel(c->blue)) + "m\u2588\u2588" + std::string(kReset);
    }
    text += "\n";
  }
  return text;
}

}  // namespace

std::array<std::string, 3> RenderSevenSegmentRows(std::string_view text) {
  std::array<std::string, 3> rows;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '.') {
      // A point with no character before it stands alone.
      if (i == 0 || text[i - 1] == '.') rows[0] += "    ", rows[1] += "    ", rows[2] += "   .";
      continue;
    }
    const bool point = i + 1 < text.size() && text[i + 1] == '.';
    const auto segments = SegmentsOf(text[i]);
    if (!segments) {
      rows[0] += "    ";
      rows[1] += std::string(" ") + text[i] + "  ";
      rows[2] += point ? "   ." : "    ";
      continue;
    }
    const auto lit = [&](std::uint8_t segment, char on) { return (*segments & segment) != 0 ? on : ' '; };
    rows[0] += std::string{' ', lit(A, '_'), ' ', ' '};
    rows[1] += std::string{lit(F, '|'), lit(G, '_'), lit(B, '|'), ' '};
    rows[2] += std::string{lit(E, '|'), lit(D, '_'), lit(C, '|'), point ? '.' : ' '};
  }
  return rows;
}

std::string RenderLights(std::uint32_t mask, int count) {
  std::string lights;
  for (int i = 0; i < count && i < 32; ++i) lights += (mask >> i) & 1u ? '*' : '.';
  return lights;
}

std::string RenderUnit(const PanelUnit& unit, const PanelOutputView& view, std::optional<std::int32_t> slot,
                       bool colour) {
  std::string text = Header(unit, slot);
  if (unit.model == nullptr) return text;
  text += Displays(unit, view, colour);
  if (view.leds) {
    const int count = LightCount(unit);
    text += "  lights: " + (colour ? ColouredLights(*view.leds, count) : RenderLights(*view.leds, count)) + "\n";
  }
  if (view.brightness) text += "  brightness: " + std::to_string(*view.brightness) + "\n";
  text += Colours(view, colour);
  return text;
}

}  // namespace dravsim

// `show`: a unit's displays and lights drawn for the terminal. Seven-segment displays are drawn
// as seven-segment digits under their text; lights as '*' and '.', or as coloured dots when the
// terminal takes colour.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "dravsim/PanelBoard.h"
#include "dravsim/PanelOutputs.h"

namespace dravsim {

// Several lines, each ending in '\n': the unit's name, model and slot, then each display (its text
// in brackets, and for seven-segment displays three lines of digits), the lights, the brightness
// and the colours it has been sent.
std::string RenderUnit(const PanelUnit& unit, const PanelOutputView& view,
                       std::optional<std::int32_t> slot, bool colour = false);

// Lights as '*' (lit) and '.' (dark), light 1 first.
std::string RenderLights(std::uint32_t mask, int count);

// The three text rows of a seven-segment display showing `text` (a '.' lights the decimal point of
// the character before it). Each character takes four columns; characters that have no seven-
// segment form are drawn as themselves in the middle row.
std::array<std::string, 3> RenderSevenSegmentRows(std::string_view text);

}  // namespace dravsim

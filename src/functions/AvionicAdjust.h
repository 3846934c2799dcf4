// Encoder detents applied to an avionic function: radio frequencies, transponder codes, courses,
// autopilot targets, the altimeter, brightness levels, selectors and trims.
#pragma once

#include <cstdint>

namespace drav {

struct AvionicFunction;

// Applies the detents of the outer (large) and inner (small) knob, positive clockwise, to the
// function's simulator value, writes it back and re-formats the display text (not for
// DISP_BRIGHTNESS, whose value is the panels' brightness). Modules with one knob per function pass
// their count as innerSteps and 0 as outerSteps. moduleType is the calling module's ModuleType;
// the GF-45, GF-46, GF-166, GF-RP48 and GF-EFIS get knob layouts of their own. The counts are
// taken as 32-bit so that a caller's accumulated count is never narrowed; absurd counts saturate.
// A null function, or an id without an adjustment, changes nothing.
void AdjustAvionicFunction(AvionicFunction* function, std::int32_t outerSteps, std::int32_t innerSteps,
                           std::uint32_t moduleType);

// A transponder code held as four decimal digits d3 d2 d1 d0 (each 0..7) as two octal pairs:
// (d3 x 8 + d2) x 100 + (d1 x 8 + d0), each pair 0..63, so that one knob steps a pair in order.
std::int32_t TransponderToPairs(std::int32_t code);
// The inverse: pairs hi x 100 + lo back to the four-digit code.
std::int32_t PairsToTransponder(std::int32_t pairs);

}  // namespace drav

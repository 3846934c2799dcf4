// Digit-field arithmetic of the encoder functions: a group of decimal digits inside a value (the
// MHz of a frequency, one octal transponder digit, the hundreds of a decision height) is turned like
// one number of its own, wrapping or stopping at its limits, while the digits around it stay put.
#pragma once

#include <cstdint>

namespace drav {

// One group of digits and how a knob moves it: `width` digits starting `position` digits from the
// right (both 0..7), limits min..max, `stepSize` per detent, wrapping or clamped at the limits.
struct DigitField {
  std::int32_t position = 0;
  std::int32_t width = 0;
  std::int32_t min = 0;
  std::int32_t max = 0;
  std::int32_t stepSize = 1;
  bool wrap = false;
};

// The largest position and width a field may have: 10^7 x 10^7 still fits the 64-bit arithmetic.
inline constexpr std::int32_t kMaxFieldDigits = 7;

// Changes only the field of `value` by steps x stepSize and returns the new value. Division
// truncates toward zero, so a negative value (vertical speed) is a signed field. A wrapped field is
// corrected at most once in each direction. A position or width outside 0..7 leaves the value as
// it is; a result beyond the 32-bit range saturates at its end.
std::int32_t AdjustDigitField(std::int32_t value, std::int32_t position, std::int32_t width, std::int32_t min,
                              std::int32_t max, bool wrap, std::int32_t steps, std::int32_t stepSize);

inline std::int32_t AdjustField(std::int32_t value, const DigitField& field, std::int32_t steps) {
  return AdjustDigitField(value, field.position, field.width, field.min, field.max, field.wrap, steps,
                          field.stepSize);
}

// The saturating conversions that keep the arithmetic free of overflow: a 64-bit value limited to
// the 32-bit range, and a float truncated toward zero (NaN reads as 0, out-of-range values stop at
// the ends of the range instead of being undefined).
std::int32_t SaturateToInt32(std::int64_t value);
std::int32_t TruncateToInt32(float value);

}  // namespace drav

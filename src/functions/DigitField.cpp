#include "functions/DigitField.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace drav {
namespace {

constexpr std::int64_t kInt32Min = std::numeric_limits<std::int32_t>::min();
constexpr std::int64_t kInt32Max = std::numeric_limits<std::int32_t>::max();

// For the whole result to fit 32 bits the field, times its place value, must be within +-2^32.
// Limiting the field to +-2^33 therefore never changes a result that fits, and keeps
// field x 10^7 far inside 64 bits whatever step count a caller passes.
constexpr std::int64_t kFieldLimit = std::int64_t{1} << 33;

constexpr std::int64_t PowerOfTen(std::int32_t exponent) {
  std::int64_t result = 1;
  for (std::int32_t i = 0; i < exponent; ++i) result *= 10;
  return result;
}

bool IsValidDigitCount(std::int32_t digits) { return digits >= 0 && digits <= kMaxFieldDigits; }

// One correction at most in each direction: a count so large that one period is not enough leaves
// the field out of range rather than looping.
std::int64_t WrapOnce(std::int64_t field, std::int64_t min, std::int64_t max, std::int64_t stepSize) {
  const std::int64_t period = max - min + stepSize;
  if (field > max) field -= period;
  if (field < min) field += period;
  return field;
}

}  // namespace

std::int32_t SaturateToInt32(std::int64_t value) {
  return static_cast<std::int32_t>(std::clamp(value, kInt32Min, kInt32Max));
}

std::int32_t TruncateToInt32(float value) {
  if (std::isnan(value)) return 0;
  // 2^31 is exactly representable as a float; anything at or beyond it would be undefined to cast.
  if (value >= 2147483648.0f) return std::numeric_limits<std::int32_t>::max();
  if (value <= -2147483648.0f) return std::numeric_limits<std::int32_t>::min();
  return static_cast<std::int32_t>(value);
}

std::int32_t AdjustDigitField(std::int32_t value, std::int32_t position, std::int32_t width, std::int32_t min,
                              std::int32_t max, bool wrap, std::int32_t steps, std::int32_t stepSize) {
  if (!IsValidDigitCount(position) || !IsValidDigitCount(width)) return value;
  const std::int64_t p = PowerOfTen(position);
  const std::int64_t w = PowerOfTen(width);

  // 64-bit throughout: C++ division truncates toward zero and the remainder takes the dividend's
  // sign, which is what makes a negative value a signed field.
  const std::int64_t below = value % p;
  const std::int64_t rest = value / p;
  const std::int64_t above = rest / w;
  std::int64_t field = rest % w;

  field += static_cast<std::int64_t>(steps) * stepSize;  // |steps x stepSize| <= 2^62
  // std::clamp needs lo <= hi; inverted limits (no caller has them) pin the field at min.
  field = wrap ? WrapOnce(field, min, max, stepSize) : std::clamp<std::int64_t>(field, min, std::max(min, max));
  field = std::clamp(field, -kFieldLimit, kFieldLimit);

  return SaturateToInt32(field * p + below + above * w * p);
}

}  // namespace drav

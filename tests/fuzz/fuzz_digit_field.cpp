// AdjustDigitField on any numbers: no overflow (UndefinedBehaviorSanitizer watches the arithmetic),
// a field outside 0..7 digits leaves the value alone, and for a proper field (non-negative value,
// limits inside the field's digits) the digits below the field stay as they were, and a clamped
// field ends inside its limits with the digits above it untouched too.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstdint>

#include "FuzzCheck.h"
#include "functions/DigitField.h"

namespace {

std::int64_t PowerOfTen(std::int32_t exponent) {
  std::int64_t result = 1;
  for (std::int32_t i = 0; i < exponent; ++i) result *= 10;
  return result;
}

bool IsDigitCount(std::int32_t digits) { return digits >= 0 && digits <= drav::kMaxFieldDigits; }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  const auto value = input.ConsumeIntegral<std::int32_t>();
  const auto position = input.ConsumeIntegralInRange<std::int32_t>(-2, 9);
  const auto width = input.ConsumeIntegralInRange<std::int32_t>(-2, 9);
  const auto min = input.ConsumeIntegral<std::int32_t>();
  const auto max = input.ConsumeIntegral<std::int32_t>();
  const bool wrap = input.ConsumeBool();
  const auto steps = input.ConsumeIntegral<std::int32_t>();
  const auto stepSize = input.ConsumeIntegral<std::int32_t>();

  const std::int32_t result = drav::AdjustDigitField(value, position, width, min, max, wrap, steps, stepSize);
  if (!IsDigitCount(position) || !IsDigitCount(width)) {
    DRAV_FUZZ_CHECK(result == value);
    return 0;
  }
  const std::int64_t place = PowerOfTen(position);
  const std::int64_t span = PowerOfTen(width);
  const bool properField = value >= 0 && min >= 0 && min <= max && max < span && stepSize > 0;
  if (!properField) return 0;
  const std::int64_t field = static_cast<std::int64_t>(result) / place % span;
  const bool saturated = result == INT32_MAX || result == INT32_MIN;
  if (saturated || result < 0) return 0;
  // The digits below the field are untouched.
  DRAV_FUZZ_CHECK(result % place == value % place);
  // A wrap is corrected once in each direction, and by max - min + stepSize: with a step that does
  // not divide the range, or a turn of more than one period, the field may end outside its limits
  // and carry (by design; encoders turn a few detents per report). A clamped field cannot.
  if (wrap) return 0;
  DRAV_FUZZ_CHECK(field >= min && field <= max);
  const std::int64_t aboveBefore = static_cast<std::int64_t>(value) / place / span;
  DRAV_FUZZ_CHECK(static_cast<std::int64_t>(result) / place / span == aboveBefore);
  return 0;
}

// The digit-field arithmetic of the encoder functions, and the octal pair form of transponder codes.
// Every expected value below is worked out by hand from the field rules, not from the code.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <ostream>

#include "functions/AvionicAdjust.h"
#include "functions/DigitField.h"

namespace drav {
namespace {

constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();

struct FieldCase {
  const char* name;
  std::int32_t value;
  std::int32_t position;
  std::int32_t width;
  std::int32_t min;
  std::int32_t max;
  bool wrap;
  std::int32_t steps;
  std::int32_t stepSize;
  std::int32_t expected;
};

void PrintTo(const FieldCase& c, std::ostream* out) { *out << c.name; }

class AdjustDigitFieldTest : public ::testing::TestWithParam<FieldCase> {};

TEST_P(AdjustDigitFieldTest, ChangesOnlyTheField) {
  const FieldCase& c = GetParam();
  EXPECT_EQ(AdjustDigitField(c.value, c.position, c.width, c.min, c.max, c.wrap, c.steps, c.stepSize), c.expected);
  const DigitField field{c.position, c.width, c.min, c.max, c.stepSize, c.wrap};
  EXPECT_EQ(AdjustField(c.value, field, c.steps), c.expected) << "the field record passes the same arguments";
}

INSTANTIATE_TEST_SUITE_P(
    Fields, AdjustDigitFieldTest,
    ::testing::Values(
        // kHz of a COM frequency held in kHz: 25 kHz steps, wrapping without carrying into the MHz
        FieldCase{"KilohertzStepsUp", 118500, 0, 3, 0, 975, true, 1, 25, 118525},
        FieldCase{"KilohertzWrapsUpWithoutCarry", 136975, 0, 3, 0, 975, true, 1, 25, 136000},
        FieldCase{"KilohertzWrapsDownWithoutBorrow", 118000, 0, 3, 0, 975, true, -1, 25, 118975},
        FieldCase{"SeveralDetentsAtOnce", 121500, 0, 3, 0, 975, true, 3, 25, 121575},
        // MHz above the kHz: the digits below stay
        FieldCase{"MegahertzStepsUp", 118525, 3, 3, 118, 136, true, 1, 1, 119525},
        FieldCase{"MegahertzWrapsToBottom", 136500, 3, 3, 118, 136, true, 1, 1, 118500},
        FieldCase{"MegahertzWrapsToTop", 118500, 3, 3, 118, 136, true, -1, 1, 136500},
        // one digit in the middle keeps the digits on both sides
        FieldCase{"HundredsDigitKeepsThousands", 1999, 2, 1, 2, 9, true, 1, 1, 1299},
        FieldCase{"LastDigitKeepsTheRest", 1277, 0, 1, 0, 7, true, 1, 1, 1270},
        // clamped fields stop at their limits
        FieldCase{"ClampsAtMax", 300, 0, 3, 1, 360, false, 1, 100, 360},
        FieldCase{"ClampsAtMin", 5, 0, 3, 1, 360, false, -1, 100, 1},
        // negative values are signed fields (division toward zero, remainder with the dividend's sign)
        FieldCase{"NegativeClampsAtMin", -9900, 0, 4, -9900, 9900, false, -1, 100, -9900},
        FieldCase{"NegativeStepsTowardZero", -1500, 0, 4, -9900, 9900, false, 1, 100, -1400},
        FieldCase{"NegativeCrossesZero", -50, 0, 4, -9900, 9900, false, 1, 100, 50},
        // -12345: below -45, field -23, above -1; -22 wraps to 78: 7800 - 45 - 10000
        FieldCase{"NegativeValueInnerField", -12345, 2, 2, 0, 99, true, 1, 1, -2245},
        // the correction is made once: a count worth two periods leaves the field out of range
        FieldCase{"WrapsAtMostOnceUp", 121500, 0, 3, 0, 975, true, 80, 25, 122500},
        FieldCase{"WrapsAtMostOnceDown", 121000, 0, 3, 0, 975, true, -80, 25, 120000},
        // no detents still brings an out-of-range field back in
        FieldCase{"NoStepsWrapsOutOfRangeField", 100000, 3, 3, 118, 136, true, 0, 1, 119000},
        FieldCase{"NoStepsClampsOutOfRangeField", 0, 0, 3, 1, 360, false, 0, 1, 1},
        // the extreme field shapes
        FieldCase{"ZeroWidthFieldIsAlwaysZero", 123, 0, 0, 0, 0, false, 5, 1, 123},
        FieldCase{"WidestFieldAtHighestPosition", 5, 7, 7, 0, 9999999, false, 1, 1, 10000005},
        FieldCase{"PositionBeyondSevenLeavesValue", 12345, 8, 1, 0, 9, true, 1, 1, 12345},
        FieldCase{"NegativeWidthLeavesValue", 12345, 0, -1, 0, 9, true, 1, 1, 12345},
        // absurd counts and values saturate instead of overflowing
        FieldCase{"ClampedFieldTakesAbsurdCount", 5000, 0, 5, 0, 99990, false, kMax, 100, 99990},
        FieldCase{"ClampedFieldTakesAbsurdNegativeCount", 5000, 0, 5, 0, 99990, false, kMin, 100, 0},
        FieldCase{"WrappedFieldSaturatesUp", 121500, 0, 3, 0, 975, true, kMax, 25, kMax},
        FieldCase{"WrappedFieldSaturatesDown", 121500, 0, 3, 0, 975, true, kMin, 25, kMin},
        // 214748364 x 10 + 8 is one past the 32-bit range
        FieldCase{"ResultPastInt32MaxSaturates", kMax, 0, 1, 0, 9, true, 1, 1, kMax},
        // field -8 of INT32_MIN steps to -9, wraps to 1: -2147483640 + 1
        FieldCase{"Int32MinValue", kMin, 0, 1, 0, 9, true, -1, 1, -2147483639}),
    [](const ::testing::TestParamInfo<FieldCase>& info) { return std::string(info.param.name); });

TEST(SaturatingConversionTest, LimitsWideIntegersToInt32) {
  EXPECT_EQ(SaturateToInt32(5), 5);
  EXPECT_EQ(SaturateToInt32(-5), -5);
  EXPECT_EQ(SaturateToInt32(std::int64_t{1} << 40), kMax);
  EXPECT_EQ(SaturateToInt32(-(std::int64_t{1} << 40)), kMin);
  EXPECT_EQ(SaturateToInt32(std::int64_t{kMax} + 1), kMax);
  EXPECT_EQ(SaturateToInt32(std::int64_t{kMin} - 1), kMin);
}

TEST(SaturatingConversionTest, TruncatesFloatsTowardZeroWithoutUndefinedCasts) {
  EXPECT_EQ(TruncateToInt32(2.9f), 2);
  EXPECT_EQ(TruncateToInt32(-2.9f), -2);
  EXPECT_EQ(TruncateToInt32(std::nanf("")), 0);
  EXPECT_EQ(TruncateToInt32(1e10f), kMax);
  EXPECT_EQ(TruncateToInt32(-1e10f), kMin);
  EXPECT_EQ(TruncateToInt32(std::numeric_limits<float>::infinity()), kMax);
  EXPECT_EQ(TruncateToInt32(-std::numeric_limits<float>::infinity()), kMin);
  EXPECT_EQ(TruncateToInt32(-2147483648.0f), kMin);
}

// ---- transponder pairs -------------------------------------------------------------------------

struct PairCase {
  std::int32_t code;
  std::int32_t pairs;
};

class TransponderPairsTest : public ::testing::TestWithParam<PairCase> {};

TEST_P(TransponderPairsTest, ConvertsBothWays) {
  EXPECT_EQ(TransponderToPairs(GetParam().code), GetParam().pairs);
  EXPECT_EQ(PairsToTransponder(GetParam().pairs), GetParam().code);
}

INSTANTIATE_TEST_SUITE_P(Codes, TransponderPairsTest,
                         ::testing::Values(PairCase{0, 0}, PairCase{7777, 6363}, PairCase{1200, 1000},
                                           PairCase{7700, 6300}, PairCase{1234, 1028}, PairCase{17, 15},
                                           PairCase{1100, 900}, PairCase{7000, 5600}));

TEST(TransponderPairsRoundTripTest, EveryOctalCodeRoundTripsThroughPairsOfAtMost63) {
  for (std::int32_t d3 = 0; d3 < 8; ++d3) {
    for (std::int32_t d2 = 0; d2 < 8; ++d2) {
      for (std::int32_t d1 = 0; d1 < 8; ++d1) {
        for (std::int32_t d0 = 0; d0 < 8; ++d0) {
          const std::int32_t code = d3 * 1000 + d2 * 100 + d1 * 10 + d0;
          const std::int32_t pairs = TransponderToPairs(code);
          ASSERT_EQ(pairs / 100, d3 * 8 + d2) << code;
          ASSERT_EQ(pairs % 100, d1 * 8 + d0) << code;
          ASSERT_EQ(PairsToTransponder(pairs), code) << code;
        }
      }
    }
  }
}

TEST(TransponderPairsRoundTripTest, AbsurdValuesSaturate) {
  // 21474836 / 8 x 1000 + 4 x 100 + 5 x 10 + 7 = 2684354457, past the 32-bit range
  EXPECT_EQ(PairsToTransponder(kMax), kMax);
  EXPECT_EQ(PairsToTransponder(kMin), kMin);
  // (2147483 x 8 + 6) x 100 + (4 x 8 + 7) still fits
  EXPECT_EQ(TransponderToPairs(kMax), 1717987039);
}

}  // namespace
}  // namespace drav

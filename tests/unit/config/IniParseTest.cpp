// Numbers from INI values: the leading decimal text, 0 when there is none.
#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <utility>

#include "base/IniFile.h"

namespace {

std::string Shown(const char* text) { return text == nullptr ? "(null)" : '"' + std::string(text) + '"'; }

TEST(IniParseTest, IntegerTakesTheLeadingDecimalTextLikeAtoi) {
  const std::pair<const char*, int> cases[] = {
      {"12abc", 12}, {"abc", 0}, {"-1", -1}, {" 7", 7}, {"\t+5", 5}, {"3.9", 3}, {"0x10", 0}, {"", 0}, {"-", 0},
      {"+-3", 0}, {nullptr, 0},
      // out of range: clamped instead of overflowing
      {"99999999999999999999", INT_MAX}, {"-99999999999999999999", INT_MIN}, {"2147483647", INT_MAX},
      {"-2147483648", INT_MIN}};
  for (const auto& [text, value] : cases) EXPECT_EQ(drav::ParseIniInt(text), value) << Shown(text);
}

TEST(IniParseTest, RealTakesTheLeadingDecimalText) {
  const std::pair<const char*, float> cases[] = {{"0.005", 0.005f}, {" -2.25xyz", -2.25f}, {".5", 0.5f},
                                                 {"+1e3", 1000.0f}, {"7", 7.0f},
                                                 {"1,5", 1.0f}};  // never the locale's decimal comma
  for (const auto& [text, value] : cases) EXPECT_FLOAT_EQ(drav::ParseIniReal(text), value) << Shown(text);
  // No number at all reads as 0; nor does infinity or NaN, which would wreck a trim step.
  for (const char* text : {"abc", "", ".", static_cast<const char*>(nullptr), "inf", "-nan", "1e999", "0x1p4"}) {
    EXPECT_EQ(drav::ParseIniReal(text), 0.0f) << Shown(text);
  }
}

}  // namespace

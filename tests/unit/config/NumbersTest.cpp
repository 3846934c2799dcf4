// Number texts that do not follow the process's locale: the same text printf and strtod give in the
// "C" locale, also while a decimal-comma locale is set (when the machine has one).
#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "base/Numbers.h"

namespace {

const double kValues[] = {0.0, -0.0, 0.005, 0.125, 0.785, 29.92, 29.925, 1013.2, -1500.5, 1e20, 123456789.0};

std::string Fixed(double value, int width, int precision, std::size_t size = 64) {
  char text[64];
  return drav::FormatFixed(text, size, value, width, precision);
}

std::string Printf(double value, int width, int precision) {
  char text[64];
  std::snprintf(text, sizeof text, "%*.*f", width, precision, value);
  return text;
}

// Sets a decimal-comma locale for the test's duration when the machine has one.
class DecimalComma {
 public:
  DecimalComma() : set_(std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr) {}
  ~DecimalComma() { std::setlocale(LC_ALL, "C"); }
  bool Set() const { return set_; }

 private:
  bool set_;
};

TEST(NumbersTest, FixedTextIsPrintfsInTheCLocale) {
  for (const double value : kValues) {
    for (const int precision : {0, 2}) {
      for (const int width : {1, 4, 12}) {
        EXPECT_EQ(Fixed(value, width, precision), Printf(value, width, precision)) << value;
      }
    }
  }
  EXPECT_EQ(Fixed(123456.789, 10, 2, 6), " 1234") << "cut as snprintf cuts";
  EXPECT_EQ(Fixed(1.5, 8, 2, 4), "   ") << "cut inside the padding";
}

TEST(NumbersTest, LeadingRealIsStrtodsInTheCLocale) {
  for (const char* text : {" 29.92", "  0.78", "+1.5x", "-2e3", ".5", "5.", "", "abc", "+-1", "\t7 8"}) {
    EXPECT_EQ(drav::ParseLeadingReal(text), std::strtod(text, nullptr)) << '"' << text << '"';
  }
}

TEST(NumbersTest, DecimalCommaLocaleChangesNothing) {
  const DecimalComma locale;
  if (!locale.Set()) GTEST_SKIP() << "no de_DE.UTF-8 here; scenario.decimal_comma_locale needs it";
  EXPECT_EQ(Fixed(29.92, 2, 2), "29.92");
  EXPECT_EQ(Fixed(0.75, 1, 2), "0.75");
  EXPECT_EQ(drav::ParseLeadingReal(" 29.92"), 29.92);
}

}  // namespace

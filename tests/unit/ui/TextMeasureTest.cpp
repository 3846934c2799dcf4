// Measuring the dialog's texts: through the simulator's XPLMMeasureString when the optional SDK is
// there, else by the nominal cell; and how much of a text fits a width.
#include <gtest/gtest.h>

#include <string>

#include "UiTestSupport.h"
#include "base/OptionalXplmApi.h"
#include "ui/TextMeasure.h"

namespace drav {
namespace {

class TextMeasureTest : public uitest::UiTest {
 protected:
  void TearDown() override {
    gOptionalXplmApi = saved_;
    UiTest::TearDown();
  }
  OptionalXplmApi saved_ = gOptionalXplmApi;
};

TEST_F(TextMeasureTest, WithoutTheOptionalSdkEveryCharacterTakesTheNominalCell) {
  gOptionalXplmApi = OptionalXplmApi{};
  EXPECT_EQ(TextWidth("illicit"), 7 * 8);
  EXPECT_EQ(TextWidth(""), 0);
  EXPECT_EQ(FittingLength("GF-RP48 Unit 2", 12 * 8), 12u);
  EXPECT_EQ(WidestItemWidth("(No devices found.);OK;"), 18 * 8);  // the leading "(" is not drawn
}

TEST_F(TextMeasureTest, WithItTextsAreMeasuredProportionally) {
  ASSERT_TRUE(LoadOptionalXplmApi());
  EXPECT_LT(TextWidth("illicit"), TextWidth("WATER_R"));
  EXPECT_EQ(WidestItemWidth("BLACK;MAGENTA;RED;"), TextWidth("MAGENTA"));
}

TEST_F(TextMeasureTest, TheLongestFittingBeginningIsFound) {
  ASSERT_TRUE(LoadOptionalXplmApi());
  const std::string label = "GF-MCPPro Unit 2";
  const int whole = TextWidth(label);
  EXPECT_EQ(FittingLength(label, whole), label.size());
  EXPECT_EQ(FittingLength(label, whole + 50), label.size());
  const std::size_t cut = FittingLength(label, whole - 1);
  ASSERT_LT(cut, label.size());
  EXPECT_LE(TextWidth(label.substr(0, cut)), whole - 1);
  EXPECT_GT(TextWidth(label.substr(0, cut + 1)), whole - 1);
  EXPECT_EQ(FittingLength(label, 0), 0u);
  EXPECT_EQ(FittingLength(label, -5), 0u);
  EXPECT_EQ(FittingLength("", 100), 0u);
}

}  // namespace
}  // namespace drav

// Dataref targets (PATH, PATH[i], PATH[i..j]) and declared types.
#include <gtest/gtest.h>

#include <string>

#include "dravsim/DatarefSyntax.h"

namespace dravsim {
namespace {

TEST(DatarefSyntax, PlainPathHasNoIndex) {
  std::string error;
  const auto target = ParseDatarefTarget("sim/cockpit/radios/com1_freq_hz", error);
  ASSERT_TRUE(target);
  EXPECT_EQ(target->path, "sim/cockpit/radios/com1_freq_hz");
  EXPECT_FALSE(target->HasIndex());
}

TEST(DatarefSyntax, OneIndexAndARange) {
  std::string error;
  const auto one = ParseDatarefTarget("sim/a[3]", error);
  ASSERT_TRUE(one);
  EXPECT_EQ(one->path, "sim/a");
  EXPECT_EQ(one->first, 3);
  EXPECT_EQ(one->last, 3);
  EXPECT_FALSE(one->IsRange());

  const auto range = ParseDatarefTarget("sim/a[0..7]", error);
  ASSERT_TRUE(range);
  EXPECT_EQ(range->first, 0);
  EXPECT_EQ(range->last, 7);
  EXPECT_TRUE(range->IsRange());

  const auto single = ParseDatarefTarget("sim/a[2..2]", error);
  ASSERT_TRUE(single);
  EXPECT_FALSE(single->IsRange());
  const auto hex = ParseDatarefTarget("sim/a[0x1..0x3]", error);
  ASSERT_TRUE(hex);
  EXPECT_EQ(hex->last, 3);
}

TEST(DatarefSyntax, MalformedTargetsAreErrors) {
  for (const char* text : {"", "[1]", "sim/a[", "sim/a[]", "sim/a[1", "sim/a[2..1]", "sim/a[-1]",
                           "sim/a[1..]", "sim/a[..1]", "sim/a[x]", "sim/a[1]b", "sim/a[1.5]",
                           "sim/a[99999999999]"}) {
    std::string error;
    EXPECT_FALSE(ParseDatarefTarget(text, error)) << text;
    EXPECT_FALSE(error.empty()) << text;
  }
}

TEST(DatarefSyntax, DescribeTargetWritesItBack) {
  std::string error;
  for (const char* text : {"sim/a", "sim/a[4]", "sim/a[1..5]"}) {
    EXPECT_EQ(DescribeTarget(*ParseDatarefTarget(text, error)), text);
  }
}

TEST(DatarefSyntax, TheFiveTypes) {
  const auto i = ParseDatarefType("x737/a", "int");
  ASSERT_TRUE(i);
  EXPECT_EQ(i->path, "x737/a");
  EXPECT_EQ(i->type, sim::DatarefType::Int);
  EXPECT_EQ(ParseDatarefType("p", "float")->type, sim::DatarefType::Float);
  EXPECT_EQ(ParseDatarefType("p", "double")->type, sim::DatarefType::Double);
  const auto ints = ParseDatarefType("p", "int[8]");
  ASSERT_TRUE(ints);
  EXPECT_EQ(ints->type, sim::DatarefType::IntArray);
  EXPECT_EQ(ints->length, 8);
  const auto floats = ParseDatarefType("p", "float[1]");
  ASSERT_TRUE(floats);
  EXPECT_EQ(floats->type, sim::DatarefType::FloatArray);
  EXPECT_EQ(floats->length, 1);
}

TEST(DatarefSyntax, UnknownTypesAndBadLengthsAreRejected) {
  for (const char* text : {"", "bool", "Int", "double[2]", "int[0]", "int[]", "int[-1]",
                           "float[x]", "int[2", "int[2]]", "int [2]"}) {
    EXPECT_FALSE(ParseDatarefType("p", text)) << text;
  }
}

}  // namespace
}  // namespace dravsim

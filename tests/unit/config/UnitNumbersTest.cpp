// The [UNIT NUMBERS] section of DRAV.INI: what a pilot wrote is recalled as meant, and writing one
// number leaves every other byte of the file alone.
#include <gtest/gtest.h>

#include "PluginFolderSupport.h"
#include "config/UnitNumbers.h"

namespace {

constexpr std::uint32_t kGF46 = 8;

class UnitNumbersTest : public drav_test::PluginFolderTest {
 protected:
  UnitNumbersTest() : PluginFolderTest("unitnumbers") {}
  drav::IniUnitNumberMemory memory_;
};

TEST_F(UnitNumbersTest, RecallsTrimmedValuesAndTheFirstLineOfAUnitNamedTwice) {
  GivenIni("[GF46_1]\r\nFunction1=COM1_ACTIVE\r\n[UNIT NUMBERS]\r\nGF46_2=  serial A1\t\r\nGF46_4=serial A1\r\n"
           "GF46_3=port usb-1\r\nGF45_1=serial Z\r\n");
  const std::vector<std::string> recalled = memory_.Recall(kGF46, 4);
  EXPECT_EQ(recalled, (std::vector<std::string>{"", "serial A1", "port usb-1", ""}));
}

TEST_F(UnitNumbersTest, WritesOneLineAndLeavesTheRestOfTheFileAsItWas) {
  const std::string before = "; mine\r\n[GF46_1]\r\nFunction1=COM1_ACTIVE\r\n[UNIT NUMBERS]\r\nGF46_1=serial OLD\r\n";
  GivenIni(before);
  memory_.Remember(kGF46, 1, "serial B2");
  memory_.Remember(kGF46, 0, "");  // forgets OLD
  const std::string after = drav_test::ReadBytes(IniPath()).value_or("");
  EXPECT_EQ(after.substr(0, before.find("GF46_1=serial")), before.substr(0, before.find("GF46_1=serial")));
  EXPECT_EQ(after.find("serial OLD"), std::string::npos);
  EXPECT_EQ(memory_.Recall(kGF46, 2), (std::vector<std::string>{"", "serial B2"}));
}

TEST_F(UnitNumbersTest, AnIdentityALineCannotCarryIsNotWritten) {
  GivenIni("[GF46_1]\r\nFunction1=COM1_ACTIVE\r\n");
  const std::string before = drav_test::ReadBytes(IniPath()).value_or("");
  memory_.Remember(kGF46, 0, "serial A\nGF46_2=serial B");
  memory_.Remember(kGF46, 0, "port " + std::string(260, 'x'));
  EXPECT_EQ(drav_test::ReadBytes(IniPath()).value_or(""), before);
}

}  // namespace

// Unit numbers that stay: the layer numbers its units by what a memory recalls of them.
#include <gtest/gtest.h>

#include <map>
#include <utility>

#include "VirtualPanels.h"

namespace drav {
namespace {

constexpr std::uint32_t kGFMCP = 6, kGFP8 = 2;

// A memory in a map, counting what it is told to write.
class MapMemory final : public UnitNumberMemory {
 public:
  std::vector<std::string> Recall(std::uint32_t moduleType, std::int32_t slots) override {
    std::vector<std::string> recalled(static_cast<std::size_t>(slots));
    for (const auto& [key, who] : numbers) {
      if (key.first == moduleType && key.second < slots) recalled[static_cast<std::size_t>(key.second)] = who;
    }
    return recalled;
  }
  void Remember(std::uint32_t moduleType, std::int32_t unit, const std::string& who) override {
    ++writes;
    if (who.empty()) {
      numbers.erase({moduleType, unit});
    } else {
      numbers[{moduleType, unit}] = who;
    }
  }
  std::string At(std::uint32_t moduleType, std::int32_t unit) const {
    const auto it = numbers.find({moduleType, unit});
    return it == numbers.end() ? std::string() : it->second;
  }

  std::map<std::pair<std::uint32_t, std::int32_t>, std::string> numbers;
  int writes = 0;
};

class UnitNumberingTest : public testing::VirtualPanelsTest {
 protected:
  void SetUp() override {
    VirtualPanelsTest::SetUp();
    GFDev_SetUnitNumberMemory(&memory_);
  }
  void TearDown() override {
    VirtualPanelsTest::TearDown();
    GFDev_SetUnitNumberMemory(nullptr);
  }
  MapMemory memory_;
};

TEST_F(UnitNumberingTest, RememberedNumbersWinOverTheOrderUnitsAreFoundIn) {
  memory_.numbers[{kGFP8, 0}] = "serial B";
  memory_.numbers[{kGFP8, 1}] = "serial A";
  Plug(kGFP8, "/dev/v/a", 0x0100, "A");
  Plug(kGFP8, "/dev/v/b", 0x0100, "B");
  StartLayer();
  EXPECT_EQ(GFDev_UnitPath(kGFP8, 0), "/DEV/V/B");
  EXPECT_EQ(GFDev_UnitPath(kGFP8, 1), "/DEV/V/A");
  EXPECT_EQ(memory_.writes, 0) << "nothing changed, nothing written";
}

TEST_F(UnitNumberingTest, NewcomersAvoidKeptNumbersUntilNoOtherIsFree) {
  memory_.numbers[{kGFMCP, 0}] = "serial K0";
  memory_.numbers[{kGFMCP, 2}] = "serial K2";
  Plug(kGFMCP, "/dev/v/x", 0x0100, "X");
  Plug(kGFMCP, "/dev/v/y", 0x0100, "Y");
  StartLayer();
  EXPECT_EQ(GFDev_UnitPath(kGFMCP, 1), "/DEV/V/X");
  EXPECT_EQ(GFDev_UnitPath(kGFMCP, 3), "/DEV/V/Y");
  EXPECT_EQ(memory_.At(kGFMCP, 1), "serial X");
  EXPECT_EQ(memory_.At(kGFMCP, 3), "serial Y");

  // Mid-flight, with only kept numbers left: the lowest goes to the newcomer, K0 is forgotten.
  Plug(kGFMCP, "/dev/v/z", 0x0100, "Z");
  GFDev_ProcessDeviceChanges();
  EXPECT_EQ(GFDev_UnitPath(kGFMCP, 0), "/DEV/V/Z");
  EXPECT_EQ(memory_.At(kGFMCP, 0), "serial Z");
  EXPECT_EQ(memory_.At(kGFMCP, 2), "serial K2");
  EXPECT_EQ(GFDev_UnitSpan(kGFMCP), 4);
  EXPECT_EQ(GFDev_GFMCP_Count(), 3);
}

TEST_F(UnitNumberingTest, UnitsTellingOneSerialDoNotTakeTheMemoryFromEachOther) {
  Plug(kGFP8, "/dev/v/first", 0x0100, "0");
  Plug(kGFP8, "/dev/v/second", 0x0100, "0");
  StartLayer();
  StartLayer();  // the next session, the same two
  StartLayer();
  EXPECT_EQ(GFDev_UnitPath(kGFP8, 0), "/DEV/V/FIRST");
  EXPECT_EQ(GFDev_UnitPath(kGFP8, 1), "/DEV/V/SECOND");
  EXPECT_EQ(memory_.At(kGFP8, 0), "serial 0");
  EXPECT_EQ(memory_.At(kGFP8, 1), "");
  EXPECT_EQ(memory_.writes, 1);
}

TEST_F(UnitNumberingTest, AUnitWithASerialComesBackToItsNumberAtAnotherPort) {
  VirtualUnitSpec a = testing::SpecOf(kGFP8, 0x0100, "A");
  VirtualUnitSpec b = testing::SpecOf(kGFP8, 0x0100, "B");
  a.location = "port-1";
  b.location = "port-2";
  ASSERT_TRUE(Panels().Plug("/dev/v/a", a));
  ASSERT_TRUE(Panels().Plug("/dev/v/b", b));
  StartLayer();
  ASSERT_TRUE(Panels().Unplug("/dev/v/a"));
  ASSERT_TRUE(Panels().Unplug("/dev/v/b"));
  GFDev_ProcessDeviceChanges();
  ASSERT_TRUE(Panels().SetLocation("/dev/v/a", "port-2"));
  ASSERT_TRUE(Panels().SetLocation("/dev/v/b", "port-1"));
  ASSERT_TRUE(Panels().Replug("/dev/v/b"));
  ASSERT_TRUE(Panels().Replug("/dev/v/a"));
  GFDev_ProcessDeviceChanges();
  EXPECT_EQ(GFDev_UnitPath(kGFP8, 0), "/DEV/V/A");
  EXPECT_EQ(GFDev_UnitPath(kGFP8, 1), "/DEV/V/B");
  EXPECT_EQ(GFDev_GFP8_Count(), 2);
}

TEST(RememberedIdentityTest, SerialFirstThenPortThenPath) {
  EXPECT_EQ(GFDev_RememberedIdentity("  A1 ", "usb-1", "/DEV/X"), "serial A1");
  EXPECT_EQ(GFDev_RememberedIdentity("   ", "usb-1", "/DEV/X"), "port usb-1");
  EXPECT_EQ(GFDev_RememberedIdentity("", "", "/DEV/X"), "port /DEV/X");
  EXPECT_EQ(GFDev_RememberedIdentity("", "", ""), "");
}

}  // namespace
}  // namespace drav

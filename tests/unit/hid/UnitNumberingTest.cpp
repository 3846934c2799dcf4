// Unit numbers that stay: the layer numbers its units by what a memory recalls of them.
#include <gtest/gtest.h>

#include <map>
#include <utility>

#include "VirtualPanels.h"

namespace drav {
namespace {

constexpr std::uint32_t kGFP8 = 2;

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
  MapMemory memory_;
};

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

TEST(RememberedIdentityTest, SerialFirstThenPortThenPath) {
  EXPECT_EQ(GFDev_RememberedIdentity("  A1 ", "usb-1", "/DEV/X"), "serial A1");
  EXPECT_EQ(GFDev_RememberedIdentity("   ", "usb-1", "/DEV/X"), "port usb-1");
  EXPECT_EQ(GFDev_RememberedIdentity("", "", "/DEV/X"), "port /DEV/X");
  EXPECT_EQ(GFDev_RememberedIdentity("", "", ""), "");
}

}  // namespace
}  // namespace drav

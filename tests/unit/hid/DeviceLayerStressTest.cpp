// Several threads feed input to steady units while the main thread plugs and unplugs another unit
// and writes to all of them. Every decoded change of a steady unit must reach the callback once and
// in order, every accepted write must reach its unit, and nothing may race or hang (run under TSan).
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <thread>

#include "VirtualPanels.h"

namespace drav {
namespace {

constexpr int kReportsPerUnit = 600;

// What the callback saw per steady unit: the count, and whether a value came out of sequence.
struct SeenPerUnit {
  std::atomic<int> count{0};
  std::atomic<int> outOfOrder{0};
  std::atomic<int> last{0};
};
std::array<SeenPerUnit, 3> gSeen;  // GF-P8 units 0 and 1, GF-46 unit 0

int CountingCallback(std::uint32_t moduleType, std::uint16_t unit, const void* record) {
  int index = -1;
  int value = 0;
  if (moduleType == 2 && unit < 2) {
    index = unit;
    value = static_cast<const GFP8InputRecord*>(record)->switches;
  } else if (moduleType == 8 && unit == 0) {
    index = 2;
    value = static_cast<std::uint8_t>(static_cast<const GF46InputRecord*>(record)->encoder1);
  }
  if (index < 0) return 0;
  SeenPerUnit& seen = gSeen[index];
  // Each report carries the next value of a counter that wraps at 256.
  if (value != (seen.last.load() + 1) % 256) ++seen.outOfOrder;
  seen.last.store(value);
  ++seen.count;
  return 0;
}

class DeviceLayerStressTest : public testing::VirtualPanelsTest {};

TEST_F(DeviceLayerStressTest, InputPlugAndWriteTogetherLoseNothing) {
  for (SeenPerUnit& seen : gSeen) {
    seen.count = 0;
    seen.outOfOrder = 0;
    seen.last = 0;
  }
  const std::string p8a = Plug(2, "/dev/v/p8a");
  const std::string p8b = Plug(2, "/dev/v/p8b");
  const std::string radio = Plug(8, "/dev/v/radio");
  const std::string churn = Plug(4, "/dev/v/churn");
  GFDev_Start(nullptr);
  GFDev_RegisterInputCallback(&CountingCallback);

  auto feed = [this](std::string path, bool radioReport) {
    for (int i = 1; i <= kReportsPerUnit; ++i) {
      const auto value = static_cast<std::uint8_t>(i % 256);
      std::vector<std::uint8_t> report = radioReport ? std::vector<std::uint8_t>{0, value, 0, 0}
                                                     : std::vector<std::uint8_t>{0, value};
      ASSERT_TRUE(Panels().SendInput(path, report));
      if (i % 4 == 0) std::this_thread::sleep_for(std::chrono::microseconds(500));
    }
  };
  std::atomic<bool> feeding{true};
  auto noise = [this, &churn, &feeding] {  // input for a unit that keeps coming and going
    std::uint8_t value = 0;
    while (feeding.load()) {
      Panels().SendInput(churn, {0, value++, 0});
      std::this_thread::sleep_for(std::chrono::microseconds(300));
    }
  };
  std::vector<std::thread> feeders;
  feeders.emplace_back(feed, p8a, false);
  feeders.emplace_back(feed, p8b, false);
  feeders.emplace_back(feed, radio, true);
  std::thread noiseThread(noise);

  int acceptedWrites = 0;
  int churnWrites = 0;
  for (int round = 0; round < 60; ++round) {
    if (round % 2 == 0) {
      Panels().Unplug(churn);
    } else {
      Panels().Replug(churn);
    }
    GFDev_ProcessDeviceChanges();
    for (std::int32_t unit = 0; unit < 2; ++unit) {
      if (GFDev_GFP8_SetLEDs(unit, static_cast<std::uint8_t>(round)) == 0) ++acceptedWrites;
    }
    EXPECT_EQ(GFDev_GF46_SetDisplay2(0, "123456"), 0);
    if (GFDev_GFLGT_SetLEDs(0, 0x10) == 0) ++churnWrites;
    std::uint8_t switches = 0;
    EXPECT_EQ(GFDev_GFP8_GetSwitches(0, &switches), 0);
    std::int16_t trim = 0;
    GFDev_GFLGT_GetState(0, &trim, &switches);
    if (round % 10 == 9) {
      EXPECT_TRUE(GFDev_WaitForOutputIdle(std::chrono::milliseconds(2000)));
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  for (std::thread& feeder : feeders) feeder.join();
  feeding = false;
  noiseThread.join();

  ASSERT_TRUE(testing::WaitUntil([] { return GFDev_InputReportsHandled(2, 0) == kReportsPerUnit; }));
  ASSERT_TRUE(testing::WaitUntil([] { return GFDev_InputReportsHandled(2, 1) == kReportsPerUnit; }));
  ASSERT_TRUE(testing::WaitUntil([] { return GFDev_InputReportsHandled(8, 0) == kReportsPerUnit; }));
  for (SeenPerUnit& seen : gSeen) {
    EXPECT_EQ(seen.count.load(), kReportsPerUnit);
    EXPECT_EQ(seen.outOfOrder.load(), 0);
  }
  ASSERT_TRUE(GFDev_WaitForOutputIdle(std::chrono::milliseconds(2000)));
  EXPECT_EQ(acceptedWrites, 120);
  EXPECT_EQ(Panels().Sent(p8a).size() + Panels().Sent(p8b).size(), 120u);
  EXPECT_EQ(Panels().Sent(radio).size(), 60u);
  EXPECT_EQ(churnWrites, 30);  // accepted only while the churning unit was present
  EXPECT_EQ(GFDev_GFLGT_Count(), 1);  // the last round plugged it back
  EXPECT_EQ(GFDev_UnitPath(4, 1), "");  // and it never took a second slot
}

}  // namespace
}  // namespace drav

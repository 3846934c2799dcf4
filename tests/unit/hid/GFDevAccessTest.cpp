// The per-model functions' result codes, what they send, and the getters that clear.
#include <gtest/gtest.h>

#include "VirtualPanels.h"

namespace drav {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Ints = std::vector<int>;

template <typename T, std::size_t N>
Ints All(const T (&values)[N]) {
  return Ints(values, values + N);
}

class GFDevAccessTest : public testing::VirtualPanelsTest {
 protected:
  std::vector<Bytes> SentTo(const std::string& path) {
    EXPECT_TRUE(OutputIdle());
    return AllBytes(Panels().Sent(path));
  }
};

TEST_F(GFDevAccessTest, TrimWheelValuesAreClearedEvenWhenNotTaken) {
  const std::string lgt = Plug(4, "/dev/v/lgt");
  const std::string lgt2 = Plug(11, "/dev/v/lgt2");
  StartLayer();
  SendInputAndWait(4, 0, lgt, {0, 0x05, 0x3C});
  SendInputAndWait(11, 0, lgt2, {0, 1, 2, 3, 0x44});
  std::uint8_t switches = 0;
  EXPECT_EQ(GFDev_GFLGT_GetState(0, nullptr, &switches), 0);
  EXPECT_EQ(switches, 0x3C);
  std::int16_t value = 9;
  EXPECT_EQ(GFDev_GFLGT_GetState(0, &value, nullptr), 0);
  EXPECT_EQ(value, 0);

  EXPECT_EQ(GFDev_GFLGT2_GetState(0, nullptr, nullptr, nullptr, &switches), 0);
  EXPECT_EQ(switches, 0x44);
  std::int16_t values[3] = {9, 9, 9};
  EXPECT_EQ(GFDev_GFLGT2_GetState(0, &values[0], &values[1], &values[2], nullptr), 0);
  EXPECT_EQ(All(values), (Ints{0, 0, 0}));
}

TEST_F(GFDevAccessTest, CallbackRegistration) {
  EXPECT_EQ(GFDev_RegisterInputCallback(nullptr), 0);
  const std::string p8 = Plug(2, "/dev/v/p8");
  StartLayer();
  static std::atomic<int> otherCalls{0};
  otherCalls = 0;
  auto other = [](std::uint32_t, std::uint16_t, const void*) -> int {
    ++otherCalls;
    return 0;
  };
  EXPECT_EQ(GFDev_RegisterInputCallback(other), 1);  // replaces the recorder
  SendInputAndWait(2, 0, p8, {0, 0x01});
  EXPECT_EQ(otherCalls.load(), 1);
  EXPECT_EQ(testing::CallbackRecorder::Instance().Count(), 0u);
}

}  // namespace
}  // namespace drav

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

TEST_F(GFDevAccessTest, UnitOutOfRangeEmptySlotAndAbsentUnit) {
  Plug(8, "/dev/v/radio-a");
  Plug(8, "/dev/v/radio-b");
  const std::string p8 = Plug(2, "/dev/v/p8");
  StartLayer();
  EXPECT_EQ(GFDev_GF46_SetDisplay1(16, "ABCD"), 1);
  EXPECT_EQ(GFDev_GF46_SetDisplay1(-1, "ABCD"), 1);
  EXPECT_EQ(GFDev_GF46_SetDisplay1(3, "ABCD"), 3);
  EXPECT_EQ(GFDev_GFMCP_SetDisplay1(4, "123"), 1);  // four slots only

  Panels().Unplug(p8);
  GFDev_ProcessDeviceChanges();
  EXPECT_EQ(GFDev_GFP8_Count(), 0);
  EXPECT_EQ(GFDev_GFP8_SetLEDs(0, 0xFF), 3);
  EXPECT_EQ(GFDev_GFP8_SetBrightness(0, 5), 0);  // brightness setters answer 0 for an absent unit
  std::uint16_t brightness = 77;
  EXPECT_EQ(GFDev_GFP8_GetBrightness(0, &brightness), 3);
  EXPECT_EQ(brightness, 77);
  std::uint8_t switches = 0;
  EXPECT_EQ(GFDev_GFP8_GetSwitches(0, &switches), 3);

  GFDev_Stop();  // afterwards every unit is gone
  EXPECT_EQ(GFDev_GF46_SetDisplay1(0, "ABCD"), 3);
  EXPECT_EQ(GFDev_GF46_SetBrightness(0, 1), 3);
}

TEST_F(GFDevAccessTest, EncodersReachTheUnitByteForByte) {
  const std::string gf45 = Plug(1, "/dev/v/gf45");
  const std::string lgt = Plug(4, "/dev/v/lgt");
  const std::string gf166 = Plug(5, "/dev/v/gf166");
  const std::string mcppro = Plug(12, "/dev/v/mcppro");
  StartLayer();
  EXPECT_EQ(GFDev_GF45_SetDisplay2(0, "12.3"), 0);
  EXPECT_EQ(GFDev_GF45_SetDisplay1(0, "ab.-"), 0);
  EXPECT_EQ(SentTo(gf45), (std::vector<Bytes>{{5, 0x00, 0x00, 0x4F, 0xDB, 0x06},
                                               {3, 0x22, 0x37, 0x4A, 0x8F, 0x22, 0x00, 0x00, 0x00}}));
  EXPECT_EQ(GFDev_GFLGT_SetLEDs(0, 0x00), 0);
  EXPECT_EQ(SentTo(lgt), (std::vector<Bytes>{{2, 0x03}}));
  EXPECT_EQ(GFDev_GF166_SetEncoderType(0, 5, 2), 0);
  EXPECT_EQ(GFDev_GF166_SetDisplay2(0, "1"), 0);
  EXPECT_EQ(SentTo(gf166), (std::vector<Bytes>{{9, 0x09}, {5, 0x06, 0, 0, 0, 0, 0}}));
  EXPECT_EQ(GFDev_GFMCPPro_SetDisplay1(0, "ACE"), 0);
  EXPECT_EQ(GFDev_GFMCPPro_SetLEDs(0, 0x01020304), 0);
  EXPECT_EQ(SentTo(mcppro), (std::vector<Bytes>{{3, 0x5F, 0x58, 0x7B}, {15, 1, 2, 3, 4}}));
}

TEST_F(GFDevAccessTest, BrightnessGetterReadsTheUnitAndWritesOnlyOnSuccess) {
  const std::string mcp = Plug(6, "/dev/v/mcp");
  StartLayer();
  Panels().SetFeatureAnswer(mcp, 12, {12, 11});
  const testing::PatientFeatureReads patient;
  std::uint16_t brightness = 0;
  EXPECT_EQ(GFDev_GFMCP_GetBrightness(0, &brightness), 0);
  EXPECT_EQ(brightness, 11);
  EXPECT_EQ(GFDev_GFMCP_GetBrightness(0, nullptr), 0);
  Panels().SetFault(mcp, VirtualFault::Feature, true);
  brightness = 99;
  EXPECT_EQ(GFDev_GFMCP_GetBrightness(0, &brightness), 5);
  EXPECT_EQ(brightness, 99);
}

TEST_F(GFDevAccessTest, EncoderValuesAreClearedOnceReturned) {
  const std::string rp48 = Plug(7, "/dev/v/rp48");
  StartLayer();
  SendInputAndWait(7, 0, rp48, {0, 1, 0xFE, 3, 0x80, 0xA5});
  std::int16_t e[4] = {};
  std::uint8_t buttons = 0;
  EXPECT_EQ(GFDev_GFRP48_GetState(0, &e[0], &e[1], nullptr, &e[3], &buttons), 0);
  EXPECT_EQ(All(e), (Ints{1, -2, 0, -128}));
  EXPECT_EQ(buttons, 0xA5);
  // Second call, no report in between: the returned values are 0, the skipped one is still there.
  EXPECT_EQ(GFDev_GFRP48_GetState(0, &e[0], &e[1], &e[2], &e[3], &buttons), 0);
  EXPECT_EQ(All(e), (Ints{0, 0, 3, 0}));
  EXPECT_EQ(buttons, 0xA5);
}

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

TEST_F(GFDevAccessTest, WarningPanelColoursAndBrightness) {
  const std::string wcp = Plug(18, "/dev/v/wcp");
  StartLayer();
  ASSERT_TRUE(OutputIdle());
  Panels().ClearSent();
  EXPECT_EQ(GFDev_GFWCP_SetLEDColour(0, 0, 1), 11);
  EXPECT_EQ(GFDev_GFWCP_SetLEDColour(0, 7, 1), 11);
  EXPECT_EQ(GFDev_GFWCP_SetLEDColour(0, 1, 8), 0);
  EXPECT_TRUE(SentTo(wcp).empty());

  EXPECT_EQ(GFDev_GFWCP_SetBrightness(0, 7), 0);
  ASSERT_TRUE(OutputIdle());
  Panels().ClearSent();
  EXPECT_EQ(GFDev_GFWCP_SetLEDColour(0, 2, 6), 0);
  EXPECT_EQ(SentTo(wcp), (std::vector<Bytes>{{2, 2, 46, 46, 1}}));
  std::uint32_t brightness = 0;
  EXPECT_EQ(GFDev_GFWCP_GetBrightness(0, &brightness), 0);
  EXPECT_EQ(brightness, 7u);

  // A new brightness resends every light with its kept colour.
  Panels().ClearSent();
  EXPECT_EQ(GFDev_GFWCP_SetBrightness(0, 15), 0);
  auto sent = SentTo(wcp);
  ASSERT_EQ(sent.size(), 6u);
  EXPECT_EQ(sent[1], (Bytes{2, 2, 100, 100, 1}));
  EXPECT_EQ(sent[0], (Bytes{2, 1, 0, 0, 0}));
}

TEST_F(GFDevAccessTest, IoBoardGetterDecidesByItsFirstPointerAndOutputsUseTheDeviceLength) {
  const std::string dio = Plug(19, "/dev/v/dio");
  StartLayer();
  SendInputAndWait(19, 0, dio, {0, 1, 2, 3, 4, 5, 6, 7});
  std::uint8_t s[7] = {};
  EXPECT_EQ(GFDev_GFDIO_GetState(0, nullptr, &s[1], &s[2], &s[3], &s[4], &s[5], &s[6]), 0);
  EXPECT_EQ(s[1], 0);  // nothing written at all
  EXPECT_EQ(GFDev_GFDIO_GetState(0, &s[0], nullptr, &s[2], &s[3], &s[4], &s[5], &s[6]), 0);
  EXPECT_EQ(All(s), (Ints{1, 0, 3, 4, 5, 6, 7}));

  ASSERT_TRUE(OutputIdle());
  Panels().ClearSent();
  EXPECT_EQ(GFDev_GFDIO_SetOutputs(0, 0xA, 0xB, 0xC, 0xD), 0);
  ASSERT_TRUE(OutputIdle());
  const auto sent = Panels().Sent(dio);
  ASSERT_EQ(sent.size(), 1u);
  EXPECT_EQ(sent[0].kind, VirtualSentReport::Kind::Output);
  EXPECT_EQ(sent[0].bytes, (Bytes{2, 0xA, 0xB, 0xC, 0xD, 0, 0, 0}));
}

TEST_F(GFDevAccessTest, DeviceInfoResultCodes) {
  Plug(8, "/dev/v/radio-a", 0x0321);
  StartLayer();
  GFDevInfo info{};
  EXPECT_EQ(GFDev_GetDeviceInfo(16, 0, &info), 0);
  EXPECT_EQ(GFDev_GetDeviceInfo(20, 0, &info), 0);
  EXPECT_EQ(info.path[0], '\0');  // nothing written
  EXPECT_EQ(GFDev_GetDeviceInfo(8, 16, &info), 1);
  EXPECT_EQ(GFDev_GetDeviceInfo(8, 1, &info), 3);
  EXPECT_EQ(GFDev_GetDeviceInfo(8, 0, nullptr), 11);
  EXPECT_EQ(GFDev_GetDeviceInfo(8, 0, &info), 0);
  EXPECT_STREQ(info.path, "/DEV/V/RADIO-A");
  EXPECT_EQ(std::uint16_t{info.version}, 0x0321);

  GFDevInfoEx ex{};
  ex.size = 300;
  EXPECT_EQ(GFDev_GetDeviceInfoEx(8, 0, &ex), 0);
  EXPECT_EQ(ex.path[0], '\0');  // a record of another size is left untouched
  EXPECT_EQ(GFDev_GetDeviceInfoEx(8, 0, nullptr), 11);
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

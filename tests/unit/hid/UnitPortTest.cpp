// A unit's port: its answers for units that are out of range, absent, unplugged or that arrive
// while it is held; the reports its displays, indicators and brightness send; what its getters
// write and clear; and the flat per-model functions over it.
#include "hid/UnitPort.h"

#include <gtest/gtest.h>

#include <atomic>

#include "VirtualPanels.h"

namespace drav {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Ints = std::vector<int>;

class UnitPortTest : public testing::VirtualPanelsTest {
 protected:
  // What reached the unit since the last call.
  std::vector<Bytes> SentTo(const std::string& path) {
    EXPECT_TRUE(OutputIdle());
    std::vector<Bytes> sent = AllBytes(Panels().Sent(path));
    Panels().ClearSent();
    return sent;
  }
  // Starts the layer and forgets what it sent to the units on opening them.
  void StartQuiet() {
    StartLayer();
    ASSERT_TRUE(OutputIdle());
    Panels().ClearSent();
  }
};

TEST_F(UnitPortTest, PortsOutsideTheModelsSlotsAnswerOneForEveryCall) {
  Plug(kModuleGF46, "/dev/v/radio");
  StartQuiet();
  const UnitPort ports[] = {UnitPort(), UnitPort(kModuleGF46, -1), UnitPort(kModuleGF46, 16),
                            UnitPort(kModuleGFTPM, 0), UnitPort(99, 0)};
  for (const UnitPort& port : ports) {
    std::uint32_t level = 77;
    GF46InputRecord state{9, 9, 9};
    EXPECT_FALSE(port.Present());
    EXPECT_EQ(port.SetDisplay(1, "1"), 1);
    EXPECT_EQ(port.SetIndicators(1), 1);
    EXPECT_EQ(port.SetBrightness(3), 1);
    EXPECT_EQ(port.GetBrightness(&level), 1);
    EXPECT_EQ(port.TakeInput(state), 1);
    EXPECT_EQ(level, 77u);
    EXPECT_EQ(state.buttons, 9);
  }
}

TEST_F(UnitPortTest, EmptyAndUnpluggedSlotsAnswerThreeExceptTheBrightnessSetter) {
  const std::string p8 = Plug(kModuleGFP8, "/dev/v/p8");
  const UnitPort before(kModuleGFP8, 0);
  EXPECT_EQ(before.SetIndicators(0xFF), 3) << "a port made before the layer starts";
  StartQuiet();
  const UnitPort empty(kModuleGFP8, 1);
  EXPECT_EQ(empty.SetIndicators(0xFF), 3);
  EXPECT_EQ(empty.SetBrightness(5), 3);

  ASSERT_TRUE(Panels().Unplug(p8));
  GFDev_ProcessDeviceChanges();
  EXPECT_FALSE(before.Present());
  EXPECT_EQ(before.SetIndicators(0xFF), 3);
  EXPECT_EQ(before.SetDisplay(1, "1"), 3) << "presence is answered before the missing display";
  EXPECT_EQ(before.SetBrightness(5), 0) << "the level of an unplugged unit is simply not sent";
  std::uint16_t level = 77;
  EXPECT_EQ(before.GetBrightness(&level), 3);
  EXPECT_EQ(level, 77);
  GFSwitchByteInputRecord state{0x5A};
  EXPECT_EQ(before.TakeInput(state), 3);
  EXPECT_EQ(state.switches, 0x5A);

  GFDev_Stop();
  EXPECT_EQ(before.SetBrightness(5), 3) << "after the layer stops every slot is empty";
}

TEST_F(UnitPortTest, APortHeldForAnEmptySlotReachesTheUnitThatArrivesThere) {
  const std::string first = Plug(kModuleGF166, "/dev/v/gf166-a");
  StartQuiet();
  const UnitPort second(kModuleGF166, 1);
  EXPECT_EQ(second.SetIndicators(0x81), 3);

  const std::string arrived = Plug(kModuleGF166, "/dev/v/gf166-b");
  GFDev_ProcessDeviceChanges();
  ASSERT_TRUE(second.Present());
  ASSERT_TRUE(OutputIdle());
  Panels().ClearSent();
  EXPECT_EQ(second.SetIndicators(0x81), 0);
  EXPECT_EQ(SentTo(arrived), (std::vector<Bytes>{{7, 0x81}}));
  EXPECT_TRUE(SentTo(first).empty());

  // Gone and back: the unit finds its old slot, and the same port reaches it again.
  ASSERT_TRUE(Panels().Unplug(arrived));
  GFDev_ProcessDeviceChanges();
  EXPECT_EQ(second.SetIndicators(0x02), 3);
  ASSERT_TRUE(Panels().Replug(arrived));
  GFDev_ProcessDeviceChanges();
  ASSERT_TRUE(OutputIdle());
  Panels().ClearSent();
  EXPECT_EQ(second.SetIndicators(0x02), 0);
  EXPECT_EQ(SentTo(arrived), (std::vector<Bytes>{{7, 0x02}}));
}

TEST_F(UnitPortTest, DisplayNumbersPickTheirReportsAndAMissingOneBuildsNothing) {
  const std::string gf45 = Plug(kModuleGF45, "/dev/v/gf45");
  const std::string mcp = Plug(kModuleGFMCP, "/dev/v/mcp");
  const std::string p8 = Plug(kModuleGFP8, "/dev/v/p8");
  StartQuiet();
  const UnitPort radio(kModuleGF45, 0);
  EXPECT_EQ(radio.SetDisplay(2, "1"), 0);
  EXPECT_EQ(radio.SetDisplay(3, "1"), 2);
  EXPECT_EQ(radio.SetDisplay(0, "1"), 2);
  EXPECT_EQ(SentTo(gf45), (std::vector<Bytes>{{5, 0, 0, 0, 0, 0x06}})) << "the first character in byte 5";

  const UnitPort autopilot(kModuleGFMCP, 0);
  EXPECT_EQ(autopilot.SetDisplay(1, "1"), 0);
  EXPECT_EQ(autopilot.SetDisplay(4, "1"), 0);
  EXPECT_EQ(autopilot.SetDisplay(6, "1"), 2);
  EXPECT_EQ(SentTo(mcp), (std::vector<Bytes>{{3, 0x06, 0, 0}, {9, 0x06, 0, 0, 0, 0, 0}}));

  // A model without displays or colours builds nothing, and sends nothing.
  const UnitPort lights(kModuleGFP8, 0);
  EXPECT_EQ(lights.SetDisplay(1, "1"), 2);
  EXPECT_EQ(lights.SetIndicatorColour(1, 1), 2);
  EXPECT_EQ(lights.SetOutputs({1, 2, 3, 4}), 2);
  EXPECT_EQ(lights.SetEncoderType(1, 1), 2);
  EXPECT_TRUE(SentTo(p8).empty());
}

TEST_F(UnitPortTest, BrightnessIsSentInFourBitsAndReadBackOnlyOnSuccess) {
  const std::string p8 = Plug(kModuleGFP8, "/dev/v/p8");
  const std::string gf45 = Plug(kModuleGF45, "/dev/v/gf45");
  const std::string wcp = Plug(kModuleGFWCP, "/dev/v/wcp");
  StartQuiet();
  const UnitPort lights(kModuleGFP8, 0);
  EXPECT_EQ(lights.SetBrightness(0x1A), 0);
  EXPECT_EQ(SentTo(p8), (std::vector<Bytes>{{3, 0x0A}}));
  EXPECT_EQ(UnitPort(kModuleGF45, 0).SetBrightness(7), 0);
  EXPECT_EQ(SentTo(gf45), (std::vector<Bytes>{{6, 0x07}}));

  const testing::PatientFeatureReads patient;
  Panels().SetFeatureAnswer(p8, 3, {3, 9});
  std::int32_t level = -1;
  EXPECT_EQ(lights.GetBrightness(&level), 0);
  EXPECT_EQ(level, 9);
  EXPECT_EQ(lights.GetBrightness<std::int32_t>(nullptr), 0);
  Panels().SetFault(p8, VirtualFault::Feature, true);
  level = -1;
  EXPECT_EQ(lights.GetBrightness(&level), 5);
  EXPECT_EQ(level, -1);

  level = -1;
  EXPECT_EQ(UnitPort(kModuleGF45, 0).GetBrightness(&level), 2) << "the GF-45 cannot tell its level";
  EXPECT_EQ(level, -1);

  // The GF-WCP keeps the level it was told and answers it without asking the unit.
  const UnitPort warning(kModuleGFWCP, 0);
  EXPECT_EQ(warning.SetBrightness(12), 0);
  EXPECT_EQ(SentTo(wcp).size(), 6u) << "its six lights are relit at the new level";
  Panels().SetFault(wcp, VirtualFault::Feature, true);
  EXPECT_EQ(warning.GetBrightness(&level), 0);
  EXPECT_EQ(level, 12);
}

// The flat per-model functions are wrappers over the port, for callers outside the modules.
class GFDevAccessTest : public UnitPortTest {};

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

TEST_F(GFDevAccessTest, EncoderValuesAreClearedOnceReturned) {
  const std::string rp48 = Plug(7, "/dev/v/rp48");
  StartLayer();
  SendInputAndWait(7, 0, rp48, {0, 1, 0xFE, 3, 0x80, 0xA5});
  std::int16_t e[4] = {};
  std::uint8_t buttons = 0;
  EXPECT_EQ(GFDev_GFRP48_GetState(0, &e[0], &e[1], nullptr, &e[3], &buttons), 0);
  EXPECT_EQ(Ints(e, e + 4), (Ints{1, -2, 0, -128}));
  EXPECT_EQ(buttons, 0xA5);
  // Second call, no report in between: the returned values are 0, the skipped one is still there.
  EXPECT_EQ(GFDev_GFRP48_GetState(0, &e[0], &e[1], &e[2], &e[3], &buttons), 0);
  EXPECT_EQ(Ints(e, e + 4), (Ints{0, 0, 3, 0}));
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
  EXPECT_EQ(Ints(values, values + 3), (Ints{0, 0, 0}));
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

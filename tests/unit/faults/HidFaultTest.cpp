// The device layer under the faults a pilot's desk produces: a unit pulled out in the middle of a
// burst of writes and pushed back in, reads that keep failing, a storm of plugs and unplugs across
// several models, and a device path at the length limit. Nothing may hang, crash or mix up units.
#include <gtest/gtest.h>

#include <array>
#include <cctype>
#include <cstring>
#include <chrono>
#include <functional>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "../hid/VirtualPanels.h"
#include "hid/DeviceObject.h"
#include "hid/ReportEncoders.h"
#include "hid/ReportQueue.h"

namespace drav {
namespace {

using namespace std::chrono_literals;
using Bytes = std::vector<std::uint8_t>;
using testing::CallbackRecorder;
using testing::WaitUntil;

// How long a removal may take: the write thread flushes its queue once and ends.
constexpr auto kRemovalLimit = 1s;

Bytes Encoded(const std::function<std::size_t(std::span<std::uint8_t>)>& encode) {
  std::array<std::uint8_t, kMaxQueuedReportLength> buffer{};
  return Bytes(buffer.begin(), buffer.begin() + static_cast<std::ptrdiff_t>(encode(buffer)));
}

// One model's light or output write, and the report it puts on the wire, for each write strategy.
struct WriteCase {
  const char* name;
  std::uint32_t moduleType;
  std::uint16_t version;
  std::int32_t (*write)(std::uint8_t value);
  Bytes (*expected)(std::uint8_t value);
};

const WriteCase kWriteCases[] = {
    {"GFP8_FeatureDrop", 2, 0x0100, [](std::uint8_t v) { return GFDev_GFP8_SetLEDs(0, v); },
     [](std::uint8_t v) { return Encoded([&](auto out) { return EncodeIndicatorByte(out, 2, v); }); }},
    {"GF46_FeatureRetry", 8, 0x0100,
     [](std::uint8_t v) { return GFDev_GF46_SetDisplay2(0, std::to_string(v).c_str()); },
     [](std::uint8_t v) {
       return Encoded([&](auto out) { return EncodeGF46Display2(out, std::to_string(v).c_str()); });
     }},
    {"GF166_FeatureRetryThrice", 5, 0x0100, [](std::uint8_t v) { return GFDev_GF166_SetLEDs(0, v); },
     [](std::uint8_t v) { return Encoded([&](auto out) { return EncodeIndicatorByte(out, 7, v); }); }},
    {"GFMCPPro_PaddedOutput", 12, 0x0200,
     [](std::uint8_t v) { return GFDev_GFMCPPro_SetLEDs(0, v * 0x01010101u); },
     [](std::uint8_t v) {
       return Encoded([&](auto out) {
         return PadGFMCPProOutputReport(out, EncodeGFMCPProIndicators(out, v * 0x01010101u));
       });
     }},
    {"GFDIO_ByReportKind", 19, 0x0100, [](std::uint8_t v) { return GFDev_GFDIO_SetOutputs(0, v, 0, 0, v); },
     [](std::uint8_t v) {
       return Encoded([&](auto out) { return EncodeGFDIOOutputs(out, 8, {v, 0, 0, v}); });
     }},
};

class UnplugDuringWriteBurst : public testing::VirtualPanelsTest,
                               public ::testing::WithParamInterface<WriteCase> {};

TEST_P(UnplugDuringWriteBurst, RemovalEndsTheBurstAndTheUnitWorksWhenBack) {
  const WriteCase& c = GetParam();
  const std::string path = Plug(c.moduleType, "/dev/v/burst", c.version);
  StartLayer();
  ASSERT_TRUE(OutputIdle());

  // The unit goes away half-way through the burst; the layer hears of it only at the next frame,
  // so the second half is still accepted and fails on the wire.
  for (int i = 1; i <= 200; ++i) {
    EXPECT_EQ(c.write(static_cast<std::uint8_t>(i)), kGFDevDone);
    if (i == 100) {
      ASSERT_TRUE(Panels().Unplug(path));
    }
  }
  const auto removalStart = std::chrono::steady_clock::now();
  GFDev_ProcessDeviceChanges();
  EXPECT_LT(std::chrono::steady_clock::now() - removalStart, kRemovalLimit);
  EXPECT_EQ(GFDev_PresentUnitCount(c.moduleType), 0);
  EXPECT_EQ(c.write(0x11), kGFDevNoDevice) << "an absent unit refuses writes";

  Panels().ClearSent();
  ASSERT_TRUE(Panels().Replug(path));
  GFDev_ProcessDeviceChanges();
  EXPECT_EQ(GFDev_PresentUnitCount(c.moduleType), 1);
  EXPECT_EQ(GFDev_UnitPath(c.moduleType, 0), "/DEV/V/BURST") << "the unit keeps its slot";
  ASSERT_TRUE(OutputIdle());

  EXPECT_EQ(c.write(0x5A), kGFDevDone);
  ASSERT_TRUE(OutputIdle());
  const std::vector<VirtualSentReport> sent = Panels().Sent(path);
  ASSERT_FALSE(sent.empty());
  EXPECT_EQ(sent.back().bytes, c.expected(0x5A));
  for (const VirtualSentReport& report : sent) {
    EXPECT_NE(report.bytes, c.expected(0x11)) << "a refused write must never reach the unit";
  }
}

INSTANTIATE_TEST_SUITE_P(WriteStrategies, UnplugDuringWriteBurst, ::testing::ValuesIn(kWriteCases),
                         [](const auto& info) { return std::string(info.param.name); });

// ---- reads ------------------------------------------------------------------------------------------

class ReadFaultTest : public testing::VirtualPanelsTest {};

TEST_F(ReadFaultTest, ReadsFailingForAWhileDeliverNothingThenEverythingInOrder) {
  const std::string path = Plug(2, "/dev/v/p8");
  StartLayer();
  Panels().SetFault(path, VirtualFault::Read, true);
  for (std::uint8_t switches : {0x01, 0x03, 0x07}) ASSERT_TRUE(Panels().SendInput(path, {0, switches}));
  std::this_thread::sleep_for(100ms);  // many failed reads, paced by the read thread's pause
  EXPECT_EQ(CallbackRecorder::Instance().Count(), 0u);
  EXPECT_EQ(Panels().InputTaken(path), 0u) << "a failing read takes no report";
  EXPECT_EQ(Panels().PendingInput(path), 3u);

  Panels().SetFault(path, VirtualFault::Read, false);
  ASSERT_TRUE(WaitUntil([&] { return CallbackRecorder::Instance().Count() == 3; }));
  const auto records = CallbackRecorder::Instance().Records();
  EXPECT_EQ((Bytes{records[0].bytes[0], records[1].bytes[0], records[2].bytes[0]}), (Bytes{0x01, 0x03, 0x07}));
}

TEST_F(ReadFaultTest, StopIsPromptWhileReadsKeepFailing) {
  for (int unit = 0; unit < 4; ++unit) {
    const std::string path = Plug(2, "/dev/v/p8-" + std::to_string(unit));
    Panels().SetFault(path, VirtualFault::Read, true);
  }
  StartLayer();
  std::this_thread::sleep_for(30ms);
  const auto start = std::chrono::steady_clock::now();
  GFDev_Stop();
  EXPECT_LT(std::chrono::steady_clock::now() - start, kRemovalLimit);
}

// ---- stalled units ----------------------------------------------------------------------------------

class StallTest : public testing::VirtualPanelsTest {};

// Several units stop taking reports with many queued: the stop lets every writer wait out its one
// stalled write side by side and drops the rest, so it takes about one write timeout in total.
TEST_F(StallTest, StopWithStalledUnitsTakesAboutOneWriteTimeoutAndDropsTheRest) {
  constexpr int kUnits = 3;
  std::vector<std::string> paths;
  for (int unit = 0; unit < kUnits; ++unit) paths.push_back(Plug(2, "/dev/v/stalled-" + std::to_string(unit)));
  StartLayer();
  ASSERT_TRUE(OutputIdle());
  for (const std::string& path : paths) Panels().SetFault(path, VirtualFault::Block, true);
  for (int unit = 0; unit < kUnits; ++unit) {
    for (std::uint8_t mask = 1; mask <= 9; ++mask) EXPECT_EQ(GFDev_GFP8_SetLEDs(unit, mask), kGFDevDone);
  }
  for (const std::string& path : paths) ASSERT_TRUE(WaitUntil([&] { return Panels().BlockedWrites(path) == 1; }));

  const auto start = std::chrono::steady_clock::now();
  GFDev_Stop();
  const auto took = std::chrono::steady_clock::now() - start;
  EXPECT_LT(took, kBlockedWriteTimeout + 2s);
  for (const std::string& path : paths) EXPECT_TRUE(Panels().Sent(path).empty()) << path;
}

TEST_F(StallTest, BrightnessGetterNeverWaitsOnAStalledUnit) {
  const std::string path = Plug(2, "/dev/v/p8");
  Panels().SetFeatureAnswer(path, kGFSwitchPanelBrightnessReport, {kGFSwitchPanelBrightnessReport, 9});
  StartLayer();
  std::uint16_t level = 0;
  // The getter answers done, and within a frame's share, while the unit does not answer.
  const auto answersAtOnce = [&] {
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(GFDev_GFP8_GetBrightness(0, &level), kGFDevDone);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 100ms);
  };
  // A loaded machine may wake the writer later than the getter's short wait: the first read, with
  // no earlier answer to fall back on, is given time.
  bool firstRead = false;
  {
    const testing::PatientFeatureReads patient;
    firstRead = GFDev_GFP8_GetBrightness(0, &level) == kGFDevDone;
  }
  ASSERT_TRUE(firstRead);
  EXPECT_EQ(level, 9);

  // Its feature reads stall: the getter answers at once with the last level it read.
  Panels().SetFeatureAnswer(path, kGFSwitchPanelBrightnessReport, {kGFSwitchPanelBrightnessReport, 4});
  Panels().SetFault(path, VirtualFault::FeatureBlock, true);
  level = 0;
  answersAtOnce();
  EXPECT_EQ(level, 9);
  ASSERT_TRUE(WaitUntil([&] { return Panels().BlockedFeatureReads(path) == 1; }));
  answersAtOnce();

  // Once the unit answers again, the getter reads its new level.
  Panels().SetFault(path, VirtualFault::FeatureBlock, false);
  ASSERT_TRUE(WaitUntil([&] {
    GFDev_GFP8_GetBrightness(0, &level);
    return level == 4;
  }));

  // The same while its writer sits in a stalled write.
  Panels().SetFault(path, VirtualFault::Block, true);
  EXPECT_EQ(GFDev_GFP8_SetLEDs(0, 1), kGFDevDone);
  ASSERT_TRUE(WaitUntil([&] { return Panels().BlockedWrites(path) == 1; }));
  answersAtOnce();
  EXPECT_EQ(level, 4);
  Panels().SetFault(path, VirtualFault::Block, false);
}

TEST_F(StallTest, ArrivalOfAUnitWhoseFeatureReadsStallDoesNotHoldUpTheFrame) {
  const std::string known = Plug(3, "/dev/v/t8");
  StartLayer();
  ASSERT_TRUE(Panels().Unplug(known));
  GFDev_ProcessDeviceChanges();
  Panels().SetFeatureAnswer(known, 4, {4, 0x05});
  Panels().SetFault(known, VirtualFault::FeatureBlock, true);
  const std::string newcomer = Plug(3, "/dev/v/t8-new");
  Panels().SetFault(newcomer, VirtualFault::FeatureBlock, true);
  ASSERT_TRUE(Panels().Replug(known));

  const auto start = std::chrono::steady_clock::now();
  GFDev_ProcessDeviceChanges();
  EXPECT_LT(std::chrono::steady_clock::now() - start, 100ms);
  EXPECT_EQ(GFDev_GFT8_Count(), 2);
  EXPECT_FALSE(GFDev_ReturnsSettled()) << "the returning unit is still reading its state";

  // Its state, read on its own thread once the unit answers, is the state the getter sees.
  Panels().SetFault(known, VirtualFault::FeatureBlock, false);
  Panels().SetFault(newcomer, VirtualFault::FeatureBlock, false);
  ASSERT_TRUE(WaitUntil([] { return GFDev_ReturnsSettled(); }));
  std::uint8_t switches = 0;
  EXPECT_EQ(GFDev_GFT8_GetSwitches(0, &switches), kGFDevDone);
  EXPECT_EQ(switches, 0x05);
}

// ---- plug storm -------------------------------------------------------------------------------------

class PlugStormTest : public testing::VirtualPanelsTest {};

TEST_F(PlugStormTest, UnitsKeepTheirSlotsAndWorkAfterTheStorm) {
  const std::array<std::uint32_t, 6> models{2, 8, 6, 18, 19, 14};  // P8, 46, MCP, WCP, DIO, SECM
  struct Unit {
    std::uint32_t moduleType;
    std::string path;
    bool present = true;
  };
  std::vector<Unit> units;
  for (std::uint32_t model : models) {
    for (int n = 0; n < 2; ++n) {
      units.push_back({model, Plug(model, "/dev/v/m" + std::to_string(model) + "-" + std::to_string(n))});
    }
  }
  StartLayer();

  std::mt19937 random(20260401);  // a fixed storm, the same on every run
  for (int step = 0; step < 300; ++step) {
    Unit& unit = units[random() % units.size()];
    if (unit.present) {
      ASSERT_TRUE(Panels().Unplug(unit.path));
    } else {
      ASSERT_TRUE(Panels().Replug(unit.path));
    }
    unit.present = !unit.present;
    // Present units keep sending input and being written to in the middle of it.
    if (unit.present) Panels().SendInput(unit.path, {0, static_cast<std::uint8_t>(step)});
    GFDev_GFP8_SetLEDs(step % 2, static_cast<std::uint8_t>(step));
    if (step % 3 == 0) GFDev_ProcessDeviceChanges();  // several notices may wait for one frame
  }
  for (Unit& unit : units) {
    if (!unit.present) {
      ASSERT_TRUE(Panels().Replug(unit.path));
    }
  }
  GFDev_ProcessDeviceChanges();

  for (std::uint32_t model : models) EXPECT_EQ(GFDev_PresentUnitCount(model), 2) << "model " << model;
  // Plug order gave slot n to unit n of each model; the storm changed none of that.
  for (std::size_t i = 0; i < units.size(); ++i) {
    std::string upper = units[i].path;
    for (char& c : upper) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    EXPECT_EQ(GFDev_UnitPath(units[i].moduleType, static_cast<std::int32_t>(i % 2)), upper);
  }
  // Input still reaches the callback with the right unit number.
  ASSERT_TRUE(OutputIdle());
  CallbackRecorder::Instance().Clear();
  SendInputAndWait(2, 1, units[1].path, {0, 0xA5});
  ASSERT_TRUE(WaitUntil([&] {
    for (const auto& record : CallbackRecorder::Instance().Records()) {
      if (record.moduleType == 2 && record.unit == 1 && record.bytes[0] == 0xA5) return true;
    }
    return false;
  }));
}

// ---- device paths -------------------------------------------------------------------------------

class DevicePathLimitTest : public testing::VirtualPanelsTest {};

TEST_F(DevicePathLimitTest, PathOfExactly259CharactersIsKeptWholeAndTerminated) {
  const std::string prefix = "/dev/v/";
  const std::string path = prefix + std::string(kMaxDevicePathLength - prefix.size(), 'p');
  ASSERT_EQ(path.size(), 259u);
  Plug(8, path);
  const std::string tooLong = path + "q";
  Plug(8, tooLong);
  StartLayer();
  EXPECT_EQ(GFDev_GF46_Count(), 1) << "259 characters fit, 260 do not";

  GFDevInfo info;
  std::memset(&info, 0x7F, sizeof info);
  ASSERT_EQ(GFDev_GetDeviceInfo(8, 0, &info), kGFDevDone);
  EXPECT_EQ(std::string(info.path), GFDev_UnitPath(8, 0));  // all 259, then the terminator
  EXPECT_EQ(info.path[259], '\0');

  // The overlong one arriving later is refused too, and a lookup by it finds nothing.
  ASSERT_TRUE(Panels().Unplug(tooLong));
  ASSERT_TRUE(Panels().Replug(tooLong));
  GFDev_ProcessDeviceChanges();
  EXPECT_EQ(GFDev_GF46_Count(), 1);
  std::int32_t unit = 0;
  EXPECT_EQ(GFDev_FindUnitByPath(8, tooLong.c_str(), &unit), kGFDevNoDevice);
  EXPECT_EQ(unit, -1);
}

}  // namespace
}  // namespace drav

// The GF-TQ6 module: one event per lever record, all six levers moved from it, the bindings by key,
// the unit-wide lever settings, re-binding to a new aircraft, its debug lines and its threads.
#include "modules/GFTQ6_Module.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include "hid/InputRecords.h"
#include "base/Log.h"
#include "base/Settings.h"
#include "host/SimHost.h"
#include "../TestFolders.h"

namespace drav {
namespace {

constexpr FunctionId kEngThrottle[2] = {613, 614};
constexpr FunctionId kEng1Mixture = 622;
constexpr FunctionId kEng2Mixture = 623;
constexpr FunctionId kFlapsLever = 612;
constexpr FunctionId kSpeedBrakeLever = 87;

const char* const kThrottle = "sim/flightmodel/engine/ENGN_thro";
const char* const kMixture = "sim/flightmodel/engine/ENGN_mixt";
const char* const kPropMode = "sim/flightmodel/engine/ENGN_propmode";

class GFTQ6ModuleTest : public ::testing::Test {
 protected:
  void SetUp() override {
    root_ = drav_test::FreshTestFolder("tq6");
    host().Reset(root_);
    gDebug = DebugSwitches{};
    gSettings = GlobalSettings{};
  }
  void TearDown() override {
    gDebug = DebugSwitches{};
    gSettings = GlobalSettings{};
    host().Reset({});
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
  }

  static sim::SimHost& host() { return sim::SimHost::Current(); }
  static void Set(const std::string& path, double value) { ASSERT_TRUE(host().SetDatarefValue(path, -1, -1, value)); }
  static double Value(const char* path, int index = -1) { return host().GetDatarefValue(path, index).value_or(-999); }

  // Decodes a record and hands the event on, as the queue does.
  static std::int32_t Feed(GFTQ6_Module& module, GFTQ6InputRecord record) {
    std::int32_t value = 0;
    const std::int32_t control = module.GetButton(&record, &value);
    if (control >= 0) module.HandleInput(control, value);
    return control;
  }

  // Every lever swept once over its whole travel, so that its calibration is 0..255.
  static void Calibrate(GFTQ6_Module& module) {
    Feed(module, GFTQ6InputRecord{{0, 0, 0, 0, 0, 0}, 0});
    Feed(module, GFTQ6InputRecord{{255, 255, 255, 255, 255, 255}, 0});
  }

  std::vector<std::string> LogLines() const {
    std::ifstream file(host().PluginFolder() / "DRAVLog.txt", std::ios::binary);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
      if (!line.empty() && line.back() == '\r') line.pop_back();
      lines.push_back(line);
    }
    return lines;
  }

  std::filesystem::path root_;
};

TEST_F(GFTQ6ModuleTest, EveryRecordIsOneEventWithValueUntouched) {
  GFTQ6_Module module;
  const GFTQ6InputRecord record{{1, 2, 3, 4, 5, 6}, 0x1E};
  for (int i = 0; i < 3; ++i) {  // the same record again is still an event
    std::int32_t value = 0;
    EXPECT_EQ(module.GetButton(&record, &value), 0);
    EXPECT_EQ(value, 0);
  }
  std::uint8_t positions[kTQ6LeverCount];
  std::uint8_t switches = 0;
  module.LastRecord(positions, &switches);
  EXPECT_EQ(std::vector<int>(positions, positions + kTQ6LeverCount), (std::vector<int>{1, 2, 3, 4, 5, 6}));
  EXPECT_EQ(switches, 0x1E);

  std::int32_t value = 5;
  EXPECT_EQ(module.GetButton(nullptr, &value), -1);
  EXPECT_EQ(value, 5);
}

TEST_F(GFTQ6ModuleTest, KeysAToFBindTheirLeverAndOtherKeysNothing) {
  GFTQ6_Module module;
  const FunctionId ids[kTQ6LeverCount] = {613, 614, 622, 623, kFlapsLever, kSpeedBrakeLever};
  for (int i = 0; i < kTQ6LeverCount; ++i) module.AssignFunction(static_cast<std::uint8_t>('A' + i), ids[i], 4, 2);
  module.AssignFunction('G', 615, -1, -1);
  module.AssignFunction('a', 615, -1, -1);
  for (int i = 0; i < kTQ6LeverCount; ++i) {
    EXPECT_EQ(module.GetAssignedFunction(static_cast<std::uint8_t>('A' + i)), ids[i]);
  }
  EXPECT_EQ(module.GetAssignedFunction('G'), 0);
  EXPECT_EQ(module.GetAssignedFunction('@'), 0);
  EXPECT_EQ(module.GetAssignedFunction(0), 0);
}

TEST_F(GFTQ6ModuleTest, HandleInputMovesEveryLeverWithItsOwnSwitchBit) {
  Set("sim/aircraft/prop/acf_revthrust_eq", 1);
  Set("sim/aircraft/engine/acf_throtmax_FWD", 1.0);
  Set("sim/aircraft/engine/acf_throtmax_REV", 0.5);
  Set(kPropMode, 1);
  GFTQ6_Module module;
  module.AssignFunction('A', kEngThrottle[0], -1, -1);
  module.AssignFunction('B', kEngThrottle[1], -1, -1);
  module.AssignFunction('C', kEng1Mixture, -1, -1);
  module.AssignFunction('D', kEng2Mixture, -1, -1);
  module.SetLeverReversers(-1.0f, -1.0f, 0.6f);  // no reverse zone: the far end is idle
  Calibrate(module);

  // Both throttles at idle (the far raw end, inverted); only lever B's switch bit (bit 1) is set.
  Feed(module, GFTQ6InputRecord{{255, 255, 3, 252, 0, 0}, 0b10});
  EXPECT_EQ(Value(kPropMode, 0), 1);
  EXPECT_NEAR(Value(kThrottle, 0), 0.0, 1e-6);
  EXPECT_EQ(Value(kPropMode, 1), 3);
  EXPECT_NEAR(Value(kThrottle, 1), 0.3, 1e-5);
  EXPECT_NEAR(Value(kMixture, 0), 1.0, 1e-6);
  EXPECT_NEAR(Value(kMixture, 1), 0.0, 1e-6);
}

TEST_F(GFTQ6ModuleTest, SettingsReachAllSixLevers) {
  GFTQ6_Module module;
  module.SetLeverReversers(0.3f, 0.4f, 0.7f);
  module.SetFlapNullZones(0.25f);
  for (const LeverFunction& lever : module.levers) {
    EXPECT_FLOAT_EQ(lever.reversePoint, 0.3f);
    EXPECT_FLOAT_EQ(lever.betaPoint, 0.4f);
    EXPECT_FLOAT_EQ(lever.reverserPower, 0.7f);
    EXPECT_FLOAT_EQ(lever.flapNullZone, 0.25f);
  }
}

TEST_F(GFTQ6ModuleTest, ReloadLeversTakesTheNewAircraftAndKeepsBindingsAndCalibration) {
  GFTQ6_Module module;
  module.AssignFunction('A', kEngThrottle[0], -1, -1);
  module.AssignFunction('F', kFlapsLever, -1, -1);
  Calibrate(module);
  Set("sim/aircraft/overflow/acf_has_beta", 1);
  Set("sim/aircraft/engine/acf_throtmax_FWD", 0.9);
  module.ReloadLevers();
  EXPECT_EQ(module.GetAssignedFunction('A'), kEngThrottle[0]);
  EXPECT_EQ(module.GetAssignedFunction('F'), kFlapsLever);
  EXPECT_EQ(module.levers[0].hasBeta, 1);
  EXPECT_FLOAT_EQ(module.levers[0].throttleMaxFwd, 0.9f);
  EXPECT_EQ(module.levers[5].rawMin, 0);
  EXPECT_EQ(module.levers[5].rawMax, 255);
}

TEST_F(GFTQ6ModuleTest, RegisterAndClearDisplayLeaveTheLeversAlone) {
  GFTQ6_Module module;
  module.AssignFunction('C', kEng1Mixture, -1, -1);
  Calibrate(module);
  module.Register(2);
  EXPECT_EQ(module.unit, 2);
  EXPECT_EQ(module.GetAssignedFunction('C'), kEng1Mixture);
  EXPECT_EQ(module.levers[2].rawMax, 255);
  host().ClearEvents();
  module.SetDisplay();
  module.UpdateOutputs();
  EXPECT_TRUE(host().Events().empty());
}

TEST_F(GFTQ6ModuleTest, CopyKeepsLeversAndTheLastRecord) {
  GFTQ6_Module original;
  original.AssignFunction('D', kEng2Mixture, -1, -1);
  std::int32_t value = 0;
  const GFTQ6InputRecord record{{9, 8, 7, 6, 5, 4}, 0x04};
  original.GetButton(&record, &value);
  const GFTQ6_Module copy = original;
  EXPECT_EQ(copy.levers[3].functionId, kEng2Mixture);
  std::uint8_t positions[kTQ6LeverCount];
  std::uint8_t switches = 0;
  copy.LastRecord(positions, &switches);
  EXPECT_EQ(positions[0], 9);
  EXPECT_EQ(switches, 0x04);
}

TEST_F(GFTQ6ModuleTest, GetButtonDebugLinesOnlyWithTheirSwitch) {
  gDebug.DebugEnabled = 1;
  InitLogPath();
  GFTQ6_Module module;
  std::int32_t value = 0;
  const GFTQ6InputRecord record{{0, 17, 128, 200, 255, 3}, 0b0001'0110};
  module.GetButton(&record, &value);
  EXPECT_TRUE(LogLines().empty());

  gDebug.DebugGetButtonFunction = 1;
  module.GetButton(&record, &value);
  EXPECT_EQ(LogLines(), (std::vector<std::string>{
                            "GFTQ6_Module::GetButton -  Lever A = 0, Lever B = 17, Lever C = 128, Lever D = 200, "
                            "Lever E = 255, Lever F = 3",
                            "GFTQ6_Module::GetButton - SwitchState = 0110100000000000",
                        }));
}

// The input thread stores records while the main thread moves the levers (run under TSan).
TEST_F(GFTQ6ModuleTest, RecordsArriveWhileTheLeversMove) {
  GFTQ6_Module module;
  module.AssignFunction('A', kEng1Mixture, -1, -1);
  std::atomic<bool> done{false};
  std::thread input([&] {
    for (int i = 0; i < 2000; ++i) {
      const std::uint8_t raw = static_cast<std::uint8_t>(i % 256);
      const GFTQ6InputRecord record{{raw, raw, raw, raw, raw, raw}, static_cast<std::uint8_t>(i & 0x3F)};
      std::int32_t value = 0;
      module.GetButton(&record, &value);
    }
    done = true;
  });
  int moves = 0;
  while (!done || moves == 0) {
    module.HandleInput(0, 0);
    ++moves;
  }
  input.join();
  module.HandleInput(0, 0);
  std::uint8_t positions[kTQ6LeverCount];
  std::uint8_t switches = 0;
  module.LastRecord(positions, &switches);
  EXPECT_EQ(positions[0], 1999 % 256);
  EXPECT_EQ(switches, 1999 & 0x3F);
}

}  // namespace
}  // namespace drav

// Shared set-up for the light-box module tests (GF-P8, GF-T8, GF-RP48): a fresh simulator per test
// with a powered aircraft, the debug switches and settings back at their defaults afterwards, and
// the log file read back. No device is plugged: device reads fail (all switches off) and light
// masks go nowhere, which the modules must take in their stride.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>
#include <vector>

#include "base/Log.h"
#include "base/Settings.h"
#include "host/SimHost.h"
#include "modules/PanelPower.h"
#include "../TestFolders.h"

namespace drav::lightboxtest {

inline constexpr std::int32_t kLandingLts = 160;
inline constexpr std::int32_t kLandingGear = 437;
inline constexpr std::int32_t kApDisengage = 89;
inline constexpr std::int32_t kCom1StandbyFine = 44;
inline constexpr std::int32_t kDecisionHeight = 75;
inline constexpr std::int32_t kNav1Standby = 19;

inline constexpr const char* kLandingLightsPath = "sim/cockpit/electrical/landing_lights_on";
inline constexpr const char* kGearHandlePath = "sim/cockpit/switches/gear_handle_status";
inline constexpr const char* kCom1StandbyPath = "sim/cockpit/radios/com1_stdby_freq_hz";
inline constexpr const char* kDecisionHeightPath = "sim/cockpit/misc/radio_altimeter_minimum";

class LightBoxTest : public ::testing::Test {
 protected:
  void SetUp() override {
    root_ = drav_test::FreshTestFolder("lightbox");
    Host().Reset(root_);
    ResetPanelPowerLookups();
    gDebug = DebugSwitches{};
    gSettings = GlobalSettings{};
    Set("sim/cockpit/electrical/battery_on", 1);
    Set("sim/flightmodel/engine/ENGN_bat_volt", 24);
    Set("sim/aircraft/engine/acf_num_engines", 1);
  }
  void TearDown() override {
    gDebug = DebugSwitches{};
    gSettings = GlobalSettings{};
    ResetPanelPowerLookups();
    Host().Reset({});
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
  }

  static sim::SimHost& Host() { return sim::SimHost::Current(); }
  static void Set(const char* path, double value) { ASSERT_TRUE(Host().SetDatarefValue(path, -1, -1, value)) << path; }
  static double Get(const char* path) { return Host().GetDatarefValue(path).value_or(-12345.0); }

  static void DarkAircraft() {
    Set("sim/cockpit/electrical/battery_on", 0);
    Set("sim/cockpit/electrical/generator_on", 0);
  }

  // Debug switches on and the log opened in this test's plug-in folder.
  static void TraceAll() {
    gDebug.DebugEnabled = 1;
    gDebug.DebugRegisterFunction = 1;
    gDebug.DebugGetButtonFunction = 1;
    gDebug.DebugHandleInputFunction = 1;
    gDebug.DebugSetDisplayFunction = 1;
    InitLogPath();
  }

  static std::vector<std::string> LogLines() {
    std::ifstream file(Host().PluginFolder() / "DRAVLog.txt", std::ios::binary);
    std::vector<std::string> lines;
    std::string line;
    while (std::getline(file, line)) {
      if (!line.empty() && line.back() == '\r') line.pop_back();
      lines.push_back(line);
    }
    return lines;
  }
  static bool Logged(const std::string& line) {
    const std::vector<std::string> lines = LogLines();
    return std::find(lines.begin(), lines.end(), line) != lines.end();
  }

 private:
  std::filesystem::path root_;
};

}  // namespace drav::lightboxtest

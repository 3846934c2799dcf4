// Shared set-up for the GF-45 and GF-46 module tests: a fresh simulator (a powered, parked
// aircraft), a virtual unit of the model plugged into a running device layer so that what the
// module sends can be read back as display texts, and the log file for the trace lines.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "../hid/VirtualPanels.h"
#include "dravsim/PanelOutputs.h"
#include "base/HostState.h"
#include "base/Log.h"
#include "base/Settings.h"
#include "host/SimHost.h"
#include "modules/GFRadioModule.h"
#include "modules/PanelPower.h"

namespace drav::radiotest {

inline constexpr FunctionId kAdf1Card = 4;
inline constexpr FunctionId kCom1Active = 9;
inline constexpr FunctionId kCom1Standby = 10;
inline constexpr FunctionId kNav1Active = 18;
inline constexpr FunctionId kXpdr = 24;
inline constexpr FunctionId kPrev = 25;
inline constexpr FunctionId kNext = 26;
inline constexpr FunctionId kNav1Nav2Toggle = 27;
inline constexpr FunctionId kApHeading = 63;
inline constexpr FunctionId kAltimeter = 68;
inline constexpr FunctionId kFuncInstList = 85;
inline constexpr FunctionId kFuncApList = 86;

inline constexpr const char* kCom1Path = "sim/cockpit/radios/com1_freq_hz";
inline constexpr const char* kAdfCardPath = "sim/cockpit/radios/adf1_cardinal_dir";
inline constexpr const char* kXpdrPath = "sim/cockpit/radios/transponder_code";
inline constexpr const char* kAltimeterPath = "sim/cockpit/misc/barometer_setting";
inline constexpr const char* kAvionicsOnPath = "sim/cockpit/electrical/avionics_on";

class RadioModuleTest : public drav::testing::VirtualPanelsTest {
 protected:
  RadioModuleTest(std::uint32_t moduleType, const char* modelName) : moduleType_(moduleType), modelName_(modelName) {}

  void SetUp() override {
    VirtualPanelsTest::SetUp();
    root_ = std::filesystem::temp_directory_path() /
            ("drav-radio-" + std::to_string(std::chrono::steady_clock::now().time_since_epoch().count()));
    std::filesystem::create_directories(root_);
    sim::SimHost::Current().Reset(root_);
    ResetPanelPowerLookups();
    ResetSharedRadioFunctionLists();
    gDebug = DebugSwitches{};
    X737Mode = 0;
    InitLogPath();
    unitPath_ = Plug(moduleType_, "/dev/radio-0");
    StartLayer();
  }

  void TearDown() override {
    VirtualPanelsTest::TearDown();
    gDebug = DebugSwitches{};
    ResetPanelPowerLookups();
    ResetSharedRadioFunctionLists();
    sim::SimHost::Current().Reset({});
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
  }

  static void SetValue(const char* path, double value) {
    ASSERT_TRUE(sim::SimHost::Current().SetDatarefValue(path, -1, -1, value)) << path;
  }
  static double Value(const char* path) {
    const std::optional<double> value = sim::SimHost::Current().GetDatarefValue(path);
    EXPECT_TRUE(value.has_value()) << path;
    return value.value_or(-1.0);
  }

  static void EnableTraces() {
    gDebug.DebugEnabled = 1;
    gDebug.DebugGetButtonFunction = 1;
    gDebug.DebugHandleInputFunction = 1;
    gDebug.DebugSetDisplayFunction = 1;
  }

  // What display D (1 alphanumeric, 2 numeric) shows after every queued report went out;
  // "<none>" when nothing was sent to it since the last ClearSent.
  std::string Display(int display) {
    EXPECT_TRUE(OutputIdle());
    const dravsim::PanelOutputView view = dravsim::ViewOutputs(modelName_, Panels().Sent(unitPath_));
    if (display < 1 || static_cast<std::size_t>(display) > view.displays.size()) return "<no such display>";
    return view.displays[display - 1].value_or("<none>");
  }

  std::size_t SentCount() {
    EXPECT_TRUE(OutputIdle());
    return Panels().Sent(unitPath_).size();
  }

  void ClearSent() {
    EXPECT_TRUE(OutputIdle());
    Panels().ClearSent();
  }

  static std::vector<std::string> LogLines() {
    std::ifstream file(sim::SimHost::Current().PluginFolder() / "DRAVLog.txt", std::ios::binary);
    std::vector<std::string> lines;
    std::string line;
    while (std::getline(file, line)) {
      if (!line.empty() && line.back() == '\r') line.pop_back();
      lines.push_back(line);
    }
    return lines;
  }

  static void SetModes(GF_Abstract_AvionicDevice& radio, std::initializer_list<std::int32_t> modes) {
    std::int32_t index = 0;
    for (std::int32_t id : modes) radio.modeFunction[index++] = id;
  }

 private:
  std::uint32_t moduleType_;
  const char* modelName_;
  std::filesystem::path root_;
  std::string unitPath_;
};

}  // namespace drav::radiotest

// Test support for the autopilot panels: a fresh simulator, one virtual unit of the model under
// test, what it was last sent, the plug-in log and the simulator's event log.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>
#include <vector>

#include "../hid/VirtualPanels.h"
#include "dravsim/PanelOutputs.h"
#include "modules/CommandTables.h"
#include "base/HostState.h"
#include "base/Log.h"
#include "base/Settings.h"
#include "host/SimHost.h"
#include "modules/PanelPower.h"
#include "../TestFolders.h"

namespace drav::testing {

class McpPanelFixture : public VirtualPanelsTest {
 protected:
  McpPanelFixture(std::uint32_t moduleType, const char* modelName) : moduleType_(moduleType), model_(modelName) {}

  void SetUp() override {
    VirtualPanelsTest::SetUp();
    root_ = drav_test::FreshTestFolder("mcp");
    sim::SimHost::Current().Reset(root_);
    ResetPanelPowerLookups();
    ResetHostState();
    ClearCommandTables();
    gDebug = DebugSwitches{};
    gSettings = GlobalSettings{};
    path_ = Plug(moduleType_, "/dev/v/mcp");
    StartLayer();
    ClearSent();
  }

  void TearDown() override {
    VirtualPanelsTest::TearDown();
    ResetHostState();
    ClearCommandTables();
    gDebug = DebugSwitches{};
    gSettings = GlobalSettings{};
    ResetPanelPowerLookups();
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
  }

  void ClearSent() {
    ASSERT_TRUE(OutputIdle());
    Panels().ClearSent();
    sim::SimHost::Current().ClearEvents();
  }

  std::vector<VirtualSentReport> Sent() {
    EXPECT_TRUE(OutputIdle());
    return Panels().Sent(path_);
  }

  dravsim::PanelOutputView View() { return dravsim::ViewOutputs(model_, Sent()); }
  std::string Display(int display) {
    const auto view = View();
    const auto& shown = view.displays.at(static_cast<std::size_t>(display - 1));
    return shown.value_or("<nothing>");
  }
  std::int64_t Leds() {
    const auto view = View();
    return view.leds.has_value() ? static_cast<std::int64_t>(*view.leds) : -1;
  }

  static const std::vector<std::string>& Events() { return sim::SimHost::Current().Events(); }
  static bool HasEvent(const std::string& event) {
    const auto& events = Events();
    return std::find(events.begin(), events.end(), event) != events.end();
  }

  static void Set(const char* path, double value) {
    ASSERT_TRUE(sim::SimHost::Current().SetDatarefValue(path, -1, -1, value)) << path;
  }

  void EnableLog() {
    gDebug.DebugEnabled = 1;
    InitLogPath();
  }
  std::vector<std::string> LogLines() const {
    std::ifstream file(sim::SimHost::Current().PluginFolder() / "DRAVLog.txt", std::ios::binary);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
      if (!line.empty() && line.back() == '\r') line.pop_back();
      lines.push_back(line);
    }
    return lines;
  }

  void SendInput(std::vector<std::uint8_t> report) { SendInputAndWait(moduleType_, 0, path_, std::move(report)); }

  std::uint32_t moduleType_;
  std::string model_;
  std::string path_;
  std::filesystem::path root_;
};

}  // namespace drav::testing

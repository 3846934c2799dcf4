// The log lines of the module spine: the device information block and the light-mask dump.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <system_error>
#include <vector>

#include "ModuleTestSupport.h"
#include "base/Log.h"
#include "base/Settings.h"
#include "host/SimHost.h"
#include "modules/ModuleManager.h"
#include "modules/ModuleMechanics.h"
#include "../TestFolders.h"

namespace drav {
namespace {

std::int32_t TwoUnits() { return 2; }
std::int32_t OneUnit() { return 1; }

const ModuleModel kLoggedModels[] = {
    {kModuleGFDIO, &OneUnit, &MakeModuleVector<drav_modules_test::DecoderModule>},
    {kModuleGF46, &OneUnit, &MakeModuleVector<drav_modules_test::TestModule<kModuleGF46>>},
    {kModuleGFP8, &TwoUnits, &MakeModuleVector<drav_modules_test::TestModule<kModuleGFP8>>},
};

class ModuleLogTest : public ::testing::Test {
 protected:
  void SetUp() override {
    root_ = drav_test::FreshTestFolder("module_log");
    sim::SimHost::Current().Reset(root_);
    gDebug = DebugSwitches{};
    gDebug.DebugEnabled = 1;
    InitLogPath();
  }
  void TearDown() override {
    gDebug = DebugSwitches{};
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
  }

  std::vector<std::string> LogLines() const {
    std::ifstream file(sim::SimHost::Current().PluginFolder() / "DRAVLog.txt", std::ios::binary);
    std::vector<std::string> lines;
    std::string line;
    while (std::getline(file, line)) {
      if (!line.empty() && line.back() == '\r') line.pop_back();
      lines.push_back(line);
    }
    return lines;
  }

  std::filesystem::path root_;
};

// No unit is plugged into the device layer here, so its records come back empty: version 0.
TEST_F(ModuleLogTest, DeviceInformationListsEveryUnitInTypeOrder) {
  ModuleManager manager{kLoggedModels};
  manager.CreateModules();
  manager.LogDeviceInformation();
  const std::vector<std::string> expected = {
      "Device Information:",
      "Number of GFP8 Devices = 2",
      "Device = GFP8 Unit 1",
      "Firmware Version = 0000",
      "Device = GFP8 Unit 2",
      "Firmware Version = 0000",
      "Number of GF46 Devices = 1",
      "Device = GF46 Unit 1",
      "Firmware Version = 0000",
      "Number of GFDIO Devices = 1",
      "Device = GFDIO Unit 1",
      "Firmware Version = 0000",
      "Output Report Length = 0",
  };
  EXPECT_EQ(LogLines(), expected);
}

TEST_F(ModuleLogTest, LightMaskIsDumpedOnlyWhenSentAndSwitchedOn) {
  LightMaskSender sender;
  auto send = [](std::uint32_t) {};
  sender.Update(true, 0b101, send, "GFP8_Module::SetDisplay - Indicators");  // switch off
  gDebug.DebugSetDisplayFunction = 1;
  sender.Update(true, 0b110, send, "GFP8_Module::SetDisplay - Indicators");
  sender.Update(true, 0b110, send, "GFP8_Module::SetDisplay - Indicators");  // not sent
  sender.Update(false, 0b110, send, "GFP8_Module::SetDisplay - Indicators");  // blanking
  EXPECT_EQ(LogLines(), (std::vector<std::string>{"GFP8_Module::SetDisplay - Indicators = 0110000000000000"}));
}

}  // namespace
}  // namespace drav

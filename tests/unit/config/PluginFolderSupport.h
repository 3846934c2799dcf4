// A fresh simulator whose X-Plane folder is a scratch folder, so that DRAV.INI and DRAVLog.txt are
// real files of the test's own. Also resets the process-wide switches and settings, before and
// after, since every other test shares them.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "IniTestSupport.h"
#include "base/Log.h"
#include "base/Settings.h"
#include "host/SimHost.h"

namespace drav_test {

// The log's line end: the text-mode line end of the platform.
#ifdef _WIN32
inline const std::string kLogLineEnd = "\r\n";
#else
inline const std::string kLogLineEnd = "\n";
#endif

class PluginFolderTest : public ::testing::Test {
 protected:
  explicit PluginFolderTest(const std::string& tag) : root_(tag) {}

  void SetUp() override {
    ASSERT_TRUE(root_.Made());
    drav::CurrentDebugSwitches() = drav::DebugSwitches{};
    drav::CurrentSettings() = drav::GlobalSettings{};
    sim::SimHost::Current().Reset(root_.Path());
    drav::InitLogPath();
  }
  void TearDown() override {
    drav::CurrentDebugSwitches() = drav::DebugSwitches{};
    drav::CurrentSettings() = drav::GlobalSettings{};
  }

  std::filesystem::path PluginFolder() const {
    return root_.Path() / "Resources" / "plugins" / "DRAV";
  }
  std::filesystem::path IniPath() const { return PluginFolder() / "DRAV.INI"; }
  std::filesystem::path LogPath() const { return PluginFolder() / "DRAVLog.txt"; }

  void GivenIni(const std::string& bytes) const { WriteBytes(IniPath(), bytes); }
  // The log's text; empty when there is no log file.
  std::string LogText() const { return ReadBytes(LogPath()).value_or(""); }

 private:
  ScratchFolder root_;
};

}  // namespace drav_test

// A fresh simulator in a temporary X-Plane folder per test, a stand-in plug-in whose entry points
// record their calls, and a helper that runs a scenario text and keeps what it printed.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "dravsim/ScenarioFolder.h"
#include "dravsim/ScenarioRunner.h"
#include "host/SimHost.h"

namespace dravsim::testing {

// Entry points that record each call ("start", "enable", "message 0 102 0" ...) and record one
// simulator event per call, so scenarios can check events without the real plug-in.
struct FakePlugin {
  static std::vector<std::string> calls;
  static int startResult;
  static std::string lastMessageText;  // the text behind the last message's pointer parameter

  static void Reset();
  static sim::PluginEntryPoints EntryPoints();
};

class ScenarioTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // Runs the text as scenario "test.scn"; the printed lines are in Output().
  ScenarioResult Run(std::string_view text, bool quiet = true);
  ScenarioResult RunWithoutPlugin(std::string_view text);
  std::string Output() const { return out_.str(); }
  static sim::SimHost& host() { return sim::SimHost::Current(); }
  std::filesystem::path PluginFolder() const { return host().PluginFolder(); }

 private:
  std::optional<ScenarioFolder> folder_;
  std::ostringstream out_;
};

std::string ReadFileBytes(const std::filesystem::path& path);

inline ::testing::AssertionResult Contains(const std::string& text, const std::string& part) {
  if (text.find(part) != std::string::npos) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << "\"" << part << "\" is not in:\n" << text;
}

}  // namespace dravsim::testing

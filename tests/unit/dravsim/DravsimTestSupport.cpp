#include "DravsimTestSupport.h"

#include <cstdint>
#include <cstring>
#include <fstream>
#include <iterator>

namespace dravsim::testing {

std::vector<std::string> FakePlugin::calls;
int FakePlugin::startResult = 1;
std::string FakePlugin::lastMessageText;

namespace {

void Record(std::string call) {
  sim::SimHost::Current().RecordEvent("plugin " + call);
  FakePlugin::calls.push_back(std::move(call));
}

int FakeStart(char* name, char* signature, char* description) {
  std::strcpy(name, "Fake");
  std::strcpy(signature, "test.fake");
  std::strcpy(description, "A stand-in plug-in.");
  Record("start");
  return FakePlugin::startResult;
}
void FakeStop() { Record("stop"); }
int FakeEnable() {
  Record("enable");
  return 1;
}
void FakeDisable() { Record("disable"); }
void FakeReceiveMessage(int from, int message, void* param) {
  const auto value = reinterpret_cast<std::intptr_t>(param);
  // Scenario texts live at real addresses; numbers in these tests stay small.
  if (value > 0x10000) FakePlugin::lastMessageText = static_cast<const char*>(param);
  Record("message " + std::to_string(from) + " " + std::to_string(message) + " " +
         (value > 0x10000 ? std::string("<text>") : std::to_string(value)));
}

}  // namespace

void FakePlugin::Reset() {
  calls.clear();
  startResult = 1;
  lastMessageText.clear();
}

sim::PluginEntryPoints FakePlugin::EntryPoints() {
  sim::PluginEntryPoints entry;
  entry.start = &FakeStart;
  entry.stop = &FakeStop;
  entry.enable = &FakeEnable;
  entry.disable = &FakeDisable;
  entry.receiveMessage = &FakeReceiveMessage;
  return entry;
}

void ScenarioTest::SetUp() {
  FakePlugin::Reset();
  folder_.emplace(std::nullopt);
  ASSERT_TRUE(folder_->Ok());
  host().Reset(folder_->Path());
}

void ScenarioTest::TearDown() {
  host().Reset({});
  folder_.reset();
}

ScenarioResult ScenarioTest::Run(std::string_view text, bool quiet) {
  ScenarioRunner runner(out_, RunnerOptions{quiet, FakePlugin::EntryPoints()});
  return runner.Run(text, "test.scn");
}

ScenarioResult ScenarioTest::RunWithoutPlugin(std::string_view text) {
  ScenarioRunner runner(out_, RunnerOptions{true, {}});
  return runner.Run(text, "test.scn");
}

std::string ReadFileBytes(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

}  // namespace dravsim::testing

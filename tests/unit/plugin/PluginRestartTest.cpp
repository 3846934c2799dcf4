// The simulator may start the plug-in again without stopping it first. The earlier load's state goes
// then, and with it whatever the simulator still held of it: a dataref registered by that load
// must not answer from the state that went.
#include <gtest/gtest.h>

#include <XPLMDataAccess.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <system_error>

#include "functions/AutopilotSelectorDatarefs.h"
#include "host/SimHost.h"
#include "plugin/Plugin.h"

namespace drav {
namespace {

class PluginRestartTest : public ::testing::Test {
 protected:
  void SetUp() override {
    root_ = std::filesystem::temp_directory_path() /
            ("drav-restart-" + std::to_string(std::chrono::steady_clock::now().time_since_epoch().count()));
    sim::SimHost::Current().Reset(root_);
  }

  void TearDown() override {
    if (started_) PluginStop();
    sim::SimHost::Current().Reset({});
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
  }

  void Start() {
    char name[256] = "";
    char signature[256] = "";
    char description[256] = "";
    ASSERT_EQ(PluginStart(name, signature, description), 1);
    started_ = true;
  }

  void Stop() {
    PluginStop();
    started_ = false;
  }

  std::filesystem::path root_;
  bool started_ = false;
};

TEST_F(PluginRestartTest, ASecondStartAnswersFromItsOwnState) {
  Start();
  XPLMDataRef knob = XPLMFindDataRef(kAltKnobDataref);
  ASSERT_NE(knob, nullptr);
  XPLMSetDatai(knob, 1);
  ASSERT_EQ(XPLMGetDatai(knob), 1);

  Start();
  knob = XPLMFindDataRef(kAltKnobDataref);
  ASSERT_NE(knob, nullptr);
  EXPECT_EQ(XPLMGetDatai(knob), 0) << "the knob of the new load starts at 0";
  XPLMSetDatai(knob, 1);
  EXPECT_EQ(XPLMGetDatai(knob), 1);

  Stop();
  EXPECT_EQ(XPLMFindDataRef(kAltKnobDataref), nullptr) << "a stop leaves no dataref of the plug-in behind";
}

}  // namespace
}  // namespace drav

// Driving a plug-in from a scenario: the lifecycle calls and their order, messages, the shut-down
// at the end, and the event checks (with a stand-in plug-in that records an event per call).
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "DravsimTestSupport.h"
#include "XPLMPlugin.h"
#include "XPLMUtilities.h"

namespace dravsim::testing {
namespace {

class ScenarioPluginTest : public ScenarioTest {};

using Calls = std::vector<std::string>;

TEST_F(ScenarioPluginTest, BootStartsThenEnablesAndTheEndShutsDown) {
  const ScenarioResult result = Run("boot\nframe\n");
  EXPECT_EQ(result.Failures(), 0) << Output();
  EXPECT_EQ(FakePlugin::calls, (Calls{"start", "enable", "disable", "stop"}));
}

TEST_F(ScenarioPluginTest, AScenarioThatStopsItselfIsNotStoppedAgain) {
  const ScenarioResult result = Run("start\nenable\ndisable\nstop\n");
  EXPECT_EQ(result.Failures(), 0) << Output();
  EXPECT_EQ(FakePlugin::calls, (Calls{"start", "enable", "disable", "stop"}));
}

TEST_F(ScenarioPluginTest, StoppingAnEnabledPluginDisablesItFirst) {
  const ScenarioResult result = Run("boot\nstop\nstart\n");
  EXPECT_EQ(result.Failures(), 0) << Output();
  EXPECT_EQ(FakePlugin::calls, (Calls{"start", "enable", "disable", "stop", "start", "stop"}));
}

TEST_F(ScenarioPluginTest, StartedButNeverEnabledIsOnlyStopped) {
  Run("start\n");
  EXPECT_EQ(FakePlugin::calls, (Calls{"start", "stop"}));
}

TEST_F(ScenarioPluginTest, CallsTheSimulatorNeverMakesAreErrors) {
  const ScenarioResult result = Run(
      "enable\n"
      "disable\n"
      "stop\n"
      "message 0 102 0\n"
      "boot\n"
      "start\n"
      "boot\n"
      "enable\n");
  EXPECT_EQ(result.errors, 7) << Output();
  EXPECT_EQ(Output(),
            "test.scn:1: ERROR enable: the plug-in is not started\n"
            "test.scn:2: ERROR disable: the plug-in is not enabled\n"
            "test.scn:3: ERROR stop: the plug-in is not started\n"
            "test.scn:4: ERROR message: the plug-in is not started\n"
            "test.scn:6: ERROR start: the plug-in is already started\n"
            "test.scn:7: ERROR boot: the plug-in is already started\n"
            "test.scn:8: ERROR enable: the plug-in is already enabled\n");
  EXPECT_EQ(FakePlugin::calls, (Calls{"start", "enable", "disable", "stop"}));
}

TEST_F(ScenarioPluginTest, AFailedStartIsNeitherEnabledNorStopped) {
  FakePlugin::startResult = 0;
  const ScenarioResult result = Run("boot\n");
  EXPECT_EQ(result.Failures(), 0) << Output();
  EXPECT_EQ(FakePlugin::calls, (Calls{"start"}));
}

TEST_F(ScenarioPluginTest, WithoutAPluginThePluginCommandsAreErrors) {
  const ScenarioResult result = RunWithoutPlugin("boot\nstart\nplane-loaded\nframe\n");
  EXPECT_EQ(result.errors, 3);
  EXPECT_TRUE(Contains(Output(), "test.scn:1: ERROR boot: no plug-in is loaded\n"));
}

TEST_F(ScenarioPluginTest, MessagesPassNumbersTextsAndSdkStyleIds) {
  const ScenarioResult result = Run(
      "boot\n"
      "plane-loaded\n"
      "message 2 0x8888888E -1\n"
      "message 3 0x01000000 \"merrow/drav/mcppro_disabled\"\n"
      "message 0 102 x\n"
      "message 0 0x100000000 0\n");
  EXPECT_EQ(result.errors, 2) << Output();
  EXPECT_EQ(FakePlugin::calls,
            (Calls{"start", "enable", "message 0 102 0", "message 2 -2004318066 -1",
                   "message 3 16777216 <text>", "disable", "stop"}));
  EXPECT_EQ(FakePlugin::lastMessageText, "merrow/drav/mcppro_disabled");
}

TEST_F(ScenarioPluginTest, EventChecksSeeTheLogSinceTheLastClear) {
  const ScenarioResult result = Run(
      "start\n"
      "expect event \"plugin start\"\n"
      "expect no-event \"plugin enable\"\n"
      "enable\n"
      "expect events\n"
      "    plugin start\n"
      "\n"
      "    plugin enable   \n"
      "end\n"
      "clear\n"
      "expect no-event \"plugin start\"\n"
      "expect events\n"
      "end\n");
  EXPECT_EQ(result.passed, 5) << Output();
  EXPECT_EQ(result.Failures(), 0) << Output();
}

TEST_F(ScenarioPluginTest, EventFailuresShowBothLists) {
  const ScenarioResult result = Run(
      "boot\n"
      "expect events\n"
      "plugin enable\n"
      "plugin start\n"
      "end\n"
      "expect event \"plugin stop\"\n"
      "expect no-event \"plugin enable\"\n"
      "clear\n"
      "expect event \"plugin start\"\n");
  EXPECT_EQ(result.failed, 4);
  EXPECT_EQ(Output(),
            "test.scn:2: FAIL events [\"plugin enable\", \"plugin start\"]; found "
            "[\"plugin start\", \"plugin enable\"] (first difference at event 1)\n"
            "test.scn:6: FAIL event \"plugin stop\"; found [\"plugin start\", \"plugin enable\"]\n"
            "test.scn:7: FAIL no event \"plugin enable\"; found it as event 2 of 2\n"
            "test.scn:9: FAIL event \"plugin start\"; found no events\n");
}

TEST_F(ScenarioPluginTest, MenuItemThatDoesNotExistIsAnError) {
  const ScenarioResult result = Run("boot\nmenu \"Assign Functions\"\n");
  EXPECT_EQ(result.errors, 1);
  EXPECT_TRUE(Contains(Output(), "test.scn:2: ERROR menu: no menu item \"Assign Functions\" "
                                 "(the plug-in's items: [])\n"));
}

TEST_F(ScenarioPluginTest, RunCommandNeedsAKnownCommandAndAPhaseItKnows) {
  const ScenarioResult result =
      Run("boot\nrun-command no/such/command\nrun-command sim/engines/mixture_min sideways\n"
          "clear\nrun-command sim/engines/mixture_min\nexpect events\nend\n");
  EXPECT_EQ(result.errors, 2) << Output();
  EXPECT_FALSE(Contains(Output(), "FAIL"));  // a pilot's command is not one of the plug-in's events
  EXPECT_TRUE(Contains(Output(), "test.scn:2: ERROR run-command: the simulator knows no command \"no/such/command\""));
  EXPECT_TRUE(Contains(Output(), "test.scn:3: ERROR"));
}

TEST_F(ScenarioPluginTest, SetUpCommandsReachTheSimulator) {
  const ScenarioResult result = Run(
      "xplane-version 11550\n"
      "plugin xplanesdk.examples.DataRefEditor\n"
      "command x737/mcp/FD_A_ON present\n"
      "command sim/annunciator/clear_master_warning absent\n"
      "no-system-symbol\n"
      "xplane-version eleven\n"
      "command x737/mcp/FD_A_ON maybe\n");
  EXPECT_EQ(result.errors, 2) << Output();
  EXPECT_TRUE(Contains(Output(), "test.scn:7: ERROR command: usage: command NAME present|absent"));

  int xplaneVersion = 0;
  int xplmVersion = 0;
  XPLMHostApplicationID hostId = 0;
  XPLMGetVersions(&xplaneVersion, &xplmVersion, &hostId);
  EXPECT_EQ(xplaneVersion, 11550);  // the bad line left it alone
  EXPECT_EQ(XPLMFindPluginBySignature("xplanesdk.examples.DataRefEditor"), 2);
  EXPECT_NE(XPLMFindCommand("x737/mcp/FD_A_ON"), nullptr);
  EXPECT_EQ(XPLMFindCommand("sim/annunciator/clear_master_warning"), nullptr);
  EXPECT_EQ(XPLMFindSymbol("XPLMFindCommand"), nullptr);
}

}  // namespace
}  // namespace dravsim::testing

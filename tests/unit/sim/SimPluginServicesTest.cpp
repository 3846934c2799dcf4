// Commands, messages, symbols, versions, paths and the plug-in lifecycle of the simulator host.
#include <XPLMPlanes.h>
#include <XPLMPlugin.h>
#include <XPLMUtilities.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "SimHostFixture.h"
#include "host/PluginRegistry.h"

namespace sim::testing {
namespace {

using Texts = std::vector<std::string>;

// ---- event numbers -----------------------------------------------------------------------------

TEST(SimEventNumbers, ShortestTextThatReadsBackWithoutTrailingZero) {
  EXPECT_EQ(FormatEventNumber(1.0, true), "1");
  EXPECT_EQ(FormatEventNumber(1.0, false), "1");
  EXPECT_EQ(FormatEventNumber(0.25, true), "0.25");
  EXPECT_EQ(FormatEventNumber(0.1f, true), "0.1");
  EXPECT_EQ(FormatEventNumber(29.92f, true), "29.92");
  EXPECT_EQ(FormatEventNumber(-2.5, false), "-2.5");
  EXPECT_EQ(FormatEventNumber(0.0, true), "0");
  EXPECT_EQ(FormatEventNumber(118.0, false), "118");
  EXPECT_EQ(FormatEventNumber(0.1, false), "0.1");
  // A float read as a double shows the float's own error: the precision follows isFloat.
  EXPECT_EQ(FormatEventNumber(static_cast<double>(0.1f), false), "0.10000000149011612");
}

// ---- commands ----------------------------------------------------------------------------------

std::vector<int> gPhases;
int gHandlerResult = 1;

int RecordPhase(XPLMCommandRef, XPLMCommandPhase phase, void* refcon) {
  gPhases.push_back(phase + 10 * *static_cast<int*>(refcon));
  return gHandlerResult;
}

class SimCommands : public SimHostTest {
 protected:
  void SetUp() override {
    SimHostTest::SetUp();
    gPhases.clear();
    gHandlerResult = 1;
  }
};

TEST_F(SimCommands, KnownNamesAreFoundAndOthersAreNot) {
  EXPECT_NE(XPLMFindCommand("sim/starters/engage_starter_1"), nullptr);
  EXPECT_NE(XPLMFindCommand("sim/annunciator/clear_master_warning"), nullptr);
  EXPECT_NE(XPLMFindCommand("sim/starters/engage_starter_1"),
            XPLMFindCommand("sim/starters/engage_starter_2"));
  EXPECT_EQ(XPLMFindCommand("x737/mcp/cmd_toggle"), nullptr);
  EXPECT_EQ(XPLMFindCommand("sim/no/such/command"), nullptr);
  EXPECT_EQ(XPLMFindCommand(nullptr), nullptr);

  host().SetCommandKnown("x737/mcp/cmd_toggle", true);
  XPLMCommandRef x737 = XPLMFindCommand("x737/mcp/cmd_toggle");
  EXPECT_NE(x737, nullptr);
  host().SetCommandKnown("sim/engines/mixture_max", false);
  EXPECT_EQ(XPLMFindCommand("sim/engines/mixture_max"), nullptr);
  host().SetCommandKnown("x737/mcp/cmd_toggle", false);
  XPLMCommandOnce(x737);  // a handle of a command that went away does nothing
  EXPECT_TRUE(host().Events().empty());
}

TEST_F(SimCommands, RunningCommandsIsRecorded) {
  XPLMCommandRef starter = XPLMFindCommand("sim/starters/engage_starter_1");
  XPLMCommandRef mixture = XPLMFindCommand("sim/engines/mixture_min");
  XPLMCommandBegin(starter);
  XPLMCommandEnd(starter);
  XPLMCommandOnce(mixture);
  XPLMCommandOnce(nullptr);
  XPLMCommandButtonPress(xplm_joy_ott_dis);
  XPLMCommandButtonRelease(xplm_joy_ott_dis);
  XPLMCommandKeyStroke(xplm_key_elvtrimD);
  EXPECT_EQ(host().Events(), (Texts{"command-begin sim/starters/engage_starter_1",
                                    "command-end sim/starters/engage_starter_1",
                                    "command-once sim/engines/mixture_min", "button-press 59",
                                    "button-release 59", "keystroke 71"}));
}

TEST_F(SimCommands, HandlersSeeBeginContinueAndEnd) {
  XPLMCommandRef command = XPLMCreateCommand("test/drav/hold", "A held command");
  ASSERT_NE(command, nullptr);
  EXPECT_EQ(XPLMFindCommand("test/drav/hold"), command);
  int id = 0;
  XPLMRegisterCommandHandler(command, RecordPhase, 1, &id);
  XPLMCommandBegin(command);
  host().RunFrames(2);
  XPLMCommandEnd(command);
  host().RunFrames(2);  // released: no more continue phases
  XPLMCommandOnce(command);
  EXPECT_EQ(gPhases, (std::vector<int>{xplm_CommandBegin, xplm_CommandContinue, xplm_CommandContinue,
                                       xplm_CommandEnd, xplm_CommandBegin, xplm_CommandEnd}));
  XPLMUnregisterCommandHandler(command, RecordPhase, 1, &id);
  XPLMCommandOnce(command);
  EXPECT_EQ(gPhases.size(), 6u);
}

// A key bound to a command: the handlers see the same phases, but nothing is recorded, since the
// events record the plug-in's own calls.
TEST_F(SimCommands, APilotsKeyRunsTheHandlersWithoutAnEvent) {
  XPLMCommandRef command = XPLMCreateCommand("test/drav/key", "A bound key");
  int id = 0;
  XPLMRegisterCommandHandler(command, RecordPhase, 1, &id);
  EXPECT_TRUE(host().RunCommandForPilot("test/drav/key", xplm_CommandBegin));
  host().RunFrames(1);
  EXPECT_TRUE(host().RunCommandForPilot("test/drav/key", xplm_CommandEnd));
  EXPECT_TRUE(host().RunCommandForPilot("test/drav/key", xplm_CommandEnd));  // no press: no handler
  EXPECT_EQ(gPhases, (std::vector<int>{xplm_CommandBegin, xplm_CommandContinue, xplm_CommandEnd}));
  EXPECT_TRUE(host().Events().empty());
  EXPECT_FALSE(host().RunCommandForPilot("test/drav/unknown", xplm_CommandBegin));
  host().SetCommandKnown("test/drav/key", false);
  EXPECT_FALSE(host().RunCommandForPilot("test/drav/key", xplm_CommandBegin));
  EXPECT_EQ(gPhases.size(), 3u);
}

TEST_F(SimCommands, ABeforeHandlerReturningZeroStopsTheHandlersAfter) {
  XPLMCommandRef command = XPLMFindCommand("sim/engines/mixture_max");
  int before = 1, after = 2;
  XPLMRegisterCommandHandler(command, RecordPhase, 0, &after);
  XPLMRegisterCommandHandler(command, RecordPhase, 1, &before);
  XPLMCommandOnce(command);
  EXPECT_EQ(gPhases, (std::vector<int>{10, 20, 12, 22}));  // before-handlers first
  gPhases.clear();
  gHandlerResult = 0;
  XPLMCommandOnce(command);
  EXPECT_EQ(gPhases, (std::vector<int>{10, 12}));
}

TEST_F(SimCommands, CreatingAKnownCommandReturnsIt) {
  XPLMCommandRef existing = XPLMFindCommand("sim/magnetos/magnetos_both_1");
  EXPECT_EQ(XPLMCreateCommand("sim/magnetos/magnetos_both_1", "again"), existing);
  EXPECT_EQ(XPLMCreateCommand("", "no name"), nullptr);
  EXPECT_EQ(XPLMCreateCommand(nullptr, "no name"), nullptr);
}

// ---- symbols, versions, paths ------------------------------------------------------------------

TEST_F(SimHostTest, FindSymbolResolvesTheOptionalApiUnlessSwitchedOff) {
  EXPECT_EQ(XPLMFindSymbol("XPLMFindCommand"), reinterpret_cast<void*>(&XPLMFindCommand));
  EXPECT_EQ(XPLMFindSymbol("XPLMCommandBegin"), reinterpret_cast<void*>(&XPLMCommandBegin));
  EXPECT_EQ(XPLMFindSymbol("XPLMCommandEnd"), reinterpret_cast<void*>(&XPLMCommandEnd));
  EXPECT_EQ(XPLMFindSymbol("XPLMCommandOnce"), reinterpret_cast<void*>(&XPLMCommandOnce));
  EXPECT_NE(XPLMFindSymbol("XPLMCreateWindowEx"), nullptr);
  EXPECT_EQ(XPLMFindSymbol("XPLMNoSuchFunction"), nullptr);
  EXPECT_EQ(XPLMFindSymbol(nullptr), nullptr);

  host().SetSystemSymbolsAvailable(false);
  EXPECT_EQ(XPLMFindSymbol("XPLMFindCommand"), nullptr);
  EXPECT_EQ(XPLMFindSymbol("XPLMCommandOnce"), nullptr);
}

TEST_F(SimHostTest, VersionsAreConfigurable) {
  int xplane = 0, xplm = 0;
  XPLMHostApplicationID hostId = 0;
  XPLMGetVersions(&xplane, &xplm, &hostId);
  EXPECT_EQ(xplane, 12000);
  EXPECT_EQ(xplm, 400);
  EXPECT_EQ(hostId, xplm_Host_XPlane);
  host().SetXPlaneVersion(851);
  XPLMGetVersions(&xplane, nullptr, nullptr);
  EXPECT_EQ(xplane, 851);
}

TEST_F(SimHostTest, SystemPathIsTheRootWithATrailingSeparator) {
  char path[512];
  std::memset(path, 'x', sizeof path);
  XPLMGetSystemPath(path);
#ifdef _WIN32
  const std::string separator = "\\";  // what X-Plane reports on Windows
#else
  const std::string separator = "/";
#endif
  EXPECT_EQ(std::string(path), root().string() + separator);
  EXPECT_EQ(XPLMGetDirectorySeparator(), separator);
  EXPECT_TRUE(std::filesystem::is_directory(root() / "Resources" / "plugins" / "DRAV"));
  EXPECT_EQ(host().PluginFolder(), root() / "Resources" / "plugins" / "DRAV");
}

TEST_F(SimHostTest, SystemPathIsBoundedTo512Bytes) {
  const std::filesystem::path deep = root() / std::string(600, 'd');
  host().Reset(deep);
  char path[600];
  std::memset(path, 'x', sizeof path);
  XPLMGetSystemPath(path);
  EXPECT_EQ(std::strlen(path), 511u);
  EXPECT_EQ(path[512], 'x');  // nothing written past the documented buffer
}

TEST_F(SimHostTest, TheUserAircraftIsReportedByNameAndFullPathAndNoOtherIs) {
  char name[256];
  char path[512];
  XPLMGetNthAircraftModel(0, name, path);
  EXPECT_STREQ(name, "Cessna_172SP.acf");  // X-Plane always has a user's aircraft
  host().SetUserAircraft("Aircraft/Jets/Test Jet/jet.acf");
  XPLMGetNthAircraftModel(0, name, path);
  EXPECT_STREQ(name, "jet.acf");
  std::filesystem::path expected = root() / "Aircraft" / "Jets" / "Test Jet" / "jet.acf";
  EXPECT_EQ(std::string(path), expected.make_preferred().string());
  EXPECT_TRUE(std::filesystem::is_directory(root() / "Aircraft" / "Jets" / "Test Jet"));
  XPLMGetNthAircraftModel(1, name, path);
  EXPECT_STREQ(name, "");
  EXPECT_STREQ(path, "");
}

TEST_F(SimHostTest, DebugStringAppendsToTheLog) {
  XPLMDebugString("first line\n");
  XPLMDebugString("second ");
  XPLMDebugString(nullptr);
  XPLMDebugString("line\n");
  std::ifstream log(root() / "Log.txt");
  std::stringstream text;
  text << log.rdbuf();
  EXPECT_EQ(text.str(), "first line\nsecond line\n");
}

// ---- the plug-in under test and messages -------------------------------------------------------

struct FakeCalls {
  Texts calls;
  int startResult = 1;
  int enableResult = 1;
};
FakeCalls gFake;

int FakeStart(char* name, char* signature, char* description) {
  gFake.calls.push_back("start");
  std::snprintf(name, 256, "Fake plug-in");
  std::snprintf(signature, 256, "test.fake.signature");
  std::memset(description, 'd', 256);  // no terminator: the host keeps at most 255 characters
  return gFake.startResult;
}
void FakeStop() { gFake.calls.push_back("stop"); }
int FakeEnable() {
  gFake.calls.push_back("enable");
  return gFake.enableResult;
}
void FakeDisable() { gFake.calls.push_back("disable"); }
void FakeReceive(int from, int message, void* param) {
  gFake.calls.push_back("message " + std::to_string(from) + " " + std::to_string(message) + " " +
                        std::to_string(reinterpret_cast<std::intptr_t>(param)));
}

class SimPluginLifecycle : public SimHostTest {
 protected:
  void SetUp() override {
    SimHostTest::SetUp();
    gFake = FakeCalls{};
    host().LoadPlugin(PluginEntryPoints{FakeStart, FakeStop, FakeEnable, FakeDisable, FakeReceive});
  }
};

TEST_F(SimPluginLifecycle, StepsRunInOrderAndOnlyOnce) {
  EXPECT_EQ(host().Enable(), 0);  // not started
  host().Disable();
  host().Stop();
  EXPECT_TRUE(gFake.calls.empty());

  EXPECT_EQ(host().Start(), 1);
  EXPECT_EQ(host().PluginName(), "Fake plug-in");
  EXPECT_EQ(host().PluginSignature(), "test.fake.signature");
  EXPECT_EQ(host().PluginDescription().size(), 255u);
  EXPECT_EQ(host().Start(), 1);
  EXPECT_EQ(host().Enable(), 1);
  EXPECT_EQ(host().Enable(), 1);
  host().Stop();  // disables first, as X-Plane does
  host().Stop();
  EXPECT_EQ(gFake.calls, (Texts{"start", "enable", "disable", "stop"}));
}

TEST_F(SimPluginLifecycle, AFailedStartOrEnableLeavesThePluginOff) {
  gFake.startResult = 0;
  EXPECT_EQ(host().Start(), 0);
  EXPECT_EQ(host().Enable(), 0);
  gFake.startResult = 1;
  ASSERT_EQ(host().Start(), 1);
  gFake.enableResult = 0;
  EXPECT_EQ(host().Enable(), 0);
  host().Disable();  // it never was enabled
  EXPECT_EQ(gFake.calls, (Texts{"start", "start", "enable"}));
}

TEST_F(SimPluginLifecycle, PluginsAreFoundBySignature) {
  EXPECT_EQ(host().AddOtherPlugin("xplanesdk.examples.DataRefEditor"), 2);
  EXPECT_EQ(host().AddOtherPlugin("com.example.other"), 3);
  EXPECT_EQ(XPLMFindPluginBySignature("com.example.other"), 3);
  EXPECT_EQ(XPLMFindPluginBySignature("xplanesdk.examples.DataRefEditor"), 2);
  EXPECT_EQ(XPLMFindPluginBySignature("test.fake.signature"), XPLM_NO_PLUGIN_ID);  // not started
  host().Start();
  EXPECT_EQ(XPLMFindPluginBySignature("test.fake.signature"), kPluginUnderTestId);
  EXPECT_EQ(XPLMFindPluginBySignature("no.such.plugin"), XPLM_NO_PLUGIN_ID);
  EXPECT_EQ(XPLMFindPluginBySignature(nullptr), XPLM_NO_PLUGIN_ID);
  EXPECT_EQ(XPLMGetMyID(), kPluginUnderTestId);
}

TEST_F(SimPluginLifecycle, MessagesToOtherPluginsAreRecordedWithTheirParameter) {
  const int editor = host().AddOtherPlugin("xplanesdk.examples.DataRefEditor");
  char path[] = "test/drav/switch";
  XPLMSendMessageToPlugin(editor, 0x01000000, path);
  XPLMSendMessageToPlugin(editor, 7, reinterpret_cast<void*>(static_cast<std::intptr_t>(42)));
  XPLMSendMessageToPlugin(editor, 8, nullptr);
  XPLMSendMessageToPlugin(99, 8, nullptr);  // no such plug-in
  EXPECT_EQ(host().Events(), (Texts{"message-sent xplanesdk.examples.DataRefEditor 16777216 test/drav/switch",
                                    "message-sent xplanesdk.examples.DataRefEditor 7 42",
                                    "message-sent xplanesdk.examples.DataRefEditor 8 0"}));
}

TEST_F(SimPluginLifecycle, AMessageToItselfReachesThePluginOnlyWhenEnabled) {
  host().Start();
  XPLMSendMessageToPlugin(kPluginUnderTestId, 5, nullptr);
  host().Enable();
  XPLMSendMessageToPlugin(kPluginUnderTestId, 6, reinterpret_cast<void*>(static_cast<std::intptr_t>(3)));
  EXPECT_EQ(gFake.calls, (Texts{"start", "enable", "message 1 6 3"}));
  EXPECT_EQ(host().Events(), (Texts{"message-sent test.fake.signature 5 0",
                                    "message-sent test.fake.signature 6 3"}));
}

TEST_F(SimPluginLifecycle, TheHostDeliversSimulatorMessagesDirectly) {
  host().Start();
  host().Enable();
  host().SendMessage(0, XPLM_MSG_PLANE_LOADED, 0);
  EXPECT_EQ(gFake.calls.back(), "message 0 102 0");
}

TEST_F(SimPluginLifecycle, ABroadcastReachesEveryOtherPlugin) {
  host().AddOtherPlugin("a.one");
  host().AddOtherPlugin("b.two");
  host().Start();
  host().Enable();
  XPLMSendMessageToPlugin(XPLM_NO_PLUGIN_ID, 9, nullptr);
  EXPECT_EQ(host().Events(), (Texts{"message-sent a.one 9 0", "message-sent b.two 9 0"}));
  EXPECT_EQ(gFake.calls, (Texts{"start", "enable"}));
}

TEST(SimMessageParams, NumbersInThePointerValueAreNotRead) {
  EXPECT_EQ(DescribeMessageParam(nullptr), "0");
  EXPECT_EQ(DescribeMessageParam(reinterpret_cast<void*>(static_cast<std::intptr_t>(65535))), "65535");
  EXPECT_EQ(DescribeMessageParam(reinterpret_cast<void*>(static_cast<std::intptr_t>(-1))), "-1");
  EXPECT_EQ(DescribeMessageParam("text"), "text");
}

}  // namespace
}  // namespace sim::testing

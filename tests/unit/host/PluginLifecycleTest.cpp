// The plug-in's lifecycle against the simulator host: entry points, flight loops, splash window,
// menu, messages and the command tables resolved through the optional SDK.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "functions/PanelDirectory.h"
#include "hid/ModuleTypes.h"
#include "modules/CommandTables.h"
#include "modules/ModuleManager.h"
#include "base/HostState.h"
#include "base/OptionalXplmApi.h"
#include "plugin/Plugin.h"
#include "base/Settings.h"
#include "base/Version.h"
#include "host/SimHost.h"
#include "plugin/SplashWindow.h"
#include "ui/AssignDialog.h"
#include "modules/GearPanel.h"
#include "../TestFolders.h"

namespace drav {
namespace {

class PluginLifecycleTest : public ::testing::Test {
 protected:
  void SetUp() override {
    root_ = drav_test::FreshTestFolder("lifecycle");
    host().Reset(root_);
    sim::PluginEntryPoints plugin;
    plugin.start = PluginStart;
    plugin.stop = PluginStop;
    plugin.enable = PluginEnable;
    plugin.disable = PluginDisable;
    plugin.receiveMessage = PluginReceiveMessage;
    host().LoadPlugin(plugin);
  }

  void TearDown() override {
    if (enabled_) host().Disable();
    if (started_) host().Stop();
    gDebug = {};
    gSettings = {};
    std::filesystem::remove_all(root_);
  }

  static sim::SimHost& host() { return sim::SimHost::Current(); }

  void WriteIni(const std::string& text) {
    std::ofstream(host().PluginFolder() / "DRAV.INI", std::ios::binary) << text;
  }

  void Boot() {
    ASSERT_EQ(host().Start(), 1);
    started_ = true;
    ASSERT_EQ(host().Enable(), 1);
    enabled_ = true;
  }

  std::filesystem::path root_;
  bool started_ = false;
  bool enabled_ = false;
};

TEST_F(PluginLifecycleTest, StartIdentifiesThePlugin) {
  ASSERT_EQ(host().Start(), 1);
  started_ = true;
  EXPECT_EQ(host().PluginName(), "DRAV");
  EXPECT_EQ(host().PluginSignature(), "merrow.projects.drav");
  EXPECT_EQ(host().PluginDescription(), "Drav plugin " DRAV_VERSION " (MR).");
  EXPECT_EQ(gSimulatorVersions.xplaneVersion, 12000);
}

// ModuleSelect functions and the display brightness reach the radios and unit counts only through
// the directory the plug-in hands down; without it a bound radio button would silently do nothing.
TEST_F(PluginLifecycleTest, TheFunctionLayerIsHandedThePanelsFromStartToStop) {
  EXPECT_EQ(CurrentPanelDirectory(), nullptr);
  Boot();
  const PanelDirectory* panels = CurrentPanelDirectory();
  ASSERT_NE(panels, nullptr);
  for (std::uint32_t type = kFirstModuleType; type <= kLastModuleType; ++type) {
    EXPECT_EQ(panels->UnitCount(type), TheModuleManager().UnitCount(type)) << type;
  }
  host().Disable();
  enabled_ = false;
  host().Stop();
  started_ = false;
  EXPECT_EQ(CurrentPanelDirectory(), nullptr);
}

TEST_F(PluginLifecycleTest, StartReadsTheSettingsOnce) {
  WriteIni("[CONFIG]\r\nElevatorTrimIncrement=0.02\r\nRMK166EncoderType=2\r\n");
  Boot();
  EXPECT_FLOAT_EQ(gSettings.ElevatorTrimIncrement, 0.02f);
  EXPECT_EQ(gSettings.RMK166EncoderType, 2);
  // Editing the file while the plug-in runs changes nothing until the next start.
  WriteIni("[CONFIG]\r\nElevatorTrimIncrement=0.5\r\n");
  host().Disable();
  host().Enable();
  EXPECT_FLOAT_EQ(gSettings.ElevatorTrimIncrement, 0.02f);
}

TEST_F(PluginLifecycleTest, MenuHasAssignFunctionsUnderDrav) {
  ASSERT_EQ(host().Start(), 1);
  started_ = true;
  const auto items = host().PluginMenuItems();
  EXPECT_NE(std::find(items.begin(), items.end(), "Drav/Assign Functions"), items.end());
  EXPECT_TRUE(host().PickMenuItem("Assign Functions"));
}

TEST_F(PluginLifecycleTest, TheDravMenuOffersTheDialogReloadAndRescanInThatOrder) {
  ASSERT_EQ(host().Start(), 1);
  started_ = true;
  const std::vector<std::string> expected = {"Plugins/Drav", "Drav/Assign Functions", "Drav/Close Assign Functions",
                                             "Drav/Reload DRAV.INI", "Drav/Rescan Panels"};
  EXPECT_EQ(host().PluginMenuItems(), expected);
  // Picked before the plug-in is enabled, none of them may fail.
  for (const char* item : {"Rescan Panels", "Reload DRAV.INI", "Close Assign Functions"}) {
    EXPECT_TRUE(host().PickMenuItem(item));
  }
}

TEST_F(PluginLifecycleTest, ReloadReadsTheSettingsAndDebugSwitchesAgain) {
  WriteIni("[CONFIG]\r\nElevatorTrimIncrement=0.02\r\n");
  Boot();
  WriteIni("[DEBUG]\r\nDebugDeviceInfo=1\r\n[CONFIG]\r\nElevatorTrimIncrement=0.5\r\nGRP48ReverseFix=1\r\n");
  ASSERT_TRUE(host().RunCommandForPilot("merrow/drav/reload_ini", xplm_CommandBegin));
  EXPECT_FLOAT_EQ(gSettings.ElevatorTrimIncrement, 0.5f);
  EXPECT_EQ(gSettings.GRP48ReverseFix, 1);
  EXPECT_EQ(gDebug.DebugDeviceInfo, 1);
  // A key removed from the file falls back to its default.
  WriteIni("");
  EXPECT_TRUE(host().PickMenuItem("Reload DRAV.INI"));
  EXPECT_FLOAT_EQ(gSettings.ElevatorTrimIncrement, 0.005f);
  EXPECT_EQ(gDebug.DebugDeviceInfo, 0);
}

// X-Plane expects a plug-in's handlers gone when it is disabled or stopped; the commands stay known.
TEST_F(PluginLifecycleTest, CommandHandlersLiveFromEnableToDisableOrStop) {
  ASSERT_EQ(host().Start(), 1);
  started_ = true;
  EXPECT_FALSE(host().RunCommandForPilot("merrow/drav/assign_dialog_toggle", xplm_CommandBegin));
  ASSERT_EQ(host().Enable(), 1);
  ASSERT_TRUE(host().RunCommandForPilot("merrow/drav/assign_dialog_toggle", xplm_CommandBegin));
  EXPECT_TRUE(IsAssignDialogOpen());
  host().RunCommandForPilot("merrow/drav/assign_dialog_toggle", xplm_CommandEnd);
  host().Disable();
  CloseAssignDialog();
  EXPECT_TRUE(host().RunCommandForPilot("merrow/drav/assign_dialog_toggle", xplm_CommandBegin));
  EXPECT_FALSE(IsAssignDialogOpen());
  host().RunCommandForPilot("merrow/drav/assign_dialog_toggle", xplm_CommandEnd);
  // Stopped while enabled (X-Plane quitting), the handlers go with the disable that comes first.
  ASSERT_EQ(host().Enable(), 1);
  host().Stop();
  started_ = false;
  host().RunCommandForPilot("merrow/drav/assign_dialog_open", xplm_CommandBegin);
  EXPECT_FALSE(IsAssignDialogOpen());
  host().RunCommandForPilot("merrow/drav/assign_dialog_open", xplm_CommandEnd);
}

TEST_F(PluginLifecycleTest, WithoutTheSystemSymbolsThereAreNoCommandsButTheMenuWorks) {
  host().SetSystemSymbolsAvailable(false);
  Boot();
  EXPECT_FALSE(host().RunCommandForPilot("merrow/drav/reload_ini", xplm_CommandBegin));
  WriteIni("[CONFIG]\r\nRMK166EncoderType=2\r\n");
  EXPECT_TRUE(host().PickMenuItem("Reload DRAV.INI"));
  EXPECT_EQ(gSettings.RMK166EncoderType, 2);
}

TEST_F(PluginLifecycleTest, FlightLoopsRunWhileEnabledAndTheAnnouncementOnlyOnce) {
  Boot();
  EXPECT_EQ(host().ActiveFlightLoopCount(), 3);
  host().RunSeconds(1.0);
  EXPECT_EQ(host().ActiveFlightLoopCount(), 2);  // the announcement deactivated itself
  host().Disable();
  enabled_ = false;
  EXPECT_EQ(host().ActiveFlightLoopCount(), 0);
}

TEST_F(PluginLifecycleTest, SplashTicksCountOnlyToSixAndTheWindowGoesOnTheSeventh) {
  Boot();
  host().RunSeconds(3.0);  // six ticks
  EXPECT_EQ(SplashTickCount, 6);
  EXPECT_TRUE(SplashWindowExists());
  host().RunSeconds(0.5);
  EXPECT_FALSE(SplashWindowExists());
  EXPECT_EQ(ModulesInitialised, 1);
  host().RunSeconds(2.0);
  EXPECT_EQ(SplashTickCount, 6);
}

TEST_F(PluginLifecycleTest, ClicksOnTheSplashHideAndShowItsText) {
  Boot();
  host().RunSeconds(0.5);
  ASSERT_EQ(host().DrawWindows(), std::vector<std::string>{kSplashText});
  // The window spans x 600..1000, y 680..730.
  EXPECT_EQ(host().ClickWindow(700, 700, 1), 1);
  EXPECT_EQ(host().DrawWindows(), std::vector<std::string>{""});
  EXPECT_EQ(host().ClickWindow(700, 700, 2), 1);  // a drag leaves the text hidden
  EXPECT_EQ(host().DrawWindows(), std::vector<std::string>{""});
  EXPECT_EQ(host().ClickWindow(700, 700, 3), 1);
  EXPECT_EQ(host().DrawWindows(), std::vector<std::string>{kSplashText});
}

TEST_F(PluginLifecycleTest, OnlyTheUsersAircraftFromTheSimulatorReloadsAssignments) {
  Boot();
  host().RunSeconds(0.5);
  ASSERT_EQ(ModulesInitialised, 1);
  host().SendMessage(0, 102, 1);  // an AI aircraft
  EXPECT_EQ(ModulesInitialised, 1);
  host().SendMessage(7, 102, 0);  // not from the simulator
  EXPECT_EQ(ModulesInitialised, 1);
  host().SendMessage(0, 102, 0);
  EXPECT_EQ(ModulesInitialised, 0);
  host().RunSeconds(0.5);
  EXPECT_EQ(ModulesInitialised, 1);
}

TEST_F(PluginLifecycleTest, EnableResolvesEngineAndAnnunciatorCommandsByName) {
  host().SetCommandKnown("sim/igniters/igniter_contin_off_2", false);
  Boot();
  EXPECT_NE(EngineStartCommands[0].press, nullptr);
  EXPECT_EQ(EngineStartCommands[0].press, EngineStartCommands[0].release);  // the same command
  EXPECT_NE(EngineStartCommands[3].press, nullptr);
  EXPECT_EQ(EngineStartCommands[3].release, nullptr);  // unknown to this simulator
  EXPECT_NE(EngineStartCommands[13].release, nullptr);
  for (XPLMCommandRef command : AnnunciatorCommands) EXPECT_NE(command, nullptr);
  EXPECT_EQ(X737McpCommands[0].on, nullptr);  // only the x737 message resolves these
}

TEST_F(PluginLifecycleTest, WithoutTheSystemSymbolsNoCommandIsResolved) {
  host().SetSystemSymbolsAvailable(false);
  Boot();
  EXPECT_EQ(gOptionalXplmApi.XPLMFindCommand, nullptr);
  EXPECT_EQ(gOptionalXplmApi.XPLMCommandOnce, nullptr);
  for (const CommandPair& pair : EngineStartCommands) {
    EXPECT_EQ(pair.press, nullptr);
    EXPECT_EQ(pair.release, nullptr);
  }
  RunCommandOnce(reinterpret_cast<XPLMCommandRef>(&root_));  // must do nothing, not crash
  EXPECT_TRUE(host().Events().empty());
}

TEST_F(PluginLifecycleTest, X737MessagesSwitchTheModeAndResolveTheAircraftsCommands) {
  host().SetCommandKnown("x737/mcp/LNAVL_ON", true);
  host().SetCommandKnown("x737/mcp/LNAV_OFF", true);
  host().SetCommandKnown("x737/mcp/CHANGEOVER", true);
  Boot();
  host().SendMessage(3, static_cast<int>(0x8888888E), 0);
  EXPECT_EQ(X737Mode, 1);
  EXPECT_EQ(X737McpDirect, 1);
  EXPECT_NE(X737McpCommands[9].on, nullptr);
  EXPECT_NE(X737McpCommands[9].off, nullptr);
  EXPECT_EQ(X737McpCommands[9].toggle, nullptr);  // LNAV_TOGGLE is unknown here
  EXPECT_EQ(X737McpCommands[4].on, X737McpCommands[4].toggle);
  EXPECT_EQ(X737McpCommands[0].on, nullptr);
  host().SendMessage(0, static_cast<int>(0x8888888F), 0);
  EXPECT_EQ(X737Mode, 0);
  EXPECT_EQ(X737McpDirect, 0);
}

TEST_F(PluginLifecycleTest, TakeoverDatarefsAreReadableAndWritableByOthers) {
  Boot();
  EXPECT_TRUE(host().WriteDatarefAsOtherPlugin("merrow/drav/mcppro_disabled", -1, 1));
  EXPECT_EQ(McpProDisabled, 1);
  EXPECT_EQ(host().GetDatarefValue("merrow/drav/mcppro_disabled"), 1.0);
  EXPECT_EQ(EfisDisabled, 0);
}

TEST_F(PluginLifecycleTest, AStartAfterAStopBeginsFromAFreshLoad) {
  Boot();
  host().SendMessage(0, static_cast<int>(0x8888888E), 0);
  host().RunSeconds(4.0);
  host().Disable();
  host().Stop();
  EXPECT_EQ(host().WindowCount(), 0);
  ASSERT_EQ(host().Start(), 1);
  EXPECT_EQ(X737Mode, 0);
  EXPECT_EQ(ModulesInitialised, 0);
  EXPECT_EQ(host().WindowCount(), 1);  // a new load greets the pilot again
  enabled_ = false;
}

// The gear lights look their datarefs up once per load. A plug-in loaded again into a different
// simulator (here: one whose aircraft has the retract dataref, unlike the first) must ask again
// rather than keep the first simulator's answers.
TEST_F(PluginLifecycleTest, ARestartLooksTheGearDatarefsUpAgain) {
  const GearLightLayout layout{{{0x01, 0x02}, {0x04, 0x08}, {0x10, 0x20}}};
  host().RemoveDataref("sim/aircraft/gear/acf_gear_retract");
  Boot();
  EXPECT_EQ(ComposeGearLights(layout), 0x00) << "no retract dataref: fixed gear, dark";
  host().Disable();
  host().Stop();
  enabled_ = started_ = false;

  host().Reset(root_);  // the stock simulator: retractable gear, on the ground, handle down
  sim::PluginEntryPoints plugin{PluginStart, PluginStop, PluginEnable, PluginDisable, PluginReceiveMessage};
  host().LoadPlugin(plugin);
  Boot();
  EXPECT_EQ(ComposeGearLights(layout), 0x15) << "three green";
}

}  // namespace
}  // namespace drav

// The switch functions whose datarefs X-Plane 12 dropped, froze or renamed: which name or command a
// function is built on in each simulator, and how the command drives behave for every action.
#include <string>

#include "BindingTableFixture.h"
#include "functions/SimulatorEquivalents.h"
#include "base/OptionalXplmApi.h"

namespace drav::tabletest {
namespace {

constexpr int kXPlane12 = 12000;
constexpr FunctionId kNav1Hold = 103;
constexpr FunctionId kGpsHold = 101;
constexpr FunctionId kEfisWeather = 116;
constexpr FunctionId kAutoIgnite = 211;
constexpr FunctionId kLampTest = 471;
constexpr FunctionId kGpws = 468;
constexpr FunctionId kNoSmokingLight = 486;

constexpr const char* kGpssStatus = "sim/cockpit2/autopilot/gpss_status";
constexpr const char* kGpss = "sim/autopilot/gpss";

class SimulatorEquivalents : public BindingTableTest {
 protected:
  void SetUp() override {
    BindingTableTest::SetUp();
    ASSERT_TRUE(LoadOptionalXplmApi());
  }

  static void FlyXPlane12() { gSimulatorVersions.xplaneVersion = kXPlane12; }
  static void Set(const std::string& path, double value) {
    ASSERT_TRUE(host().SetDatarefValue(path, -1, -1, value)) << path;
  }
};

TEST_F(SimulatorEquivalents, XPlane12UsesTheStandInsAndFallsBackWhereItLacksThem) {
  FlyXPlane12();
  SwitchFunction weather = Build(kEfisWeather);
  EXPECT_EQ(Run(weather, kActionOn), Events{"dataref-write sim/cockpit/switches/EFIS_shows_weather 1"});

  // Even though the old name is still there and writable, the new one wins on X-Plane 12 ...
  SwitchFunction ignite = Build(kAutoIgnite);
  EXPECT_EQ(Run(ignite, kActionOn), WriteEvents("sim/cockpit2/engine/actuators/auto_ignite_on", Cell::IntArray, 0,
                                                16, 1));
  // ... unless the simulator does not have it.
  host().RemoveDataref("sim/cockpit/switches/EFIS_shows_weather");
  weather = Build(kEfisWeather);
  EXPECT_EQ(Run(weather, kActionOn), Events{"dataref-write sim/cockpit/switches/EFIFS_shows_weather 1"});

  // A command drive needs the command: without it the function stays on the original.
  host().SetCommandKnown(kGpss, false);
  EXPECT_EQ(Build(kGpsHold).kind, kDatarefSwitch);
  host().SetCommandKnown(kGpss, true);
  EXPECT_EQ(Build(kGpsHold).kind, kSimulatorCommand);
}

TEST_F(SimulatorEquivalents, AnOlderSimulatorKeepsEveryOriginalItLetsAPluginWrite) {
  // The fixture flies an older simulator, which has the approach selector again, writable.
  SwitchFunction nav1 = Build(kNav1Hold);
  EXPECT_EQ(Run(nav1, kActionOn), Events{"dataref-write sim/cockpit/autopilot/approach_selector 20"});
  SwitchFunction weather = Build(kEfisWeather);
  EXPECT_EQ(Run(weather, kActionOn), Events{"dataref-write sim/cockpit/switches/EFIFS_shows_weather 1"});

  // A read-only original is no use for writing: the stand-in takes over there too.
  SwitchFunction noSmoking = Build(kNoSmokingLight);
  EXPECT_EQ(Run(noSmoking, kActionOn), Events{"dataref-write sim/cockpit2/switches/no_smoking 1"});
  EXPECT_EQ(Build(kGpsHold).kind, kSimulatorCommand);

  // Without the original at all, the stand-in is used whatever the version.
  host().RemoveDataref("sim/cockpit/autopilot/approach_selector");
  nav1 = Build(kNav1Hold);
  EXPECT_EQ(nav1.kind, kSimulatorCommand);
}

TEST_F(SimulatorEquivalents, ToggleCommandRunsOnlyWhenTheSimulatorDisagrees) {
  FlyXPlane12();
  SwitchFunction gps = Build(kGpsHold);
  const Events toggle{std::string("command-once ") + kGpss};
  EXPECT_EQ(Run(gps, kActionOff), Events{}) << "already off";
  EXPECT_EQ(Run(gps, kActionOn), toggle);
  EXPECT_EQ(Run(gps, kActionSet, 5), toggle) << "the simulator has not engaged it yet";
  Set(kGpssStatus, 1);  // armed
  EXPECT_EQ(Refreshed(gps), 1);
  EXPECT_EQ(Run(gps, kActionOn), Events{});
  EXPECT_EQ(Run(gps, kActionRelease), Events{}) << "a button's release does nothing";
  Set(kGpssStatus, 2);  // captured counts as on too
  EXPECT_EQ(Run(gps, kActionToggle), toggle);
  EXPECT_EQ(Run(gps, kActionSet, 0), toggle);
}

TEST_F(SimulatorEquivalents, PressCommandSelectsButNeverDeselects) {
  FlyXPlane12();
  const std::string hsiSource = "sim/cockpit2/radios/actuators/HSI_source_select_pilot";
  Set(hsiSource, 1);
  SwitchFunction nav1 = Build(kNav1Hold);
  EXPECT_EQ(GetFunctionState(nav1), 0) << "the HSI shows NAV 2";
  const Events select{"command-once sim/autopilot/hsi_select_nav_1"};
  EXPECT_EQ(Run(nav1, kActionToggle), select);
  EXPECT_EQ(Run(nav1, kActionOn), select) << "the simulator still shows NAV 2";
  EXPECT_EQ(Run(nav1, kActionOff), Events{});
  Set(hsiSource, 0);
  EXPECT_EQ(Refreshed(nav1), 1);
  EXPECT_EQ(Run(nav1, kActionToggle), Events{}) << "pressing a lit selection changes nothing";
}

TEST_F(SimulatorEquivalents, HeldCommandLastsWhileTheControlIsOn) {
  FlyXPlane12();
  SwitchFunction test = Build(kLampTest);
  const Events begin{"command-begin sim/annunciator/test_all_annunciators"};
  const Events end{"command-end sim/annunciator/test_all_annunciators"};
  EXPECT_EQ(Run(test, kActionToggle), begin);
  EXPECT_EQ(Run(test, kActionRelease), end);
  EXPECT_EQ(Run(test, kActionOn), begin);
  EXPECT_EQ(Run(test, kActionOff), end);
  // The light is the simulator's own test flag, whoever pressed the test.
  Set("sim/cockpit/warnings/annunciator_test_pressed", 1);
  EXPECT_EQ(Refreshed(test), 1);
  EXPECT_EQ(Run(test, kActionToggle), begin) << "a press holds the test even while it is lit";
}

TEST_F(SimulatorEquivalents, IndicatorsTheSimulatorSetsTakeNoWrite) {
  FlyXPlane12();
  SwitchFunction gpws = Build(kGpws);
  EXPECT_EQ(Run(gpws, kActionOn), Events{});
  EXPECT_EQ(Run(gpws, kActionOff), Events{});
  Set("sim/cockpit2/annunciators/GPWS", 1);
  EXPECT_EQ(Refreshed(gpws), 1);
}

TEST(SimulatorEquivalentRows, MatchTheUseOfTheOriginalTheyReplace) {
  const SimEquivalent* nav2 = FindSimEquivalent("sim/cockpit/autopilot/approach_selector", 21);
  ASSERT_NE(nav2, nullptr);
  EXPECT_STREQ(nav2->command, "sim/autopilot/hsi_select_nav_2");
  EXPECT_EQ(FindSimEquivalent("sim/cockpit/autopilot/approach_selector", 22), nullptr);
  EXPECT_EQ(FindSimEquivalent("sim/cockpit/autopilot/heading_mode", kAnyOnValue), nullptr)
      << "reading the old mode is not what GPS hold replaces";
  EXPECT_EQ(FindSimEquivalent(nullptr, 0), nullptr);
  EXPECT_EQ(FindSimEquivalent("sim/cockpit/electrical/battery_on", 1), nullptr);
}

}  // namespace
}  // namespace drav::tabletest

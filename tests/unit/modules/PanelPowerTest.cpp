#include "modules/PanelPower.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <system_error>

#include "host/SimHost.h"
#include "../TestFolders.h"

namespace drav {
namespace {

constexpr const char* kBatteryOn = "sim/cockpit/electrical/battery_on";
constexpr const char* kAvionicsOn = "sim/cockpit/electrical/avionics_on";
constexpr const char* kElectricalFailure = "sim/operation/failures/rel_esys";
constexpr const char* kBatteryVolts = "sim/flightmodel/engine/ENGN_bat_volt";
constexpr const char* kGeneratorOn = "sim/cockpit/electrical/generator_on";
constexpr const char* kEngineType = "sim/aircraft/prop/acf_en_type";
constexpr const char* kEngineCount = "sim/aircraft/engine/acf_num_engines";
constexpr const char* kEngineN1 = "sim/flightmodel/engine/ENGN_N1_";

// Each test gets a fresh simulator (a powered, parked single-engine aircraft) and makes the power
// test look its datarefs up again, as after a plug-in restart.
class PanelPowerTest : public ::testing::Test {
 protected:
  void SetUp() override {
    root_ = drav_test::FreshTestFolder("panel_power");
    Host().Reset(root_);
    ResetPanelPowerLookups();
  }
  void TearDown() override {
    ResetPanelPowerLookups();
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
  }

  static sim::SimHost& Host() { return sim::SimHost::Current(); }
  static void Set(const char* path, double value) { ASSERT_TRUE(Host().SetDatarefValue(path, -1, -1, value)) << path; }
  static void SetElement(const char* path, int index, double value) {
    ASSERT_TRUE(Host().SetDatarefValue(path, index, index, value)) << path << "[" << index << "]";
  }

  // Battery off, every generator off, one engine: dark unless a test turns something on.
  static void DarkAircraft() {
    Set(kBatteryOn, 0);
    Set(kGeneratorOn, 0);
    Set(kEngineN1, 0);
    Set(kEngineType, 0);
    Set(kEngineCount, 1);
  }

  std::filesystem::path root_;
};

TEST_F(PanelPowerTest, BatteryOnPowersBothKindsOfModule) {
  Set(kBatteryOn, 1);
  Set(kBatteryVolts, 24);
  EXPECT_TRUE(HasPanelPower(true));
  EXPECT_TRUE(HasPanelPower(false));

  Set(kBatteryVolts, 0);  // switched on, but a flat battery
  EXPECT_FALSE(HasPanelPower(false));
}

TEST_F(PanelPowerTest, AvionicsOffDarkensOnlyTheDisplayModules) {
  Set(kAvionicsOn, 0);
  EXPECT_FALSE(HasPanelPower(true));
  EXPECT_TRUE(HasPanelPower(false));
}

TEST_F(PanelPowerTest, FailedElectricalSystemDarkensEverything) {
  Set(kElectricalFailure, 6);
  EXPECT_FALSE(HasPanelPower(true));
  EXPECT_FALSE(HasPanelPower(false));
  Set(kElectricalFailure, 5);  // other failure codes do not
  EXPECT_TRUE(HasPanelPower(false));
}

TEST_F(PanelPowerTest, TurbineGeneratorPowersInProportionToN1) {
  DarkAircraft();
  SetElement(kGeneratorOn, 0, 1);
  SetElement(kEngineN1, 0, 30);  // 30 / 15 = 2
  // The older simulators' turbine numbers, then X-Plane 12's jets and turboprops.
  for (int turbine : {2, 4, 5, 8, 7, 9, 10}) {
    SetElement(kEngineType, 0, turbine);
    EXPECT_TRUE(HasPanelPower(false)) << "engine type " << turbine;
  }
  // Carburetted and injected pistons, electric motors and rockets, and numbers no version uses.
  for (int other : {0, 1, 3, 6, 11, -1}) {
    SetElement(kEngineType, 0, other);
    EXPECT_FALSE(HasPanelPower(false)) << "engine type " << other;
  }

  SetElement(kEngineType, 0, 2);
  SetElement(kEngineN1, 0, 1.4);  // 0.093: below the threshold
  EXPECT_FALSE(HasPanelPower(false));
  // The sum is single precision: 1.5 / 15 is the float nearest 0.1, which lies just above the
  // double 0.1 that it is compared with.
  SetElement(kEngineN1, 0, 1.5);
  EXPECT_TRUE(HasPanelPower(false));
}

TEST_F(PanelPowerTest, OnlyTheConfiguredEnginesCount) {
  DarkAircraft();
  SetElement(kGeneratorOn, 1, 1);
  SetElement(kEngineType, 1, 2);
  SetElement(kEngineN1, 1, 30);
  EXPECT_FALSE(HasPanelPower(false));  // engine 2 of a single-engine aircraft
  Set(kEngineCount, 2);
  EXPECT_TRUE(HasPanelPower(false));
}

TEST_F(PanelPowerTest, AbsurdEngineCountsReadOnlyInsideTheArrays) {
  DarkAircraft();
  Set(kEngineCount, 0);  // at least one engine
  SetElement(kGeneratorOn, 0, 1);
  SetElement(kEngineType, 0, 2);
  SetElement(kEngineN1, 0, 30);
  EXPECT_TRUE(HasPanelPower(false));

  Set(kEngineCount, 1000);  // generator_on has 8 elements, the engine arrays 16
  Set(kBatteryOn, 1);
  Set(kBatteryVolts, 0);
  EXPECT_FALSE(HasPanelPower(false));
}

TEST_F(PanelPowerTest, EachDatarefIsLookedUpOnlyOnceEvenWhenMissing) {
  Host().RemoveDataref(kAvionicsOn);
  EXPECT_TRUE(HasPanelPower(true));  // no avionics switch: that test is skipped

  ASSERT_TRUE(Host().AddDataref(sim::DatarefDecl{kAvionicsOn, sim::DatarefType::Int, 1, true}));
  EXPECT_TRUE(HasPanelPower(true));  // it holds 0 now, but is not looked up again

  ResetPanelPowerLookups();
  EXPECT_FALSE(HasPanelPower(true));
}

TEST_F(PanelPowerTest, WithoutAnyDatarefThereIsNoPower) {
  for (const char* path : {kBatteryOn, kAvionicsOn, kElectricalFailure, kBatteryVolts, kGeneratorOn,
                           kEngineType, kEngineCount, kEngineN1}) {
    Host().RemoveDataref(path);
  }
  EXPECT_FALSE(HasPanelPower(true));
  EXPECT_FALSE(HasPanelPower(false));
}

}  // namespace
}  // namespace drav

// Shared set-up for the GF-LGT and GF-LGT2 module tests: the light-box fixture (fresh powered
// simulator, log, settings) plus a retractable-gear aircraft parked with the handle down, a current
// simulator version, and the gear-light handles forgotten between tests.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "LightBoxTestSupport.h"
#include "base/HostState.h"
#include "modules/GearPanel.h"

namespace drav::geartest {

inline constexpr std::int32_t kElevTrim = 427;
inline constexpr std::int32_t kAileronTrim = 430;
inline constexpr std::int32_t kRudderTrim = 433;
inline constexpr std::int32_t kFlapsUpDown = 424;
inline constexpr std::int32_t kFuelFeedLeft = 225;
inline constexpr std::int32_t kFuelFeedRight = 227;
inline constexpr std::int32_t kFuelFeedAll = 228;

inline constexpr const char* kElevTrimPath = "sim/flightmodel/controls/elv_trim";
inline constexpr const char* kAileronTrimPath = "sim/flightmodel/controls/ail_trim";
inline constexpr const char* kRudderTrimPath = "sim/flightmodel/controls/rud_trim";
inline constexpr const char* kFuelSelectorPath = "sim/cockpit/engine/fuel_tank_selector";
inline constexpr const char* kDeployPath = "sim/aircraft/parts/acf_gear_deploy";
inline constexpr const char* kOnGroundPath = "sim/flightmodel/failures/onground_any";
inline constexpr const char* kRetractPath = "sim/aircraft/gear/acf_gear_retract";
inline constexpr const char* kFailure1Path = "sim/operation/failures/rel_lagear1";
inline constexpr const char* kFailure2Path = "sim/operation/failures/rel_lagear2";
inline constexpr const char* kFailure3Path = "sim/operation/failures/rel_lagear3";

class GearModuleTest : public lightboxtest::LightBoxTest {
 protected:
  void SetUp() override {
    LightBoxTest::SetUp();
    ResetGearLightLookups();
    savedVersion_ = gSimulatorVersions.xplaneVersion;
    gSimulatorVersions.xplaneVersion = 12000;
    Set(kRetractPath, 1);
    Set(kOnGroundPath, 1);
    Set(lightboxtest::kGearHandlePath, 1);
    Set(kDeployPath, 1.0);
  }
  void TearDown() override {
    gSimulatorVersions.xplaneVersion = savedVersion_;
    ResetGearLightLookups();
    LightBoxTest::TearDown();
  }

  static void InFlight(double d0, double d1, double d2) {
    Set(kOnGroundPath, 0);
    SetDeploy(0, d0, d1, d2);
  }

  static void SetDeploy(int first, double d0, double d1, double d2) {
    ASSERT_TRUE(Host().SetDatarefValue(kDeployPath, first, first, d0));
    ASSERT_TRUE(Host().SetDatarefValue(kDeployPath, first + 1, first + 1, d1));
    ASSERT_TRUE(Host().SetDatarefValue(kDeployPath, first + 2, first + 2, d2));
  }

  // Events recorded since the last clear that contain text.
  static std::size_t EventsContaining(const std::string& text) {
    std::size_t count = 0;
    for (const std::string& event : Host().Events()) count += event.find(text) != std::string::npos;
    return count;
  }

 private:
  int savedVersion_ = 0;
};

}  // namespace drav::geartest

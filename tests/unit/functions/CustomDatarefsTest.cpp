// Publishing the plug-in's own datarefs, again in a new simulator, and announcing them (with the
// x737 aircraft's) to the DataRefEditor.
#include "functions/CustomDatarefs.h"

#include <XPLMDataAccess.h>

#include <string>
#include <vector>

#include "CustomDatarefsFixture.h"

namespace drav {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kEditor = "xplanesdk.examples.DataRefEditor";

const Texts kAnnouncedPaths = {
    "drav/autopilot_state/auto_throttle_engage", "drav/autopilot_state/heading_hold_engage",
    "drav/autopilot_state/wing_leveler_engage", "drav/autopilot_state/airspeed_hold_with_pitch_engage",
    "drav/autopilot_state/vvi_climb_engage", "drav/autopilot_state/altitude_hold_armed",
    "drav/autopilot_state/flight_level_change_engage", "drav/autopilot_state/pitch_sync_engage",
    "drav/autopilot_state/fms_armed", "drav/autopilot_state/fms_engaged",
    "drav/autopilot_state/glideslope_armed", "drav/autopilot_state/glideslope_engaged",
    "drav/autopilot_state/fms_vnav_armed", "drav/autopilot_state/fms_vnav_engaged",
    "drav/autopilot_state/altitude_hold_engaged", "drav/autopilot_state/horizontal_toga_engaged",
    "drav/autopilot_state/vertical_toga_engaged", "drav/autopilot_knob/alt_knob",
    "x737/systems/afds/plugin_status", "x737/systems/afds/aircraft_type", "x737/systems/afds/fdA_status",
    "x737/systems/afds/fdB_status", "x737/systems/afds/fd_master", "x737/systems/athr/athr_armed",
    "x737/systems/athr/N1_mode", "x737/systems/athr/FMCSPD_spdkias", "x737/systems/athr/FMCSPD_spdmach",
    "x737/systems/athr/FMCSPD_ismach", "x737/systems/athr/MCPSPD_spdkias", "x737/systems/athr/MCPSPD_spdmach",
    "x737/systems/athr/MCPSPD_ismach", "x737/systems/athr/MCPSPD_spd", "x737/systems/eec/N1_phase",
    "x737/systems/eec/N1_phase_str", "x737/systems/eec/hi_idle", "x737/systems/eec/N1_limit_eng1",
    "x737/systems/eec/N1_limit_eng2", "x737/systems/afds/CMD_A", "x737/systems/afds/CMD_B",
    "x737/systems/afds/LVLCHG", "x737/systems/afds/LNAV_arm", "x737/systems/afds/LNAV", "x737/systems/afds/APP",
    "x737/systems/afds/VORLOC", "x737/systems/afds/HDG", "x737/systems/afds/HDG_magnhdg",
    "x737/systems/afds/VNAV", "x737/systems/afds/VNAV_SPD", "x737/systems/afds/VNAV_ALT",
    "x737/systems/afds/VNAV_targetAlt", "x737/systems/afds/ALTINTV", "x737/systems/afds/SPDINTV",
    "x737/systems/afds/ALTHLD", "x737/systems/afds/ALTHLD_baroalt", "x737/systems/afds/VS_arm",
    "x737/systems/afds/VS", "x737/systems/afds/VS_vvi", "x737/systems/afds/APengaged",
    "x737/systems/afds/APP_toggle", "x737/systems/afds/CHANGEOVER_toggle", "x737/systems/athr/MCPSPD_mode",
    "x737/systems/athr/MCPSPD_overspeed", "x737/systems/afds/LNAV_heading", "x737/systems/afds/LNAV_degm",
    "x737/systems/afds/LNAV_degOffset", "x737/systems/afds/LNAV_degm_f", "x737/systems/afds/LNAV_degOffset_f",
    "x737/systems/afds/VORLOC_armed", "x737/systems/afds/VNAV_verticalSpeed", "x737/systems/afds/VNAV_vvi",
    "x737/systems/afds/VS_armed_or_eng", "x737/systems/afds/AP_A_pitch", "x737/systems/afds/AP_B_pitch",
    "x737/systems/afds/AP_A_roll", "x737/systems/afds/AP_B_roll", "x737/systems/MCP/LED_FDA_MA_on",
    "x737/systems/MCP/LED_FDB_MA_on", "x737/systems/MCP/LED_N1_on", "x737/systems/MCP/LED_MCPSPD_on",
    "x737/systems/MCP/LED_LVLCHG_on", "x737/systems/MCP/LED_VVIARMED_on", "x737/systems/MCP/LED_VVI_on",
    "x737/systems/MCP/LED_HDG_on", "x737/systems/MCP/LED_ALTHLD_on", "x737/systems/MCP/LED_VNAV_on",
    "x737/systems/MCP/LED_LNAV_on", "x737/systems/MCP/LED_APP_on", "x737/systems/MCP/LED_CMDA_on",
    "x737/systems/MCP/LED_CMDB_on", "x737/systems/MCP/LED_VORLOC_on",
};

Texts Announcements(const Texts& paths) {
  Texts events;
  for (const std::string& path : paths) events.push_back(std::string("message-sent ") + kEditor + " 16777216 " + path);
  return events;
}

using AnnounceCustomDatarefsTest = testing::CustomDatarefsTest;
using PublishCustomDatarefsTest = testing::CustomDatarefsTest;

TEST_F(AnnounceCustomDatarefsTest, SendsEveryPathInOrderToTheEditor) {
  ASSERT_EQ(kAnnouncedPaths.size(), 17u + 1u + 72u);
  Publish();
  host().AddOtherPlugin("some.other.plugin");
  host().AddOtherPlugin(kEditor);
  AnnounceCustomDatarefs();
  EXPECT_EQ(Events(), Announcements(kAnnouncedPaths));
}

TEST_F(AnnounceCustomDatarefsTest, NeedsNoPublicationFirst) {
  host().AddOtherPlugin(kEditor);
  AnnounceCustomDatarefs();
  EXPECT_EQ(Events(), Announcements(kAnnouncedPaths));
}

TEST_F(AnnounceCustomDatarefsTest, SendsNothingWithoutTheEditor) {
  Publish();
  host().AddOtherPlugin("some.other.plugin");
  AnnounceCustomDatarefs();
  EXPECT_TRUE(Events().empty());
}

TEST_F(PublishCustomDatarefsTest, PublishesNothingIntoTheSimulatorsEventLog) {
  Publish();
  EXPECT_TRUE(Events().empty());
  EXPECT_TRUE(host().HasDataref("drav/autopilot/vnav"));
  EXPECT_TRUE(host().HasDataref("drav/autopilot_state/vnav_engaged"));
  EXPECT_FALSE(host().HasDataref("drav/autopilot_state/vnav"));
}

TEST_F(PublishCustomDatarefsTest, ASecondStartInTheSameSimulatorKeepsEverythingWorking) {
  Publish();
  Publish();
  Set(testing::kStateWord, 0x2);
  EXPECT_EQ(Get("drav/autopilot/heading_hold"), 1.0);
  Set("sim/cockpit/autopilot/heading_mag", 42.0);
  EXPECT_FLOAT_EQ(Get("drav/autopilot/heading_crs"), 42.0f);
}

// The test driver runs several scenarios in one process, each in a new simulator whose datarefs
// differ: every start must see the simulator it is in, not the previous one.
TEST_F(PublishCustomDatarefsTest, ASecondStartInANewSimulatorUsesThatSimulatorsDatarefs) {
  Publish();
  Set("sim/cockpit/autopilot/heading_mag", 42.0);
  EXPECT_FLOAT_EQ(Get("drav/autopilot/heading_crs"), 42.0f);
  Set("sim/weather/speed_sound_ms", 340.29);
  Set("sim/weather/sigma", 1.0);
  Set("sim/cockpit/autopilot/airspeed", 250.0);
  Write("drav/autopilot/asi_is_mach", 1);
  EXPECT_EQ(Get("drav/autopilot/asi_is_mach"), 1.0);

  host().Reset(root());
  Remove("sim/cockpit/autopilot/heading_mag");
  Remove(testing::kStateWord);
  Publish();
  Set("sim/cockpit/autopilot/heading", 355.0);
  Set("sim/flightmodel/position/magnetic_variation", 10.0);
  EXPECT_FLOAT_EQ(Get("drav/autopilot/heading_crs"), 5.0f);
  Set("sim/cockpit/autopilot/heading_mode", 13);
  EXPECT_EQ(Get("drav/autopilot/heading_hold"), 1.0);
  EXPECT_EQ(Get("drav/autopilot/asi_is_mach"), 0.0);  // the new simulator's unit
  Set("sim/cockpit/autopilot/airspeed_is_mach", 1);
  EXPECT_EQ(Get("drav/autopilot/asi_is_mach"), 1.0);
}

}  // namespace
}  // namespace drav

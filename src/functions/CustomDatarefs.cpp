#include "functions/CustomDatarefs.h"

#include <XPLMDefs.h>
#include <XPLMPlugin.h>

#include <cstddef>
#include <string>

#include "functions/AutopilotCourseDatarefs.h"
#include "functions/AutopilotModeDatarefs.h"
#include "functions/AutopilotSelectorDatarefs.h"
#include "functions/AutopilotStateDatarefs.h"
#include "functions/AutopilotStateWord.h"
#include "functions/PublishedDatarefRegistry.h"

namespace drav {

namespace {

// The x737 aircraft publishes its own datarefs but does not announce them; we do it for the
// people who write assignments for it.
constexpr const char* kX737Datarefs[] = {
    "x737/systems/afds/plugin_status",     "x737/systems/afds/aircraft_type",
    "x737/systems/afds/fdA_status",        "x737/systems/afds/fdB_status",
    "x737/systems/afds/fd_master",         "x737/systems/athr/athr_armed",
    "x737/systems/athr/N1_mode",           "x737/systems/athr/FMCSPD_spdkias",
    "x737/systems/athr/FMCSPD_spdmach",    "x737/systems/athr/FMCSPD_ismach",
    "x737/systems/athr/MCPSPD_spdkias",    "x737/systems/athr/MCPSPD_spdmach",
    "x737/systems/athr/MCPSPD_ismach",     "x737/systems/athr/MCPSPD_spd",
    "x737/systems/eec/N1_phase",           "x737/systems/eec/N1_phase_str",
    "x737/systems/eec/hi_idle",            "x737/systems/eec/N1_limit_eng1",
    "x737/systems/eec/N1_limit_eng2",      "x737/systems/afds/CMD_A",
    "x737/systems/afds/CMD_B",             "x737/systems/afds/LVLCHG",
    "x737/systems/afds/LNAV_arm",          "x737/systems/afds/LNAV",
    "x737/systems/afds/APP",               "x737/systems/afds/VORLOC",
    "x737/systems/afds/HDG",               "x737/systems/afds/HDG_magnhdg",
    "x737/systems/afds/VNAV",              "x737/systems/afds/VNAV_SPD",
    "x737/systems/afds/VNAV_ALT",          "x737/systems/afds/VNAV_targetAlt",
    "x737/systems/afds/ALTINTV",           "x737/systems/afds/SPDINTV",
    "x737/systems/afds/ALTHLD",            "x737/systems/afds/ALTHLD_baroalt",
    "x737/systems/afds/VS_arm",            "x737/systems/afds/VS",
    "x737/systems/afds/VS_vvi",            "x737/systems/afds/APengaged",
    "x737/systems/afds/APP_toggle",        "x737/systems/afds/CHANGEOVER_toggle",
    "x737/systems/athr/MCPSPD_mode",       "x737/systems/athr/MCPSPD_overspeed",
    "x737/systems/afds/LNAV_heading",      "x737/systems/afds/LNAV_degm",
    "x737/systems/afds/LNAV_degOffset",    "x737/systems/afds/LNAV_degm_f",
    "x737/systems/afds/LNAV_degOffset_f",  "x737/systems/afds/VORLOC_armed",
    "x737/systems/afds/VNAV_verticalSpeed", "x737/systems/afds/VNAV_vvi",
    "x737/systems/afds/VS_armed_or_eng",   "x737/systems/afds/AP_A_pitch",
    "x737/systems/afds/AP_B_pitch",        "x737/systems/afds/AP_A_roll",
    "x737/systems/afds/AP_B_roll",         "x737/systems/MCP/LED_FDA_MA_on",
    "x737/systems/MCP/LED_FDB_MA_on",      "x737/systems/MCP/LED_N1_on",
    "x737/systems/MCP/LED_MCPSPD_on",      "x737/systems/MCP/LED_LVLCHG_on",
    "x737/systems/MCP/LED_VVIARMED_on",    "x737/systems/MCP/LED_VVI_on",
    "x737/systems/MCP/LED_HDG_on",         "x737/systems/MCP/LED_ALTHLD_on",
    "x737/systems/MCP/LED_VNAV_on",        "x737/systems/MCP/LED_LNAV_on",
    "x737/systems/MCP/LED_APP_on",         "x737/systems/MCP/LED_CMDA_on",
    "x737/systems/MCP/LED_CMDB_on",        "x737/systems/MCP/LED_VORLOC_on",
};

constexpr const char* kDatarefBrowsers[] = {kDataRefEditorSignature, kDataRefToolSignature};

}  // namespace

void AnnounceDataref(const char* path) {
  for (const char* signature : kDatarefBrowsers) {
    const XPLMPluginID browser = XPLMFindPluginBySignature(signature);
    if (browser == XPLM_NO_PLUGIN_ID) continue;
    XPLMSendMessageToPlugin(browser, kDataRefEditorAddDataref, const_cast<char*>(path));
  }
}

// Every start looks the simulator's datarefs up afresh: a plug-in started again (in a new
// simulator, as the test driver does) must not keep handles of the previous one.
void PublishCustomDatarefs() {
  LookUpAutopilotStateWord();
  PublishCourseDatarefs();
  PublishModeDatarefs();
  PublishAutopilotStateDatarefs();
  PublishAutopilotSelectorDatarefs();
}

void WithdrawCustomDatarefs() { WithdrawPublishedDatarefs(); }

void AnnounceCustomDatarefs() {
  for (std::size_t bit = 0; bit < kAnnouncedAutopilotStateCount; ++bit) {
    AnnounceDataref(AutopilotStatePath(bit).c_str());
  }
  AnnounceDataref(kAltKnobDataref);
  for (const char* path : kX737Datarefs) AnnounceDataref(path);
}

}  // namespace drav

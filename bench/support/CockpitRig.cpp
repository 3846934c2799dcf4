#include "support/CockpitRig.h"

#include <array>
#include <cstdio>
#include <optional>
#include <sstream>

#include "modules/AssignmentKeys.h"
#include "modules/GF166_Module.h"
#include "modules/GFDIO_Module.h"
#include "modules/GFEFIS_Module.h"
#include "modules/GFMCPPro_Module.h"
#include "modules/GFMCP_Module.h"
#include "modules/GFMESM_Module.h"
#include "modules/GFP8_Module.h"
#include "modules/GFRP48_Module.h"
#include "modules/GFSECM_Module.h"
#include "modules/GFTQ6_Module.h"
#include "modules/GFWCP_Module.h"
#include "modules/GF_Abstract_Module.h"
#include "config/Assignments.h"
#include "dravsim/DravPlugin.h"
#include "dravsim/LineSource.h"
#include "dravsim/PanelBoard.h"
#include "dravsim/ScenarioFolder.h"
#include "dravsim/ScenarioRunner.h"
#include "hid/ModelTable.h"
#include "modules/ModuleRegistry.h"
#include "hid/backend/HidBackend.h"
#include "host/SimHost.h"

namespace drav::bench {
namespace {

constexpr CockpitUnits kFullCockpit[] = {
    {"GF-45", 1, 1},    {"GF-P8", 2, 1},     {"GF-T8", 3, 1},   {"GF-LGT", 4, 1},
    {"GF-166", 5, 1},   {"GF-MCP", 6, 1},    {"GF-RP48", 7, 1}, {"GF-46", 8, 1},
    {"GF-TQ6", 9, 1},   {"GF-LGT2", 11, 1},  {"GF-MCPPro", 12, 1}, {"GF-EFIS", 13, 1},
    {"GF-SECM", 14, 1}, {"GF-MESM", 17, 1},  {"GF-WCP", 18, 1}, {"GF-DIO", 19, 1},
};
constexpr CockpitUnits kLargeCockpit[] = {{"GF-P8", 2, 32}, {"GF-46", 8, 16}};

// Functions of each kind, cycled over a group's keys.
constexpr const char* kRadioFunctions[] = {"COM1_DUAL", "COM2_DUAL", "NAV1_DUAL", "NAV2_DUAL",
                                           "ADF1_DUAL", "ADF2_DUAL", "DME_DUAL",  "XPDR"};
constexpr const char* kSwitchFunctions[] = {"LANDING_LTS", "TAXI_LTS",   "BEACON_LTS", "NAV_LTS",
                                            "STROBE_LTS",  "PITOT_HEAT", "CARB_HEAT",  "FUEL_PUMP"};
constexpr const char* kKnobFunctions[] = {"COM1_ACTIVE_COARSE", "COM1_ACTIVE_FINE", "NAV1_STANDBY_COARSE",
                                          "NAV1_STANDBY_FINE"};
constexpr const char* kLeverFunctions[] = {"FLAPS",         "ENG_1_THROTTLE", "ENG_2_THROTTLE",
                                           "ENG_1_MIXTURE", "ENG_1_PROP_PITCH", "ENG_ALL_THROTTLE"};
constexpr const char* kWarningFunctions[] = {"WCP_ENGINE_FIRE", "WCP_GENERATOR_OFF", "WCP_CHIP_DETECT",
                                             "WCP_AUTO_IGNITION", "WCP_REVERSER_DEPLOYED",
                                             "WCP_OIL_TEMPERATURE_HIGH"};

// Custom values of each kind. Every name exists in the simulator (declared by kCustomSetup), so
// the refresh reads each light and display for real.
constexpr const char* kCustomSwitches[] = {
    "toggle sim/cockpit2/switches/landing_lights_on 1",
    "set sim/cockpit2/switches/generic_lights_switch[3] 1 lit sim/cockpit2/switches/generic_lights_switch[3] > 0.5",
    "cmd sim/lights/beacon_lights_toggle lit sim/cockpit2/switches/beacon_on = 1",
    "cmd sim/lights/landing_lights_on sim/lights/landing_lights_off lit sim/cockpit2/switches/landing_lights_on != 0",
    "hold sim/starters/engage_starter_1 lit sim/cockpit2/electrical/battery_on[1] < 1",
    "lit sim/cockpit2/annunciators/master_caution = 1",
};
constexpr const char* kCustomKnobs[] = {
    "step sim/cockpit2/autopilot/heading_dial_deg_mag_pilot 1 0 359 wrap "
    "show sim/cockpit2/autopilot/heading_dial_deg_mag_pilot %03d",
    "step sim/cockpit2/autopilot/altitude_dial_ft 100 0 50000 show sim/cockpit2/autopilot/altitude_dial_ft %05d",
    "turn sim/autopilot/heading_up sim/autopilot/heading_down show sim/cockpit2/engine/indicators/N1_percent[1] %5.1f",
};
constexpr const char* kCustomSetup =
    "command sim/lights/beacon_lights_toggle present\n"
    "command sim/lights/landing_lights_on present\n"
    "command sim/lights/landing_lights_off present\n"
    "command sim/starters/engage_starter_1 present\n"
    "command sim/autopilot/heading_up present\n"
    "command sim/autopilot/heading_down present\n"
    "dataref sim/cockpit2/switches/landing_lights_on int = 1\n"
    "dataref sim/cockpit2/switches/beacon_on int = 0\n"
    "dataref sim/cockpit2/switches/generic_lights_switch float[128] = 0.75\n"
    "dataref sim/cockpit2/electrical/battery_on int[8] = 1\n"
    "dataref sim/cockpit2/annunciators/master_caution int = 1\n"
    "dataref sim/cockpit2/autopilot/heading_dial_deg_mag_pilot float = 270\n"
    "dataref sim/cockpit2/autopilot/altitude_dial_ft float = 12000\n"
    "dataref sim/cockpit2/engine/indicators/N1_percent float[8] = 87.5\n";

struct CustomGroup {
  const AssignmentKeyGroup* group;
  bool knobs;
};

// The groups whose controls take custom values.
std::vector<CustomGroup> CustomGroupsOf(std::uint32_t moduleType) {
  switch (moduleType) {
    case 2: case 3: return {{&kGFP8Keys, false}};
    case 5: return {{&kGF166ButtonKeys, false}};
    case 6: return {{&kGFMCPButtonKeys, false}, {&kGFMCPKnobKeys, true}};
    case 12: return {{&GFMCPProButtonKeys(0), false}, {&GFMCPProKnobKeys(0), true}};
    case 13: return {{&kGFEFISButtonKeys, false}, {&kGFEFISKnobKeys, true}};
    case 14: return {{&kGFSECMKeys, false}};
    case 17: return {{&kGFMESMKeys, false}};
    case 18: return {{&kGFWCPKeys, false}};
    case 19: return {{&kGFDIOInputOnKeys, false}, {&kGFDIOInputOffKeys, false}, {&kGFDIOOutputKeys, false}};
    default: return {};
  }
}

// A group and the functions its keys get; no functions: the group's own defaults, which already
// bind every control of these models.
struct BoundGroup {
  const AssignmentKeyGroup* group;
  std::span<const char* const> functions;
};

std::vector<BoundGroup> GroupsOf(std::uint32_t moduleType) {
  switch (moduleType) {
    case 1: case 8: return {{&kRadioModeKeys, kRadioFunctions}};
    case 5: return {{&kRadioModeKeys, kRadioFunctions}, {&kGF166ButtonKeys, {}}};
    case 2: case 3: return {{&kGFP8Keys, kSwitchFunctions}};
    case 7: return {{&kGFRP48Keys, kSwitchFunctions}};  // the four knobs are set below
    case 9: return {{&kGFTQ6LeverKeys, kLeverFunctions}};
    case 18: return {{&kGFWCPKeys, kWarningFunctions}};
    case 19:
      return {{&kGFDIOInputOnKeys, kSwitchFunctions},
              {&kGFDIOInputOffKeys, kSwitchFunctions},
              {&kGFDIOOutputKeys, kSwitchFunctions}};
    default: return {};
  }
}

template <std::size_t N>
void WriteKeys(std::ostringstream& ini, const AssignmentKeyGroup& group, const char* const (&values)[N]) {
  for (int key = 0; key < KeyCount(group); ++key) ini << KeyName(group, key) << "=" << values[key % N] << "\n";
}

// The GF-RP48's eight buttons and four knobs share one group, so each part is written by name.
void WriteCustomRP48(std::ostringstream& ini) {
  for (int button = 0; button < 8; ++button) {
    ini << "Function" << button + 1 << "=" << kCustomSwitches[button % std::size(kCustomSwitches)] << "\n";
  }
  for (int knob = 0; knob < 4; ++knob) {
    ini << "Function" << static_cast<char>('A' + knob) << "=" << kCustomKnobs[knob % std::size(kCustomKnobs)] << "\n";
  }
}

// True when the unit's section was written with custom values.
bool WriteCustomSection(std::ostringstream& ini, std::uint32_t moduleType) {
  if (moduleType == 7) {
    WriteCustomRP48(ini);
    return true;
  }
  const std::vector<CustomGroup> groups = CustomGroupsOf(moduleType);
  for (const CustomGroup& custom : groups) {
    if (custom.knobs) {
      WriteKeys(ini, *custom.group, kCustomKnobs);
    } else {
      WriteKeys(ini, *custom.group, kCustomSwitches);
    }
  }
  return !groups.empty();
}

void WriteSection(std::ostringstream& ini, std::uint32_t moduleType, int unit, CockpitBindings bindings) {
  ini << "[" << AssignmentSection(moduleType, static_cast<std::uint32_t>(unit)) << "]\n";
  if (bindings == CockpitBindings::kCustom && WriteCustomSection(ini, moduleType)) return;
  for (const BoundGroup& bound : GroupsOf(moduleType)) {
    if (bound.functions.empty()) continue;
    for (int key = 0; key < KeyCount(*bound.group); ++key) {
      ini << KeyName(*bound.group, key) << "=" << bound.functions[key % bound.functions.size()] << "\n";
    }
  }
  if (moduleType == 7) {
    for (std::size_t knob = 0; knob < std::size(kKnobFunctions); ++knob) {
      ini << "Function" << static_cast<char>('A' + knob) << "=" << kKnobFunctions[knob] << "\n";
    }
  }
}

std::string UnitName(std::uint32_t moduleType, int index) {
  char name[32];
  std::snprintf(name, sizeof name, "u%u_%d", static_cast<unsigned>(moduleType), index);
  return name;
}

// The set-up text, then the body, then the end of the scenario (which shuts the plug-in down).
class RigLineSource : public dravsim::LineSource {
 public:
  RigLineSource(const std::string& setup, std::function<void()> body)
      : setup_(setup), body_(std::move(body)) {}
  bool Next(std::string& line, dravsim::LineKind kind) override {
    if (setup_.Next(line, kind)) {
      lineNumber_ = setup_.LineNumber();
      return true;
    }
    if (body_) {
      auto body = std::move(body_);
      body_ = nullptr;
      body();
    }
    return false;
  }

 private:
  dravsim::TextLineSource setup_;
  std::function<void()> body_;
};

}  // namespace

std::span<const CockpitUnits> FullCockpit() { return kFullCockpit; }
std::span<const CockpitUnits> LargeCockpit() { return kLargeCockpit; }

std::string CockpitIni(std::span<const CockpitUnits> units, CockpitBindings bindings) {
  std::ostringstream ini;
  for (const CockpitUnits& model : units) {
    for (int unit = 0; unit < model.count; ++unit) WriteSection(ini, model.moduleType, unit, bindings);
  }
  return ini.str();
}

std::string Cockpit::PathOf(std::uint32_t moduleType, int index) const {
  const PanelModel* model = RegisteredPanelModel(moduleType);
  if (model == nullptr) return {};
  return dravsim::VirtualUnitPath(kPanelVendorId, model->productId, UnitName(moduleType, index));
}

bool RunInCockpit(std::span<const CockpitUnits> units, const std::function<void(Cockpit&)>& body,
                  std::string* output, CockpitBindings bindings) {
  std::ostringstream setup;
  setup << "ini\n" << CockpitIni(units, bindings) << "end\n";
  if (bindings == CockpitBindings::kCustom) setup << kCustomSetup;
  for (const CockpitUnits& model : units) {
    for (int unit = 0; unit < model.count; ++unit) {
      setup << "plug " << model.model << " as " << UnitName(model.moduleType, unit) << "\n";
    }
  }
  // The GF-SECM reports its switches at open, all off, and its first is the battery master: power
  // the aircraft again, as the pilot would, so that the cockpit shows what it does in flight.
  setup << "boot\nrun 1\n"
        << "dataref sim/cockpit/electrical/battery_on = 1\n"
        << "dataref sim/cockpit/electrical/avionics_on = 1\n"
        << "run 1\n";
  const std::string setupText = setup.str();

  dravsim::ScenarioFolder folder(std::nullopt);
  if (!folder.Ok()) return false;
  sim::SimHost::Current().Reset(folder.Path());
  std::ostringstream printed;
  bool setupFailed = false;
  bool ran = false;
  // The scenario's results so far are not visible from the body; an ERROR or FAIL line is.
  RigLineSource source(setupText, [&] {
    setupFailed = printed.str().find("ERROR") != std::string::npos ||
                  printed.str().find("FAIL") != std::string::npos;
    if (setupFailed) return;
    auto* panels = dynamic_cast<VirtualHidBackend*>(&ActiveHidBackend());
    if (panels == nullptr) return;
    Cockpit cockpit{*panels, units};
    body(cockpit);
    ran = true;
  });
  dravsim::ScenarioRunner runner(printed, dravsim::RunnerOptions{true, dravsim::DravPluginEntryPoints()});
  runner.Run(source, "cockpit");
  sim::SimHost::Current().Reset({});
  if (output != nullptr) *output = printed.str();
  return ran && !setupFailed;
}

void RunFrames(int frames) { sim::SimHost::Current().RunFrames(frames); }

}  // namespace drav::bench

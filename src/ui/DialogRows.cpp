#include "ui/DialogRows.h"

#include <algorithm>
#include <span>

#include "modules/AssignmentKeys.h"
#include "base/IniFile.h"
#include "base/HostState.h"
#include "hid/ModuleTypes.h"
#include "ui/FunctionPickLists.h"

namespace drav {

namespace {

using Kind = PickListKind;

// One row taken from an assignment key group.
struct KeyedRow {
  const char* caption;
  const AssignmentKeyGroup* group;
  int index;
  Kind list;
};

const char* const kModeCaptions[] = {"Mode 1 (Initial)", "Mode 2", "Mode 3", "Mode 4",
                                     "Mode 5",           "Mode 6", "Mode 7", "Mode 8"};
const char* const kButtonCaptions[] = {"Button 1", "Button 2", "Button 3", "Button 4",
                                       "Button 5", "Button 6", "Button 7", "Button 8"};
const char* const kSwitchCaptions[] = {"Switch 1", "Switch 2", "Switch 3", "Switch 4",
                                       "Switch 5", "Switch 6", "Switch 7", "Switch 8"};
const char* const kKnobCaptions[] = {"Knob A", "Knob B", "Knob C", "Knob D"};
const char* const kLeverCaptions[] = {"Lever A", "Lever B", "Lever C", "Lever D", "Lever E", "Lever F"};

const KeyedRow kGFLGTRows[] = {
    {"Wheel", &kGFLGTKeys, 0, Kind::kTrim},
    {"Lever", &kGFLGTKeys, 1, Kind::kGear},
    {"Up/Down Switch", &kGFLGTKeys, 2, Kind::kFlap},
};

const KeyedRow kGFLGT2Rows[] = {
    {"Aileron", &kGFLGT2Keys, 0, Kind::kTrim},
    {"Elevator", &kGFLGT2Keys, 1, Kind::kTrim},
    {"Rudder", &kGFLGT2Keys, 2, Kind::kTrim},
    {"Gear Lever", &kGFLGT2Keys, 3, Kind::kGear},
    {"Flap Switch", &kGFLGT2Keys, 4, Kind::kFlap},
    {"Switch Left Position", &kGFLGT2Keys, 5, Kind::kFuelFeed},
    {"Switch Centre Position", &kGFLGT2Keys, 6, Kind::kFuelFeed},
    {"Switch Right Position", &kGFLGT2Keys, 7, Kind::kFuelFeed},
};

// Buttons and knobs alternate down the panel as they do on the hardware.
const KeyedRow kGFMCPRows[] = {
    {"NAV HOLD button", &kGFMCPButtonKeys, 0, Kind::kButton},
    {"CRS display/knob", &kGFMCPKnobKeys, 0, Kind::kAvionic},
    {"HDG HOLD button", &kGFMCPButtonKeys, 1, Kind::kButton},
    {"HDG display/knob", &kGFMCPKnobKeys, 1, Kind::kAvionic},
    {"IAS HOLD button", &kGFMCPButtonKeys, 2, Kind::kButton},
    {"IAS display/knob", &kGFMCPKnobKeys, 2, Kind::kAvionic},
    {"SEL button", &kGFMCPButtonKeys, 3, Kind::kButton},
    {"V/S display/knob", &kGFMCPKnobKeys, 3, Kind::kAvionic},
    {"ALT HOLD Button", &kGFMCPButtonKeys, 4, Kind::kButton},
    {"ALT display/knob", &kGFMCPKnobKeys, 4, Kind::kAvionic},
    {"APPR button", &kGFMCPButtonKeys, 5, Kind::kButton},
    {"B/C button", &kGFMCPButtonKeys, 6, Kind::kButton},
    {"A/P CMD button", &kGFMCPButtonKeys, 7, Kind::kButton},
    {"DISENGAGE bar", &kGFMCPButtonKeys, 8, Kind::kButton},
};

const char* const kGFMCPProCaptions[] = {
    "VNAV button",      "LNAV button",      "CMD A button",     "CMD B button",      "A/T Arm Switch",
    "IAS/MACH button",  "SPD INTV button",  "VORLOC button",    "ALT INTV button",   "CWS A button",
    "CWS B button",     "SPD knob",         "HDG knob",         "ALT knob",          "F/D (left) switch",
    "N1 HOLD button",   "IAS HOLD button",  "FLCH button",      "HDG HOLD button",   "APPR HOLD button",
    "ALT HOLD button",  "VS HOLD button",   "DISENGAGE bar",    "F/D (right) switch", "CRS display/knob",
    "IAS display/knob", "HDG display/knob", "ALT display/knob", "V/S display/knob",  "CRS display/knob",
};

const char* const kGFEFISCaptions[] = {
    "TERR button",           "POS button",           "DATA button",
    "ARPT button",           "WPT button",           "STA button",
    "WXR button",            "N/C",                  "Toggle in ADF1",
    "Toggle in VOR1",        "Toggle in ADF2",       "Toggle in VOR2",
    "MTRS button",           "FPV button",           "Left knob push (DH/MDAF)",
    "Right knob push (BARO)", "Left selector APP",   "Left selector VOR",
    "Left selector MAP",     "Left selector PLAN",   "Right selector 10 NM",
    "Right selector 20 NM",  "Right selector 40 NM", "Right selector 80 NM",
    "Right selector 160 NM", "Right selector 320 NM", "Right selector 640 NM",
    "Left knob",             "Right knob (BARO)",
};

const char* const kGFSECMCaptions[] = {
    "Battery Master", "Alternator Master", "Avionics Master", "Fuel Pump",    "Carb Heat",
    "Pitot Heat",     "Panel Lights",      "Beacon Lights",   "Nav Lights",   "Strobe Lights",
    "Taxi Lights",    "Landing Lights",    "Cowl",            "Landing Gear",
};

const DialogSliderRow kGFLGTSliders[] = {
    {0, "Wheel Gain", "WHEEL_GAIN", "1", 1, 10, false, true},
};
const DialogSliderRow kGFLGT2Sliders[] = {
    {0, "Aileron Gain", "WHEEL1_GAIN", "1", 1, 10, false, true},
    {1, "Elevator Gain", "WHEEL2_GAIN", "1", 1, 10, false, true},
    {2, "Rudder Gain", "WHEEL3_GAIN", "1", 1, 10, false, true},
};
// The dialog's defaults are not the loader's: with the key absent the unit runs with -1.0, -1.0, 1.0
// and 1.0, but the dialog offers 0, 0, 60 and 100 as starting points.
const DialogSliderRow kGFTQ6Sliders[] = {
    {0, "Thrust Rev Point", "THROTTLE_REVERSE", "0.0", 0, 100, true, false},
    {1, "Prop Beta Point", "THROTTLE_BETA", "0.0", 0, 100, true, false},
    {2, "Thrust Rev Max", "REVERSER_POWER", "0.60", 0, 100, true, false},
    {3, "Flap Null Zone", "FLAP_NULL_ZONE", "1.0", 0, 100, true, false},
};

struct FixedList {
  Kind kind;
  const char* items;
};
constexpr FixedList kFixedLists[] = {
    {Kind::kTrim, "AILERON_TRIM;ELEV_TRIM;ROTOR_TRIM;RUDDER_TRIM;"},
    {Kind::kGear, "LANDING_GEAR;WATER_RUDDER;"},
    {Kind::kFlap, "FLAPS_UP_DOWN;"},
    {Kind::kFuelFeed, "FUEL_FEED_OFF;FUEL_FEED_LEFT;FUEL_FEED_CENTRE;FUEL_FEED_RIGHT;FUEL_FEED_ALL;"},
    {Kind::kColour, kColourList},
};

DialogFunctionRow MakeRow(int row, const char* caption, const AssignmentKeyGroup& group, int index, Kind list) {
  return {row, caption, KeyName(group, index), KeyDefault(group, index), list};
}

void AddKeyedRows(DialogModelRows& rows, std::span<const KeyedRow> table) {
  int row = 0;
  for (const KeyedRow& keyed : table) {
    rows.functions.push_back(MakeRow(row++, keyed.caption, *keyed.group, keyed.index, keyed.list));
  }
}

// Rows firstRow.. for keys firstIndex.. of a group whose defaults the dialog leaves empty.
void AddEmptyDefaultRows(std::vector<DialogFunctionRow>& rows, int firstRow, std::span<const char* const> captions,
                         const AssignmentKeyGroup& group, int firstIndex, Kind list) {
  for (std::size_t i = 0; i < captions.size(); ++i) {
    const int index = firstIndex + static_cast<int>(i);
    rows.push_back({firstRow + static_cast<int>(i), captions[i], KeyName(group, index), "", list});
  }
}

// Rows that continue across the groups in turn, each key with its group's default.
void AddGroupRows(DialogModelRows& rows, std::span<const char* const> captions,
                  std::span<const std::pair<const AssignmentKeyGroup*, Kind>> groups) {
  std::size_t caption = 0;
  for (const auto& [group, list] : groups) {
    for (int index = 0; index < KeyCount(*group) && caption < captions.size(); ++index, ++caption) {
      rows.functions.push_back(MakeRow(static_cast<int>(caption), captions[caption], *group, index, list));
    }
  }
}

void AddSliders(DialogModelRows& rows, std::span<const DialogSliderRow> sliders) {
  rows.sliders.assign(sliders.begin(), sliders.end());
}

}  // namespace

DialogRowContext CurrentDialogRowContext() {
  return {X737Mode != 0, McpProDisabled != 0, EfisDisabled != 0};
}

DialogModelRows RowsForModel(std::uint32_t moduleType, const DialogRowContext& context) {
  DialogModelRows rows;
  switch (moduleType) {
    case kModuleGF45:
    case kModuleGF46:
      AddEmptyDefaultRows(rows.functions, 0, kModeCaptions, kRadioModeKeys, 0, Kind::kAvionic);
      break;
    case kModuleGF166: {
      // Row 0 stays empty: the two buttons sit above the modes as on the unit.
      const char* const buttonCaptions[] = {"Left Function", "Right Function"};
      AddEmptyDefaultRows(rows.functions, 1, buttonCaptions, kGF166ButtonKeys, 0, Kind::kButton);
      AddEmptyDefaultRows(rows.functions, 3, kModeCaptions, kRadioModeKeys, 0, Kind::kAvionic);
      break;
    }
    case kModuleGFP8:
      AddEmptyDefaultRows(rows.functions, 0, kButtonCaptions, kGFP8Keys, 0, Kind::kButton);
      break;
    case kModuleGFT8:
      AddEmptyDefaultRows(rows.functions, 0, kSwitchCaptions, kGFP8Keys, 0, Kind::kToggle);
      break;
    case kModuleGFRP48:
      AddEmptyDefaultRows(rows.functions, 0, kButtonCaptions, kGFRP48Keys, 0, Kind::kButton);
      AddEmptyDefaultRows(rows.functions, 8, kKnobCaptions, kGFRP48Keys, 8, Kind::kAvionic);
      break;
    case kModuleGFLGT:
      AddKeyedRows(rows, kGFLGTRows);
      AddSliders(rows, kGFLGTSliders);
      break;
    case kModuleGFLGT2:
      AddKeyedRows(rows, kGFLGT2Rows);
      AddSliders(rows, kGFLGT2Sliders);
      break;
    case kModuleGFMCP:
      AddKeyedRows(rows, kGFMCPRows);
      break;
    case kModuleGFMCPPro: {
      // In x737 mode the aircraft drives the panel itself; while disabled another plug-in does.
      if (context.x737Mode || context.mcpProDisabled) break;
      const std::pair<const AssignmentKeyGroup*, Kind> groups[] = {{&GFMCPProButtonKeys(0), Kind::kButton},
                                                                  {&GFMCPProKnobKeys(0), Kind::kAvionic}};
      AddGroupRows(rows, kGFMCPProCaptions, groups);
      break;
    }
    case kModuleGFEFIS: {
      if (context.efisDisabled) break;
      const std::pair<const AssignmentKeyGroup*, Kind> groups[] = {
          {&kGFEFISButtonKeys, Kind::kButtonWithAltimeterStd}, {&kGFEFISKnobKeys, Kind::kAvionic}};
      AddGroupRows(rows, kGFEFISCaptions, groups);
      break;
    }
    case kModuleGFSECM: {
      // Function15 to Function20 are edited in the file only.
      const std::pair<const AssignmentKeyGroup*, Kind> groups[] = {{&kGFSECMKeys, Kind::kToggle}};
      AddGroupRows(rows, kGFSECMCaptions, groups);
      break;
    }
    case kModuleGFTQ6:
      AddEmptyDefaultRows(rows.functions, 0, kLeverCaptions, kGFTQ6LeverKeys, 0, Kind::kLever);
      AddSliders(rows, kGFTQ6Sliders);
      break;
    case kModuleGFWCP: {
      AddEmptyDefaultRows(rows.functions, 0, std::span(kButtonCaptions).first(6), kGFWCPKeys, 0, Kind::kWcp);
      // An empty colour selects "BLACK", the first item.
      AddEmptyDefaultRows(rows.colours, 0, std::span(kButtonCaptions).first(6), kGFWCPColourKeys, 0, Kind::kColour);
      break;
    }
    case kModuleGFDIO:
      rows.reloadAllWithoutRegistering = true;
      break;
    default:
      break;
  }
  return rows;
}

const char* FixedListText(PickListKind kind) {
  for (const FixedList& list : kFixedLists) {
    if (list.kind == kind) return list.items;
  }
  return "";
}

int SliderValue(const DialogSliderRow& row, const char* storedValue) {
  if (row.percent) return static_cast<int>(ParseIniReal(storedValue) * 100.0f);
  const int value = ParseIniInt(storedValue);
  return row.clampToRange ? std::clamp(value, row.minimum, row.maximum) : value;
}

bool SliderValueShown(const DialogSliderRow& row, int value) {
  return value >= row.minimum && value <= row.maximum;
}

}  // namespace drav

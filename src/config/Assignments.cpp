#include "config/Assignments.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <cstring>

#include "base/IniFile.h"
#include "config/AircraftProfile.h"
#include "config/AssignmentValues.h"
#include "functions/CustomBindings.h"
#include "functions/FunctionCatalogue.h"
#include "base/HostState.h"
#include "base/Log.h"
#include "modules/GF_Abstract_Module.h"
#include "modules/GFLGT2_Module.h"
#include "modules/GFLGT_Module.h"
#include "modules/GFTQ6_Module.h"
#include "modules/GFDIO_Module.h"
#include "modules/GFWCP_Module.h"
#include "modules/ModuleManager.h"
#include "hid/ModuleTypes.h"
#include "hid/WriterWakeBatch.h"

namespace drav {

// A switch-type name is read as its index, which is the GF-DIO's own number for that type.
static_assert(kGFDIOButton == 0 && kGFDIOSwitch2Way == 1 && kGFDIOSwitch3Way == 2 && kGFDIOSelector == 3);

namespace {

ModuleManager* gAssignmentManager = nullptr;  // nullptr: the plug-in's own

ModuleManager& Manager() { return gAssignmentManager != nullptr ? *gAssignmentManager : TheModuleManager(); }

// One unit being loaded.
struct UnitLoad {
  GF_Abstract_Module& module;
  std::uint32_t unit;
  std::string section;
  bool registerUnit;
};

void RegisterUnit(const UnitLoad& load) { load.module.Register(static_cast<std::uint16_t>(load.unit)); }

// Every key of the group, in order, through AssignFunction.
void AssignGroup(const UnitLoad& load, const AssignmentKeyGroup& group) {
  const std::int32_t thisUnit = static_cast<std::int32_t>(load.unit);
  for (int index = 0; index < KeyCount(group); ++index) {
    const ResolvedAssignment assignment = ReadAssignment(load.section, group, index, thisUnit);
    load.module.AssignFunction(KeyControl(group, index), assignment.functionId, assignment.target.unit,
                               assignment.target.kind);
  }
}

// The radios' Function1..Function8 go straight into the mode table (function ids only), then the
// current mode is the first used one from where the unit was (it survives reloads).
void LoadModes(const UnitLoad& load, GF_Abstract_AvionicDevice& radio) {
  for (int mode = 0; mode < KeyCount(kRadioModeKeys) && mode < kModeCount; ++mode) {
    char value[kIniValueSize];
    ReadProfileValueInto(load.section, SpellKey(kRadioModeKeys, mode).CString(), KeyDefault(kRadioModeKeys, mode),
                         value);
    radio.modeFunction[mode] = ResolveFunctionId(value);
  }
  radio.SelectFunction(radio.ChooseCurrentMode());
}

// The table rows only name radio types, but a module of another class under such a type must not
// be cast blindly.
GF_Abstract_AvionicDevice* AsRadio(const UnitLoad& load) {
  return dynamic_cast<GF_Abstract_AvionicDevice*>(&load.module);
}

// ---- per model: the order decides whether Register already sees the new bindings ----------------

// GF-45, GF-46: the radio is registered first, then its modes are loaded.
void LoadGF45Or46(const UnitLoad& load) {
  RegisterUnit(load);
  if (GF_Abstract_AvionicDevice* radio = AsRadio(load)) LoadModes(load, *radio);
  load.module.SetDisplay();
}

void LoadGF166(const UnitLoad& load) {
  RegisterUnit(load);
  AssignGroup(load, kGF166ButtonKeys);
  if (GF_Abstract_AvionicDevice* radio = AsRadio(load)) LoadModes(load, *radio);
  load.module.SetDisplay();
}

// GF-P8 and GF-RP48 register before binding: their push buttons need no synchronisation.
void LoadGFP8(const UnitLoad& load) {
  RegisterUnit(load);
  AssignGroup(load, kGFP8Keys);
  load.module.SetDisplay();
}

// The GF-T8 binds first, so that Register's switch synchronisation runs the new functions.
void LoadGFT8(const UnitLoad& load) {
  AssignGroup(load, kGFP8Keys);
  RegisterUnit(load);
  load.module.SetDisplay();
}

void LoadGFRP48(const UnitLoad& load) {
  RegisterUnit(load);
  AssignGroup(load, kGFRP48Keys);
  load.module.SetDisplay();
}

// GF-TQ6: the levers are bound after Register, then every lever gets the unit's reverse, beta,
// reverser-power and flap settings.
void LoadGFTQ6(const UnitLoad& load) {
  RegisterUnit(load);
  AssignGroup(load, kGFTQ6LeverKeys);
  if (auto* quadrant = dynamic_cast<GFTQ6_Module*>(&load.module)) {
    // Read one by one: each read may trace, and the trace keeps the keys' order.
    const float reversePoint = ReadCalibrationReal(load.section, kGFTQ6LeverCalibration[0]);
    const float betaPoint = ReadCalibrationReal(load.section, kGFTQ6LeverCalibration[1]);
    const float reverserPower = ReadCalibrationReal(load.section, kGFTQ6LeverCalibration[2]);
    quadrant->SetLeverReversers(reversePoint, betaPoint, reverserPower);
    quadrant->SetFlapNullZones(ReadCalibrationReal(load.section, kGFTQ6FlapNullZone));
  }
  load.module.SetDisplay();
}

// The gear-and-trim modules bind first, so that Register brings the new gear (and fuel) functions
// to where the lever (and the selector) really are.
void LoadGFLGT(const UnitLoad& load) {
  AssignGroup(load, kGFLGTKeys);
  if (auto* panel = dynamic_cast<GFLGT_Module*>(&load.module)) {
    panel->SetWheelGain(ReadWheelGain(load.section, kGFLGTWheelGain));
  }
  RegisterUnit(load);
  load.module.SetDisplay();
}

void LoadGFLGT2(const UnitLoad& load) {
  AssignGroup(load, kGFLGT2Keys);
  if (auto* panel = dynamic_cast<GFLGT2_Module*>(&load.module)) {
    for (std::int32_t wheel = 0; wheel < kLGT2Wheels; ++wheel) {
      panel->SetWheelGain(wheel, ReadWheelGain(load.section, kGFLGT2WheelGains[wheel]));
    }
  }
  RegisterUnit(load);
  load.module.SetDisplay();
}

// The autopilot panels register first: Register brings the disengage function to where the bar is
// (it was bound by the previous load; the first load finds it unbound).
void LoadGFMCP(const UnitLoad& load) {
  RegisterUnit(load);
  AssignGroup(load, kGFMCPButtonKeys);
  AssignGroup(load, kGFMCPKnobKeys);
  load.module.SetDisplay();
}

// The GF-MCPPro's defaults follow the x737 mode at the time of loading.
void LoadGFMCPPro(const UnitLoad& load) {
  RegisterUnit(load);
  AssignGroup(load, GFMCPProButtonKeys(X737Mode));
  AssignGroup(load, GFMCPProKnobKeys(X737Mode));
  load.module.SetDisplay();
}

// GF-EFIS, GF-SECM, GF-MESM bind first: their Register puts the simulator where the panel's
// selectors and switches are, through the new bindings.
void LoadGFEFIS(const UnitLoad& load) {
  AssignGroup(load, kGFEFISButtonKeys);
  AssignGroup(load, kGFEFISKnobKeys);
  RegisterUnit(load);
}

void LoadGFSECM(const UnitLoad& load) {
  AssignGroup(load, kGFSECMKeys);
  RegisterUnit(load);
}

void LoadGFMESM(const UnitLoad& load) {
  AssignGroup(load, kGFMESMKeys);
  RegisterUnit(load);
}

// GF-WCP: the six buttons, then the colour that each light shows when lit.
void LoadGFWCP(const UnitLoad& load) {
  RegisterUnit(load);
  AssignGroup(load, kGFWCPKeys);
  if (auto* panel = dynamic_cast<GFWCP_Module*>(&load.module)) {
    for (int index = 0; index < KeyCount(kGFWCPColourKeys) && index < kGFWCPButtons; ++index) {
      const std::string value = ReadAssignmentValue(load.section, KeyName(kGFWCPColourKeys, index),
                                                    KeyDefault(kGFWCPColourKeys, index));
      panel->colours[index] = static_cast<std::uint8_t>(ParseColourName(value.c_str()));
    }
  }
  load.module.SetDisplay();
}

// The GF-DIO's inputs and outputs are numbered, not keyed: each key reaches the board by its number.
// "%02d" of a GF-DIO input or output number, without printf: a board has 200 keys.
std::array<char, 12> TwoDigits(int number) {
  std::array<char, 12> text{};
  char* at = text.data();
  if (number >= 0 && number < 10) *at++ = '0';
  std::to_chars(at, text.data() + text.size() - 1, number);
  return text;
}

using GFDIOAssign = void (GFDIO_Module::*)(const char* key, std::int32_t functionId, std::int32_t param1,
                                           std::int32_t param2);

void AssignGFDIOGroup(const UnitLoad& load, GFDIO_Module& board, const AssignmentKeyGroup& group,
                      GFDIOAssign assign) {
  const std::int32_t thisUnit = static_cast<std::int32_t>(load.unit);
  for (int index = 0; index < KeyCount(group); ++index) {
    const ResolvedAssignment assignment = ReadAssignment(load.section, group, index, thisUnit);
    (board.*assign)(TwoDigits(KeyNumber(group, index)).data(), assignment.functionId, assignment.target.unit,
                    assignment.target.kind);
  }
}

// The dialog reloads the board without registering it, so that the input bank it holds survives.
void LoadGFDIO(const UnitLoad& load) {
  auto* board = dynamic_cast<GFDIO_Module*>(&load.module);
  if (board == nullptr) return;
  if (load.registerUnit) RegisterUnit(load);
  AssignGFDIOGroup(load, *board, kGFDIOInputOnKeys, &GFDIO_Module::AssignInputFunction);
  AssignGFDIOGroup(load, *board, kGFDIOInputOffKeys, &GFDIO_Module::AssignOffStateFunction);
  for (int index = 0; index < KeyCount(kGFDIOSwitchTypeKeys); ++index) {
    const std::string value = ReadAssignmentValue(load.section, KeyName(kGFDIOSwitchTypeKeys, index),
                                                  KeyDefault(kGFDIOSwitchTypeKeys, index));
    const auto switchType = static_cast<std::uint8_t>(ParseSwitchTypeName(value.c_str()));
    board->SetSwitchType(KeyNumber(kGFDIOSwitchTypeKeys, index) - 1, switchType);
  }
  AssignGFDIOGroup(load, *board, kGFDIOOutputKeys, &GFDIO_Module::AssignOutputFunction);
  board->SetDisplay();
}

using UnitLoader = void (*)(const UnitLoad& load);

struct TypeLoader {
  std::uint32_t moduleType;
  UnitLoader load;
};

// One row per model with a module class. The models join this table as their classes arrive; a
// type without a row loads nothing.
constexpr TypeLoader kTypeLoaders[] = {
    {kModuleGFEFIS, &LoadGFEFIS}, {kModuleGFSECM, &LoadGFSECM}, {kModuleGFMESM, &LoadGFMESM},
    {kModuleGF45, &LoadGF45Or46}, {kModuleGF46, &LoadGF45Or46}, {kModuleGF166, &LoadGF166},
    {kModuleGFP8, &LoadGFP8},     {kModuleGFT8, &LoadGFT8},     {kModuleGFRP48, &LoadGFRP48},
    {kModuleGFTQ6, &LoadGFTQ6},
    {kModuleGFLGT, &LoadGFLGT},   {kModuleGFLGT2, &LoadGFLGT2},
    {kModuleGFWCP, &LoadGFWCP},   {kModuleGFDIO, &LoadGFDIO},
    {kModuleGFMCP, &LoadGFMCP},   {kModuleGFMCPPro, &LoadGFMCPPro},
};

UnitLoader FindLoader(std::uint32_t moduleType) {
  for (const TypeLoader& row : kTypeLoaders) {
    if (row.moduleType == moduleType) return row.load;
  }
  return nullptr;
}

// The names of a custom value the simulator lacks, each told once in Log.txt.
void ReportMissingNames(const std::string& section, const char* key, const char* value, FunctionId id) {
  struct Where {
    const std::string& section;
    const char* key;
    const char* value;
  } where{section, key, value};
  ReportMissingCustomNames(
      id,
      [](void* context, const char* what, const char* name) {
        const Where& at = *static_cast<const Where*>(context);
        SimLogMissingName(at.section, at.key, at.value, what, name);
      },
      &where);
}

}  // namespace

void LoadAllAssignments() {
  RefreshAircraftProfile();  // the aircraft X-Plane has now decides whose sections are read
  const ProfileReadSnapshot snapshot;
  // Every unit's writer is woken once, when every unit is loaded: waking each as its unit ended
  // measured slower, a woken writer often taking the main thread's processor mid-load.
  const WriterWakeBatch wakeOnce;
  for (std::uint32_t moduleType : kAssignmentLoadOrder) LoadTypeAssignments(moduleType);
}

int LoadTypeAssignments(std::uint32_t moduleType, bool registerUnit) {
  const ProfileReadSnapshot snapshot;
  const int count = Manager().UnitCount(moduleType);
  for (int unit = 0; unit < count; ++unit) {
    LoadUnitAssignments(moduleType, static_cast<std::uint32_t>(unit), registerUnit);
  }
  return count;
}

void LoadUnitAssignments(std::uint32_t moduleType, std::uint32_t unit, bool registerUnit) {
  GF_Abstract_Module* module = nullptr;
  if (Manager().FindModule(moduleType, unit, &module) != 1 || module == nullptr) return;
  UnitLoader load = FindLoader(moduleType);
  if (load == nullptr) return;
  const ProfileReadSnapshot snapshot;
  // Registering and binding a unit queues a run of light and display reports: its writer (and any
  // other unit's the run reaches) is woken once, when the unit is loaded (or, in a full load, when
  // every unit is).
  const WriterWakeBatch wakeOnce;
  load(UnitLoad{*module, unit, AssignmentSection(moduleType, unit), registerUnit});
}

bool HasAssignmentLoader(std::uint32_t moduleType) { return FindLoader(moduleType) != nullptr; }

void SetAssignmentModuleManager(ModuleManager* manager) { gAssignmentManager = manager; }

std::string AssignmentSection(std::uint32_t moduleType, std::uint32_t unit) {
  char section[32];
  std::snprintf(section, sizeof section, SectionFormat(moduleType), static_cast<int>(unit) + 1);
  return section;
}

std::string ReadAssignmentValue(const std::string& section, const std::string& key, const char* defaultValue) {
  return ReadProfileValue(section, key, defaultValue);
}

ResolvedAssignment ReadAssignment(const std::string& section, const AssignmentKeyGroup& group, int index,
                                  std::int32_t thisUnit) {
  // Spelt and read into buffers: a load reads several hundred keys.
  const KeySpelling key = SpellKey(group, index);
  char value[kIniValueSize];
  ReadProfileValueInto(section, key.CString(), KeyDefault(group, index), value);
  const ResolvedAssignment resolved = ResolveAssignment(value, group.target, thisUnit);
  if (resolved.functionId == kNada && value[0] != '\0' && std::strcmp(value, GetFunctionName(kNada)) != 0)
    SimLogUnknownFunction(section, key.CString(), value);
  if (IsCustomFunction(resolved.functionId)) ReportMissingNames(section, key.CString(), value, resolved.functionId);
  return resolved;
}

int ReadWheelGain(const std::string& section, const CalibrationKey& key) {
  return ParseWheelGain(ReadAssignmentValue(section, key.key, key.defaultValue).c_str());
}

float ReadCalibrationReal(const std::string& section, const CalibrationKey& key) {
  return ParseCalibrationReal(ReadAssignmentValue(section, key.key, key.defaultValue).c_str());
}

}  // namespace drav

#include "modules/GFSECM_Module.h"

#include <cstdlib>
#include <iterator>

#include "hid/InputRecords.h"
#include "hid/ModelRows.h"
#include "base/Log.h"
#include "base/Settings.h"
#include "modules/ModuleMechanics.h"
#include "modules/ModelDialogRows.h"
#include "modules/ModuleRegistry.h"

namespace drav {

namespace {

constexpr std::int32_t kSECMSwitchBits = 12;
constexpr std::uint8_t kKeyBoth = 4;
constexpr std::uint8_t kKeyStart = 5;
constexpr std::uint8_t kFlapsUp = 1;
constexpr std::uint8_t kFlapsDown = 2;

bool IsBoundKey(std::uint8_t key) { return key < kSECMControls; }

void LogState(const char* const labels[5], const GFSECMInputRecord& state) {
  LogBits16(labels[0], state.rotary);
  LogBits16(labels[1], state.second);
  LogBits16(labels[2], state.third);
  LogBits16(labels[3], state.fourth);
  LogBits16(labels[4], state.switches);
}

const char* const kRegisterLabels[5] = {
    "GFSECM_Module::Register - Selector", "GFSECM_Module::Register - GearState",
    "GFSECM_Module::Register - WingFlapsState", "GFSECM_Module::Register - CowlFlapsState",
    "GFSECM_Module::Register - SwitchState"};
const char* const kGetButtonLabels[5] = {
    "GFSECM_Module::GetButton - Selector", "GFSECM_Module::GetButton - GearState",
    "GFSECM_Module::GetButton - WingFlapsState", "GFSECM_Module::GetButton - CowlFlapsState",
    "GFSECM_Module::GetButton - SwitchState"};

// A two-state input (cowl flaps, gear): reports 1 when it comes on, 0 when it goes off.
std::int32_t DetectTwoState(std::uint8_t now, std::uint8_t* last, std::int32_t control, std::int32_t* value) {
  if (now != 0 && *last == 0) {
    *last = now;
    *value = 1;
    return control;
  }
  if (now == 0 && *last != 0) {
    *last = 0;
    *value = 0;
    return control;
  }
  return -1;
}

}  // namespace

GFSECM_Module::GFSECM_Module() : GF_Abstract_Module(kModuleGFSECM) {
  for (SwitchFunction& record : buttonFunctions) ClearFunction(record);
}

GFSECMInputRecord GFSECM_Module::State() const {
  std::lock_guard<std::mutex> lock(decodingLock_);
  return decoding_;
}

void GFSECM_Module::Switch(std::int32_t control, bool on) {
  ExecuteFunction(buttonFunctions[control], on ? kActionOn : kActionOff, 0, 0);
}

void GFSECM_Module::Register(std::uint16_t unitNumber) {
  GF_Abstract_Module::Register(unitNumber);

  GFSECMInputRecord state{};  // a unit that cannot be read counts as all off, key unknown
  Port().TakeInput(state);
  {
    std::lock_guard<std::mutex> lock(decodingLock_);
    decoding_ = state;
  }
  if (CurrentDebugSwitches().DebugRegisterFunction != 0) LogState(kRegisterLabels, state);

  for (std::int32_t i = 0; i < kSECMSwitchBits; ++i) Switch(i, (state.switches & (1u << i)) != 0);
  Switch(kSECMCowlFlapsControl, state.fourth != 0);
  // The gear function's "on" is gear down, which is the lever's state 0.
  Switch(kSECMGearControl, state.second == 0);

  if (state.rotary == kKeyStart) {
    Switch(kSECMStartControl, true);
  } else if (state.rotary >= 1 && state.rotary <= kKeyBoth) {
    ExecuteFunction(buttonFunctions[state.rotary + kSECMKeyBase], kActionSet, state.rotary, 1);
  }

  if (state.third == kFlapsUp) Switch(kSECMFlapsControl, false);
  if (state.third == kFlapsDown) Switch(kSECMFlapsControl, true);
}

std::int32_t GFSECM_Module::GetButton(const void* record, std::int32_t* value) {
  if (record == nullptr || value == nullptr) return -1;
  const auto& state = *static_cast<const GFSECMInputRecord*>(record);
  if (CurrentDebugSwitches().DebugGetButtonFunction != 0) LogState(kGetButtonLabels, state);
  std::lock_guard<std::mutex> lock(decodingLock_);
  return DecodeLocked(state, value);
}

std::int32_t GFSECM_Module::DecodeLocked(const GFSECMInputRecord& record, std::int32_t* value) {
  std::uint32_t prevSwitches = decoding_.switches;
  const InputBank switches{record.switches, &prevSwitches, kSECMSwitchBits, 0};
  std::int32_t control = DetectBankChange(switches, value);
  decoding_.switches = static_cast<std::uint16_t>(prevSwitches);
  if (control >= 0) return control;

  control = DetectTwoState(record.fourth, &decoding_.fourth, kSECMCowlFlapsControl, value);
  if (control >= 0) return control;
  control = DetectTwoState(record.second, &decoding_.second, kSECMGearControl, value);
  if (control >= 0) return control;

  const std::uint8_t position = record.rotary;
  *value = 0;
  if (position == decoding_.rotary) {
    // The rocker is not remembered: while held, every record steps the flaps once more.
    if (record.third == kFlapsUp) {
      *value = -1;
      return kSECMFlapsControl;
    }
    if (record.third == kFlapsDown) {
      *value = 1;
      return kSECMFlapsControl;
    }
    return -1;
  }
  const std::uint8_t from = decoding_.rotary;
  decoding_.rotary = position;
  // The device delivers only records with a key position; anything else must not pose as the gear.
  if (position < 1 || position > kKeyStart) return -1;
  if (from == kKeyBoth && position == kKeyStart) {
    *value = 1;
    return kSECMStartControl;
  }
  if (from == kKeyStart && position == kKeyBoth) {
    *value = 0;
    return kSECMStartControl;
  }
  *value = position - 1;
  return position + kSECMKeyBase;
}

void GFSECM_Module::ClearDisplay() {
  std::lock_guard<std::mutex> lock(decodingLock_);
  decoding_ = GFSECMInputRecord{};
}

void GFSECM_Module::HandleInput(std::int32_t control, std::int32_t value) {
  if (control < 0 || control >= kSECMControls) return;
  if (control == kSECMGearControl) {
    Switch(control, value == 0);
  } else if (control >= kSECMKeyBase + 1 && control < kSECMStartControl) {
    ExecuteFunction(buttonFunctions[control], kActionSet, value, 1);
  } else if (control == kSECMFlapsControl) {
    const bool down = value > 0;
    for (std::int32_t step = std::abs(value); step > 0; --step) Switch(control, down);
  } else {
    Switch(control, value != 0);  // switches, cowl flaps, start
  }
}

void GFSECM_Module::AssignFunction(std::uint8_t key, std::int32_t functionId, std::int32_t param1,
                                   std::int32_t param2) {
  if (!IsBoundKey(key)) return;
  SwitchFunction& record = buttonFunctions[key];
  ClearFunction(record);
  CreateFunction(functionId, nullptr, record, param1, param2);
}

std::int32_t GFSECM_Module::GetAssignedFunction(std::uint8_t key) {
  return IsBoundKey(key) ? GetFunctionId(buttonFunctions[key]) : 0;
}

// ---- the unit's keys, in the order in which the loader reads them -----------------------------

// Function01..Function20 (controls 0..19).
const char* const kSECMDefaults[] = {
    "BATTERY_MASTER",      "ALTERNATOR_MASTER",    "AVIONICS_MASTER",       "FUEL_PUMP",
    "CARB_HEAT",           "PITOT_HEAT",           "PANEL_LTS",             "BEACON_LTS",
    "NAV_LTS",             "STROBE_LTS",           "TAXI_LTS",              "LANDING_LTS",
    "ENG_ALL_COWL_FLAPS",  "LANDING_GEAR",         "ENG_ALL_MAGNETO_OFF",   "ENG_ALL_MAGNETO_LEFT",
    "ENG_ALL_MAGNETO_RIGHT", "ENG_ALL_MAGNETO",    "ENG_ALL_START",         "FLAPS_UP_DOWN"};
static_assert(std::size(kSECMDefaults) == 20);
constinit const AssignmentKeyGroup kGFSECMKeys =
    NumberedKeys("Function", 1, kKeyNumberMinusOne, kSECMDefaults, AssignmentTarget::kRadioTested);
constexpr const AssignmentKeyGroup* kFunctionKeys[] = {&kGFSECMKeys};

// ---- the model's descriptor -------------------------------------------------------------------------

namespace {

using namespace std::chrono_literals;
using WS = WriteStrategy;

// The model's row in the device layer (the fields: ModelTable.h and DeviceClasses.h).
constexpr PanelModel kPanelRow = Model(kModuleGFSECM, "GF-SECM", "GFSECM", "GFSECM_%d", 0x0038, 8,
    {false, 0, WS::None, 0ms, kGFSECMInitialQuery, false,
     kDecoder<GFSECMInputRecord, DecodeGFSECMInput>, kDecoder<GFSECMInputRecord, DecodeGFSECMFeature>,
     AfterOpen::Nothing, sizeof(GFSECMInputRecord)});

// Binds first: Register puts the simulator where the panel's switches are, through the new
// bindings.
void LoadAssignments(GFSECM_Module& panel, UnitAssignments& unit) {
  AssignGroup(panel, unit, kGFSECMKeys);
  RegisterUnit(panel, unit);
}

const char* const kGFSECMCaptions[] = {
    "Battery Master", "Alternator Master", "Avionics Master", "Fuel Pump",    "Carb Heat",
    "Pitot Heat",     "Panel Lights",      "Beacon Lights",   "Nav Lights",   "Strobe Lights",
    "Taxi Lights",    "Landing Lights",    "Cowl",            "Landing Gear",
};

void DialogRows(DialogModelRows& rows, const DialogRowContext&) {
  // Function15 to Function20 are edited in the file only.
  const GroupList groups[] = {{&kGFSECMKeys, PickListKind::kToggle}};
  AddGroupRows(rows, kGFSECMCaptions, groups);
}

}  // namespace

constexpr ModelDescriptor kGFSECMDescriptor = {
    &kPanelRow,
    nullptr,  // the device layer's count
    &MakeModuleVector<GFSECM_Module>,
    &LoadAs<GFSECM_Module, LoadAssignments>,
    kFunctionKeys,
    {},  // no brightness report
    &DialogRows,
};

}  // namespace drav

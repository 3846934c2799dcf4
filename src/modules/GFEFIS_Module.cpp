#include "modules/GFEFIS_Module.h"

#include <atomic>
#include <iterator>

#include "functions/AvionicAdjust.h"
#include "hid/InputRecords.h"
#include "hid/ModelRows.h"
#include "base/HostState.h"
#include "base/Log.h"
#include "base/Settings.h"
#include "modules/ModuleMechanics.h"
#include "hid/ModuleTypes.h"
#include "modules/ModelDialogRows.h"
#include "modules/ModuleRegistry.h"

namespace drav {

namespace {

// How HandleInput runs a control's function.
enum class EFISAction : std::uint8_t {
  kPushButton,  // Toggle when pressed, Release when let go
  kPointer,     // a latching pointer switch: On / Off
  kSetValue,    // Set with the value (selector position or button state), forced on
};

// Controls 0..26, in control order.
constexpr EFISAction kEFISActions[kEFISButtonControls] = {
    // 0..7: map symbol buttons
    EFISAction::kPushButton, EFISAction::kPushButton, EFISAction::kPushButton, EFISAction::kPushButton,
    EFISAction::kPushButton, EFISAction::kPushButton, EFISAction::kPushButton, EFISAction::kPushButton,
    // 8..11: ADF / VOR pointer switches
    EFISAction::kPointer, EFISAction::kPointer, EFISAction::kPointer, EFISAction::kPointer,
    // 12..15: 14 is the barometric standard button, which sets rather than toggles
    EFISAction::kPushButton, EFISAction::kPushButton, EFISAction::kSetValue, EFISAction::kPushButton,
    // 16..19 mode positions, 20..26 range positions
    EFISAction::kSetValue, EFISAction::kSetValue, EFISAction::kSetValue, EFISAction::kSetValue,
    EFISAction::kSetValue, EFISAction::kSetValue, EFISAction::kSetValue, EFISAction::kSetValue,
    EFISAction::kSetValue, EFISAction::kSetValue, EFISAction::kSetValue};

constexpr std::int32_t kEFISSwitchBits = 16;
constexpr std::uint16_t kLeftAdf = 1u << 8, kLeftVor = 1u << 9, kRightAdf = 1u << 10, kRightVor = 1u << 11;

std::uint8_t ModeOf(std::uint8_t selectors) { return selectors & 0x0F; }
std::uint8_t RangeOf(std::uint8_t selectors) { return selectors >> 4; }

std::int32_t DialIndexOfKey(std::uint8_t key) {
  if (key == kEFISDialKeyA) return 0;
  if (key == kEFISDialKeyB) return 1;
  return -1;
}

bool IsButtonKey(std::uint8_t key) { return key < kEFISButtonControls; }

}  // namespace

GFEFIS_Module::GFEFIS_Module() : GF_Abstract_Module(kModuleGFEFIS) {
  for (SwitchFunction& record : buttonFunctions) ClearFunction(record);
}

// The flag is written by the takeover dataref on the main thread and read here on the input thread
// too; reading it atomically keeps that read well defined.
bool GFEFIS_Module::TakenOver() const { return std::atomic_ref<int>(*takeover_).load(std::memory_order_relaxed) != 0; }

GFEFIS_Module::DecodingState GFEFIS_Module::Snapshot() const {
  std::lock_guard<std::mutex> lock(decodingLock_);
  return decoding_;
}

std::uint16_t GFEFIS_Module::PrevSwitchVals() const { return static_cast<std::uint16_t>(Snapshot().prevSwitchVals); }
std::uint8_t GFEFIS_Module::PrevSelectorVals() const { return Snapshot().prevSelectorVals; }
std::uint8_t GFEFIS_Module::ModeSelector() const { return Snapshot().modeSelector; }
std::uint8_t GFEFIS_Module::RangeSelector() const { return Snapshot().rangeSelector; }

void GFEFIS_Module::Register(std::uint16_t unitNumber) {
  if (TakenOver()) return;
  GF_Abstract_Module::Register(unitNumber);

  // A unit that cannot be read counts as everything off and both selectors at position 0.
  GFEFISInputRecord state{};  // the encoders' movement before registration is dropped
  Port().TakeInput(state);
  const std::uint16_t switches = state.switches;
  const std::uint8_t selectors = state.selectors;
  const std::uint8_t mode = ModeOf(selectors);
  const std::uint8_t range = RangeOf(selectors);
  {
    std::lock_guard<std::mutex> lock(decodingLock_);
    decoding_ = DecodingState{switches, selectors, mode, range};
  }
  if (CurrentDebugSwitches().DebugRegisterFunction != 0) {
    LogBits16("GFEFIS_Module::Register - PrevSwitchVals", switches);
    LogBits16("GFEFIS_Module::Register - PrevSelectorVals", selectors);
  }

  if (mode < kEFISModePositions) SetPosition(kEFISModeBase + mode, mode);
  if (range < kEFISRangePositions) SetPosition(kEFISRangeBase + range, range);
  SynchronisePointerSwitches(switches);
}

void GFEFIS_Module::SetPosition(std::int32_t control, std::int32_t position) {
  ExecuteFunction(buttonFunctions[control], kActionSet, position, 1);
}

// Each pointer switch has three positions (ADF, off, VOR) on two inputs: the position that is set
// is switched on; the functions are never switched off here, since "off" has no function of its own.
void GFEFIS_Module::SynchronisePointerSwitches(std::uint16_t switches) {
  if ((switches & kLeftAdf) != 0) {
    ExecuteFunction(buttonFunctions[8], kActionOn, 0, 0);
  } else if ((switches & kLeftVor) != 0) {
    ExecuteFunction(buttonFunctions[9], kActionOn, 0, 0);
  }
  if ((switches & kRightAdf) != 0) {
    ExecuteFunction(buttonFunctions[10], kActionOn, 0, 0);
  } else if ((switches & kRightVor) != 0) {
    ExecuteFunction(buttonFunctions[11], kActionOn, 0, 0);
  }
}

std::int32_t GFEFIS_Module::GetButton(const void* record, std::int32_t* value) {
  if (TakenOver() || record == nullptr || value == nullptr) return -1;
  *value = 0;
  const auto& state = *static_cast<const GFEFISInputRecord*>(record);
  if (CurrentDebugSwitches().DebugGetButtonFunction != 0) {
    LogBits16("GFEFIS_Module::GetButton - Selectors", state.selectors);
    LogFormat("GFEFIS_Module::GetButton -  Dial A = %d, Dial B = %d", state.encoder1, state.encoder2);
    LogBits16("GFEFIS_Module::GetButton - BtnState", state.switches);
  }
  std::lock_guard<std::mutex> lock(decodingLock_);
  return DecodeLocked(state, value);
}

// Selectors before everything else: a record that moves a selector reports only that, even when an
// encoder moved in the same record (the encoder's count of that record is lost).
std::int32_t GFEFIS_Module::DecodeLocked(const GFEFISInputRecord& record, std::int32_t* value) {
  const std::uint8_t mode = ModeOf(record.selectors);
  if (mode != decoding_.modeSelector) {
    decoding_.modeSelector = mode;
    *value = mode;
    return kEFISModeBase + mode;
  }
  const std::uint8_t range = RangeOf(record.selectors);
  if (range != decoding_.rangeSelector) {
    decoding_.rangeSelector = range;
    *value = range;
    return kEFISRangeBase + range;
  }
  const EncoderMove encoders[] = {{record.encoder1, kEFISDialControlA}, {record.encoder2, kEFISDialControlB}};
  const InputBank banks[] = {{record.switches, &decoding_.prevSwitchVals, kEFISSwitchBits, 0}};
  return DecodeFirstChange(encoders, banks, value);
}

void GFEFIS_Module::ClearDisplay() {
  std::lock_guard<std::mutex> lock(decodingLock_);
  decoding_.prevSwitchVals = 0;
  decoding_.prevSelectorVals = 0;
}

void GFEFIS_Module::TurnDial(std::int32_t dialIndex, std::int32_t steps) {
  AvionicFunction* dial = dialFunctions[dialIndex];
  if (dial != nullptr) AdjustAvionicFunction(dial, 0, steps, kModuleGFEFIS);
}

void GFEFIS_Module::HandleInput(std::int32_t control, std::int32_t value) {
  if (TakenOver()) return;
  if (control == kEFISDialControlA || control == kEFISDialControlB) {
    TurnDial(control - kEFISDialControlA, value);
    return;
  }
  // A selector position beyond the bound ones (mode 4..15, range 7..15) lands here and does nothing.
  if (control < 0 || control >= kEFISButtonControls) return;
  SwitchFunction& record = buttonFunctions[control];
  switch (kEFISActions[control]) {
    case EFISAction::kPushButton:
      ExecuteFunction(record, value != 0 ? kActionToggle : kActionRelease, 0, 0);
      break;
    case EFISAction::kPointer:
      ExecuteFunction(record, value != 0 ? kActionOn : kActionOff, 0, 0);
      break;
    case EFISAction::kSetValue:
      ExecuteFunction(record, kActionSet, value, 1);
      break;
  }
}

void GFEFIS_Module::AssignFunction(std::uint8_t key, std::int32_t functionId, std::int32_t param1,
                                   std::int32_t param2) {
  if (TakenOver()) return;
  const std::int32_t dialIndex = DialIndexOfKey(key);
  if (dialIndex >= 0) {
    // An id without an avionic object leaves the encoder unbound rather than turning the old one.
    dialFunctions[dialIndex] = nullptr;
    SwitchFunction scratch;
    ClearFunction(scratch);
    CreateFunction(functionId, &dialFunctions[dialIndex], scratch, param1, param2);
    return;
  }
  if (!IsButtonKey(key)) return;
  SwitchFunction& record = buttonFunctions[key];
  ClearFunction(record);
  CreateFunction(functionId, nullptr, record, param1, param2);
}

std::int32_t GFEFIS_Module::GetAssignedFunction(std::uint8_t key) {
  if (TakenOver()) return 0;
  const std::int32_t dialIndex = DialIndexOfKey(key);
  if (dialIndex >= 0) {
    const AvionicFunction* dial = dialFunctions[dialIndex];
    return dial != nullptr ? GetAvionicFunctionId(*dial) : 0;
  }
  return IsButtonKey(key) ? GetFunctionId(buttonFunctions[key]) : 0;
}

// ---- the unit's keys, in the order in which the loader reads them -----------------------------

// Function01..Function27 (controls 0..26), then Function28, Function29 (controls 28, 29).
const char* const kEFISButtonDefaults[] = {
    "",                   "EFIS_SYM_NDB",       "EFIS_SYM_VOR",       "EFIS_SYM_ARPT",
    "EFIS_SYM_WPT",       "EFIS_SYM_TCAS",      "EFIS_SYM_WXR",       "NADA",
    "EFIS_ADF_SEL1",      "EFIS_VOR_SEL1",      "EFIS_ADF_SEL2",      "EFIS_VOR_SEL2",
    "NADA",               "NADA",               "ALTIMETER_SET_STD",  "METRIC_PRESSURE",
    "EFIS_ND_MODE_APP",   "EFIS_ND_MODE_VOR",   "EFIS_ND_MODE_MAP",   "EFIS_ND_MODE_PLAN",
    "EFIS_ND_RANGE_10NM", "EFIS_ND_RANGE_20NM", "EFIS_ND_RANGE_40NM", "EFIS_ND_RANGE_80NM",
    "EFIS_ND_RANGE_160NM", "EFIS_ND_RANGE_320NM", "EFIS_ND_RANGE_640NM"};
const char* const kEFISKnobDefaults[] = {"DECISION_HEIGHT", "ALTIMETER"};
static_assert(std::size(kEFISButtonDefaults) == 27 && std::size(kEFISKnobDefaults) == 2);
constinit const AssignmentKeyGroup kGFEFISButtonKeys =
    NumberedKeys("Function", 1, kKeyNumberMinusOne, kEFISButtonDefaults, AssignmentTarget::kRadioTested);
constinit const AssignmentKeyGroup kGFEFISKnobKeys =
    NumberedKeys("Function", 28, kKeyNumberItself, kEFISKnobDefaults, AssignmentTarget::kNone);
constexpr const AssignmentKeyGroup* kFunctionKeys[] = {&kGFEFISButtonKeys, &kGFEFISKnobKeys};

// ---- the model's descriptor -------------------------------------------------------------------------

namespace {

using namespace std::chrono_literals;
using WS = WriteStrategy;

// The model's row in the device layer (the fields: ModelTable.h and DeviceClasses.h).
constexpr PanelModel kPanelRow = Model(kModuleGFEFIS, "GF-EFIS", "GFEFIS", "GFEFIS_%d", 0x0300, 4,
    {false, kModelQueue, WS::FeatureDrop, 0ms, kGFEFISInitialQuery, true,
     kDecoder<GFEFISInputRecord, DecodeGFEFISInput>, kDecoder<GFEFISInputRecord, DecodeGFEFISFeature>,
     AfterOpen::Nothing, sizeof(GFEFISInputRecord)});

// Binds first: Register puts the simulator where the panel's selectors and switches are, through
// the new bindings.
void LoadAssignments(GFEFIS_Module& panel, UnitAssignments& unit) {
  AssignGroup(panel, unit, kGFEFISButtonKeys);
  AssignGroup(panel, unit, kGFEFISKnobKeys);
  RegisterUnit(panel, unit);
}

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

void DialogRows(DialogModelRows& rows, const DialogRowContext& context) {
  if (context.efisDisabled) return;
  const GroupList groups[] = {{&kGFEFISButtonKeys, PickListKind::kButtonWithAltimeterStd},
                              {&kGFEFISKnobKeys, PickListKind::kAvionic}};
  AddGroupRows(rows, kGFEFISCaptions, groups);
}

const char* DeviceLabel(const DeviceLabelContext& context) {
  return context.efisDisabled ? kDisabledLabelFormat : kUnitLabelFormat;
}

}  // namespace

constexpr ModelDescriptor kGFEFISDescriptor = {
    &kPanelRow,
    nullptr,  // the device layer's count
    &MakeModuleVector<GFEFIS_Module>,
    &LoadAs<GFEFIS_Module, LoadAssignments>,
    kFunctionKeys,
    {},  // no brightness report
    &DialogRows,
    &DeviceLabel,
};

}  // namespace drav

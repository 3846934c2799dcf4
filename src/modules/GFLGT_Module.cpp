#include "modules/GFLGT_Module.h"

#include <iterator>

#include "functions/AvionicAdjust.h"
#include "hid/InputRecords.h"
#include "hid/ModelRows.h"
#include "base/Log.h"
#include "base/Settings.h"
#include "modules/PanelPower.h"
#include "modules/ModelDialogRows.h"
#include "modules/ModuleRegistry.h"

namespace drav {

namespace {

constexpr std::uint8_t kFlapsUpBit = 0x02;
constexpr std::uint8_t kFlapsDownBit = 0x04;

constexpr GearLightLayout kLGTLights{{{0x80, 0x40}, {0x08, 0x04}, {0x20, 0x10}}};

// Wheel steps times the gain, held within 32 bits.
std::int32_t ScaledSteps(std::int64_t steps, std::int32_t gain) {
  const std::int64_t scaled = steps * gain;
  if (scaled > INT32_MAX) return INT32_MAX;
  if (scaled < INT32_MIN) return INT32_MIN;
  return static_cast<std::int32_t>(scaled);
}

}  // namespace

GFLGT_Module::GFLGT_Module() : GF_Abstract_Module(kModuleGFLGT) {
  ClearFunction(gear);
  ClearFunction(flaps);
}

void GFLGT_Module::Register(std::uint16_t unitNumber) {
  GF_Abstract_Module::Register(unitNumber);

  // The wheel count read here is movement from before the unit was bound: dropped. A unit that
  // cannot be read counts as all switches open.
  GFLGTInputRecord state{};
  Port().TakeInput(state);
  const std::uint8_t switches = state.switches;
  if (CurrentDebugSwitches().DebugRegisterFunction != 0) LogBits16("GFLGT_Module::Register - SwitchState", switches);

  const std::int32_t position = LeverPositionOf(switches);
  decoding_.Reset(position, switches);
  ExecuteFunction(gear, position > 0 ? kActionOff : kActionOn, 0, 0);
}

std::int32_t GFLGT_Module::GetButton(const void* record, std::int32_t* value) {
  if (record == nullptr || value == nullptr) return -1;
  const auto& input = *static_cast<const GFLGTInputRecord*>(record);
  if (CurrentDebugSwitches().DebugGetButtonFunction != 0) {
    LogFormat("GFLGT_Module::GetButton -  Wheel = %d", input.value);
    LogBits16("GFLGT_Module::GetButton - BtnState", input.switches);
  }

  if (input.value != 0) {
    *value = input.value;
    return kLGTWheelControl;
  }
  if ((input.switches & kFlapsUpBit) != 0) {
    *value = -1;
    return kLGTFlapsControl;
  }
  if ((input.switches & kFlapsDownBit) != 0) {
    *value = 1;
    return kLGTFlapsControl;
  }
  return decoding_.DetectLeverMove(input.switches, value) ? kLGTGearControl : -1;
}

void GFLGT_Module::HandleInput(std::int32_t control, std::int32_t value) {
  if (CurrentDebugSwitches().DebugHandleInputFunction != 0) {
    LogFormat("GFLGT_Module::HandleInput -  ControlID = %d, Value = %d", control, value);
  }
  switch (control) {
    case kLGTGearControl: OperateLeverOrRocker(gear, value); break;
    case kLGTFlapsControl: OperateLeverOrRocker(flaps, value); break;
    case kLGTWheelControl:
      if (wheel != nullptr) AdjustAvionicFunction(wheel, 0, ScaledSteps(value, wheelGain), 0);
      break;
    default: break;
  }
}

void GFLGT_Module::UpdateOutputs() {
  RefreshIfBound(gear);
  RefreshIfBound(flaps);
  SetDisplay();
}

void GFLGT_Module::SendLights(std::uint32_t mask) const {
  Port().SetIndicators(mask);
}

void GFLGT_Module::SetDisplay() {
  const bool powered = HasPanelPower(false);
  const std::uint8_t mask = powered ? ComposeGearLights(kLGTLights) : 0;
  indicators_.Update(
      powered, mask, [this](std::uint32_t bits) { SendLights(bits); }, "GFLGT_Module::SetDisplay - Indicators");
}

void GFLGT_Module::ClearDisplay() {
  indicators_.Clear([this](std::uint32_t bits) { SendLights(bits); });
}

void GFLGT_Module::AssignFunction(std::uint8_t key, std::int32_t functionId, std::int32_t param1,
                                  std::int32_t param2) {
  SwitchFunction* record = key == 'L' ? &gear : key == 'S' ? &flaps : nullptr;
  if (record != nullptr) {
    ClearFunction(*record);
    CreateFunction(functionId, nullptr, *record, param1, param2);
    return;
  }
  if (key != 'W') return;
  // An id without an avionic object (NADA, a switch function) leaves the wheel unbound rather than
  // still turning what it was bound to before.
  wheel = nullptr;
  SwitchFunction scratch;
  ClearFunction(scratch);
  CreateFunction(functionId, &wheel, scratch, param1, param2);
}

std::int32_t GFLGT_Module::GetAssignedFunction(std::uint8_t key) {
  switch (key) {
    case 'W': return wheel != nullptr ? GetAvionicFunctionId(*wheel) : 0;
    case 'L': return GetFunctionId(gear);
    case 'S': return GetFunctionId(flaps);
    default: return 0;
  }
}

// ---- the unit's keys, in the order in which the loader reads them -----------------------------

// Wheel, lever, up/down switch; and the wheel's gain.
const char* const kLGTDefaults[] = {"ELEV_TRIM", "LANDING_GEAR", "FLAPS_UP_DOWN"};
static_assert(std::size(kLGTDefaults) == 3);
constinit const AssignmentKeyGroup kGFLGTKeys = CharacterKeys("WLS", kLGTDefaults, AssignmentTarget::kNone);
constinit const CalibrationKey kGFLGTWheelGain = {"WHEEL_GAIN", "1"};
constexpr const AssignmentKeyGroup* kFunctionKeys[] = {&kGFLGTKeys};

// ---- the model's descriptor -------------------------------------------------------------------------

namespace {

using namespace std::chrono_literals;
using WS = WriteStrategy;

// The model's row in the device layer (the fields: ModelTable.h and DeviceClasses.h).
constexpr PanelModel kPanelRow = Model(kModuleGFLGT, "GF-LGT", "GFLGT", "GFLGT_%d", 0x0040, 16,
    {false, kModelQueue, WS::FeatureRetry, 0ms, kGFLGTInitialQuery, false,
     kDecoder<GFLGTInputRecord, DecodeGFLGTInput>, kDecoder<GFLGTInputRecord, DecodeGFLGTFeature>,
     AfterOpen::Nothing, sizeof(GFLGTInputRecord)},
    SwitchPanel<kGFSwitchPanelBrightnessReport>(&SendIndicators<EncodeGFLGTLights>));

// Binds first, so that Register brings the new gear function to where the lever really is.
void LoadAssignments(GFLGT_Module& panel, UnitAssignments& unit) {
  AssignGroup(panel, unit, kGFLGTKeys);
  panel.SetWheelGain(unit.ReadWheelGain(kGFLGTWheelGain));
  RegisterUnit(panel, unit);
  panel.SetDisplay();
}

const KeyedRow kGFLGTRows[] = {
    {"Wheel", &kGFLGTKeys, 0, PickListKind::kTrim},
    {"Lever", &kGFLGTKeys, 1, PickListKind::kGear},
    {"Up/Down Switch", &kGFLGTKeys, 2, PickListKind::kFlap},
};

const DialogSliderRow kGFLGTSliders[] = {
    {0, "Wheel Gain", "WHEEL_GAIN", "1", 1, 10, false, true},
};

void DialogRows(DialogModelRows& rows, const DialogRowContext&) {
  AddKeyedRows(rows, kGFLGTRows);
  AddSliders(rows, kGFLGTSliders);
}

}  // namespace

constexpr ModelDescriptor kGFLGTDescriptor = {
    &kPanelRow,
    nullptr,  // the device layer's count
    &MakeModuleVector<GFLGT_Module>,
    &LoadAs<GFLGT_Module, LoadAssignments>,
    kFunctionKeys,
    // brightness
    {&ReadUnitBrightness<kModuleGFLGT>, &WriteUnitBrightness<kModuleGFLGT>, false},
    &DialogRows,
};

}  // namespace drav

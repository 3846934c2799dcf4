#include "modules/GFLGT2_Module.h"

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

constexpr std::uint8_t kSelectorRightBit = 0x04;
constexpr std::uint8_t kSelectorLeftBit = 0x08;
constexpr std::uint8_t kSelectorBits = kSelectorRightBit | kSelectorLeftBit;
constexpr std::uint8_t kFlapsDownBit = 0x10;
constexpr std::uint8_t kFlapsUpBit = 0x20;

constexpr std::uint8_t kFirstWheelKey = 'G';
constexpr std::uint8_t kFirstSwitchKey = 'J';

// Some units are wired with each landing-light LED pair the other way round; the option swaps them.
constexpr GearLightLayout kLGT2Lights{{{0x10, 0x20}, {0x40, 0x80}, {0x04, 0x08}}};
constexpr GearLightLayout kLGT2SwappedLights{{{0x20, 0x10}, {0x80, 0x40}, {0x08, 0x04}}};

// Per wheel, the setting that says the unit counts that wheel the other way round.
constexpr int GlobalSettings::*kWheelReverseFix[kLGT2Wheels] = {
    &GlobalSettings::GFLGT2AileronReverseFix,
    &GlobalSettings::GFLGT2ElevatorReverseFix,
    &GlobalSettings::GFLGT2RudderReverseFix,
};

std::int32_t IndexOfKey(std::uint8_t key, std::uint8_t firstKey, std::int32_t count) {
  const std::int32_t index = static_cast<std::int32_t>(key) - firstKey;
  return index >= 0 && index < count ? index : -1;
}

// Held within 32 bits: -INT16_MIN and large gains must not overflow.
std::int32_t Clamp32(std::int64_t value) {
  if (value > INT32_MAX) return INT32_MAX;
  if (value < INT32_MIN) return INT32_MIN;
  return static_cast<std::int32_t>(value);
}

// The selector position the contacts stand for: right, else left, else both.
std::int32_t FuelSlotOfSwitches(std::uint8_t switches) {
  if ((switches & kSelectorRightBit) != 0) return kLGT2FuelRightSlot;
  if ((switches & kSelectorLeftBit) != 0) return kLGT2FuelLeftSlot;
  return kLGT2FuelBothSlot;
}

}  // namespace

GFLGT2_Module::GFLGT2_Module() : GF_Abstract_Module(kModuleGFLGT2) {
  for (SwitchFunction& record : switchFunctions) ClearFunction(record);
}

void GFLGT2_Module::Register(std::uint16_t unitNumber) {
  GF_Abstract_Module::Register(unitNumber);

  // Wheel counts read here are movement from before the unit was bound: dropped.
  GFLGT2InputRecord state{};
  Port().TakeInput(state);
  const std::uint8_t switches = state.switches;
  if (CurrentDebugSwitches().DebugRegisterFunction != 0) LogBits16("GFLGT2_Module::Register - PrevSwitchVals", switches);

  const std::int32_t position = LeverPositionOf(switches);
  decoding_.Reset(position, switches);
  ExecuteFunction(switchFunctions[kLGT2GearSlot], position > 0 ? kActionOff : kActionOn, 0, 0);
  SelectFuel(FuelSlotOfSwitches(switches));
}

std::int32_t GFLGT2_Module::GetButton(const void* record, std::int32_t* value) {
  if (record == nullptr || value == nullptr) return -1;
  const auto& input = *static_cast<const GFLGT2InputRecord*>(record);
  if (CurrentDebugSwitches().DebugGetButtonFunction != 0) {
    LogFormat("GFLGT2_Module::GetButton -  Wheel A = %d, Wheel B = %d, Wheel C = %d", input.values[0],
              input.values[1], input.values[2]);
    LogBits16("GFLGT2_Module::GetButton - BtnState", input.switches);
  }

  // Wheel C turns the other way round from A and B.
  const EncoderMove wheelMoves[kLGT2Wheels] = {
      {input.values[0], kLGT2FirstWheelControl},
      {input.values[1], kLGT2FirstWheelControl + 1},
      {-static_cast<std::int32_t>(input.values[2]), kLGT2FirstWheelControl + 2},
  };
  const std::int32_t wheel = FirstEncoderMove(wheelMoves, value);
  if (wheel != -1) return wheel;

  if (decoding_.DetectLeverMove(input.switches, value)) return kLGT2GearControl;
  if ((input.switches & kFlapsUpBit) != 0) {
    *value = -1;
    return kLGT2FlapsControl;
  }
  if ((input.switches & kFlapsDownBit) != 0) {
    *value = 1;
    return kLGT2FlapsControl;
  }
  // The contact's bit number is its control id (2 right, 3 left).
  return decoding_.DetectContactChange(input.switches, kSelectorBits, value);
}

void GFLGT2_Module::HandleInput(std::int32_t control, std::int32_t value) {
  if (CurrentDebugSwitches().DebugHandleInputFunction != 0) {
    LogFormat("GFLGT2_Module::HandleInput -  ControlID = %d, Value = %d", control, value);
  }
  switch (control) {
    case kLGT2GearControl: OperateLeverOrRocker(switchFunctions[kLGT2GearSlot], value); break;
    case kLGT2FlapsControl: OperateLeverOrRocker(switchFunctions[kLGT2FlapsSlot], value); break;
    // A contact that opens leaves the selector in the middle position: both tanks.
    case kLGT2SelectorRightControl: SelectFuel(value == 1 ? kLGT2FuelRightSlot : kLGT2FuelBothSlot); break;
    case kLGT2SelectorLeftControl: SelectFuel(value == 1 ? kLGT2FuelLeftSlot : kLGT2FuelBothSlot); break;
    default:
      if (control >= kLGT2FirstWheelControl && control < kLGT2FirstWheelControl + kLGT2Wheels) {
        TurnWheel(control - kLGT2FirstWheelControl, value);
      }
      break;
  }
}

void GFLGT2_Module::SelectFuel(std::int32_t slot) {
  ExecuteFunction(switchFunctions[slot], kActionOn, 0, 0);
}

void GFLGT2_Module::TurnWheel(std::int32_t wheelIndex, std::int32_t count) {
  const bool reversed = CurrentSettings().*kWheelReverseFix[wheelIndex] != 0;
  const std::int64_t steps = reversed ? -static_cast<std::int64_t>(count) : count;
  AvionicFunction* function = wheels[wheelIndex];
  if (function == nullptr) return;
  AdjustAvionicFunction(function, 0, Clamp32(steps * wheelGain[wheelIndex]), 0);
}

void GFLGT2_Module::SetWheelGain(std::int32_t wheelIndex, std::int32_t gain) {
  if (wheelIndex >= 0 && wheelIndex < kLGT2Wheels) wheelGain[wheelIndex] = gain;
}

void GFLGT2_Module::UpdateOutputs() {
  // The fuel selector's functions are not refreshed: the selector shows nothing.
  RefreshIfBound(switchFunctions[kLGT2GearSlot]);
  RefreshIfBound(switchFunctions[kLGT2FlapsSlot]);
  SetDisplay();
}

void GFLGT2_Module::SendLights(std::uint32_t mask) const {
  Port().SetIndicators(mask);
}

void GFLGT2_Module::SetDisplay() {
  const bool powered = HasPanelPower(false);
  const GearLightLayout& layout = CurrentSettings().GFLGT2LandingLightsReverseFix != 0 ? kLGT2SwappedLights : kLGT2Lights;
  const std::uint8_t mask = powered ? ComposeGearLights(layout) : 0;
  indicators_.Update(
      powered, mask, [this](std::uint32_t bits) { SendLights(bits); }, "GFLGT2_Module::SetDisplay - Indicators");
}

void GFLGT2_Module::ClearDisplay() {
  indicators_.Clear([this](std::uint32_t bits) { SendLights(bits); });
}

void GFLGT2_Module::AssignFunction(std::uint8_t key, std::int32_t functionId, std::int32_t param1,
                                   std::int32_t param2) {
  const std::int32_t slot = IndexOfKey(key, kFirstSwitchKey, kLGT2SwitchFunctions);
  if (slot >= 0) {
    ClearFunction(switchFunctions[slot]);
    CreateFunction(functionId, nullptr, switchFunctions[slot], param1, param2);
    return;
  }
  const std::int32_t wheelIndex = IndexOfKey(key, kFirstWheelKey, kLGT2Wheels);
  if (wheelIndex < 0) return;
  // An id without an avionic object leaves the wheel unbound rather than still turning the old one.
  wheels[wheelIndex] = nullptr;
  SwitchFunction scratch;
  ClearFunction(scratch);
  CreateFunction(functionId, &wheels[wheelIndex], scratch, param1, param2);
}

std::int32_t GFLGT2_Module::GetAssignedFunction(std::uint8_t key) {
  const std::int32_t slot = IndexOfKey(key, kFirstSwitchKey, kLGT2SwitchFunctions);
  if (slot >= 0) return GetFunctionId(switchFunctions[slot]);
  const std::int32_t wheelIndex = IndexOfKey(key, kFirstWheelKey, kLGT2Wheels);
  if (wheelIndex < 0 || wheels[wheelIndex] == nullptr) return 0;
  return GetAvionicFunctionId(*wheels[wheelIndex]);
}

// ---- the unit's keys, in the order in which the loader reads them -----------------------------

// FunctionG..FunctionN; and the three wheel gains (aileron, elevator, rudder).
const char* const kLGT2Defaults[] = {"AILERON_TRIM",  "ELEV_TRIM",      "RUDDER_TRIM",   "LANDING_GEAR",
                                     "FLAPS_UP_DOWN", "FUEL_FEED_LEFT", "FUEL_FEED_ALL", "FUEL_FEED_RIGHT"};
static_assert(std::size(kLGT2Defaults) == 8);
constinit const AssignmentKeyGroup kGFLGT2Keys = CharacterKeys("GHIJKLMN", kLGT2Defaults, AssignmentTarget::kNone);
constinit const CalibrationKey kGFLGT2WheelGains[3] = {{"WHEEL1_GAIN", "1"}, {"WHEEL2_GAIN", "1"}, {"WHEEL3_GAIN", "1"}};
constexpr const AssignmentKeyGroup* kFunctionKeys[] = {&kGFLGT2Keys};

// ---- the model's descriptor -------------------------------------------------------------------------

namespace {

using namespace std::chrono_literals;
using WS = WriteStrategy;

// The model's row in the device layer (the fields: ModelTable.h and DeviceClasses.h).
constexpr PanelModel kPanelRow = Model(kModuleGFLGT2, "GF-LGT2", "GFLGT2", "GFLGT2_%d", 0x0048, 8,
    {true, kSharedBaseQueue, WS::ByReportKind, 0ms, kGFLGT2InitialQuery, false,
     kDecoder<GFLGT2InputRecord, DecodeGFLGT2Input>, kDecoder<GFLGT2InputRecord, DecodeGFLGT2Feature>,
     AfterOpen::Nothing, sizeof(GFLGT2InputRecord)},
    kSwitchPanelPort);

// Binds first, so that Register brings the new gear and fuel functions to where the lever and
// the selector really are.
void LoadAssignments(GFLGT2_Module& panel, UnitAssignments& unit) {
  AssignGroup(panel, unit, kGFLGT2Keys);
  for (std::int32_t wheel = 0; wheel < kLGT2Wheels; ++wheel) {
    panel.SetWheelGain(wheel, unit.ReadWheelGain(kGFLGT2WheelGains[wheel]));
  }
  RegisterUnit(panel, unit);
  panel.SetDisplay();
}

const KeyedRow kGFLGT2Rows[] = {
    {"Aileron", &kGFLGT2Keys, 0, PickListKind::kTrim},
    {"Elevator", &kGFLGT2Keys, 1, PickListKind::kTrim},
    {"Rudder", &kGFLGT2Keys, 2, PickListKind::kTrim},
    {"Gear Lever", &kGFLGT2Keys, 3, PickListKind::kGear},
    {"Flap Switch", &kGFLGT2Keys, 4, PickListKind::kFlap},
    {"Switch Left Position", &kGFLGT2Keys, 5, PickListKind::kFuelFeed},
    {"Switch Centre Position", &kGFLGT2Keys, 6, PickListKind::kFuelFeed},
    {"Switch Right Position", &kGFLGT2Keys, 7, PickListKind::kFuelFeed},
};

const DialogSliderRow kGFLGT2Sliders[] = {
    {0, "Aileron Gain", "WHEEL1_GAIN", "1", 1, 10, false, true},
    {1, "Elevator Gain", "WHEEL2_GAIN", "1", 1, 10, false, true},
    {2, "Rudder Gain", "WHEEL3_GAIN", "1", 1, 10, false, true},
};

void DialogRows(DialogModelRows& rows, const DialogRowContext&) {
  AddKeyedRows(rows, kGFLGT2Rows);
  AddSliders(rows, kGFLGT2Sliders);
}

}  // namespace

constexpr ModelDescriptor kGFLGT2Descriptor = {
    &kPanelRow,
    nullptr,  // the device layer's count
    &MakeModuleVector<GFLGT2_Module>,
    &LoadAs<GFLGT2_Module, LoadAssignments>,
    kFunctionKeys,
    // brightness: its own reversed scale
    {&ReadUnitBrightness<kModuleGFLGT2>, &WriteUnitBrightness<kModuleGFLGT2>, true},
    &DialogRows,
};

}  // namespace drav

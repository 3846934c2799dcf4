#include "modules/GFRP48_Module.h"

#include "functions/AvionicAdjust.h"
#include "hid/InputRecords.h"
#include "hid/ModelRows.h"
#include "base/Log.h"
#include "base/Settings.h"
#include "hid/ModuleTypes.h"
#include "modules/ModelDialogRows.h"
#include "modules/ModuleRegistry.h"

namespace drav {

namespace {

constexpr std::uint8_t kFirstDialKey = 'A';

// Registration needs only the button byte; the encoder counts it reads (and so clears) are
// movements from before the unit was bound to anything.
std::int32_t ReadRP48Buttons(const UnitPort& port, std::uint8_t* buttons) {
  GFRP48InputRecord state{};
  const std::int32_t result = port.TakeInput(state);
  if (result == 0) *buttons = state.buttons;
  return result;
}

const LightBoxModel kGFRP48Model{
    kModuleGFRP48,
    "GFRP48_Module::Register - PrevSwitchVals",
    "GFRP48_Module::SetDisplay - Indicators",
    &ReadRP48Buttons,
};

std::int32_t DialIndexOfKey(std::uint8_t key) {
  const std::int32_t index = static_cast<std::int32_t>(key) - kFirstDialKey;
  return index >= 0 && index < kRP48Encoders ? index : -1;
}

}  // namespace

GFRP48_Module::GFRP48_Module() : LightBoxModule(kGFRP48Model) {}

std::int32_t GFRP48_Module::GetButton(const void* record, std::int32_t* value) {
  if (record == nullptr) return -1;
  const auto& input = *static_cast<const GFRP48InputRecord*>(record);
  const bool tracing = CurrentDebugSwitches().DebugGetButtonFunction != 0;
  if (tracing) {
    LogFormat("GFRP48_Module::GetButton -  Dial A = %d, Dial B = %d, Dial C = %d, Dial D = %d", input.encoders[0],
              input.encoders[1], input.encoders[2], input.encoders[3]);
  }

  EncoderMove encoders[kRP48Encoders];
  for (std::int32_t i = 0; i < kRP48Encoders; ++i) encoders[i] = {input.encoders[i], kRP48FirstEncoderControl + i};
  const std::int32_t dial = FirstEncoderMove(encoders, value);
  if (dial != -1) return dial;

  if (tracing) LogBits16("GFRP48_Module::GetButton - BtnState", input.buttons);
  return DetectSwitchChange(input.buttons, value);
}

void GFRP48_Module::HandleInput(std::int32_t control, std::int32_t value) {
  if (CurrentDebugSwitches().DebugHandleInputFunction != 0) {
    LogFormat("GFRP48_Module::HandleInput - Button = %d, Value = %d", control, value);
  }
  if (control >= kRP48FirstEncoderControl) {
    TurnDial(control - kRP48FirstEncoderControl, value);
  } else {
    PressButton(control, value);
  }
}

void GFRP48_Module::TurnDial(std::int32_t dialIndex, std::int32_t steps) {
  if (dialIndex < 0 || dialIndex >= kRP48Encoders) return;
  AvionicFunction* dial = dialFunctions[dialIndex];
  if (dial == nullptr) return;
  // Some hardware revisions count the other way round. Negated in 64 bits: -INT32_MIN does not fit.
  const std::int64_t turned = CurrentSettings().GRP48ReverseFix != 0 ? -static_cast<std::int64_t>(steps) : steps;
  const auto inner = static_cast<std::int32_t>(turned > INT32_MAX ? INT32_MAX : turned);
  AdjustAvionicFunction(dial, 0, inner, kModuleGFRP48);
}

void GFRP48_Module::AssignFunction(std::uint8_t key, std::int32_t functionId, std::int32_t param1,
                                   std::int32_t param2) {
  const std::int32_t dialIndex = DialIndexOfKey(key);
  if (dialIndex < 0) {
    LightBoxModule::AssignFunction(key, functionId, param1, param2);
    return;
  }
  // An id with no avionic object (NADA, a switch function) leaves the encoder unbound rather than
  // still turning what it was bound to before.
  dialFunctions[dialIndex] = nullptr;
  SwitchFunction scratch;
  ClearFunction(scratch);
  CreateFunction(functionId, &dialFunctions[dialIndex], scratch, param1, param2);
}

std::int32_t GFRP48_Module::GetAssignedFunction(std::uint8_t key) {
  const std::int32_t dialIndex = DialIndexOfKey(key);
  if (dialIndex < 0) return LightBoxModule::GetAssignedFunction(key);
  const AvionicFunction* dial = dialFunctions[dialIndex];
  return dial != nullptr ? GetAvionicFunctionId(*dial) : 0;
}

// ---- the unit's keys, in the order in which the loader reads them -----------------------------

// Function1..Function8 (buttons), then FunctionA..FunctionD (knobs).
constinit const AssignmentKeyGroup kGFRP48Keys =
    CharacterKeys("12345678ABCD", nullptr, AssignmentTarget::kRadioTested);
constexpr const AssignmentKeyGroup* kFunctionKeys[] = {&kGFRP48Keys};

// ---- the model's descriptor -------------------------------------------------------------------------

namespace {

using namespace std::chrono_literals;
using WS = WriteStrategy;

// The model's row in the device layer (the fields: ModelTable.h and DeviceClasses.h).
constexpr PanelModel kPanelRow = Model(kModuleGFRP48, "GF-RP48", "GFRP48", "GFRP48_%d", 0x0028, 32,
    {false, kModelQueue, WS::FeatureDrop, 0ms, kGFRP48InitialQuery, false,
     kDecoder<GFRP48InputRecord, DecodeGFRP48Input>, kDecoder<GFRP48InputRecord, DecodeGFRP48Feature>,
     AfterOpen::Nothing, sizeof(GFRP48InputRecord)},
    kSwitchPanelPort);

// Registered before binding: its push buttons need no synchronisation.
void LoadAssignments(GFRP48_Module& panel, UnitAssignments& unit) {
  RegisterUnit(panel, unit);
  AssignGroup(panel, unit, kGFRP48Keys);
  panel.SetDisplay();
}

const char* const kKnobCaptions[] = {"Knob A", "Knob B", "Knob C", "Knob D"};

void DialogRows(DialogModelRows& rows, const DialogRowContext&) {
  AddEmptyDefaultRows(rows.functions, 0, kButtonCaptions, kGFRP48Keys, 0, PickListKind::kButton);
  AddEmptyDefaultRows(rows.functions, 8, kKnobCaptions, kGFRP48Keys, 8, PickListKind::kAvionic);
}

}  // namespace

constexpr ModelDescriptor kGFRP48Descriptor = {
    &kPanelRow,
    nullptr,  // the device layer's count
    &MakeModuleVector<GFRP48_Module>,
    &LoadAs<GFRP48_Module, LoadAssignments>,
    kFunctionKeys,
    // brightness
    {&ReadUnitBrightness<kModuleGFRP48>, &WriteUnitBrightness<kModuleGFRP48>, false},
    &DialogRows,
};

}  // namespace drav

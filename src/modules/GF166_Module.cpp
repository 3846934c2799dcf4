#include "modules/GF166_Module.h"

#include <cstdio>
#include <cstring>

#include "functions/AvionicAdjust.h"
#include "functions/AvionicDisplay.h"
#include "hid/InputRecords.h"
#include "hid/ModelRows.h"
#include "base/Log.h"
#include "base/Settings.h"
#include "hid/ModuleTypes.h"
#include "modules/PanelPower.h"
#include "modules/ModelDialogRows.h"
#include "modules/ModuleRegistry.h"

namespace drav {

namespace {

constexpr std::int32_t kOwnModuleKind = kRadioGF166;
constexpr const char* kBlankDisplay = "      ";  // six digits
constexpr std::int32_t kButtonCount = 3;
// RMK166EncoderType values the unit understands; anything else leaves its setting alone.
constexpr int kLowestEncoderType = 0;
constexpr int kHighestEncoderType = 2;

// A dual radio function, the standby function that the encoder tunes, and how the left display
// marks which radio it shows: a letter, with or without a decimal point after it.
struct DualRadio {
  FunctionId dual;
  FunctionId standby;
};

constexpr DualRadio kDualRadios[] = {
    {kFnADF1_DUAL, kFnADF1_STANDBY},
    {kFnADF2_DUAL, kFnADF2_STANDBY},
    {kFnCOM1_DUAL, kFnCOM1_STANDBY},
    {kFnCOM2_DUAL, kFnCOM2_STANDBY},
    {kFnDME_DUAL, kFnDME_STANDBY},
    {kFnNAV1_DUAL, kFnNAV1_STANDBY},
    {kFnNAV2_DUAL, kFnNAV2_STANDBY},
};

// Keyed by the shown function's tag rather than its id: the tag is what the object really holds
// now, the id may be another unit's.
struct LeftPrefix {
  const char* tag;
  char letter;
  bool withPoint;
};

constexpr LeftPrefix kLeftPrefixes[] = {
    {"AD1D", 'A', true}, {"AD2D", 'A', false}, {"CM1D", 'C', true}, {"CM2D", 'C', false},
    {"DMED", 'y', false}, {"NV1D", 'M', true}, {"NV2D", 'M', false},
};

FunctionId StandbyOf(FunctionId functionId) {
  for (const DualRadio& radio : kDualRadios) {
    if (radio.dual == functionId) return radio.standby;
  }
  return kNada;
}

const LeftPrefix* PrefixOf(const char* tag) {
  for (const LeftPrefix& prefix : kLeftPrefixes) {
    if (std::strcmp(prefix.tag, tag) == 0) return &prefix;
  }
  return nullptr;
}

// The shared avionic object of functionId as the factory gives it, or null when the id has none.
AvionicFunction* AvionicFor(FunctionId functionId) {
  AvionicFunction* function = nullptr;
  SwitchFunction scratch;
  ClearFunction(scratch);
  CreateFunction(functionId, &function, scratch, -1, kOwnModuleKind);
  return function;
}

// The PREV and NEXT objects: a dual display must not show them as a radio.
bool IsModeStepTag(const char* tag) { return std::strcmp(tag, "PREV") == 0 || std::strcmp(tag, "NEXT") == 0; }

bool Same(const char* a, const char* b) { return std::strncmp(a, b, GF166_Module::kTextSize - 1) == 0; }

void Keep(char (&target)[GF166_Module::kTextSize], const char* text) {
  std::snprintf(target, sizeof target, "%s", text);
}

std::int32_t KeyToButton(std::uint8_t key) {
  if (key == 'L') return GF166_Module::kControlButtonL;
  if (key == 'R') return GF166_Module::kControlButtonR;
  return -1;
}

}  // namespace

GF166_Module::GF166_Module() : GF_Abstract_AvionicDevice(kModuleGF166) {
  for (SwitchFunction& record : buttonFunctions) ClearFunction(record);
}

std::uint8_t GF166_Module::PrevSwitchVals() const {
  std::lock_guard<std::mutex> lock(decodingLock_);
  return static_cast<std::uint8_t>(prevSwitchVals_);
}

void GF166_Module::Register(std::uint16_t unitNumber) {
  GF_Abstract_Module::Register(unitNumber);

  // The encoder counts are thrown away: only movement after registration is input.
  GF166InputRecord state{};
  Port().TakeInput(state);
  const std::uint8_t buttons = state.buttons;
  {
    std::lock_guard<std::mutex> lock(decodingLock_);
    prevSwitchVals_ = buttons;
  }
  if (CurrentDebugSwitches().DebugRegisterFunction != 0) LogBits16("GF166_Module::Register - PrevSwitchVals", buttons);

  const int encoderType = CurrentSettings().RMK166EncoderType;
  if (encoderType >= kLowestEncoderType && encoderType <= kHighestEncoderType) {
    const auto type = static_cast<std::uint8_t>(encoderType);
    Port().SetEncoderType(type, type);
  }
}

std::int32_t GF166_Module::GetButton(const void* record, std::int32_t* value) {
  if (record == nullptr) return -1;
  const auto& input = *static_cast<const GF166InputRecord*>(record);
  if (CurrentDebugSwitches().DebugGetButtonFunction != 0) {
    LogFormat("GF166_Module::GetButton -  Dial 1 = %d, Dial 2 = %d", input.encoder1, input.encoder2);
  }

  const EncoderMove dials[] = {{input.encoder1, kControlDial1}, {input.encoder2, kControlDial2}};
  const std::int32_t dial = FirstEncoderMove(dials, value);
  if (dial != -1) return dial;

  if (CurrentDebugSwitches().DebugGetButtonFunction != 0) LogBits16("GF166_Module::GetButton - BtnState", input.buttons);
  std::lock_guard<std::mutex> lock(decodingLock_);
  const InputBank buttons{input.buttons, &prevSwitchVals_, kButtonCount, kControlSwap};
  return DetectBankChange(buttons, value);
}

void GF166_Module::HandleInput(std::int32_t control, std::int32_t value) {
  if (primary == nullptr) return;
  // The encoder tunes the standby half of a dual radio, else the function shown.
  AvionicFunction* tuned = secondary != nullptr ? secondary : primary;
  switch (control) {
    case kControlSwap:
      if (secondary != nullptr && value != 0) SwapAvionicDisplays(*primary, *secondary);
      break;
    case kControlButtonL:
    case kControlButtonR:
      ExecuteFunction(buttonFunctions[control], value != 0 ? kActionToggle : kActionRelease, 0, 0);
      break;
    case kControlDial1:
      AdjustAvionicFunction(tuned, value, 0, kModuleGF166);
      break;
    case kControlDial2:
      AdjustAvionicFunction(tuned, 0, value, kModuleGF166);
      break;
    default:
      break;
  }
}

void GF166_Module::UpdateOutputs() {
  if (primary == nullptr) return;
  if (GetAvionicFunctionId(*primary) != kNada) FormatAvionicDisplay(*primary);
  if (secondary != nullptr && GetAvionicFunctionId(*secondary) != kNada) FormatAvionicDisplay(*secondary);
  for (std::int32_t button = kControlButtonL; button < kButtonCount; ++button) {
    if (GetFunctionId(buttonFunctions[button]) != kNada) RefreshFunctionState(buttonFunctions[button]);
  }
  SetDisplay();
}

void GF166_Module::SetDisplay() {
  if (!HasPanelPower(true)) {
    SendBlank();
    return;
  }
  if (primary == nullptr) return;
  if (secondary == nullptr) {
    ShowSingleFunction();
  } else if (!ShowDualFunction()) {
    return;
  }
  SendLights();
}

// One function: its tag on the left (sent every time), its value on the right. The transponder's
// code is set off by a space so that it sits like the other four-digit values; the space goes
// only to the display, the shared function keeps its own text for the other modules.
void GF166_Module::ShowSingleFunction() {
  Port().SetDisplay(1, primary->tag);
  Keep(lastLeft, primary->tag);

  if (Same(primary->text, lastRight)) return;
  char right[kTextSize];
  if (std::strcmp(primary->tag, "XPDR") == 0) {
    std::snprintf(right, sizeof right, " %s", primary->text);
  } else {
    std::snprintf(right, sizeof right, "%s", primary->text);
  }
  Port().SetDisplay(2, right);
  Keep(lastRight, primary->text);
}

bool GF166_Module::ShowDualFunction() {
  if (IsModeStepTag(primary->tag)) return false;

  char left[kTextSize];
  if (const LeftPrefix* prefix = PrefixOf(primary->tag)) {
    std::snprintf(left, sizeof left, prefix->withPoint ? "%c.%s" : "%c%s", prefix->letter, primary->text);
  } else {
    // The shared object was rebuilt as something else meanwhile: show its value unmarked.
    std::snprintf(left, sizeof left, "%s", primary->text);
  }
  const bool logging = DisplayLoggingEnabled();
  if (!Same(left, lastLeft)) {
    Port().SetDisplay(1, left);
    if (logging) LogFormat("GF166_Module::SetDisplay -  Left Display = %s", left);
  }
  if (!Same(secondary->text, lastRight)) {
    char right[kTextSize];
    std::snprintf(right, sizeof right, " %s", secondary->text);
    Port().SetDisplay(2, right);
    if (logging) LogFormat("GF166_Module::SetDisplay -  Right Display = %s", right);
  }
  Keep(lastLeft, left);
  Keep(lastRight, secondary->text);
  return true;
}

void GF166_Module::SendLights() {
  std::uint32_t mask = 0;
  for (std::int32_t i = 0; i < kButtonCount; ++i) {
    if (GetFunctionState(buttonFunctions[i]) == 1) mask |= std::uint32_t{1} << i;
  }
  lights_.Update(
      true, mask, [this](std::uint32_t sent) { Port().SetIndicators(sent); },
      "GF166_Module::SetDisplay - Indicators");
}

void GF166_Module::SendBlank() {
  lights_.Clear([this](std::uint32_t sent) { Port().SetIndicators(sent); });
  Port().SetDisplay(1, kBlankDisplay);
  Port().SetDisplay(2, kBlankDisplay);
  lastLeft[0] = '\0';
  lastRight[0] = '\0';
}

void GF166_Module::ClearDisplay() { SendBlank(); }

void GF166_Module::AssignFunction(std::uint8_t key, std::int32_t functionId, std::int32_t param1,
                                  std::int32_t param2) {
  if (key == 'M') {
    SelectFunction(functionId);
    return;
  }
  const std::int32_t button = KeyToButton(key);
  if (button == -1) return;
  // A radio function on a button selects it on this same unit unless the binding names another.
  const std::int32_t targetUnit = param1 == -1 ? static_cast<std::int32_t>(unit) : param1;
  const std::int32_t targetKind = param2 == -1 ? kOwnModuleKind : param2;
  SwitchFunction& record = buttonFunctions[button];
  ClearFunction(record);
  CreateFunction(functionId, nullptr, record, targetUnit, targetKind);
}

std::int32_t GF166_Module::GetAssignedFunction(std::uint8_t key) {
  if (key == 'M') return GetCurrentFunction();
  const std::int32_t button = KeyToButton(key);
  return button == -1 ? kNada : GetFunctionId(buttonFunctions[button]);
}

std::int32_t GF166_Module::GetCurrentFunction() {
  return primary != nullptr ? GetAvionicFunctionId(*primary) : kNada;
}

void GF166_Module::SelectFunction(std::int32_t functionId) {
  primary = AvionicFor(functionId);
  if (const FunctionId standby = StandbyOf(functionId); standby != kNada) {
    secondary = AvionicFor(standby);
    return;
  }
  // PREV and NEXT step to another mode, whose own selection sets both halves; while the current
  // mode is unused they leave the step's object shown and the standby half as it was.
  if (StepMode(functionId)) return;
  secondary = nullptr;
}

// ---- the unit's keys, in the order in which the loader reads them -----------------------------

// FunctionL and FunctionR, the two push buttons, aimed at this unit unless told otherwise; then
// the radios' eight modes.
constinit const AssignmentKeyGroup kGF166ButtonKeys = CharacterKeys("LR", nullptr, AssignmentTarget::kThisGF166);
constexpr const AssignmentKeyGroup* kFunctionKeys[] = {&kGF166ButtonKeys, &kRadioModeKeys};

// ---- the model's descriptor -------------------------------------------------------------------------

namespace {

using namespace std::chrono_literals;
using WS = WriteStrategy;

// The model's row in the device layer (the fields: ModelTable.h and DeviceClasses.h).
constexpr PanelModel kPanelRow = Model(kModuleGF166, "GF-166", "GF166", "GF166_%d", 0x0050, 16,
    {false, kModelQueue, WS::FeatureRetryThrice, 0ms, kGF166InitialQuery, true,
     kDecoder<GF166InputRecord, DecodeGF166Input>, kDecoder<GF166InputRecord, DecodeGF166Feature>,
     AfterOpen::Nothing, sizeof(GF166InputRecord)},
    {.setDisplay = &SendDisplay<EncodeGF166Display>,
     .setIndicators = &SendIndicators<EncodeIndicatorBits<kGF166IndicatorReport>>,
     .setEncoderType = &SendGF166EncoderType,
     .setBrightness = &SendBrightness<kGF166BrightnessReport>,
     .readBrightness = &ReadBrightnessReport<kGF166BrightnessReport>});

// Registered first; the two buttons, then the modes.
void LoadAssignments(GF166_Module& radio, UnitAssignments& unit) {
  RegisterUnit(radio, unit);
  AssignGroup(radio, unit, kGF166ButtonKeys);
  LoadRadioModes(radio, unit);
  radio.SetDisplay();
}

void DialogRows(DialogModelRows& rows, const DialogRowContext&) {
  // Row 0 stays empty: the two buttons sit above the modes as on the unit.
  const char* const buttonCaptions[] = {"Left Function", "Right Function"};
  AddEmptyDefaultRows(rows.functions, 1, buttonCaptions, kGF166ButtonKeys, 0, PickListKind::kButton);
  AddEmptyDefaultRows(rows.functions, 3, kModeCaptions, kRadioModeKeys, 0, PickListKind::kAvionic);
}

}  // namespace

constexpr ModelDescriptor kGF166Descriptor = {
    &kPanelRow,
    nullptr,  // the device layer's count
    &MakeModuleVector<GF166_Module>,
    &LoadAs<GF166_Module, LoadAssignments>,
    kFunctionKeys,
    // brightness
    {&ReadUnitBrightness<kModuleGF166>, &WriteUnitBrightness<kModuleGF166>, false},
    &DialogRows,
};

}  // namespace drav

#include "modules/GFDIO_Module.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "hid/InputRecords.h"
#include "hid/ModelRows.h"
#include "base/Log.h"
#include "base/Settings.h"
#include "modules/PanelPower.h"
#include "modules/ModelDialogRows.h"
#include "modules/ModuleRegistry.h"

namespace drav {

namespace {

// The number written in a configuration key ("05", "5", "56"), or -1 for anything that is not a
// short decimal number.
std::int32_t KeyNumber(const char* key) {
  if (key == nullptr || *key == '\0') return -1;
  std::int32_t number = 0;
  for (int length = 0; key[length] != '\0'; ++length) {
    if (length >= 4 || key[length] < '0' || key[length] > '9') return -1;
    number = number * 10 + (key[length] - '0');
  }
  return number;
}

// The 0-based index for a key number 1..count, or -1.
std::int32_t IndexOfKey(const char* key, std::int32_t count) {
  const std::int32_t number = KeyNumber(key);
  return number >= 1 && number <= count ? number - 1 : -1;
}

void Bind(SwitchFunction& record, std::int32_t functionId, std::int32_t param1, std::int32_t param2) {
  ClearFunction(record);
  CreateFunction(functionId, nullptr, record, param1, param2);
}

std::uint64_t BankOf(const std::uint8_t (&bytes)[kGFDIOStateBytes]) {
  std::uint64_t bank = 0;
  for (std::int32_t i = kGFDIOStateBytes - 1; i >= 0; --i) bank = (bank << 8) | bytes[i];
  return bank;
}

std::uint32_t Low32(std::uint64_t bank) { return static_cast<std::uint32_t>(bank & 0xFFFF'FFFFu); }

}  // namespace

GFDIO_Module::GFDIO_Module() : GF_Abstract_Module(kModuleGFDIO) {
  for (SwitchFunction& record : inputFunctions) ClearFunction(record);
  for (SwitchFunction& record : offStateFunctions) ClearFunction(record);
  for (SwitchFunction& record : outputFunctions) ClearFunction(record);
}

void GFDIO_Module::Register(std::uint16_t unitNumber) {
  GF_Abstract_Module::Register(unitNumber);
  // A unit that cannot be read counts as all inputs open.
  GFDIOInputRecord state{};
  Port().TakeInput(state);
  std::ranges::copy(state.states, stateBytes);
  const std::uint64_t bank = BankOf(stateBytes);
  {
    std::lock_guard<std::mutex> lock(decodingLock_);
    prevSwitchBank_ = bank;
  }
  if (CurrentDebugSwitches().DebugRegisterFunction != 0) LogBits32("GFDIO_Module::Register - PrevSwitchBank", Low32(bank));
}

std::int32_t GFDIO_Module::GetButton(const void* /*record*/, std::int32_t* /*value*/) { return 0; }

std::int32_t GFDIO_Module::DecodeInput(const void* record, std::int32_t* value) {
  if (record == nullptr || value == nullptr) return -1;
  const std::uint64_t bank = BankOf(static_cast<const GFDIOInputRecord*>(record)->states);
  *value = 0;

  std::lock_guard<std::mutex> lock(decodingLock_);
  if (CurrentDebugSwitches().DebugGetButtonFunction != 0) {
    LogBits32("GFDIO_Module::GetButton - PrevSwitchBank", Low32(prevSwitchBank_));
    LogBits32("GFDIO_Module::GetButton - BtnState", Low32(bank));
  }
  const std::uint64_t changed = bank ^ prevSwitchBank_;
  for (std::int32_t input = 0; input < kGFDIOInputs; ++input) {
    const std::uint64_t bit = std::uint64_t{1} << input;
    if ((changed & bit) == 0) continue;
    const bool closed = (bank & bit) != 0;
    // A selector reports only the position that became active; the one left is implied.
    if (switchTypes_[input] == kGFDIOSelector) {
      if (!closed) continue;
    } else {
      *value = closed ? 1 : 0;
    }
    prevSwitchBank_ = bank;
    return input;
  }
  return -1;
}

void GFDIO_Module::HandleInput(std::int32_t control, std::int32_t value) {
  if (control < 0 || control >= kGFDIOInputs) return;
  const std::uint8_t type = SwitchType(control);
  SwitchFunction& onFunction = inputFunctions[control];
  if (CurrentDebugSwitches().DebugHandleInputFunction != 0) {
    LogFormat("GFDIO_Module::HandleInput - SwitchType = %d, UnitType = %d, Button = %d, Value = %d", type,
              GetFunctionId(onFunction), control, value);
  }
  switch (type) {
    case kGFDIOSwitch2Way:
      ExecuteFunction(onFunction, value != 0 ? kActionOn : kActionOff, 0, 0);
      break;
    case kGFDIOSwitch3Way:
      if (value == 1) {
        ExecuteFunction(onFunction, kActionOn, 0, 0);
      } else {
        ExecuteFunction(offStateFunctions[control], value == 0 ? kActionOn : kActionOff, 0, 0);
      }
      break;
    case kGFDIOSelector:
      ExecuteFunction(onFunction, kActionSet, control, 1);
      break;
    default:
      ExecuteFunction(onFunction, value != 0 ? kActionToggle : kActionRelease, 0, 0);
      break;
  }
}

std::uint32_t GFDIO_Module::OutputMask() const {
  std::uint32_t mask = 0;
  for (std::int32_t i = 0; i < kGFDIOOutputs; ++i) {
    if (GetFunctionState(outputFunctions[i]) == 1) mask |= 1u << i;
  }
  return mask;
}

void GFDIO_Module::SendOutputs(std::uint32_t mask) {
  Port().SetOutputs({static_cast<std::uint8_t>(mask & 0xFFu), static_cast<std::uint8_t>((mask >> 8) & 0xFFu),
                     static_cast<std::uint8_t>((mask >> 16) & 0xFFu), static_cast<std::uint8_t>(mask >> 24)});
  lastOutputs_ = mask;
}

void GFDIO_Module::SetDisplay() {
  // Without power the outputs are switched off on every call, so a unit plugged in meanwhile goes
  // dark too.
  if (!HasPanelPower(false)) {
    SendOutputs(0);
    return;
  }
  const std::uint32_t mask = OutputMask();
  if (mask == lastOutputs_) return;
  SendOutputs(mask);
  if (CurrentDebugSwitches().DebugSetDisplayFunction != 0) LogBits32("GFDIO_Module::SetDisplay - Indicators", mask);
}

void GFDIO_Module::ClearDisplay() { SendOutputs(0); }

void GFDIO_Module::UpdateOutputs() {
  for (SwitchFunction& record : outputFunctions) {
    if (GetFunctionId(record) != 0) RefreshFunctionState(record);
  }
  SetDisplay();
}

void GFDIO_Module::AssignFunction(std::uint8_t, std::int32_t, std::int32_t, std::int32_t) {}

std::int32_t GFDIO_Module::GetAssignedFunction(std::uint8_t) { return 0; }

void GFDIO_Module::AssignInputFunction(const char* key, std::int32_t functionId, std::int32_t param1,
                                       std::int32_t param2) {
  const std::int32_t index = IndexOfKey(key, kGFDIOInputs);
  if (index >= 0) Bind(inputFunctions[index], functionId, param1, param2);
}

void GFDIO_Module::AssignOffStateFunction(const char* key, std::int32_t functionId, std::int32_t param1,
                                          std::int32_t param2) {
  const std::int32_t index = IndexOfKey(key, kGFDIOInputs);
  if (index >= 0) Bind(offStateFunctions[index], functionId, param1, param2);
}

void GFDIO_Module::AssignOutputFunction(const char* key, std::int32_t functionId, std::int32_t param1,
                                        std::int32_t param2) {
  const std::int32_t index = IndexOfKey(key, kGFDIOOutputs);
  if (index >= 0) Bind(outputFunctions[index], functionId, param1, param2);
}

std::int32_t GFDIO_Module::GetInputFunctionId(const char* key) const {
  const std::int32_t index = IndexOfKey(key, kGFDIOInputs);
  return index < 0 ? 0 : GetFunctionId(inputFunctions[index]);
}

void GFDIO_Module::SetSwitchType(std::int32_t input, std::uint8_t switchType) {
  if (input < 0 || input >= kGFDIOInputs) return;
  std::lock_guard<std::mutex> lock(decodingLock_);
  switchTypes_[input] = switchType <= kGFDIOSelector ? switchType : std::uint8_t{kGFDIOButton};
}

std::uint8_t GFDIO_Module::SwitchType(std::int32_t input) const {
  if (input < 0 || input >= kGFDIOInputs) return kGFDIOButton;
  std::lock_guard<std::mutex> lock(decodingLock_);
  return switchTypes_[input];
}

std::uint64_t GFDIO_Module::PrevSwitchBank() const {
  std::lock_guard<std::mutex> lock(decodingLock_);
  return prevSwitchBank_;
}

// ---- the unit's keys, in the order in which the loader reads them -----------------------------

// The 56 inputs' on- and off-functions, their switch types and the 32 outputs (control byte = input
// or output number, 1-based).
constinit const AssignmentKeyGroup kGFDIOInputOnKeys =
    NumberedKeys("InputFunction", 1, 56, kKeyNumberItself, nullptr, AssignmentTarget::kRadioTested);
constinit const AssignmentKeyGroup kGFDIOInputOffKeys =
    NumberedKeys("InputOffStateFunction", 1, 56, kKeyNumberItself, nullptr, AssignmentTarget::kRadioTested);
constinit const AssignmentKeyGroup kGFDIOSwitchTypeKeys = {
    "InputSwitchTypeFunction", nullptr, 1, 56, kKeyNumberItself, nullptr, "0", AssignmentTarget::kNone};
constinit const AssignmentKeyGroup kGFDIOOutputKeys =
    NumberedKeys("OutputFunction", 1, 32, kKeyNumberItself, nullptr, AssignmentTarget::kRadioTested);
constexpr const AssignmentKeyGroup* kFunctionKeys[] = {&kGFDIOInputOnKeys, &kGFDIOInputOffKeys, &kGFDIOOutputKeys};

// ---- the model's descriptor -------------------------------------------------------------------------

namespace {

using namespace std::chrono_literals;
using WS = WriteStrategy;

// The model's row in the device layer (the fields: ModelTable.h and DeviceClasses.h).
constexpr PanelModel kPanelRow = Model(kModuleGFDIO, "GF-DIO", "GFDIO", "GFDIO_%d", 0x002D, 4,
    {true, kSharedBaseQueue, WS::ByReportKind, 0ms, kGFDIOInitialQuery, false,
     kDecoder<GFDIOInputRecord, DecodeGFDIOInput>, kDecoder<GFDIOInputRecord, DecodeGFDIOFeature>,
     AfterOpen::DIOOutputsOff, sizeof(GFDIOInputRecord)},
    {.setOutputs = &SendGFDIOOutputs});

// "%02d" of an input or output number, without printf: a board has 200 keys, read at every load.
std::array<char, 12> TwoDigits(int number) {
  std::array<char, 12> text{};
  char* at = text.data();
  if (number >= 0 && number < 10) *at++ = '0';
  std::to_chars(at, text.data() + text.size() - 1, number);
  return text;
}

// The inputs and outputs are numbered, not keyed: each key reaches the board by its number.
using NumberedAssign = void (GFDIO_Module::*)(const char* key, std::int32_t functionId, std::int32_t param1,
                                              std::int32_t param2);

void AssignNumbered(GFDIO_Module& board, UnitAssignments& unit, const AssignmentKeyGroup& group,
                    NumberedAssign assign) {
  for (int index = 0; index < KeyCount(group); ++index) {
    const AssignedKey key = unit.Read(group, index);
    (board.*assign)(TwoDigits(KeyNumber(group, index)).data(), key.functionId, key.targetUnit, key.targetKind);
  }
}

// The dialog reloads the board without registering it, so that the input bank it holds survives.
void LoadAssignments(GFDIO_Module& board, UnitAssignments& unit) {
  if (unit.Registering()) RegisterUnit(board, unit);
  AssignNumbered(board, unit, kGFDIOInputOnKeys, &GFDIO_Module::AssignInputFunction);
  AssignNumbered(board, unit, kGFDIOInputOffKeys, &GFDIO_Module::AssignOffStateFunction);
  for (int index = 0; index < KeyCount(kGFDIOSwitchTypeKeys); ++index) {
    const auto switchType = static_cast<std::uint8_t>(unit.ReadSwitchType(kGFDIOSwitchTypeKeys, index));
    board.SetSwitchType(KeyNumber(kGFDIOSwitchTypeKeys, index) - 1, switchType);
  }
  AssignNumbered(board, unit, kGFDIOOutputKeys, &GFDIO_Module::AssignOutputFunction);
  board.SetDisplay();
}

// Nothing to show: its units are reloaded from the file (without registering again) whenever it is
// picked.
void DialogRows(DialogModelRows& rows, const DialogRowContext&) { rows.reloadAllWithoutRegistering = true; }

const char* DeviceLabel(const DeviceLabelContext&) { return kNotAssignableLabelFormat; }

}  // namespace

constexpr ModelDescriptor kGFDIODescriptor = {
    &kPanelRow,
    nullptr,  // the device layer's count
    &MakeModuleVector<GFDIO_Module>,
    &LoadAs<GFDIO_Module, LoadAssignments>,
    kFunctionKeys,
    {},  // no brightness report
    &DialogRows,
    &DeviceLabel,
};

}  // namespace drav

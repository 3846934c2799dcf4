#include "modules/LightBoxModule.h"

#include "base/Log.h"
#include "base/Settings.h"
#include "hid/InputRecords.h"
#include "modules/PanelPower.h"

namespace drav {

namespace {

constexpr std::uint8_t kFirstButtonKey = '1';

// The control index of a button key '1'..'8', or -1.
std::int32_t ButtonIndexOfKey(std::uint8_t key) {
  const std::int32_t index = static_cast<std::int32_t>(key) - kFirstButtonKey;
  return index >= 0 && index < kLightBoxButtons ? index : -1;
}

}  // namespace

std::int32_t ReadSwitchByte(const UnitPort& port, std::uint8_t* switches) {
  GFSwitchByteInputRecord state{};
  const std::int32_t result = port.TakeInput(state);
  if (result == 0) *switches = state.switches;
  return result;
}

LightBoxModule::LightBoxModule(const LightBoxModel& model) : GF_Abstract_Module(model.type), model_(&model) {
  for (SwitchFunction& record : buttonFunctions) ClearFunction(record);
}

void LightBoxModule::Register(std::uint16_t unitNumber) {
  GF_Abstract_Module::Register(unitNumber);

  // A unit that cannot be read counts as all switches off.
  std::uint8_t switches = 0;
  model_->readSwitches(Port(), &switches);
  {
    std::lock_guard<std::mutex> lock(decodingLock_);
    prevSwitchVals_ = switches;
  }
  if (CurrentDebugSwitches().DebugRegisterFunction != 0) LogBits16(model_->registerLabel, switches);
}

std::uint8_t LightBoxModule::PrevSwitchVals() const {
  std::lock_guard<std::mutex> lock(decodingLock_);
  return static_cast<std::uint8_t>(prevSwitchVals_);
}

std::int32_t LightBoxModule::DetectSwitchChange(std::uint8_t switches, std::int32_t* value) {
  std::lock_guard<std::mutex> lock(decodingLock_);
  return DetectBankChange(InputBank{switches, &prevSwitchVals_, kLightBoxButtons, 0}, value);
}

SwitchFunction* LightBoxModule::ButtonFunction(std::int32_t control) {
  if (control < 0 || control >= kLightBoxButtons) return nullptr;
  return &buttonFunctions[control];
}

void LightBoxModule::PressButton(std::int32_t control, std::int32_t value) {
  SwitchFunction* record = ButtonFunction(control);
  if (record == nullptr) return;
  ExecuteFunction(*record, value != 0 ? kActionToggle : kActionRelease, 0, 0);
}

std::uint8_t LightBoxModule::LightMask() const {
  std::uint8_t mask = 0;
  for (std::int32_t i = 0; i < kLightBoxButtons; ++i) {
    if (GetFunctionState(buttonFunctions[i]) == 1) mask |= static_cast<std::uint8_t>(1u << i);
  }
  return mask;
}

void LightBoxModule::SetDisplay() {
  // Without power nothing is composed: the mask sent is 0 whatever the functions say.
  const bool powered = HasPanelPower(false);
  const std::uint8_t mask = powered ? LightMask() : 0;
  const auto send = [this](std::uint32_t bits) { Port().SetIndicators(bits); };
  indicators_.Update(powered, mask, send, model_->setDisplayLabel);
}

void LightBoxModule::ClearDisplay() {
  indicators_.Clear([this](std::uint32_t bits) { Port().SetIndicators(bits); });
}

void LightBoxModule::UpdateOutputs() {
  for (SwitchFunction& record : buttonFunctions) {
    if (GetFunctionId(record) != 0) RefreshFunctionState(record);
  }
  SetDisplay();
}

void LightBoxModule::AssignFunction(std::uint8_t key, std::int32_t functionId, std::int32_t param1,
                                    std::int32_t param2) {
  const std::int32_t index = ButtonIndexOfKey(key);
  if (index < 0) return;
  SwitchFunction& record = buttonFunctions[index];
  ClearFunction(record);
  CreateFunction(functionId, nullptr, record, param1, param2);
}

std::int32_t LightBoxModule::GetAssignedFunction(std::uint8_t key) {
  const std::int32_t index = ButtonIndexOfKey(key);
  return index < 0 ? 0 : GetFunctionId(buttonFunctions[index]);
}

}  // namespace drav

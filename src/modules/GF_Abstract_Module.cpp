#include "modules/GF_Abstract_Module.h"

#include "modules/AssignmentKeys.h"

namespace drav {

constinit const AssignmentKeyGroup kRadioModeKeys = CharacterKeys("12345678", nullptr, AssignmentTarget::kNone);

namespace {

bool IsModeIndex(std::int32_t index) { return index >= 0 && index < kModeCount; }

std::int32_t StepIndex(std::int32_t index, std::int32_t direction) {
  return (index + direction + kModeCount) % kModeCount;
}

}  // namespace

void GF_Abstract_Module::Register(std::uint16_t unitNumber) {
  unit = unitNumber;
  port_ = UnitPort(port_.ModuleType(), unitNumber);
  ClearDisplay();
}

std::int32_t GF_Abstract_AvionicDevice::CurrentModeFunction() const {
  return IsModeIndex(modeIndex) ? modeFunction[modeIndex] : 0;
}

bool GF_Abstract_AvionicDevice::StepMode(std::int32_t functionId) {
  if (functionId != kFunctionPrev && functionId != kFunctionNext) return false;
  if (stepping_ || CurrentModeFunction() == 0) return true;

  const std::int32_t direction = functionId == kFunctionNext ? 1 : -1;
  // The current mode is used, so at most eight steps find a used one (at worst itself again).
  do {
    modeIndex = StepIndex(modeIndex, direction);
  } while (modeFunction[modeIndex] == 0);

  stepping_ = true;
  SelectFunction(modeFunction[modeIndex]);
  stepping_ = false;
  SetDisplay();
  return true;
}

std::int32_t GF_Abstract_AvionicDevice::ChooseCurrentMode() {
  const std::int32_t start = IsModeIndex(modeIndex) ? modeIndex : 0;
  for (std::int32_t step = 0; step < kModeCount; ++step) {
    const std::int32_t index = (start + step) % kModeCount;
    if (modeFunction[index] != 0) {
      modeIndex = index;
      return modeFunction[index];
    }
  }
  modeIndex = 0;
  return 0;
}

}  // namespace drav

// What the three light-and-button boxes (GF-P8, GF-T8, GF-RP48) have in common: eight controls in
// panel order, each bound to a switch function whose state lights the control's own light, one
// byte of switch bits decoded one change at a time, and one light mask sent when it changes.
#pragma once

#include <cstdint>
#include <mutex>

#include "functions/FunctionObjects.h"
#include "modules/GF_Abstract_Module.h"
#include "modules/ModuleMechanics.h"

namespace drav {

inline constexpr std::int32_t kLightBoxButtons = 8;

// The model, its trace labels and how its switch byte is read; one constant instance per model.
struct LightBoxModel {
  ModuleType type;
  const char* registerLabel;    // "GFP8_Module::Register - PrevSwitchVals"
  const char* setDisplayLabel;  // "GFP8_Module::SetDisplay - Indicators"
  // The unit's current switch (button) byte, read at registration; written only on success.
  std::int32_t (*readSwitches)(const UnitPort& port, std::uint8_t* switches);
};

// The readSwitches of the models whose input record is the switch byte alone.
std::int32_t ReadSwitchByte(const UnitPort& port, std::uint8_t* switches);

class LightBoxModule : public GF_Abstract_Module {
 public:
  // Stores the unit and darkens it, then takes the switch positions from the device, so that the
  // first report is compared with where the switches really are.
  void Register(std::uint16_t unitNumber) override;
  // Light i shows whether control i's function is on; dark while the panel has no power.
  void SetDisplay() override;
  void ClearDisplay() override;
  // Re-reads the state of every bound button function, then SetDisplay.
  void UpdateOutputs() override;
  // Keys '1'..'8' bind the eight buttons; other keys are ignored.
  void AssignFunction(std::uint8_t key, std::int32_t functionId, std::int32_t param1, std::int32_t param2) override;
  std::int32_t GetAssignedFunction(std::uint8_t key) override;

  // Bit i: the last reported state of control i.
  std::uint8_t PrevSwitchVals() const;
  // Bit i: the last light state sent for light i.
  std::uint8_t LastIndicators() const { return static_cast<std::uint8_t>(indicators_.LastSent()); }

  SwitchFunction buttonFunctions[kLightBoxButtons];

 protected:
  explicit LightBoxModule(const LightBoxModel& model);

  // Input thread: the lowest bit of switches that differs from PrevSwitchVals (recorded there), as
  // control id 0..7 with *value 1 or 0; -1 when none differs.
  std::int32_t DetectSwitchChange(std::uint8_t switches, std::int32_t* value);

  // The button record of a control, or nullptr for a control id outside 0..7.
  SwitchFunction* ButtonFunction(std::int32_t control);

  // A push button: Toggle when pressed, Release when let go.
  void PressButton(std::int32_t control, std::int32_t value);

 private:
  std::uint8_t LightMask() const;

  const LightBoxModel* model_;
  // The decoding state is written by Register on the main thread while the unit's reports may
  // already be decoded on the input thread: the lock keeps each decoded change reported once.
  mutable std::mutex decodingLock_;
  std::uint32_t prevSwitchVals_ = 0;
  LightMaskSender indicators_;
};

}  // namespace drav

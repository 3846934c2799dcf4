// The GF-WCP: a warning and caution panel of six lit push buttons. Each light shows its button's
// function in a colour of its own; three annunciator functions also act when their button is pressed.
#pragma once

#include <cstdint>
#include <mutex>

#include "functions/FunctionObjects.h"
#include "modules/GF_Abstract_Module.h"
#include "modules/ModuleMechanics.h"

namespace drav {

inline constexpr std::int32_t kGFWCPButtons = 6;

class GFWCP_Module : public GF_Abstract_Module {
 public:
  GFWCP_Module();

  // Stores the unit and darkens it, then takes the button positions from the device.
  void Register(std::uint16_t unitNumber) override;
  // Light i + 1 shows colours[i] while button i's function is on, else colour 0 (dark); all dark
  // while the panel has no power.
  void SetDisplay() override;
  // Record: GFWCPInputRecord. Control id 0..5 = button 1..6, value 1 pressed, 0 released.
  std::int32_t GetButton(const void* record, std::int32_t* value) override;
  void ClearDisplay() override;
  // A press of a button bound to clear master warning, caution or accept runs that simulator
  // command once; every other binding only drives the light.
  void HandleInput(std::int32_t control, std::int32_t value) override;
  void UpdateOutputs() override;
  // Keys '1'..'6' bind the six buttons; other keys are ignored.
  void AssignFunction(std::uint8_t key, std::int32_t functionId, std::int32_t param1, std::int32_t param2) override;
  std::int32_t GetAssignedFunction(std::uint8_t key) override;

  // Bit i: the last reported state of button i.
  std::uint8_t PrevSwitchVals() const;
  // Bit i: whether light i was last sent lit.
  std::uint8_t LastIndicators() const { return static_cast<std::uint8_t>(indicators_.LastSent()); }

  SwitchFunction buttonFunctions[kGFWCPButtons];
  // The colour number (0 "BLACK" .. 7 "CYAN") of each light when lit; passed to the device as is.
  std::uint8_t colours[kGFWCPButtons] = {};

 private:
  std::uint32_t LightMask() const;
  // One colour report per light: colours[i] where mask bit i is set, else dark.
  void SendLights(std::uint32_t mask);

  // PrevSwitchVals is written by Register on the main thread while the input thread decodes.
  mutable std::mutex decodingLock_;
  std::uint32_t prevSwitchVals_ = 0;
  LightMaskSender indicators_;
};

struct ModelDescriptor;
extern const ModelDescriptor kGFWCPDescriptor;

struct AssignmentKeyGroup;
// Function1..Function6 (the colours Colour1..Colour6 stay the model's own).
extern const AssignmentKeyGroup kGFWCPKeys;

}  // namespace drav

// The GF-LGT2: the GF-LGT's gear lever, flaps rocker and gear lights, three trim wheels (aileron,
// elevator, rudder by default) and a three-position fuel selector (left, both, right).
#pragma once

#include <cstdint>

#include "functions/FunctionObjects.h"
#include "modules/GF_Abstract_Module.h"
#include "modules/GearPanel.h"
#include "modules/ModuleMechanics.h"

namespace drav {

inline constexpr std::int32_t kLGT2Wheels = 3;
inline constexpr std::int32_t kLGT2SwitchFunctions = 5;

// Control ids of the GF-LGT2's events.
inline constexpr std::int32_t kLGT2GearControl = 0;
inline constexpr std::int32_t kLGT2FlapsControl = 1;
inline constexpr std::int32_t kLGT2SelectorRightControl = 2;
inline constexpr std::int32_t kLGT2SelectorLeftControl = 3;
inline constexpr std::int32_t kLGT2FirstWheelControl = 4;  // wheel A; B and C follow

// switchFunctions[] slots.
inline constexpr std::int32_t kLGT2GearSlot = 0;
inline constexpr std::int32_t kLGT2FlapsSlot = 1;
inline constexpr std::int32_t kLGT2FuelLeftSlot = 2;
inline constexpr std::int32_t kLGT2FuelBothSlot = 3;
inline constexpr std::int32_t kLGT2FuelRightSlot = 4;

class GFLGT2_Module : public GF_Abstract_Module {
 public:
  GFLGT2_Module();

  // Darkens the unit, then brings the gear and fuel-feed functions to where the lever and the
  // selector really are.
  void Register(std::uint16_t unitNumber) override;
  void SetDisplay() override;
  // Record: GFLGT2InputRecord. Wheels first (C counts the other way), then the lever when it moved,
  // then the flaps rocker while held, then one change of the fuel selector's contacts.
  std::int32_t GetButton(const void* record, std::int32_t* value) override;
  void ClearDisplay() override;
  void HandleInput(std::int32_t control, std::int32_t value) override;
  void UpdateOutputs() override;
  // 'G', 'H', 'I' the wheels A..C; 'J'..'N' switchFunctions[0..4].
  void AssignFunction(std::uint8_t key, std::int32_t functionId, std::int32_t param1, std::int32_t param2) override;
  std::int32_t GetAssignedFunction(std::uint8_t key) override;

  // Set by the assignment loader, already clamped to 1..10. wheelIndex 0..2 for A..C.
  void SetWheelGain(std::int32_t wheelIndex, std::int32_t gain);

  std::int32_t GearPosition() const { return decoding_.GearPosition(); }
  std::uint8_t PrevSwitchVals() const { return decoding_.PrevSwitchVals(); }
  std::uint8_t LastIndicators() const { return static_cast<std::uint8_t>(indicators_.LastSent()); }

  // Shared objects owned by the function layer; never freed here.
  AvionicFunction* wheels[kLGT2Wheels] = {};
  SwitchFunction switchFunctions[kLGT2SwitchFunctions];
  std::int32_t wheelGain[kLGT2Wheels] = {1, 1, 1};

 private:
  void TurnWheel(std::int32_t wheelIndex, std::int32_t count);
  void SelectFuel(std::int32_t slot);
  void SendLights(std::uint32_t mask) const;

  GearDecodingState decoding_;
  LightMaskSender indicators_;
};

struct ModelDescriptor;
extern const ModelDescriptor kGFLGT2Descriptor;

}  // namespace drav

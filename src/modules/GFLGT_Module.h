// The GF-LGT: a gear lever, a flaps rocker, one trim wheel and three pairs of gear lights. The lights
// follow the simulator's gear, not the bound functions.
#pragma once

#include <cstdint>

#include "functions/FunctionObjects.h"
#include "modules/GF_Abstract_Module.h"
#include "modules/GearPanel.h"
#include "modules/ModuleMechanics.h"

namespace drav {

inline constexpr std::int32_t kLGTGearControl = 0;
inline constexpr std::int32_t kLGTFlapsControl = 1;
inline constexpr std::int32_t kLGTWheelControl = 2;

class GFLGT_Module : public GF_Abstract_Module {
 public:
  GFLGT_Module();

  // Darkens the unit, then brings the gear function to where the lever really is.
  void Register(std::uint16_t unitNumber) override;
  void SetDisplay() override;
  // Record: GFLGTInputRecord. The wheel first, then the flaps rocker (reported on every record while
  // held), then the lever (only when it moved).
  std::int32_t GetButton(const void* record, std::int32_t* value) override;
  void ClearDisplay() override;
  void HandleInput(std::int32_t control, std::int32_t value) override;
  void UpdateOutputs() override;
  // 'W' the wheel, 'L' the gear lever, 'S' the flaps rocker.
  void AssignFunction(std::uint8_t key, std::int32_t functionId, std::int32_t param1, std::int32_t param2) override;
  std::int32_t GetAssignedFunction(std::uint8_t key) override;

  // Set by the assignment loader, already clamped to 1..10.
  void SetWheelGain(std::int32_t gain) { wheelGain = gain; }

  std::int32_t GearPosition() const { return decoding_.GearPosition(); }
  std::uint8_t LastIndicators() const { return static_cast<std::uint8_t>(indicators_.LastSent()); }

  AvionicFunction* wheel = nullptr;  // shared object owned by the function layer; never freed here
  SwitchFunction gear;
  SwitchFunction flaps;
  std::int32_t wheelGain = 1;

 private:
  void SendLights(std::uint32_t mask) const;

  GearDecodingState decoding_;
  LightMaskSender indicators_;
};

struct ModelDescriptor;
extern const ModelDescriptor kGFLGTDescriptor;

}  // namespace drav

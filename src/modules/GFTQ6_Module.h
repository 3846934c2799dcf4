// The GF-TQ6 throttle quadrant: six analogue levers A..F, four of them with a detent switch. It
// has no displays or lights; every lever report becomes one event, on which all six levers move.
#pragma once

#include <cstdint>
#include <mutex>

#include "functions/LeverFunction.h"
#include "modules/GF_Abstract_Module.h"

namespace drav {

inline constexpr int kTQ6LeverCount = 6;

class GFTQ6_Module : public GF_Abstract_Module {
 public:
  GFTQ6_Module();

  void SetDisplay() override {}
  // Record: GFTQ6InputRecord. Keeps the positions and switches for HandleInput; always control 0
  // (value untouched), -1 only for a missing record.
  std::int32_t GetButton(const void* record, std::int32_t* value) override;
  void ClearDisplay() override {}
  // Moves every lever to the positions of the last record.
  void HandleInput(std::int32_t control, std::int32_t value) override;
  void UpdateOutputs() override {}
  // Keys 'A'..'F' bind the lever of that letter; the two parameters are not used.
  void AssignFunction(std::uint8_t key, std::int32_t functionId, std::int32_t param1,
                      std::int32_t param2) override;
  std::int32_t GetAssignedFunction(std::uint8_t key) override;

  // The unit's lever settings, the same for all six levers.
  void SetLeverReversers(float reversePoint, float betaPoint, float reverserPower);
  void SetFlapNullZones(float flapNullZone);
  // Re-binds every lever to its own function, so that it takes a newly loaded aircraft's limits.
  void ReloadLevers();

  LeverFunction levers[kTQ6LeverCount];

  // The positions and switch byte the last record carried (a copy, taken under the lock).
  void LastRecord(std::uint8_t (&positions)[kTQ6LeverCount], std::uint8_t* switches) const;

 private:
  static LeverFunction* LeverOf(LeverFunction (&all)[kTQ6LeverCount], std::uint8_t key);

  // Written by GetButton on the input thread, read by HandleInput on the main thread.
  std::uint8_t leverPositions_[kTQ6LeverCount] = {};
  std::uint8_t leverSwitches_ = 0;  // bit i belongs to lever i
  mutable std::mutex recordLock_;
};

struct ModelDescriptor;
extern const ModelDescriptor kGFTQ6Descriptor;

struct AssignmentKeyGroup;
// FunctionA..FunctionF, the six levers.
extern const AssignmentKeyGroup kGFTQ6LeverKeys;

}  // namespace drav

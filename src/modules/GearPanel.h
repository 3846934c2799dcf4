// What the two landing-gear and trim modules (GF-LGT, GF-LGT2) share: the gear lights, which are
// computed from the simulator's gear state rather than from bound functions; the way the gear lever
// and the flaps rocker drive their switch functions; and the lever position and switch byte that the
// input thread decodes against while the main thread may re-register the unit.
#pragma once

#include <cstdint>
#include <mutex>

#include "XPLMDataAccess.h"
#include "functions/FunctionObjects.h"

namespace drav {

inline constexpr int kGearLightLegs = 3;

// The simulator's gear data, shared by every unit of both models, looked up once per plug-in start
// (ModuleState); main thread only.
struct GearDatarefs {
  bool lookedUp = false;
  XPLMDataRef deploy = nullptr;
  XPLMDataRef failures[kGearLightLegs] = {};
  XPLMDataRef onGround = nullptr;
  XPLMDataRef handleDown = nullptr;
  XPLMDataRef retractable = nullptr;
};

// The down and transit light of one gear leg.
struct GearLegLights {
  std::uint8_t down = 0;
  std::uint8_t transit = 0;
};

// The lights of gears 1..3, as wired on one model.
struct GearLightLayout {
  GearLegLights legs[3];
};

// Reads the simulator's gear state and returns the light mask for the layout: fixed gear dark; on
// the ground the handle decides; in flight each leg's deploy ratio; a failed leg shows only its
// transit light. Main thread only. The handles are looked up on first use.
std::uint8_t ComposeGearLights(const GearLightLayout& layout);


// The gear lever or flaps rocker moved (value: +1/-1, or the rocker's direction). The gear lever's
// LANDING_GEAR function is a two-position switch: down (On) for a value below 1, up (Off) otherwise.
// Any other function is stepped once per unit of |value|: On for positive, Off for negative.
void OperateLeverOrRocker(SwitchFunction& record, std::int32_t value);

// Re-reads the function's state when one is bound.
void RefreshIfBound(SwitchFunction& record);

// The lever position (+1/-1) and the switch byte last seen by the decoder, behind one lock: the input
// thread decodes against them while Register may reset them on the main thread.
class GearDecodingState {
 public:
  GearDecodingState() = default;
  GearDecodingState(const GearDecodingState&) = delete;
  GearDecodingState& operator=(const GearDecodingState&) = delete;

  // Register: the unit's current lever position and switch byte.
  void Reset(std::int32_t gearPosition, std::uint8_t switches);

  // Input thread: the lever position from bit 0 of switches. Returns true, with *value the new
  // position (+1 or -1), only when it differs from the last one.
  bool DetectLeverMove(std::uint8_t switches, std::int32_t* value);

  // Input thread: the lowest bit of switches within bitMask that differs from the stored byte,
  // recorded there; returns its bit number as the control id with *value 1 (closed) or 0, or -1.
  std::int32_t DetectContactChange(std::uint8_t switches, std::uint8_t bitMask, std::int32_t* value);

  std::int32_t GearPosition() const;
  std::uint8_t PrevSwitchVals() const;

 private:
  mutable std::mutex lock_;
  std::int32_t gearPosition_ = 0;  // 0 until registered: the first record always reports the lever
  std::uint8_t prevSwitchVals_ = 0;
};

// The lever position that switch bit 0 stands for.
inline std::int32_t LeverPositionOf(std::uint8_t switches) { return (switches & 0x01) != 0 ? 1 : -1; }

}  // namespace drav

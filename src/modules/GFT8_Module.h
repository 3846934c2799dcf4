// The GF-T8: eight toggle switches, each with a light showing its function's state. The switches
// latch, so at registration each one's function is run once with its position: the simulator then
// matches the panel before the first switch is moved.
#pragma once

#include <cstdint>

#include "modules/LightBoxModule.h"

namespace drav {

class GFT8_Module : public LightBoxModule {
 public:
  GFT8_Module();

  // LightBoxModule's registration, then every switch's function set to the switch's position.
  void Register(std::uint16_t unitNumber) override;
  // Record: GFT8InputRecord. Control id 0..7 = switch 1..8, value 1 on, 0 off.
  std::int32_t GetButton(const void* record, std::int32_t* value) override;
  // On when the switch is on, Off when off (reversed for the inverted functions).
  void HandleInput(std::int32_t control, std::int32_t value) override;

  // The gear lever and the autopilot disconnect are wired the other way round on this panel: the
  // switch up means gear up and autopilot connected.
  static bool IsInvertedSwitchFunction(std::int32_t functionId);

 private:
  void SetSwitch(std::int32_t control, bool switchOn);
};

struct ModelDescriptor;
extern const ModelDescriptor kGFT8Descriptor;

}  // namespace drav

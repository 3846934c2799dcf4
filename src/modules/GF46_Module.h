// The GF-46 radio stack: the GF-45's displays with a six-digit value display, its dual rotary
// encoder, and a push button that steps to the next configured mode.
#pragma once

#include <cstdint>

#include "modules/GFRadioModule.h"

namespace drav {

class GF46_Module : public GFRadioModule {
 public:
  GF46_Module();

  // Control 0 Dial 1, control 1 Dial 2 (wins over Dial 1), control 2 the button (wins over both).
  std::int32_t GetButton(const void* record, std::int32_t* value) override;
  void HandleInput(std::int32_t control, std::int32_t value) override;

  // The button byte of the last record. Only GetButton (the input thread) reads or writes it.
  std::uint8_t lastButton = 0;

 private:
  void StepToNextMode();
};

struct ModelDescriptor;
extern const ModelDescriptor kGF46Descriptor;

}  // namespace drav

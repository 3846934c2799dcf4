// The GF-P8: eight push buttons, each with a light showing its function's state.
#pragma once

#include <cstdint>

#include "modules/LightBoxModule.h"

namespace drav {

class GFP8_Module : public LightBoxModule {
 public:
  GFP8_Module();

  // Record: GFP8InputRecord. Control id 0..7 = button 1..8, value 1 pressed, 0 released.
  std::int32_t GetButton(const void* record, std::int32_t* value) override;
  // Toggle on a press, Release on a release.
  void HandleInput(std::int32_t control, std::int32_t value) override;
};

struct ModelDescriptor;
extern const ModelDescriptor kGFP8Descriptor;

// Function1..Function8, one per button.
struct AssignmentKeyGroup;
extern const AssignmentKeyGroup kGFP8Keys;

}  // namespace drav

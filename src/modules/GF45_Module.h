// The GF-45 radio stack: a four-character tag display, a five-digit value display and a dual
// rotary encoder (Dial 1 the outer ring, Dial 2 the inner one).
#pragma once

#include <cstdint>

#include "modules/GFRadioModule.h"

namespace drav {

class GF45_Module : public GFRadioModule {
 public:
  GF45_Module();

  // Control 0 Dial 1, control 1 Dial 2; Dial 1 wins when both moved in one record.
  std::int32_t GetButton(const void* record, std::int32_t* value) override;
  void HandleInput(std::int32_t control, std::int32_t value) override;
};

struct ModelDescriptor;
extern const ModelDescriptor kGF45Descriptor;

}  // namespace drav

// The GF-RP48: eight push buttons with lights, like the GF-P8, and four rotary encoders (A..D)
// that adjust avionic functions such as radio frequencies.
#pragma once

#include <cstdint>

#include "modules/LightBoxModule.h"

namespace drav {

inline constexpr std::int32_t kRP48Encoders = 4;
inline constexpr std::int32_t kRP48FirstEncoderControl = 8;  // encoder A; B, C, D follow

class GFRP48_Module : public LightBoxModule {
 public:
  GFRP48_Module();

  // Record: GFRP48InputRecord. Encoders come first: the first one that moved is control 8..11 with
  // its step count; only when none moved are the buttons (0..7) decoded.
  std::int32_t GetButton(const void* record, std::int32_t* value) override;
  // Buttons as the GF-P8; encoders adjust their avionic function by inner steps, negated when the
  // GRP48ReverseFix setting is on.
  void HandleInput(std::int32_t control, std::int32_t value) override;
  // Keys '1'..'8' bind the buttons, 'A'..'D' the encoders.
  void AssignFunction(std::uint8_t key, std::int32_t functionId, std::int32_t param1, std::int32_t param2) override;
  std::int32_t GetAssignedFunction(std::uint8_t key) override;

  // Shared objects owned by the function layer; never freed here.
  AvionicFunction* dialFunctions[kRP48Encoders] = {};

 private:
  void TurnDial(std::int32_t dialIndex, std::int32_t steps);
};

struct ModelDescriptor;
extern const ModelDescriptor kGFRP48Descriptor;

struct AssignmentKeyGroup;
// Function1..Function8 (buttons), then FunctionA..FunctionD (knobs).
extern const AssignmentKeyGroup kGFRP48Keys;

}  // namespace drav

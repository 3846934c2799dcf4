// The GF-MCP autopilot panel: eight lit push buttons, the autopilot disengage bar, five encoders
// (A..E) and a numeric display above each, showing the value of the function bound to its encoder.
#pragma once

#include <cstddef>
#include <cstdint>
#include <mutex>

#include "functions/FunctionObjects.h"
#include "modules/GF_Abstract_Module.h"
#include "modules/McpDisplaySlot.h"
#include "modules/ModuleMechanics.h"

namespace drav {

class GFMCP_Module : public GF_Abstract_Module {
 public:
  static constexpr std::int32_t kLitButtonCount = 8;
  static constexpr std::int32_t kButtonCount = 9;  // the lit buttons and the disengage bar
  static constexpr std::int32_t kDialCount = 5;
  // Control ids that GetButton reports: buttons 0..7, the bar, then encoders A..E.
  static constexpr std::int32_t kControlDisengage = 8;
  static constexpr std::int32_t kControlFirstDial = 9;

  GFMCP_Module();
  ~GFMCP_Module() override = default;

  void Register(std::uint16_t unitNumber) override;
  void SetDisplay() override;
  std::int32_t GetButton(const void* record, std::int32_t* value) override;
  void ClearDisplay() override;
  void HandleInput(std::int32_t control, std::int32_t value) override;
  void UpdateOutputs() override;
  void AssignFunction(std::uint8_t key, std::int32_t functionId, std::int32_t param1, std::int32_t param2) override;
  std::int32_t GetAssignedFunction(std::uint8_t key) override;

  SwitchFunction buttonFunctions[kButtonCount];       // keys '1'..'9'; '9' is the disengage bar
  AvionicFunction* dialFunctions[kDialCount] = {};    // keys 'A'..'E'
  McpLastText lastText[kDialCount] = {};          // the dial text each display last took

  // The input banks that the next record is compared with.
  std::uint8_t SwitchVals1_8() const;
  std::uint8_t SwitchVals9_16() const;
  std::uint8_t LastIndicators() const { return static_cast<std::uint8_t>(lights_.LastSent()); }

 private:
  void SetDisengageBar(bool barDown);
  void SendLights(bool powered);
  void SendDisplays(bool powered);

  // Owned by GetButton on the input thread; Register resets them on the main thread.
  std::uint32_t switchVals1_8_ = 0;
  std::uint32_t switchVals9_16_ = 0;
  mutable std::mutex decodingLock_;
  LightMaskSender lights_;  // lastIndicators
};

struct ModelDescriptor;
extern const ModelDescriptor kGFMCPDescriptor;

struct AssignmentKeyGroup;
// The nine buttons, then the five knobs A..E.
extern const AssignmentKeyGroup kGFMCPButtonKeys;
extern const AssignmentKeyGroup kGFMCPKnobKeys;

}  // namespace drav

// The GF-MCPPro autopilot panel: 24 inputs (push buttons and latching switches, each with a light),
// six encoders (A..F) and a display above each. Another plug-in can take the panel over; while it
// holds it the module leaves the unit alone, and once it hands it back everything is sent again.
// With the x737's MCP announced, the inputs run that aircraft's MCP commands directly.
#pragma once

#include <cstddef>
#include <cstdint>
#include <mutex>

#include "base/HostState.h"
#include "functions/FunctionObjects.h"
#include "modules/GF_Abstract_Module.h"
#include "modules/McpDisplaySlot.h"
#include "modules/ModuleMechanics.h"

namespace drav {

class GFMCPPro_Module : public GF_Abstract_Module {
 public:
  static constexpr std::int32_t kButtonCount = 24;
  static constexpr std::int32_t kDialCount = 6;
  // Control ids that GetButton reports: inputs 0..23, then encoders A..F.
  static constexpr std::int32_t kControlFirstDial = 33;
  // Binding keys of the dials (the inputs' keys are their control ids).
  static constexpr std::uint8_t kFirstDialKey = 25;
  // The latching switches; 22 is the disengage bar.
  static constexpr std::int32_t kControlAutothrottleArm = 4;
  static constexpr std::int32_t kControlAltitudeKnob = 13;
  static constexpr std::int32_t kControlFlightDirectorLeft = 14;
  static constexpr std::int32_t kControlDisengage = 22;
  static constexpr std::int32_t kControlFlightDirectorRight = 23;

  GFMCPPro_Module();
  ~GFMCPPro_Module() override = default;

  void Register(std::uint16_t unitNumber) override;
  void SetDisplay() override;
  std::int32_t GetButton(const void* record, std::int32_t* value) override;
  void ClearDisplay() override;
  void HandleInput(std::int32_t control, std::int32_t value) override;
  void UpdateOutputs() override;
  void AssignFunction(std::uint8_t key, std::int32_t functionId, std::int32_t param1, std::int32_t param2) override;
  std::int32_t GetAssignedFunction(std::uint8_t key) override;

  // The row of the x737 MCP commands that the control runs in x737 direct mode; -1 for none.
  static std::int32_t X737CommandIndex(std::int32_t control);

  SwitchFunction buttonFunctions[kButtonCount];     // keys 0..23
  AvionicFunction* dialFunctions[kDialCount] = {};  // keys 25..30
  McpLastText lastText[kDialCount] = {};        // the dial text each display last took

  // The inputs that the next record is compared with (bits 0..23).
  std::uint32_t SwitchState() const;
  std::uint32_t LastIndicators() const { return lights_.LastSent(); }

 private:
  bool TakenOver() const;
  bool TakenOverSeenFromInputThread() const;
  void SyncX737Switches(std::uint32_t switches);
  void HandleX737Input(std::int32_t control, std::int32_t value);
  void HandleOwnInput(std::int32_t control, std::int32_t value);
  void AdjustDial(std::int32_t control, std::int32_t value);
  bool TrackTakeover();
  void SendLights(bool powered);
  void SendDisplays(bool powered);

  // Owned by GetButton on the input thread; Register resets it on the main thread.
  std::uint32_t switchState_ = 0;
  // The plug-in's take-over flag, taken when the module is made, so that the input thread need not
  // look for it.
  int* takeover_ = &CurrentHostFlags().mcpProDisabled;
  mutable std::mutex decodingLock_;
  LightMaskSender lights_;  // lastIndicators
};

struct ModelDescriptor;
extern const ModelDescriptor kGFMCPProDescriptor;

struct AssignmentKeyGroup;
// Function01..Function24 (controls 0..23) with defaults that depend on the x737 mode, then
// Function25..Function30 (controls 25..30).
const AssignmentKeyGroup& GFMCPProButtonKeys(int x737Mode);
const AssignmentKeyGroup& GFMCPProKnobKeys(int x737Mode);

}  // namespace drav

// The GF-166 radio module: two six-digit displays, a dual encoder, a swap button and two lit push
// buttons (L and R). It shows one avionic function chosen from up to eight modes; a dual radio
// function shows the active frequency on the left and the standby frequency on the right, the
// encoder tunes the standby one and the swap button exchanges the two.
#pragma once

#include <cstddef>
#include <cstdint>
#include <mutex>

#include "functions/FunctionObjects.h"
#include "modules/GF_Abstract_Module.h"
#include "modules/ModuleMechanics.h"

namespace drav {

class GF166_Module : public GF_Abstract_AvionicDevice {
 public:
  // Control ids that GetButton reports.
  static constexpr std::int32_t kControlSwap = 0;
  static constexpr std::int32_t kControlButtonL = 1;
  static constexpr std::int32_t kControlButtonR = 2;
  static constexpr std::int32_t kControlDial1 = 3;
  static constexpr std::int32_t kControlDial2 = 4;

  static constexpr std::size_t kTextSize = 20;

  GF166_Module();
  ~GF166_Module() override = default;

  void Register(std::uint16_t unitNumber) override;
  void SetDisplay() override;
  std::int32_t GetButton(const void* record, std::int32_t* value) override;
  void ClearDisplay() override;
  void HandleInput(std::int32_t control, std::int32_t value) override;
  void UpdateOutputs() override;
  void AssignFunction(std::uint8_t key, std::int32_t functionId, std::int32_t param1, std::int32_t param2) override;
  std::int32_t GetAssignedFunction(std::uint8_t key) override;
  std::int32_t GetCurrentFunction() override;
  void SelectFunction(std::int32_t functionId) override;

  // Record 0 stands for the swap button and is never bound; 1 is button L, 2 button R.
  SwitchFunction buttonFunctions[3];
  AvionicFunction* primary = nullptr;    // the current function; null when none
  AvionicFunction* secondary = nullptr;  // the standby half of a dual radio; null otherwise
  char lastLeft[kTextSize] = {};         // text last taken for the left display
  char lastRight[kTextSize] = {};        // text last taken for the right display

  // The button byte that the next input record is compared with (bits 0..2 are the buttons).
  std::uint8_t PrevSwitchVals() const;

 private:
  void SendLights();
  void ShowSingleFunction();
  bool ShowDualFunction();  // false when nothing may be sent (a PREV or NEXT object is current)
  void SendBlank();

  // Owned by GetButton on the input thread; Register resets it on the main thread while reports
  // may already arrive, hence the lock. Wider than the byte because the bank decoder works on 32 bits.
  std::uint32_t prevSwitchVals_ = 0;
  mutable std::mutex decodingLock_;
  LightMaskSender lights_;  // lastIndicators
};

struct ModelDescriptor;
extern const ModelDescriptor kGF166Descriptor;

struct AssignmentKeyGroup;
// FunctionL and FunctionR, the two push buttons, aimed at this unit unless told otherwise.
extern const AssignmentKeyGroup kGF166ButtonKeys;

}  // namespace drav

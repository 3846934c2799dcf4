// The GF-EFIS: sixteen buttons and switches, a four-position display mode selector, a seven-position
// range selector and two encoders (decision height, barometric setting). It has no lights or
// displays. Another plug-in may take the panel over through the EFIS take-over flag; while it does, this module
// leaves the unit alone.
#pragma once

#include <cstdint>
#include <mutex>

#include "functions/FunctionObjects.h"
#include "base/HostState.h"
#include "hid/InputRecords.h"
#include "modules/GF_Abstract_Module.h"

namespace drav {

inline constexpr std::int32_t kEFISButtonControls = 27;  // keys 0..26
inline constexpr std::int32_t kEFISModeBase = 16;        // controls 16..19: mode positions 0..3
inline constexpr std::int32_t kEFISRangeBase = 20;       // controls 20..26: range positions 0..6
inline constexpr std::int32_t kEFISModePositions = 4;
inline constexpr std::int32_t kEFISRangePositions = 7;
inline constexpr std::uint8_t kEFISDialKeyA = 28;
inline constexpr std::uint8_t kEFISDialKeyB = 29;
inline constexpr std::int32_t kEFISDialControlA = 39;
inline constexpr std::int32_t kEFISDialControlB = 40;

class GFEFIS_Module : public GF_Abstract_Module {
 public:
  GFEFIS_Module();

  // Reads the panel, then puts the simulator's display mode, range and pointer switches where the
  // panel's selectors and switches are.
  void Register(std::uint16_t unitNumber) override;
  void SetDisplay() override {}
  // Record: GFEFISInputRecord. Selectors first (16 + mode, 20 + range), then the encoders (39, 40),
  // then the sixteen inputs (0..15).
  std::int32_t GetButton(const void* record, std::int32_t* value) override;
  // Forgets the input state read at registration; the selector positions are kept.
  void ClearDisplay() override;
  void HandleInput(std::int32_t control, std::int32_t value) override;
  void UpdateOutputs() override {}
  // Keys 0..26 bind the buttons and selector positions, 28 and 29 the two encoders.
  void AssignFunction(std::uint8_t key, std::int32_t functionId, std::int32_t param1, std::int32_t param2) override;
  std::int32_t GetAssignedFunction(std::uint8_t key) override;

  std::uint16_t PrevSwitchVals() const;
  std::uint8_t PrevSelectorVals() const;
  std::uint8_t ModeSelector() const;
  std::uint8_t RangeSelector() const;

  SwitchFunction buttonFunctions[kEFISButtonControls];
  AvionicFunction* dialFunctions[2] = {nullptr, nullptr};

 private:
  // What GetButton compares against; written by Register and ClearDisplay on the main thread.
  struct DecodingState {
    std::uint32_t prevSwitchVals = 0;
    std::uint8_t prevSelectorVals = 0;
    std::uint8_t modeSelector = 0;
    std::uint8_t rangeSelector = 0;
  };

  bool TakenOver() const;
  DecodingState Snapshot() const;
  std::int32_t DecodeLocked(const GFEFISInputRecord& record, std::int32_t* value);
  void SetPosition(std::int32_t control, std::int32_t position);
  void SynchronisePointerSwitches(std::uint16_t switches);
  void TurnDial(std::int32_t dialIndex, std::int32_t steps);

  mutable std::mutex decodingLock_;
  DecodingState decoding_;
  // The plug-in's take-over flag, taken when the module is made, so that the input thread need not
  // look for it.
  int* takeover_ = &CurrentHostFlags().efisDisabled;
};

struct ModelDescriptor;
extern const ModelDescriptor kGFEFISDescriptor;

struct AssignmentKeyGroup;
// Function01..Function27 (controls 0..26), then Function28, Function29 (controls 28, 29).
extern const AssignmentKeyGroup kGFEFISButtonKeys;
extern const AssignmentKeyGroup kGFEFISKnobKeys;

}  // namespace drav

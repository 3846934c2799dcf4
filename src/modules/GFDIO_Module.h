// The GF-DIO: a digital input/output board of 56 inputs and 32 outputs. Each input is declared as a
// push button, a two-way switch, one contact of a three-way switch or one position of a selector;
// each output follows the on/off state of its function. It is configured through its own
// operations (numbered inputs and outputs instead of control keys) and decoded by its own decoder.
#pragma once

#include <cstdint>
#include <mutex>

#include "functions/FunctionObjects.h"
#include "modules/GF_Abstract_Module.h"

namespace drav {

inline constexpr std::int32_t kGFDIOInputs = 56;
inline constexpr std::int32_t kGFDIOOutputs = 32;
inline constexpr std::int32_t kGFDIOStateBytes = 7;

enum GFDIOSwitchType : std::uint8_t {
  kGFDIOButton = 0,
  kGFDIOSwitch2Way = 1,
  kGFDIOSwitch3Way = 2,
  kGFDIOSelector = 3,
};

class GFDIO_Module : public GF_Abstract_Module {
 public:
  GFDIO_Module();

  // Stores the unit, darkens the outputs and takes the input bank from the device. Runs no function.
  void Register(std::uint16_t unitNumber) override;
  // Output i is set while output function i is on; all off while the panel has no power.
  void SetDisplay() override;
  // Not used: the board's records are decoded by DecodeInput. Reports nothing.
  std::int32_t GetButton(const void* record, std::int32_t* value) override;
  void ClearDisplay() override;
  // Acts on input `control` (0..55) according to its switch type.
  void HandleInput(std::int32_t control, std::int32_t value) override;
  void UpdateOutputs() override;
  // The board has no control keys: both do nothing.
  void AssignFunction(std::uint8_t key, std::int32_t functionId, std::int32_t param1, std::int32_t param2) override;
  std::int32_t GetAssignedFunction(std::uint8_t key) override;

  // Input thread. Record: GFDIOInputRecord (input i = bit i mod 8 of byte i div 8). The lowest input
  // that changed, as control id 0..55 with *value 1 (closed) or 0 (opened); a selector position is
  // reported only when it becomes active (value 0). The whole bank is taken over with the report,
  // so other inputs that changed in the same record are not reported. -1 (and *value 0) when nothing
  // is reported.
  std::int32_t DecodeInput(const void* record, std::int32_t* value);

  // Configuration by the number of the input (1..56) or output (1..32) as written in the key,
  // "05" or "5"; any other text does nothing.
  void AssignInputFunction(const char* key, std::int32_t functionId, std::int32_t param1, std::int32_t param2);
  void AssignOffStateFunction(const char* key, std::int32_t functionId, std::int32_t param1, std::int32_t param2);
  void AssignOutputFunction(const char* key, std::int32_t functionId, std::int32_t param1, std::int32_t param2);
  // The function id of the input's function; 0 for a number outside 1..56.
  std::int32_t GetInputFunctionId(const char* key) const;

  // input 0..55; a type outside 0..3 is stored as a button.
  void SetSwitchType(std::int32_t input, std::uint8_t switchType);
  std::uint8_t SwitchType(std::int32_t input) const;

  // Bit i: the last taken-over state of input i.
  std::uint64_t PrevSwitchBank() const;
  // Bit i: whether output i was last sent on.
  std::uint32_t LastOutputs() const { return lastOutputs_; }

  SwitchFunction inputFunctions[kGFDIOInputs];
  SwitchFunction offStateFunctions[kGFDIOInputs];
  SwitchFunction outputFunctions[kGFDIOOutputs];
  std::uint8_t stateBytes[kGFDIOStateBytes] = {};

 private:
  std::uint32_t OutputMask() const;
  void SendOutputs(std::uint32_t mask);

  // The switch types and the bank are read by the input thread and written on the main thread
  // (Register, and reloads from the dialog).
  mutable std::mutex decodingLock_;
  std::uint8_t switchTypes_[kGFDIOInputs] = {};
  std::uint64_t prevSwitchBank_ = 0;
  std::uint32_t lastOutputs_ = 0;
};

struct ModelDescriptor;
extern const ModelDescriptor kGFDIODescriptor;

struct AssignmentKeyGroup;
// The 56 inputs' on- and off-functions and the 32 outputs (control byte = input or output number).
extern const AssignmentKeyGroup kGFDIOInputOnKeys;
extern const AssignmentKeyGroup kGFDIOInputOffKeys;
extern const AssignmentKeyGroup kGFDIOOutputKeys;

}  // namespace drav

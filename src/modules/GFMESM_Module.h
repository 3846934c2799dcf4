// The GF-MESM, a twin-engine start panel: an engine 1 start selector, a magneto selector for both
// engines and an engine 2 start selector. It runs fixed simulator commands rather than bound
// functions (its bindings exist only so that the dialog can show and store them).
#pragma once

#include <XPLMDataAccess.h>

#include <cstdint>
#include <mutex>

#include "functions/FunctionObjects.h"
#include "hid/InputRecords.h"
#include "modules/GF_Abstract_Module.h"

namespace drav {

inline constexpr std::int32_t kMESMFunctionSlots = 11;  // keys 0..10
inline constexpr std::int32_t kMESMEngine1Base = 0;     // controls 0..2: engine 1 selector steps
inline constexpr std::int32_t kMESMEngine2Base = 7;     // controls 7..9: engine 2 selector steps
inline constexpr std::int32_t kMESMMagnetoBase = 10;    // controls 11..13: magneto positions 1..3

class GFMESM_Module : public GF_Abstract_Module {
 public:
  GFMESM_Module();

  // Reads the three selector positions and finds the mixture dataref; runs nothing.
  void Register(std::uint16_t unitNumber) override;
  void SetDisplay() override {}
  // Record: GFMESMInputRecord. Engine 1 steps (0..2), then the magneto selector (11..13), then the
  // engine 2 steps (7..9).
  std::int32_t GetButton(const void* record, std::int32_t* value) override;
  void ClearDisplay() override;
  void HandleInput(std::int32_t control, std::int32_t value) override;
  void UpdateOutputs() override {}
  void AssignFunction(std::uint8_t key, std::int32_t functionId, std::int32_t param1, std::int32_t param2) override;
  std::int32_t GetAssignedFunction(std::uint8_t key) override;

  // One start selector's move from *last to now: a single step between positions 1..4 stores now
  // and returns baseControl + 0..2 with *value 1 (towards start) or 0 (away from it); any other
  // change is neither stored nor reported (-1).
  static std::int32_t DetectStartSelectorStep(std::uint8_t now, std::uint8_t* last, std::int32_t baseControl,
                                              std::int32_t* value);

  // Selector1, Selector2, Selector3 as the record's three values.
  GFMESMInputRecord State() const;

  SwitchFunction buttonFunctions[kMESMFunctionSlots];
  XPLMDataRef mixture = nullptr;

 private:
  std::int32_t DecodeLocked(const GFMESMInputRecord& record, std::int32_t* value);
  void SetMixtureFull(int engine);

  mutable std::mutex decodingLock_;
  GFMESMInputRecord decoding_{};
};

struct ModelDescriptor;
extern const ModelDescriptor kGFMESMDescriptor;

struct AssignmentKeyGroup;
// Function01..Function11 (controls 0..10).
extern const AssignmentKeyGroup kGFMESMKeys;

}  // namespace drav

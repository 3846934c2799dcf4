// The GF-SECM, a single-engine control panel: twelve on/off switches, a cowl-flaps switch, a gear
// lever, a five-position magneto/start key and a flaps rocker, each acting through a bound switch
// function. It has no lights or displays.
#pragma once

#include <cstdint>
#include <mutex>

#include "functions/FunctionObjects.h"
#include "hid/InputRecords.h"
#include "modules/GF_Abstract_Module.h"

namespace drav {

inline constexpr std::int32_t kSECMFunctionSlots = 24;  // room for 24 records, keys 0..19 used
inline constexpr std::int32_t kSECMControls = 20;
inline constexpr std::int32_t kSECMCowlFlapsControl = 12;
inline constexpr std::int32_t kSECMGearControl = 13;
inline constexpr std::int32_t kSECMKeyBase = 13;  // key position p (1..4) is control p + 13
inline constexpr std::int32_t kSECMStartControl = 18;
inline constexpr std::int32_t kSECMFlapsControl = 19;

class GFSECM_Module : public GF_Abstract_Module {
 public:
  GFSECM_Module();

  // Reads the panel and puts every switch, the gear, the key and a held flaps rocker into the
  // simulator, so that both agree before anything moves.
  void Register(std::uint16_t unitNumber) override;
  void SetDisplay() override {}
  // Record: GFSECMInputRecord. Switches 0..11, cowl flaps 12, gear 13, key 14..18, flaps 19.
  std::int32_t GetButton(const void* record, std::int32_t* value) override;
  // Forgets every input state, so the next record reports every non-zero input again.
  void ClearDisplay() override;
  void HandleInput(std::int32_t control, std::int32_t value) override;
  void UpdateOutputs() override {}
  // Keys 0..19 bind controls 0..19.
  void AssignFunction(std::uint8_t key, std::int32_t functionId, std::int32_t param1, std::int32_t param2) override;
  std::int32_t GetAssignedFunction(std::uint8_t key) override;

  // The decoding state, as the record's fields.
  GFSECMInputRecord State() const;

  SwitchFunction buttonFunctions[kSECMFunctionSlots];

 private:
  std::int32_t DecodeLocked(const GFSECMInputRecord& record, std::int32_t* value);
  void Switch(std::int32_t control, bool on);

  mutable std::mutex decodingLock_;
  // rotary = Selector, second = GearState, third = WingFlapsState, fourth = CowlFlapsState,
  // switches = SwitchState.
  GFSECMInputRecord decoding_{};
};

struct ModelDescriptor;
extern const ModelDescriptor kGFSECMDescriptor;

struct AssignmentKeyGroup;
// Function01..Function20 (controls 0..19).
extern const AssignmentKeyGroup kGFSECMKeys;

}  // namespace drav

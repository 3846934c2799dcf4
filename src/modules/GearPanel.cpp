#include "modules/GearPanel.h"

#include <cstdlib>

#include "XPLMDataAccess.h"
#include "base/HostState.h"
#include "modules/ModuleMechanics.h"
#include "modules/ModuleState.h"

namespace drav {

namespace {

constexpr std::int32_t kLandingGearFunction = kFnLANDING_GEAR;
constexpr int kFailedInoperative = 6;  // the simulator's failure state "inoperative"
constexpr float kGearDownRatio = 0.98f;
constexpr float kGearUpRatio = 0.02f;

// Looked up once each, also when missing: an unresolved handle reads as 0 from then on.
const GearDatarefs& Datarefs() {
  GearDatarefs& gear = CurrentModuleState().gear;
  if (!gear.lookedUp) {
    gear.deploy = XPLMFindDataRef("sim/aircraft/parts/acf_gear_deploy");
    gear.failures[0] = XPLMFindDataRef("sim/operation/failures/rel_lagear1");
    gear.failures[1] = XPLMFindDataRef("sim/operation/failures/rel_lagear2");
    gear.failures[2] = XPLMFindDataRef("sim/operation/failures/rel_lagear3");
    gear.onGround = XPLMFindDataRef("sim/flightmodel/failures/onground_any");
    gear.handleDown = XPLMFindDataRef("sim/cockpit/switches/gear_handle_status");
    gear.retractable = XPLMFindDataRef("sim/aircraft/gear/acf_gear_retract");
    gear.lookedUp = true;
  }
  return gear;
}

int ReadInt(XPLMDataRef ref) { return ref != nullptr ? XPLMGetDatai(ref) : 0; }

// Older simulators kept the deploy ratios further into a longer array.
int FirstDeployElement() {
  const int version = CurrentSimulatorVersions().xplaneVersion;
  if (version >= 800) return 0;
  if (version >= 700) return 67;
  return 52;
}

// A leg missing from the array (short array, unresolved handle) reads as retracted.
void ReadDeployRatios(const GearDatarefs& refs, float (&ratios)[kGearLightLegs]) {
  for (float& ratio : ratios) ratio = 0.0f;
  if (refs.deploy != nullptr) XPLMGetDatavf(refs.deploy, ratios, FirstDeployElement(), kGearLightLegs);
}

std::uint8_t LegInFlight(const GearLegLights& leg, float ratio) {
  if (ratio >= kGearDownRatio) return leg.down;
  if (ratio > kGearUpRatio) return leg.transit;
  return 0;
}

// The failure datarefs are numbered in a different order from the legs: the second failure belongs
// to gear 3 and the third to gear 2.
constexpr int kLegOfFailure[kGearLightLegs] = {0, 2, 1};

}  // namespace

std::uint8_t ComposeGearLights(const GearLightLayout& layout) {
  const GearDatarefs& refs = Datarefs();
  int failures[kGearLightLegs];
  for (int i = 0; i < kGearLightLegs; ++i) failures[i] = ReadInt(refs.failures[i]);
  float ratios[kGearLightLegs];
  ReadDeployRatios(refs, ratios);

  std::uint8_t legBits[kGearLightLegs] = {};
  if (ReadInt(refs.retractable) != 0) {
    const bool onGround = ReadInt(refs.onGround) != 0;
    const bool handleDown = ReadInt(refs.handleDown) != 0;
    for (int leg = 0; leg < kGearLightLegs; ++leg) {
      const GearLegLights& lights = layout.legs[leg];
      if (onGround) {
        legBits[leg] = handleDown ? lights.down : lights.transit;
      } else {
        legBits[leg] = LegInFlight(lights, ratios[leg]);
      }
    }
  }
  for (int failure = 0; failure < kGearLightLegs; ++failure) {
    if (failures[failure] != kFailedInoperative) continue;
    const int leg = kLegOfFailure[failure];
    legBits[leg] = layout.legs[leg].transit;
  }
  return static_cast<std::uint8_t>(legBits[0] | legBits[1] | legBits[2]);
}

void OperateLeverOrRocker(SwitchFunction& record, std::int32_t value) {
  if (GetFunctionId(record) == kLandingGearFunction) {
    ExecuteFunction(record, value < 1 ? kActionOn : kActionOff, 0, 0);
    return;
  }
  const std::int32_t action = value < 0 ? kActionOff : kActionOn;
  const std::int64_t steps = std::llabs(static_cast<std::int64_t>(value));
  for (std::int64_t step = 0; step < steps; ++step) ExecuteFunction(record, action, 0, 0);
}

void RefreshIfBound(SwitchFunction& record) {
  if (GetFunctionId(record) != 0) RefreshFunctionState(record);
}

// ---- decoding state ------------------------------------------------------------------------------

void GearDecodingState::Reset(std::int32_t gearPosition, std::uint8_t switches) {
  std::lock_guard<std::mutex> lock(lock_);
  gearPosition_ = gearPosition;
  prevSwitchVals_ = switches;
}

bool GearDecodingState::DetectLeverMove(std::uint8_t switches, std::int32_t* value) {
  const std::int32_t position = LeverPositionOf(switches);
  std::lock_guard<std::mutex> lock(lock_);
  if (position == gearPosition_) return false;
  gearPosition_ = position;
  if (value != nullptr) *value = position;
  return true;
}

std::int32_t GearDecodingState::DetectContactChange(std::uint8_t switches, std::uint8_t bitMask,
                                                    std::int32_t* value) {
  std::lock_guard<std::mutex> lock(lock_);
  std::uint32_t watched = prevSwitchVals_ & bitMask;
  const std::int32_t bit = DetectBankChange(InputBank{static_cast<std::uint32_t>(switches & bitMask), &watched, 8, 0}, value);
  prevSwitchVals_ = static_cast<std::uint8_t>((prevSwitchVals_ & ~bitMask) | watched);
  return bit;
}

std::int32_t GearDecodingState::GearPosition() const {
  std::lock_guard<std::mutex> lock(lock_);
  return gearPosition_;
}

std::uint8_t GearDecodingState::PrevSwitchVals() const {
  std::lock_guard<std::mutex> lock(lock_);
  return prevSwitchVals_;
}

}  // namespace drav

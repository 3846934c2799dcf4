#include "functions/LeverFunction.h"

#include <algorithm>

#include "base/Settings.h"

namespace drav {

namespace {

constexpr int kDeadBand = 3;   // reports closer than this to the last one are jitter
constexpr int kStopZone = 3;   // counts at each end of the calibrated travel that read as the end
constexpr float kSpeedBrakeArmed = -0.5f;
constexpr float kSmallestFlapNullZone = 0.1f;

// The aircraft's values are looked up by name at every binding: a newly loaded aircraft may bring
// other ones, and a missing one reads as 0.
std::int32_t AircraftInt(const char* path) {
  XPLMDataRef ref = XPLMFindDataRef(path);
  return ref != nullptr ? XPLMGetDatai(ref) : 0;
}

float AircraftFloat(const char* path) {
  XPLMDataRef ref = XPLMFindDataRef(path);
  return ref != nullptr ? XPLMGetDataf(ref) : 0.0f;
}

void ReadAircraftLimits(LeverFunction& lever) {
  lever.hasBeta = AircraftInt("sim/aircraft/overflow/acf_has_beta") != 0 ? 1 : 0;
  lever.hasReverse = AircraftInt("sim/aircraft/prop/acf_revthrust_eq") != 0 ? 1 : 0;
  lever.throttleMaxFwd = AircraftFloat("sim/aircraft/engine/acf_throtmax_FWD");
  lever.throttleMaxRev = AircraftFloat("sim/aircraft/engine/acf_throtmax_REV");
}

// The engine index 0..7 of an id in one of the per-engine groups, or -1.
std::int32_t EngineOf(FunctionId id, FunctionId firstOfGroup) {
  const std::int32_t engine = id - firstOfGroup;
  return engine >= 0 && engine < kLeverEngineCount ? engine : -1;
}

void SetOutputRange(LeverFunction& lever, FunctionId id) {
  if (id == kLeverSpeedBrake) {
    lever.outMin = CurrentSettings().GFTQ6UseSpeedBrakeArmed != 0 ? kSpeedBrakeArmed : 0.0f;
    lever.outMax = 1.0f;
  } else if (EngineOf(id, kLeverFirstPropPitch) >= 0) {
    // The propeller lever spans the aircraft's governed speed range unless the user wants it to
    // reach zero.
    lever.outMin = CurrentSettings().GFTQ6UsePropMinimumOfZero != 0
                       ? 0.0f
                       : AircraftFloat("sim/aircraft/controls/acf_RSC_mingreen_prp");
    lever.outMax = AircraftFloat("sim/aircraft/controls/acf_RSC_redline_prp");
  } else {
    lever.outMin = 0.0f;
    lever.outMax = 1.0f;
  }
}

// The per-engine lever groups: their dataref, and whether the group is the throttles. All of them
// run from full at the lever's far end to nothing at the near end, hence inverted.
struct EngineLeverGroup {
  FunctionId first;
  const char* path;
  bool throttle;
};

constexpr EngineLeverGroup kEngineLeverGroups[] = {
    {kLeverFirstThrottle, "sim/flightmodel/engine/ENGN_thro", true},
    {kLeverFirstMixture, "sim/flightmodel/engine/ENGN_mixt", false},
    {kLeverFirstPropPitch, "sim/flightmodel/engine/ENGN_prop", false},
};

struct ScalarLever {
  FunctionId id;
  const char* path;
};

constexpr ScalarLever kScalarLevers[] = {
    {kLeverFlaps, "sim/flightmodel/controls/flaprqst"},
    {kLeverSpeedBrake, "sim/flightmodel/controls/sbrkrqst"},
};

// Ids of no group (the "all engines" ones among them) keep the target they had.
void SetTarget(LeverFunction& lever, FunctionId id) {
  lever.isThrottle = 0;
  for (const EngineLeverGroup& group : kEngineLeverGroups) {
    const std::int32_t engine = EngineOf(id, group.first);
    if (engine < 0) continue;
    lever.dataref = XPLMFindDataRef(group.path);
    lever.element = engine;
    lever.invert = 1;
    if (group.throttle) {
      lever.isThrottle = 1;
      lever.propModeDataref = XPLMFindDataRef("sim/flightmodel/engine/ENGN_propmode");
    }
    return;
  }
  for (const ScalarLever& scalar : kScalarLevers) {
    if (scalar.id != id) continue;
    lever.dataref = XPLMFindDataRef(scalar.path);
    lever.element = -1;
    lever.invert = 0;
    return;
  }
}

bool WithinDeadBand(const LeverFunction& lever, int raw) {
  return raw > lever.lastRaw - kDeadBand && raw < lever.lastRaw + kDeadBand;
}

void WidenCalibration(LeverFunction& lever, std::uint8_t raw) {
  lever.rawMin = std::min(lever.rawMin, raw);
  lever.rawMax = std::max(lever.rawMax, raw);
}

// The lever's travel 0..1 within the calibrated range, the stop zones reading as the ends.
float TravelFraction(const LeverFunction& lever, std::uint8_t raw) {
  const int lo = lever.rawMin + kStopZone;
  const int hi = lever.rawMax - kStopZone;
  float fraction = lo == hi ? 0.0f : static_cast<float>(raw - lo) / static_cast<float>(hi - lo);
  fraction = std::clamp(fraction, 0.0f, 1.0f);
  return lever.invert != 0 ? 1.0f - fraction : fraction;
}

// The lever's first (1 - zone) of travel keeps the flaps up; the rest spans the whole flap range.
float FlapRequest(LeverFunction& lever, float value) {
  if (lever.flapNullZone <= 0.0f) lever.flapNullZone = kSmallestFlapNullZone;
  if (lever.flapNullZone > 1.0f) lever.flapNullZone = 1.0f;
  const float zone = lever.flapNullZone;
  if (value <= 1.0f - zone) return 0.0f;
  return std::max((value - (1.0f - zone)) / zone, 0.0f);
}

void WriteElement(XPLMDataRef ref, std::int32_t element, float value) {
  if (ref != nullptr) XPLMSetDatavf(ref, &value, element, 1);
}

void MoveControlLever(LeverFunction& lever, float value) {
  if (lever.element >= 0) {
    WriteElement(lever.dataref, lever.element, value);
    return;
  }
  if (lever.dataref == nullptr) return;
  if (lever.functionId == kLeverFlaps) {
    XPLMSetDataf(lever.dataref, FlapRequest(lever, value));
  } else if (lever.functionId == kLeverSpeedBrake) {
    XPLMSetDataf(lever.dataref, value);
  }
}

bool ReverseZoneOn(const LeverFunction& lever) { return lever.reversePoint != kLeverNoZone && lever.hasReverse; }
bool BetaZoneOn(const LeverFunction& lever) { return lever.betaPoint != kLeverNoZone && lever.hasBeta; }

struct ThrottleCommand {
  std::int32_t propMode;
  float throttle;
};

// The lever's travel from the near end: the reverse zone up to B, the beta zone from B to A, the
// forward range from A to the far end. Without those zones A and B are 0.
ThrottleCommand ThrottleFor(const LeverFunction& lever, float value, std::uint8_t switchOn) {
  float forwardStart = 0.0f;  // A
  float reverseEnd = 0.0f;    // B
  if (ReverseZoneOn(lever)) forwardStart = reverseEnd = lever.reversePoint;
  if (BetaZoneOn(lever)) forwardStart = lever.betaPoint;

  ThrottleCommand command{kPropModeNormal, value};
  if (value >= forwardStart) {
    command.throttle =
        forwardStart == 1.0f ? 0.0f : (value - forwardStart) * lever.throttleMaxFwd / (1.0f - forwardStart);
    // At idle, the lever's detent switch pulls the reversers.
    if (command.throttle == 0.0f && switchOn != 0) {
      command = {kPropModeReverse, lever.reverserPower * lever.throttleMaxRev};
    }
  }
  if (BetaZoneOn(lever) && value >= reverseEnd && value < forwardStart) command = {kPropModeBeta, 0.0f};
  if (ReverseZoneOn(lever) && value < forwardStart && value < reverseEnd) {
    // Full reverse at the end of travel, none at the reverse point.
    const float reverse = lever.reversePoint == 0.0f ? lever.throttleMaxRev
                                                     : lever.throttleMaxRev * (1.0f - value / lever.reversePoint);
    command = {kPropModeReverse, reverse};
  }
  return command;
}

void MoveThrottle(LeverFunction& lever, float value, std::uint8_t switchOn) {
  const ThrottleCommand command = ThrottleFor(lever, value, switchOn);
  std::int32_t currentMode = kPropModeFeathered;
  if (lever.propModeDataref != nullptr) XPLMGetDatavi(lever.propModeDataref, &currentMode, lever.element, 1);
  // A feathered propeller stays feathered whatever the lever does.
  if (currentMode != kPropModeFeathered && lever.propModeDataref != nullptr) {
    std::int32_t mode = command.propMode;
    XPLMSetDatavi(lever.propModeDataref, &mode, lever.element, 1);
  }
  WriteElement(lever.dataref, lever.element, command.throttle);
}

}  // namespace

void InitLever(LeverFunction& lever) { lever = LeverFunction{}; }

void BindLever(LeverFunction& lever, FunctionId functionId) {
  ReadAircraftLimits(lever);
  lever.functionId = functionId;
  SetOutputRange(lever, functionId);
  SetTarget(lever, functionId);
}

void RebindLever(LeverFunction& lever) { BindLever(lever, lever.functionId); }

void SetLeverReverser(LeverFunction& lever, float reversePoint, float betaPoint, float reverserPower) {
  lever.reversePoint = reversePoint;
  lever.betaPoint = betaPoint;
  lever.reverserPower = reverserPower;
}

void SetFlapNullZone(LeverFunction& lever, float flapNullZone) { lever.flapNullZone = flapNullZone; }

FunctionId GetLeverFunctionId(const LeverFunction& lever) { return lever.functionId; }

void MoveLever(LeverFunction& lever, std::uint8_t raw, std::uint32_t switchBit) {
  const std::uint8_t switchOn = switchBit != 0 ? 1 : 0;
  if (WithinDeadBand(lever, raw) && (lever.isThrottle == 0 || switchOn == lever.lastSwitch)) return;
  lever.lastSwitch = switchOn;
  lever.lastRaw = raw;
  WidenCalibration(lever, raw);

  const float value = lever.outMin + TravelFraction(lever, raw) * (lever.outMax - lever.outMin);
  if (lever.isThrottle != 0) {
    MoveThrottle(lever, value, switchOn);
  } else {
    MoveControlLever(lever, value);
  }
}

}  // namespace drav

// The function behind one analogue lever of a throttle quadrant: turns raw lever positions into a
// throttle, mixture, propeller, flap or speed-brake value, with the range of the loaded aircraft,
// a self-widening calibration, a dead band against jitter, and for throttles the reverse and beta
// zones that also set the engine's propeller mode.
#pragma once

#include <XPLMDataAccess.h>

#include <cstdint>

#include "functions/FunctionCatalogue.h"

namespace drav {

// The catalogue ids the levers treat specially.
inline constexpr FunctionId kLeverSpeedBrake = kFnSPEED_BRAKE;
inline constexpr FunctionId kLeverFlaps = kFnFLAPS;
inline constexpr FunctionId kLeverFirstThrottle = kFnENG_1_THROTTLE;     // .. ENG_8_THROTTLE
inline constexpr FunctionId kLeverFirstMixture = kFnENG_1_MIXTURE;       // .. ENG_8_MIXTURE
inline constexpr FunctionId kLeverFirstPropPitch = kFnENG_1_PROP_PITCH;  // .. ENG_8_PROP_PITCH
inline constexpr std::int32_t kLeverEngineCount = 8;

// A reverse or beta point that switches its zone off.
inline constexpr float kLeverNoZone = -1.0f;

// Propeller modes of "sim/flightmodel/engine/ENGN_propmode".
inline constexpr std::int32_t kPropModeFeathered = 0;
inline constexpr std::int32_t kPropModeNormal = 1;
inline constexpr std::int32_t kPropModeBeta = 2;
inline constexpr std::int32_t kPropModeReverse = 3;

struct LeverFunction {
  FunctionId functionId = 0;
  std::int32_t element = -1;     // array element of the dataref; -1 for a scalar dataref
  XPLMDataRef dataref = nullptr;  // target dataref
  std::uint8_t rawMax = 128;     // highest raw position seen
  std::uint8_t rawMin = 112;     // lowest raw position seen
  std::uint8_t lastRaw = 55;     // raw position of the last processed report
  std::uint8_t lastSwitch = 0;   // switch bit of the last processed report
  float outMin = 0.0f;           // value at one end of travel
  float outMax = 1.0f;           // value at the other end
  std::uint8_t invert = 0;       // travel runs from outMax to outMin
  float reversePoint = 0.0f;     // lever fraction where the reverse zone begins; -1 = none
  float betaPoint = 0.0f;        // lever fraction where the beta zone begins; -1 = none
  float reverserPower = 1.0f;    // fraction of the maximum reverse the detent switch gives
  float throttleMaxFwd = 0.0f;   // aircraft's maximum forward throttle ratio
  float throttleMaxRev = 0.0f;   // aircraft's maximum reverse throttle ratio
  std::uint8_t hasBeta = 0;
  std::uint8_t hasReverse = 0;
  std::uint8_t isThrottle = 0;
  float flapNullZone = 1.0f;     // flap lever: fraction of travel that moves the flaps
  // "sim/flightmodel/engine/ENGN_propmode", found at binding so that a throttle's every report
  // does not look it up by name again.
  XPLMDataRef propModeDataref = nullptr;
};

void InitLever(LeverFunction& lever);
// Binds the lever to functionId and reads the loaded aircraft's limits.
void BindLever(LeverFunction& lever, FunctionId functionId);
// The same binding again, for the limits of a newly loaded aircraft.
void RebindLever(LeverFunction& lever);
void SetLeverReverser(LeverFunction& lever, float reversePoint, float betaPoint, float reverserPower);
void SetFlapNullZone(LeverFunction& lever, float flapNullZone);
FunctionId GetLeverFunctionId(const LeverFunction& lever);
// One report of the lever: raw position 0..255 and its switch bit (any non-zero value is set).
void MoveLever(LeverFunction& lever, std::uint8_t raw, std::uint32_t switchBit);

}  // namespace drav

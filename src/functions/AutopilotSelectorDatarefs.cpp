#include "functions/AutopilotSelectorDatarefs.h"

#include <XPLMDataAccess.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>

#include "functions/FunctionState.h"
#include "functions/PublishedDatarefRegistry.h"

namespace drav {

namespace {

constexpr double kKnotsPerMetrePerSecond = 1.9438444;

SelectorDatarefState& StateOf(void* refcon) { return *static_cast<SelectorDatarefState*>(refcon); }

int ReadSpeedIsMach(void* refcon) { return ReadIntOrZero(Resolve(StateOf(refcon).speedIsMach)); }

// The value written is ignored: every write flips the unit and converts the target to it, so the
// aircraft keeps flying the same speed.
void ToggleSpeedUnit(void* refcon, int) {
  SelectorDatarefState& state = StateOf(refcon);
  const XPLMDataRef isMach = Resolve(state.speedIsMach);
  const bool wasMach = ReadIntOrZero(isMach) != 0;
  WriteIntIfPresent(isMach, wasMach ? 0 : 1);

  const XPLMDataRef target = Resolve(state.speedTarget);
  const double speed = ReadFloatOrZero(target);
  const double knotsPerMach =
      KnotsPerMach(ReadFloatOrZero(Resolve(state.speedOfSound)), ReadFloatOrZero(Resolve(state.densityRatio)));
  // Without a speed of sound there is no conversion; the target keeps its number rather than
  // becoming infinite.
  if (!(knotsPerMach > 0.0)) return;
  const double converted = wasMach ? speed * knotsPerMach : speed / knotsPerMach;
  WriteFloatIfPresent(target, static_cast<float>(converted));
}

int ReadAltKnob(void* refcon) { return StateOf(refcon).altKnob; }
void WriteAltKnob(void* refcon, int value) { StateOf(refcon).altKnob = value; }

struct IntDatarefRow {
  const char* path;
  XPLMGetDatai_f read;
  XPLMSetDatai_f write;
};

constexpr IntDatarefRow kSelectorDatarefs[] = {
    {"drav/autopilot/asi_is_mach", ReadSpeedIsMach, ToggleSpeedUnit},
    {kAltKnobDataref, ReadAltKnob, WriteAltKnob},
};

}  // namespace

double KnotsPerMach(double speedOfSoundMs, double sigma) {
  // A negative or unreadable density counts as the thinnest air the limit allows.
  const double root = sigma > 0.0 ? std::sqrt(sigma) : 0.0;
  return speedOfSoundMs * kKnotsPerMetrePerSecond * std::clamp(root, 0.01, 1.0);
}

void PublishAutopilotSelectorDatarefs() {
  SelectorDatarefState& state = CurrentFunctionState().selectors;
  for (const IntDatarefRow& selector : kSelectorDatarefs) {
    RegisterIntDataref(selector.path, selector.read, selector.write, &state);
  }
}

}  // namespace drav

#include "functions/AutopilotSelectorDatarefs.h"

#include <XPLMDataAccess.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>

#include "functions/PublishedDatarefRegistry.h"

namespace drav {

namespace {

constexpr double kKnotsPerMetrePerSecond = 1.9438444;

LazyDataref gSpeedIsMach{"sim/cockpit/autopilot/airspeed_is_mach"};
LazyDataref gSpeedTarget{"sim/cockpit/autopilot/airspeed"};
LazyDataref gDensityRatio{"sim/weather/sigma"};
LazyDataref gSpeedOfSound{"sim/weather/speed_sound_ms"};

int gAltKnob = 0;

int ReadSpeedIsMach(void*) { return ReadIntOrZero(Resolve(gSpeedIsMach)); }

// The value written is ignored: every write flips the unit and converts the target to it, so the
// aircraft keeps flying the same speed.
void ToggleSpeedUnit(void*, int) {
  const XPLMDataRef isMach = Resolve(gSpeedIsMach);
  const bool wasMach = ReadIntOrZero(isMach) != 0;
  WriteIntIfPresent(isMach, wasMach ? 0 : 1);

  const XPLMDataRef target = Resolve(gSpeedTarget);
  const double speed = ReadFloatOrZero(target);
  const double knotsPerMach =
      KnotsPerMach(ReadFloatOrZero(Resolve(gSpeedOfSound)), ReadFloatOrZero(Resolve(gDensityRatio)));
  // Without a speed of sound there is no conversion; the target keeps its number rather than
  // becoming infinite.
  if (!(knotsPerMach > 0.0)) return;
  const double converted = wasMach ? speed * knotsPerMach : speed / knotsPerMach;
  WriteFloatIfPresent(target, static_cast<float>(converted));
}

int ReadAltKnob(void*) { return gAltKnob; }
void WriteAltKnob(void*, int value) { gAltKnob = value; }

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
  for (LazyDataref* dataref : {&gSpeedIsMach, &gSpeedTarget, &gDensityRatio, &gSpeedOfSound}) {
    Forget(*dataref);
  }
  gAltKnob = 0;
  for (std::size_t row = 0; row < std::size(kSelectorDatarefs); ++row) {
    const IntDatarefRow& selector = kSelectorDatarefs[row];
    RegisterIntDataref(selector.path, selector.read, selector.write, row);
  }
}

}  // namespace drav

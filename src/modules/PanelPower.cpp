#include "modules/PanelPower.h"

#include <algorithm>
#include <iterator>

#include "XPLMDataAccess.h"
#include "modules/ModuleState.h"

namespace drav {

namespace {

// The engine arrays hold 8 elements in older simulators and 16 in newer ones; an engine count above
// that is not believed.
constexpr int kMaxEngines = 16;
constexpr float kN1PerPowerUnit = 15.0f;
constexpr double kPowerThreshold = 0.1;

// Each handle is looked up once, also when the dataref does not exist: a missing one stays null
// and its test is skipped, without asking the simulator again every frame.
const PowerDatarefs& Datarefs() {
  PowerDatarefs& power = CurrentModuleState().power;
  if (!power.lookedUp) {
    power.electricalFailure = XPLMFindDataRef("sim/operation/failures/rel_esys");
    power.batteryVolts = XPLMFindDataRef("sim/flightmodel/engine/ENGN_bat_volt");
    power.batteryOn = XPLMFindDataRef("sim/cockpit/electrical/battery_on");
    power.avionicsOn = XPLMFindDataRef("sim/cockpit/electrical/avionics_on");
    power.generatorOn = XPLMFindDataRef("sim/cockpit/electrical/generator_on");
    power.engineType = XPLMFindDataRef("sim/aircraft/prop/acf_en_type");
    power.engineCount = XPLMFindDataRef("sim/aircraft/engine/acf_num_engines");
    power.engineN1 = XPLMFindDataRef("sim/flightmodel/engine/ENGN_N1_");
    power.lookedUp = true;
  }
  return power;
}

int ReadInt(XPLMDataRef ref) { return ref != nullptr ? XPLMGetDatai(ref) : 0; }

// Element `index` only; an element past the array's end (a shorter array) reads as 0.
int ReadIntElement(XPLMDataRef ref, int index) {
  int value = 0;
  if (ref != nullptr) XPLMGetDatavi(ref, &value, index, 1);
  return value;
}

float ReadFloatElement(XPLMDataRef ref, int index) {
  float value = 0.0f;
  if (ref != nullptr) XPLMGetDatavf(ref, &value, index, 1);
  return value;
}

// Turbine types, whose generators give power in proportion to N1: older simulators number them 2
// (free turbine), 4 (low-bypass jet), 5 (high-bypass jet) and 8 (fixed turbine); X-Plane 12 numbers
// them 5 (single-spool jet), 7 (multi-spool jet), 9 (free turboprop) and 10 (fixed turboprop), and
// uses none of the old numbers for anything else.
constexpr int kTurbineTypes[] = {2, 4, 5, 7, 8, 9, 10};

bool IsTurbine(int engineType) { return std::ranges::find(kTurbineTypes, engineType) != std::end(kTurbineTypes); }

int EngineCount(const PowerDatarefs& refs) {
  return std::clamp(ReadInt(refs.engineCount), 1, kMaxEngines);
}

float GeneratorPower(const PowerDatarefs& refs, int engine) {
  if (ReadIntElement(refs.generatorOn, engine) == 0) return 0.0f;
  if (!IsTurbine(ReadIntElement(refs.engineType, engine))) return 0.0f;
  return ReadFloatElement(refs.engineN1, engine) / kN1PerPowerUnit;
}

}  // namespace

bool HasPanelPower(bool checkAvionics) {
  const PowerDatarefs& refs = Datarefs();
  if (checkAvionics && refs.avionicsOn != nullptr && XPLMGetDatai(refs.avionicsOn) == 0) return false;
  if (refs.electricalFailure != nullptr && XPLMGetDatai(refs.electricalFailure) == 6) return false;

  const bool batteryOn = ReadInt(refs.batteryOn) != 0;
  float sum = 0.0f;
  const int engines = EngineCount(refs);
  for (int engine = 0; engine < engines; ++engine) {
    sum += batteryOn ? ReadFloatElement(refs.batteryVolts, engine) : GeneratorPower(refs, engine);
  }
  return static_cast<double>(sum) > kPowerThreshold;
}

}  // namespace drav

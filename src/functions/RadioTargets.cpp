#include "functions/RadioTargets.h"

#include <iterator>

#include "functions/FunctionObjects.h"
#include "functions/FunctionState.h"
#include "functions/PanelDirectory.h"
#include "hid/ModuleTypes.h"

namespace drav {

namespace {

// RadioModuleKind to the module type of that model, by position.
constexpr ModuleType kRadioModuleTypes[] = {kModuleGF45, kModuleGF46, kModuleGF166};

// The two radios of each toggle: first radio's function, then the second's. Only the GF-166 has
// the DUAL functions.
struct RadioPair {
  FunctionId toggle;
  FunctionId first;
  FunctionId second;
  bool gf166Only;
};

constexpr RadioPair kRadioPairs[] = {
    {kCom1Com2Toggle, kFnCOM1_ACTIVE, kFnCOM2_ACTIVE, false},
    {kCom1Com2Toggle, kFnCOM1_STANDBY, kFnCOM2_STANDBY, false},
    {kCom1Com2Toggle, kFnCOM1_DUAL, kFnCOM2_DUAL, true},
    {kNav1Nav2Toggle, kFnNAV1_ACTIVE, kFnNAV2_ACTIVE, false},
    {kNav1Nav2Toggle, kFnNAV1_STANDBY, kFnNAV2_STANDBY, false},
    {kNav1Nav2Toggle, kFnNAV1_DUAL, kFnNAV2_DUAL, true},
};

}  // namespace

const PanelDirectory* CurrentPanelDirectory() { return CurrentFunctionState().panelDirectory; }

RadioModule* FindRadioModule(std::int32_t moduleKind, std::int32_t unit) {
  const PanelDirectory* panels = CurrentPanelDirectory();
  if (moduleKind < 0 || moduleKind >= static_cast<std::int32_t>(std::size(kRadioModuleTypes)) || unit < 0 ||
      panels == nullptr) {
    return nullptr;
  }
  return panels->FindRadio(kRadioModuleTypes[moduleKind], static_cast<std::uint32_t>(unit));
}

FunctionId ToggleCounterpart(FunctionId toggle, FunctionId current, std::int32_t moduleKind) {
  const bool isGf166 = moduleKind == kRadioGF166;
  for (const RadioPair& pair : kRadioPairs) {
    if (pair.toggle != toggle || (pair.gf166Only && !isGf166)) continue;
    if (current == pair.first) return pair.second;
    if (current == pair.second) return pair.first;
  }
  return kNada;
}

bool IsSecondRadioFunction(FunctionId toggle, FunctionId current) {
  for (const RadioPair& pair : kRadioPairs) {
    if (pair.toggle == toggle && current == pair.second) return true;
  }
  return false;
}

}  // namespace drav

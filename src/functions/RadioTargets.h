// The radio modules a ModuleSelect function aims at, and the rules of its two toggles: which
// function COM1_COM2_TOGGLE and NAV1_NAV2_TOGGLE select, and when the GF-166 lights them.
#pragma once

#include <cstdint>

#include "functions/FunctionCatalogue.h"

namespace drav {

class RadioModule;

inline constexpr FunctionId kNav1Nav2Toggle = kFnNAV1_NAV2_TOGGLE;
inline constexpr FunctionId kCom1Com2Toggle = kFnCOM1_COM2_TOGGLE;
inline constexpr FunctionId kFuncInst = kFnFUNC_INST;
inline constexpr FunctionId kFuncAp = kFnFUNC_AP;

// The radio module of moduleKind (RadioModuleKind: GF-45, GF-46, GF-166) and unit, or nullptr when
// the kind is unknown, the unit is not connected or its object is not a radio. Asks the directory
// that the plug-in handed to the function layer (CurrentPanelDirectory).
RadioModule* FindRadioModule(std::int32_t moduleKind, std::int32_t unit);

// The function a toggle selects when current is shown: the same function on the other radio, or 0
// when current has no counterpart (the DUAL pair only on a GF-166).
FunctionId ToggleCounterpart(FunctionId toggle, FunctionId current, std::int32_t moduleKind);

// The GF-166 lights a toggle while one of the second radio's functions is current.
bool IsSecondRadioFunction(FunctionId toggle, FunctionId current);

}  // namespace drav

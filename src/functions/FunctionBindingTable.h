// The binding tables behind the factory: which builder makes the switch function of an id, with
// which dataref, values, command button or key stroke. The tables themselves are data (the
// single-binding, family, autopilot and command tables); this is the one place that reads them.
#pragma once

#include "functions/FunctionCatalogue.h"
#include "functions/FunctionObjects.h"

namespace drav {

// Runs the builders the tables give id on record, choosing the autopilot variants by the host's
// X737Mode as it is now. False, and the record untouched, when no table builds an object for id.
bool BuildSwitchFunction(FunctionId id, SwitchFunction& record);

}  // namespace drav

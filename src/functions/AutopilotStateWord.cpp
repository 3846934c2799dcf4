#include "functions/AutopilotStateWord.h"

#include <XPLMDataAccess.h>

#include "functions/FunctionState.h"
#include "functions/PublishedDatarefRegistry.h"

namespace drav {

namespace {

XPLMDataRef& StateWord() { return CurrentFunctionState().autopilotStateWord; }

}  // namespace

void LookUpAutopilotStateWord() { StateWord() = XPLMFindDataRef("sim/cockpit/autopilot/autopilot_state"); }

bool AutopilotStateWordExists() { return StateWord() != nullptr; }

int ReadAutopilotStateWord() { return ReadIntOrZero(StateWord()); }

void ToggleAutopilotModes(int modes) { WriteIntIfPresent(StateWord(), modes); }

bool AutothrottleAlreadyAs(int requested) {
  if (!AutopilotStateWordExists()) return false;
  const bool engaged = (ReadAutopilotStateWord() & kAutothrottleBit) != 0;
  return (engaged && requested == 1) || (!engaged && requested == 0);
}

}  // namespace drav

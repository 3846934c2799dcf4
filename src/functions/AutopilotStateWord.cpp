#include "functions/AutopilotStateWord.h"

#include <XPLMDataAccess.h>

#include "functions/PublishedDatarefRegistry.h"

namespace drav {

namespace {

XPLMDataRef gStateWord = nullptr;

}  // namespace

void LookUpAutopilotStateWord() { gStateWord = XPLMFindDataRef("sim/cockpit/autopilot/autopilot_state"); }

bool AutopilotStateWordExists() { return gStateWord != nullptr; }

int ReadAutopilotStateWord() { return ReadIntOrZero(gStateWord); }

void ToggleAutopilotModes(int modes) { WriteIntIfPresent(gStateWord, modes); }

bool AutothrottleAlreadyAs(int requested) {
  if (!AutopilotStateWordExists()) return false;
  const bool engaged = (ReadAutopilotStateWord() & kAutothrottleBit) != 0;
  return (engaged && requested == 1) || (!engaged && requested == 0);
}

}  // namespace drav

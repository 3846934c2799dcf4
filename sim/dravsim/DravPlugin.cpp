#include "dravsim/DravPlugin.h"

#include <chrono>

#include "hid/DeviceObject.h"
#include "plugin/Plugin.h"

namespace dravsim {

namespace {

// A feature read that a unit's writer does for the main thread is given ample time here: on a
// loaded machine under a sanitizer an answering unit must never look stalled to a scenario. The
// wait belongs to the device layer's state, which each start makes afresh, so it is set at every
// start, before the panels are (at enable).
constexpr std::chrono::milliseconds kScenarioFeatureReadWait{1000};

int StartWithPatientFeatureReads(char* outName, char* outSignature, char* outDescription) {
  const int started = drav::PluginStart(outName, outSignature, outDescription);
  drav::SetFeatureReadWait(kScenarioFeatureReadWait);
  return started;
}

}  // namespace

sim::PluginEntryPoints DravPluginEntryPoints() {
  sim::PluginEntryPoints entry;
  entry.start = &StartWithPatientFeatureReads;
  entry.stop = &drav::PluginStop;
  entry.enable = &drav::PluginEnable;
  entry.disable = &drav::PluginDisable;
  entry.receiveMessage = &drav::PluginReceiveMessage;
  return entry;
}

}  // namespace dravsim

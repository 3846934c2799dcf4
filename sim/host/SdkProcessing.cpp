// XPLMProcessing.h: flight loops on the simulator's frame clock.
#include <XPLMProcessing.h>

#include "host/SdkHost.h"

using sim::SdkHost;

float XPLMGetElapsedTime(void) {
  return static_cast<float>(SdkHost().frame) / static_cast<float>(sim::kFramesPerSecond);
}

int XPLMGetCycleNumber(void) { return static_cast<int>(SdkHost().frame); }

void XPLMRegisterFlightLoopCallback(XPLMFlightLoop_f inFlightLoop, float inInterval, void* inRefcon) {
  sim::SimHostImpl& host = SdkHost();
  host.flightLoops.Register(inFlightLoop, inInterval, inRefcon, host.frame);
}

void XPLMUnregisterFlightLoopCallback(XPLMFlightLoop_f inFlightLoop, void* inRefcon) {
  SdkHost().flightLoops.Unregister(inFlightLoop, inRefcon);
}

void XPLMSetFlightLoopCallbackInterval(XPLMFlightLoop_f inFlightLoop, float inInterval,
                                       int inRelativeToNow, void* inRefcon) {
  sim::SimHostImpl& host = SdkHost();
  host.flightLoops.SetInterval(inFlightLoop, inInterval, inRelativeToNow != 0, inRefcon, host.frame);
}
